#pragma once

#include <QComboBox>

#include "controls/auto_combo.h"

namespace sentrel {

/// An AutoCombo on the screen: an edit box that drops down its history and offers the entries that
/// begin with what is being typed.
class AutoComboBox : public QComboBox {
  Q_OBJECT
 public:
  /// The control must outlive the widget.
  explicit AutoComboBox(AutoCombo& combo, QWidget* parent = nullptr);
  ~AutoComboBox() override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void ShowState();

  AutoCombo& combo_;
};

}  // namespace sentrel
