#pragma once

#include <string>

#include "platform/file_system.h"

namespace sentrel {

/// The files of the system. Keeps nothing, so any thread may ask.
class DesktopFiles : public FileSystem {
 public:
  bool Exists(const std::string& path) const override;
  LocalTime CreatedAt(const std::string& path) const override;
  void Delete(const std::string& path) override;
};

/// Whether nobody may write to the file, or at least not this user. Root is kept out too.
bool IsReadOnly(const std::string& path);

}  // namespace sentrel
