#pragma once

#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace sentrel {

/// Told of changes of a Table. RowInserted and RowRemoved come at once, also while painting is off,
/// so that a view can keep its place; they must be cheap and must not change the table.
class TableObserver {
 public:
  virtual ~TableObserver() = default;
  virtual void RowInserted(int row) = 0;
  virtual void RowRemoved(int row) = 0;
  /// Something that is painted has changed. Comes while painting is on, and once when it is turned
  /// on again after changes.
  virtual void TableChanged() = 0;
};

/// Mouse buttons as Table_MouseDown numbers them.
enum MouseButton { kNoButton = 0, kLeftButton = 1, kRightButton = 2, kMiddleButton = 4 };

/// Told of what the user does with a Table, on the event loop. Must not throw.
class TableEvents {
 public:
  virtual ~TableEvents() = default;
  /// A mouse button (MouseButton) was pressed on the table, titles included. `shift` adds 1 for
  /// Shift, 2 for Ctrl and 4 for Alt. The place is in pixels from the table's left edge and from
  /// the lower edge of the titles; on the titles `y` is negative.
  virtual void Table_MouseDown(int button, int shift, int x, int y) = 0;
};

enum class Alignment { Left = 1, Center = 4 };

/// A rectangle of cells.
struct TableSelection {
  int firstRow = 0;
  int firstCol = 0;
  int lastRow = 0;
  int lastCol = 0;
};

/// What a row holds.
struct RowContent {
  /// UTF-8; CR LF separates the lines of a cell. Missing cells are empty.
  std::vector<std::string> cells;
  /// A text hung on the row and never shown.
  std::string data;
  int height = 0;
};

/// What a row is made of. Used on the event loop only.
class RowSource {
 public:
  virtual ~RowSource() = default;
  /// What the row holds. Called at most once; must not touch the table. A failure leaves the row
  /// empty.
  virtual RowContent Make() const = 0;
};

/// A grid of texts whose row 0 is the header. It holds rows, sizes and the selection, and knows no
/// toolkit: a view paints from it. Used on the event loop only.
///
/// Heights and widths are in the unit of the window's text measures. A row or column that does not
/// exist is refused with a Failure. Inserting and removing near either end costs the same whatever
/// the number of rows.
class Table {
 public:
  Table();

  /// At most one observer, which must outlive the table or be taken away with nullptr.
  void SetObserver(TableObserver* observer) { observer_ = observer; }

  /// Must outlive the table or be taken away with nullptr.
  void SetEvents(TableEvents* events) { events_ = events; }
  /// The view says that a button was pressed; see TableEvents.
  void MouseDown(int button, int shift, int x, int y);

  /// Number of rows, the header included. Writing a smaller number drops the last rows; the header
  /// stays.
  int Rows() const { return static_cast<int>(rows_.size()); }
  void SetRows(int rows);
  int Cols() const { return static_cast<int>(columns_.size()); }
  void SetCols(int cols);
  /// Columns at the left that do not scroll sideways.
  int FixedCols() const { return fixedCols_; }
  void SetFixedCols(int cols);

  /// The cursor cell, where the selection began. Writing either moves the cursor and takes the
  /// opposite corner along.
  int Row() const { return row_; }
  void SetRow(int row);
  int Col() const { return col_; }
  void SetCol(int col);
  /// The opposite corner of the selection; may lie above or left of the cursor.
  int RowSel() const { return rowSel_; }
  void SetRowSel(int row);
  int ColSel() const { return colSel_; }
  void SetColSel(int col);
  /// The selection, sorted so that first is not greater than last.
  TableSelection GetSelection() const;
  /// The text of the selection: a tab between the cells of a row, a carriage return between rows.
  std::string Clip() const;
  /// Whether a selection always spans all columns.
  bool WholeRows() const { return wholeRows_; }
  void SetWholeRows(bool wholeRows);

  /// 0 stops painting, anything else starts it again.
  void SetRedraw(int redraw);

  /// What is shown in the place of rows while there are none; UTF-8.
  const std::string& EmptyText() const { return emptyText_; }
  void SetEmptyText(std::string text);

  int RowHeight(int row) const { return ContentAt(row).height; }
  void SetRowHeight(int row, int height);
  int ColWidth(int col) const { return ColumnAt(col).width; }
  void SetColWidth(int col, int width);
  Alignment ColAlignment(int col) const { return ColumnAt(col).alignment; }
  void SetColAlignment(int col, Alignment alignment);
  /// Colour of the horizontal rules between rows, 0xRRGGBB.
  std::uint32_t RuleColor() const { return ruleColor_; }
  void SetRuleColor(std::uint32_t color);

