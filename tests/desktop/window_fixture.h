#pragma once

#include <gmock/gmock.h>

#include <QTest>
#include <string>
#include <vector>

#include "desktop/window/trap_window.h"

namespace sentrel {

/// The main window with two traps in its table. What the user chooses is noted by tool id.
struct WindowTest : testing::Test, ToolBarsEvents, TableEvents {
  WindowTest() {
    table.SetCols(2);
    table.SetColWidth(0, 100);
    for (const char* trap : {"a\t1", "b\t2"}) table.AddItem(trap, 1);
    tools.SetEvents(this);
    table.SetEvents(this);
  }
  void ToolBars_ToolClick(const Tool& tool) override {
    chosen.emplace_back(tool.Id());
    if (tool.Id() == "Main:Export") tools.PopupMenu(tools.Tools("Menu:ExportMenu"));
  }
  void Table_MouseDown(int button, int, int, int) override {
    buttons.push_back(button);
    if (button == kRightButton) tools.PopupMenu(tools.Tools("Menu:EditMenu"));
  }

  void Show() {
    window.resize(800, 400);
    window.MoveTable({0, 0, 800, 300});
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  }
  TableView& View() { return *window.findChild<TableView*>("Table"); }
  QAction& Action(const char* id) { return *window.findChild<QAction*>(id); }
  QWidget& Button(const char* id) {
    return *window.findChild<QToolBar*>("ToolBar")->widgetForAction(&Action(id));
  }
  /// Choices come with a turn of the event loop.
  const std::vector<std::string>& Chosen() {
    QCoreApplication::processEvents();
    return chosen;
  }
  QMenu* OpenMenu() { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }

  Table table;
  ToolBars tools;
  StatusBar status;
  std::vector<std::string> chosen;
  std::vector<int> buttons;
  TrapWindow window{table, tools, status};
};

}  // namespace sentrel
