#include "desktop/table/table_accessible.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <algorithm>
#include <map>
#include <memory>
#include <utility>

#include "desktop/table/table_view.h"

namespace sentrel {
namespace {

class AccessibleTable;

/// One place of the table. It answers for whatever trap is there when it is asked.
class AccessibleCell : public QAccessibleInterface, public QAccessibleTableCellInterface {
 public:
  AccessibleCell(AccessibleTable& table, int row, int col) : table_(table), row_(row), col_(col) {}

  bool isValid() const override;
  QObject* object() const override { return nullptr; }
  QAccessibleInterface* parent() const override;
  QAccessibleInterface* child(int) const override { return nullptr; }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }
  QString text(QAccessible::Text kind) const override;
  void setText(QAccessible::Text, const QString&) override {}
  QRect rect() const override;
  QAccessible::Role role() const override {
    return row_ == 0 ? QAccessible::ColumnHeader : QAccessible::Cell;
  }
  QAccessible::State state() const override;
  void* interface_cast(QAccessible::InterfaceType type) override {
    return type == QAccessible::TableCellInterface
               ? static_cast<QAccessibleTableCellInterface*>(this)
               : nullptr;
  }

  bool isSelected() const override;
  QList<QAccessibleInterface*> columnHeaderCells() const override;
  QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
  int columnIndex() const override { return col_; }
  int rowIndex() const override { return row_; }
  int columnExtent() const override { return 1; }
  int rowExtent() const override { return 1; }
  QAccessibleInterface* table() const override { return parent(); }

 private:
  AccessibleTable& table_;
  int row_;
  int col_;
};

class AccessibleTable : public QAccessibleWidget, public QAccessibleTableInterface {
 public:
  explicit AccessibleTable(TableView* view) : QAccessibleWidget(view, QAccessible::Table) {}
  ~AccessibleTable() override {
    for (const auto& [place, id] : cells_) QAccessible::deleteAccessibleInterface(id);
  }

  TableView& View() const { return *static_cast<TableView*>(widget()); }
  const Table& Content() const { return View().Content(); }
  bool RowSelected(int row) const {
    const auto [first, last] = std::minmax({Content().Row(), Content().RowSel()});
    return row >= first && row <= last;
  }

  int childCount() const override { return Content().Rows() * Content().Cols(); }
  QAccessibleInterface* child(int index) const override {
    return cellAt(index / Content().Cols(), index % Content().Cols());
  }
  int indexOfChild(const QAccessibleInterface* child) const override {
    const auto* cell = dynamic_cast<const AccessibleCell*>(child);
    return cell ? cell->rowIndex() * Content().Cols() + cell->columnIndex() : -1;
  }
  QAccessibleInterface* childAt(int x, int y) const override {
    const QPoint at = View().viewport()->mapFromGlobal(QPoint(x, y));
    const int col = View().Header()->logicalIndexAt(at.x());
    return cellAt(at.y() < 0 ? 0 : View().RowAt(at.y()), col);
  }
  void* interface_cast(QAccessible::InterfaceType type) override {
    return type == QAccessible::TableInterface ? static_cast<QAccessibleTableInterface*>(this)
                                               : QAccessibleWidget::interface_cast(type);
  }

  QAccessibleInterface* cellAt(int row, int col) const override {
    if (row < 0 || row >= Content().Rows() || col < 0 || col >= Content().Cols()) return nullptr;
    const auto known = cells_.find({row, col});
    if (known != cells_.end()) return QAccessible::accessibleInterface(known->second);
    auto* cell = new AccessibleCell(const_cast<AccessibleTable&>(*this), row, col);
    cells_[{row, col}] = QAccessible::registerAccessibleInterface(cell);
    return cell;
  }
  QString columnDescription(int col) const override {
    return QString::fromStdString(Content().Cell(0, col));
  }
  QString rowDescription(int) const override { return {}; }
  int rowCount() const override { return Content().Rows(); }
  int columnCount() const override { return Content().Cols(); }
  QAccessibleInterface* caption() const override { return nullptr; }
  QAccessibleInterface* summary() const override { return nullptr; }
  int selectedRowCount() const override { return static_cast<int>(selectedRows().size()); }
  int selectedColumnCount() const override { return 0; }
  int selectedCellCount() const override { return selectedRowCount() * columnCount(); }
  QList<int> selectedRows() const override {
    const auto [first, last] = std::minmax({Content().Row(), Content().RowSel()});
    QList<int> rows;
    for (int row = first; row <= last; ++row) rows << row;
    return rows;
  }
  QList<int> selectedColumns() const override { return {}; }
  QList<QAccessibleInterface*> selectedCells() const override {
    QList<QAccessibleInterface*> cells;
    for (const int row : selectedRows()) {
      for (int col = 0; col < columnCount(); ++col) cells << cellAt(row, col);
    }
    return cells;
  }
  bool isColumnSelected(int) const override { return false; }
  bool isRowSelected(int row) const override { return RowSelected(row); }
  bool selectRow(int) override { return false; }
  bool selectColumn(int) override { return false; }
  bool unselectRow(int) override { return false; }
  bool unselectColumn(int) override { return false; }
  void modelChange(QAccessibleTableModelChangeEvent*) override {}

 private:
  mutable std::map<std::pair<int, int>, QAccessible::Id> cells_;
};

bool AccessibleCell::isValid() const {
  return row_ < table_.Content().Rows() && col_ < table_.Content().Cols();
}

QAccessibleInterface* AccessibleCell::parent() const {
  return &table_;
}

QString AccessibleCell::text(QAccessible::Text kind) const {
  if (kind != QAccessible::Name || !isValid()) return {};
  return QString::fromStdString(table_.Content().Cell(row_, col_));
}

QRect AccessibleCell::rect() const {
  if (!isValid()) return {};
  TableView& view = table_.View();
  const QRect place =
      row_ == 0 ? QRect(view.Header()->sectionViewportPosition(col_), -view.Header()->height(),
                        view.Header()->sectionSize(col_), view.Header()->height())
                : view.CellRect(row_, col_);
  return {view.viewport()->mapToGlobal(place.topLeft()), place.size()};
}

QAccessible::State AccessibleCell::state() const {
  QAccessible::State state;
  state.readOnly = true;
  state.multiLine = true;
  state.selectable = true;
  state.selected = isSelected();
  state.invalid = !isValid();
  if (isValid()) {
    const QRect seen = table_.View().viewport()->rect();
    state.offscreen = row_ > 0 && !seen.intersects(table_.View().CellRect(row_, col_));
  }
  return state;
}

bool AccessibleCell::isSelected() const {
  return table_.RowSelected(row_);
}

QList<QAccessibleInterface*> AccessibleCell::columnHeaderCells() const {
  return {table_.cellAt(0, col_)};
}

QAccessibleInterface* MakeInterface(const QString&, QObject* object) {
  auto* view = qobject_cast<TableView*>(object);
  return view ? new AccessibleTable(view) : nullptr;
}

}  // namespace

void InstallTableAccessibility() {
  QAccessible::installFactory(MakeInterface);
}

}  // namespace sentrel