  /// UTF-8 text of a cell; CR LF separates its lines.
  const std::string& Cell(int row, int col) const;
  void SetCell(int row, int col, std::string text);
  /// A number that changes with every change of a row's cells and is never used twice, so that a
  /// view can keep what it worked out from them.
  std::uint64_t RowVersion(int row) const { return RowAt(row).version; }
  /// A text hung on a row and never shown; empty on a row that was never given one.
  const std::string& RowData(int row) const { return ContentAt(row).data; }
  void SetRowData(int row, std::string data);

  /// Inserts a row at the index, 1 to Rows(). The text holds its cells, separated by tabs.
  void AddItem(const std::string& text, int index);
  /// Inserts a row at the index, 1 to Rows(), that is made when something of it is first asked for:
  /// in a storm most rows fall out before anyone has seen them.
  void AddItem(std::shared_ptr<const RowSource> source, int index);
  /// What the row was added with; null for a row of texts.
  const std::shared_ptr<const RowSource>& Source(int row) const { return RowAt(row).source; }
  /// Removes the row at the index, 1 to Rows() - 1; the rows below move up by one, and with them
  /// the ends of the selection that lie there.
  void RemoveItem(int index);

  /// What a row is known by as long as it is in the table: those above have greater ones, as rows
  /// come in at the top. 0 for the header, and for rows that SetRows has made.
  using RowId = std::uint64_t;
  RowId IdOf(int row) const { return RowAt(row).id; }
  /// 0 where no row has it.
  int RowOf(RowId id) const;

  // Shelved rows keep their place among the others and come back as they were, but are no rows
  // meanwhile. SetRows(1), which drops all rows, drops them too.

  int Shelved() const { return static_cast<int>(shelf_.size()); }
  /// From above to below.
  std::vector<RowId> ShelvedIds() const;
  bool IsShelved(RowId id) const;
  /// What the row was added with. It must be shelved.
  const std::shared_ptr<const RowSource>& ShelvedSource(RowId id) const;
  /// As RemoveItem.
  void ShelveRow(int index);
  /// The row must be shelved. Rows below it move down, and with them the ends of the selection.
  void UnshelveRow(RowId id);
  /// Adds a row on top of all others and shelves it at once.
  void AddShelved(std::shared_ptr<const RowSource> source);
  /// Removes the lowest row of all, shelved or not. There must be one.
  void RemoveLowest();

  /// What is said of the choice of rows that is not shelved; empty while all rows are there.
  const std::string& ChoiceText() const { return choiceText_; }
  void SetChoiceText(std::string text) { choiceText_ = std::move(text); }

 private:
  struct TableRow {
    RowId id = 0;
    std::shared_ptr<const RowSource> source;
    mutable bool isMade = true;
    mutable RowContent content;
    std::uint64_t version = 0;
  };
  struct Column {
    int width = 0;
    Alignment alignment = Alignment::Left;
  };

  const TableRow& RowAt(int row) const;
  const RowContent& ContentAt(int row) const;
  const Column& ColumnAt(int col) const;
  TableRow& RowAt(int row) { return const_cast<TableRow&>(std::as_const(*this).RowAt(row)); }
  RowContent& ContentAt(int row) {
    return const_cast<RowContent&>(std::as_const(*this).ContentAt(row));
  }
  void Insert(TableRow row, int index);
  TableRow Taken(int index);
  std::deque<TableRow>::iterator OnShelf(RowId id);
  Column& ColumnAt(int col) { return const_cast<Column&>(std::as_const(*this).ColumnAt(col)); }
  void KeepSelectionInside();
  void Changed();

  TableObserver* observer_ = nullptr;
  TableEvents* events_ = nullptr;
  std::deque<TableRow> rows_;
  /// IDs go down here as they do in rows_.
  std::deque<TableRow> shelf_;
  RowId lastId_ = 0;
  std::string choiceText_;
  std::vector<Column> columns_;
  std::uint64_t lastVersion_ = 0;
  int fixedCols_ = 0;
  int row_ = 0;
  int col_ = 0;
  int rowSel_ = 0;
  int colSel_ = 0;
  bool wholeRows_ = false;
  std::uint32_t ruleColor_ = 0;
  std::string emptyText_;
  bool painting_ = true;
  bool changedUnpainted_ = false;
};

}  // namespace sentrel
