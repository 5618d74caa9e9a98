#pragma once

#include <QAbstractTableModel>
#include <QTableView>

#include "controls/table.h"
#include "desktop/table/frame_pacer.h"
#include "desktop/table/row_layouts.h"

namespace sentrel::bench {

/// The rows of a Table for the toolkit's own views. What has come since the last Sync is inserted
/// by it in one piece, which is how such a view bears a storm. Used on the event loop only.
class RowsModel : public QAbstractTableModel, private TableObserver {
 public:
  /// The table must outlive the model. `changed` runs with each change of the table.
  RowsModel(Table& table, std::function<void()> changed);
  ~RowsModel() override;

  /// Brings the model up to the table. Returns how many rows are new at the top.
  int Sync();

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;

 private:
  void RowInserted(int) override { ++waiting_; }
  void RowRemoved(int) override {}
  void TableChanged() override { changed_(); }

  Table& table_;
  std::function<void()> changed_;
  int rows_ = 0;
  int waiting_ = 0;
};

/// The toolkit's table view on a Table, set up for Sentrel's rows: wrapped texts, a height of its
/// own for each row, frames at the same pace as Sentrel's view.
class ToolkitView : public QTableView {
 public:
  /// The table must outlive the view.
  explicit ToolkitView(Table& table);

 private:
  void RunFrame();

  RowLayouts layouts_;
  FramePacer pacer_;
  RowsModel rows_;
};

}  // namespace sentrel::bench
