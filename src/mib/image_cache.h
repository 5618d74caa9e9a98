#pragma once

#include <atomic>
#include <memory>
#include <string>
#include <vector>

#include "mib/collection.h"
#include "mib/database.h"
#include "mib/sources.h"

namespace sentrel::mib {

/// A base with the image of the modules in a list of folders over it, which is kept in a file. The
/// file is used only if it was made from exactly these folders, files and base; any other is
/// replaced.
class ImageCache {
 public:
  /// `check` is for images out of the file.
  ImageCache(std::string file, std::vector<Folder> folders, std::shared_ptr<const Database> base,
             DamageCheck check = DamageCheck::AtOnce);

  /// The database for the files as they are now: their image from the file if it fits, else
  /// compiled. The base itself when there are no files; null when stopped. A file that cannot be
  /// written does no harm. What a damaged base tells is not used to compile. Throws only for want
  /// of memory.
  std::shared_ptr<const Database> Get(const ReadOptions& options);

  /// Whether Get would yield something else than it did the last time.
  bool IsOutdated() const;

 private:
  std::shared_ptr<std::string> Compile(const ReadOptions& options);
  std::shared_ptr<const Database> OverBase(std::shared_ptr<const Image> image) const;
  std::shared_ptr<const Image> FromFile(std::uint64_t fingerprint) const;
  std::uint64_t FingerprintOf(std::uint64_t sources) const;

  std::string file_;
  std::vector<Folder> folders_;
  std::shared_ptr<const Database> base_;
  DamageCheck check_;
  std::uint64_t current_ = 0;
};

}  // namespace sentrel::mib
