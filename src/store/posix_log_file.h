#pragma once

#include "platform/log_file.h"

namespace sentrel {

class PosixLogFile : public LogFile {
 public:
  void Append(const std::string& path, std::string_view entry) override;
  std::string WholePath(const std::string& name) const override;
  std::string Obstacle(const std::string& path) const override;
};

}  // namespace sentrel
