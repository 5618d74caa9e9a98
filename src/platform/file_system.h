#pragma once

#include <string>

#include "common/dates.h"

namespace sentrel {

/// What the logic asks of files that it does not open itself. Called on the event loop; throws
/// Failure.
class FileSystem {
 public:
  virtual ~FileSystem() = default;
  virtual bool Exists(const std::string& path) const = 0;
  /// When the file was created, or last changed where the system does not keep that.
  virtual LocalTime CreatedAt(const std::string& path) const = 0;
  /// Deletes the file. A read-only file is refused with a Failure.
  virtual void Delete(const std::string& path) = 0;
};

}  // namespace sentrel
