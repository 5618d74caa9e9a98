#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "console/main_form.h"
#include "console/pause_and_raw.h"
#include "console/table_commands.h"
#include "controls/tool_bars.h"
#include "platform/main_window.h"

namespace sentrel {

/// What the tools run that is carried out elsewhere. One that is not set does nothing.
struct Commands {
  /// Shows the settings dialog and returns when it has been closed.
  std::function<void()> ShowSettingsForm;
  std::function<void()> PrintTraps;
  std::function<void()> PreviewTraps;
  /// The method is the name of the tool with its case unchanged: "CDF", "Excel".
  std::function<void(const std::string& method)> ExportTraps;
  std::function<void()> SaveSelectedTrap;
  std::function<void()> SendTestTrap;
  std::function<void()> ShowHelpContents;
  std::function<void()> ShowHelpOnSentrel;
  std::function<void()> ShowTipOfTheDay;
  std::function<void()> ShowAboutBox;
};

/// Routes a chosen tool, by category and name, to what it runs. A command that throws ends quietly.
/// Used on the event loop only; all that it is given must outlive it.
class ToolDispatch : public ToolBarsEvents {
 public:
  ToolDispatch(MainWindow& window, MainForm& mainForm, TableCommands& tableCommands,
               PauseAndRaw& pauseAndRaw, ToolBars& toolBars, Commands commands);

  /// Drops what comes while the program itself writes a State.
  void ToolBars_ToolClick(const Tool& tool) override;

 private:
  /// Names in upper case.
  using Routes = std::map<std::string_view, std::function<void()>>;
  /// A tool id, split: category, name.
  using Pieces = std::vector<std::string_view>;

  void Run(const Pieces& pieces);
  void RunMainTool(const Pieces& pieces);
  void RunEditTool(const Pieces& pieces);
  void RunHelpTool(const Pieces& pieces);
  void ShowSettings();

  PauseAndRaw& pauseAndRaw_;
  Commands commands_;
  Routes mainTools_;
  Routes editTools_;
  Routes helpTools_;
};

}  // namespace sentrel
