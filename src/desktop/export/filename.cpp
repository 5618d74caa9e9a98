#include "desktop/export/filename.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>
#include <QStandardPaths>

#include "desktop/forms/toolkit_dialogs.h"

namespace sentrel {
namespace {

bool MayReplace(QWidget* owner, const QString& filename) {
  if (!QFileInfo::exists(filename)) return true;
  QMessageBox box(
      QMessageBox::Warning, "Sentrel",
      QString("The file %1 exists already. Replace it?").arg(QDir::toNativeSeparators(filename)),
      QMessageBox::NoButton, owner);
  box.setObjectName("Replace");
  box.setTextFormat(Qt::PlainText);
  const QAbstractButton* replace = box.addButton("&Replace", QMessageBox::AcceptRole);
  box.setDefaultButton(box.addButton(QMessageBox::Cancel));
  box.exec();
  return box.clickedButton() == replace;
}

}  // namespace

QString WithExtension(const QString& filename, const QString& extension) {
  return QFileInfo(filename).suffix().isEmpty() ? filename + "." + extension : filename;
}

QString WritablePlace(const QString& filename, const QString& otherFolder) {
  const QFileInfo file(filename);
  const bool writable = file.isAbsolute() && QFileInfo(file.path()).isWritable();
  return writable ? filename : QDir(otherFolder).filePath(file.fileName());
}

std::optional<QString> AskFilename(QWidget* owner, const QString& suggestion,
                                   const QString& caption, const QString& extension) {
  const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  NameIcons icons;
  QFileDialog dialog(owner, "Export");
  dialog.setIconProvider(&icons);
  dialog.setObjectName("ExportFile");
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setFileMode(QFileDialog::AnyFile);
  dialog.setOption(QFileDialog::DontConfirmOverwrite);  // asked below, for the name as it is used
  dialog.setNameFilters({QString("%1 (*.%2)").arg(caption, extension), "All files (*)"});
  QString filename = WithExtension(WritablePlace(suggestion, documents), extension);
  do {
    dialog.setDirectory(QFileInfo(filename).path());
    dialog.selectFile(QFileInfo(filename).fileName());
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    filename = WithExtension(dialog.selectedFiles().value(0), extension);
  } while (!MayReplace(owner, filename));
  return filename;
}

}  // namespace sentrel
