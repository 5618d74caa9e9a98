#include "desktop/qt_file_dialog.h"

#include <QFileDialog>
#include <QMessageBox>

#include "desktop/qt_services.h"

namespace sentrel {
namespace {

void TellReadOnly(const QString& path, QWidget* owner) {
  QMessageBox::warning(owner, "Sentrel", path + " is read-only.\nPlease choose another file name.");
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

std::optional<std::string> QtFileDialog::ChooseSaveFile(const SaveFileRequest& request) {
  QFileDialog dialog(OwnerOfNextDialog(window_), QString::fromStdString(request.title));
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setFileMode(QFileDialog::AnyFile);
  dialog.setOption(QFileDialog::HideNameFilterDetails);
  dialog.setOption(QFileDialog::DontConfirmOverwrite, !request.promptBeforeOverwrite);
  dialog.setNameFilters(NameFilters(request.filter));
  if (!request.fileName.empty()) dialog.selectFile(QString::fromStdString(request.fileName));
  while (dialog.exec() == QDialog::Accepted) {
    const QString path = dialog.selectedFiles().value(0);
    if (!request.refuseReadOnly || !IsReadOnly(path.toStdString())) return path.toStdString();
    TellReadOnly(path, OwnerOfNextDialog(window_));
  }
  return std::nullopt;
}

}  // namespace sentrel
