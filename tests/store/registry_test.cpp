// What every registry promises, of the real one and of the one that other tests use in its place.

#include "platform/registry.h"

#include "fakes/fake_registry.h"
#include "store_folder.h"

namespace sentrel {
namespace {

struct InMemory {
  void OutOfReach(const std::function<void()>& step) {
    registry.unreachable = true;
    step();
    registry.unreachable = false;
  }
  bool WriteThatFails() {
    registry.readOnly = true;
    const bool written = SetText(registry, kMachine, "a", "lost", "1");
    registry.readOnly = false;
    return written;
  }

  FakeRegistry registry;
};

struct InFiles {
  void OutOfReach(const std::function<void()>& step) {
    EXPECT_TRUE(SetText(registry, kUser, "makes the file", "x", "1"));
    const Occupied machine(folder.Machine());
    const Occupied user(folder.User());
    step();
  }
  bool WriteThatFails() {
    return SetText(registry, kMachine, "a", "lost", std::string(2 << 20, 'x'));
  }

  StoreFolder folder;
  SqliteRegistry registry = folder.Registry();
};

template <typename Store>
struct RegistryTest : testing::Test {
  bool Set(const std::string& name, const std::string& text) {
    return SetText(registry, kMachine, "a", name, text);
  }
  std::string Get(const std::string& name) { return GetText(registry, kMachine, "a", name); }
  bool Delete(const std::string& name) { return DeleteText(registry, kMachine, "a", name); }
  bool HasKey(RegistryRoot root, const std::string& path) {
    const auto key = registry.OpenKey(root, path);
    return key && registry.CloseKey(*key);
  }

  Store store;
  Registry& registry = store.registry;
};
using Stores = testing::Types<InMemory, InFiles>;
TYPED_TEST_SUITE(RegistryTest, Stores);

TYPED_TEST(RegistryTest, OpensOnlyWhatWasMadeWithItsParents) {
  Registry& tested = this->registry;
  EXPECT_FALSE(tested.OpenKey(kMachine, "a\\b\\c"));
  EXPECT_FALSE(tested.CreateKey(kMachine, ""));
  const auto key = tested.CreateKey(kMachine, "a\\b\\c");
  ASSERT_TRUE(key);
  EXPECT_TRUE(tested.CloseKey(*key));
  for (const char* path : {"a\\b\\c", "a\\b", "a", "A\\B\\C"})
    EXPECT_TRUE(this->HasKey(kMachine, path)) << path;
  for (const char* path : {"a\\b\\d", "b", "a\\", "c", ""})
    EXPECT_FALSE(this->HasKey(kMachine, path)) << path;
  EXPECT_FALSE(this->HasKey(kUser, "a"));

  EXPECT_FALSE(tested.CloseKey(*key)) << "a closed key serves nothing";
  EXPECT_FALSE(tested.SetStringValue(*key, "x", "1"));
  EXPECT_FALSE(tested.QueryStringValue(*key, "x"));
  EXPECT_FALSE(tested.DeleteValue(*key, "x"));
}

TYPED_TEST(RegistryTest, KeepsAnyText) {
  using namespace std::string_literals;
  const std::string texts[] = {
      "",   " blanks ", "M\xC3\xA4rz \xF0\x9F\x94\xA5", "it's; --%", "a\r\nb",
      "12", "a\0b"s,    std::string(100000, 'x')};
  for (const std::string& text : texts) {
    EXPECT_TRUE(this->Set("x", text));
    EXPECT_EQ(this->Get("x"), text);
  }
}

TYPED_TEST(RegistryTest, NamesIgnoreTheCaseOfAsciiLettersAndRootsAreApart) {
  Registry& tested = this->registry;
  EXPECT_TRUE(SetText(tested, kMachine, "Software\\One", "Log \xC3\xA4", "x.log"));
  EXPECT_TRUE(SetText(tested, kUser, "Software\\One", "Log \xC3\xA4", "y.log"));
  EXPECT_TRUE(SetText(tested, kMachine, "SOFTWARE\\one", "LOG \xC3\xA4", "z.log"));
  EXPECT_EQ(GetText(tested, kMachine, "Software\\One", "Log \xC3\xA4"), "z.log");
  EXPECT_EQ(GetText(tested, kMachine, "Software\\One", "Log \xC3\x84"), "-");
  EXPECT_EQ(GetText(tested, kUser, "Software\\One", "Log \xC3\xA4"), "y.log");
}

TYPED_TEST(RegistryTest, DeleteTakesOneValueAndLeavesTheKey) {
  this->Set("x", "1");
  this->Set("y", "2");
  EXPECT_TRUE(this->Delete("X"));
  EXPECT_FALSE(this->Delete("x"));
  EXPECT_EQ(this->Get("x") + this->Get("y"), "-2");
  EXPECT_TRUE(this->Delete("y"));
  EXPECT_TRUE(this->HasKey(kMachine, "a"));
}

TYPED_TEST(RegistryTest, ABatchSeesItsOwnWritesAndReachesTheStoreWholeOrNotAtAll) {
  for (const bool failing : {false, true}) {
    this->Set("x", "1");
    this->Set("y", "old");
    this->registry.BeginBatch(RegistryBatch::Write);
    EXPECT_TRUE(this->Set("y", "new") && this->Delete("x"));
    EXPECT_EQ(this->Get("x") + this->Get("y"), "-new");
    EXPECT_FALSE(failing && this->store.WriteThatFails());
    EXPECT_EQ(this->registry.EndBatch(), !failing);
    EXPECT_EQ(this->Get("x") + this->Get("y"), failing ? "1old" : "-new");
  }
}

TYPED_TEST(RegistryTest, ABatchOfReadsTakesNoWrites) {
  this->Set("x", "old");
  for (const auto kind : {RegistryBatch::Read, RegistryBatch::PatientRead}) {
    this->registry.BeginBatch(kind);
    EXPECT_EQ(this->Get("x"), "old");
    EXPECT_FALSE(this->Set("x", "new") || this->Delete("x"));
    EXPECT_FALSE(SetText(this->registry, kMachine, "b", "x", "new"));
    EXPECT_TRUE(this->registry.EndBatch());
  }
  EXPECT_EQ(this->Get("x"), "old");
  EXPECT_FALSE(this->HasKey(kMachine, "b"));
}

TYPED_TEST(RegistryTest, WhatIsOutOfReachCannotBeOpenedUntilItIsReadAgain) {
  this->Set("x", "old");
  this->store.OutOfReach([this] {
    EXPECT_FALSE(this->HasKey(kMachine, "a"));
    EXPECT_TRUE(this->registry.IsUnreachable(kMachine, "A"));
    EXPECT_FALSE(this->Set("x", "new"));
  });
  EXPECT_EQ(this->Get("x"), "old");
  EXPECT_FALSE(this->registry.IsUnreachable(kMachine, "a"));
}

}  // namespace
}  // namespace sentrel
