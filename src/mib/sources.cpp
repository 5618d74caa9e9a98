#include "mib/sources.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <deque>
#include <set>
#include <system_error>
#include <utility>

#include "mib/hash.h"

namespace sentrel::mib {
namespace {

constexpr size_t kMostFiles = 50'000;
constexpr int kDeepestFolder = 16;

/// A folder that has been read. Names lie one behind the other, each with a zero behind it: most
/// callers only want to know whether something has changed, and need no paths.
struct Listing {
  std::string path;
  std::string names;
  /// Where in `names` those of the files begin, in the order of the file system.
  std::vector<size_t> files;
  /// The folders within this one, by name and by their place in the list of all folders.
  std::vector<std::pair<std::string, size_t>> folders;
};

class Walk {
 public:
  explicit Walk(const std::vector<Folder>& folders) {
    for (const Folder& folder : folders) {
      roots_.push_back(Enter(folder.path, AT_FDCWD, folder.path.c_str(), folder.recursive, 0));
    }
  }
  std::uint64_t Fingerprint() const { return sources_.fingerprint; }
  bool FoundFiles() const;
  Sources TakeResult();

 private:
  size_t Enter(const std::string& path, int parent, const char* name, bool recursive, int depth);
  void Read(size_t listing, DIR* folder, bool recursive, int depth);
  void Visit(Listing& listing, int folder, const char* name, bool recursive);
  void AppendFiles(const Listing& listing);
  void AppendFile(const std::string& path, std::string_view name);

  void Report(const std::string& path, std::string text) {
    sources_.messages.push_back({path, 0, std::move(text)});
    sources_.fingerprint = Hash(path, sources_.fingerprint);
  }

  Sources sources_;
  std::deque<Listing> listings_;
  std::vector<size_t> roots_;
  std::set<std::pair<dev_t, ino_t>> visited_;
};

/// Returns the folder's place in the list; that of an empty one if it cannot be read.
size_t Walk::Enter(const std::string& path, int parent, const char* name, bool recursive,
                   int depth) {
  const size_t listing = listings_.size();
  listings_.emplace_back().path = path;
  const int folder = openat(parent, name, O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK);
  struct stat status {};
  DIR* stream = folder >= 0 && fstat(folder, &status) == 0 ? fdopendir(folder) : nullptr;
  if (stream == nullptr) {
    Report(path, std::generic_category().message(errno));
    if (folder >= 0) close(folder);
    return listing;
  }
  if (visited_.emplace(status.st_dev, status.st_ino).second) {
    sources_.fingerprint = Hash(path, sources_.fingerprint);
    Read(listing, stream, recursive, depth);
  }
  closedir(stream);
  return listing;
}

void Walk::Read(size_t at, DIR* folder, bool recursive, int depth) {
  Listing& listing = listings_[at];
  while (const dirent* entry = readdir(folder)) {
    if (entry->d_name[0] != '.') Visit(listing, dirfd(folder), entry->d_name, recursive);
  }
  std::sort(listing.folders.begin(), listing.folders.end());
  for (auto& [name, place] : listing.folders) {
    const std::string path = listing.path + "/" + name;
    if (depth < kDeepestFolder) {
      place = Enter(path, dirfd(folder), name.c_str(), recursive, depth + 1);
    } else {
      place = listings_.size();
      listings_.emplace_back();
      Report(path, "folders lie too deep within each other");
    }
  }
}

/// What of a file tells that it is another one. The time of change tells of edits that keep size
/// and time of modification, and of permissions.
std::uint64_t StampOf(const char* name, const struct stat& status) {
  const std::int64_t parts[] = {static_cast<std::int64_t>(status.st_ino),
                                status.st_size,
                                status.st_mtim.tv_sec,
                                status.st_mtim.tv_nsec,
                                status.st_ctim.tv_sec,
                                status.st_ctim.tv_nsec};
  return Hash({reinterpret_cast<const char*>(parts), sizeof parts}, Hash(name));
}

void Walk::Visit(Listing& listing, int folder, const char* name, bool recursive) {
  struct stat status {};
  if (fstatat(folder, name, &status, 0) != 0) return;
  if (S_ISDIR(status.st_mode) && recursive) listing.folders.emplace_back(name, 0);
  if (!S_ISREG(status.st_mode)) return;
  // A sum, as the file system gives the names in any order. The folder's path is part of it: the
  // same file in another place is another source.
  sources_.fingerprint += Hash(listing.path, StampOf(name, status));
  listing.files.push_back(listing.names.size());
  listing.names.append(name).push_back('\0');
}

bool Walk::FoundFiles() const {
  return std::any_of(listings_.begin(), listings_.end(),
                     [](const Listing& listing) { return !listing.files.empty(); });
}

Sources Walk::TakeResult() {
  for (const size_t root : roots_) AppendFiles(listings_[root]);
  return std::move(sources_);
}

/// The files and what lies in the folders, in the order of their names.
void Walk::AppendFiles(const Listing& listing) {
  std::vector<std::string_view> names;
  names.reserve(listing.files.size());
  for (const size_t begin : listing.files) names.emplace_back(listing.names.data() + begin);
  std::sort(names.begin(), names.end());
  auto folder = listing.folders.begin();
  for (const std::string_view name : names) {
    for (; folder != listing.folders.end() && folder->first < name; ++folder) {
      AppendFiles(listings_[folder->second]);
    }
    AppendFile(listing.path, name);
  }
  for (; folder != listing.folders.end(); ++folder) AppendFiles(listings_[folder->second]);
}

void Walk::AppendFile(const std::string& path, std::string_view name) {
  auto& files = sources_.files;
  if (files.size() == kMostFiles) return;
  files.emplace_back(path).append("/").append(name);
  if (files.size() < kMostFiles) return;
  sources_.messages.push_back(
      {files.back(), 0, "too many files: those behind this one are left out"});
}

}  // namespace

Sources FindSources(const std::vector<Folder>& folders) {
  return Walk(folders).TakeResult();
}

SourcesMark MarkSources(const std::vector<Folder>& folders) {
  const Walk walk(folders);
  return {walk.FoundFiles(), walk.Fingerprint()};
}

}  // namespace sentrel::mib
