#include "desktop/table/table_view.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>

#include "common/failure.h"
#include "desktop/table/table_accessible.h"

namespace sentrel {
namespace {

constexpr int kMarkAlpha = 110;
constexpr int kDragScrollMilliseconds = 30;
/// Blank pixels at either side of the text of an empty table.
constexpr int kEmptyMargin = 12;
/// From the middle of that text to what is below it.
constexpr int kLinesOfEmptyText = 2;

QFont TableFont() {
  QFont font;
  font.setFamilies({"Arial", "Liberation Sans", font.family()});
  font.setPointSizeF(8.25);
  return font;
}

int ButtonNumber(Qt::MouseButton button) {
  switch (button) {
    case Qt::LeftButton:
      return kLeftButton;
    case Qt::RightButton:
      return kRightButton;
    case Qt::MiddleButton:
      return kMiddleButton;
    default:
      return kNoButton;
  }
}

int ShiftNumber(Qt::KeyboardModifiers keys) {
  return (keys.testFlag(Qt::ShiftModifier) ? 1 : 0) + (keys.testFlag(Qt::ControlModifier) ? 2 : 0) +
         (keys.testFlag(Qt::AltModifier) ? 4 : 0);
}

}  // namespace

TableView::TableView(Table& table, QWidget* parent)
    : QAbstractScrollArea(parent),
      table_(table),
      header_(new QHeaderView(Qt::Horizontal, this)),
      layouts_(table),
      scroller_([this](int row) { return layouts_.Height(row); }),
      pacer_([this] { RunFrame(); }),
      emptyActions_(new QWidget(viewport())) {
  new QHBoxLayout(emptyActions_);
  InstallTableAccessibility();
  setObjectName("Table");
  setAccessibleName(tr("SNMP traps"));
  setFocusPolicy(Qt::StrongFocus);
  setFont(TableFont());
  setFrameShape(QFrame::NoFrame);
  layouts_.SetFont(font());
  verticalScrollBar()->setSingleStep(RowScroller::kUnits);
  SetUpHeader();
  dragScroll_.setInterval(kDragScrollMilliseconds);
  connect(&dragScroll_, &QTimer::timeout, this,
          [this] { DragTo(viewport()->mapFromGlobal(QCursor::pos()).y()); });
  table_.SetObserver(this);
  RunFrame();
}

TableView::~TableView() {
  table_.SetObserver(nullptr);
}

void TableView::SetUpHeader() {
  header_->setModel(&titles_);
  header_->setSectionsClickable(false);
  header_->setHighlightSections(false);
  header_->setFocusPolicy(Qt::NoFocus);
  header_->viewport()->installEventFilter(this);
  connect(header_, &QHeaderView::sectionResized, this, [this](int col, int, int width) {
    if (!syncing_) Attempt([&] { table_.SetColWidth(col, width); });
  });
}

void TableView::TableChanged() {
  const int lastRow = table_.Rows() - 1;
  if (scroller_.LastRow() != lastRow) scroller_.SetExtent(lastRow, viewport()->height());
  pacer_.Request();
}

void TableView::RunFrame() {
  SyncTitles();
  SyncPlaces();
  SyncColumns();
  SyncScrollBars();
  SyncDescription();
  SyncEmptyActions();
  TellChosenRow();
  viewport()->update();
}

void TableView::TellChosenRow() {
  const int row = table_.RowSel();
  if (chosen_.lock() == table_.Source(row)) return;
  chosen_ = table_.Source(row);
  emit RowChosen(row);
}

void TableView::SyncTitles() {
  syncing_ = true;
  titles_.setColumnCount(table_.Cols());
  for (int col = 0; col < table_.Cols(); ++col) {
    const QString title = QString::fromStdString(table_.Cell(0, col));
    if (titles_.headerData(col, Qt::Horizontal).toString() != title) {
      titles_.setHeaderData(col, Qt::Horizontal, title);
    }
    const bool centered = table_.ColAlignment(col) == Alignment::Center;
    titles_.setHeaderData(col, Qt::Horizontal,
                          int(centered ? Qt::AlignCenter : Qt::AlignLeft | Qt::AlignVCenter),
                          Qt::TextAlignmentRole);
  }
  syncing_ = false;
}

void TableView::SyncColumns() {
  syncing_ = true;
  int left = 0;
  std::vector<int> widths;
  for (int col = 0; col < table_.Cols(); ++col) {
    const bool last = col + 1 == table_.Cols();
    const int rest = last ? viewport()->width() - left : 0;
    widths.push_back(std::max(table_.ColWidth(col), rest));
    header_->resizeSection(col, widths.back());
    left += widths.back();
  }
  layouts_.SetColumns(std::move(widths));
  syncing_ = false;
}

void TableView::SyncPlaces() {
  const int headerHeight = std::max(table_.RowHeight(0), header_->sizeHint().height());
  setViewportMargins(0, headerHeight, 0, 0);
  const QRect area = viewport()->geometry();
  header_->setGeometry(area.left(), area.top() - headerHeight, area.width(), headerHeight);
}

void TableView::SyncScrollBars() {
  syncing_ = true;
  scroller_.SetExtent(table_.Rows() - 1, viewport()->height());
  QScrollBar& vertical = *verticalScrollBar();
  const int maximum = scroller_.Maximum();
  vertical.setRange(0, maximum);
  vertical.setPageStep(std::max(scroller_.LastRow() * RowScroller::kUnits - maximum, 1));
  vertical.setValue(scroller_.Value());
  int needed = 0;
  for (int col = 0; col < table_.Cols(); ++col) needed += table_.ColWidth(col);
  QScrollBar& horizontal = *horizontalScrollBar();
  horizontal.setRange(0, std::max(0, needed - viewport()->width()));
  horizontal.setPageStep(viewport()->width());
  header_->setOffset(horizontal.value());
  syncing_ = false;
}

void TableView::SyncDescription() {
  setAccessibleDescription(table_.Rows() == 1 ? QString::fromStdString(table_.EmptyText())
                                              : QString());
}

void TableView::SetMarks(std::vector<QString> words) {
  std::erase(words, QString());
  marks_ = std::move(words);
  viewport()->update();
}

TableView::Place TableView::TopPlace() const {
  const int top = scroller_.TopRow();
  return {top < table_.Rows() ? table_.IdOf(top) : 0, scroller_.PixelsAbove()};
}

void TableView::ReturnTo(const Place& place) {
  if (const int row = table_.RowOf(place.row)) scroller_.GoTo(row, place.pixelsAbove);
  RunFrame();
}

void TableView::AddEmptyAction(const QString& caption, std::function<void()> run) {
  auto* button = new QPushButton(caption);
  button->setAutoDefault(false);
  connect(button, &QPushButton::clicked, this, std::move(run), Qt::QueuedConnection);
  emptyActions_->layout()->addWidget(button);
  SyncEmptyActions();
}

void TableView::SyncEmptyActions() {
  emptyActions_->setVisible(table_.Rows() == 1 && table_.Shelved() == 0 &&
                            emptyActions_->layout()->count() > 0);
  const QSize size = emptyActions_->sizeHint();
  const QPoint middle = viewport()->rect().center();
  const int below = kLinesOfEmptyText * fontMetrics().lineSpacing();
  emptyActions_->setGeometry({{middle.x() - size.width() / 2, middle.y() + below}, size});
}

QRect TableView::CellRect(int row, int col) {
  int top = -scroller_.PixelsAbove();
  if (row < scroller_.TopRow()) return {0, -1, 0, 0};
  for (int above = scroller_.TopRow(); above < row && top < viewport()->height(); ++above) {
    top += layouts_.Height(above);
  }
  return {header_->sectionViewportPosition(col), top, header_->sectionSize(col),
          layouts_.Height(row)};
}

void TableView::paintEvent(QPaintEvent*) {
  QPainter painter(viewport());
  if (table_.Rows() == 1) return PaintEmpty(painter);
  int top = -scroller_.PixelsAbove();
  for (int row = scroller_.TopRow(); row < table_.Rows() && top < viewport()->height(); ++row) {
    PaintRow(painter, row, top);
    top += layouts_.Height(row);
  }
}

void TableView::PaintRow(QPainter& painter, int row, int top) {
  const RowLayout& layout = layouts_.Of(row);
  const int width = viewport()->width();
  const auto group = hasFocus() ? QPalette::Active : QPalette::Inactive;
  const bool selected = IsSelected(row);
  if (selected) {
    painter.fillRect(0, top, width, layout.height, palette().brush(group, QPalette::Highlight));
  }
  painter.setPen(palette().color(group, selected ? QPalette::HighlightedText : QPalette::Text));
  QColor marks = selected ? painter.pen().color() : palette().color(group, QPalette::Highlight);
  marks.setAlpha(kMarkAlpha);
  for (int col = 0; col < table_.Cols(); ++col) {
    const QRect cell(header_->sectionViewportPosition(col), top, header_->sectionSize(col),
                     layout.height);
    PaintCell(painter, cell, layout.cells[static_cast<size_t>(col)], table_.ColAlignment(col),
              marks);
  }
  painter.setClipping(false);
  painter.setPen(QColor::fromRgb(table_.RuleColor()));
  painter.drawLine(0, top + layout.height - 1, width, top + layout.height - 1);
}

/// Behind the text, in the colour of a selection, half mixed in; on selected rows in that of the
/// text.
void TableView::PaintMarks(QPainter& painter, const QString& line, const QPoint& topLeft,
                           const QColor& color) const {
  const QFontMetrics metrics = painter.fontMetrics();
  for (const QString& word : marks_) {
    for (auto at = line.indexOf(word, 0, Qt::CaseInsensitive); at >= 0;
         at = line.indexOf(word, at + word.size(), Qt::CaseInsensitive)) {
      const int left = metrics.horizontalAdvance(line.left(at));
      const int width = metrics.horizontalAdvance(line.left(at + word.size())) - left;
      painter.fillRect(topLeft.x() + left, topLeft.y(), width, metrics.height(), color);
    }
  }
}

void TableView::PaintCell(QPainter& painter, const QRect& cell, const std::vector<CellLine>& lines,
                          Alignment alignment, const QColor& marks) {
  const QFontMetrics metrics = painter.fontMetrics();
  const int pitch = layouts_.LinePitch();
  const int lead = (pitch - metrics.height()) / 2;
  const QRect room = cell.adjusted(RowLayouts::kMarginX, 0, -RowLayouts::kMarginX, 0);
  const int textHeight = static_cast<int>(lines.size()) * pitch;
  int top = cell.top() + (cell.height() - textHeight) / 2;
  // Marks that pile up on a letter would reach other rows.
  painter.setClipRect(cell);
  for (const auto& [text, advance] : lines) {
    if (top > viewport()->height()) break;
    if (top + pitch >= 0) {
      const int slack = room.width() - advance;
      const bool centered = alignment == Alignment::Center && slack > 0;
      const int left = centered ? room.left() + slack / 2 : room.left();
      const QString line =
          slack < 0 ? metrics.elidedText(text, Qt::ElideRight, room.width()) : text;
      PaintMarks(painter, line, {left, top + lead}, marks);
      painter.drawText(left, top + lead + metrics.ascent(), line);
    }
    top += pitch;
  }
}

void TableView::PaintEmpty(QPainter& painter) {
  painter.setPen(palette().color(QPalette::Text));
  painter.drawText(viewport()->rect().adjusted(kEmptyMargin, 0, -kEmptyMargin, 0),
                   Qt::AlignCenter | Qt::TextWordWrap,
                   table_.Shelved() > 0 ? "No trap fits the filter."
                                        : QString::fromStdString(table_.EmptyText()));
}

bool TableView::IsSelected(int row) const {
  return row >= std::min(table_.Row(), table_.RowSel()) &&
         row <= std::max(table_.Row(), table_.RowSel());
}

void TableView::resizeEvent(QResizeEvent* event) {
  QAbstractScrollArea::resizeEvent(event);
  RunFrame();
}

void TableView::changeEvent(QEvent* event) {
  QAbstractScrollArea::changeEvent(event);
  if (event->type() != QEvent::FontChange) return;
  layouts_.SetFont(font());
  RunFrame();
}

void TableView::scrollContentsBy(int, int dy) {
  if (syncing_) return;
  if (dy != 0) scroller_.SetValue(verticalScrollBar()->value());
  header_->setOffset(horizontalScrollBar()->value());
  viewport()->update();
}

void TableView::wheelEvent(QWheelEvent* event) {
  const QPoint pixels = event->pixelDelta();
  const QPoint angle = event->angleDelta();
  if (angle.x() != 0 && angle.y() == 0) return QAbstractScrollArea::wheelEvent(event);
  constexpr int kAngleOfNotch = 120;
  const int linesPerNotch = 3 * QFontMetrics(font()).lineSpacing();
  scroller_.ScrollBy(pixels.isNull() ? -angle.y() * linesPerNotch / kAngleOfNotch : -pixels.y());
  SyncScrollBars();
  viewport()->update();
  event->accept();
}

void TableView::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier) {
    return PressMenuKey();
  }
  const bool opens = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (opens && table_.RowSel() > 0) return emit RowOpened(table_.RowSel());
  const int target = KeyTarget(event->key());
  if (target < 1) return QAbstractScrollArea::keyPressEvent(event);
  MoveCursorTo(target, event->modifiers().testFlag(Qt::ShiftModifier));
}

