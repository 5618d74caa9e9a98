#include "controls/table.h"

#include <gmock/gmock.h>

#include "common/failure.h"

namespace sentrel {
namespace {

using testing::InSequence;

class MockObserver : public TableObserver {
 public:
  MOCK_METHOD(void, RowInserted, (int), (override));
  MOCK_METHOD(void, RowRemoved, (int), (override));
  MOCK_METHOD(void, TableChanged, (), (override));
};

Table FiveRows() {
  Table table;
  table.SetCols(2);
  for (int i = 0; i < 4; ++i) table.AddItem(std::to_string(i) + "\tx", table.Rows());
  return table;
}

TEST(Table, KeepsItsHeaderWhateverIsDropped) {
  Table table = FiveRows();
  table.SetCell(0, 0, "Title");
  table.SetRows(1);
  EXPECT_EQ(table.Rows(), 1);
  EXPECT_EQ(table.Cell(0, 0), "Title");
  EXPECT_THROW(table.SetRows(0), Failure);
  EXPECT_THROW(table.RemoveItem(0), Failure);
}

TEST(Table, InsertsUnderTheHeaderAndTakesRowDataAlong) {
  Table table = FiveRows();
  table.SetRowData(1, "first");
  table.AddItem("", 1);
  EXPECT_EQ(table.Cell(1, 0), "");
  EXPECT_EQ(table.RowData(1), "");
  EXPECT_EQ(table.Cell(2, 0), "0");
  EXPECT_EQ(table.Cell(2, 1), "x");
  EXPECT_EQ(table.RowData(2), "first");
}

TEST(Table, RefusesPlacesThatDoNotExist) {
  Table table = FiveRows();
  for (const int row : {-1, 5}) {
    EXPECT_THROW(table.SetRow(row), Failure);
    EXPECT_THROW(table.SetRowSel(row), Failure);
    EXPECT_THROW(table.SetRowHeight(row, 1), Failure);
    EXPECT_THROW(table.Cell(row, 0), Failure);
    EXPECT_THROW(table.RemoveItem(row), Failure);
  }
  for (const int col : {-1, 2}) {
    EXPECT_THROW(table.SetCol(col), Failure);
    EXPECT_THROW(table.SetColSel(col), Failure);
    EXPECT_THROW(table.SetCell(1, col, ""), Failure);
    EXPECT_THROW(table.SetColWidth(col, 1), Failure);
  }
  EXPECT_THROW(table.AddItem("", 0), Failure);
  EXPECT_THROW(table.AddItem("", 6), Failure);
}

TEST(Table, TheCursorTakesTheCornerAlongAndNotTheOtherWayRound) {
  Table table = FiveRows();
  table.SetRow(1);
  table.SetRowSel(3);
  EXPECT_EQ(table.Row(), 1);
  EXPECT_EQ(table.RowSel(), 3);
  table.SetRow(4);
  EXPECT_EQ(table.RowSel(), 4);
  table.SetColSel(1);
  table.SetCol(0);
  EXPECT_EQ(table.ColSel(), 0);
}

TEST(Table, WholeRowsAlwaysSpanAllColumns) {
  Table table = FiveRows();
  table.SetWholeRows(true);
  table.SetRow(2);
  table.SetCol(1);
  EXPECT_EQ(table.Col(), 0);
  EXPECT_EQ(table.ColSel(), 1);
}

TEST(Table, TheSelectionStaysInsideWhenRowsGo) {
  Table table = FiveRows();
  table.SetRow(4);
  table.RemoveItem(4);
  EXPECT_EQ(table.Row(), 3);
  EXPECT_EQ(table.RowSel(), 3);
  table.SetRows(1);
  EXPECT_EQ(table.Row(), 0);
}

TEST(Table, TheSelectionStaysOnItsRowsWhenRowsAboveOrWithinGo) {
  struct Case {
    int row, rowSel, removed, rowAfter, rowSelAfter;
  };
  for (const Case& c : {Case{3, 3, 1, 2, 2}, {2, 2, 3, 2, 2}, {2, 4, 3, 2, 3}, {4, 2, 2, 3, 2}}) {
    Table table = FiveRows();
    table.SetRow(c.row);
    table.SetRowSel(c.rowSel);
    table.RemoveItem(c.removed);
    EXPECT_EQ(table.Row(), c.rowAfter) << "row " << c.removed << " of " << c.row;
    EXPECT_EQ(table.RowSel(), c.rowSelAfter) << "row " << c.removed << " of " << c.row;
  }
}

TEST(Table, ClipsTheRectangleFromEitherEnd) {
  Table table = FiveRows();
  EXPECT_EQ(table.Clip(), "");
  for (const auto& [row, rowSel] : {std::pair{1, 3}, {3, 1}}) {
    table.SetRow(row);
    table.SetCol(0);
    table.SetRowSel(rowSel);
    EXPECT_EQ(table.Clip(), "0\r1\r2");
    table.SetColSel(1);
    EXPECT_EQ(table.Clip(), "0\tx\r1\tx\r2\tx");
    EXPECT_EQ(table.GetSelection().firstRow, 1);
    EXPECT_EQ(table.GetSelection().lastRow, 3);
  }
}

TEST(Table, ARowVersionIsNeverUsedTwice) {
  Table table = FiveRows();
  const auto before = table.RowVersion(1);
  table.SetCell(1, 0, "new");
  EXPECT_NE(table.RowVersion(1), before);
  table.RemoveItem(4);
  table.AddItem("", 1);
  for (int row = 2; row < table.Rows(); ++row) {
    EXPECT_NE(table.RowVersion(1), table.RowVersion(row));
  }
}

TEST(Table, TellsOfRowsAtOnceAndOfPaintingOnlyWhileItIsOn) {
  Table table = FiveRows();
  MockObserver observer;
  table.SetObserver(&observer);
  {
    InSequence sequence;
    EXPECT_CALL(observer, RowInserted(1));
    EXPECT_CALL(observer, RowRemoved(5));
    EXPECT_CALL(observer, TableChanged()).Times(1);
  }
  table.SetRedraw(0);
  table.AddItem("", 1);
  table.SetCell(1, 0, "x");
  table.RemoveItem(5);
  table.SetRedraw(1);
  table.SetRedraw(0);
  table.SetRedraw(1);
}

TEST(Table, ARowIsMadeOnceAndOnlyWhenItIsLookedAt) {
  Table table;
  table.SetCols(2);
  int made = 0;
  const RowMaker make = [&made] {
    ++made;
    return RowContent{.cells = {"a"}, .data = "d", .height = 7};
  };
  for (int i = 0; i < 3; ++i) table.AddItem(make, 1);
  table.RemoveItem(3);
  EXPECT_EQ(made, 0);
  EXPECT_EQ(table.RowHeight(2), 7);
  EXPECT_EQ(table.Cell(2, 0), "a");
  EXPECT_EQ(table.Cell(2, 1), "") << "a missing cell is empty";
  EXPECT_EQ(table.RowData(2), "d");
  EXPECT_EQ(made, 1);
  table.SetCell(1, 0, "b");
  EXPECT_EQ(table.RowData(1), "d") << "what is written stands upon what was made";
  EXPECT_EQ(table.Cell(1, 0), "b");
  table.AddItem([]() -> RowContent { throw Failure("no"); }, 1);
  EXPECT_EQ(table.Cell(1, 1), "") << "a failure leaves the row empty";
}

}  // namespace
}  // namespace sentrel
