#include "console/table_filter.h"

#include "console_fixture.h"

namespace sentrel {
namespace {

using namespace std::chrono_literals;

/// Traps that say "1.2 = word".
struct TableFilterTest : ConsoleTest {
  TableFilterTest() { builder.SetFilter(&filter); }
  void Add(const std::vector<std::string>& words) {
    for (const std::string& word : words) builder.AddTrap(TrapOf({{"1.2", word}}));
  }
  std::string Shown() {
    std::string words;
    for (int row = 1; row < table.Rows(); ++row) {
      words += table.Cell(row, 4).substr(std::string("1.2 = ").size()) + " ";
    }
    return words;
  }
  void Filter(const std::string& text) {
    EXPECT_FALSE(filter.SetText(text, {}));
    while (filter.Continue(1s)) {
    }
  }

  TableFilter filter{table, mibs};
};

TEST_F(TableFilterTest, ShowsWhatFitsOldAndNewAndThenAllInOrder) {
  Add({"red", "green", "dark red"});
  Filter("red");
  EXPECT_EQ(Shown(), "dark red red ");
  EXPECT_EQ(table.ChoiceText(), "Filter: red");
  Add({"blue", "light red"});
  EXPECT_EQ(Shown(), "light red dark red red ");
  Filter("-red");
  EXPECT_EQ(Shown(), "blue green ");
  Filter("");
  EXPECT_EQ(Shown(), "light red blue dark red green red ");
  EXPECT_EQ(table.ChoiceText(), "");
  EXPECT_EQ(table.Shelved(), 0);
}

TEST_F(TableFilterTest, ABadQueryLeavesTheLastGoodOneInForce) {
  Add({"red", "green"});
  Filter("red");
  EXPECT_TRUE(filter.SetText("(red", {}));
  EXPECT_EQ(filter.Text(), "red");
  EXPECT_EQ(Shown(), "red ");
  Add({"green"});
  EXPECT_EQ(Shown(), "red ");
}

TEST_F(TableFilterTest, TheBoundCountsAllAndTheOldestGoesShownOrNot) {
  Add({"red"});
  for (int i = 1; i < kMostTraps; ++i) Add({"green"});
  Filter("red");
  EXPECT_EQ(Shown(), "red ");
  Add({"green"});
  EXPECT_EQ(Shown(), "");
  EXPECT_EQ(table.Shelved(), kMostTraps);
  Add({"red"});
  EXPECT_EQ(Shown(), "red ");
  EXPECT_EQ(table.Shelved(), kMostTraps - 1);
}

TEST_F(TableFilterTest, DeletingMeansTheShownRowsAndClearingAll) {
  Add({"red", "green", "red"});
  Filter("red");
  table.RemoveItem(1);
  Filter("");
  EXPECT_EQ(Shown(), "green red ");
  Filter("red");
  table.SetRows(1);
  Filter("");
  EXPECT_EQ(Shown(), "");
}

TEST_F(TableFilterTest, TheSelectionComesBackUnlessTheUserHasChosenAnother) {
  Add({"red", "green", "blue", "red"});
  table.SetRow(3);
  table.SetRowSel(2);
  Filter("red");
  Filter("red -x");
  Filter("");
  EXPECT_EQ(table.Row(), 3);
  EXPECT_EQ(table.RowSel(), 2);
  Filter("red");
  table.SetRow(1);
  Add({"red"});
  Filter("");
  EXPECT_EQ(table.Row(), 2) << "the same trap, a row further down";
  EXPECT_EQ(table.RowSel(), 2);
}

TEST_F(TableFilterTest, JudgesInSlices) {
  Add({"red", "green", "red", "green"});
  EXPECT_FALSE(filter.SetText("green", {}));
  int slices = 1;
  while (filter.Continue(0ms)) ++slices;
  EXPECT_EQ(slices, 4);
  EXPECT_EQ(Shown(), "green green ");
  EXPECT_FALSE(filter.SetText("red", {}));
  EXPECT_TRUE(filter.Continue(0ms));
  table.SetRows(1);
  while (filter.Continue(0ms)) {
  }
  EXPECT_EQ(Shown(), "") << "rows that are gone meanwhile are passed over";
}

}  // namespace
}  // namespace sentrel
