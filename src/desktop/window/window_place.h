#pragma once

#include <QByteArray>
#include <QWidget>

namespace sentrel {

/// Gives a window that is not shown yet a size, or what the screen has room for besides its frame.
void ResizeOnScreen(QWidget& window, const QSize& size);

/// Where the main window is on the screen, and how large, from one run to the next. Used on the
/// event loop only.
class WindowPlace {
 public:
  /// The window must outlive this.
  explicit WindowPlace(QWidget& window) : window_(window) {}

  /// As the toolkit packs it. A window that was never shown has no place of its own yet: it keeps
  /// the one that was restored, and none where there was none.
  QByteArray Save() const;
  /// Brings the window into view where it would lie outside the screen. What the toolkit did not
  /// pack, or nothing at all, leaves the window as it is.
  void Restore(const QByteArray& packed);

 private:
  QWidget& window_;
  QByteArray restored_;
};

}  // namespace sentrel
