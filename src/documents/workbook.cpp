#include "documents/workbook.h"

#include <fmt/format.h>
#include <xlsxwriter.h>

#include <algorithm>
#include <cctype>
#include <chrono>
#include <future>
#include <utility>

#include "common/failure.h"
#include "common/text.h"
#include "common/utf8.h"
#include "documents/memory_file.h"
#include "documents/unicode.h"

namespace sentrel {
namespace {

constexpr uint8_t kTextFormat = 49;  // "@", built into every spreadsheet
constexpr lxw_color_t kHeaderColor = 0x1F4E79;
constexpr lxw_color_t kRuleColor = 0xC9D1DC;
constexpr double kNarrowest = 12;  // in letters
constexpr double kWidest = 70;
/// Of fonts that stand in for the workbook's own where that is missing.
constexpr double kWidestFont = 1.2;
constexpr double kFilterButton = 4;
constexpr double kLineHeight = 15;  // in points
constexpr double kTallest = 409;    // that a row may be, in points
constexpr std::size_t kMostHeaderUnits = 80;
constexpr std::chrono::milliseconds kBetweenLooks{10};
constexpr std::string_view kUnderscore = "_x005F_";  // as an escape

/// Whether a spreadsheet would read the start of the text as the code of a character: "_x000D_".
bool IsCode(std::string_view text) {
  const auto isHex = [](char c) { return std::isxdigit(static_cast<unsigned char>(c)) != 0; };
  return text.size() >= 7 && text.starts_with("_x") && text[6] == '_' &&
         std::all_of(text.begin() + 2, text.begin() + 6, isHex);
}

/// A text as the cells of a sheet hold it: several, one below the other, if it is too long for one.
/// The limit counts what is written, escapes included. No character and no escape is cut in two.
/// Only LF breaks lines in a sheet.
std::vector<std::string> CellTexts(std::string_view text) {
  std::vector<std::string> cells(1);
  std::size_t units = 0;
  const auto append = [&](std::string_view piece, std::size_t pieceUnits) {
    if (units + pieceUnits > kMostCellUnits) {
      cells.emplace_back();
      units = 0;
    }
    cells.back() += piece;
    units += pieceUnits;
  };
  bool first = true;
  for (std::string_view line : LinesOf(text)) {
    if (!std::exchange(first, false)) append("\n", 1);
    while (!line.empty()) {
      const Utf8Character letter = FirstCharacter(line);
      const std::size_t bytes = std::max<std::size_t>(letter.length, 1);
      if (IsCode(line)) {
        append(kUnderscore, kUnderscore.size());
      } else {
        append(line.substr(0, bytes), letter.code > 0xFFFF ? 2 : 1);
      }
      line.remove_prefix(bytes);
    }
  }
  return cells;
}

double WidthOf(const TableContent& content, std::size_t col) {
  std::size_t widest = 0;
  for (const auto& row : content.rows) {
    for (const std::string_view line : LinesOf(row[col])) {
      if (line.size() > static_cast<std::size_t>(kWidest)) return kWidest;
      widest = std::max(widest, DisplayWidth(line));
    }
  }
  const double title =
      static_cast<double>(DisplayWidth(content.columns[col].title)) + kFilterButton;
  const double text = static_cast<double>(widest) * kWidestFont + 2;
  return std::clamp(std::max(text, title), kNarrowest, kWidest);
}

/// Fills the one sheet of a workbook that is being written to a file.
class SheetWriter {
 public:
  SheetWriter(const std::string& path, const TableContent& content)
      : content_(content), book_(workbook_new(path.c_str())) {
    if (!book_) throw Failure("The workbook cannot be made.");
    sheet_ = workbook_add_worksheet(book_, "Table");
  }
  ~SheetWriter() { lxw_workbook_free(book_); }
  SheetWriter(const SheetWriter&) = delete;
  SheetWriter& operator=(const SheetWriter&) = delete;

  void Write(Progress& progress) {
    SetProperties();
    WriteHeader();
    for (std::size_t row = 0; row < content_.rows.size(); ++row) {
      progress.Advance(row, content_.rows.size());
      WriteRow(content_.rows[row]);
    }
    SetUpSheet();
    Close(progress);
  }

 private:
  lxw_col_t Columns() const { return static_cast<lxw_col_t>(content_.columns.size()); }

  void SetProperties() {
    lxw_doc_properties properties{};
    std::string title = content_.title;
    std::string subject = content_.subTitle;
    std::string comments = content_.paragraph;
    std::string author = content_.program;
    properties.title = title.data();
    properties.subject = subject.data();
    properties.comments = comments.data();
    properties.author = author.data();
    workbook_set_properties(book_, &properties);
  }

