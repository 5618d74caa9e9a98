#include "surroundings.h"

#include <cstdlib>
#include <filesystem>
#include <iostream>

#include "common/failure.h"
#include "mib/image_cache.h"
#include "mib/module_folders.h"

namespace sentrel::app {
namespace {

std::string Variable(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? "" : value;
}

/// The user's folder for Sentrel of one kind: that of the variable, or else below the home folder.
std::string UserFolder(const char* variable, const char* belowHome) {
  const std::string home = Variable("HOME");
  std::string folder = Variable(variable);
  if (folder.empty() && !home.empty()) folder = home + belowHome;
  return folder.empty() ? folder : folder + "/sentrel";
}

std::string ProgramFolder() {
  std::error_code error;
  return std::filesystem::read_symlink("/proc/self/exe", error).parent_path().string();
}

std::shared_ptr<const mib::Database> Database(const std::string& cacheName,
                                              std::vector<mib::Folder> folders,
                                              mib::DamageCheck check) {
  const std::string cache = UserFolder("XDG_CACHE_HOME", "/.cache") + "/" + cacheName;
  return mib::ImageCache(cache, std::move(folders), BuiltInDatabase(check), check).Get({});
}

}  // namespace

std::shared_ptr<const mib::Database> ProgramDatabase(mib::DamageCheck check) {
  return Database(
      mib::kUserImageName,
      mib::StandardFolders(ProgramFolder(), UserFolder("XDG_DATA_HOME", "/.local/share"),
                           Variable("HOME")),
      check);
}

std::shared_ptr<const mib::Database> DatabaseWith(const std::vector<std::string>& folders,
                                                  mib::DamageCheck check) {
  return Database("lookup-mibs.image", FoldersOf(folders), check);
}

std::string BuiltInPath() {
  return ProgramFolder() + "/" + mib::kBuiltInImageName;
}

std::shared_ptr<const mib::Database> BuiltInDatabase(mib::DamageCheck check) {
  try {
    return std::make_shared<mib::Database>(mib::Image::Open(BuiltInPath(), check));
  } catch (const Failure& failure) {
    std::cerr << "sentrel-mib: no built-in modules: " << failure.what() << "\n";
    return std::make_shared<mib::Database>();
  }
}

std::vector<mib::Folder> FoldersOf(const std::vector<std::string>& paths) {
  std::vector<mib::Folder> folders;
  folders.reserve(paths.size());
  for (const std::string& path : paths) folders.push_back({path, true});
  return folders;
}

}  // namespace sentrel::app
