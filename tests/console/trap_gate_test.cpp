#include "console/trap_gate.h"

#include "console_fixture.h"

namespace sentrel {
namespace {

struct TrapGateTest : ConsoleTest {
  bool Accepts(const std::string& source, const std::string& community) {
    const int before = table.Rows();
    const int starts = timer.starts;
    gate.OnTrap(Trap{source, community, {"1.3.6"}, {4}, {"x"}});
    const bool accepted = table.Rows() > before;
    EXPECT_EQ(timer.starts > starts, accepted) << "only an accepted trap restarts the timer";
    return accepted;
  }
};

TEST_F(TrapGateTest, WithNoFilterEveryTrapPassesAndPausedNone) {
  EXPECT_TRUE(Accepts("192.0.2.7", "public"));
  EXPECT_TRUE(Accepts("2001:db8::1", ""));
  const int made = mibs.made;
  settings.SetPaused(true);
  decoder.Forget();
  EXPECT_FALSE(Accepts("192.0.2.7", "public"));
  EXPECT_EQ(mibs.made, made) << "nothing of a refused trap is looked up";
}

TEST_F(TrapGateTest, TheDeviceFilterHasASwitchOfItsOwn) {
  settings.DeviceFilters()->AddFilter("192.0.2.0/24");
  EXPECT_TRUE(Accepts("10.0.0.1", "public")) << "the list is not consulted while it is off";
  settings.SetDeviceFilterActive(true);
  EXPECT_TRUE(Accepts("192.0.2.255", "public"));
  EXPECT_FALSE(Accepts("10.0.0.1", "public"));
  EXPECT_FALSE(Accepts("2001:db8::1", "public"));
  settings.Ipv6DeviceFilters()->AddFilter("2001:db8::/32");
  EXPECT_TRUE(Accepts("2001:db8::1", "public"));
  EXPECT_FALSE(Accepts("2001:db9::1", "public"));
  settings.DeviceFilters()->Clear();
  EXPECT_FALSE(Accepts("192.0.2.7", "public")) << "an empty list refuses all";
}

TEST_F(TrapGateTest, TheCommunityFilterIsOnWhileItsListHasEntries) {
  settings.CommunityStrings()->Add("public");
  EXPECT_TRUE(Accepts("192.0.2.7", "public"));
  for (const char* other : {"private", "PUBLIC", "public ", ""}) {
    EXPECT_FALSE(Accepts("192.0.2.7", other)) << other;
  }
  settings.CommunityStrings()->Clear();
  EXPECT_TRUE(Accepts("192.0.2.7", "private"));
}

TEST_F(TrapGateTest, AFailureWhileTheRowIsBuiltIsContained) {
  table.SetCols(2);  // no room for the community
  gate.OnTrap(TrapOf({}));
  EXPECT_TRUE(timer.enabled);
}

TEST_F(TrapGateTest, TheCacheIsCheckedInQuietTimesOnly) {
  using std::chrono::seconds;
  settings.SetOIDCacheSize(0);
  const auto decodesAnew = [&] {
    const int made = mibs.made;
    decoder.GetOID("1.3.6.1");
    return mibs.made > made;
  };
  timer.Pass(seconds(60));
  decodesAnew();
  EXPECT_FALSE(decodesAnew()) << "no trap, no check";
  for (int i = 0; i < 3; ++i) {
    gate.OnTrap(TrapOf({}));
    timer.Pass(seconds(29));
    EXPECT_FALSE(decodesAnew());
  }
  timer.Pass(seconds(1));
  EXPECT_TRUE(decodesAnew());
  timer.Pass(seconds(30));
  EXPECT_TRUE(decodesAnew()) << "and every 30 seconds from then on";
}

}  // namespace
}  // namespace sentrel
