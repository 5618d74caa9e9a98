#include "desktop/window/window_place.h"

#include <QScreen>

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

QByteArray WindowPlace::Save() const {
  return window_.isVisible() ? window_.saveGeometry() : restored_;
}

void WindowPlace::Restore(const QByteArray& packed) {
  if (window_.restoreGeometry(packed)) restored_ = packed;
  BringIntoView(window_);
}

}  // namespace sentrel
