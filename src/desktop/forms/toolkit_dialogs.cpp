#include "desktop/forms/toolkit_dialogs.h"

#include <QApplication>
#include <QEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QMimeDatabase>

#include "common/visible_text.h"

namespace sentrel {
namespace {

QMimeType KindByName(const QFileInfo& file) {
  return QMimeDatabase().mimeTypeForFile(file.fileName(), QMimeDatabase::MatchExtension);
}

QString Visible(const QString& text) {
  return QString::fromStdString(VisibleText(text.toStdString()));
}

/// Of the program or of the toolkit.
void ShowPlainly(QMessageBox& box) {
  box.setTextFormat(Qt::PlainText);
  box.setText(Visible(box.text()));
  box.setInformativeText(Visible(box.informativeText()));
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
    if (auto* box = qobject_cast<QMessageBox*>(watched)) ShowPlainly(*box);
    if (auto* dialog = qobject_cast<QFileDialog*>(watched)) dialog->setIconProvider(&icons_);
  }
  return QObject::eventFilter(watched, event);
}

}  // namespace sentrel
