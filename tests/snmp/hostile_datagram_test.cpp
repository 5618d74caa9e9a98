#include <random>

#include "listener_fixture.h"

namespace sentrel::test {
namespace {

namespace fs = std::filesystem;

const fs::path kCorpus = CORPUS;

class HostileDatagramTest : public ListenerTest {
 protected:
  void ExpectGoodTrapStillArrives() {
    const std::size_t before = traps_.size();
    EXPECT_EQ(Send(SNMPTRAP, {"-v2c", "-c", "good", "HOST", "1", "1.3.6.1.4.1.58213.10"}), 0);
    EXPECT_TRUE(WaitForTraps(before + 1));
    EXPECT_EQ(traps_.back().Community, "good");
  }
};

TEST_F(HostileDatagramTest, IsDroppedAndCountedByReason) {
  const std::pair<const char*, Outcome> cases[] = {
      {"bad-not-snmp", Outcome::kNotSnmp},
      {"bad-one-byte", Outcome::kTruncated},
      {"bad-truncated", Outcome::kTruncated},
      {"bad-length-past-end", Outcome::kTruncated},
      {"bad-indefinite-length", Outcome::kMalformed},
      {"bad-nested-length", Outcome::kMalformed},
      {"bad-version", Outcome::kUnsupportedVersion},
      {"get-request", Outcome::kUnsupportedPdu},
      {"v3-discovery", Outcome::kUnknownEngine},
      {"v3-authPriv", Outcome::kUnknownEngine},
  };
  Start();
  for (const auto& [file, outcome] : cases) {
    SCOPED_TRACE(file);
    ExpectOutcome(ReadFile(kCorpus / file), outcome);
  }
  ExpectOutcome("", Outcome::kNotSnmp);
  EXPECT_TRUE(traps_.empty());
  ExpectGoodTrapStillArrives();
}

TEST_F(HostileDatagramTest, HundredThousandMutationsLeaveTheListenerWell) {
  constexpr std::size_t kCount = 100'000;
  std::vector<std::string> seeds;
  for (const fs::path& file : fs::directory_iterator(kCorpus)) seeds.push_back(ReadFile(file));
  std::sort(seeds.begin(), seeds.end());
  std::mt19937 random(20'240'711);

  Start(
      "createUser -e 0x8000000001020304 plain\n"
      "createUser -e 0x8000000001020304 sha SHA auth-pass-phrase\n"
      "createUser -e 0x8000000001020304 aes SHA-256 auth-pass-phrase AES priv-pass-phrase\n");
  const UdpSender sender(Listener().Port());
  for (std::size_t sent = 0; sent < kCount; ++sent) {
    sender.Send(Mutated(seeds[random() % seeds.size()], 8, random));
    while (sent > Listener().Counters().Received() + 200) Listener().Deliver({});
  }
  EXPECT_TRUE(WaitUntil([&] { return Listener().Counters().Received() == kCount; }));
  const ListenerCounters counters = Listener().Counters();
  EXPECT_TRUE(WaitUntil([&] { return traps_.size() == counters.Of(Outcome::kAccepted); }));
  EXPECT_GT(counters.Of(Outcome::kMalformed), kCount / 20) << "the mutations must reach the parser";
  ExpectGoodTrapStillArrives();
}

}  // namespace
}  // namespace sentrel::test
