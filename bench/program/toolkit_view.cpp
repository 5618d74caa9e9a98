#include "toolkit_view.h"

#include <QHeaderView>
#include <algorithm>
#include <utility>

namespace sentrel::bench {

RowsModel::RowsModel(Table& table, std::function<void()> changed)
    : table_(table), changed_(std::move(changed)) {
  table_.SetObserver(this);
}

RowsModel::~RowsModel() {
  table_.SetObserver(nullptr);
}

int RowsModel::Sync() {
  const int held = table_.Rows() - 1;
  const int added = std::min(std::exchange(waiting_, 0), held);
  if (const int kept = held - added; kept < rows_) {
    beginRemoveRows({}, kept, rows_ - 1);
    rows_ = kept;
    endRemoveRows();
  }
  if (added > 0) {
    beginInsertRows({}, 0, added - 1);
    rows_ = held;
    endInsertRows();
  }
  return added;
}

int RowsModel::rowCount(const QModelIndex&) const {
  return rows_;
}

int RowsModel::columnCount(const QModelIndex&) const {
  return table_.Cols();
}

QVariant RowsModel::data(const QModelIndex& index, int role) const {
  const int row = 1 + waiting_ + index.row();
  if (role != Qt::DisplayRole || row >= table_.Rows()) return {};
  return QString::fromStdString(table_.Cell(row, index.column())).remove('\r');
}

ToolkitView::ToolkitView(Table& table)
    : layouts_(table), pacer_([this] { RunFrame(); }), rows_(table, [this] { pacer_.Request(); }) {
  QFont small = font();
  small.setPointSizeF(8.25);  // as Sentrel's view
  setFont(small);
  layouts_.SetFont(small);
  setModel(&rows_);
  setWordWrap(true);
  setVerticalScrollMode(ScrollPerPixel);
  verticalHeader()->hide();
  std::vector<int> widths;
  for (int col = 0; col < table.Cols(); ++col) {
    widths.push_back(table.ColWidth(col));
    setColumnWidth(col, widths.back());
  }
  layouts_.SetColumns(widths);
}

void ToolkitView::RunFrame() {
  const int added = rows_.Sync();
  for (int row = 0; row < added; ++row) setRowHeight(row, layouts_.Height(row + 1));
}

}  // namespace sentrel::bench
