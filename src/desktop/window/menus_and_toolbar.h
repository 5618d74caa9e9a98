#pragma once

#include <QMainWindow>
#include <QMenu>
#include <QPoint>
#include <QToolBar>
#include <map>
#include <optional>

#include "controls/tool_bars.h"
#include "desktop/window/window_place.h"

namespace sentrel {

/// Shows the tools as the menu bar, the menus and the toolbar of a main window. Every tool is one
/// action, which bears the tool's id as its object name. Used on the event loop only.
class MenusAndToolbar : public QObject, private ToolBarsView {
  Q_OBJECT
 public:
  /// Becomes a child of the window. The control must outlive it.
  MenusAndToolbar(ToolBars& toolBars, QMainWindow& window);
  ~MenusAndToolbar() override;

  /// Where on the screen pop-up menus open from now on: there, or at the mouse.
  void SetPopupPlace(std::optional<QPoint> place) { popupPlace_ = place; }

 private:
  void StateChanged(const Tool& tool) override;
  void PopupMenu(const Tool& submenu) override;
  void SaveLayout(const std::string& path) override;
  void LoadLayout(const std::string& path) override;
  void SetHintTime(std::chrono::milliseconds time) override;

  void AddAction(Tool& tool);
  /// Runs in a turn of the event loop of its own: whoever pressed the button or the menu entry, as
  /// assistive technology does, need not wait until a dialog has been closed.
  void Choose(Tool& tool);
  /// Of the toolbar's button, where the mouse is not over it: then the keyboard or assistive
  /// technology has pressed it. Nothing for an action without a button that is seen.
  std::optional<QPoint> PlaceUnderButton(QAction& action) const;
  void AddToolBar(const ToolList& band);
  /// Puts the tools of a list into a menu, the menu bar or a toolbar.
  void Fill(QWidget& widget, const ToolList& list);
  QAction& ActionOf(std::string_view id) const { return *actions_.at(id); }

  ToolBars& toolBars_;
  QMainWindow& window_;
  std::map<std::string_view, QAction*> actions_;
  WindowPlace place_;
  std::optional<QPoint> popupPlace_;
};

}  // namespace sentrel
