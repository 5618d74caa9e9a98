#pragma once

#include <cstdint>
#include <string>

#include "console/main_form.h"
#include "console/row_builder.h"
#include "console/table_commands.h"
#include "console/toggles.h"
#include "console/tool_dispatch.h"
#include "console/toolbar_layout.h"
#include "console/trap_gate.h"
#include "controls/status_bar.h"
#include "controls/table.h"
#include "controls/tool_bars.h"
#include "desktop/event_loop.h"
#include "desktop/qt_main_window.h"
#include "desktop/qt_services.h"
#include "settings/settings.h"
#include "snmp/net_snmp_listener.h"

namespace sentrel {

/// What differs between the program and a test of it.
struct ProgramOptions {
  /// UDP port to listen on; 0 takes any free one.
  std::uint16_t port = 162;
  /// Where what outlives a run is kept for this user, or for the machine when run as root. Empty
  /// for the places that the system has for it.
  std::string stateFolder;
};

/// The whole program, put together. Needs a QApplication. Members stand in the order in which they
/// are made; each knows only those above it.
class Program {
 public:
  explicit Program(const ProgramOptions& options);

  /// Runs until the window is closed, traps cannot be received, or the system asks the process to
  /// end. Returns the exit code of the process.
  int Run();

  QtMainWindow& Window() { return window_; }
  const Table& Traps() const { return table_; }
  const NetSnmpListener& Listener() const { return listener_; }

 private:
  /// What the tools run beyond the main window's own commands.
  Commands OtherCommands();

  QtApplication application_;
  SystemClock clock_;
  SystemLocale locale_;
  Settings settings_;
  Table table_;
  ToolBars toolBars_;
  StatusBar statusBar_;
  QtMainWindow window_;
  QtMessageBox messageBox_;
  QtClipboard clipboard_;
  QtFileSystem files_;
  QtTimer resetTimer_;
  RowBuilder rows_;
  TrapGate gate_;
  Wakeup wakeup_;
  NetSnmpListener listener_;
  Toggles toggles_;
  ToolbarLayout layout_;
  TableCommands tableCommands_;
  MainForm mainForm_;
  ToolDispatch dispatch_;
  EndRequest endRequest_;
};

}  // namespace sentrel
