#pragma once

#include <functional>
#include <string>

#include "desktop/export/export_session.h"
#include "desktop/export/opened_files.h"
#include "desktop/export/save_as_dialog.h"
#include "documents/progress.h"

namespace sentrel {

/// Makes the bytes of a file.
using FileWriter = std::function<std::string(Progress& progress)>;

/// Writes an export to a file, whole or not at all. The file becomes the target of the session's
/// settings. Used on the event loop; all members throw Failure and Cancelled.
class FileOutput {
 public:
  /// Both must outlive the output.
  FileOutput(ExportSession& session, OpenedFiles& opened) : session_(session), opened_(opened) {}

  /// Asks for the file, unless the settings skip that. False if the user cancels.
  bool Save(const FileKind& kind, const FileWriter& writer);
  /// Writes a file that is removed when Sentrel ends, and opens it in the desktop's program for it.
  /// It is read-only, so that nobody's changes are lost with it.
  void OpenDirectly(const FileKind& kind, const FileWriter& writer);

 private:
  QString SuggestedFile() const;
  std::string Bytes(const FileWriter& writer) const;
  void Write(const QString& filename, const std::string& bytes);

  ExportSession& session_;
  OpenedFiles& opened_;
};

}  // namespace sentrel
