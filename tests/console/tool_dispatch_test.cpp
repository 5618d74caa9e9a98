#include "console/tool_dispatch.h"

#include "window_fixture.h"

namespace sentrel {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

struct ToolDispatchTest : WindowTest {
  ToolDispatchTest() {
    tools.SetEvents(&dispatch);
    form.SetupTable();
    table.AddItem("", 1);
    table.SetRow(1);
  }
  std::function<void()> Noted(const char* name) {
    return [this, name] { log.Note(name); };
  }
  Commands NotedCommands() {
    return {.ShowSettingsForm = Noted("ShowSettingsForm"),
            .PrintTraps = Noted("PrintTraps"),
            .PreviewTraps = Noted("PreviewTraps"),
            .ExportTraps = [this](const std::string& method) { log.Note("Export " + method); },
            .SaveSelectedTrap = Noted("SaveSelectedTrap"),
            .SendTestTrap = Noted("SendTestTrap"),
            .ShowHelpContents = Noted("ShowHelpContents"),
            .ShowHelpOnSentrel = Noted("ShowHelpOnSentrel"),
            .ShowTipOfTheDay = Noted("ShowTipOfTheDay"),
            .ShowAboutBox = Noted("ShowAboutBox")};
  }
  void Choose(const char* id) { tools.Choose(tools.Tools(id)); }
  /// What a tool with this id does, as far as the log shows it.
  std::vector<std::string> Click(const std::string& id) {
    log.calls.clear();
    dispatch.ToolBars_ToolClick(Tool({id, "", ToolKind::Plain, ""}, tools));
    return log.calls;
  }

  ToolDispatch dispatch{window, form, tableCommands, pauseAndRaw, tools, NotedCommands()};
};

TEST_F(ToolDispatchTest, RoutesCommandsOfOtherPlacesByUpperCaseNames) {
  const std::pair<const char*, const char*> routes[] = {
      {"Main:Export", "PopupMenu Menu:ExportMenu"},
      {"Main:Print", "PrintTraps"},
      {"Main:PrintPreview", "PreviewTraps"},
      {"Main:Settings", "ShowSettingsForm"},
      {"Edit:SaveTrap", "SaveSelectedTrap"},
      {"Edit:SendTestTrap", "SendTestTrap"},
      {"Export:PDF", "Export PDF"},
      {"EXPORT:anything", "Export anything"},
      {"Help:Contents", "ShowHelpContents"},
      {"Help:Selection", "ShowHelpOnSentrel"},
      {"Help:TipOfTheDay", "ShowTipOfTheDay"},
      {"Help:About", "ShowAboutBox"},
      {"MAIN:printPREVIEW", "PreviewTraps"},
      {"Main:Exit", "Unload"},
  };
  for (const auto& [id, effect] : routes) EXPECT_EQ(Click(id).front(), effect) << id;
}

TEST_F(ToolDispatchTest, UnknownIdsDoNothing) {
  for (const char* id : {"", ":", "Main", "Export", "Main:", "Main:Copy", "Edit:Print", "Help:Exit",
                         "Menu:File", "Menu:Export", "Other:Print", " Main:Print", "Main: Print",
                         "Edit:ApplyFilter", "Edit:RemoveFilter"}) {
    EXPECT_THAT(Click(id), ElementsAre()) << id;
  }
  EXPECT_EQ(table.Rows(), 2);
}

TEST_F(ToolDispatchTest, RoutesTheTableCommands) {
  table.SetColWidth(0, 1);
  Click("Edit:Copy");
  EXPECT_EQ(clipboard.text, table.Clip());
  for (const char* id : {"Edit:Delete", "edit:CUT", "Edit:Clear"}) {
    Click("Edit:SelectAll");
    EXPECT_EQ(std::pair(table.Row(), table.RowSel()), std::pair(0, 1));
    Click(id);
    EXPECT_EQ(table.Rows(), 1) << id;
    table.AddItem("", 1);
  }
  EXPECT_GT(table.ColWidth(0), 1) << "Clear lays the table out anew";
}

TEST_F(ToolDispatchTest, ACommandThatFailsOrIsMissingEndsQuietly) {
  log.failing = "PrintTraps";
  EXPECT_NO_THROW(Click("Main:Print"));
  clipboard.reachable = false;
  EXPECT_NO_THROW(Click("Edit:Cut"));
  EXPECT_EQ(table.Rows(), 2);
  ToolDispatch bare(window, form, tableCommands, pauseAndRaw, tools, {});
  tools.SetEvents(&bare);
  for (Tool& tool : tools.Tools()) EXPECT_NO_THROW(tools.Choose(tool)) << tool.Id();
}

TEST_F(ToolDispatchTest, EveryChoiceTogglesOnceAndPauseTellsSoInTheStatusBar) {
  for (const bool on : {true, false, true}) {
    for (const char* id : {"Edit:Raw", "Edit:Pause"}) {
      Choose(id);
      EXPECT_EQ(tools.Tools(id).State(), on ? 1 : 0);
    }
    EXPECT_EQ(settings.Raw(), on);
    EXPECT_EQ(settings.Paused(), on);
    EXPECT_EQ(statusBar.Text(), on ? "Trap receiving has been paused" : "");
  }
  EXPECT_EQ(table.Rows(), 2);
}

TEST_F(ToolDispatchTest, TheEmptyTableTellsAtOnceWhatKeepsTrapsOut) {
  const struct {
    bool devices, communities;
    const char* text;
  } cases[] = {{true, false, "Device filtering is on"},
               {false, true, "Community filtering is on"},
               {true, true, "Device filtering and community filtering are on"},
               {false, false, "Waiting for traps"}};
  for (const auto& c : cases) {
    settings.SetDeviceFilterActive(c.devices);  // what the user did in the dialog
    settings.CommunityStrings()->Clear();
    if (c.communities) settings.CommunityStrings()->Add("public");
    Choose("Main:Settings");
    EXPECT_THAT(table.EmptyText(), HasSubstr(c.text));
    EXPECT_THAT(table.EmptyText(), StartsWith("Waiting for traps"));
    EXPECT_EQ(table.EmptyText() == "Waiting for traps", !c.devices && !c.communities);
    for (const char* id : {"Edit:Pause", "Edit:Clear"}) {
      Choose(id);
      EXPECT_THAT(table.EmptyText(), StartsWith("Trap receiving is paused")) << id;
    }
    Choose("Edit:Pause");
    EXPECT_THAT(table.EmptyText(), HasSubstr(c.text));
  }
}

TEST_F(ToolDispatchTest, TheSettingsCommandRefreshesTheRawToolAndTogglesNothing) {
  for (const char* failing : {"", "ShowSettingsForm"}) {
    log.failing = failing;
    settings.SetRaw(!settings.Raw());  // what the user did in the dialog
    const bool raw = settings.Raw();
    Choose("Main:Settings");
    EXPECT_EQ(tools.Tools("Edit:Raw").State(), raw ? 1 : 0);
    EXPECT_EQ(settings.Raw(), raw);
    EXPECT_FALSE(pauseAndRaw.UpdatingTools());
  }
}

}  // namespace
}  // namespace sentrel
