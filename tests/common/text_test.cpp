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
