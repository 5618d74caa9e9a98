#include "desktop/details/byte_view.h"

#include <QFontDatabase>
#include <QScrollBar>
#include <QTextBlock>
#include <algorithm>

#include "details/byte_lines.h"

namespace sentrel {
namespace {

constexpr int kUsualLines = 12;

/// Says that the program, and not the user, moves the cursor as long as this lives.
class Change {
 public:
  explicit Change(bool& changing) : changing_(changing) { changing_ = true; }
  ~Change() { changing_ = false; }
  Change(const Change&) = delete;
  Change& operator=(const Change&) = delete;

 private:
  bool& changing_;
};

}  // namespace

ByteView::ByteView(QWidget* parent) : QPlainTextEdit(parent) {
  setObjectName("Bytes");
  setAccessibleName(tr("Bytes"));
  setReadOnly(true);
  setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  setLineWrapMode(NoWrap);
  setUndoRedoEnabled(false);
  setTabChangesFocus(true);
  UseFixedFont();
  connect(this, &QPlainTextEdit::cursorPositionChanged, this, &ByteView::TellCursor);
  connect(verticalScrollBar(), &QScrollBar::valueChanged, this, &ByteView::PaintMarks);
}

void ByteView::UseFixedFont() {
  QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  fixed.setPointSizeF(font().pointSizeF());
  document()->setDefaultFont(fixed);
}

void ByteView::changeEvent(QEvent* event) {
  QPlainTextEdit::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) PaintMarks();
}

void ByteView::Show(std::string_view bytes) {
  const Change change(changing_);
  size_ = bytes.size();
  marked_ = {};
  setPlainText(QString::fromStdString(ByteLines(bytes)));
  setExtraSelections({});
}

void ByteView::Mark(const ByteRange& bytes) {
  marked_ = bytes;
  PaintMarks();
}

void ByteView::Reveal(const ByteRange& bytes) {
  const Change change(changing_);
  if (bytes.Size() > 0) {
    QTextCursor cursor(document());
    cursor.setPosition(static_cast<int>(DigitsOf(bytes.begin)));
    setTextCursor(cursor);
  }
  Mark(bytes);
}

QSize ByteView::sizeHint() const {
  const QFontMetrics metrics(document()->defaultFont());
  const auto characters = static_cast<int>(CharacterOf(kBytesOfLine - 1)) + 2;
  const int around = 2 * (frameWidth() + static_cast<int>(document()->documentMargin()));
  return {characters * metrics.horizontalAdvance('0') + around +
              verticalScrollBar()->sizeHint().width(),
          kUsualLines * metrics.lineSpacing() + around};
}

QPoint ByteView::PlaceOf(std::size_t byte) const {
  QTextCursor cursor(document());
  cursor.setPosition(static_cast<int>(DigitsOf(byte)) + 1);
  return cursorRect(cursor).center();
}

void ByteView::TellCursor() {
  if (changing_ || textCursor().hasSelection()) return;
  const auto byte = ByteAt(static_cast<std::size_t>(textCursor().position()));
  if (byte && *byte < size_) emit ByteChosen(*byte);
}

void ByteView::PaintMarks() {
  const auto top = static_cast<std::size_t>(std::max(firstVisibleBlock().blockNumber(), 0));
  const auto lines = static_cast<std::size_t>(viewport()->height() / fontMetrics().height()) + 2;
  const std::size_t end = std::min(marked_.end, (top + lines) * kBytesOfLine);
  QList<QTextEdit::ExtraSelection> marks;
  const auto mark = [&](std::size_t begin, std::size_t behind) {
    QTextEdit::ExtraSelection selection;
    selection.format.setBackground(palette().brush(QPalette::Active, QPalette::Highlight));
    selection.format.setForeground(palette().brush(QPalette::Active, QPalette::HighlightedText));
    selection.cursor = QTextCursor(document());
    selection.cursor.setPosition(static_cast<int>(begin));
    selection.cursor.setPosition(static_cast<int>(behind), QTextCursor::KeepAnchor);
    marks.append(selection);
  };
  for (std::size_t byte = std::max(marked_.begin, top * kBytesOfLine); byte < end;) {
    const std::size_t behind = std::min(end, (byte / kBytesOfLine + 1) * kBytesOfLine);
    mark(DigitsOf(byte), DigitsOf(behind - 1) + 2);
    mark(CharacterOf(byte), CharacterOf(behind - 1) + 1);
    byte = behind;
  }
  setExtraSelections(marks);
}

}  // namespace sentrel
