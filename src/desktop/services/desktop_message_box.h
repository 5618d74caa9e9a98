#pragma once

#include <QWidget>
#include <string>

#include "platform/message_box.h"

namespace sentrel {

/// What a dialog is to stand above: the dialog that is open, else the window; null if neither can
/// be seen.
QWidget* OwnerOfNextDialog(QWidget& window);

class DesktopMessageBox : public MessageBox {
 public:
  /// The box stands above whatever dialog is open, else above the window, which may be hidden and
  /// must outlive it.
  explicit DesktopMessageBox(QWidget& window) : window_(window) {}
  void Show(const std::string& text, MessageIcon icon, const std::string& title) override;

 private:
  QWidget& window_;
};

}  // namespace sentrel
