#include "desktop/export/export_file_names.h"

#include <QDir>
#include <QFileInfo>
#include <QMimeDatabase>
#include <QStandardPaths>

namespace sentrel {

QString WithExtension(const QString& filename, const QString& extension) {
  const QMimeType kind =
      QMimeDatabase().mimeTypeForFile("x." + extension, QMimeDatabase::MatchExtension);
  const QStringList own = kind.suffixes() << extension;
  const QString suffix = QFileInfo(filename).suffix();
  return own.contains(suffix, Qt::CaseInsensitive) ? filename : filename + "." + extension;
}

QString WritablePlace(const QString& filename, const QString& otherFolder) {
  const QFileInfo file(filename);
  const bool writable = file.isAbsolute() && QFileInfo(file.path()).isWritable();
  return writable ? filename : QDir(otherFolder).filePath(file.fileName());
}

QString UsersFolder() {
  const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  const QFileInfo folder(documents);
  return folder.isDir() && folder.isWritable() ? documents : QDir::homePath();
}

QString FreePath(const QString& folder, const QString& name) {
  const QFileInfo parts(name);
  QString path = QDir(folder).filePath(name);
  for (int number = 2; QFileInfo::exists(path); ++number) {
    path = QDir(folder).filePath(
        QString("%1 (%2).%3").arg(parts.completeBaseName()).arg(number).arg(parts.suffix()));
  }
  return path;
}

}  // namespace sentrel
