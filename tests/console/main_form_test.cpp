#include "console/globals.h"
#include "window_fixture.h"

namespace sentrel {
namespace {

using testing::Contains;
using testing::ElementsAre;

constexpr const char* kPath = "/opt/sentrel/Sentrel.Toolbars";
constexpr const char* kSave = "SaveLayout /opt/sentrel/Sentrel.Toolbars";
constexpr const char* kLoad = "LoadLayout /opt/sentrel/Sentrel.Toolbars";
constexpr const char* kHints = "SetHintTime 10000";

struct MainFormTest : WindowTest {
  std::function<void()> offerTip = [this] { log.Note("Tip"); };
};

TEST_F(MainFormTest, StartsListeningBeforeTheWindowShows) {
  log.failing = "Tip";
  EXPECT_TRUE(Main(application, form, offerTip)) << "a tip that fails is no failed start";
  EXPECT_THAT(log.calls, ElementsAre(kHints, "StartListening", "Show", "Tip"));
  EXPECT_EQ(application.helpFile, "/opt/sentrel/Help/Varnholt.chm");
  EXPECT_EQ(window.caption, "SNMP Sentrel");
  EXPECT_EQ(window.helpContext, 9100);
}

TEST_F(MainFormTest, TheStoredOptionsAreShownAndANegativeResultIsNoFailure) {
  settings.SetRaw(true);
  settings.SetDeviceFilterActive(true);
  snmp.startResult = -1;
  Main(application, form, offerTip);
  EXPECT_THAT(table.EmptyText(), testing::HasSubstr("Device filtering is on"));
  EXPECT_EQ(tools.Tools("Edit:Raw").State(), 1);
  EXPECT_EQ(tools.Tools("Edit:Pause").State(), 0);
  EXPECT_THAT(log.calls, Contains("Show"));
}

TEST_F(MainFormTest, AFailedStartTellsWhyAndEndsUnseen) {
  snmp.startResult = 1;
  EXPECT_FALSE(Main(application, form, offerTip));
  EXPECT_THAT(log.calls, ElementsAre(kHints, "StartListening", "MessageBox", "Unload",
                                     "StopListening", "CloseListener", kSave));
  EXPECT_EQ(messageBox.text,
            "Cannot enable trap reception. Did you install the Microsoft SNMP Trap service and is "
            "it running ?\r\n\r\nThe reason.\r\n\r\nThe remedy.");
  EXPECT_EQ(messageBox.icon, MessageIcon::CriticalStop);
  EXPECT_EQ(messageBox.title, "Sentrel");
}

TEST_F(MainFormTest, UnloadingGoesOnPastAStepThatFails) {
  for (const char* failing : {"StopListening", "CloseListener", kSave}) {
    log = {{}, failing};
    form.Form_Unload();
    EXPECT_THAT(log.calls, ElementsAre("StopListening", "CloseListener", kSave)) << failing;
  }
}

TEST_F(MainFormTest, LaysOutTheTableClearsItAndLeavesRoomForTheStatusBar) {
  window.textHeight = 15;  // 22.5 goes to the even number
  form.SetupTable();
  table.AddItem("", 1);
  table.SetColWidth(0, 500);
  form.SetupTable();  // as the clear command does
  const std::tuple<std::string, int, Alignment> columns[] = {
      {"Trap Time", 77, Alignment::Center},
      {"IP Address", 84, Alignment::Center},
      {"Community", 98, Alignment::Center},
      {"Device Type", 140, Alignment::Left},
      {"Trap Details", 252, Alignment::Left}};
  ASSERT_EQ(table.Cols(), 5);
  for (int col = 0; col < 5; ++col) {
    EXPECT_EQ(std::tuple(table.Cell(0, col), table.ColWidth(col), table.ColAlignment(col)),
              columns[col]);
  }
  EXPECT_EQ(table.Rows(), 1);
  EXPECT_EQ(table.RowHeight(0), 22);
  EXPECT_EQ(table.RuleColor(), 0x6464FFU);
  for (const int height : {600, 10}) {
    window.inner.height = height;
    form.Form_Resize();
    EXPECT_EQ(window.table.width, 800);
    EXPECT_EQ(window.table.height, 580) << "a window too small leaves the table as it was";
  }
}

TEST_F(MainFormTest, OnlyALayoutFromBeforeTheFirstDayIsDeletedAndFailuresArePassedOver) {
  const std::pair<FakeFileSystem::File, bool> cases[] = {
      {{{2004, 8, 24, 23, 59, 59}}, false}, {{{2004, 8, 25, 0, 0, 0}}, true},
      {{{2003, 12, 31, 0, 0, 0}}, false},   {{{2004, 9, 1, 0, 0, 0}}, true},
      {{{2005, 1, 1, 0, 0, 0}}, true},      {{{2004, 8, 24, 0, 0, 0}, true}, true}};
  for (const bool fails : {false, true}) {
    files.datesFail = fails;
    log.failing = fails ? kLoad : "";
    for (const auto& [file, survives] : cases) {
      files.files = {{kPath, file}};
      log.calls.clear();
      layout.LoadToolbarLayout();
      EXPECT_EQ(files.Exists(kPath), survives || fails) << file.created.year << file.created.day;
      EXPECT_THAT(log.calls, ElementsAre(kLoad, kHints)) << "loading is asked for all the same";
    }
  }
  files.files.clear();
  log.calls.clear();
  layout.LoadToolbarLayout();
  EXPECT_THAT(log.calls, ElementsAre(kHints));
}

}  // namespace
}  // namespace sentrel
