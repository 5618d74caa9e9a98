#include "common/text.h"

#include <gmock/gmock.h>

#include "common/failure.h"

namespace sentrel {
namespace {

using testing::ElementsAre;

TEST(TrimBlanks, TakesBlanksOnlyAndFromTheEndsOnly) {
  EXPECT_EQ(TrimBlanks("  a b  "), "a b");
  EXPECT_EQ(TrimBlanks("\ta\t"), "\ta\t");
  EXPECT_EQ(TrimBlanks("   "), "");
}

TEST(Split, KeepsEmptyPieces) {
  EXPECT_THAT(Split("", "."), ElementsAre(""));
  EXPECT_THAT(Split(".a..b", "."), ElementsAre("", "a", "", "b"));
  EXPECT_THAT(Split("a:::b", "::"), ElementsAre("a", ":b"));
}

TEST(SplitLines, KnowsEveryLineEnd) {
  EXPECT_THAT(SplitLines(""), ElementsAre(""));
  EXPECT_THAT(SplitLines("1\r\n2\n3\r4\v5\f6\x1C"
                         "7\x1D"
                         "8\x1E"
                         "9\u0085"
                         "10\u2028"
                         "11\u2029"),
              ElementsAre("1", "2", "3", "4", "5", "6", "7", "8", "9", "10", "11", ""));
  EXPECT_THAT(SplitLines("\n\r\n\rä€\xC2"), ElementsAre("", "", "", "ä€\xC2"));
}

TEST(IsBlank, KnowsTheWhiteSpaceOfOtherScripts) {
  for (const char* blank : {"", " \t", "\u00A0\u3000 \u2003"}) EXPECT_TRUE(IsBlank(blank)) << blank;
  for (const char* other : {"a", " \u3001", "\xE3\x80"}) EXPECT_FALSE(IsBlank(other)) << other;
}

TEST(ReplaceAll, DoesNotReadItsOwnReplacement) {
  EXPECT_EQ(ReplaceAll("a\\b\\\\", "\\", "\\\\"), "a\\\\b\\\\\\\\");
  EXPECT_EQ(ReplaceAll("1 0. 0", " ", ""), "10.0");
}

TEST(Attempt, TellsWhetherTheStepFailed) {
  EXPECT_TRUE(Attempt([] {}));
  EXPECT_FALSE(Attempt([] { throw Failure("no"); }));
}

}  // namespace
}  // namespace sentrel
