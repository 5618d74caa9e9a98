#include "desktop/table/cell_lines.h"

#include <gmock/gmock.h>

#include <QFontMetrics>

namespace sentrel {
namespace {

using testing::ElementsAre;

std::vector<std::string> Lines(const std::string& text, int width = 400) {
  std::vector<std::string> lines;
  for (const QString& line : CellLines(text, QFont(), width)) lines.push_back(line.toStdString());
  return lines;
}

TEST(CellLines, EveryLineEndBeginsALine) {
  EXPECT_THAT(Lines(""), ElementsAre(""));
  EXPECT_THAT(Lines("a\r\nb\rc\nd"), ElementsAre("a", "b", "c", "d"));
}

TEST(CellLines, HostileCharactersAreShownAndNotObeyed) {
  EXPECT_THAT(Lines("a\tb"), ElementsAre("a b"));
  EXPECT_THAT(Lines(std::string("\x07\x1b[31m", 6)), ElementsAre("␇␛[31m"));
  EXPECT_THAT(Lines("a\u202Eb\u2066c\u200Fd"), ElementsAre("a\uFFFDb\uFFFDc\uFFFDd"));
  EXPECT_THAT(Lines("a\u2028b\u0085c"), ElementsAre("a\uFFFDb\uFFFDc"));
  EXPECT_THAT(Lines("a\xFFz"), ElementsAre("a\uFFFDz"));
}

TEST(CellLines, LongLinesWrapAndNoPieceIsWiderThanItsRoom) {
  const QFontMetrics metrics{QFont()};
  const std::string words = "one two three four five six seven eight nine ten eleven twelve";
  const auto lines = CellLines(words, QFont(), 120);
  EXPECT_GT(lines.size(), 2);
  EXPECT_EQ(lines.join("").toStdString(), words) << "nothing is lost";
  for (const QString& line : lines) EXPECT_LE(metrics.horizontalAdvance(line.trimmed()), 120);
}

TEST(CellLines, ALineOfAnyLengthTakesAFewLines) {
  const auto lines = CellLines(std::string(60'000, 'x'), QFont(), 300);
  EXPECT_EQ(lines.size(), kMostWrappedLines);
  EXPECT_TRUE(lines.back().endsWith(u'…'));
}

}  // namespace
}  // namespace sentrel
