#include "console/toggles.h"

namespace sentrel {

Toggles::Toggles(Settings& settings, ToolBars& toolBars, StatusBar& statusBar)
    : settings_(settings), toolBars_(toolBars), statusBar_(statusBar) {}

void Toggles::ToggleRaw() {
  settings_.SetRaw(!settings_.Raw());
  UpdateRawTool();
}

void Toggles::TogglePause() {
  settings_.SetPaused(!settings_.Paused());
  const bool paused = settings_.Paused();
  toolBars_.Tools("Edit:Pause").SetState(paused ? 1 : 0);
  statusBar_.SetText(paused ? "Trap receiving has been paused" : "");
}

void Toggles::UpdateRawTool() {
  updatingTools_ = true;
  toolBars_.Tools("Edit:Raw").SetState(settings_.Raw() ? 1 : 0);
  updatingTools_ = false;
}

}  // namespace sentrel
