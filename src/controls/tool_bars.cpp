#include "controls/tool_bars.h"

#include <fmt/format.h>

#include <algorithm>

#include "common/failure.h"
#include "common/text.h"

namespace sentrel {

void Tool::SetState(int state) {
  if (state == state_) return;
  state_ = state;
  if (owner_.view_) owner_.view_->StateChanged(*this);
  owner_.Raise(*this);
}

ToolBars::ToolBars(const std::vector<ToolDesign>& tools) {
  for (const ToolDesign& design : tools) tools_.emplace_back(design, *this);
}

Tool& ToolBars::Tools(std::string_view id) {
  const std::string wanted = UpperCase(id);
  const auto found = std::find_if(tools_.begin(), tools_.end(),
                                  [&](const Tool& tool) { return UpperCase(tool.Id()) == wanted; });
  if (found == tools_.end()) throw Failure(fmt::format("There is no tool {}.", id));
  return *found;
}

void ToolBars::Choose(Tool& tool) {
  switch (tool.Design().kind) {
    case ToolKind::Plain:
      return Raise(tool);
    case ToolKind::Check:
      return tool.SetState(tool.State() == 0 ? 1 : 0);
    case ToolKind::Submenu:
      return;
  }
}

void ToolBars::PopupMenu(const Tool& submenu) {
  if (view_) view_->PopupMenu(submenu);
}

void ToolBars::SaveLayout(const std::string& path) {
  if (view_) view_->SaveLayout(path);
}

void ToolBars::LoadLayout(const std::string& path) {
  if (view_) view_->LoadLayout(path);
}

void ToolBars::SetHintTime(std::chrono::milliseconds time) {
  if (view_) view_->SetHintTime(time);
}

void ToolBars::Raise(const Tool& tool) {
  if (events_) events_->ToolBars_ToolClick(tool);
}

}  // namespace sentrel