int TableView::KeyTarget(int key) const {
  const int lastRow = table_.Rows() - 1;
  const int page = std::max(scroller_.BottomRow() - scroller_.TopRow() - 1, 1);
  const auto moved = [&](int rows) { return std::clamp(table_.RowSel() + rows, 1, lastRow); };
  if (lastRow < 1) return 0;
  switch (key) {
    case Qt::Key_Up:
      return moved(-1);
    case Qt::Key_Down:
      return moved(1);
    case Qt::Key_PageUp:
      return moved(-page);
    case Qt::Key_PageDown:
      return moved(page);
    case Qt::Key_Home:
      return 1;
    case Qt::Key_End:
      return lastRow;
    default:
      return 0;
  }
}

void TableView::MoveCursorTo(int row, bool extend) {
  if (row < 1) return;
  extend ? table_.SetRowSel(row) : table_.SetRow(row);
  Reveal(row);
}

void TableView::Reveal(int row) {
  if (row < 1) return;
  scroller_.MakeVisible(row);
  RunFrame();
}

void TableView::contextMenuEvent(QContextMenuEvent* event) {
  if (event->reason() == QContextMenuEvent::Keyboard) PressMenuKey();
}

void TableView::PressMenuKey() {
  const QRect row = table_.Rows() > 1 ? CellRect(std::max(table_.Row(), 1), 0) : QRect();
  const QRect seen = row.intersected(viewport()->rect());
  emit MenuKeyPressed(seen.isEmpty() ? QPoint() : seen.center());
}

