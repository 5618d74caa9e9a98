#include "listener_fixture.h"

namespace sentrel::test {
namespace {

using HostileDatagramTest = ListenerTest;

TEST_F(HostileDatagramTest, HundredThousandMutationsLeaveTheListenerWell) {
  constexpr std::size_t kCount = 100'000;
  const std::vector<std::string> seeds = FilesIn(CORPUS);
  std::mt19937 random(20'240'711);
  Start(
      "createUser -e 0x8000000001020304 plain\n"
      "createUser -e 0x8000000001020304 sha SHA auth-pass-phrase\n"
      "createUser -e 0x8000000001020304 aes SHA-256 auth-pass-phrase AES priv-pass-phrase\n");
  const UdpSocket sender(Listener().Port());
  sender.Send("");
  for (std::size_t sent = 1; sent < kCount; ++sent) {
    sender.Send(Mutated(seeds[random() % seeds.size()], 8, random));
    while (sent > Listener().Counters().Received() + 200) Listener().Deliver({});
  }
  EXPECT_TRUE(WaitUntil([&] { return Listener().Counters().Received() == kCount; }));
  EXPECT_TRUE(WaitUntil([&] { return traps_.size() == Count(Outcome::kAccepted); }));
  EXPECT_GT(Count(Outcome::kMalformed), kCount / 20) << "the mutations must reach the parser";
  EXPECT_EQ(Send(SNMPTRAP, {"-v2c", "-c", "good", "HOST", "1", "1.3.6.1.4.1.58213.10"}), 0);
  EXPECT_TRUE(WaitUntil([&] { return traps_.back().Community == "good"; }));
}

}  // namespace
}  // namespace sentrel::test
