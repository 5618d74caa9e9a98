#include "desktop/export/file_output.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <optional>

#include "common/atomic_file.h"
#include "common/failure.h"
#include "desktop/export/export_file_names.h"
#include "desktop/export/progress_dialog.h"
#include "desktop/export/send_to_targets.h"

namespace sentrel {
namespace {

constexpr mode_t kOwnerReads = 0400;

}  // namespace

bool FileOutput::Save(const FileKind& kind, const FileWriter& writer) {
  if (session_.settings.skipFilenameSelection) {
    const QString place = WritablePlace(SuggestedFile(), QDir::tempPath());
    Write(WithExtension(place, kind.extension), Bytes(writer));
    return true;
  }
  std::optional<std::string> bytes;
  return SaveAs(session_.Owner(), SuggestedFile(), kind, [&](const QString& filename) {
    if (!bytes) bytes = Bytes(writer);
    return session_.Succeeds([&] {
      Write(filename, *bytes);
      return true;
    });
  });
}

void FileOutput::OpenDirectly(const FileKind& kind, const FileWriter& writer) {
  const std::string bytes = Bytes(writer);
  const QString name = WithExtension(QFileInfo(SuggestedFile()).fileName(), kind.extension);
  const std::string path = opened_.PathFor(name).toStdString();
  WriteFile(path, bytes, kOwnerReads);
  try {
    OpenFile(path);
  } catch (const Failure&) {
    QFile::remove(QString::fromStdString(path));
    throw;
  }
  session_.settings.targetFilename = path;
}

QString FileOutput::SuggestedFile() const {
  const ExportSettings& settings = session_.settings;
  QString name = QString::fromStdString(settings.targetFilename);
  if (name.isEmpty()) name = "Export";
  if (settings.initDir.empty()) return name;
  return QDir(QString::fromStdString(settings.initDir)).filePath(name);
}

std::string FileOutput::Bytes(const FileWriter& writer) const {
  ProgressDialog progress(session_.Owner(), "Exporting ...");
  return writer(progress);
}

void FileOutput::Write(const QString& filename, const std::string& bytes) {
  WriteFile(filename.toStdString(), bytes);
  session_.settings.targetFilename = filename.toStdString();
}

}  // namespace sentrel
