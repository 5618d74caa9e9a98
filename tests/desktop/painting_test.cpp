#include <gtest/gtest.h>

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
    const QImage picture = Picture();
    QRegion ink;
    for (int y = area.top(); y <= area.bottom(); ++y) {
      for (int x = area.left(); x <= area.right(); ++x) {
        if (picture.pixelColor(x, y) != page) ink += QRect(x, y, 1, 1);
      }
    }
    return ink.boundingRect();
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
    if (col == 0) {
      EXPECT_NEAR(ink.center().x(), cell.center().x(), 3);
    } else {
      EXPECT_NEAR(ink.left(), cell.left() + RowLayouts::kMarginX, 2);
    }
  }
}

TEST_F(PaintingTest, TheSelectionIsFilledFromEdgeToEdge) {
  for (const char* row : {"c", "b", "a"}) AddRow(row, 40);
  table.SetRow(1);
  table.SetRowSel(2);
  for (const int row : {1, 2, 3}) {
    const QRect cells = Inside(row, 0).united(Inside(row, 1));
    const QImage picture = Picture();
    for (const QPoint& corner : {cells.topLeft(), cells.bottomRight(),
                                 QPoint(view.viewport()->width() - 1, cells.center().y())}) {
      EXPECT_EQ(picture.pixelColor(corner), row < 3 ? kSelected : kPage) << row;
    }
    const QImage text = picture.copy(Inside(row, 0));
    bool light = false;
    for (int x = 0; x < text.width() * text.height(); ++x) {
      const QColor color = text.pixelColor(x % text.width(), x / text.width());
      light = light || (color.red() > 150 && color.blue() < 100);
    }
    EXPECT_EQ(light, row < 3) << "letters of row " << row;
  }
}

TEST_F(PaintingTest, AnEmptyTableSaysWhyWithinItsWidthInAnyColours) {
  table.SetEmptyText("No traps yet, for a reason that takes a good many words to tell");
  for (const auto& [page, text] :
       {std::pair{QColor(Qt::white), QColor(Qt::black)}, {QColor(30, 30, 30), QColor(Qt::white)}}) {
    SetColors(page, text);
    for (const int width : {500, 160}) {
      view.resize(width, 400);
      const QRect whole = view.viewport()->rect();
      const QRect ink = Ink(whole, page);
      EXPECT_GT(ink.left(), 0);
      EXPECT_LT(ink.right(), width - 1);
      EXPECT_NEAR(ink.center().x(), whole.center().x(), 5);
      EXPECT_NEAR(ink.center().y(), whole.center().y(), 5);
      EXPECT_EQ(ink.height() > QFontMetrics(view.font()).height(), width < 500) << "lines";
    }
    const QImage picture = Picture();
    int contrast = 0;
    for (int i = 0; i < picture.width() * picture.height(); ++i) {
      const QColor color = picture.pixelColor(i % picture.width(), i / picture.width());
      contrast = std::max(contrast, std::abs(color.lightness() - page.lightness()));
    }
    EXPECT_GT(contrast, 180);
  }
}

TEST_F(PaintingTest, TheTextOfAnEmptyTableFollowsItsReasonAndGoesWithTheFirstRow) {
  const auto isTold = [&](const char* text) {
    return QTest::qWaitFor([&] { return view.accessibleDescription() == text; });
  };
  for (const char* reason : {"Paused", "No traps yet"}) {
    table.SetEmptyText(reason);
    EXPECT_TRUE(isTold(reason));
    EXPECT_FALSE(Ink(view.viewport()->rect()).isEmpty());
  }
  AddRow("", 20);
  EXPECT_TRUE(isTold(""));
  EXPECT_TRUE(Ink(view.viewport()->rect().adjusted(0, 20, 0, 0)).isEmpty());
}

}  // namespace
}  // namespace sentrel
