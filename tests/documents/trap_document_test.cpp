#include "documents/trap_document.h"

#include <gtest/gtest.h>

#include "common/failure.h"
#include "fakes/shell.h"

namespace sentrel {
namespace {

SavedTrap Example() {
  return {"noc",
          "Linux 6.1",
          "2001:db8::1",
          "a::b",
          {"1.3.6.1.2.1.1.3.0", "1.3.6.1.4.1.9.2"},
          {67, 4},
          {"12345", "\"Grüße\"\r\n\\=::"}};
}

TEST(TrapDocument, HoldsAllThatATrapNeedsInOrder) {
  EXPECT_EQ(TrapDocument(Example()), ReadFile(TEST_DATA "/saved_trap.json"));
  EXPECT_NE(TrapDocument(SavedTrap{}).find("\"bindings\": []"), std::string::npos);
  SavedTrap unseen;
  unseen.TrapCommunity = "a\u202Eb\U000E0041\x7F";
  EXPECT_NE(TrapDocument(unseen).find(R"("a\u202Eb\uDB40\uDC41\u007F")"), std::string::npos);
}

TEST(TrapDocument, AFailedWriteLeavesTheOldFileWhole) {
  const TemporaryFolder folder;
  const std::string path = folder / "Link down.Trap";
  TrapDocumentWriter writer;
  writer.Write(path, Example());
  EXPECT_EQ(ReadFile(path), TrapDocument(Example()));
  EXPECT_EQ(std::filesystem::status(path).permissions(),
            std::filesystem::perms::owner_read | std::filesystem::perms::owner_write)
      << "it holds the community";
  SavedTrap broken = Example();
  broken.TrapCommunity = "\xFF";
  EXPECT_THROW(writer.Write(path, broken), Failure);
  EXPECT_EQ(ReadFile(path), TrapDocument(Example()));
  EXPECT_EQ(folder.Files(), 1);
}

}  // namespace
}  // namespace sentrel
