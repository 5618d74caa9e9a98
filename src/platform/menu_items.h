#pragma once

#include <optional>
#include <string>
#include <variant>

namespace sentrel {

/// The menus that can be filled at run time. All calls may throw Failure; references stay valid
/// until the menu that gave them is gone.

/// One tool of a tool bar control.
class MenuTool {
 public:
  virtual ~MenuTool() = default;
  virtual void SetName(const std::string& name) = 0;
};

/// A tool with a sub-menu.
class ToolMenu {
 public:
  virtual ~ToolMenu() = default;
  virtual MenuTool& AddTool(const std::string& id) = 0;
};

/// The number of a picture among those of a CommandList.
using MenuImage = int;

class CommandButton {
 public:
  virtual ~CommandButton() = default;
  virtual void SetTag(const std::string& tag) = 0;
  virtual void SetImage(int index, MenuImage image) = 0;
};

class CommandControl {
 public:
  virtual ~CommandControl() = default;
  /// Whether there is a line above the entry.
  virtual void SetBeginGroup(bool setting) = 0;
};

/// Holds the buttons that a pop-up shows.
class CommandList {
 public:
  virtual ~CommandList() = default;
  virtual CommandButton& AddToolButton(const std::string& id, const std::string& caption) = 0;
  /// Nothing where there is no picture of that name.
  virtual std::optional<MenuImage> FindImage(const std::string& name) = 0;
};

/// A pop-up of a command bar.
class CommandPopup {
 public:
  virtual ~CommandPopup() = default;
  /// Shows the button with the id as the last entry.
  virtual CommandControl& AddControl(const std::string& id) = 0;
};

class PlainMenuItem {
 public:
  virtual ~PlainMenuItem() = default;
  virtual void SetCaption(const std::string& caption) = 0;
  virtual void SetTag(const std::string& tag) = 0;
  virtual void SetVisible(bool setting) = 0;
  virtual void SetEnabled(bool setting) = 0;
};

/// An indexed array of plain items, whose element 0 is a template.
class PlainMenu {
 public:
  virtual ~PlainMenu() = default;
  /// Makes the element at the index, which must not exist.
  virtual void Load(int index) = 0;
  virtual PlainMenuItem& Item(int index) = 0;
};

/// What a menu can be filled through. None of the pointers owns; a null menu is not filled.
using MenuItem = std::variant<ToolMenu*, CommandPopup*, PlainMenu*>;

}  // namespace sentrel
