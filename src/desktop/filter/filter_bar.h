#pragma once

#include <QCompleter>
#include <QLabel>
#include <QLineEdit>
#include <QStringListModel>
#include <QTimer>
#include <QWidget>
#include <functional>

#include "console/table_filter.h"
#include "desktop/table/table_view.h"
#include "query/completion.h"

namespace sentrel {

/// The box above the table in which a query is typed: the table shows only the traps that it fits,
/// as one types. Escape gives everything back. A text that is no query colours the box and tells
/// why, and the last good one stays in force. Used on the event loop only.
class FilterBar : public QWidget {
  Q_OBJECT
 public:
  /// All must outlive the bar.
  FilterBar(Table& table, TableFilter& filter, TableView& view, QWidget* parent = nullptr);

  /// Shows the bar, its text selected.
  void Open();
  /// Ends the filter and hides the bar.
  void Close();

 protected:
  void changeEvent(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Apply();
  void Continue();
  void ShowState();
  void ShowError(const query::QueryError* error);
  void Offer();
  void PutIn(const QString& text);
  void Step(int rows);

  Table& table_;
  TableFilter& filter_;
  TableView& view_;
  QLineEdit* box_;
  QLabel* state_;
  QCompleter* completer_;
  QStringListModel* offers_;
  std::size_t offeredAt_ = 0;
  QTimer slice_;
  QTimer count_;
  TableView::Place place_;
  bool isWrong_ = false;
};

}  // namespace sentrel
