#include "desktop/forms/file_chooser.h"

#include <QFileDialog>
#include <QMessageBox>

#include "desktop/forms/toolkit_dialogs.h"
#include "desktop/services/desktop_files.h"
#include "desktop/services/desktop_message_box.h"

namespace sentrel {
namespace {

std::optional<std::string> Ask(const SaveFileRequest& request, QWidget* owner) {
  NameIcons icons;
  QFileDialog dialog(owner, QString::fromStdString(request.title));
  dialog.setIconProvider(&icons);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setFileMode(QFileDialog::AnyFile);
  dialog.setOption(QFileDialog::HideNameFilterDetails);
  dialog.setOption(QFileDialog::DontConfirmOverwrite, !request.promptBeforeOverwrite);
  dialog.setNameFilters(NameFilters(request.filter));
  if (!request.fileName.empty()) dialog.selectFile(QString::fromStdString(request.fileName));
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return dialog.selectedFiles().value(0).toStdString();
}

void TellReadOnly(const std::string& path, QWidget* owner) {
  QMessageBox box(QMessageBox::Warning, "Sentrel",
                  QString::fromStdString(path) + " is read-only.\nPlease choose another file name.",
                  QMessageBox::Ok, owner);
  box.setTextFormat(Qt::PlainText);
  box.exec();
}

}  // namespace

QStringList NameFilters(const std::string& filter) {
  const QStringList pieces = QString::fromStdString(filter).split('|');
  QStringList filters;
  for (qsizetype caption = 0; caption + 1 < pieces.size(); caption += 2) {
    QStringList patterns = pieces[caption + 1].split(';');
    patterns.replaceInStrings("*.*", "*");
    filters << QString("%1 (%2)").arg(pieces[caption], patterns.join(' '));
  }
  return filters;
}

std::optional<std::string> FileChooser::ChooseSaveFile(const SaveFileRequest& request) {
  SaveFileRequest next = request;
  while (auto path = Ask(next, OwnerOfNextDialog(window_))) {
    if (!request.refuseReadOnly || !IsReadOnly(*path)) return path;
    TellReadOnly(*path, OwnerOfNextDialog(window_));
    next.fileName = *path;
  }
  return std::nullopt;
}

}  // namespace sentrel
