#include "desktop/forms/file_chooser.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QStorageInfo>

#include "common/atomic_file.h"
#include "common/failure.h"
#include "desktop/forms/toolkit_dialogs.h"
#include "desktop/services/desktop_message_box.h"

namespace sentrel {
namespace {

void SetUp(QFileDialog& dialog, const SaveFileRequest& request) {
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setFileMode(QFileDialog::AnyFile);
  dialog.setOption(QFileDialog::HideNameFilterDetails);
  dialog.setOption(QFileDialog::DontConfirmOverwrite, !request.promptBeforeOverwrite);
  dialog.setNameFilters(NameFilters(request.filter));
  if (!request.fileName.empty()) dialog.selectFile(QString::fromStdString(request.fileName));
}

/// Why no file of this many bytes can be written under this name, empty where one can.
std::string ObstacleAt(const std::string& path, std::uint64_t bytes) {
  try {
    const AtomicFile trial(path);
  } catch (const Failure& failure) {
    return failure.what();
  }
  const QStorageInfo disk(QFileInfo(QString::fromStdString(path)).absolutePath());
  if (disk.bytesAvailable() > 0 && static_cast<std::uint64_t>(disk.bytesAvailable()) >= bytes) {
    return "";
  }
  return "Cannot write the file " + path + ": the disk is full.";
}

void Tell(const std::string& obstacle, QWidget* owner) {
  QMessageBox box(QMessageBox::Warning, "Sentrel",
                  QString::fromStdString(obstacle) + "\nPlease choose another file name.",
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
  NameIcons icons;
  QFileDialog dialog(OwnerOfNextDialog(window_), QString::fromStdString(request.title));
  dialog.setIconProvider(&icons);
  SetUp(dialog, request);
  while (dialog.exec() == QDialog::Accepted) {
    const QString chosen = dialog.selectedFiles().value(0);
    std::string path = chosen.toStdString();
    const std::string obstacle = request.roomFor ? ObstacleAt(path, *request.roomFor) : "";
    if (obstacle.empty()) return path;
    Tell(obstacle, OwnerOfNextDialog(window_));
    dialog.selectFile(chosen);
  }
  return std::nullopt;
}

}  // namespace sentrel
