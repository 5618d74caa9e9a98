#include "console/saved_trap.h"

#include "console_fixture.h"
#include "fakes/fake_file_dialog.h"

namespace sentrel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct SavedTrapTest : ConsoleTest {
  FakeSNMP snmp{calls};
  FakeFileDialog dialog;
  FakeTrapWriter writer;
  SavedTrapCommand command{table, dialog, snmp, writer};
};

TEST_F(SavedTrapTest, SavesTheRowWhereTheSelectionBeganUnderTheNameAsGiven) {
  for (const char* value : {"first", "second", "third"}) {
    builder.AddTrap(TrapOf({{"1.3.6.1.4.1.9.1", value}, {"1.3.6.1.4.1.9.2", "a=b::c"}}));
  }
  table.SetRow(2);
  table.SetRowSel(3);
  dialog.choice = "a name";
  command.SaveSelectedTrap();
  const SavedTrap& saved = writer.files.at("a name");
  EXPECT_EQ(saved.StationText1 + " " + saved.StationText2, "noc Linux");
  EXPECT_EQ(saved.SourceIP + " " + saved.TrapCommunity, "192.0.2.7 public");
  EXPECT_THAT(saved.OIDs, ElementsAre("1.3.6.1.4.1.9.1", "1.3.6.1.4.1.9.2"));
  EXPECT_THAT(saved.DataTypes, ElementsAre(4, 4));
  EXPECT_THAT(saved.Values, ElementsAre("second", "a=b::c"));
  const SaveFileRequest& request = dialog.requests.at(0);
  EXPECT_EQ(request.title, "Save SNMP Trap ...");
  EXPECT_EQ(request.filter, "SNMP Trap (*.Trap)|*.Trap|All Files (*.*)|*.*");
  EXPECT_EQ(request.fileName, "");
  EXPECT_TRUE(request.promptBeforeOverwrite);
  EXPECT_GT(request.roomFor, 100);
}

TEST_F(SavedTrapTest, CancelAndFailuresEndSilentlyAndWithoutATrapThereIsNoDialog) {
  command.SaveSelectedTrap();
  builder.AddTrap(TrapOf({}));
  for (const int row : {0, 1, 2}) {
    table.AddItem("no record", 1);
    table.SetRow(row);
    table.SetRowSel(1);
    if (row < 2) command.SaveSelectedTrap();
  }
  EXPECT_THAT(dialog.requests, IsEmpty());
  table.SetRow(4);
  command.SaveSelectedTrap();  // cancelled
  dialog.choice = "";          // cannot be written
  command.SaveSelectedTrap();
  dialog.choice = "a name";
  for (const char* broken : {"no record", "SOURCEIP=a::1.3=99999=x"}) {
    table.SetRowData(4, broken);
    command.SaveSelectedTrap();
  }
  EXPECT_EQ(dialog.requests.size(), 4U);
  EXPECT_THAT(writer.files, IsEmpty());
}

}  // namespace
}  // namespace sentrel
