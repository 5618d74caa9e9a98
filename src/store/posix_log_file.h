#pragma once

#include <string>
#include <string_view>

#include "platform/log_file.h"

namespace sentrel {

class PosixLogFile : public LogFile {
 public:
  void Append(const std::string& path, std::string_view entry) override;
  std::string WholePath(const std::string& name) const override;
  std::string Obstacle(const std::string& path) const override;

 private:
  /// The path and the error number of the last entry, where that was not written; else no error.
  std::string failedPath_;
  int lastError_ = 0;
};

}  // namespace sentrel
