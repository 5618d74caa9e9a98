#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "common/dates.h"

namespace sentrel {

/// The four words of a version record that carry versions: each holds two numbers of 16 bits, the
/// more significant one in the upper half.
struct VersionRecord {
  std::uint32_t dwFileVersionMS = 0;
  std::uint32_t dwFileVersionLS = 0;
  std::uint32_t dwProductVersionMS = 0;
  std::uint32_t dwProductVersionLS = 0;
};

/// What the file of a program tells about the program. Called on the event loop.
class VersionReader {
 public:
  virtual ~VersionReader() = default;
  /// Nothing for a file without a version record, a damaged one, or one that cannot be read. Never
  /// throws for any content.
  virtual std::optional<VersionRecord> ReadVersion(const std::string& file) const = 0;
  /// The legal notice in the file, one line; empty where there is none.
  virtual std::string ReadLegalNotice(const std::string& file) const = 0;
  /// When the file was last written. Throws Failure.
  virtual LocalTime WrittenAt(const std::string& file) const = 0;
};

}  // namespace sentrel
