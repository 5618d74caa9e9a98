#pragma once

#include <QWidget>

#include "platform/mouse_pointer.h"

namespace sentrel {

class WaitCursor : public MousePointer {
 public:
  /// The window must outlive the pointer.
  explicit WaitCursor(QWidget& window) : window_(window) {}
  void SetHourglass(bool on) override;

 private:
  QWidget& window_;
};

}  // namespace sentrel
