#include <list>

#include "export_fixture.h"

namespace sentrel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// All kinds of entry in one, as a text that tells what was done to it.
struct Entry : MenuTool, CommandButton, CommandControl, PlainMenuItem {
  explicit Entry(const std::string& newId) : id(newId), text(newId) {}
  void SetName(const std::string& name) override { text += " name:" + name; }
  void SetTag(const std::string& tag) override { text += " tag:" + tag; }
  void SetImage(int index, MenuImage image) override {
    text += " image" + std::to_string(index) + ":" + std::to_string(image);
  }
  void SetBeginGroup(bool on) override { text += on ? " group" : " no group"; }
  void SetCaption(const std::string& caption) override { text += " caption:" + caption; }
  void SetVisible(bool on) override { visible = on; }
  void SetEnabled(bool on) override { text += on ? " enabled" : " disabled"; }

  std::string id;
  std::string text;
  bool visible = true;
};

/// All kinds of menu in one.
class FakeMenu : public ToolMenu, public CommandList, public CommandPopup, public PlainMenu {
 public:
  MenuTool& AddTool(const std::string& id) override { return Add(id); }
  CommandButton& AddToolButton(const std::string& id, const std::string& caption) override {
    Add(id).SetCaption(caption);
    return entries_.back();
  }
  std::optional<MenuImage> FindImage(const std::string& name) override {
    if (!images.contains(name)) throw Failure("no picture");
    return images[name];
  }
  CommandControl& AddControl(const std::string& id) override {
    Find(id).text += " shown";
    return Find(id);
  }
  void Load(int index) override { Add(std::to_string(index)); }
  PlainMenuItem& Item(int index) override { return Find(std::to_string(index)); }

  std::vector<std::string> Shown() const {
    std::vector<std::string> texts;
    for (const Entry& entry : entries_) {
      if (entry.visible) texts.push_back(entry.text);
    }
    return texts;
  }
  void AddTemplate() { Add("0"); }

  std::map<std::string, MenuImage> images;
  std::string failing;  // the entry that cannot be added

 private:
  Entry& Add(const std::string& id) {
    if (id == failing) throw Failure("no entry");
    return entries_.emplace_back(id);
  }
  Entry& Find(const std::string& id) {
    for (Entry& entry : entries_) {
      if (entry.id == id) return entry;
    }
    throw Failure("no such entry");
  }

  std::list<Entry> entries_;
};

class ExportMenusTest : public ExportFixture {
 protected:
  FakeMenu menu_;
  ToolMenu* tool_ = &menu_;
  CommandPopup* popup_ = &menu_;
  PlainMenu* plain_ = &menu_;
};

TEST_F(ExportMenusTest, HandsOnTheAnswersOfTheEngineAndPushesNothing) {
  EXPECT_THAT(engine_.ExportMethods(2), ElementsAre("HTML", "PDF"));
  EXPECT_EQ(engine_.MethodName("PDF"), "Name of PDF");
  EXPECT_EQ(engine_.SendToMethods().at(1).caption, "PDF file");
  EXPECT_THAT(log_.calls, ElementsAre("Create", "ExportMethods(2)", "Create", "Create"));
}

TEST_F(ExportMenusTest, WithoutAnEngineOrAParentAllEndsQuietly) {
  engine_.LoadExportsMenu(popup_);
  engine_.LoadSendToMenu(static_cast<CommandPopup*>(nullptr), &menu_);
  log_.failing = "Create";
  EXPECT_THAT(engine_.ExportMethods(), IsEmpty());
  EXPECT_EQ(engine_.MethodName("PDF"), "");
  EXPECT_THAT(engine_.SendToMethods(), IsEmpty());
  engine_.LoadExportsMenu(tool_);
  engine_.LoadSendToMenu(plain_);
  EXPECT_THAT(menu_.Shown(), IsEmpty());
  EXPECT_EQ(messageBox_.text, "");
}

TEST_F(ExportMenusTest, FillsTheSubMenuOfAToolAndPassesOverAnEntryThatFails) {
  menu_.failing = "Export:HTML";
  engine_.LoadExportsMenu(tool_, nullptr, "", 3);
  engine_.LoadSendToMenu(tool_, nullptr, "X:");
  EXPECT_THAT(log_.calls, ElementsAre("Create", "ExportMethods(3)", "Create"));
  EXPECT_THAT(menu_.Shown(), ElementsAre("Export:PDF name:PDF file", "X:HTML name:Web page",
                                         "X:PDF name:PDF file"));
}

TEST_F(ExportMenusTest, APlainMenuGetsItsEntriesBehindTheHiddenTemplate) {
  menu_.AddTemplate();
  engine_.LoadSendToMenu(plain_);
  EXPECT_THAT(menu_.Shown(), ElementsAre("1 caption:Web page tag:HTML enabled",
                                         "2 caption:PDF file tag:PDF enabled"));
}

TEST_F(ExportMenusTest, FillsPopUpsWithPicturesAndGroups) {
  const std::string excel = "SendTo:Microsoft Excel 2003";
  const struct {
    bool sendTo;
    ExportChoice choice;
    std::map<std::string, MenuImage> images;
    std::string shown;
  } entries[] = {
      {false, {"PDF", "c"}, {}, "Export:PDF caption:c tag:PDF shown"},
      {false, {"PDF", "c"}, {{"PDF", 7}}, "Export:PDF caption:c tag:PDF shown image0:7"},
      {false, {"A", "c"}, {{"A", 7}, {"Export:A", 8}}, "Export:A caption:c tag:A shown image0:8"},
      {true, {"x.mapimail", "c"}, {}, "SendTo:c caption:c tag:x.mapimail shown"},
      {true, {"Excel.exe.bak", "c"}, {}, "SendTo:c caption:c tag:Excel.exe.bak shown"},
      {true, {"MailContent", "c"}, {}, "SendTo:c caption:c tag:MailContent shown group"},
      {true, {"mydocuments", "c"}, {}, "SendTo:c caption:c tag:mydocuments shown group"},
      {true, {"/o/eXcel.exe", "c"}, {}, "SendTo:c caption:c tag:/o/eXcel.exe shown group"},
      {true,
       {"k", "Microsoft Excel 2003"},
       {{"Excel", 7}},
       excel + " caption:Microsoft Excel 2003 tag:k image0:7 shown"},
      {true, {"k", "c"}, {{"c", 7}, {"SendTo:c", 8}}, "SendTo:c caption:c tag:k image0:8 shown"},
  };
  for (const auto& [sendTo, choice, images, shown] : entries) {
    script_.choices = {choice};
    menu_ = FakeMenu();
    menu_.images = images;
    if (sendTo) engine_.LoadSendToMenu(popup_, &menu_);
    if (!sendTo) engine_.LoadExportsMenu(popup_, &menu_);
    EXPECT_THAT(menu_.Shown(), ElementsAre(shown));
  }
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
