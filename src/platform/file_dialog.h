#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace sentrel {

/// A question for the name of a file to write. All texts are UTF-8.
struct SaveFileRequest {
  std::string title;
  /// Pairs of a caption and a pattern: "SNMP Trap (*.Trap)|*.Trap|All Files (*.*)|*.*".
  std::string filter;
  /// What the dialog offers at first; may be empty, and may have a folder in front.
  std::string fileName;
  /// Ask before a name is taken that a file already has.
  bool promptBeforeOverwrite = false;
  /// Do not take a name under which this many bytes cannot be written, because the file is
  /// write-protected or a folder, its folder is missing or closed to this user, or the disk has too
  /// little room: tell the user why, and ask again. Nothing where any name will do.
  std::optional<std::uint64_t> roomFor = std::nullopt;
};

/// The system's file dialog.
class FileDialog {
 public:
  virtual ~FileDialog() = default;
  /// Returns the chosen path, of a file that need not exist, or nothing if the user cancels. Writes
  /// no file. Called on the event loop; events go on being handled meanwhile.
  virtual std::optional<std::string> ChooseSaveFile(const SaveFileRequest& request) = 0;
};

}  // namespace sentrel
