#include "store/store_paths.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>
#include <string>

namespace sentrel {
namespace {

class Variable {
 public:
  Variable(const char* name, const char* value) : name_(name) {
    if (const char* before = std::getenv(name)) before_ = before;
    value ? setenv(name, value, 1) : unsetenv(name);
  }
  ~Variable() { before_ ? setenv(name_, before_->c_str(), 1) : unsetenv(name_); }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;

 private:
  const char* name_;
  std::optional<std::string> before_;
};

TEST(StorePaths, FollowTheConventionForStateFiles) {
  EXPECT_EQ(MachineStateFolder(), "/var/lib/sentrel");
  const Variable home("HOME", "/home/ann");
  {
    const Variable state("XDG_STATE_HOME", "/state");
    EXPECT_EQ(UserStateFolder(), "/state/sentrel");
  }
  for (const char* value : {static_cast<const char*>(nullptr), "", "relative"}) {
    const Variable state("XDG_STATE_HOME", value);
    EXPECT_EQ(UserStateFolder(), "/home/ann/.local/state/sentrel");
  }
  const Variable noState("XDG_STATE_HOME", nullptr);
  const Variable noHome("HOME", nullptr);
  EXPECT_TRUE(UserStateFolder().is_absolute());
}

}  // namespace
}  // namespace sentrel
