#pragma once

#include <QPlainTextEdit>
#include <string_view>

#include "details/message_parts.h"

namespace sentrel {

/// Bytes in hexadecimal and as text, of which some are marked. Used on the event loop only.
class ByteView : public QPlainTextEdit {
  Q_OBJECT
 public:
  explicit ByteView(QWidget* parent = nullptr);

  void Show(std::string_view bytes);
  /// Marks these bytes; none where there are none.
  void Mark(const ByteRange& bytes);
  /// The same, and brings the first of them into view.
  void Reveal(const ByteRange& bytes);
  const ByteRange& Marked() const { return marked_; }
  /// Where the view shows a byte, in the viewport.
  QPoint PlaceOf(std::size_t byte) const;
  /// Wide enough for whole lines.
  QSize sizeHint() const override;

 signals:
  /// The user has put the cursor on a byte.
  void ByteChosen(std::size_t byte);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void TellCursor();
  /// Only of the lines that are seen: a value may have thousands.
  void PaintMarks();
  void UseFixedFont();

  std::size_t size_ = 0;
  ByteRange marked_;
  bool changing_ = false;
};

}  // namespace sentrel
