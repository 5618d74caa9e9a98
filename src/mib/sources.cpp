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

/// The names in a folder, sorted, without those that begin with a dot.
class Listing {
 public:
  explicit Listing(DIR* folder) {
    std::vector<size_t> begins;
    while (const dirent* entry = readdir(folder)) {
      if (entry->d_name[0] == '.') continue;
      begins.push_back(text_.size());
      text_.append(entry->d_name).push_back('\0');
    }
    names_.reserve(begins.size());
    for (const size_t begin : begins) names_.emplace_back(text_.data() + begin);
    std::sort(names_.begin(), names_.end());
  }

  /// Each has a zero behind it.
  const std::vector<std::string_view>& Names() const { return names_; }

 private:
  std::string text_;
  std::vector<std::string_view> names_;
};

class Walk {
 public:
  void Add(const Folder& folder) {
    Enter(folder.path, AT_FDCWD, folder.path.c_str(), folder.recursive, 0);
  }
  Sources TakeResult() { return std::move(sources_); }

 private:
  void Enter(const std::string& path, int parent, const char* name, bool recursive, int depth);
  void Visit(const std::string& path, int folder, const char* name, bool recursive, int depth);
  void Stamp(const struct stat& status);

  void Report(const std::string& path, std::string text) {
    sources_.messages.push_back({path, 0, std::move(text)});
    sources_.fingerprint = Hash(path, sources_.fingerprint);
  }

  Sources sources_;
  std::set<std::pair<dev_t, ino_t>> visited_;
};

void Walk::Enter(const std::string& path, int parent, const char* name, bool recursive, int depth) {
  const int folder = openat(parent, name, O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK);
  struct stat status {};
  DIR* listing = folder >= 0 && fstat(folder, &status) == 0 ? fdopendir(folder) : nullptr;
  if (listing == nullptr) {
    Report(path, std::generic_category().message(errno));
    if (folder >= 0) close(folder);
    return;
  }
  if (visited_.emplace(status.st_dev, status.st_ino).second) {
    sources_.fingerprint = Hash(path, sources_.fingerprint);
    const Listing children(listing);
    std::string childPath = path + "/";
    for (const std::string_view child : children.Names()) {
      childPath.resize(path.size() + 1);
      childPath += child;
      Visit(childPath, folder, child.data(), recursive, depth);
    }
  }
  closedir(listing);
}

void Walk::Visit(const std::string& path, int folder, const char* name, bool recursive, int depth) {
  struct stat status {};
  if (fstatat(folder, name, &status, 0) != 0) return;
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
  sources_.fingerprint = Hash(name, sources_.fingerprint);
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
