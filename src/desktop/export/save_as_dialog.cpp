#include "desktop/export/save_as_dialog.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>

#include "desktop/export/export_file_names.h"
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

void Select(QFileDialog& dialog, const QString& filename) {
  dialog.setDirectory(QFileInfo(filename).path());
  dialog.selectFile(QFileInfo(filename).fileName());
}

}  // namespace

bool SaveAs(QWidget* owner, const QString& suggestion, const FileKind& kind,
            const std::function<bool(const QString& filename)>& write) {
  NameIcons icons;
  QFileDialog dialog(owner, "Export");
  dialog.setIconProvider(&icons);
  dialog.setObjectName("ExportFile");
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setFileMode(QFileDialog::AnyFile);
  dialog.setOption(QFileDialog::DontConfirmOverwrite);  // asked below, for the name as it is used
  dialog.setNameFilters({QString("%1 (*.%2)").arg(kind.caption, kind.extension), "All files (*)"});
  Select(dialog, WithExtension(WritablePlace(suggestion, UsersFolder()), kind.extension));
  while (dialog.exec() == QDialog::Accepted) {
    const QString filename = WithExtension(dialog.selectedFiles().value(0), kind.extension);
    if (MayReplace(owner, filename) && write(filename)) return true;
    Select(dialog, filename);
  }
  return false;
}

}  // namespace sentrel
