#include "documents/aligned_text.h"

#include <algorithm>

#include "common/text.h"
#include "documents/unicode.h"

namespace sentrel {
namespace {

constexpr std::string_view kGap = "  ";

using CellText = std::vector<std::string>;  // its lines
using RowText = std::vector<CellText>;

CellText Lines(const std::string& cell) {
  const std::string withoutTabs = ReplaceAll(cell, "\t", " ");
  CellText lines;
  for (const std::string_view line : LinesOf(withoutTabs)) {
    for (const std::string_view piece : WrapLine(line, kWidestTextColumn))
      lines.emplace_back(piece);
  }
  return lines;
}

RowText RowOf(const std::vector<std::string>& cells) {
  RowText row;
  for (const std::string& cell : cells) row.push_back(Lines(cell));
  return row;
}

std::size_t Height(const RowText& row) {
  std::size_t height = 0;
  for (const CellText& cell : row) height = std::max(height, cell.size());
  return height;
}

void Widen(std::vector<std::size_t>& widths, const RowText& row) {
  for (std::size_t col = 0; col < row.size(); ++col) {
    for (const std::string& line : row[col]) {
      widths[col] = std::max(widths[col], DisplayWidth(line));
    }
  }
}

void EndLine(std::string& text) {
  const auto last = text.find_last_not_of(' ');
  text.resize(last == std::string::npos ? 0 : last + 1);
  text.append(kCrLf);
}

void AppendRow(std::string& text, const RowText& row, const std::vector<std::size_t>& widths) {
  for (std::size_t line = 0; line < Height(row); ++line) {
    std::size_t missing = 0;
    for (std::size_t col = 0; col < row.size(); ++col) {
      const std::string_view piece = line < row[col].size() ? row[col][line] : std::string_view();
      text.append(missing, ' ').append(piece);
      missing = widths[col] - DisplayWidth(piece) + kGap.size();
    }
    EndLine(text);
  }
}

void AppendTexts(std::string& text, const TableContent& content) {
  if (!content.title.empty()) {
    text.append(content.title).append(kCrLf);
    text.append(DisplayWidth(content.title), '=').append(kCrLf);
  }
  for (const std::string& part : {content.subTitle, content.madeText}) {
    if (!part.empty()) text.append(part).append(kCrLf);
  }
  if (!content.paragraph.empty()) text.append(kCrLf).append(content.paragraph).append(kCrLf);
  if (!text.empty() && !content.columns.empty()) text.append(kCrLf);
}

void AppendTable(std::string& text, const RowText& titles, const std::vector<RowText>& rows,
                 const std::vector<std::size_t>& widths) {
  AppendRow(text, titles, widths);
  RowText rule;
  for (const std::size_t width : widths) rule.push_back({std::string(width, '-')});
  AppendRow(text, rule, widths);
  const bool airy =
      std::any_of(rows.begin(), rows.end(), [](const RowText& row) { return Height(row) > 1; });
  for (std::size_t row = 0; row < rows.size(); ++row) {
    if (airy && row > 0) text.append(kCrLf);
    AppendRow(text, rows[row], widths);
  }
}

}  // namespace

std::string AlignedText(const TableContent& content, Progress& progress) {
  RowText titles;
  for (const ContentColumn& column : content.columns) titles.push_back(Lines(column.title));
  std::vector<std::size_t> widths(content.columns.size(), 1);
  Widen(widths, titles);
  std::vector<RowText> rows;
  for (const auto& cells : content.rows) {
    progress.Advance(rows.size(), content.rows.size());
    rows.push_back(RowOf(cells));
    Widen(widths, rows.back());
  }

  std::string text;
  AppendTexts(text, content);
  if (!content.columns.empty()) AppendTable(text, titles, rows, widths);
  if (!content.footer.empty()) text.append(kCrLf).append(content.footer).append(kCrLf);
  return text;
}

}  // namespace sentrel