void TableView::mousePressEvent(QMouseEvent* event) {
  TellMouseDown(*event, event->pos());
  if (event->button() != Qt::LeftButton) return;
  MoveCursorTo(RowAt(event->pos().y()), event->modifiers().testFlag(Qt::ShiftModifier));
}

bool TableView::eventFilter(QObject* watched, QEvent* event) {
  if (watched == header_->viewport() && event->type() == QEvent::MouseButtonPress) {
    const auto& press = static_cast<const QMouseEvent&>(*event);
    TellMouseDown(press, press.pos() - QPoint(0, header_->height()));
  }
  return QAbstractScrollArea::eventFilter(watched, event);
}

void TableView::TellMouseDown(const QMouseEvent& event, const QPoint& place) {
  table_.MouseDown(ButtonNumber(event.button()), ShiftNumber(event.modifiers()), place.x(),
                   place.y());
}

void TableView::mouseMoveEvent(QMouseEvent* event) {
  if (!event->buttons().testFlag(Qt::LeftButton)) return;
  const int y = event->pos().y();
  const bool outside = y < 0 || y >= viewport()->height();
  if (outside && !dragScroll_.isActive()) dragScroll_.start();
  if (!outside) dragScroll_.stop();
  DragTo(y);
}

void TableView::mouseReleaseEvent(QMouseEvent*) {
  dragScroll_.stop();
}

void TableView::mouseDoubleClickEvent(QMouseEvent* event) {
  mousePressEvent(event);
  const int row = RowAt(event->pos().y());
  if (event->button() == Qt::LeftButton && row > 0) emit RowOpened(row);
}

void TableView::DragTo(int y) {
  if (y < 0) scroller_.ScrollBy(y);
  if (y >= viewport()->height()) scroller_.ScrollBy(y - viewport()->height() + 1);
  const int row = RowAt(std::clamp(y, 0, viewport()->height() - 1));
  if (row < 1) return;
  table_.SetRowSel(row);
  RunFrame();
}

}  // namespace sentrel
