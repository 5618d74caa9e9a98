#include <gmock/gmock.h>

#include "fakes/fake_shell.h"
#include "shell/about_box.h"
#include "shell/file_ver_info.h"

namespace sentrel {
namespace {

using testing::ElementsAre;

const VersionRecord kOwnRecord = {0x00090002, 47, 0x00090002, 47};

struct AboutTest : testing::Test {
  AboutTest() { versions.versions["/opt/sentrel/Sentrel"] = kOwnRecord; }

  CallLog log;
  FakeApplication application;
  FakeVersionReader versions;
  FakeLocale locale;
  FakeAboutDialogFactory dialogs{log};
  AboutBox about{application, ProgramIdentity{.majorVersion = 9, .minorVersion = 2}, versions,
                 locale, dialogs};
};

const std::string kOwnVersions =
    "VersionInfo Version 9.2 May 2007\r\nSentrel Version 9.2.0.47  \r\nFree for all.\r\n";
const std::vector<std::string> kAllCalls = {"Create",
                                            "ProgramName SNMP Sentrel",
                                            "PackageName Benchwell Network Tools",
                                            "Package Benchwell",
                                            "SubTitle Receive and Log SNMP Traps",
                                            kOwnVersions,
                                            "ProgIcon the icon",
                                            "Show"};

TEST_F(AboutTest, GivesTheDialogItsTextsInOrderAndPassesOverEveryStepThatFails) {
  for (size_t i = 0; i < kAllCalls.size(); ++i) {
    log = {{}, i == 0 ? "" : kAllCalls[i]};
    about.ShowAboutBox({"the icon"}, "");
    EXPECT_EQ(log.calls, kAllCalls);
  }
  log = {{}, "Create"};
  about.ShowAboutBox({"the icon"}, "");
  EXPECT_THAT(log.calls, ElementsAre("Create")) << "no dialog, no word";
}

TEST_F(AboutTest, AGivenVersionTextReplacesTheOwnOne) {
  about.ShowAboutBox({}, "Special build");
  EXPECT_EQ(log.calls[5], "VersionInfo Special build");
}

TEST_F(AboutTest, TheVersionLineIsMadeOncePerRun) {
  about.ShowAboutBox({}, "");
  versions.written.year = 2008;
  versions.versions.clear();
  log.calls.clear();
  about.ShowAboutBox({}, "");
  EXPECT_EQ(log.calls[5],
            "VersionInfo Version 9.2 May 2007\r\nSentrel Version -1.-1.-1.-1  \r\n\r\n");
}

TEST_F(AboutTest, AProgramFileWithoutADateLeavesTheVersionsOut) {
  versions.datesFail = true;
  about.ShowAboutBox({"the icon"}, "");
  std::vector<std::string> expected = kAllCalls;
  expected.erase(expected.begin() + 5);
  EXPECT_EQ(log.calls, expected);
}

TEST_F(AboutTest, FileVerInfoReadsAndForgets) {
  versions.versions["other"] = {0x00010002, 0x00030004, 0x00050006, 0x0007FFFF};
  FileVerInfo info(application, versions);
  const auto numbers = [&info] {
    return std::vector<int>{info.FileVersionMajor(),      info.FileVersionMinor(),
                            info.FileVersionPrivate(),    info.FileVersionBuild(),
                            info.ProductVersionMajor(),   info.ProductVersionMinor(),
                            info.ProductVersionPrivate(), info.ProductVersionBuild()};
  };
  EXPECT_EQ(numbers(), std::vector<int>(8, -1));
  info.GetInfo("other");
  EXPECT_THAT(numbers(), ElementsAre(1, 2, 3, 4, 5, 6, 7, -1));
  info.GetExecutableInfo();
  EXPECT_THAT(numbers(), ElementsAre(9, 2, 0, 47, 9, 2, 0, 47));
  info.GetInfo("a text file");
  EXPECT_EQ(numbers(), std::vector<int>(8, -1));
}

}  // namespace
}  // namespace sentrel
