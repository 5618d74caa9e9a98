#include "export/trap_export.h"

namespace sentrel {
namespace {

constexpr const char* kTitle = "SNMP Traps";
constexpr std::int32_t kPortrait = 1;

class Hourglass {
 public:
  explicit Hourglass(MousePointer& pointer) : pointer_(pointer) { pointer_.SetHourglass(true); }
  ~Hourglass() { pointer_.SetHourglass(false); }
  Hourglass(const Hourglass&) = delete;
  Hourglass& operator=(const Hourglass&) = delete;

 private:
  MousePointer& pointer_;
};

}  // namespace

TrapExport::TrapExport(const Table& table, MousePointer& mousePointer,
                       const ExportServices& services)
    : table_(table), mousePointer_(mousePointer), services_(services) {}

void TrapExport::ExportTraps(const std::string& method) {
  const Hourglass hourglass(mousePointer_);
  ExportEngine& engine = Shared();
  engine.SetTargetFilename(services_.application.ProgramFolder() + "/SNMPTraps");
  engine.SetOrientation(kPortrait);
  engine.SetTitle(kTitle);
  engine.ExportTable(table_, method);
}

void TrapExport::PrintTraps() {
  Print(false);
}

void TrapExport::PreviewTraps() {
  Print(true);
}

void TrapExport::Print(bool preview) {
  ExportEngine& engine = Shared();
  engine.SetTitle(kTitle);
  engine.SetOrientation(kPortrait);
  engine.PrintTable(table_, preview);
}

ExportEngine& TrapExport::Shared() {
  if (!engine_) engine_.emplace(services_);
  return *engine_;
}

}  // namespace sentrel
