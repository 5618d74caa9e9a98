#pragma once

#include "platform/log_file.h"

namespace sentrel {

class PosixLogFile : public LogFile {
 public:
  void Append(const std::string& path, std::string_view entry) override;
};

}  // namespace sentrel
