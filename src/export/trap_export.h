#pragma once

#include <optional>
#include <string>

#include "controls/table.h"
#include "export/export_engine.h"
#include "platform/mouse_pointer.h"

namespace sentrel {

/// The export and print commands of the main window. The first of them makes the facade, which is
/// then kept. Used on the event loop; nothing here throws.
class TrapExport {
 public:
  /// All of it must outlive the commands.
  TrapExport(const Table& table, MousePointer& mousePointer, const ExportServices& services);

  /// Exports the table as it is now, by a method of ExportEngine::ExportMethods. The mouse pointer
  /// is an hourglass meanwhile.
  void ExportTraps(const std::string& method);
  void PrintTraps();
  void PreviewTraps();

 private:
  ExportEngine& Shared();
  void Print(bool preview);

  const Table& table_;
  MousePointer& mousePointer_;
  ExportServices services_;
  std::optional<ExportEngine> engine_;
};

}  // namespace sentrel
