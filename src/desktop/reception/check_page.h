#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QWidget>

#include "desktop/reception/list_view.h"
#include "reception/self_check.h"

namespace sentrel {

/// The page "I see nothing": runs the check and shows what it finds, with a command to copy where
/// one helps. Used on the event loop only.
class CheckPage : public QWidget {
  Q_OBJECT
 public:
  /// The check must outlive the page.
  explicit CheckPage(SelfCheck& check);

  /// Watch has looked before.
  void Refresh();
  const std::vector<CheckStep>& Steps() const { return shown_; }

 signals:
  /// The check has begun, and Watch with it.
  void Started();

 private:
  void Start();
  void ShowFinding();

  SelfCheck& check_;
  std::vector<CheckStep> shown_;
  ListView* list_;
  QLabel* finding_;
  QLineEdit* command_;
  QPushButton* copy_;
};

}  // namespace sentrel
