#pragma once

#include <QWidget>
#include <string>

#include "platform/export_memory.h"
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

/// Remembers for the length of the run.
class RunExportMemory : public ExportMemory {
 public:
  std::string LeftOutColumns() const override { return leftOut_; }
  void SetLeftOutColumns(const std::string& titles) override { leftOut_ = titles; }

 private:
  std::string leftOut_;
};

}  // namespace sentrel
