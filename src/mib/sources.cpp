#include "mib/sources.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <set>
#include <system_error>
#include <utility>

#include "mib/hash.h"

namespace sentrel::mib {
namespace {

constexpr size_t kMostFiles = 50'000;
constexpr int kDeepestFolder = 16;

class Walk {
 public:
  void Add(const Folder& folder) { Enter(folder.path, AT_FDCWD, folder.path, folder.recursive, 0); }
  Sources TakeResult() { return std::move(sources_); }

 private:
  void Enter(const std::string& path, int parent, const std::string& name, bool recursive,
             int depth);
  void Visit(const std::string& path, int folder, const std::string& name, bool recursive,
             int depth);
  void Stamp(const struct stat& status);

  void Report(const std::string& path, std::string text) {
    sources_.messages.push_back({path, 0, std::move(text)});
    sources_.fingerprint = Hash(path, sources_.fingerprint);
  }

  Sources sources_;
  std::set<std::pair<dev_t, ino_t>> visited_;
};

void Walk::Enter(const std::string& path, int parent, const std::string& name, bool recursive,
                 int depth) {
  const int folder = openat(parent, name.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK);
  struct stat status {};
  DIR* listing = folder >= 0 && fstat(folder, &status) == 0 ? fdopendir(folder) : nullptr;
  if (listing == nullptr) {
    Report(path, std::generic_category().message(errno));
    if (folder >= 0) close(folder);
    return;
  }
  if (visited_.emplace(status.st_dev, status.st_ino).second) {
    std::vector<std::string> names;
    while (const dirent* entry = readdir(listing)) {
      if (entry->d_name[0] != '.') names.emplace_back(entry->d_name);
    }
    std::sort(names.begin(), names.end());
    std::string childPath = path + "/";
    for (const std::string& child : names) {
      childPath.resize(path.size() + 1);
      childPath += child;
      Visit(childPath, folder, child, recursive, depth);
    }
  }
  closedir(listing);
}

void Walk::Visit(const std::string& path, int folder, const std::string& name, bool recursive,
                 int depth) {
  struct stat status {};
  if (fstatat(folder, name.c_str(), &status, 0) != 0) return;
  if (S_ISDIR(status.st_mode)) {
    if (!recursive) return;
    if (depth == kDeepestFolder) return Report(path, "folders lie too deep within each other");
    return Enter(path, folder, name, recursive, depth + 1);
  }
  if (!S_ISREG(status.st_mode)) return;
  if (sources_.files.size() == kMostFiles) return;
  sources_.files.push_back(path);
  if (sources_.files.size() == kMostFiles) {
    Report(path, "too many files: those behind this one are left out");
  }
  sources_.fingerprint = Hash(path, sources_.fingerprint);
  Stamp(status);
}

/// The time of change tells of edits that keep size and time of modification, and of permissions.
void Walk::Stamp(const struct stat& status) {
  const std::int64_t parts[] = {static_cast<std::int64_t>(status.st_ino),
                                status.st_size,
                                status.st_mtim.tv_sec,
                                status.st_mtim.tv_nsec,
                                status.st_ctim.tv_sec,
                                status.st_ctim.tv_nsec};
  sources_.fingerprint =
      Hash({reinterpret_cast<const char*>(parts), sizeof parts}, sources_.fingerprint);
}

}  // namespace

Sources FindSources(const std::vector<Folder>& folders) {
  Walk walk;
  for (const Folder& folder : folders) walk.Add(folder);
  return walk.TakeResult();
}

}  // namespace sentrel::mib
