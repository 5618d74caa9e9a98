#include "controls/auto_combo.h"

#include <gmock/gmock.h>

#include "fakes/fake_registry.h"
#include "fakes/registry_access.h"

namespace sentrel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct AutoComboTest : testing::Test {
  AutoCombo Combo(const std::string& name, const std::string& application = "Sentrel") {
    AutoCombo combo(registry);
    combo.SetHistoryApplication(application);
    combo.SetHistoryName(name);
    combo.LoadHistory();
    return combo;
  }
  FakeRegistry registry;
};

TEST_F(AutoComboTest, RemembersTheTwentyNewestOnceEachBeyondTheRun) {
  AutoCombo combo = Combo("Target");
  EXPECT_EQ(combo.Text(), "");
  int told = 0;
  combo.SetObserver([&] { ++told; });
  for (const char* text : {"a", "a"}) combo.SetText(text);
  EXPECT_EQ(told, 1) << "of changes only";
  for (int i = 0; i < 25; ++i) combo.AddToHistory("host" + std::to_string(i));
  for (const char* text : {"host10", "host24", "HOST24"}) combo.AddToHistory(text);
  combo.AddToHistory(combo.History().back());
  EXPECT_EQ(registry.changes, 0) << "only SaveHistory stores";
  combo.SaveHistory();
  EXPECT_EQ(registry.changes, 1);
  EXPECT_EQ(combo.History().size(), AutoCombo::kRemembered);
  const AutoCombo next = Combo("Target");
  EXPECT_EQ(next.Text(), "host6");
  EXPECT_EQ(next.History(), combo.History());
  EXPECT_THAT(std::vector(next.History().begin(), next.History().begin() + 5),
              ElementsAre("host6", "HOST24", "host24", "host10", "host23"));
  EXPECT_EQ(next.History().back(), "host7");
  EXPECT_TRUE(registry.AllClosed());
}

TEST_F(AutoComboTest, EveryListIsItsOwnAndTheUsers) {
  AutoCombo combo = Combo("Target");
  combo.AddToHistory("ü =\\");
  combo.SaveHistory();
  EXPECT_EQ(GetText(registry, RegistryRoot::HKEY_CURRENT_USER,
                    "Software\\VarnholtNet\\Sentrel\\History\\Target", "1"),
            "ü =\\");
  EXPECT_THAT(Combo("Community").History(), IsEmpty());
  EXPECT_THAT(Combo("Target", "Other").History(), IsEmpty());
  EXPECT_THAT(Combo("Target").History(), ElementsAre("ü =\\"));
}

TEST_F(AutoComboTest, AStoreThatCannotBeReachedIsDoneWithout) {
  registry.unreachable = true;
  AutoCombo combo = Combo("Target");
  combo.AddToHistory("a");
  combo.SetText("b");
  combo.SaveHistory();
  EXPECT_THAT(combo.History(), ElementsAre("a"));
  combo.LoadHistory();
  EXPECT_THAT(combo.History(), IsEmpty()) << "loading forgets what was not saved";
  EXPECT_EQ(combo.Text(), "");
}

}  // namespace
}  // namespace sentrel
