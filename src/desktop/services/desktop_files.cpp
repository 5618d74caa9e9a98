#include "desktop/services/desktop_files.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>

#include "common/failure.h"

namespace sentrel {

bool DesktopFiles::Exists(const std::string& path) const {
  return QFileInfo::exists(QString::fromStdString(path));
}

LocalTime DesktopFiles::CreatedAt(const std::string& path) const {
  const QFileInfo file(QString::fromStdString(path));
  const QDateTime born = file.birthTime();
  const QDateTime created = born.isValid() ? born : file.lastModified();
  if (!created.isValid()) throw Failure("There is no date of the file " + path + ".");
  const QDate date = created.date();
  const QTime time = created.time();
  return {date.year(), date.month(), date.day(), time.hour(), time.minute(), time.second()};
}

void DesktopFiles::Delete(const std::string& path) {
  if (IsReadOnly(path) || !QFile::remove(QString::fromStdString(path))) {
    throw Failure("The file " + path + " cannot be deleted.");
  }
}

bool IsReadOnly(const std::string& path) {
  constexpr auto anyone = QFile::WriteOwner | QFile::WriteGroup | QFile::WriteOther;
  const QFileInfo file(QString::fromStdString(path));
  return file.exists() && (!(file.permissions() & anyone) || !file.isWritable());
}

}  // namespace sentrel
