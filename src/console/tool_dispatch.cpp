#include "console/tool_dispatch.h"

#include <utility>

#include "common/failure.h"
#include "common/text.h"

namespace sentrel {
namespace {

template <typename Routes>
void RunNamed(const Routes& routes, std::string_view name) {
  const auto route = routes.find(UpperCase(name));
  if (route != routes.end() && route->second) route->second();
}

}  // namespace

ToolDispatch::ToolDispatch(MainWindow& window, MainForm& mainForm, TableCommands& tableCommands,
                           PauseAndRaw& pauseAndRaw, ToolBars& toolBars, Commands commands)
    : pauseAndRaw_(pauseAndRaw), commands_(std::move(commands)) {
  mainTools_ = {
      {"EXPORT", [&toolBars] { toolBars.PopupMenu(toolBars.Tools("Menu:ExportMenu")); }},
      {"PRINT", commands_.PrintTraps},
      {"PRINTPREVIEW", commands_.PreviewTraps},
      {"SETTINGS", [this] { ShowSettings(); }},
      {"EXIT", [&window] { window.Unload(); }},
  };
  editTools_ = {
      {"COPY", [&tableCommands] { tableCommands.CopyTraps(); }},
      {"CUT", [&tableCommands] { tableCommands.CutTraps(); }},
      {"DELETE", [&tableCommands] { tableCommands.DeleteTraps(); }},
      {"SELECTALL", [&tableCommands] { tableCommands.SelectAllTraps(); }},
      {"RAW", [&pauseAndRaw] { pauseAndRaw.ToggleRaw(); }},
      {"CLEAR", [&mainForm] { mainForm.SetupTable(); }},
      {"PAUSE", [&pauseAndRaw] { pauseAndRaw.TogglePause(); }},
      {"SAVETRAP", commands_.SaveSelectedTrap},
      {"SENDTESTTRAP", commands_.SendTestTrap},
  };
  helpTools_ = {
      {"CONTENTS", commands_.ShowHelpContents},
      {"SELECTION", commands_.ShowHelpOnSentrel},
      {"TIPOFTHEDAY", commands_.ShowTipOfTheDay},
      {"ABOUT", commands_.ShowAboutBox},
  };
}

void ToolDispatch::ToolBars_ToolClick(const Tool& tool) {
  if (pauseAndRaw_.UpdatingTools()) return;
  Attempt([&] { Run(Split(tool.Id(), ":")); });
}

void ToolDispatch::Run(const Pieces& pieces) {
  if (pieces.size() < 2) return;
  const std::string category = UpperCase(pieces[0]);
  if (category == "MAIN") {
    RunMainTool(pieces);
  } else if (category == "EDIT") {
    RunEditTool(pieces);
  } else if (category == "HELP") {
    RunHelpTool(pieces);
  } else if (category == "EXPORT" && commands_.ExportTraps) {
    commands_.ExportTraps(std::string(pieces[1]));
  }
}

void ToolDispatch::RunMainTool(const Pieces& pieces) {
  RunNamed(mainTools_, pieces[1]);
}

void ToolDispatch::RunEditTool(const Pieces& pieces) {
  RunNamed(editTools_, pieces[1]);
}

void ToolDispatch::RunHelpTool(const Pieces& pieces) {
  RunNamed(helpTools_, pieces[1]);
}

void ToolDispatch::ShowSettings() {
  if (commands_.ShowSettingsForm) Attempt(commands_.ShowSettingsForm);
  pauseAndRaw_.UpdateRawTool();
  pauseAndRaw_.UpdateEmptyTable();
}

}  // namespace sentrel
