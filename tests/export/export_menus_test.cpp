#include <list>

#include "export_fixture.h"

namespace sentrel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// All three kinds of menu in one: each notes what is done to it, with the id that it bears.
class NotedMenu : public ToolMenu,
                  public CommandList,
                  public CommandPopup,
                  public PlainMenu,
                  protected Noting {
 public:
  using Noting::Noting;

  MenuTool& AddTool(const std::string& id) override { return NewEntry("AddTool", id); }
  CommandButton& AddToolButton(const std::string& id, const std::string& caption) override {
    return NewEntry("AddToolButton", id + "|" + caption);
  }
  std::optional<MenuImage> FindImage(const std::string& name) override {
    log_.Note("FindImage " + name);
    return name == image ? std::optional<MenuImage>(7) : std::nullopt;
  }
  CommandControl& AddControl(const std::string& id) override { return NewEntry("AddControl", id); }
  void Load(int index) override { NewEntry("Load", std::to_string(index)); }
  PlainMenuItem& Item(int index) override {
    item_.id = std::to_string(index);
    return item_;
  }

  std::string image;

 private:
  struct Entry : MenuTool, CommandButton, CommandControl, PlainMenuItem {
    Entry(CallLog& callLog, std::string entryId) : log(callLog), id(std::move(entryId)) {}
    void SetName(const std::string& name) override { log.Note(id + ".Name=" + name); }
    void SetTag(const std::string& tag) override { log.Note(id + ".Tag=" + tag); }
    void SetImage(int index, MenuImage number) override {
      log.Note("Image(" + std::to_string(index) + ")=" + std::to_string(number));
    }
    void SetBeginGroup(bool) override { log.Note(id + ".BeginGroup"); }
    void SetCaption(const std::string& caption) override { log.Note(id + ".Caption=" + caption); }
    void SetVisible(bool on) override { log.Note(id + (on ? ".Show" : ".Hide")); }
    void SetEnabled(bool on) override { log.Note(id + (on ? ".Enable" : ".Disable")); }
    CallLog& log;
    std::string id;
  };

  Entry& NewEntry(const std::string& call, const std::string& id) {
    log_.Note(call + " " + id);
    return entries_.emplace_back(log_, id.substr(0, id.find('|')));
  }

  std::list<Entry> entries_;
  Entry item_{log_, ""};
};

class ExportMenusTest : public ExportFixture {
 protected:
  CallLog menuLog_;
  NotedMenu menu_{menuLog_};
};

TEST_F(ExportMenusTest, HandsOnTheAnswersOfTheEngineAndPushesNothing) {
  EXPECT_THAT(engine_.ExportMethods(2), ElementsAre("HTML", "PDF"));
  EXPECT_EQ(engine_.MethodName("PDF"), "Name of PDF");
  EXPECT_EQ(engine_.SendToMethods().at(1).caption, "PDF file");
  EXPECT_THAT(log_.calls, ElementsAre("Create", "ExportMethods(2)", "Create", "Create"));
}

TEST_F(ExportMenusTest, WithoutAnEngineOrAParentAllEndsQuietly) {
  engine_.LoadExportsMenu(static_cast<CommandPopup*>(&menu_));
  engine_.LoadSendToMenu(static_cast<CommandPopup*>(nullptr), &menu_);
  log_.failing = "Create";
  EXPECT_THAT(engine_.ExportMethods(), IsEmpty());
  EXPECT_EQ(engine_.MethodName("PDF"), "");
  EXPECT_THAT(engine_.SendToMethods(), IsEmpty());
  engine_.LoadExportsMenu(static_cast<ToolMenu*>(&menu_));
  engine_.LoadSendToMenu(static_cast<PlainMenu*>(&menu_));
  EXPECT_THAT(menuLog_.calls, IsEmpty());
  EXPECT_EQ(messageBox_.text, "");
}

