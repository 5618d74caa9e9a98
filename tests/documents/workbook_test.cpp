#include "documents/workbook.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "fakes/shell.h"
#include "golden_file.h"
#include "hard_table.h"

namespace sentrel {
namespace {

class WorkbookTest : public testing::Test {
 protected:
  /// What a reader that knows nothing of the writer finds.
  std::string ReadBack(const TableContent& content, const std::string& option = "") {
    NoProgress progress;
    const std::string path = folder_ / "book.xlsx";
    std::ofstream(path, std::ios::binary) << Workbook(content, progress);
    return Output("python3 " READERS "/read_workbook.py " + option + " " + path);
  }

  TemporaryFolder folder_;
};

TEST_F(WorkbookTest, HoldsTextsOnlyInRowsAsTallAsTheirLinesUnderAHeaderThatStays) {
  TableContent content = HardTable();
  content.title = "A & B";
  content.rows.push_back({"", "", "", "", std::string(2000, 'x')});
  ExpectGolden(ReadBack(content), "hard.workbook.txt");
  content.rows.clear();
  ExpectGolden(ReadBack(content), "empty.workbook.txt");
}

std::string Times(int count, const std::string& text) {
  std::string all;
  for (int i = 0; i < count; ++i) all += text;
  return all;
}

TEST_F(WorkbookTest, ATextTooLongForACellGoesOnBelowAndNothingOfItIsLost) {
  const std::string smiley = "😀";  // two units, four bytes
  const std::pair<std::string, std::string> texts[] = {{Times(32767, "y"), "1"},
                                                       {Times(32768, "y"), "2"},
                                                       {Times(16383, smiley) + "z", "1"},
                                                       {"z" + Times(16384, smiley), "2"},
                                                       {Times(4681, "_"), "1"},
                                                       {Times(8500, "_x0041_"), "4"},
                                                       {"y" + Times(8500, "_x005F_x0041_"), "7"},
                                                       {Times(32760, "y") + "_x0041_", "2"},
                                                       {Times(8500, "_x00zz_&<"), "3"},
                                                       {Times(20000, "é\n") + "é", "2"}};
  for (const auto& [text, cells] : texts) {
    TableContent content;
    content.columns = {{"_x0041_", Alignment::Left}};
    content.rows = {{text}};
    std::string expected = cells;
    expected.append(":").append(text);
    EXPECT_TRUE(ReadBack(content, "--first-column") == expected) << text.substr(0, 20);
  }
}

/// A full disk would leave parts of the workbook empty.
TEST_F(WorkbookTest, KeepsNothingOfItOnADisk) {
  const std::filesystem::path temporary = folder_ / "temporary";
  std::filesystem::create_directory(temporary);
  const std::filesystem::file_time_type untouched{};
  std::filesystem::last_write_time(temporary, untouched);
  setenv("TMPDIR", temporary.c_str(), 1);
  EXPECT_NE(ReadBack(HardTable()), "");
  unsetenv("TMPDIR");
  EXPECT_EQ(std::filesystem::last_write_time(temporary), untouched);
}

TEST_F(WorkbookTest, CanBeCancelledWhileTheLibraryWritesIt) {
  struct CancelledAtTheEnd : Progress {
    void Advance(std::size_t done, std::size_t total) override {
      if (done == total) throw Cancelled();
    }
  };
  CancelledAtTheEnd progress;
  EXPECT_THROW(Workbook(HardTable(), progress), Cancelled);
}

}  // namespace
}  // namespace sentrel
