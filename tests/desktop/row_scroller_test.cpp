#include "desktop/table/row_scroller.h"

#include <gtest/gtest.h>

#include <deque>

namespace sentrel {
namespace {

/// Rows with heights, and a view 100 pixels high.
struct RowScrollerTest : testing::Test {
  void SetRows(std::initializer_list<int> rowHeights) {
    heights = rowHeights;
    scroller.SetExtent(static_cast<int>(heights.size()), kView);
  }
  void Insert(int row, int height) {
    heights.insert(heights.begin() + row - 1, height);
    scroller.RowInserted(row);
  }
  void RemoveLast() {
    heights.pop_back();
    scroller.RowRemoved(static_cast<int>(heights.size()) + 1);
  }
  void ExpectAt(int row, int above) {
    EXPECT_EQ(scroller.TopRow(), row);
    EXPECT_EQ(scroller.PixelsAbove(), above);
  }

  static constexpr int kView = 100;
  std::deque<int> heights;
  int asked = 0;
  RowScroller scroller{[this](int row) {
    ++asked;
    return heights.at(static_cast<size_t>(row - 1));
  }};
};

TEST_F(RowScrollerTest, FollowsTheNewestRowAtTheTopAndKeepsItsRowsUnderTheEyesAnywhereElse) {
  SetRows({30, 30, 30, 30, 30});
  Insert(1, 30);
  ExpectAt(1, 0);
  scroller.ScrollBy(35);
  ExpectAt(2, 5);
  Insert(1, 50);
  ExpectAt(3, 5);
  RemoveLast();
  ExpectAt(3, 5);
  while (!heights.empty()) RemoveLast();
  EXPECT_TRUE(scroller.AtTop());
}

TEST_F(RowScrollerTest, NeverLeavesTheRows) {
  for (const int height : {kView, 0, -5}) {
    SetRows({30, 30, 30, 30, 30});
    scroller.SetExtent(5, height);
    scroller.ScrollBy(1000);
    height == kView ? ExpectAt(2, 20) : ExpectAt(5, 29);
    EXPECT_EQ(scroller.Value(), scroller.Maximum());
    scroller.ScrollBy(-1000);
    EXPECT_TRUE(scroller.AtTop());
  }
  SetRows({30});
  scroller.ScrollBy(10);
  EXPECT_TRUE(scroller.AtTop());
  EXPECT_EQ(scroller.Maximum(), 0);
  EXPECT_EQ(scroller.RowAt(99), 1) << "the nearest row counts";
  SetRows({});
  EXPECT_EQ(scroller.RowAt(10), 0);
}

TEST_F(RowScrollerTest, FindsTheRowAtAHeight) {
  SetRows({30, 50, 30, 30});
  for (const auto& [y, row] :
       {std::pair{-5, 1}, {0, 1}, {29, 1}, {30, 2}, {79, 2}, {80, 3}, {999, 4}}) {
    EXPECT_EQ(scroller.RowAt(y), row) << y;
  }
}

TEST_F(RowScrollerTest, MovesAsLittleAsShowsARow) {
  SetRows({40, 40, 40, 40, 40, 150, 40});
  struct Case {
    int makeVisible, top, above;
  };
  const Case cases[] = {
      {2, 1, 0},                          // is seen already
      {3, 1, 20},                         // its end comes to the lower edge
      {5, 3, 20}, {4, 3, 20}, {1, 1, 0},  // upwards its beginning comes to the upper edge
      {6, 6, 0},                          // taller than the view: its beginning counts
      {7, 6, 90},
  };
  for (const Case& c : cases) {
    scroller.MakeVisible(c.makeVisible);
    ExpectAt(c.top, c.above);
  }
}

TEST_F(RowScrollerTest, LooksAtNoMoreRowsThanFitOnTheScreen) {
  heights.assign(100'000, 20);
  scroller.SetExtent(100'000, kView);
  scroller.SetValue(RowScroller::kUnits * 50'000);
  Insert(1, 20);
  scroller.MakeVisible(99'999);
  scroller.ScrollBy(-500);
  EXPECT_LT(asked, 200);
}

TEST_F(RowScrollerTest, TheScrollBarReachesEveryPlace) {
  SetRows({30, 90, 30, 70, 30});
  for (int value = 0; value <= scroller.Maximum(); ++value) {
    scroller.SetValue(value);
    EXPECT_NEAR(scroller.Value(), value, RowScroller::kUnits / 30.0 + 1);
  }
  EXPECT_EQ(scroller.BottomRow(), 5);
}

TEST_F(RowScrollerTest, TheEndOfTheScrollBarIsTheEndOfTheRows) {
  SetRows({30, 30, 30, 30, 30});
  for (const auto& changed : {std::deque<int>{30, 30, 30, 30, 90}, {10, 10, 10, 60, 30}}) {
    const int end = scroller.Maximum();
    scroller.SetValue(0);
    heights = changed;
    scroller.SetExtent(5, kView);
    EXPECT_EQ(scroller.Maximum(), end) << "nobody has to look at the last rows";
    scroller.SetValue(end);
    EXPECT_EQ(scroller.RowAt(kView - 1), 5);
    EXPECT_EQ(scroller.RowAt(kView), 5);
    scroller.SetExtent(5, kView);
    EXPECT_EQ(scroller.Value(), scroller.Maximum());
  }
}

}  // namespace
}  // namespace sentrel
