#pragma once

#include "platform/printers.h"

namespace sentrel {

class InstalledPrinters : public Printers {
 public:
  int Count() const override;
};

}  // namespace sentrel
