#include "fakes/fake_registry.h"

#include "fakes/registry_contract.h"

namespace sentrel {
namespace {

class InMemory {
 public:
  FakeRegistry& registry() { return registry_; }
  FakeRegistry& Reopened() {
    reopened_.contents = registry_.contents;
    return reopened_;
  }
  void SetNumber(RegistryRoot root, const std::string& path, const std::string& name) {
    registry_.contents.at({root, UpperCase(path)})[UpperCase(name)] = 1;
  }

 private:
  FakeRegistry registry_;
  FakeRegistry reopened_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Fake, RegistryContract, InMemory);

TEST(FakeRegistry, FailsOnDemand) {
  FakeRegistry registry;
  const auto key = registry.CreateKey(RegistryRoot::HKEY_LOCAL_MACHINE, "a");
  ASSERT_TRUE(key);
  ASSERT_TRUE(registry.SetStringValue(*key, "x", "1"));
  registry.readOnly = true;
  EXPECT_FALSE(registry.SetStringValue(*key, "x", "2"));
  EXPECT_FALSE(registry.DeleteValue(*key, "x"));
  EXPECT_FALSE(registry.CreateKey(RegistryRoot::HKEY_LOCAL_MACHINE, "b"));
  EXPECT_EQ(registry.QueryStringValue(*key, "x"), "1");
  registry.unreachable = true;
  EXPECT_FALSE(registry.QueryStringValue(*key, "x"));
  EXPECT_FALSE(registry.OpenKey(RegistryRoot::HKEY_LOCAL_MACHINE, "a"));
  EXPECT_EQ(registry.changes, 1);
}

}  // namespace
}  // namespace sentrel
