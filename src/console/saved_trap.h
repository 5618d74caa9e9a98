#pragma once

#include "controls/table.h"
#include "platform/file_dialog.h"
#include "platform/snmp.h"
#include "platform/trap_writer.h"

namespace sentrel {

/// The command that keeps one trap of the table as a file. The references must outlive it.
class SavedTrapCommand {
 public:
  SavedTrapCommand(const Table& table, FileDialog& fileDialog, SNMP& snmp, TrapWriter& writer)
      : table_(table), fileDialog_(fileDialog), snmp_(snmp), writer_(writer) {}

  /// Asks for a file name and saves the trap on which the selection began, undecoded. Without one,
  /// and at any failure, it ends without a word.
  void SaveSelectedTrap();

 private:
  void Save(const std::string& record);

  const Table& table_;
  FileDialog& fileDialog_;
  SNMP& snmp_;
  TrapWriter& writer_;
};

}  // namespace sentrel
