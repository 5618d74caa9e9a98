#include "store/standing.h"

#include <fmt/format.h>
#include <grp.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string_view>

#include "common/failure.h"

namespace sentrel {
namespace fs = std::filesystem;
namespace {

using Status = struct stat;

[[noreturn]] void Fail(const fs::path& path, const char* reason) {
  throw Failure(fmt::format("{}: {}", path.native(), reason));
}

/// False where there is nothing. Tells of the link itself where the path is one.
bool Look(const fs::path& path, Status& status) {
  if (lstat(path.c_str(), &status) == 0) return true;
  if (errno != ENOENT && errno != ENOTDIR) Fail(path, "cannot be looked at");
  return false;
}

bool IsOwnerTrusted(const Status& status) {
  return status.st_uid == 0 || status.st_uid == geteuid();
}

/// Many systems give each user a group of the user's own name with nobody else in it.
bool IsOwnersPrivateGroup(const Status& status) {
  const passwd* owner = getpwuid(status.st_uid);
  const group* all = getgrgid(status.st_gid);
  if (!owner || !all || owner->pw_gid != status.st_gid) return false;
  const std::string_view name = owner->pw_name;
  if (name != all->gr_name) return false;
  for (char** member = all->gr_mem; *member; ++member)
    if (name != *member) return false;
  return true;
}

bool IsSafe(const Status& status) {
  return IsOwnerTrusted(status) && (status.st_mode & S_IWOTH) == 0 &&
         ((status.st_mode & S_IWGRP) == 0 || IsOwnersPrivateGroup(status));
}

/// Whether nobody else can put a file into the folder or take one out. A missing folder is safe.
bool IsFolderSafe(const fs::path& folder) {
  Status status{};
  return stat(folder.c_str(), &status) != 0 || IsSafe(status);
}

bool IsFileSafe(const fs::path& file) {
  Status status{};
  if (!Look(file, status)) return true;
  if (!S_ISREG(status.st_mode)) Fail(file, "is no file");
  return IsSafe(status);
}

/// A journal of another's making would be written into the file.
bool AreCompanionsSafe(const fs::path& file) {
  for (const char* ending : {"-journal", "-wal", "-shm"})
    if (!IsFileSafe(file.native() + ending)) return false;
  return true;
}

/// In whose hands the path is, as far as it can be followed.
Standing EndOfPath(const fs::path& file) {
  fs::path place;
  Status status{};
  bool isForeign = false;
  for (const fs::path& part : file) {
    place /= part;
    // What another's folder hides is that other's.
    if (isForeign && lstat(place.c_str(), &status) != 0) return Standing::Foreign;
    if (!Look(place, status)) return Standing::Absent;
    isForeign = !IsOwnerTrusted(status);
    // On the way to root's options nobody else may turn aside.
    if (isForeign && geteuid() == 0) return Standing::Foreign;
  }
  return isForeign ? Standing::Foreign : Standing::Trusted;
}

}  // namespace

Standing StandingOf(const fs::path& file) {
  const Standing end = EndOfPath(file);
  if (end == Standing::Foreign || !IsFolderSafe(file.parent_path())) return Standing::Foreign;
  if (end == Standing::Absent) return Standing::Absent;
  const fs::path real = fs::canonical(file);
  const bool isSafe =
      IsFolderSafe(real.parent_path()) && IsFileSafe(real) && AreCompanionsSafe(real);
  return isSafe ? Standing::Trusted : Standing::Foreign;
}

}  // namespace sentrel
