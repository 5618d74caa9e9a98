#include "desktop/export/services.h"

#include <QPrinterInfo>

namespace sentrel {

int QtPrinters::Count() const {
  return static_cast<int>(QPrinterInfo::availablePrinterNames().size());
}

void QtMousePointer::SetHourglass(bool on) {
  if (on) {
    window_.setCursor(Qt::WaitCursor);
  } else {
    window_.unsetCursor();
  }
}

}  // namespace sentrel
