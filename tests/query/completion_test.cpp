#include "query/completion.h"

#include <gmock/gmock.h>

namespace sentrel::query {
namespace {

using testing::ElementsAreArray;

TEST(CompletionTest, OffersKeysNamesAndValuesForTheWordAtTheCaret) {
  const KnownNames known{.notifications = {"linkUp", "linkDown", "coldStart", "linkDown"},
                         .bindings = {"ifIndex", "ifDescr"}};
  const struct {
    std::string text;
    std::size_t at;
    std::vector<std::string> texts;
  } cases[] = {
      {"", 0, {}},
      {"f", 0, {"from:"}},
      {"link -VER", 6, {"version:"}},
      {"(if", 1, {"ifDescr=", "ifIndex="}},
      {"trap:LINK", 5, {"linkDown", "linkUp"}},
      {"-trap:", 6, {"coldStart", "linkDown", "linkUp"}},
      {"level:a", 6, {"auth"}},
      {"version:", 8, {"1", "2c", "3"}},
      {"kind:cl", 5, {"clear"}},
      {"nokey:l", 6, {}},
      {"from:10", 5, {}},
      {"trap:linkUp", 5, {}},
  };
  for (const auto& c : cases) {
    const Completion completion = Complete(c.text + " behind", c.text.size(), known);
    EXPECT_EQ(completion.at, c.at) << c.text;
    EXPECT_THAT(completion.texts, ElementsAreArray(c.texts)) << c.text;
  }
}

TEST(CompletionTest, IsBounded) {
  KnownNames known;
  for (int i = 0; i < 1'000; ++i) known.notifications.push_back("trap" + std::to_string(i));
  EXPECT_EQ(Complete("trap:t", 6, known).texts.size(), kMostCompletions);
}

}  // namespace
}  // namespace sentrel::query
