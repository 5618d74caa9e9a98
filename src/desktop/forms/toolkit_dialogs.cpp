#include "desktop/forms/toolkit_dialogs.h"

#include <QApplication>
#include <QEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QMimeDatabase>

namespace sentrel {
namespace {

QMimeType KindByName(const QFileInfo& file) {
  return QMimeDatabase().mimeTypeForFile(file.fileName(), QMimeDatabase::MatchExtension);
}

}  // namespace

QIcon NameIcons::icon(const QFileInfo& file) const {
  if (file.isDir()) return icon(Folder);
  return QIcon::fromTheme(KindByName(file).iconName(), icon(File));
}

QString NameIcons::type(const QFileInfo& file) const {
  return file.isFile() ? KindByName(file).comment() : QFileIconProvider::type(file);
}

ToolkitDialogs::ToolkitDialogs() {
  qApp->installEventFilter(this);
}

bool ToolkitDialogs::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Show) {
    if (auto* box = qobject_cast<QMessageBox*>(watched)) box->setTextFormat(Qt::PlainText);
    if (auto* dialog = qobject_cast<QFileDialog*>(watched)) dialog->setIconProvider(&icons_);
  }
  return QObject::eventFilter(watched, event);
}

}  // namespace sentrel
