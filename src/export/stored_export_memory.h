#pragma once

#include <string>

#include "platform/export_memory.h"
#include "settings/registry_support.h"

namespace sentrel {

/// Keeps the choices in the user's tree of the store.
class StoredExportMemory : public ExportMemory {
 public:
  explicit StoredExportMemory(Registry& registry) : store_(registry) {}
  std::string LeftOutColumns() const override;
  void SetLeftOutColumns(const std::string& titles) override;

 private:
  RegistrySupport store_;
};

}  // namespace sentrel
