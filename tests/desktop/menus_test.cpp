#include <QAccessible>
#include <QDialog>
#include <QLabel>
#include <QMenuBar>
#include <QStatusBar>
#include <QStatusTipEvent>
#include <QToolButton>

#include "desktop/window/icons.h"
#include "window_fixture.h"

namespace sentrel {
namespace {

using testing::ElementsAre;

using Menus = WindowTest;

std::vector<std::string> Entries(const QWidget& widget) {
  std::vector<std::string> entries;
  for (const QAction* action : widget.actions())
    entries.push_back(action->objectName().toStdString());
  return entries;
}

std::vector<std::string> Planned(std::string_view name) {
  std::vector<std::string> entries;
  for (const auto* lists : {&AllMenus(), &AllBands()}) {
    for (const ToolList& list : *lists) {
      if (list.name != name) continue;
      for (const ToolPlace& place : list.places) entries.emplace_back(place.tool);
    }
  }
  return entries;
}

TEST_F(Menus, EachOpensByItsAccessLetterAndNothingHasAShortcut) {
  Show();
  EXPECT_EQ(Entries(*window.menuBar()), Planned("MenuBar"));
  const std::pair<Qt::Key, const char*> menus[] = {{Qt::Key_F, "Menu:File"},
                                                   {Qt::Key_E, "Menu:EditMenu"},
                                                   {Qt::Key_T, "Menu:TrapsMenu"},
                                                   {Qt::Key_H, "Menu:Help"}};
  for (const auto& [letter, id] : menus) {
    QTest::keyClick(&window, letter, Qt::AltModifier);
    ASSERT_TRUE(OpenMenu()) << id;
    EXPECT_EQ(Entries(*OpenMenu()), Planned(id));
    QTest::keyClick(OpenMenu(), Qt::Key_Escape);
  }
  QTest::keyClick(&window, Qt::Key_F, Qt::AltModifier);
  QTest::keyClick(OpenMenu(), Qt::Key_E);
  EXPECT_EQ(Entries(*OpenMenu()), Planned("Menu:ExportMenu"));
  QTest::keyClick(OpenMenu(), Qt::Key_H);
  EXPECT_THAT(Chosen(), ElementsAre("Export:HTML"));
  for (const Tool& tool : tools.Tools()) {
    const QAction& action = Action(std::string(tool.Id()).c_str());
    EXPECT_TRUE(action.shortcuts().isEmpty() && action.isEnabled()) << tool.Id();
    EXPECT_EQ(action.text().toStdString(), tool.Design().caption);
  }
}

TEST_F(Menus, TheToolbarTogglesItsMenuFollowsAndItsHintsStay) {
  Show();
  EXPECT_EQ(Entries(*window.findChild<QToolBar*>("ToolBar")), Planned("ToolBar"));
  auto* pause = qobject_cast<QToolButton*>(&Button("Edit:Pause"));
  for (const int state : {1, 0}) {
    QTest::mouseClick(pause, Qt::LeftButton);
    EXPECT_EQ(Chosen(), std::vector<std::string>(2 - static_cast<size_t>(state), "Edit:Pause"));
    EXPECT_EQ(tools.Tools("Edit:Pause").State(), state);
    EXPECT_EQ(pause->isChecked(), state == 1);
  }
  tools.Tools("Edit:Raw").SetState(1);
  EXPECT_TRUE(Action("Edit:Raw").isChecked());
  tools.SetHintTime(std::chrono::seconds(10));
  EXPECT_EQ(pause->toolTip(), "Suspend/Resume Trap Collection");
  EXPECT_EQ(pause->toolTipDuration(), 10'000);
  EXPECT_EQ(qobject_cast<QToolButton*>(&Button("Main:Settings"))->text(), "Settings");
  EXPECT_EQ(Action("Main:Settings").text(), "&Settings ...");
}

TEST_F(Menus, TheEditMenuIsTheContextMenuOfRowsAndTitles) {
  Show();
  const auto press = [&](QWidget* place) {
    QTest::mousePress(place, Qt::RightButton, {}, QPoint(5, 5));
  };
  const auto pressMenuKey = [&] {
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), View().mapToGlobal(QPoint()));
    QApplication::sendEvent(&View(), &event);
  };
  const std::function<void()> ways[] = {
      [&] { press(View().viewport()); }, [&] { press(View().Header()->viewport()); }, pressMenuKey,
      [&] { QTest::keyClick(&View(), Qt::Key_F10, Qt::ShiftModifier); }};
  table.SetRow(2);
  ASSERT_TRUE(QTest::qWaitFor([&] { return View().CellRect(2, 0).width() == 100; }));
  for (const int rows : {3, 1}) {
    table.SetRows(rows);
    const int row = table.Row();
    for (const auto& open : ways) {
      open();
      ASSERT_TRUE(OpenMenu());
      const int y = View().viewport()->mapFromGlobal(OpenMenu()->pos()).y();
      EXPECT_TRUE(View().RowAt(y) == row || &open < &ways[2]) << "by key where the selection is";
      EXPECT_EQ(Entries(*OpenMenu()), Planned("Menu:EditMenu"));
      QTest::keyClick(OpenMenu(), Qt::Key_A);
      EXPECT_EQ(table.Row(), row) << "the selection stays as it was";
    }
  }
  EXPECT_EQ(Chosen(), std::vector<std::string>(8, "Edit:SelectAll"));
}

TEST_F(Menus, EveryMouseButtonIsToldOnce) {
  Show();
  for (QWidget* pressed : {View().viewport(), View().Header()->viewport()}) {
    buttons.clear();
    for (const auto button : {Qt::LeftButton, Qt::MiddleButton, Qt::RightButton}) {
      QTest::mouseClick(pressed, button, {}, QPoint(5, 5));
    }
    EXPECT_THAT(buttons, ElementsAre(1, 4, 2));
  }
}

/// As assistive technology does.
void Press(QAccessibleInterface* control) {
  ASSERT_TRUE(control && control->actionInterface());
  control->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
}

TEST_F(Menus, AssistiveTechnologyPressesWithoutWaitingAndAMenuOpensAtItsButton) {
  Show();
  QWidget& button = Button("Main:Export");
  Press(QAccessible::queryAccessibleInterface(&button));
  EXPECT_THAT(chosen, ElementsAre()) << "the call is back before anything has opened";
  EXPECT_THAT(Chosen(), ElementsAre("Main:Export"));
  ASSERT_TRUE(OpenMenu());
  EXPECT_EQ(OpenMenu()->pos(), button.mapToGlobal(button.rect().bottomLeft()));
  Press(QAccessible::queryAccessibleInterface(OpenMenu())->child(0));
  EXPECT_EQ(chosen.size(), 1);
  EXPECT_THAT(Chosen(), ElementsAre("Main:Export", "Export:CDF"));
}

TEST_F(Menus, NothingIsChosenWhileADialogIsOpen) {
  Show();
  QDialog dialog(&window);
  dialog.open();
  Press(QAccessible::queryAccessibleInterface(&Button("Edit:Pause")));
  EXPECT_THAT(Chosen(), ElementsAre());
  EXPECT_FALSE(Action("Edit:Pause").isChecked());
  EXPECT_EQ(tools.Tools("Edit:Pause").State(), 0);
}

TEST_F(Menus, TheStatusBarShowsItsOneTextOnly) {
  Show();
  status.SetText("Trap receiving has been paused");
  const auto* label = window.findChild<QStatusBar*>("StatusBar")->findChild<QLabel*>();
  QStatusTipEvent hovered{QString()};
  QApplication::sendEvent(&window, &hovered);
  EXPECT_TRUE(label->isVisible());
  EXPECT_EQ(label->text(), "Trap receiving has been paused");
  status.SetText("");
  EXPECT_EQ(label->text(), "");
}

/// The mean lightness of what is painted, 0 to 255; -1 for an empty picture.
int Lightness(const QPixmap& picture) {
  const QImage image = picture.toImage();
  int sum = 0;
  int count = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      const QColor color = image.pixelColor(x, y);
      if (color.alpha() < 128) continue;
      sum += color.lightness();
      ++count;
    }
  }
  return count == 0 ? -1 : sum / count;
}

TEST_F(Menus, IconsFollowThePaletteAtEverySize) {
  const QPalette light(QColor(240, 240, 240));
  const QPalette dark(QColor(50, 50, 50));
  for (const ToolList& menu : AllMenus()) {
    for (const ToolPlace& place : menu.places) {
      const bool bare = place.tool.empty() || place.tool == "Edit:Raw";
      EXPECT_EQ(ToolIcon(place.tool).isNull(), bare) << place.tool;
      for (const int size : {16, 48}) {
        if (bare) continue;
        QApplication::setPalette(light);
        const int onLight = Lightness(ToolIcon(place.tool).pixmap(size));
        QApplication::setPalette(dark);
        EXPECT_GE(onLight, 0) << place.tool;
        EXPECT_LT(onLight, 140) << place.tool;
        EXPECT_GT(Lightness(ToolIcon(place.tool).pixmap(size)), 130) << place.tool;
      }
    }
  }
  QApplication::setPalette(QPalette());
  for (const int size : {16, 32, 64}) {
    EXPECT_EQ(ProgramIcon().pixmap(size).width(), size);
    EXPECT_GE(Lightness(ProgramIcon().pixmap(size)), 0) << "something is drawn";
  }
}

}  // namespace
}  // namespace sentrel
