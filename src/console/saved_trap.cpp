#include "console/saved_trap.h"

#include "common/failure.h"
#include "console/row_record.h"
#include "sending/trap_object.h"

namespace sentrel {
namespace {

/// A character of a record may take six in the file; a binding, which has names there, eight times
/// its shortest record.
constexpr std::uint64_t kMostGrowth = 8;

}  // namespace

void SavedTrapCommand::SaveSelectedTrap() {
  if (table_.Row() < 1) return;
  // A copy: the row may go while the dialog is open.
  const std::string record = table_.RowData(table_.Row());
  if (!record.empty()) Attempt([&] { Save(record); });
}

void SavedTrapCommand::Save(const std::string& record) {
  const auto fileName =
      fileDialog_.ChooseSaveFile({.title = "Save SNMP Trap ...",
                                  .filter = "SNMP Trap (*.Trap)|*.Trap|All Files (*.*)|*.*",
                                  .fileName = "",
                                  .promptBeforeOverwrite = true,
                                  .roomFor = record.size() * kMostGrowth});
  if (!fileName) return;
  TrapObject object;
  object.SetStationText1(snmp_.LocalText1());
  object.SetStationText2(snmp_.LocalText2());
  const Trap trap = ReadRowRecord(record);
  object.SetSourceIP(trap.SourceAddress);
  object.SetTrapCommunity(trap.Community);
  for (size_t i = 0; i < trap.OIDs.size(); ++i) {
    object.VarBinds().AddVarBind(trap.OIDs[i], trap.DataTypes[i], trap.Values[i]);
  }
  object.SaveToFile(*fileName, writer_);
}

}  // namespace sentrel
