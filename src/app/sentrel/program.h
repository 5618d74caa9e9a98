#pragma once

#include <cstdint>
#include <filesystem>

#include "console/main_form.h"
#include "console/row_builder.h"
#include "console/trap_gate.h"
#include "controls/table.h"
#include "decoding/decoder.h"
#include "desktop/event_loop.h"
#include "desktop/qt_main_window.h"
#include "desktop/qt_services.h"
#include "settings/settings.h"
#include "snmp/net_snmp_listener.h"
#include "store/posix_log_file.h"
#include "store/sqlite_registry.h"

namespace sentrel {

/// What differs between the program and a test of it.
struct ProgramOptions {
  /// UDP port to listen on; 0 takes any free one.
  std::uint16_t port = 162;
  /// Where what outlives a run is kept: by the machine, and by the user.
  std::filesystem::path machineFolder = MachineStateFolder();
  std::filesystem::path userFolder = UserStateFolder();
};

/// The whole program, put together. Needs a QApplication. Members stand in the order in which they
/// are made; each knows only those above it.
class Program {
 public:
  explicit Program(const ProgramOptions& options);

  /// Begins to listen and shows the window. Returns false where traps cannot be received; the user
  /// has been told by then.
  bool Start();

  QtMainWindow& Window() { return window_; }
  const Table& Traps() const { return table_; }
  const NetSnmpListener& Listener() const { return listener_; }

 private:
  QtApplication application_;
  SystemClock clock_;
  SystemLocale locale_;
  SqliteRegistry registry_;
  Settings settings_;
  Table table_;
  QtMainWindow window_;
  QtMessageBox messageBox_;
  QtTimer resetTimer_;
  RowBuilder rows_;
  TrapGate gate_;
  Wakeup wakeup_;
  NetSnmpListener listener_;
  MainForm mainForm_;
  EndRequest endRequest_;
};

}  // namespace sentrel
