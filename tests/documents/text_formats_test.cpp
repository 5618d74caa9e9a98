#include <gmock/gmock.h>

#include <cstdlib>
#include <fstream>

#include "common/text.h"
#include "documents/file_formats.h"
#include "documents/unicode.h"
#include "fakes/shell.h"
#include "hard_table.h"

namespace sentrel {
namespace {

using testing::ElementsAre;

TEST(TableContent, IsACopyThatLaterRowsDoNotReach) {
  Table table;
  table.SetCols(3);
  for (int col = 0; col < 3; ++col) table.SetCell(0, col, "T" + std::to_string(col));
  table.SetColAlignment(2, Alignment::Center);
  table.AddItem("a\tb\x01\u202E\tc", 1);

  TableContent content;
  TakeTable(table, content);
  table.AddItem("later\tx\ty", 1);
  table.SetCell(2, 0, "changed");
  EXPECT_THAT(content.rows, ElementsAre(ElementsAre("a", "b␁<U+202E>", "c")));

  KeepColumns({0, 2}, content);
  EXPECT_THAT(content.rows, ElementsAre(ElementsAre("a", "c")));
  EXPECT_EQ(content.columns.at(1).title, "T2");
  EXPECT_EQ(content.columns.at(1).alignment, Alignment::Center);
}

std::string Write(const char* method, const TableContent& content) {
  NoProgress progress;
  return FindFileFormat(method)->write(content, progress);
}

class TextFormat : public testing::TestWithParam<const char*> {
 protected:
  /// Expects a file of that of tests/data/export. With SENTREL_NEW_GOLDEN set in the environment
  /// that one is written instead, to be looked at before it is committed.
  void ExpectGolden(const std::string& name, const TableContent& content) {
    const std::string text = Write(GetParam(), content);
    const std::string path = std::string(TEST_DATA) + "/export/" + name + "." +
                             std::string(FindFileFormat(GetParam())->extension);
    if (!std::getenv("SENTREL_NEW_GOLDEN")) {
      EXPECT_EQ(text, ReadFile(path)) << path;
      return;
    }
    std::ofstream(path, std::ios::binary) << text;
    FAIL() << "wrote " << path;
  }
};

TEST_P(TextFormat, WritesHardCellsAsTheGoldenFileShows) {
  ExpectGolden("hard", HardTable());
}

TEST_P(TextFormat, WritesAnEmptyTable) {
  TableContent content = HardTable();
  content.rows.clear();
  content.subTitle = "Nothing arrived";
  content.paragraph = "First line\r\nSecond <line>";
  content.footer = "The end";
  ExpectGolden("empty", content);
}

INSTANTIATE_TEST_SUITE_P(All, TextFormat, testing::Values("CDF", "Text", "HTML", "MHTML"),
                         [](const auto& format) { return std::string(format.param); });

TEST(FileFormats, LeaveWhenTheUserGivesUp) {
  CancelledEarly progress;
  for (const FileFormat& format : FileFormats())
    EXPECT_THROW(format.write(FullTable(), progress), Cancelled) << format.method;
}

/// A reader of RFC 4180: inside quotes only a quote counts, and one that is doubled is text.
std::vector<std::vector<std::string>> ReadCsv(const std::string& text) {
  std::vector<std::vector<std::string>> records{{""}};
  bool quoted = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '"') {
      quoted = !quoted;
      if (quoted && i > 0 && text[i - 1] == '"') records.back().back() += '"';
    } else if (!quoted && text[i] == ',') {
      records.back().emplace_back();
    } else if (!quoted && text.compare(i, 2, "\r\n") == 0) {
      records.push_back({""});
      ++i;
    } else {
      records.back().back() += text[i];
    }
  }
  records.pop_back();
  return records;
}

