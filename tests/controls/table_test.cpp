#include "controls/table.h"

#include <gmock/gmock.h>

#include <functional>

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

class MadeRow : public RowSource {
 public:
  explicit MadeRow(std::function<RowContent()> make) : make_(std::move(make)) {}
  RowContent Make() const override { return make_(); }

 private:
  const std::function<RowContent()> make_;
};

/// A header and the rows "0" to "3".
struct TableTest : testing::Test {
  TableTest() {
    table.SetCols(2);
    for (const char* row : {"0\tx", "1\tx", "2\tx", "3\tx"}) table.AddItem(row, table.Rows());
  }
  void Select(int row, int rowSel) {
    table.SetRow(row);
    table.SetRowSel(rowSel);
  }
  std::pair<int, int> Selected() const { return {table.Row(), table.RowSel()}; }

  Table table;
};

TEST_F(TableTest, InsertsUnderTheHeaderAndTakesRowDataAlong) {
  table.SetRowData(1, "first");
  const auto before = table.RowVersion(1);
  table.SetCell(1, 0, "new");
  EXPECT_NE(table.RowVersion(1), before);
  table.AddItem("", 1);
  EXPECT_EQ(table.RowData(1), "");
  EXPECT_EQ(table.RowData(2), "first");
  EXPECT_EQ(table.Cell(2, 0) + table.Cell(2, 1), "newx");
  for (int row = 2; row < table.Rows(); ++row) {
    EXPECT_NE(table.RowVersion(1), table.RowVersion(row)) << "a version is never used twice";
  }
}

TEST_F(TableTest, RefusesPlacesThatDoNotExistAndToDropItsHeader) {
  const std::function<void(int)> rows[] = {[&](int row) { table.SetRow(row); },
                                           [&](int row) { table.SetRowSel(row); },
                                           [&](int row) { table.SetRowHeight(row, 1); },
                                           [&](int row) { table.Cell(row, 0); },
                                           [&](int row) { table.RemoveItem(row); },
                                           [&](int row) { table.AddItem("", row == 5 ? 6 : 0); }};
  const std::function<void(int)> cols[] = {
      [&](int col) { table.SetCol(col); }, [&](int col) { table.SetColSel(col); },
      [&](int col) { table.SetCell(1, col, ""); }, [&](int col) { table.SetColWidth(col, 1); }};
  for (const auto& access : rows) {
    for (const int row : {-1, 5}) EXPECT_THROW(access(row), Failure);
  }
  for (const auto& access : cols) {
    for (const int col : {-1, 2}) EXPECT_THROW(access(col), Failure);
  }
  EXPECT_THROW(table.SetRows(0), Failure);
  EXPECT_THROW(table.RemoveItem(0), Failure);
}

TEST_F(TableTest, TheCursorTakesTheCornerAlongAndNotTheOtherWayRound) {
  Select(1, 3);
  EXPECT_EQ(Selected(), std::pair(1, 3));
  table.SetRow(4);
  EXPECT_EQ(table.RowSel(), 4);
  table.SetColSel(1);
  table.SetCol(0);
  EXPECT_EQ(table.ColSel(), 0);
  table.SetWholeRows(true);
  table.SetCol(1);
  EXPECT_EQ(std::pair(table.Col(), table.ColSel()), std::pair(0, 1)) << "all columns";
}

TEST_F(TableTest, TheSelectionStaysOnItsRowsOrAtLeastInsideWhenRowsGo) {
  const struct {
    std::pair<int, int> before;
    int removed;
    std::pair<int, int> after;
  } cases[] = {{{3, 3}, 1, {2, 2}},
               {{2, 2}, 3, {2, 2}},
               {{2, 4}, 3, {2, 3}},
               {{4, 2}, 2, {3, 2}},
               {{4, 4}, 4, {3, 3}}};
  for (const auto& [before, removed, after] : cases) {
    Select(before.first, before.second);
    table.RemoveItem(removed);
    EXPECT_EQ(Selected(), after) << "row " << removed << " of " << before.first;
    table.AddItem("", table.Rows());
  }
  table.SetRows(1);
  EXPECT_EQ(table.Row(), 0);
}

TEST_F(TableTest, ClipsTheRectangleFromEitherEnd) {
  EXPECT_EQ(table.Clip(), "");
  for (const auto& [row, rowSel] : {std::pair{1, 3}, {3, 1}}) {
    table.SetCol(0);
    Select(row, rowSel);
    EXPECT_EQ(table.Clip(), "0\r1\r2");
    table.SetColSel(1);
    EXPECT_EQ(table.Clip(), "0\tx\r1\tx\r2\tx");
    EXPECT_EQ(table.GetSelection().firstRow, 1);
    EXPECT_EQ(table.GetSelection().lastRow, 3);
  }
}

TEST_F(TableTest, TellsOfRowsAtOnceAndOfPaintingOnlyWhileItIsOn) {
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

TEST_F(TableTest, ARowIsMadeOnceAndOnlyWhenItIsLookedAt) {
  table.SetRows(1);
  int made = 0;
  const auto added = [&] {
    return std::make_shared<MadeRow>([&made] {
      ++made;
      return RowContent{.cells = {"a"}, .data = "d", .height = 7};
    });
  };
  for (int i = 0; i < 3; ++i) table.AddItem(added(), 1);
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
  EXPECT_NE(table.Source(1), table.Source(2));
  EXPECT_EQ(table.Source(0), nullptr);
  table.AddItem(std::make_shared<MadeRow>([]() -> RowContent { throw Failure("no"); }), 1);
  EXPECT_EQ(table.Cell(1, 1), "") << "a failure leaves the row empty";
}

TEST_F(TableTest, ShelvedRowsKeepTheirPlaceAndComeBackAsTheyWere) {
  table.SetRows(1);
  for (const char* name : {"a", "b", "c", "d"}) table.AddItem(name, 1);
  const auto names = [&] {
    std::string all;
    for (int row = 1; row < table.Rows(); ++row) all += table.Cell(row, 0);
    return all;
  };
  table.SetRow(3);  // b
  table.SetRowHeight(2, 77);
  const auto c = table.IdOf(2);
  const auto a = table.IdOf(4);
  table.ShelveRow(4);
  table.ShelveRow(2);
  EXPECT_EQ(names(), "db");
  EXPECT_EQ(table.Row(), 2);
  EXPECT_EQ(table.RowOf(c), 0);
  EXPECT_THAT(table.ShelvedIds(), testing::ElementsAre(c, a));
  table.AddItem("e", 1);
  table.AddShelved(std::make_shared<MadeRow>(
      [] { return RowContent{.cells = {"f"}, .data = "", .height = 1}; }));
  EXPECT_EQ(names(), "edb");
  table.UnshelveRow(c);
  EXPECT_EQ(names(), "edcb");
  EXPECT_EQ(table.RowHeight(table.RowOf(c)), 77);
  table.RemoveLowest();
  EXPECT_FALSE(table.IsShelved(a));
  table.RemoveLowest();
  EXPECT_EQ(names(), "edc");
  table.UnshelveRow(table.ShelvedIds()[0]);
  EXPECT_EQ(names(), "fedc");
  EXPECT_EQ(table.Row(), 3) << "the selection moves down with its row";
  EXPECT_THROW(table.UnshelveRow(a), Failure);
  table.ShelveRow(1);
  table.SetRows(1);
  EXPECT_EQ(table.Shelved(), 0);
}

}  // namespace
}  // namespace sentrel
