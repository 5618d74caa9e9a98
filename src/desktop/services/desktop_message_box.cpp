#include "desktop/services/desktop_message_box.h"

#include <QApplication>
#include <QMessageBox>

namespace sentrel {

QWidget* OwnerOfNextDialog(QWidget& window) {
  if (QWidget* dialog = QApplication::activeModalWidget()) return dialog;
  return window.isVisible() ? &window : nullptr;
}

void DesktopMessageBox::Show(const std::string& text, MessageIcon icon, const std::string& title) {
  QMessageBox box(icon == MessageIcon::CriticalStop ? QMessageBox::Critical : QMessageBox::Warning,
                  QString::fromStdString(title),
                  QString::fromStdString(text).replace("\r\n", "\n").replace('\r', '\n'),
                  QMessageBox::Ok, OwnerOfNextDialog(window_));
  box.setTextFormat(Qt::PlainText);
  box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  box.exec();
}

}  // namespace sentrel
