#include "documents/html_page.h"

#include <fmt/format.h>

#include "common/html_text.h"
#include "documents/unicode.h"

namespace sentrel {
namespace {

constexpr std::string_view kStyle = R"(
:root { color-scheme: light dark; --text: #1b2027; --faint: #57606b; --page: #ffffff;
  --head: #eef1f6; --rule: #c9d1dc; --stripe: #f8f9fb; }
@media (prefers-color-scheme: dark) {
  :root { --text: #e4e8ee; --faint: #9ca7b5; --page: #15181d; --head: #232830; --rule: #39414d;
    --stripe: #1a1e24; }
}
* { box-sizing: border-box; }
body { margin: 0 auto; padding: 1.5rem; max-width: 100rem; color: var(--text);
  background: var(--page); font: 0.9375rem/1.45 system-ui, sans-serif; }
h1 { margin: 0; font-size: 1.5rem; line-height: 1.2; }
header p { margin: 0.25rem 0 0; color: var(--faint); }
.paragraph { margin: 1rem 0 0; white-space: pre-wrap; overflow-wrap: anywhere; }
table { width: 100%; margin-top: 1.25rem; border-collapse: collapse;
  font-variant-numeric: tabular-nums; }
th { position: sticky; top: 0; padding: 0.5rem 0.75rem; text-align: left; white-space: nowrap;
  background: var(--head); box-shadow: inset 0 -2px var(--rule); }
td { padding: 0.4rem 0.75rem; vertical-align: top; max-width: 18rem; white-space: pre-wrap;
  overflow-wrap: break-word; border-bottom: 1px solid var(--rule); }
td:last-child { max-width: none; min-width: 14rem; overflow-wrap: anywhere; }
tbody tr:nth-child(even) { background: var(--stripe); }
.center { text-align: center; }
.empty { color: var(--faint); text-align: center; }
footer { margin-top: 1rem; color: var(--faint); font-size: 0.8125rem; }
@media print {
  :root { --text: #000000; --faint: #444444; --page: #ffffff; --head: #eeeeee; --rule: #999999;
    --stripe: #ffffff; }
  body { padding: 0; max-width: none; font-size: 9pt; print-color-adjust: exact; }
  th { position: static; }
  thead { display: table-header-group; }
  td { break-inside: auto; orphans: 3; widows: 3; }
}
)";

/// All line ends become those of the page itself.
void AppendLines(std::string& page, std::string_view text) {
  const char* separator = "";
  for (const std::string_view line : LinesOf(text)) {
    page += separator;
    page += HtmlText(line);
    separator = "\n";
  }
}

void AppendElement(std::string& page, std::string_view tag, std::string_view attributes,
                   std::string_view text) {
  if (text.empty()) return;
  fmt::format_to(std::back_inserter(page), "<{}{}>", tag, attributes);
  AppendLines(page, text);
  fmt::format_to(std::back_inserter(page), "</{}>\n", tag);
}

void AppendHead(std::string& page, const TableContent& content) {
  page +=
      "<!DOCTYPE html>\n<html lang=\"en\" xmlns=\"http://www.w3.org/1999/xhtml\">\n<head>\n"
      "<meta charset=\"utf-8\"/>\n"
      "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\"/>\n"
      "<meta http-equiv=\"Content-Security-Policy\" "
      "content=\"default-src 'none'; style-src 'unsafe-inline'\"/>\n<meta name=\"generator\" "
      "content=\"";
  page += HtmlText(content.program);
  page += "\"/>\n<title>";
  page += HtmlText(content.title.empty() ? content.program : content.title);
  page += "</title>\n<style>";
  page += kStyle;
  page += "</style>\n</head>\n";
}

const char* ClassOf(const ContentColumn& column) {
  return column.alignment == Alignment::Center ? " class=\"center\"" : "";
}

void AppendRow(std::string& page, const TableContent& content,
               const std::vector<std::string>& cells) {
  page += "<tr>";
  for (std::size_t col = 0; col < cells.size(); ++col) {
    page.append("<td dir=\"auto\"").append(ClassOf(content.columns[col])).append(">");
    AppendLines(page, cells[col]);
    page += "</td>";
  }
  page += "</tr>\n";
}

void AppendTable(std::string& page, const TableContent& content, Progress& progress) {
  page += content.title.empty() ? "<table>\n" : "<table aria-labelledby=\"title\">\n";
  page += "<thead>\n<tr>";
  for (const ContentColumn& column : content.columns) {
    page.append("<th scope=\"col\"").append(ClassOf(column)).append(">");
    AppendLines(page, column.title);
    page += "</th>";
  }
  page += "</tr>\n</thead>\n<tbody>\n";
  for (std::size_t row = 0; row < content.rows.size(); ++row) {
    progress.Advance(row, content.rows.size());
    AppendRow(page, content, content.rows[row]);
  }
  if (content.rows.empty()) {
    fmt::format_to(std::back_inserter(page),
                   "<tr><td class=\"empty\" colspan=\"{}\">The table is empty.</td></tr>\n",
                   content.columns.size());
  }
  page += "</tbody>\n</table>\n";
}

}  // namespace

std::string HtmlPage(const TableContent& content, Progress& progress) {
  std::string page;
  AppendHead(page, content);
  page += "<body>\n<main>\n<header>\n";
  AppendElement(page, "h1", " id=\"title\"", content.title);
  AppendElement(page, "p", "", content.subTitle);
  AppendElement(page, "p", "", content.madeText);
  page += "</header>\n";
  AppendElement(page, "p", " class=\"paragraph\" dir=\"auto\"", content.paragraph);
  if (!content.columns.empty()) AppendTable(page, content, progress);
  page += "</main>\n<footer>\n";
  AppendElement(page, "p", "", content.footer);
  AppendElement(page, "p", "", content.program);
  page += "</footer>\n</body>\n</html>\n";
  return page;
}

}  // namespace sentrel
