#include "desktop/table/table_view.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QScrollBar>
#include <QTest>

namespace sentrel {
namespace {

struct TableViewTest : testing::Test {
  TableViewTest() {
    table.SetCols(3);
    table.SetWholeRows(true);
    table.SetRuleColor(0x6464FF);
    for (int col = 0; col < 3; ++col) {
      table.SetCell(0, col, "Title " + std::to_string(col));
      table.SetColWidth(col, 100);
    }
    view.resize(500, 300);
    view.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&view));
    view.setFocus();
  }
  void AddRow() {
    table.AddItem(std::to_string(++added) + "\ttwo\r\nlines\tx", 1);
    table.SetRowHeight(1, 10);
  }
  void AddRows(int count) {
    for (int i = 0; i < count; ++i) AddRow();
    EXPECT_TRUE(QTest::qWaitFor([&] { return count < 20 || ScrollBar().maximum() > 0; }));
  }
  QScrollBar& ScrollBar() { return *view.verticalScrollBar(); }
  QPoint At(int row) { return view.CellRect(row, 0).center(); }
  void Click(int row, Qt::KeyboardModifiers modifiers = {}) {
    QTest::mouseClick(view.viewport(), Qt::LeftButton, modifiers, At(row));
  }
  std::string FirstSeen() { return table.Cell(view.RowAt(0), 0); }
  void ExpectSelection(int row, int rowSel) {
    EXPECT_EQ(table.Row(), row);
    EXPECT_EQ(table.RowSel(), rowSel);
    EXPECT_EQ(table.Col(), 0);
    EXPECT_EQ(table.ColSel(), 2);
  }

  Table table;
  TableView view{table};
  int added = 0;
};

TEST_F(TableViewTest, ClicksSelectShiftExtendsAndDraggingWorksInEitherDirection) {
  AddRows(5);
  Click(2);
  ExpectSelection(2, 2);
  Click(4, Qt::ShiftModifier);
  ExpectSelection(2, 4);
  QTest::mouseClick(view.viewport(), Qt::RightButton, {}, At(1));
  ExpectSelection(2, 4);
  for (const auto& [from, to] : {std::pair{2, 4}, {5, 1}}) {
    QTest::mousePress(view.viewport(), Qt::LeftButton, {}, At(from));
    QTest::mouseMove(view.viewport(), At(to));
    QTest::mouseRelease(view.viewport(), Qt::LeftButton, {}, At(to));
    ExpectSelection(from, to);
  }
}

TEST_F(TableViewTest, KeysMoveTheSelection) {
  AddRows(100);
  Click(1);
  struct Case {
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
    int row, rowSel;
  };
  const Case cases[] = {
      {Qt::Key_Down, {}, 2, 2},
      {Qt::Key_Down, Qt::ShiftModifier, 2, 3},
      {Qt::Key_Up, Qt::ShiftModifier, 2, 2},
      {Qt::Key_Home, Qt::ShiftModifier, 2, 1},
      {Qt::Key_Up, {}, 1, 1},
      {Qt::Key_End, {}, 100, 100},
      {Qt::Key_Down, {}, 100, 100},
      {Qt::Key_Home, {}, 1, 1},
  };
  for (const Case& c : cases) {
    QTest::keyClick(&view, c.key, c.modifiers);
    ExpectSelection(c.row, c.rowSel);
    EXPECT_TRUE(view.viewport()->rect().contains(view.CellRect(c.rowSel, 0))) << c.rowSel;
  }
  QTest::keyClick(&view, Qt::Key_PageDown);
  const int page = table.Row() - 1;
  EXPECT_GT(page, 2);
  EXPECT_LE(page, view.viewport()->height() / view.CellRect(1, 0).height());
  QTest::keyClick(&view, Qt::Key_PageUp);
  ExpectSelection(1, 1);
}

TEST_F(TableViewTest, FollowsTheNewestTrapOnlyAtTheTop) {
  AddRows(100);
  AddRow();
  EXPECT_EQ(FirstSeen(), "101");
  ScrollBar().setValue(ScrollBar().maximum() / 2);
  const std::string reading = FirstSeen();
  const QRect place = view.CellRect(view.RowAt(0), 0);
  AddRows(50);
  EXPECT_EQ(FirstSeen(), reading);
  EXPECT_EQ(view.CellRect(view.RowAt(0), 0), place);
  ScrollBar().setValue(0);
  EXPECT_EQ(FirstSeen(), "151");
}

TEST_F(TableViewTest, NoLineOfTextIsCut) {
  AddRows(1);
  const int line = QFontMetrics(view.font()).height();
  EXPECT_GE(view.CellRect(1, 0).height(), 2 * line);
  EXPECT_EQ(table.RowHeight(1), 10) << "the row's own height is kept as told";
  table.SetRowHeight(1, 200);
  table.SetCell(1, 0, "changed");
  EXPECT_EQ(view.CellRect(1, 0).height(), 200);
}

TEST_F(TableViewTest, ColumnsAreResizedAtTheHeaderAndScrollWithIt) {
  AddRows(1);
  QHeaderView& header = *view.Header();
  const QPoint edge(header.sectionViewportPosition(1) - 1, header.height() / 2);
  QTest::mousePress(header.viewport(), Qt::LeftButton, {}, edge);
  QTest::mouseMove(header.viewport(), edge + QPoint(40, 0));
  QTest::mouseRelease(header.viewport(), Qt::LeftButton, {}, edge + QPoint(40, 0));
  EXPECT_EQ(std::pair(table.ColWidth(0), table.ColWidth(1)), std::pair(140, 100));
  table.SetColWidth(0, 900);
  QScrollBar& bar = *view.horizontalScrollBar();
  EXPECT_TRUE(QTest::qWaitFor([&] { return bar.maximum() > 0; }));
  EXPECT_EQ(header.sectionSize(0), 900);
  bar.setValue(bar.maximum());
  EXPECT_EQ(view.CellRect(1, 2).left(), header.sectionViewportPosition(2));
  EXPECT_LE(view.CellRect(1, 2).right(), view.viewport()->width());
}

TEST_F(TableViewTest, AssistiveTechnologyReadsTheCells) {
  AddRows(3);
  Click(2);
  QAccessibleInterface* root = QAccessible::queryAccessibleInterface(&view);
  ASSERT_NE(root, nullptr);
  QAccessibleTableInterface* cells = root->tableInterface();
  ASSERT_NE(cells, nullptr);
  EXPECT_EQ(root->role(), QAccessible::Table);
  EXPECT_EQ(cells->rowCount(), 4);
  EXPECT_EQ(cells->cellAt(0, 1)->text(QAccessible::Name), "Title 1");
  QAccessibleInterface* cell = cells->cellAt(1, 1);
  EXPECT_EQ(cell->text(QAccessible::Name), "two\r\nlines");
  EXPECT_EQ(root->indexOfChild(cell), 4);
  EXPECT_EQ(root->child(4), cell);
  EXPECT_EQ(cell->tableCellInterface()->columnHeaderCells().front(), cells->cellAt(0, 1));
  EXPECT_EQ(cells->selectedRows(), QList<int>{2});
  EXPECT_TRUE(cells->cellAt(2, 0)->state().selected);
  const QPoint middle = cell->rect().center();
  EXPECT_EQ(root->childAt(middle.x(), middle.y()), cell);
  EXPECT_EQ(cells->cellAt(9, 0), nullptr);
  table.SetRows(1);
  EXPECT_FALSE(cell->isValid());
}

}  // namespace
}  // namespace sentrel
