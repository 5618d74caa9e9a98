#pragma once

#include <cstdint>
#include <filesystem>

#include "console/main_form.h"
#include "console/oid_lookup.h"
#include "console/pause_and_raw.h"
#include "console/saved_trap.h"
#include "console/table_commands.h"
#include "console/tool_dispatch.h"
#include "console/toolbar_layout.h"
#include "console/trap_gate.h"
#include "console/trap_log.h"
#include "console/trap_rows.h"
#include "controls/status_bar.h"
#include "controls/table.h"
#include "controls/tool_bars.h"
#include "decoding/decoder.h"
#include "desktop/details/details_pane.h"
#include "desktop/event_loop.h"
#include "desktop/export/document_exporter.h"
#include "desktop/filter/filter_bar.h"
#include "desktop/forms/file_chooser.h"
#include "desktop/forms/toolkit_dialogs.h"
#include "desktop/help/about_window.h"
#include "desktop/help/help_browser.h"
#include "desktop/help/help_key.h"
#include "desktop/help/tip_window.h"
#include "desktop/reception/reception_window.h"
#include "desktop/services/desktop_application.h"
#include "desktop/services/desktop_clipboard.h"
#include "desktop/services/desktop_files.h"
#include "desktop/services/desktop_message_box.h"
#include "desktop/services/desktop_timer.h"
#include "desktop/services/installed_printers.h"
#include "desktop/services/system_clock.h"
#include "desktop/services/system_locale.h"
#include "desktop/services/wait_cursor.h"
#include "desktop/window/trap_window.h"
#include "documents/trap_document.h"
#include "export/stored_export_memory.h"
#include "export/trap_export.h"
#include "mib/library.h"
#include "network/system_network.h"
#include "program_file/elf_version_reader.h"
#include "reception/self_check.h"
#include "reception/watch.h"
#include "sending/test_trap.h"
#include "settings/settings.h"
#include "shell/about_box.h"
#include "shell/help_benchwell.h"
#include "shell/tip_of_the_day.h"
#include "snmp/net_snmp_listener.h"
#include "store/posix_log_file.h"
#include "store/sqlite_registry.h"
#include "store/store_paths.h"

namespace sentrel {

/// What differs between the program and a test of it.
struct ProgramOptions {
  /// UDP port to listen on; 0 takes any free one.
  std::uint16_t port = 162;
  /// UDP port to send traps to.
  std::uint16_t sendPort = 162;
  /// Where what outlives a run is kept.
  std::filesystem::path machineFolder = MachineStateFolder();
  std::filesystem::path userFolder = UserStateFolder();
};

/// The whole program, put together. Needs a QApplication, and belongs to its thread. Members are
/// listed in the order in which they are made; each knows only those above it.
class Program {
 public:
  explicit Program(const ProgramOptions& options);

  /// Begins to listen and shows the window. Returns false where traps cannot be received; the user
  /// has been told by then.
  bool Start();

  TrapWindow& Window() { return window_; }
  const Table& Traps() const { return table_; }
  const NetSnmpListener& Listener() const { return listener_; }
  Settings& Options() { return settings_; }

 private:
  bool AdoptMibs();
  void ShowSendForm(const TrapObject& trap);
  void ShowReception();
  /// Opens the settings where a person can let the datagram in.
  void ShowCure(const WatchedDatagram& datagram);
  void AddViewCommands();
  /// What the tools run beyond the main window's own commands.
  Commands OtherCommands();

  ToolkitDialogs toolkitDialogs_;
  DesktopApplication application_;
  SystemClock clock_;
  SystemLocale locale_;
  SqliteRegistry registry_;
  Settings settings_;
  Wakeup newMibs_;
  mib::Library mibs_;
  Decoder decoder_;
  OidLookup lookup_;
  PosixLogFile logFile_;
  TrapLog log_;
  Table table_;
  ToolBars toolBars_;
  StatusBar statusBar_;
  TrapWindow window_;
  DesktopMessageBox messageBox_;
  FileChooser fileDialog_;
  DesktopClipboard clipboard_;
  DesktopFiles files_;
  InstalledPrinters printers_;
  WaitCursor mousePointer_;
  StoredExportMemory exportMemory_;
  DocumentExporterFactory exportEngines_;
  TrapExport trapExport_;
  DesktopTimer resetTimer_;
  TrapRows rows_;
  TableFilter filter_;
  /// The window's, in which it is shown.
  FilterBar* filterBar_;
  TrapGate gate_;
  Wakeup newTraps_;
  NetSnmpListener listener_;
  Watch watch_;
  SystemNetwork network_;
  SelfCheck check_;
  ReceptionWindow reception_;
  DetailsPane details_;
  PauseAndRaw pauseAndRaw_;
  ToolbarLayout layout_;
  TableCommands tableCommands_;
  TrapDocumentWriter trapWriter_;
  SavedTrapCommand savedTrap_;
  TestTrap testTrap_;
  MainForm mainForm_;
  HelpBrowserFactory browsers_;
  Help_Benchwell help_;
  HelpKey helpKey_;
  ElfVersionReader versions_;
  AboutWindowFactory aboutDialogs_;
  AboutBox about_;
  TipWindowFactory tipDialogs_;
  TipOfTheDay tips_;
  ToolDispatch dispatch_;
  EndRequest endRequest_;
  ForcedEnd forcedEnd_;
};

}  // namespace sentrel
