#pragma once

#include <chrono>
#include <deque>
#include <string>
#include <string_view>

#include "controls/tool_table.h"

namespace sentrel {

class Tool;
class ToolBars;

/// Told of choices, on the event loop. Must not throw.
class ToolBarsEvents {
 public:
  virtual ~ToolBarsEvents() = default;
  /// The user has chosen the tool, or the program has written a State that differs from the one
  /// before. A check tool has its new State already.
  virtual void ToolBars_ToolClick(const Tool& tool) = 0;
};

/// Shows the tools on the screen.
class ToolBarsView {
 public:
  virtual ~ToolBarsView() = default;
  virtual void StateChanged(const Tool& tool) = 0;
  /// Shows the menu of a submenu tool at the mouse and returns at once.
  virtual void PopupMenu(const Tool& submenu) = 0;
  /// Write and read back the arrangement on the screen. Throw Failure; a file that is not wholly
  /// sound changes nothing.
  virtual void SaveLayout(const std::string& path) = 0;
  virtual void LoadLayout(const std::string& path) = 0;
  virtual void SetHintTime(std::chrono::milliseconds time) = 0;
};

/// A command or submenu: one object, even where it is shown in several places.
class Tool {
 public:
  Tool(const ToolDesign& design, ToolBars& owner) : design_(design), owner_(owner) {}

  const ToolDesign& Design() const { return design_; }
  std::string_view Id() const { return design_.id; }
  /// 1 checked, 0 unchecked. Writing a value that differs raises the tool-chosen event; writing the
  /// present one does nothing.
  int State() const { return state_; }
  void SetState(int state);

 private:
  ToolDesign design_;
  ToolBars& owner_;
  int state_ = 0;
};

/// The menus and toolbars of the main window: which tools there are and what state they have. It
/// knows no toolkit; a view shows the tools and says which one the user chose. Used on the event
/// loop only. Without a view, what only a screen can do is passed over.
class ToolBars {
 public:
  explicit ToolBars(const std::vector<ToolDesign>& tools = AllTools());
  ToolBars(const ToolBars&) = delete;
  ToolBars& operator=(const ToolBars&) = delete;

  /// Both must outlive the control or be taken away with nullptr.
  void SetEvents(ToolBarsEvents* events) { events_ = events; }
  void SetView(ToolBarsView* view) { view_ = view; }

  /// The tool with an id. Throws Failure where there is none.
  Tool& Tools(std::string_view id);
  std::deque<Tool>& Tools() { return tools_; }

  /// The user has chosen the tool: a check tool changes its State, then the event comes. To open a
  /// submenu is no choice.
  void Choose(Tool& tool);

  void PopupMenu(const Tool& submenu);
  void SaveLayout(const std::string& path);
  void LoadLayout(const std::string& path);
  /// How long a hint stays on the screen.
  void SetHintTime(std::chrono::milliseconds time);

 private:
  friend class Tool;
  void Raise(const Tool& tool);

  std::deque<Tool> tools_;
  ToolBarsEvents* events_ = nullptr;
  ToolBarsView* view_ = nullptr;
};

}  // namespace sentrel
