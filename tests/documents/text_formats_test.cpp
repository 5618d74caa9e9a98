#include <gmock/gmock.h>

#include <fstream>

#include "common/text.h"
#include "documents/file_formats.h"
#include "documents/unicode.h"
#include "fakes/shell.h"
#include "golden_file.h"
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

class TextFormat : public testing::TestWithParam<const char*> {};

TEST_P(TextFormat, WritesHardCellsAndAnEmptyTableAsTheGoldenFilesShow) {
  const std::string extension(FindFileFormat(GetParam())->extension);
  TableContent content = HardTable();
  ExpectGolden(Write(GetParam(), content), "hard." + extension);
  content.rows.clear();
  content.subTitle = "Nothing arrived";
  content.paragraph = "First line\r\nSecond <line>";
  content.footer = "The end";
  ExpectGolden(Write(GetParam(), content), "empty." + extension);
}

INSTANTIATE_TEST_SUITE_P(All, TextFormat, testing::Values("CDF", "Text", "HTML", "MHTML"),
                         [](const auto& format) { return std::string(format.param); });

TEST(FileFormats, LeaveWhenTheUserGivesUp) {
  CancelledEarly progress;
  for (const FileFormat& format : FileFormats())
    EXPECT_THROW(format.write(HardTable(), progress), Cancelled) << format.method;
}

TEST(CommaDelimitedFile, GivesBackEveryCell) {
  TableContent content = EmptyTable();
  content.rows = {{"a\r\nb", std::string(61'440, '"'), ",;\t'", " x ", ""}, {"", "", "", "", "z"}};
  const TemporaryFolder folder;
  std::ofstream(folder / "file.csv", std::ios::binary) << Write("CDF", content);
  EXPECT_TRUE(Output("python3 " READERS "/read_csv.py " + folder / "file.csv") ==
              "a\r\nb|" + std::string(61'440, '"') + "|,;\t'| x ||||||z|");
}

TEST(CommaDelimitedFile, GuardsFormulasAndLeavesNumbersAlone) {
  TableContent content;
  content.columns = {{"c", Alignment::Left}};
  const std::pair<const char*, std::string> cells[] = {{"=1", "'=1"},
                                                       {"+1", "+1"},
                                                       {"-1.5", "-1.5"},
                                                       {"-1-1", "'-1-1"},
                                                       {"@x", "'@x"},
                                                       {"\t=1", "\"'\t=1\""},
                                                       {"\r\n =1", "\"'\r\n =1\""},
                                                       {"＠x", "'＠x"},
                                                       {"a=1", "a=1"},
                                                       {"a,b", "\"a,b\""},
                                                       {"", ""},
                                                       {"-", "'-"},
                                                       {"1.2.3", "1.2.3"},
                                                       {"-1.2.3", "'-1.2.3"}};
  for (const auto& [cell, written] : cells) {
    content.rows = {{cell}};
    EXPECT_EQ(Write("CDF", content), "c\r\n" + written + "\r\n");
  }
}

TEST(AlignedTextFile, KeepsAHugeCellInItsColumnAndLosesNothing) {
  TableContent content = HardTable();
  content.rows = {{"t", std::string(61'440, 'x'), "next", "", "end"}};
  const std::string text = Write("Text", content);
  for (const std::string_view line : Split(text, "\r\n")) EXPECT_LE(line.size(), 160u);
  EXPECT_EQ(std::count(text.begin(), text.end(), 'x'), 61'440 + 1);  // and the one of "next"
}

TEST(WebPage, IsWellFormedAndHoldsEveryCellAsText) {
  TableContent content = HardTable();
  content.rows[3][4] = "</td></tr></table><script>alert(1)</script>\r\n" + std::string(61'440, '<');
  const TemporaryFolder folder;
  const std::string path = folder / "page.html";
  std::ofstream(path, std::ios::binary) << Write("HTML", content);
  const std::pair<const char*, std::size_t> answers[] = {
      {"count(//*[local-name()='tbody']/*)", 8},
      {"count(//*[local-name()='script'])", 0},
      {"string-length((//*[local-name()='td'])[20])", 44 + 61'440}};
  for (const auto& [question, answer] : answers) {
    EXPECT_EQ(Output(std::string("xmllint --huge --xpath \"") + question + "\" " + path),
              std::to_string(answer) + "\n");
  }
}

TEST(WebArchive, EncodesAForeignTitleAndKeepsItsLinesShort) {
  TableContent content = HardTable();
  content.title = "Ünïcödé ünïcödé ünïcödé ünïcödé ünïcödé ünïcödé";
  const std::string archive = Write("MHTML", content);
  for (const std::string_view line : Split(archive, "\r\n")) {
    EXPECT_LE(line.size(), 78u);
    EXPECT_TRUE(std::all_of(line.begin(), line.end(), [](char c) { return c >= 32 && c < 127; }));
  }
  EXPECT_NE(archive.find("Subject: =?utf-8?B?"), std::string::npos);
}

TEST(Unicode, CountsColumnsAsATerminalDoes) {
  const std::pair<const char*, std::size_t> cases[] = {
      {"abc", 3}, {"日本", 4},   {"e\u0301x", 2}, {"👩‍👩‍👧", 2},
      {"🇩🇪", 2},  {"☎️", 2}, {"שלום", 4}};
  for (const auto& [text, columns] : cases) EXPECT_EQ(DisplayWidth(text), columns) << text;
}

using Texts = std::vector<std::string_view>;

TEST(Unicode, EndsLinesAtEveryKindOfBreak) {
  const std::pair<const char*, Texts> cases[] = {
      {"", {""}}, {"a\r\nb\r\n", {"a", "b"}}, {"a\n\rb", {"a", "", "b"}}, {"\r\n", {""}}};
  for (const auto& [text, lines] : cases) EXPECT_EQ(LinesOf(text), lines);
}

TEST(Unicode, WrapsBehindBlanksAndElseAnywhere) {
  const struct {
    const char* line;
    std::size_t width;
    Texts pieces;
  } cases[] = {{"", 5, {""}},
               {"one two three", 7, {"one two", "three"}},
               {"one two", 6, {"one", "two"}},
               {"abcdefgh", 3, {"abc", "def", "gh"}},
               {"日本語", 3, {"日", "本", "語"}},
               {"日本", 1, {"日", "本"}},
               {"e\u0301e\u0301", 1, {"e\u0301", "e\u0301"}}};
  for (const auto& [line, width, pieces] : cases) EXPECT_EQ(WrapLine(line, width), pieces);
}

}  // namespace
}  // namespace sentrel