  lxw_format* NewFormat(lxw_format_alignments across) {
    lxw_format* format = workbook_add_format(book_);
    format_set_num_format_index(format, kTextFormat);
    format_set_text_wrap(format);
    format_set_align(format, static_cast<uint8_t>(across));
    format_set_align(format, LXW_ALIGN_VERTICAL_TOP);
    format_set_bottom(format, LXW_BORDER_THIN);
    format_set_bottom_color(format, kRuleColor);
    return format;
  }

  lxw_format_alignments Across(lxw_col_t col) const {
    return content_.columns[col].alignment == Alignment::Center ? LXW_ALIGN_CENTER : LXW_ALIGN_LEFT;
  }

  void WriteHeader() {
    for (lxw_col_t col = 0; col < Columns(); ++col) {
      cells_.push_back(NewFormat(Across(col)));
      lxw_format* header = NewFormat(Across(col));
      format_set_align(header, LXW_ALIGN_VERTICAL_CENTER);
      format_set_bold(header);
      format_set_font_color(header, LXW_COLOR_WHITE);
      format_set_bg_color(header, kHeaderColor);
      widths_.push_back(WidthOf(content_, col));
      worksheet_set_column(sheet_, col, col, widths_.back(), nullptr);
      const std::string title = CellTexts(content_.columns[col].title).front();
      Check(worksheet_write_string(sheet_, 0, col, title.c_str(), header));
    }
    worksheet_set_row(sheet_, 0, 24, nullptr);
    nextRow_ = 1;
  }

  /// Some spreadsheets do not fit the height of a row to wrapped lines when they open a file.
  double HeightOf(const std::vector<std::string>& cells) const {
    std::size_t most = 1;
    for (std::size_t col = 0; col < cells.size(); ++col) {
      std::size_t lines = 0;
      for (const std::string_view line : LinesOf(cells[col])) {
        const double letters = widths_[col] / kWidestFont;
        lines += WrapLine(line, static_cast<std::size_t>(letters)).size();
      }
      most = std::max(most, lines);
    }
    return std::min(static_cast<double>(most) * kLineHeight, kTallest);
  }

  /// A text that is too long for one cell continues in the rows below.
  void WriteRow(const std::vector<std::string>& cells) {
    lxw_row_t rowsTaken = 1;
    for (lxw_col_t col = 0; col < Columns(); ++col) {
      lxw_row_t row = 0;
      for (const std::string& text : CellTexts(cells[col])) {
        Check(worksheet_write_string(sheet_, nextRow_ + row, col, text.c_str(), cells_[col]));
        ++row;
      }
      rowsTaken = std::max(rowsTaken, row);
    }
    const double height = HeightOf(cells);
    for (lxw_row_t row = 0; row < rowsTaken; ++row) {
      worksheet_set_row(sheet_, nextRow_ + row, height, nullptr);
    }
    nextRow_ += rowsTaken;
  }

  void SetUpSheet() {
    worksheet_freeze_panes(sheet_, 1, 0);
    worksheet_repeat_rows(sheet_, 0, 0);
    worksheet_fit_to_pages(sheet_, 1, 0);
    if (content_.landscape) worksheet_set_landscape(sheet_);
    const std::string title(FirstUtf16Units(content_.title, kMostHeaderUnits));
    const std::string header = "&L&B" + ReplaceAll(title, "&", "&&") + "&R" + content_.madeText;
    worksheet_set_header(sheet_, header.c_str());
    worksheet_set_footer(sheet_, "&CPage &P of &N");
    if (Columns() == 0) return;
    const auto lastCol = static_cast<lxw_col_t>(Columns() - 1);
    worksheet_autofilter(sheet_, 0, 0, nextRow_ - 1, lastCol);
  }

  /// The library does much of its work here and tells nothing of it. Where the user cancels, it
  /// comes to its end all the same.
  void Close(Progress& progress) {
    auto closing = std::async(std::launch::async, workbook_close, std::exchange(book_, nullptr));
    do progress.Advance(1, 1);
    while (closing.wait_for(kBetweenLooks) != std::future_status::ready);
    Check(closing.get());
  }

  static void Check(lxw_error error) {
    if (error) throw Failure(fmt::format("The workbook cannot be made: {}.", lxw_strerror(error)));
  }

  const TableContent& content_;
  lxw_workbook* book_;
  lxw_worksheet* sheet_ = nullptr;
  std::vector<lxw_format*> cells_;
  std::vector<double> widths_;  // in letters
  lxw_row_t nextRow_ = 0;
};

}  // namespace

std::string Workbook(const TableContent& content, Progress& progress) {
  const MemoryFile file;
  SheetWriter(file.Path(), content).Write(progress);
  return file.Bytes();
}

}  // namespace sentrel
