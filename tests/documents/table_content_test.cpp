#include "documents/table_content.h"

#include <gmock/gmock.h>

namespace sentrel {
namespace {

using testing::ElementsAre;

TEST(TableContent, IsACopyThatLaterRowsDoNotReach) {
  Table table;
  table.SetCols(3);
  for (int col = 0; col < 3; ++col) table.SetCell(0, col, "T" + std::to_string(col));
  table.SetColAlignment(2, Alignment::Center);
  table.AddItem("a\tb\x01\tc", 1);

  TableContent content;
  TakeTable(table, content);
  table.AddItem("later\tx\ty", 1);
  table.SetCell(2, 0, "changed");
  EXPECT_THAT(content.rows, ElementsAre(ElementsAre("a", "b␁", "c")));

  KeepColumns({0, 2}, content);
  EXPECT_THAT(content.rows, ElementsAre(ElementsAre("a", "c")));
  EXPECT_EQ(content.columns.at(1).title, "T2");
  EXPECT_EQ(content.columns.at(1).alignment, Alignment::Center);
}

}  // namespace
}  // namespace sentrel
