#include "documents/table_content.h"

#include "common/visible_text.h"

namespace sentrel {
namespace {

template <typename Item>
void Keep(const std::vector<std::size_t>& indices, std::vector<Item>& items) {
  std::vector<Item> kept;
  kept.reserve(indices.size());
  for (const std::size_t index : indices) kept.push_back(std::move(items.at(index)));
  items = std::move(kept);
}

}  // namespace

void TakeTable(const Table& table, TableContent& content) {
  for (int col = 0; col < table.Cols(); ++col) {
    content.columns.push_back({VisibleText(table.Cell(0, col)), table.ColAlignment(col)});
  }
  content.rows.reserve(static_cast<std::size_t>(table.Rows()));
  for (int row = 1; row < table.Rows(); ++row) {
    std::vector<std::string>& cells = content.rows.emplace_back();
    for (int col = 0; col < table.Cols(); ++col) cells.push_back(VisibleText(table.Cell(row, col)));
  }
}

void KeepColumns(const std::vector<std::size_t>& columns, TableContent& content) {
  Keep(columns, content.columns);
  for (auto& row : content.rows) Keep(columns, row);
}

}  // namespace sentrel