TEST(CommaDelimitedFile, GivesBackEveryCellOfAFullTable) {
  TableContent content = FullTable();
  content.rows[500][4] = std::string(61'440, '"');
  const auto records = ReadCsv(Write("CDF", content));
  ASSERT_EQ(records.size(), 1000u);
  EXPECT_TRUE(std::equal(content.rows.begin(), content.rows.end(), records.begin() + 1));
}

TEST(CommaDelimitedFile, GuardsFormulasAndLeavesNumbersAlone) {
  TableContent content;
  content.columns = {{"c", Alignment::Left}};
  const struct {
    const char* cell;
    bool guarded;
  } cells[] = {{"=1", true},   {"+1", false},     {"-1.5", false},  {"-1-1", true},  {"@x", true},
               {"\t=1", true}, {"\r\n =1", true}, {"＠x", true},    {"a=1", false},  {"a,b", false},
               {"", false},    {"-", true},       {"1.2.3", false}, {"-1.2.3", true}};
  for (const auto& [cell, guarded] : cells) {
    content.rows = {{cell}};
    const std::string expected = (guarded ? "'" : "") + std::string(cell);
    EXPECT_EQ(ReadCsv(Write("CDF", content)).at(1).at(0), expected);
  }
}

TEST(AlignedTextFile, KeepsAHugeCellInItsColumnAndLosesNothing) {
  TableContent content = HardTable();
  content.rows = {{"t", std::string(61'440, 'x'), "next", "", "end"}};
  const std::string text = Write("Text", content);
  std::size_t letters = 0;
  for (const std::string_view line : Split(text, "\r\n")) {
    EXPECT_LE(line.size(), 160u);
    letters += static_cast<std::size_t>(std::count(line.begin(), line.end(), 'x'));
  }
  EXPECT_EQ(letters, 60u * 1024 + 1);  // and the one of "next"
}

TEST(WebPage, IsWellFormedAndHoldsEveryCellAsText) {
  TableContent content = FullTable();
  content.rows[3][4] = "</td></tr></table><script>alert(1)</script>\r\n" + std::string(61'440, '<');
  const TemporaryFolder folder;
  const std::string path = folder / "page.html";
  std::ofstream(path, std::ios::binary) << Write("HTML", content);
  const std::pair<const char*, std::size_t> answers[] = {
      {"count(//*[local-name()='tbody']/*)", 999},
      {"count(//*[local-name()='script'])", 0},
      {"string-length((//*[local-name()='td'])[20])", 44 + 60 * 1024}};
  for (const auto& [question, answer] : answers) {
    EXPECT_EQ(Output(std::string("xmllint --huge --xpath \"") + question + "\" " + path),
              std::to_string(answer) + "\n");
  }
}

TEST(WebPage, FetchesNothing) {
  const std::string page = Write("HTML", HardTable());
  for (const char* word : {"src=", "href=", "url(", "@import"}) {
    EXPECT_EQ(page.find(word), std::string::npos) << word;
  }
}

TEST(WebArchive, EncodesAForeignTitleAndKeepsItsLinesShort) {
  TableContent content = FullTable();
  content.title = "Ünïcödé ünïcödé ünïcödé ünïcödé ünïcödé ünïcödé";
  const std::string archive = Write("MHTML", content);
  for (const std::string_view line : Split(archive, "\r\n")) {
    EXPECT_LE(line.size(), 78u);
    EXPECT_TRUE(std::all_of(line.begin(), line.end(), [](char c) { return c >= 32 && c < 127; }));
  }
  EXPECT_NE(archive.find("Subject: =?utf-8?B?"), std::string::npos);
  EXPECT_NE(archive.find("Date: 5 Dec 2026 19:19:37 +0000"), std::string::npos);
}

TEST(Unicode, CountsColumnsAsATerminalDoes) {
  const std::pair<const char*, std::size_t> cases[] = {
      {"abc", 3}, {"日本", 4},   {"e\u0301x", 2}, {"👩‍👩‍👧", 2},
      {"🇩🇪", 2},  {"☎️", 2}, {"שלום", 4}};
  for (const auto& [text, columns] : cases) EXPECT_EQ(DisplayWidth(text), columns) << text;
}

TEST(Unicode, EndsLinesAtEveryKindOfBreak) {
  EXPECT_THAT(LinesOf(""), ElementsAre(""));
  EXPECT_THAT(LinesOf("a\r\nb\r\n"), ElementsAre("a", "b"));
  EXPECT_THAT(LinesOf("a\n\rb"), ElementsAre("a", "", "b"));
  EXPECT_THAT(LinesOf("\r\n"), ElementsAre(""));
}

TEST(Unicode, WrapsBehindBlanksAndElseAnywhere) {
  EXPECT_THAT(WrapLine("", 5), ElementsAre(""));
  EXPECT_THAT(WrapLine("one two three", 7), ElementsAre("one two", "three"));
  EXPECT_THAT(WrapLine("one two", 6), ElementsAre("one", "two"));
  EXPECT_THAT(WrapLine("abcdefgh", 3), ElementsAre("abc", "def", "gh"));
  EXPECT_THAT(WrapLine("日本語", 3), ElementsAre("日", "本", "語"));
  EXPECT_THAT(WrapLine("日本", 1), ElementsAre("日", "本"));
  EXPECT_THAT(WrapLine("e\u0301e\u0301", 1), ElementsAre("e\u0301", "e\u0301"));
}

}  // namespace
}  // namespace sentrel
