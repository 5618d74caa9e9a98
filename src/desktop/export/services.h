#pragma once

#include <QWidget>

#include "platform/mouse_pointer.h"
#include "platform/printers.h"

namespace sentrel {

class QtPrinters : public Printers {
 public:
  int Count() const override;
};

class QtMousePointer : public MousePointer {
 public:
  /// The window must outlive the pointer.
  explicit QtMousePointer(QWidget& window) : window_(window) {}
  void SetHourglass(bool on) override;

 private:
  QWidget& window_;
};

}  // namespace sentrel
