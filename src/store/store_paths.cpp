#include "store/store_paths.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>

namespace sentrel {
namespace fs = std::filesystem;
namespace {

constexpr const char* kOwnPart = "sentrel";

/// Empty unless the variable holds an absolute path.
fs::path FolderIn(const char* variable) {
  const char* value = std::getenv(variable);
  fs::path folder = value ? value : "";
  return folder.is_absolute() ? folder : fs::path();
}

fs::path HomeFolder() {
  if (fs::path home = FolderIn("HOME"); !home.empty()) return home;
  const passwd* user = getpwuid(getuid());
  return user ? user->pw_dir : "/nonexistent";
}

}  // namespace

fs::path MachineStateFolder() {
  return fs::path("/var/lib") / kOwnPart;
}

fs::path UserStateFolder() {
  const fs::path state = FolderIn("XDG_STATE_HOME");
  return (state.empty() ? HomeFolder() / ".local/state" : state) / kOwnPart;
}

}  // namespace sentrel
