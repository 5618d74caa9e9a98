#include "export/stored_export_memory.h"

namespace sentrel {
namespace {

constexpr const char* kSection = "Export";
constexpr const char* kLeftOut = "Left Out Columns";

}  // namespace

std::string StoredExportMemory::LeftOutColumns() const {
  return store_.ReadRegistryValue(kApplicationDescription, kSection, kLeftOut, "", true);
}

void StoredExportMemory::SetLeftOutColumns(const std::string& titles) {
  store_.SaveRegistryValue(kApplicationDescription, kSection, kLeftOut, titles, true);
}

}  // namespace sentrel
