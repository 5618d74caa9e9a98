#include "store/store_paths.h"

#include "store_folder.h"

namespace sentrel {
namespace {

TEST(StorePaths, FollowTheConventionForStateFiles) {
  ExpectSuccess(Start([] {
    EXPECT_EQ(MachineStateFolder(), "/var/lib/sentrel");
    setenv("HOME", "/home/ann", 1);
    setenv("XDG_STATE_HOME", "/state", 1);
    EXPECT_EQ(UserStateFolder(), "/state/sentrel");
    for (const char* value : {"", "relative"}) {
      setenv("XDG_STATE_HOME", value, 1);
      EXPECT_EQ(UserStateFolder(), "/home/ann/.local/state/sentrel");
    }
    unsetenv("XDG_STATE_HOME");
    EXPECT_EQ(UserStateFolder(), "/home/ann/.local/state/sentrel");
    unsetenv("HOME");
    EXPECT_TRUE(UserStateFolder().is_absolute());
  }));
}

}  // namespace
}  // namespace sentrel
