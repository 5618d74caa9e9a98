#pragma once

#include "platform/version_reader.h"

namespace sentrel {

/// Reads the version notes of program files.
class ElfVersionReader : public VersionReader {
 public:
  std::optional<VersionRecord> ReadVersion(const std::string& file) const override;
  std::string ReadLegalNotice(const std::string& file) const override;
  LocalTime WrittenAt(const std::string& file) const override;
};

}  // namespace sentrel
