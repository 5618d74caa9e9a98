#pragma once

#include "controls/status_bar.h"
#include "controls/table.h"
#include "controls/tool_bars.h"
#include "settings/settings.h"

namespace sentrel {

/// The two switches of the main window, each an option and a check mark that agree, and what else
/// the window shows of the options. Used on the event loop only.
class PauseAndRaw {
 public:
  /// All of these must outlive the switches.
  PauseAndRaw(Settings& settings, Table& table, ToolBars& toolBars, StatusBar& statusBar);

  /// Takes effect with the next trap; rows already shown keep their text.
  void ToggleRaw();
  void TogglePause();
  /// Puts the check mark of Edit:Raw in line with the option.
  void UpdateRawTool();
  /// Has the empty table say what the options let through (EmptyTableText).
  void UpdateEmptyTable();
  /// True while UpdateRawTool runs: a tool event that comes then is no choice of the user.
  bool UpdatingTools() const { return updatingTools_; }

 private:
  Settings& settings_;
  Table& table_;
  ToolBars& toolBars_;
  StatusBar& statusBar_;
  bool updatingTools_ = false;
};

}  // namespace sentrel