TEST_F(ExportMenusTest, FillsTheSubMenuOfATool) {
  engine_.LoadExportsMenu(static_cast<ToolMenu*>(&menu_), nullptr, "", 3);
  EXPECT_THAT(log_.calls, ElementsAre("Create", "ExportMethods(3)"));
  EXPECT_THAT(menuLog_.calls, ElementsAre("AddTool Export:HTML", "Export:HTML.Name=Web page",
                                          "AddTool Export:PDF", "Export:PDF.Name=PDF file"));
  menuLog_ = {{}, "AddTool Export:HTML"};
  engine_.LoadExportsMenu(static_cast<ToolMenu*>(&menu_));
  EXPECT_THAT(menuLog_.calls,
              ElementsAre("AddTool Export:HTML", "AddTool Export:PDF", "Export:PDF.Name=PDF file"))
      << "a step that fails stops nothing";
}

TEST_F(ExportMenusTest, FillsAPopUpAndFallsBackToThePictureOfTheKey) {
  script_.choices = {{"PDF", "PDF file"}};
  menu_.image = "PDF";
  engine_.LoadExportsMenu(static_cast<CommandPopup*>(&menu_), &menu_, "X:");
  EXPECT_THAT(menuLog_.calls,
              ElementsAre("AddToolButton X:PDF|PDF file", "X:PDF.Tag=PDF", "AddControl X:PDF",
                          "FindImage X:PDF", "FindImage PDF", "Image(0)=7"));
}

TEST_F(ExportMenusTest, ASendToPopUpNamesEntriesByCaptionAndOpensGroups) {
  script_.choices = {{"C:\\Office\\Excel.exe", "Microsoft Excel 2003"}};
  menu_.image = "Excel";
  engine_.LoadSendToMenu(static_cast<CommandPopup*>(&menu_), &menu_);
  const std::string id = "SendTo:Microsoft Excel 2003";
  EXPECT_THAT(menuLog_.calls,
              ElementsAre("AddToolButton " + id + "|Microsoft Excel 2003",
                          id + ".Tag=C:\\Office\\Excel.exe", "FindImage SendTo:Excel",
                          "FindImage Excel", "Image(0)=7", "AddControl " + id, id + ".BeginGroup"));
}

TEST_F(ExportMenusTest, OnlyThreeTargetsOpenAGroup) {
  const std::pair<const char*, bool> targets[] = {{"MailContent", true},
                                                  {"mydocuments", true},
                                                  {"/opt/office/EXCEL.EXE", true},
                                                  {"Excel.exe.bak", false},
                                                  {"x.mapimail", false}};
  for (const auto& [key, opens] : targets) {
    script_.choices = {{key, "c"}};
    menuLog_.calls.clear();
    engine_.LoadSendToMenu(static_cast<CommandPopup*>(&menu_), &menu_);
    EXPECT_EQ(menuLog_.calls.back() == "SendTo:c.BeginGroup", opens) << key;
  }
}

TEST_F(ExportMenusTest, APlainMenuGetsItsEntriesBehindTheHiddenTemplate) {
  engine_.LoadSendToMenu(static_cast<PlainMenu*>(&menu_));
  EXPECT_THAT(menuLog_.calls, ElementsAre("Load 1", "1.Caption=Web page", "1.Tag=HTML", "1.Show",
                                          "1.Enable", "0.Hide", "Load 2", "2.Caption=PDF file",
                                          "2.Tag=PDF", "2.Show", "2.Enable", "0.Hide"));
}

TEST_F(ExportMenusTest, PicksTheFormatForATarget) {
  for (const int drawn : {0, 2, 3}) {
    EXPECT_EQ(engine_.BestExportMethod(drawn, "x.MapiMail y"), "MHTML");
    EXPECT_EQ(engine_.BestExportMethod(drawn, "MailContent"), "HTML");
  }
  EXPECT_EQ(engine_.BestExportMethod(1, "x.mapimail"), "TXT");
  for (const int unknown : {-1, 4}) EXPECT_EQ(engine_.BestExportMethod(unknown, ""), "");
}

}  // namespace
}  // namespace sentrel
