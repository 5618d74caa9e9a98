#include "controls/table.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "common/failure.h"
#include "common/text.h"

namespace sentrel {
namespace {

void Require(const char* what, int index, int first, int end) {
  if (index < first || index >= end) throw Failure(fmt::format("There is no {} {}.", what, index));
}

}  // namespace

Table::Table() : rows_(1) {}

void Table::SetRows(int rows) {
  if (rows < 1) throw Failure("A table always has its header row.");
  TableRow empty;
  empty.content.cells.resize(columns_.size());
  rows_.resize(static_cast<size_t>(rows), empty);
  if (rows == 1) shelf_.clear();
  KeepSelectionInside();
  Changed();
}

void Table::SetCols(int cols) {
  if (cols < 0) throw Failure("A table cannot have fewer than no columns.");
  columns_.resize(static_cast<size_t>(cols));
  for (TableRow& row : rows_) row.content.cells.resize(columns_.size());
  KeepSelectionInside();
  Changed();
}

void Table::SetFixedCols(int cols) {
  Require("fixed column count", cols, 0, Cols() + 1);
  fixedCols_ = cols;
  Changed();
}

void Table::SetRow(int row) {
  Require("row", row, 0, Rows());
  row_ = rowSel_ = row;
  KeepSelectionInside();
  Changed();
}

void Table::SetCol(int col) {
  Require("column", col, 0, Cols());
  col_ = colSel_ = col;
  KeepSelectionInside();
  Changed();
}

void Table::SetRowSel(int row) {
  Require("row", row, 0, Rows());
  rowSel_ = row;
  Changed();
}

void Table::SetColSel(int col) {
  Require("column", col, 0, Cols());
  colSel_ = col;
  KeepSelectionInside();
  Changed();
}

TableSelection Table::GetSelection() const {
  const auto [firstRow, lastRow] = std::minmax(row_, rowSel_);
  const auto [firstCol, lastCol] = std::minmax(col_, colSel_);
  return {firstRow, firstCol, lastRow, lastCol};
}

std::string Table::Clip() const {
  const TableSelection selection = GetSelection();
  std::string clip;
  for (int row = selection.firstRow; row <= selection.lastRow; ++row) {
    if (row > selection.firstRow) clip += '\r';
    for (int col = selection.firstCol; col <= std::min(selection.lastCol, Cols() - 1); ++col) {
      if (col > selection.firstCol) clip += '\t';
      clip += Cell(row, col);
    }
  }
  return clip;
}

void Table::MouseDown(int button, int shift, int x, int y) {
  if (events_) events_->Table_MouseDown(button, shift, x, y);
}

void Table::SetWholeRows(bool wholeRows) {
  wholeRows_ = wholeRows;
  KeepSelectionInside();
  Changed();
}

void Table::SetRedraw(int redraw) {
  painting_ = redraw != 0;
  if (painting_ && std::exchange(changedUnpainted_, false)) Changed();
}

void Table::SetEmptyText(std::string text) {
  emptyText_ = std::move(text);
  Changed();
}

void Table::SetRowHeight(int row, int height) {
  ContentAt(row).height = height;
  Changed();
}

void Table::SetColWidth(int col, int width) {
  ColumnAt(col).width = width;
  Changed();
}

void Table::SetColAlignment(int col, Alignment alignment) {
  ColumnAt(col).alignment = alignment;
  Changed();
}

void Table::SetRuleColor(std::uint32_t color) {
  ruleColor_ = color;
  Changed();
}

const std::string& Table::Cell(int row, int col) const {
  Require("column", col, 0, Cols());
  return ContentAt(row).cells[static_cast<size_t>(col)];
}

void Table::SetCell(int row, int col, std::string text) {
  Require("column", col, 0, Cols());
  ContentAt(row).cells[static_cast<size_t>(col)] = std::move(text);
  RowAt(row).version = ++lastVersion_;
  Changed();
}

void Table::SetRowData(int row, std::string data) {
  ContentAt(row).data = std::move(data);
}

void Table::AddItem(const std::string& text, int index) {
  const auto pieces = Split(text, "\t");
  TableRow row;
  row.content.cells.assign(pieces.begin(), pieces.end());
  row.content.cells.resize(columns_.size());
  Insert(std::move(row), index);
}

void Table::AddItem(std::shared_ptr<const RowSource> source, int index) {
  TableRow row;
  row.source = std::move(source);
  row.isMade = false;
  Insert(std::move(row), index);
}

void Table::Insert(TableRow row, int index) {
  Require("row", index, 1, Rows() + 1);
  row.version = ++lastVersion_;
  if (row.id == 0) row.id = index == 1 ? ++lastId_ : IdOf(index - 1);
  rows_.insert(rows_.begin() + index, std::move(row));
  if (observer_) observer_->RowInserted(index);
  Changed();
}

void Table::RemoveItem(int index) {
  Taken(index);
}

Table::TableRow Table::Taken(int index) {
  Require("row", index, 1, Rows());
  TableRow taken = std::move(rows_[static_cast<size_t>(index)]);
  rows_.erase(rows_.begin() + index);
  if (row_ > index) --row_;
  if (rowSel_ > index) --rowSel_;
  KeepSelectionInside();
  if (observer_) observer_->RowRemoved(index);
  Changed();
  return taken;
}

namespace {

/// The first of the rows, from `begin` on, that is not above the one with this ID.
template <typename Iterator>
Iterator NotAbove(Iterator begin, Iterator end, Table::RowId id) {
  return std::partition_point(begin, end, [id](const auto& row) { return row.id > id; });
}

}  // namespace

int Table::RowOf(RowId id) const {
  const auto found = NotAbove(rows_.begin() + 1, rows_.end(), id);
  const bool isThere = id != 0 && found != rows_.end() && found->id == id;
  return isThere ? static_cast<int>(found - rows_.begin()) : 0;
}

bool Table::IsShelved(RowId id) const {
  const auto found = NotAbove(shelf_.begin(), shelf_.end(), id);
  return found != shelf_.end() && found->id == id;
}

std::deque<Table::TableRow>::iterator Table::OnShelf(RowId id) {
  const auto found = NotAbove(shelf_.begin(), shelf_.end(), id);
  if (found == shelf_.end() || found->id != id) throw Failure("There is no such shelved row.");
  return found;
}

std::vector<Table::RowId> Table::ShelvedIds() const {
  std::vector<RowId> ids;
  for (const TableRow& row : shelf_) ids.push_back(row.id);
  return ids;
}

const std::shared_ptr<const RowSource>& Table::ShelvedSource(RowId id) const {
  return const_cast<Table*>(this)->OnShelf(id)->source;
}

void Table::ShelveRow(int index) {
  TableRow row = Taken(index);
  const auto place = NotAbove(shelf_.begin(), shelf_.end(), row.id);
  shelf_.insert(place, std::move(row));
}

void Table::UnshelveRow(RowId id) {
  const auto shelved = OnShelf(id);
  TableRow row = std::move(*shelved);
  shelf_.erase(shelved);
  const auto place = NotAbove(rows_.begin() + 1, rows_.end(), id);
  const int index = static_cast<int>(place - rows_.begin());
  if (row_ >= index) ++row_;
  if (rowSel_ >= index) ++rowSel_;
  Insert(std::move(row), index);
}

void Table::AddShelved(std::shared_ptr<const RowSource> source) {
  TableRow row;
  row.id = ++lastId_;
  row.source = std::move(source);
  row.isMade = false;
  shelf_.push_front(std::move(row));
}

void Table::RemoveLowest() {
  const bool isShown = shelf_.empty() || (Rows() > 1 && IdOf(Rows() - 1) < shelf_.back().id);
  if (isShown) {
    RemoveItem(Rows() - 1);
  } else {
    shelf_.pop_back();
  }
}

const Table::TableRow& Table::RowAt(int row) const {
  Require("row", row, 0, Rows());
  return rows_[static_cast<size_t>(row)];
}

const RowContent& Table::ContentAt(int row) const {
  const TableRow& found = RowAt(row);
  if (!std::exchange(found.isMade, true)) {
    Attempt([&] { found.content = found.source->Make(); });
    found.content.cells.resize(columns_.size());
  }
  return found.content;
}

const Table::Column& Table::ColumnAt(int col) const {
  Require("column", col, 0, Cols());
  return columns_[static_cast<size_t>(col)];
}

void Table::KeepSelectionInside() {
  const int lastRow = Rows() - 1;
  const int lastCol = std::max(Cols() - 1, 0);
  row_ = std::min(row_, lastRow);
  rowSel_ = std::min(rowSel_, lastRow);
  col_ = wholeRows_ ? 0 : std::min(col_, lastCol);
  colSel_ = wholeRows_ ? lastCol : std::min(colSel_, lastCol);
}

void Table::Changed() {
  if (!painting_) {
    changedUnpainted_ = true;
  } else if (observer_) {
    observer_->TableChanged();
  }
}

}  // namespace sentrel
