#pragma once

#include <QDialog>
#include <QLabel>
#include <functional>
#include <string>

namespace sentrel {

/// A dialog that OK closes only if nothing is wrong with what was entered; else it says below the
/// entries what is.
class CheckedDialog : public QDialog {
  Q_OBJECT
 public:
  /// Returns what is wrong, in a sentence; "" for nothing.
  using Check = std::function<std::string()>;

  /// Takes the ownership of the entries.
  CheckedDialog(const QString& title, QWidget* entries, Check check, QWidget* owner);

  void accept() override;

 private:
  Check check_;
  QLabel* problem_;
};

}  // namespace sentrel
