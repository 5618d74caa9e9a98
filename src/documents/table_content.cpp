#include "documents/table_content.h"

#include "documents/unicode.h"

namespace sentrel {

void TakeColumns(const Table& table, const std::vector<int>& columns, TableContent& content) {
  for (const int col : columns) {
    content.columns.push_back({CleanText(table.Cell(0, col)), table.ColAlignment(col)});
  }
  content.rows.reserve(static_cast<std::size_t>(table.Rows()));
  for (int row = 1; row < table.Rows(); ++row) {
    std::vector<std::string>& cells = content.rows.emplace_back();
    for (const int col : columns) cells.push_back(CleanText(table.Cell(row, col)));
  }
}

}  // namespace sentrel
