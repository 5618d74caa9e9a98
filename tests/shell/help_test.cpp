#include <gmock/gmock.h>

#include "fakes/fake_registry.h"
#include "fakes/fake_shell.h"
#include "fakes/registry_access.h"
#include "shell/file_name_of.h"
#include "shell/help_benchwell.h"

namespace sentrel {
namespace {

using testing::ElementsAre;

TEST(FileNameOf, GivesTheLastComponent) {
  const struct {
    const char* path;
    bool cutExtension;
    const char* expected;
  } cases[] = {{"c:/a/b.txt", false, "b.txt"}, {"C:x.tar.gz", true, "x.tar"},
               {"noext", true, "noext"},       {".cfg", true, ""},
               {"/usr/bin/", false, ""},       {"a\\b/c.D", true, "c"},
               {"a.b/c", true, "c"},           {"a/b:c", false, "c"}};
  for (const auto& [path, cutExtension, expected] : cases)
    EXPECT_EQ(FileNameOf(path, cutExtension), expected) << path;
}

struct HelpTest : testing::Test {
  void SetHelpDirectory(const std::string& folder) {
    SetText(registry, RegistryRoot::HKEY_CURRENT_USER, "Software\\VarnholtNet\\Benchwell",
            "HelpDirectory", folder);
  }

  CallLog log;
  FakeApplication application;
  FakeRegistry registry;
  FakeBrowserFactory browsers{log};
  FakeMessageBox messageBox{log};
  Help_Benchwell help{application, RegistrySupport(registry), browsers, messageBox};
};

const std::string kContents = "default.htm?context=BenchwellDoc&topic=BenchwellPHIntroducingTools";
const std::string kOnSentrel =
    "default.htm?context=BenchwellDoc&topic=BenchwellPHSNMPToolsSNMPSentrel";

TEST_F(HelpTest, TheCommandsOpenThePagesBelowTheProgramFolder) {
  help.ShowHelpContents();
  help.ShowHelpOnSentrel();
  EXPECT_THAT(log.calls, ElementsAre("Create", "Browse file:///opt/sentrel\\Help\\" + kContents,
                                     "Create", "Browse file:///opt/sentrel\\Help\\" + kOnSentrel));
}

TEST_F(HelpTest, AnotherFolderIsTakenAsItStands) {
  for (const char* folder : {"D:\\Docs", "D:\\Docs\\", "/srv/my help?/%20"}) {
    SetHelpDirectory(folder);
    EXPECT_EQ(help.HelpTopicUrl("BenchwellDoc", "BenchwellPHIntroducingTools"),
              std::string("file://") + folder + "\\" + kContents);
  }
  for (const bool unreachable : {false, true}) {
    SetHelpDirectory("");
    registry.unreachable = unreachable;
    EXPECT_EQ(help.HelpTopicUrl("c", "t"),
              "file:///opt/sentrel\\Help\\default.htm?context=c&topic=t");
  }
}

TEST_F(HelpTest, TheHelpKeyOpensThePageBesideTheHelpFile) {
  help.ShowHelpContext("/opt/sentrel/Help/Varnholt.chm", 9100, "SendTrap");
  EXPECT_EQ(log.calls.back(),
            "Browse file:///opt/sentrel/Help/default.htm?context=9100&topic=SendTrap");
}

TEST_F(HelpTest, EachFailureGivesOneMessage) {
  log.failing = "Create";
  help.ShowHelpContents();
  EXPECT_THAT(log.calls, ElementsAre("Create", "MessageBox"));
  EXPECT_EQ(messageBox.Shown(), std::tuple("Sentrel",
                                           "Varnholt Browser is not installed.\rVisit " +
                                               std::string(kMakersSite) + " for a copy.",
                                           MessageIcon::Exclamation));

  log = {{}, "Browse file:///opt/sentrel\\Help\\" + kContents};
  help.ShowHelpContents();
  EXPECT_THAT(log.calls, ElementsAre("Create", log.failing, "MessageBox"));
  EXPECT_EQ(messageBox.Shown(),
            std::tuple("URL Failed", "Web Page not Opened", MessageIcon::Exclamation));
}

}  // namespace
}  // namespace sentrel
