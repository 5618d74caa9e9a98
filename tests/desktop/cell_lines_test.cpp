#include "desktop/table/cell_lines.h"

#include <gmock/gmock.h>

#include <QFontMetrics>

namespace sentrel {
namespace {

using testing::ElementsAre;

std::vector<std::string> Lines(const std::string& text, int width = 400) {
  std::vector<std::string> lines;
  for (const CellLine& line : CellLines(text, QFont(), width)) {
    EXPECT_EQ(line.width, QFontMetrics(QFont()).horizontalAdvance(line.text));
    lines.push_back(line.text.toStdString());
  }
  return lines;
}

std::string Repeated(const std::string& text, int times) {
  std::string all;
  for (int i = 0; i < times; ++i) all += text;
  return all;
}

TEST(CellLines, EveryLineEndBeginsALineAndHostileCharactersAreShownAndNotObeyed) {
  EXPECT_THAT(Lines(""), ElementsAre(""));
  EXPECT_THAT(Lines("a\r\nb\rc\nd"), ElementsAre("a", "b", "c", "d"));
  const std::pair<std::string, const char*> cases[] = {
      {"a\tb", "a b"},
      {"\x07\x1b[31m", "␇␛[31m"},
      {"a\u202Eb\u2028c\u0085d", "a<U+202E>b<U+2028>c<U+0085>d"},
      {"a\xFFz", "a\uFFFDz"}};
  for (const auto& [text, shown] : cases) EXPECT_THAT(Lines(text), ElementsAre(shown));
}

TEST(CellLines, MarksPileUpToALimit) {
  const std::string pile = "x" + Repeated("\u0301", 8);
  EXPECT_THAT(Lines(pile + "y" + Repeated("\u0301", 8)),
              ElementsAre(pile + "y" + Repeated("\u0301", 8)));
  EXPECT_THAT(Lines(pile + "\u0301\u0489z"), ElementsAre(pile + "\uFFFD\uFFFDz"));
  EXPECT_THAT(Lines("x" + Repeated("\U0001D165", 9)),
              ElementsAre("x" + Repeated("\U0001D165", 8) + "\uFFFD\uFFFD"));
}

TEST(CellLines, LongLinesWrapAndNoPieceIsWiderThanItsRoom) {
  const std::string words = "one two three four five six seven eight nine ten eleven twelve";
  QString joined;
  for (const CellLine& line : CellLines(words, QFont(), 120)) {
    joined += line.text;
    EXPECT_LE(QFontMetrics(QFont()).horizontalAdvance(line.text.trimmed()), 120);
    EXPECT_LE(line.width, 120);
  }
  EXPECT_EQ(joined.toStdString(), words) << "nothing is lost";
  const auto lines = CellLines(std::string(60'000, 'x'), QFont(), 300);
  EXPECT_EQ(lines.size(), kMostWrappedLines) << "however long the line";
  EXPECT_TRUE(lines.back().text.endsWith(u'…'));
}

TEST(CellLines, ACellOfAnyNumberOfLinesShowsTheFirstOfThem) {
  std::string text;
  for (int i = 0; i < 5000; ++i) text += std::to_string(i) + "\r\n";
  const auto lines = CellLines(text, QFont(), 300);
  ASSERT_EQ(lines.size(), kMostLines);
  EXPECT_EQ(lines[kMostLines - 2].text, QString::number(kMostLines - 2));
  EXPECT_EQ(lines.back().text, "…");
  EXPECT_EQ(CellLines(std::string(kMostLines - 1, '\n'), QFont(), 300).back().text, "");
}

}  // namespace
}  // namespace sentrel
