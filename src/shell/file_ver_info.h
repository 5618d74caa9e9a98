#pragma once

#include <cstdint>
#include <string>

#include "platform/main_window.h"
#include "platform/version_reader.h"

namespace sentrel {

constexpr std::int16_t HiWord(std::uint32_t word) {
  return static_cast<std::int16_t>(word >> 16);
}
constexpr std::int16_t LoWord(std::uint32_t word) {
  return static_cast<std::int16_t>(word & 0xFFFF);
}

/// The version numbers in a program's file. All are -1 until a version has been read.
class FileVerInfo {
 public:
  FileVerInfo(const Application& application, const VersionReader& reader)
      : application_(application), reader_(reader) {}

  /// Reads the file of the running program.
  void GetExecutableInfo();
  /// A file without a version puts all numbers back to -1.
  void GetInfo(const std::string& file);

  std::int16_t ProductVersionBuild() const { return product_.build; }
  std::int16_t ProductVersionPrivate() const { return product_.privatePart; }
  std::int16_t ProductVersionMinor() const { return product_.minorPart; }
  std::int16_t ProductVersionMajor() const { return product_.majorPart; }
  std::int16_t FileVersionBuild() const { return file_.build; }
  std::int16_t FileVersionPrivate() const { return file_.privatePart; }
  std::int16_t FileVersionMinor() const { return file_.minorPart; }
  std::int16_t FileVersionMajor() const { return file_.majorPart; }

 private:
  struct Version {
    std::int16_t majorPart = -1;
    std::int16_t minorPart = -1;
    std::int16_t privatePart = -1;
    std::int16_t build = -1;
  };
  static Version VersionOf(std::uint32_t upper, std::uint32_t lower) {
    return {HiWord(upper), LoWord(upper), HiWord(lower), LoWord(lower)};
  }
  void ClearVersionFields() { file_ = product_ = Version(); }

  const Application& application_;
  const VersionReader& reader_;
  Version file_;
  Version product_;
};

/// The file of the running program.
std::string ExecutableFile(const Application& application);

}  // namespace sentrel
