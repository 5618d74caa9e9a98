#include "store/recovered_copy.h"

#include <cstdlib>
#include <string>

namespace sentrel {
namespace fs = std::filesystem;
namespace {

/// A folder for this user alone that goes with all that is in it.
class PrivateFolder {
 public:
  PrivateFolder() {
    std::string pattern = (fs::temp_directory_path() / "sentrel-XXXXXX").native();
    if (!mkdtemp(pattern.data())) throw Failure("No folder for temporary files can be made.");
    path_ = pattern;
  }
  ~PrivateFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
  }
  PrivateFolder(const PrivateFolder&) = delete;
  PrivateFolder& operator=(const PrivateFolder&) = delete;

  const fs::path& Path() const { return path_; }

 private:
  fs::path path_;
};

void CopyContents(const fs::path& from, const fs::path& to) {
  fs::copy_file(from, to);
  fs::permissions(to, fs::perms::owner_read | fs::perms::owner_write);
}

}  // namespace

std::unique_ptr<Database> OpenRecoveredCopy(const fs::path& file, const Patience& patience) {
  const PrivateFolder folder;
  const fs::path copy = folder.Path() / "copy";
  CopyContents(file.native() + "-journal", copy.native() + "-journal");
  CopyContents(file, copy);
  return std::make_unique<Database>(copy, patience);
}

}  // namespace sentrel
