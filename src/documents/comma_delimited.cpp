#include "documents/comma_delimited.h"

#include <algorithm>
#include <array>

#include "common/text.h"

namespace sentrel {
namespace {

bool IsNumber(std::string_view text) {
  if (text.starts_with('+') || text.starts_with('-')) text.remove_prefix(1);
  const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
  return !text.empty() && isDigit(text.front()) && isDigit(text.back()) &&
         std::count(text.begin(), text.end(), '.') <= 1 &&
         std::all_of(text.begin(), text.end(), [&](char c) { return isDigit(c) || c == '.'; });
}

/// Spreadsheets skip leading white space, and read full-width signs as plain ones.
bool LooksLikeFormula(std::string_view cell) {
  static constexpr std::array<std::string_view, 8> kSigns = {"=",  "+",  "-",  "@",
                                                             "＝", "＋", "－", "＠"};
  const auto first = cell.find_first_not_of(" \t\r\n");
  if (first == std::string_view::npos || IsNumber(cell)) return false;
  const std::string_view rest = cell.substr(first);
  return std::any_of(kSigns.begin(), kSigns.end(),
                     [&](std::string_view sign) { return rest.starts_with(sign); });
}

/// Separators that some programs use instead of commas are quoted too, so that none of them cuts a
/// cell in two.
bool NeedsQuotes(std::string_view cell) {
  return cell.find_first_of(",;\t\"\r\n") != std::string_view::npos || cell.starts_with(' ') ||
         cell.ends_with(' ');
}

void AppendCell(std::string& text, const std::string& cell) {
  const char* guard = LooksLikeFormula(cell) ? "'" : "";
  if (NeedsQuotes(cell)) {
    text.append("\"").append(guard).append(ReplaceAll(cell, "\"", "\"\"")).append("\"");
  } else {
    text.append(guard).append(cell);
  }
}

void AppendEnd(std::string& text, bool last) {
  text.append(last ? kCrLf : ",");
}

}  // namespace

std::string CommaDelimited(const TableContent& content, Progress& progress) {
  std::string text;
  const std::size_t columns = content.columns.size();
  for (std::size_t col = 0; col < columns; ++col) {
    AppendCell(text, content.columns[col].title);
    AppendEnd(text, col + 1 == columns);
  }
  for (std::size_t row = 0; row < content.rows.size(); ++row) {
    progress.Advance(row, content.rows.size());
    for (std::size_t col = 0; col < columns; ++col) {
      AppendCell(text, content.rows[row][col]);
      AppendEnd(text, col + 1 == columns);
    }
  }
  return text;
}

}  // namespace sentrel
