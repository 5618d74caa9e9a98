#pragma once

#include <gtest/gtest.h>

#include <string>

#include "fakes/registry_access.h"

namespace sentrel {

/// What every Registry keeps to. The parameter gives `Registry& registry()` over an empty store,
/// `Registry& Reopened()`, a registry that finds what the first one has left, and
/// `SetNumber(root, path, name)`, which puts a value that is no text under an existing key.
template <typename Store>
class RegistryContract : public testing::Test {
 protected:
  static constexpr auto kMachine = RegistryRoot::HKEY_LOCAL_MACHINE;
  static constexpr auto kUser = RegistryRoot::HKEY_CURRENT_USER;

  Registry& registry() { return store_.registry(); }

  void Set(RegistryRoot root, const std::string& path, const std::string& name,
           const std::string& text) {
    EXPECT_TRUE(SetText(registry(), root, path, name, text));
  }
  std::string Get(RegistryRoot root, const std::string& path, const std::string& name) {
    return GetText(registry(), root, path, name);
  }
  bool Delete(RegistryRoot root, const std::string& path, const std::string& name) {
    return DeleteText(registry(), root, path, name);
  }

  Store store_;
};

TYPED_TEST_SUITE_P(RegistryContract);

TYPED_TEST_P(RegistryContract, OpenFindsOnlyWhatCreateHasMade) {
  EXPECT_FALSE(this->registry().OpenKey(this->kMachine, "a\\b\\c"));
  EXPECT_FALSE(this->registry().CreateKey(this->kMachine, ""));
  const auto key = this->registry().CreateKey(this->kMachine, "a\\b\\c");
  ASSERT_TRUE(key);
  EXPECT_TRUE(this->registry().CloseKey(*key));
  EXPECT_FALSE(this->registry().CloseKey(*key));
  for (const char* path : {"a\\b\\c", "a\\b", "a", "A\\B\\C"})
    EXPECT_TRUE(HasKey(this->registry(), this->kMachine, path)) << path;
  for (const char* path : {"a\\b\\d", "b", "a\\", "c"})
    EXPECT_FALSE(HasKey(this->registry(), this->kMachine, path)) << path;
  EXPECT_FALSE(HasKey(this->registry(), this->kUser, "a"));
}

TYPED_TEST_P(RegistryContract, AClosedKeyServesNothing) {
  const auto key = this->registry().CreateKey(this->kMachine, "a");
  ASSERT_TRUE(key);
  this->registry().CloseKey(*key);
  EXPECT_FALSE(this->registry().SetStringValue(*key, "x", "1"));
  EXPECT_FALSE(this->registry().QueryStringValue(*key, "x"));
  EXPECT_FALSE(this->registry().DeleteValue(*key, "x"));
}

TYPED_TEST_P(RegistryContract, KeepsAnyText) {
  const std::string texts[] = {"",
                               "True",
                               " blanks ",
                               "M\xC3\xA4rz \xF0\x9F\x94\xA5",
                               "it's; --%",
                               "a\r\nb",
                               "12",
                               std::string("a\0b", 3),
                               std::string(100000, 'x')};
  for (const std::string& text : texts) {
    this->Set(this->kMachine, "a", "x", text);
    EXPECT_EQ(this->Get(this->kMachine, "a", "x"), text);
    EXPECT_EQ(GetText(this->store_.Reopened(), this->kMachine, "a", "x"), text);
  }
}

TYPED_TEST_P(RegistryContract, NamesIgnoreCaseAndRootsAreApart) {
  this->Set(this->kMachine, "Software\\One", "Log Filename", "x.log");
  this->Set(this->kUser, "Software\\One", "Log Filename", "y.log");
  EXPECT_EQ(this->Get(this->kMachine, "SOFTWARE\\one", "LOG filename"), "x.log");
  this->Set(this->kMachine, "SOFTWARE\\one", "LOG filename", "z.log");
  EXPECT_EQ(this->Get(this->kMachine, "Software\\One", "Log Filename"), "z.log");
  EXPECT_EQ(this->Get(this->kUser, "Software\\One", "Log Filename"), "y.log");
}

TYPED_TEST_P(RegistryContract, DeleteTakesOneValueAndLeavesTheKey) {
  this->Set(this->kMachine, "a", "x", "1");
  this->Set(this->kMachine, "a", "y", "2");
  EXPECT_TRUE(this->Delete(this->kMachine, "a", "X"));
  EXPECT_FALSE(this->Delete(this->kMachine, "a", "x"));
  EXPECT_EQ(this->Get(this->kMachine, "a", "x"), "-");
  EXPECT_EQ(GetText(this->store_.Reopened(), this->kMachine, "a", "y"), "2");
  EXPECT_TRUE(this->Delete(this->kMachine, "a", "y"));
  EXPECT_TRUE(HasKey(this->registry(), this->kMachine, "a"));
}

TYPED_TEST_P(RegistryContract, AValueOfAnotherTypeIsNoTextButCanBeReplacedAndDeleted) {
  this->Set(this->kMachine, "a", "x", "1");
  this->store_.SetNumber(this->kMachine, "a", "x");
  EXPECT_EQ(this->Get(this->kMachine, "a", "x"), "-");
  EXPECT_TRUE(this->Delete(this->kMachine, "a", "x"));
  this->store_.SetNumber(this->kMachine, "a", "x");
  this->Set(this->kMachine, "a", "x", "True");
  EXPECT_EQ(this->Get(this->kMachine, "a", "x"), "True");
}

TYPED_TEST_P(RegistryContract, ABatchSeesItsOwnWrites) {
  this->Set(this->kMachine, "a", "x", "1");
  this->registry().BeginBatch(RegistryBatch::Write);
  this->Set(this->kMachine, "a\\b", "y", "2");
  EXPECT_EQ(this->Get(this->kMachine, "a\\b", "y"), "2");
  EXPECT_TRUE(this->Delete(this->kMachine, "a", "x"));
  this->registry().EndBatch();
  this->registry().BeginBatch(RegistryBatch::Read);
  EXPECT_EQ(this->Get(this->kMachine, "a", "x"), "-");
  EXPECT_EQ(this->Get(this->kMachine, "a\\b", "y"), "2");
  this->registry().EndBatch();
  EXPECT_EQ(GetText(this->store_.Reopened(), this->kMachine, "a\\b", "y"), "2");
}

REGISTER_TYPED_TEST_SUITE_P(RegistryContract, OpenFindsOnlyWhatCreateHasMade,
                            AClosedKeyServesNothing, KeepsAnyText, NamesIgnoreCaseAndRootsAreApart,
                            DeleteTakesOneValueAndLeavesTheKey,
                            AValueOfAnotherTypeIsNoTextButCanBeReplacedAndDeleted,
                            ABatchSeesItsOwnWrites);

}  // namespace sentrel
