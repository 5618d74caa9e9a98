#include <gtest/gtest.h>

#include <QBitmap>
#include <QTest>

#include "desktop/table/table_view.h"

namespace sentrel {
namespace {

const QColor kPage(250, 240, 230);
const QColor kSelected(0, 0, 120);
const QColor kSelectedText(255, 255, 0);

/// A view of two columns, the first centred. What it paints is looked at as a picture.
struct PaintingTest : testing::Test {
  PaintingTest() {
    table.SetCols(2);
    table.SetWholeRows(true);
    table.SetColWidth(0, 150);
    table.SetColWidth(1, 150);
    table.SetColAlignment(0, Alignment::Center);
    table.SetRuleColor(0x6464FF);
    SetColors(kPage, Qt::black);
    view.resize(500, 400);
    view.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&view));
  }
  void SetColors(const QColor& page, const QColor& text) {
    QPalette colors = view.palette();
    colors.setColor(QPalette::Base, page);
    colors.setColor(QPalette::Text, text);
    colors.setColor(QPalette::Highlight, kSelected);
    colors.setColor(QPalette::HighlightedText, kSelectedText);
    view.setPalette(colors);
  }
  void AddRow(const char* cells, int height) {
    table.AddItem(cells, 1);
    table.SetRowHeight(1, height);
  }
  QImage Picture() {
    EXPECT_TRUE(QTest::qWaitFor([&] { return view.Header()->sectionSize(0) == 150; }));
    return view.viewport()->grab().toImage();
  }
  /// The smallest rectangle of an area with all that is painted on the page.
  QRect Ink(const QRect& area, const QColor& page = kPage) {
    return QRegion(QBitmap::fromImage(
                       Picture().copy(area).createMaskFromColor(page.rgb(), Qt::MaskInColor)))
        .boundingRect()
        .translated(area.topLeft());
  }
  template <typename Wanted>
  static bool Any(const QImage& picture, const Wanted& wanted) {
    for (int i = 0; i < picture.width() * picture.height(); ++i) {
      if (wanted(picture.pixelColor(i % picture.width(), i / picture.width()))) return true;
    }
    return false;
  }
  /// A cell without the rule at its lower edge.
  QRect Inside(int row, int col) { return view.CellRect(row, col).adjusted(0, 0, 0, -2); }

  Table table;
  TableView view{table};
};

TEST_F(PaintingTest, TextIsInTheMiddleOfItsRowAndWhereItsColumnHasIt) {
  AddRow("xxxx\txxxx", 120);
  const int line = QFontMetrics(view.font()).height();
  for (const int col : {0, 1}) {
    const QRect cell = Inside(1, col);
    const QRect ink = Ink(cell);
    ASSERT_FALSE(ink.isEmpty()) << col;
    EXPECT_NEAR(ink.center().y(), cell.center().y(), line / 2.0) << col;
    EXPECT_LE(ink.height(), line) << col;
  }
  EXPECT_NEAR(Ink(Inside(1, 0)).center().x(), Inside(1, 0).center().x(), 3);
  EXPECT_NEAR(Ink(Inside(1, 1)).left(), Inside(1, 1).left() + RowLayouts::kMarginX, 2);
}

TEST_F(PaintingTest, TheSelectionIsFilledFromEdgeToEdgeAndRulesKeepTheirColour) {
  for (const char* row : {"c", "b", "a"}) AddRow(row, 40);
  table.SetRow(1);
  table.SetRowSel(2);
  const QImage picture = Picture();
  for (const int row : {1, 2, 3}) {
    const QRect cells = Inside(row, 0).united(Inside(row, 1));
    const QPoint farEdge(view.viewport()->width() - 1, cells.center().y());
    for (const QPoint& place : {cells.topLeft(), cells.bottomRight(), farEdge}) {
      EXPECT_EQ(picture.pixelColor(place), row < 3 ? kSelected : kPage) << row;
    }
    const auto isText = [&](const QColor& color) { return color.red() > 150 && color.blue() < 99; };
    EXPECT_EQ(Any(picture.copy(Inside(row, 0)), isText), row < 3) << "letters of row " << row;
    EXPECT_EQ(picture.pixelColor(250, cells.bottom() + 2), QColor(100, 100, 255));
  }
}

TEST_F(PaintingTest, AnEmptyTableSaysWhyWithinItsWidthInAnyColours) {
  table.SetEmptyText("No traps yet, for a reason that takes a good many words to tell");
  for (const auto& [page, text] :
       {std::pair{QColor(Qt::white), QColor(Qt::black)}, {QColor(30, 30, 30), QColor(Qt::white)}}) {
    SetColors(page, text);
    const auto standsOut = [&](const QColor& color) {
      return std::abs(color.lightness() - page.lightness()) > 180;
    };
    for (const int width : {500, 160}) {
      view.resize(width, 400);
      const QRect whole = view.viewport()->rect();
      const QRect ink = Ink(whole, page);
      EXPECT_TRUE(whole.adjusted(1, 1, -1, -1).contains(ink));
      EXPECT_LT((ink.center() - whole.center()).manhattanLength(), 9);
      EXPECT_EQ(ink.height() > QFontMetrics(view.font()).height(), width < 500) << "lines";
      EXPECT_TRUE(Any(Picture(), standsOut));
    }
  }
}

TEST_F(PaintingTest, TheTextOfAnEmptyTableFollowsItsReasonAndGoesWithTheFirstRow) {
  for (const char* reason : {"Paused", "No traps yet", ""}) {
    table.SetEmptyText(*reason ? reason : "No traps yet");
    if (!*reason) AddRow("", 20);
    EXPECT_TRUE(QTest::qWaitFor([&] { return view.accessibleDescription() == reason; }));
    EXPECT_EQ(Ink(view.viewport()->rect().adjusted(0, 20, 0, 0)).isEmpty(), !*reason);
  }
}

}  // namespace
}  // namespace sentrel
