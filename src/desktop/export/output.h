#pragma once

#include <QString>
#include <QWidget>
#include <functional>
#include <optional>
#include <string>

#include "desktop/export/paper_pages.h"
#include "desktop/export/print.h"
#include "platform/clock.h"
#include "platform/export_memory.h"
#include "platform/export_settings.h"
#include "platform/message_box.h"

namespace sentrel {

/// What all engines share; all of it must outlive them.
struct ExportDesk {
  /// The window above which dialogs stand.
  QWidget& owner;
  const Clock& clock;
  const Locale& locale;
  MessageBox& messageBox;
  ExportMemory& memory;
};

/// A kind of file, for people, and its extension without a dot.
struct FileKind {
  QString caption;
  QString extension;
};

/// Makes the bytes of a file.
using FileWriter = std::function<std::string(Progress& progress)>;

/// Brings a finished object out of the program. All members return whether that was done, and throw
/// Failure and Cancelled. A file that was written becomes the target of the settings.
class ExportOutput {
 public:
  /// Both must outlive the output.
  ExportOutput(const ExportDesk& desk, ExportSettings& settings)
      : desk_(desk), settings_(settings) {}

  /// The methods that every kind of object has, "PRINTER", "PREVIEW" and "PDF", in any case;
  /// nothing for another method.
  std::optional<bool> Paper(Pages& pages, const std::string& method);
  /// Asks for the file unless the settings skip that.
  bool Save(const FileKind& kind, const FileWriter& writer);
  /// Writes to a folder of its own, and opens the file in the program that the desktop has for it.
  bool OpenDirectly(const FileKind& kind, const FileWriter& writer);

 private:
  bool Print(Pages& pages);
  bool SavePdf(Pages& pages);
  bool OfferPdf(Pages& pages);
  PrintJob Job() const;
  std::optional<QString> ChooseFile(const FileKind& kind) const;
  void Write(const QString& filename, const FileWriter& writer);

  const ExportDesk& desk_;
  ExportSettings& settings_;
};

}  // namespace sentrel
