#include <gmock/gmock.h>

#include "fakes/fake_registry.h"
#include "fakes/fake_shell.h"
#include "fakes/registry_access.h"
#include "shell/tip_choice.h"
#include "shell/tip_of_the_day.h"

namespace sentrel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kCommonKey = "Software\\VarnholtNet\\Varnholt 2003\\Common";

struct TipsTest : testing::Test {
  void SetOption(const std::string& text) {
    SetText(registry, RegistryRoot::HKEY_LOCAL_MACHINE, kCommonKey, "ToolTips", text);
  }

  CallLog log;
  FakeApplication application;
  FakeRegistry registry;
  RegistrySupport support{registry};
  FakeTipDialogFactory dialogs{log};
  TipOfTheDay tips{application, ProgramIdentity(), support, dialogs};
};

const std::vector<std::string> kShown = {"Create", "ProgramName Sentrel", "Path /opt/sentrel",
                                         "Show Benchwells"};

TEST_F(TipsTest, ComeAtStartUnlessUnwanted) {
  tips.ShowTipOfTheDay(kTipSet, false);
  EXPECT_EQ(log.calls, kShown) << "the option is absent";
  const std::pair<const char*, bool> options[] = {
      {"True", true}, {"1", true}, {"False", false}, {"", false}, {"perhaps", false}};
  for (const auto& [text, wanted] : options) {
    log.calls.clear();
    SetOption(text);
    tips.ShowTipOfTheDay(kTipSet, false);
    EXPECT_EQ(log.calls, wanted ? kShown : std::vector<std::string>()) << text;
  }
}

TEST_F(TipsTest, TheCommandShowsThemAnywayAndPassesOverEveryStepThatFails) {
  SetOption("False");
  tips.ShowTipOfTheDay(kTipSet, true);
  EXPECT_EQ(log.calls, kShown);
  for (const std::string& failing : kShown) {
    log = {{}, failing};
    tips.ShowTipOfTheDay(kTipSet, true);
    EXPECT_EQ(log.calls.size(), failing == "Create" ? 1U : kShown.size()) << failing;
  }
}

TEST_F(TipsTest, TheChoiceAboutTheStartIsKept) {
  for (const bool wanted : {false, true}) {
    SetTipsAtStart(support, wanted);
    EXPECT_EQ(GetText(registry, RegistryRoot::HKEY_LOCAL_MACHINE, kCommonKey, "ToolTips"),
              wanted ? "True" : "False");
    EXPECT_EQ(TipsAtStart(support), wanted);
  }
}

TEST(TipFile, ReadsTitlesAndParagraphs) {
  const auto tips = ReadTips(
      "# a comment\r\nFirst title\r\nOne line.\r\n\r\nA paragraph.\r\n\r\n%\r\n"
      "Title alone\r\n%\n%\nSecond\n\nText");
  ASSERT_EQ(tips.size(), 2U);
  EXPECT_EQ(tips[0].title, "First title");
  EXPECT_EQ(tips[0].text, "One line.\n\nA paragraph.");
  EXPECT_EQ(tips[1].title, "Second");
  EXPECT_EQ(tips[1].text, "Text");
  for (const char* empty : {"", "%", "\n\n", "# only a comment", "a title"})
    EXPECT_THAT(ReadTips(empty), IsEmpty()) << empty;
}

TEST(TipChoice, EveryDayHasTheTipAfterThatOfTheDayBefore) {
  const std::vector<Tip> tips = {{"a", ""}, {"b", ""}, {"c", ""}};
  const std::pair<LocalTime, LocalTime> nights[] = {{{2026, 2, 28}, {2026, 3, 1}},
                                                    {{2024, 2, 28}, {2024, 2, 29}},
                                                    {{2026, 12, 31}, {2027, 1, 1}}};
  for (const auto& [evening, morning] : nights) {
    TipChoice turned(tips, evening);
    turned.Next();
    EXPECT_EQ(turned.Current().title, TipChoice(tips, morning).Current().title) << morning.year;
    for (int turns = 0; turns < 3; ++turns) turned.Previous();
    EXPECT_EQ(turned.Current().title, TipChoice(tips, morning).Current().title) << "round";
  }
}

}  // namespace
}  // namespace sentrel
