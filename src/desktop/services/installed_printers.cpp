#include "desktop/services/installed_printers.h"

#include <QPrinterInfo>

namespace sentrel {

int InstalledPrinters::Count() const {
  return static_cast<int>(QPrinterInfo::availablePrinterNames().size());
}

}  // namespace sentrel
