#include "desktop/services/desktop_application.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace sentrel {

std::string DesktopApplication::ProgramFolder() const {
  return QCoreApplication::applicationDirPath().toStdString();
}

std::string DesktopApplication::ExecutableName() const {
  return QFileInfo(QCoreApplication::applicationFilePath()).completeBaseName().toStdString();
}

std::string DesktopApplication::LayoutFolder() const {
  const bool writable = QFileInfo(QCoreApplication::applicationDirPath()).isWritable();
  return writable ? ProgramFolder() : userFolder_;
}

}  // namespace sentrel
