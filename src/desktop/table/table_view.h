#pragma once

#include <QAbstractScrollArea>
#include <QHeaderView>
#include <QStandardItemModel>
#include <QTimer>
#include <functional>
#include <memory>

#include "controls/table.h"
#include "desktop/table/frame_pacer.h"
#include "desktop/table/row_layouts.h"
#include "desktop/table/row_scroller.h"

namespace sentrel {

/// Shows a Table and turns mouse and keys into changes of its selection and its column widths. Used
/// on the event loop only.
///
/// The table holds all content, the selection and the widths; the view keeps nothing of them but
/// layouts of rows by RowVersion. Titles, header, scroll bars and description are brought up to the
/// table at each frame, and frames come at most as often as FramePacer lets them, so between two
/// frames they may be behind the table. The scroller alone hears of rows at once. Only rows that
/// are seen, and for the scroll bar the last ones, are looked at: others need not be made.
class TableView : public QAbstractScrollArea, private TableObserver {
  Q_OBJECT
 public:
  /// The table must outlive the view.
  explicit TableView(Table& table, QWidget* parent = nullptr);
  ~TableView() override;

  const Table& Content() const { return table_; }
  QHeaderView* Header() const { return header_; }
  /// Marks these words, folded to one case, wherever they are shown; none removes all marks.
  void SetMarks(std::vector<QString> words);
  /// What is at the top edge, however rows come and go.
  struct Place {
    Table::RowId row = 0;
    int pixelsAbove = 0;
  };
  Place TopPlace() const;
  /// A row that is gone leaves the view where it is.
  void ReturnTo(const Place& place);
  /// Selects a row, or extends the selection to it, and brings it into view.
  void MoveCursorTo(int row, bool extend);
  /// Adds a button below the text of the empty table.
  void AddEmptyAction(const QString& caption, std::function<void()> run);
  /// Where a cell is in the viewport; a rectangle outside it for a row that is not seen.
  QRect CellRect(int row, int col);
  /// The data row at a height of the viewport, the nearest where there is none; 0 without rows.
  int RowAt(int y) const { return scroller_.RowAt(y); }
  /// Scrolls a row into view.
  void Reveal(int row);
  int BottomRow() const { return scroller_.BottomRow(); }

 signals:
  /// The user asks for the context menu by key; it belongs at this place of the viewport.
  void MenuKeyPressed(const QPoint& place);
  /// The user wants to see a row whole, by double click or Enter.
  void RowOpened(int row);
  /// Another row is selected, or none; comes with a frame, and not when the same row has moved.
  void RowChosen(int row);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void changeEvent(QEvent* event) override;
  /// The titles are row 0 of the table: a button pressed on them is reported to the table as well.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void RowInserted(int row) override { scroller_.RowInserted(row); }
  void RowRemoved(int row) override { scroller_.RowRemoved(row); }
  void TableChanged() override;

  void SetUpHeader();
  void SyncTitles();
  void SyncPlaces();
  void SyncColumns();
  void SyncScrollBars();
  void SyncDescription();
  void SyncEmptyActions();
  void TellChosenRow();
  /// Has the view painted in the next turn of the event loop. What the user does asks for it
  /// itself, since the pacer takes its time in a storm.
  void RunFrame();
  void PaintRow(QPainter& painter, int row, int top);
  void PaintMarks(QPainter& painter, const QString& line, const QPoint& topLeft,
                  const QColor& color) const;
  void PaintCell(QPainter& painter, const QRect& cell, const std::vector<CellLine>& lines,
                 Alignment alignment, const QColor& marks);
  void PaintEmpty(QPainter& painter);
  bool IsSelected(int row) const;
  int KeyTarget(int key) const;
  void PressMenuKey();
  void DragTo(int y);
  /// The place is one of the viewport.
  void TellMouseDown(const QMouseEvent& event, const QPoint& place);

  Table& table_;
  QHeaderView* header_;
  QStandardItemModel titles_;
  RowLayouts layouts_;
  RowScroller scroller_;
  FramePacer pacer_;
  QTimer dragScroll_;
  /// Holds the buttons of the empty table.
  QWidget* emptyActions_;
  /// What the selected row was made of when RowChosen told of it.
  std::weak_ptr<const RowSource> chosen_;
  std::vector<QString> marks_;
  bool syncing_ = false;
};

}  // namespace sentrel
