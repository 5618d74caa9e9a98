#include "documents/workbook.h"

#include <gmock/gmock.h>

#include <fstream>

#include "documents/file_formats.h"
#include "fakes/shell.h"
#include "hard_table.h"

namespace sentrel {
namespace {

using testing::HasSubstr;

constexpr const char* kSheet = "xl/worksheets/sheet1.xml";

/// Reads a workbook back with tools that know nothing of the library that wrote it.
class WorkbookTest : public testing::Test {
 protected:
  void Save(const TableContent& content) {
    NoProgress progress;
    std::ofstream(path_, std::ios::binary) << Workbook(content, progress);
  }
  std::string Part(const std::string& name) { return Output("unzip -p " + path_ + " " + name); }
  /// The elements are named without their namespaces: "//row[1]/@ht".
  std::string Query(const std::string& xpath, const std::string& part = kSheet) {
    return Output("unzip -p " + path_ + " " + part +
                  " | sed 's/ xmlns=\"[^\"]*\"//; s/\\([<\\/]\\)[a-z]*:/\\1/g'" +
                  " | xmllint --huge --xpath \"" + xpath + "\" - 2>/dev/null | tr -d '\\n'");
  }

  TemporaryFolder folder_;
  std::string path_ = folder_ / "book.xlsx";
};

TEST_F(WorkbookTest, HoldsNothingButTexts) {
  Save(HardTable());
  EXPECT_EQ(Query("count(//row)"), "9");
  EXPECT_EQ(Query("count(//f)"), "0");
  EXPECT_EQ(Query("count(//c[v][not(@t='s')])"), "0");
  const std::string texts = Part("xl/sharedStrings.xml");
  for (const char* text : {">=HYPERLINK(\"http://192.0.2.9\",\"click\")<", ">-5.25<",
                           "&lt;script&gt;", "שלום עולם\nمرحبا 123", ">_x005F_x000D_<", "> blank <",
                           "👩‍👩‍👧", "nul␀ bell␇ esc␛ \ufffd", "lone\nLF and\nCR"}) {
    EXPECT_THAT(texts, HasSubstr(text));
  }
}

TEST_F(WorkbookTest, HasAHeaderThatStaysFiltersAndIsRepeatedOnPaper) {
  TableContent content = FullTable();
  content.title = "A & B";
  Save(content);
  const struct {
    const char *question, *answer, *part;
  } facts[] = {
      {"string(//pane/@state)", "frozen", kSheet},
      {"string(//pane/@ySplit)", "1", kSheet},
      {"string(//autoFilter/@ref)", "A1:E1000", kSheet},
      {"string(//pageSetup/@fitToHeight)", "0", kSheet},
      {"count(//col[@width > 10 and @width < 75])", "5", kSheet},
      {"string(//oddHeader)", "&L&BA && B&R05-Dec-26 03:49 PM", kSheet},
      {"count(//cellXfs/*[@numFmtId='49'])", "4", "xl/styles.xml"},
      {"string(//title)", "A & B", "docProps/core.xml"},
      {"string(//definedName[@name='_xlnm.Print_Titles'])", "Table!$1:$1", "xl/workbook.xml"},
  };
  for (const auto& [question, answer, part] : facts) {
    EXPECT_EQ(Query(question, part), answer) << question;
  }
  content.rows.clear();
  Save(content);
  EXPECT_EQ(Query("count(//row)"), "1");
}

TEST_F(WorkbookTest, ARowIsAsTallAsItsLines) {
  TableContent content = HardTable();
  content.rows.push_back({"", "", "", "", std::string(20000, 'x')});
  Save(content);
  const std::pair<const char*, const char*> heights[] = {{"2", "30"}, {"8", "45"}, {"10", "409"}};
  for (const auto& [row, height] : heights) {
    EXPECT_EQ(Query("string(//row[@r='" + std::string(row) + "']/@ht)"), height);
  }
}

std::string Times(int count, const std::string& text) {
  std::string all;
  for (int i = 0; i < count; ++i) all += text;
  return all;
}

TEST_F(WorkbookTest, ATextTooLongForACellGoesOnBelowAndNothingOfItIsLost) {
  const std::string smiley = "😀";  // two units, four bytes
  const std::pair<std::string, const char*> texts[] = {{Times(32767, "y"), "2"},
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
    EXPECT_TRUE(Output("python3 " READERS "/read_first_column.py " + path_) == text)
        << text.substr(0, 20);
    EXPECT_EQ(Query("count(//row)"), rows) << text.substr(0, 20);
  }
}

}  // namespace
}  // namespace sentrel
