#include "desktop/export/opened_files.h"

#include <QDir>
#include <QFileInfo>

#include "common/failure.h"
#include "desktop/export/export_file_names.h"

namespace sentrel {
namespace {

QString VolatileFolder() {
  const QFileInfo ofSession(qEnvironmentVariable("XDG_RUNTIME_DIR"));
  return ofSession.isDir() && ofSession.isWritable() ? ofSession.filePath() : QDir::tempPath();
}

}  // namespace

QString OpenedFiles::PathFor(const QString& name) {
  if (!folder_ || !QFileInfo(folder_->path()).isDir()) {
    auto folder = std::make_unique<QTemporaryDir>(VolatileFolder() + "/Sentrel-XXXXXX");
    if (!folder->isValid()) {
      throw Failure("Cannot make a folder for the file: " + folder->errorString().toStdString() +
                    ".");
    }
    folder_ = std::move(folder);
  }
  return FreePath(folder_->path(), name);
}

}  // namespace sentrel
