#include "desktop/reception/list_view.h"

#include <QHeaderView>
#include <QScrollBar>
#include <algorithm>

#include "common/visible_text.h"

namespace sentrel {

ListView::ListView(const char* name, const QString& accessibleName, const QStringList& titles) {
  setObjectName(name);
  setAccessibleName(accessibleName);
  setColumnCount(static_cast<int>(titles.size()));
  setHorizontalHeaderLabels(titles);
  setEditTriggers(NoEditTriggers);
  setSelectionBehavior(SelectRows);
  setSelectionMode(SingleSelection);
  setTabKeyNavigation(false);
  setWordWrap(false);
  setShowGrid(false);
  setAlternatingRowColors(true);
  verticalHeader()->hide();
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
  horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  horizontalHeader()->setHighlightSections(false);
  horizontalHeader()->setStretchLastSection(true);
}

void ListView::AlignRight(int col) {
  rightAligned_.push_back(col);
  horizontalHeaderItem(col)->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
}

void ListView::SetTexts(int row, const std::vector<std::string>& texts) {
  for (int col = 0; col < columnCount(); ++col) {
    const QString text =
        QString::fromStdString(VisibleText(texts[static_cast<std::size_t>(col)])).simplified();
    QTableWidgetItem* cell = item(row, col);
    if (cell == nullptr) {
      setItem(row, col, cell = new QTableWidgetItem);
      const bool isRight = std::ranges::find(rightAligned_, col) != rightAligned_.end();
      cell->setTextAlignment((isRight ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    }
    if (cell->text() == text) continue;
    cell->setText(text);
    cell->setToolTip(text.toHtmlEscaped());
  }
}

void ListView::AddOnTop(const std::vector<std::string>& texts) {
  const int above = verticalScrollBar()->value();
  insertRow(0);
  SetTexts(0, texts);
  if (above > 0) verticalScrollBar()->setValue(above + 1);
}

void ListView::AddAtEnd(const std::vector<std::string>& texts) {
  const bool follows = verticalScrollBar()->value() == verticalScrollBar()->maximum();
  insertRow(rowCount());
  SetTexts(rowCount() - 1, texts);
  if (follows) scrollToBottom();
}

int ListView::SelectedRow() const {
  const auto rows = selectionModel()->selectedRows();
  return rows.isEmpty() ? -1 : rows.front().row();
}

}  // namespace sentrel
