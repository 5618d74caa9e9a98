#include "desktop/window/window_place.h"

#include <QScreen>
#include <QStyle>

namespace sentrel {
namespace {

/// A window that cannot be seen could not be moved back either.
void BringIntoView(QWidget& window) {
  const QRect room = window.screen()->availableGeometry();
  if (room.intersects(window.geometry())) return;
  const QSize size = window.size().expandedTo(window.minimumSizeHint()).boundedTo(room.size());
  window.setGeometry(QRect(room.topLeft(), size));
}

}  // namespace

/// The window manager's frame is unknown before the window is shown; the style's comes close.
void ResizeOnScreen(QWidget& window, const QSize& size) {
  const int title = window.style()->pixelMetric(QStyle::PM_TitleBarHeight);
  const int edge = window.style()->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth);
  const QSize frame(2 * edge, title + 2 * edge);
  window.resize(size.boundedTo(window.screen()->availableSize() - frame));
}

QByteArray WindowPlace::Save() const {
  return window_.isVisible() ? window_.saveGeometry() : restored_;
}

void WindowPlace::Restore(const QByteArray& packed) {
  if (window_.restoreGeometry(packed)) restored_ = packed;
  BringIntoView(window_);
}

}  // namespace sentrel
