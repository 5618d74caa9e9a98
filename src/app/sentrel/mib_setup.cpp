#include "app/mib_setup.h"

#include <QStandardPaths>

#include "mib/module_folders.h"

namespace sentrel {
namespace {

std::string UserFolder(QStandardPaths::StandardLocation kind) {
  return QStandardPaths::writableLocation(kind).toStdString();
}

}  // namespace

mib::LibrarySetup MibLibrarySetup(const Application& application) {
  const std::string program = application.ProgramFolder();
  const std::string data = UserFolder(QStandardPaths::GenericDataLocation) + "/sentrel";
  const std::string cache = UserFolder(QStandardPaths::GenericCacheLocation) + "/sentrel";
  return {.builtInImage = program + "/" + mib::kBuiltInImageName,
          .folders = mib::StandardFolders(program, data, UserFolder(QStandardPaths::HomeLocation)),
          .cacheFile = cache + "/" + mib::kUserImageName};
}

}  // namespace sentrel
