#include "console/copied_html.h"

#include <string_view>

#include "common/html_text.h"
#include "common/text.h"

namespace sentrel {
namespace {

/// Both styles are what spreadsheets themselves write: text format, and a line break in the cell.
constexpr std::string_view kCell = R"(<td style="mso-number-format:'\@'">)";
constexpr std::string_view kBreak = R"(<br style="mso-data-placement:same-cell">)";

std::string CellHtml(const std::string& text) {
  std::string html = ReplaceAll(HtmlText(text), kCrLf, "\n");
  html = ReplaceAll(html, "\r", "\n");
  return ReplaceAll(html, "\n", kBreak);
}

}  // namespace

std::string CopiedHtml(const Table& table) {
  const TableSelection selection = table.GetSelection();
  std::string html = R"(<meta charset="utf-8"><table>)";
  for (int row = selection.firstRow; row <= selection.lastRow; ++row) {
    html += "<tr>";
    for (int col = selection.firstCol; col <= selection.lastCol; ++col) {
      html.append(kCell).append(CellHtml(table.Cell(row, col))).append("</td>");
    }
    html += "</tr>\n";
  }
  return html + "</table>";
}

}  // namespace sentrel
