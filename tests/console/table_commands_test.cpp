#include <algorithm>
#include <cstring>

#include "common/failure.h"
#include "window_fixture.h"

namespace sentrel {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

/// Rows 1 to 5 hold A to E; the details of a trap have two lines.
struct TableCommandsTest : WindowTest {
  TableCommandsTest() {
    table.SetEvents(&tableCommands);
    Fill("ABCDE");
  }
  void Fill(const std::string& letters) {
    table.SetRows(1);
    table.SetCols(2);
    table.SetWholeRows(true);
    table.SetCell(0, 0, "Title");
    table.SetCell(0, 1, "Details");
    for (const char letter : letters) {
      table.AddItem(std::string(1, letter) + "\ta\r\nb", table.Rows());
    }
  }
  void Select(int row, int rowSel) {
    table.SetRow(row);
    table.SetRowSel(rowSel);
  }
  std::string Left() {
    std::string letters;
    for (int row = 1; row < table.Rows(); ++row) letters += table.Cell(row, 0);
    return letters;
  }
};

TEST_F(TableCommandsTest, WorkOnTheSelectionWhereverItBegan) {
  const struct {
    int row, rowSel;
    const char *copied, *left;
  } cases[] = {
      {0, 0, "Title\tDetails", "ABCDE"},
      {1, 1, "A\ta\r\nb", "BCDE"},
      {2, 4, "B\ta\r\nb\r\nC\ta\r\nb\r\nD\ta\r\nb", "AE"},
      {4, 2, "B\ta\r\nb\r\nC\ta\r\nb\r\nD\ta\r\nb", "AE"},
      {5, 5, "E\ta\r\nb", "ABCD"},
      {1, 0, "Title\tDetails\r\nA\ta\r\nb", "BCDE"},
  };
  for (const auto& c : cases) {
    for (const bool cut : {false, true}) {
      SCOPED_TRACE(testing::Message() << c.row << " to " << c.rowSel);
      Fill("ABCDE");
      Select(c.row, c.rowSel);
      cut ? tableCommands.CutTraps() : tableCommands.CopyTraps();
      EXPECT_EQ(clipboard.text, c.copied);
      EXPECT_EQ(Left(), cut ? c.left : "ABCDE");
      if (!cut) tableCommands.DeleteTraps();
      EXPECT_EQ(Left(), c.left);
      tableCommands.DeleteTraps();
      EXPECT_GE(Left().size() + 1, strlen(c.left)) << "the next deletion takes no range again";
    }
  }
}

TEST_F(TableCommandsTest, SelectAllBeginsWithTheHeader) {
  Fill(std::string(999, 'X'));
  tableCommands.SelectAllTraps();
  EXPECT_EQ(std::tuple(table.Row(), table.RowSel(), table.ColSel()), std::tuple(0, 999, 1));
  clipboard.reachable = false;
  EXPECT_THROW(tableCommands.CutTraps(), Failure);
  EXPECT_EQ(table.Rows(), 1000) << "what cannot be copied is not cut";
  clipboard.reachable = true;
  tableCommands.CutTraps();
  EXPECT_EQ(table.Rows(), 1);
  EXPECT_EQ(clipboard.text.size(), std::string("Title\tDetails").size() + 999 * 8);
  EXPECT_EQ(std::count(clipboard.html.begin(), clipboard.html.end(), '\n'), 1000);
  tableCommands.SelectAllTraps();
  tableCommands.CutTraps();
  EXPECT_EQ(clipboard.text, "Title\tDetails") << "without traps the titles alone";
}

TEST_F(TableCommandsTest, HtmlKeepsCellsTogetherAndObeysNoValue) {
  table.SetCell(1, 0, "<b>&amp;");
  table.SetCell(1, 1, "=1\r\n2\n3\r4");
  Select(1, 1);
  tableCommands.CopyTraps();
  EXPECT_THAT(clipboard.html, HasSubstr("'\\@'\">&lt;b&gt;&amp;amp;</td>"));
  EXPECT_THAT(clipboard.html, HasSubstr("'\\@'\">=1<br style"));
  EXPECT_EQ(std::count(clipboard.html.begin(), clipboard.html.end(), '\n'), 1);
}

TEST_F(TableCommandsTest, OnlyTheRightButtonOpensTheMenu) {
  Select(2, 3);
  for (const int button : {1, 4, 2}) table.MouseDown(button, 0, 10, 10);
  EXPECT_THAT(log.calls, ElementsAre("PopupMenu Menu:EditMenu"));
  EXPECT_EQ(table.Row(), 2);
  EXPECT_EQ(table.RowSel(), 3);
}

TEST(FixLineEnds, CompletesLoneCarriageReturns) {
  const std::pair<const char*, const char*> cases[] = {{"", ""},
                                                       {"a\rb", "a\r\nb"},
                                                       {"a\r\nb", "a\r\nb"},
                                                       {"a\nb", "a\nb"},
                                                       {"\r\ra", "\r\n\r\na"},
                                                       {"a\r", "a\r"},
                                                       {"\r\n\r", "\r\n\r"},
                                                       {"a\r\r\nb", "a\r\n\r\nb"}};
  for (const auto& [text, fixed] : cases) EXPECT_EQ(FixLineEnds(text), fixed);
}

}  // namespace
}  // namespace sentrel
