#include "documents/workbook.h"

#include <gmock/gmock.h>

#include <fstream>

#include "documents/file_formats.h"
#include "fakes/shell.h"
#include "hard_table.h"

namespace sentrel {
namespace {

using testing::HasSubstr;

/// Reads a workbook back with tools that know nothing of the library that wrote it.
class WorkbookTest : public testing::Test {
 protected:
  void Save(const TableContent& content) {
    NoProgress progress;
    std::ofstream(path_, std::ios::binary) << Workbook(content, progress);
  }
  std::string Part(const std::string& name) { return Output("unzip -p " + path_ + " " + name); }
  std::string Query(const std::string& part, const std::string& xpath) {
    return Output("unzip -p " + path_ + " " + part + " | xmllint --huge --xpath \"" + xpath +
                  "\" - | tr -d '\\n'");
  }
  std::string Count(const std::string& element) {
    return Query(sheet_, "count(//*[local-name()='" + element + "'])");
  }

  TemporaryFolder folder_;
  std::string path_ = folder_ / "book.xlsx";
  const char* const sheet_ = "xl/worksheets/sheet1.xml";
};

TEST_F(WorkbookTest, HoldsNothingButTexts) {
  Save(HardTable());
  EXPECT_EQ(Count("row"), "9");
  EXPECT_EQ(Count("f"), "0");
  EXPECT_EQ(Query(sheet_, "count(//*[local-name()='c'][*[local-name()='v']][not(@t='s')])"), "0");
  const std::string texts = Part("xl/sharedStrings.xml");
  for (const char* text : {">=HYPERLINK(\"http://192.0.2.9\",\"click\")<", ">-5.25<",
                           "&lt;script&gt;", "שלום עולם\nمرحبا 123", ">_x005F_x000D_<", "> blank <",
                           "👩‍👩‍👧", "nul␀ bell␇ esc␛ \ufffd", "lone\nLF and\nCR"}) {
    EXPECT_THAT(texts, HasSubstr(text));
  }
}

TEST_F(WorkbookTest, HasAHeaderThatStaysFiltersAndIsRepeatedOnPaper) {
  Save(FullTable());
  const struct {
    const char *part, *question, *answer;
  } facts[] = {
      {sheet_, "string(//*[local-name()='pane']/@state)", "frozen"},
      {sheet_, "string(//*[local-name()='pane']/@ySplit)", "1"},
      {sheet_, "string(//*[local-name()='autoFilter']/@ref)", "A1:E1000"},
      {sheet_, "string(//*[local-name()='pageSetup']/@fitToHeight)", "0"},
      {sheet_, "count(//*[local-name()='col'][@width > 10 and @width < 75])", "5"},
      {"xl/styles.xml", "count(//*[local-name()='cellXfs']/*[@numFmtId='49'])", "4"},
      {"docProps/core.xml", "string(//*[local-name()='title'])", "SNMP Traps"},
  };
  for (const auto& [part, question, answer] : facts)
    EXPECT_EQ(Query(part, question), answer) << question;
  EXPECT_THAT(Part("xl/workbook.xml"), HasSubstr("Table!$1:$1"));
}

TEST_F(WorkbookTest, ARowIsAsTallAsItsLines) {
  Save(HardTable());
  EXPECT_EQ(Query(sheet_, "string(//*[local-name()='row'][@r='2']/@ht)"), "30");
  EXPECT_EQ(Query(sheet_, "string(//*[local-name()='row'][@r='8']/@ht)"), "45");
  TableContent content = HardTable();
  content.title = "A & B";
  content.rows = {{"", "", "", "", std::string(20000, 'x')}};
  Save(content);
  EXPECT_EQ(Query(sheet_, "string(//*[local-name()='row'][@r='2']/@ht)"), "409");
  EXPECT_EQ(Query(sheet_, "string(//*[local-name()='oddHeader'])"),
            "&L&BA && B&R05-Dec-26 03:49 PM");
}

std::string Times(int count, const std::string& text) {
  std::string all;
  for (int i = 0; i < count; ++i) all += text;
  return all;
}

TEST_F(WorkbookTest, ATextTooLongForACellGoesOnBelowAndNothingOfItIsLost) {
  const std::string smiley = "😀";  // two units, four bytes
  const struct {
    std::string text;
    const char* rows;
  } texts[] = {{Times(32767, "y"), "2"},
               {Times(32768, "y"), "3"},
               {Times(16383, smiley) + "z", "2"},
               {"z" + Times(16384, smiley), "3"},
               {Times(4681, "_"), "2"},
               {Times(8500, "_x0041_"), "5"},
               {"y" + Times(8500, "_x005F_x0041_"), "8"},
               {Times(32760, "y") + "_x0041_", "3"},
               {Times(8500, "_x00zz_&<"), "4"},
               {Times(20000, "é\n") + "é", "3"}};
  for (const auto& [text, rows] : texts) {
    TableContent content;
    content.columns = {{"_x0041_", Alignment::Left}};
    content.rows = {{text}};
    Save(content);
    EXPECT_TRUE(Output("python3 " READ_FIRST_COLUMN " " + path_) == text) << text.substr(0, 20);
    EXPECT_EQ(Count("row"), rows) << text.substr(0, 20);
  }
}

TEST_F(WorkbookTest, AnEmptyTableIsAHeader) {
  TableContent content = HardTable();
  content.rows.clear();
  Save(content);
  EXPECT_EQ(Count("row"), "1");
  EXPECT_THAT(Part("xl/sharedStrings.xml"), HasSubstr(">Trap Details<"));
}

}  // namespace
}  // namespace sentrel
