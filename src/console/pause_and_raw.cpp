#include "console/pause_and_raw.h"

#include "console/empty_table_text.h"

namespace sentrel {

PauseAndRaw::PauseAndRaw(Settings& settings, Table& table, ToolBars& toolBars, StatusBar& statusBar)
    : settings_(settings), table_(table), toolBars_(toolBars), statusBar_(statusBar) {}

void PauseAndRaw::ToggleRaw() {
  settings_.SetRaw(!settings_.Raw());
  UpdateRawTool();
}

void PauseAndRaw::TogglePause() {
  settings_.SetPaused(!settings_.Paused());
  const bool paused = settings_.Paused();
  toolBars_.Tools("Edit:Pause").SetState(paused ? 1 : 0);
  statusBar_.SetText(paused ? "Trap receiving has been paused" : "");
  UpdateEmptyTable();
}

void PauseAndRaw::UpdateRawTool() {
  updatingTools_ = true;
  toolBars_.Tools("Edit:Raw").SetState(settings_.Raw() ? 1 : 0);
  updatingTools_ = false;
}

void PauseAndRaw::UpdateEmptyTable() {
  table_.SetEmptyText(EmptyTableText(settings_));
}

}  // namespace sentrel
