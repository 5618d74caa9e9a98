#pragma once

#include <string_view>
#include <vector>

namespace sentrel {

enum class ToolKind {
  Plain,    // a command
  Check,    // a command that shows a check mark
  Submenu,  // opens a list of tools
};

/// What a tool is by design.
struct ToolDesign {
  /// A category, a colon and a name; both compare without regard to case.
  std::string_view id;
  /// "&" is before the access letter.
  std::string_view caption;
  ToolKind kind = ToolKind::Plain;
  /// The heading under which the tool is grouped.
  std::string_view category;
  std::string_view hint = "";
};

/// One place of a menu or band.
struct ToolPlace {
  /// Id of the tool; empty for a separator.
  std::string_view tool;
  /// Takes the place of the tool's own caption unless empty.
  std::string_view caption = "";
};

/// A band, by its name, or the menu of a submenu tool, by the tool's id.
struct ToolList {
  std::string_view name;
  std::vector<ToolPlace> places;
};

/// Everything that the user can choose in the main window.
const std::vector<ToolDesign>& AllTools();
const std::vector<ToolList>& AllMenus();
/// The menu bar, then the toolbar.
const std::vector<ToolList>& AllBands();

}  // namespace sentrel
