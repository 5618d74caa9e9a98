#pragma once

#include <gmock/gmock.h>

#include "console/main_form.h"
#include "console/table_commands.h"
#include "fakes/fake_console.h"
#include "fakes/fake_registry.h"
#include "fakes/fake_tools.h"

namespace sentrel {

/// The main window and its parts, on fake services that share one log.
struct WindowTest : testing::Test {
  WindowTest() {
    window.SetEvents(form);
    tools.SetView(&view);
  }

  CallLog log;
  FakeMainWindow window{log};
  FakeSNMP snmp{log};
  FakeMessageBox messageBox{log};
  FakeApplication application;
  FakeFileSystem files;
  FakeClipboard clipboard;
  FakeToolBarsView view{log};
  FakeRegistry registry;
  Settings settings{registry};
  Table table;
  ToolBars tools;
  StatusBar statusBar;
  PauseAndRaw pauseAndRaw{settings, table, tools, statusBar};
  ToolbarLayout layout{application, files, tools};
  TableCommands tableCommands{table, clipboard, tools};
  MainForm form{window, table, snmp, messageBox, pauseAndRaw, layout};
};

}  // namespace sentrel
