#include "export/stored_export_memory.h"

#include <gmock/gmock.h>

#include "fakes/fake_registry.h"

namespace sentrel {
namespace {

TEST(StoredExportMemory, KeepsTheColumnsForTheNextRunOfThisUser) {
  FakeRegistry registry;
  EXPECT_EQ(StoredExportMemory(registry).LeftOutColumns(), "");
  StoredExportMemory(registry).SetLeftOutColumns("Community\nIP Address");
  EXPECT_EQ(StoredExportMemory(registry).LeftOutColumns(), "Community\nIP Address");
  for (const auto& [place, values] : registry.contents) {
    EXPECT_EQ(place.first, RegistryRoot::HKEY_CURRENT_USER);
  }
  StoredExportMemory(registry).SetLeftOutColumns("");
  EXPECT_EQ(StoredExportMemory(registry).LeftOutColumns(), "");
}

}  // namespace
}  // namespace sentrel
