#include "snmp/repeated_informs.h"

#include <future>

#include "encoded_message.h"
#include "listener_fixture.h"

namespace sentrel::test {
namespace {

using namespace std::chrono_literals;

/// Passes datagrams between a sender and the listener, but for one answer.
struct LossyRelay {
  void Pass() {
    if (std::string sent = sender.Take(); !sent.empty()) listener.Send(recorded = std::move(sent));
    const std::string answer = listener.Take();
    if (!answer.empty() && ++answers != lostAnswer) sender.Send(answer);
  }

  UdpSocket listener;
  const int lostAnswer;
  UdpSocket sender{};
  int answers = 0;
  /// What the sender sent last.
  std::string recorded{};
};

class RepeatedInformTest : public ListenerTest {
 protected:
  /// The exit code of snmpinform where it misses one answer.
  int SendWithLoss(int lostAnswer, std::vector<std::string> arguments) {
    LossyRelay relay{UdpSocket(Listener().Port()), lostAnswer};
    const std::string address = "127.0.0.1:" + std::to_string(relay.sender.Port());
    arguments.insert(arguments.end(),
                     {"-r5", "-t", "0.5", address, "1", "1.3.6", "1.3.6.1", "s", "x"});
    auto exitCode = std::async(std::launch::async, [&] { return Send(SNMPINFORM, arguments); });
    EXPECT_TRUE(WaitUntil([&] {
      relay.Pass();
      return exitCode.wait_for(0s) == std::future_status::ready;
    }));
    recorded_ = relay.recorded;
    return exitCode.get();
  }
  std::uint64_t Repeated() const { return Count(Outcome::kRepeated); }

  std::string recorded_;
};

TEST_F(RepeatedInformTest, WhoseAnswerWasLostIsAnsweredAgainAndMakesOneRow) {
  Start("createUser carol SHA auth-pass-phrase AES priv-pass-phrase\n");
  EXPECT_EQ(SendWithLoss(1, {"-v2c", "-c", "c"}), 0);
  EXPECT_GE(Repeated(), 1U);
  EXPECT_TRUE(WaitForTraps(1));
  const std::uint64_t before = Repeated();
  // The first answer tells the engine ID.
  EXPECT_EQ(SendWithLoss(2, {"-v3", "-u", "carol", "-l", "authPriv", "-a", "SHA", "-A",
                             "auth-pass-phrase", "-x", "AES", "-X", "priv-pass-phrase"}),
            0);
  EXPECT_GT(Repeated(), before);
  EXPECT_TRUE(WaitForTraps(2));
  EXPECT_EQ(traps_.size(), 2U);
  EXPECT_EQ(Count(Outcome::kAccepted), 2U);
  EXPECT_EQ(Listener().Counters().answeredInforms, 2 + Repeated());

  // A recording gets no answer for each time that it is played back.
  const UdpSocket stranger(Listener().Port());
  const ListenerCounters counters = Listener().Counters();
  constexpr std::uint64_t kPlayed = 2'000;
  for (std::uint64_t i = 0; i < kPlayed; ++i) stranger.Send(recorded_);
  EXPECT_TRUE(
      WaitUntil([&] { return Listener().Counters().Received() == counters.Received() + kPlayed; }));
  EXPECT_LT(Listener().Counters().answeredInforms, counters.answeredInforms + kPlayed / 2);
  EXPECT_EQ(traps_.size(), 2U);
}

TEST_F(RepeatedInformTest, ThatWasNotTakenHasNoAnswerAndIsTakenLater) {
  Start("", {.traps = 1, .bytes = 1 << 20});
  UdpSocket sender(Listener().Port());
  sender.Send(ReadFile(CORPUS "/v2c-no-bindings"));
  const std::string inform = ReadFile(CORPUS "/v2c-inform");
  sender.Send(inform);
  ASSERT_TRUE(WaitBlockedUntil([&] { return Count(Outcome::kQueueFull) == 1; }));
  ASSERT_TRUE(WaitForTraps(1));
  EXPECT_EQ(sender.TakeAll(), 0U) << "the sender must learn that its inform is lost";
  sender.Send(inform);
  EXPECT_TRUE(WaitForTraps(2));
  EXPECT_NE(sender.Await(), "");
  EXPECT_EQ(Listener().Counters().answeredInforms, 1U);
  EXPECT_EQ(Repeated(), 0U);
}

TEST(RepeatedInforms, AreTheSameInAllThatCountsOnly) {
  const Peer peer = PeerOf(1, 2);
  const Peer sameSource = PeerOf(1, 2);
  const Peer otherAddress = PeerOf(2, 2);
  const Peer otherPort = PeerOf(1, 3);
  const RepeatedInforms informs;
  const auto first = informs.DigestOf({peer, "e", "u", "1", "b"});
  ASSERT_TRUE(first);
  EXPECT_EQ(informs.DigestOf({sameSource, "e", "u", "1", "b"}), first);
  const InformIdentity others[] = {
      {otherAddress, "e", "u", "1", "b"}, {otherPort, "e", "u", "1", "b"},
      {peer, "f", "u", "1", "b"},         {peer, "e", "v", "1", "b"},
      {peer, "e", "u", "2", "b"},         {peer, "e", "u", "1", "c"},
      {peer, "", "eu", "1", "b"},         {peer, "e", "u", "1b", ""},
  };
  for (const InformIdentity& other : others) EXPECT_NE(informs.DigestOf(other), first);
  EXPECT_NE(RepeatedInforms().DigestOf({peer, "e", "u", "1", "b"}), first) << "the key is random";
}

TEST(RepeatedInforms, AreForgottenWithTimeAndInNumbers) {
  const Peer peer = PeerOf(1, 2);
  RepeatedInforms informs;
  const auto digest = [&](std::size_t i) {
    return *informs.DigestOf({peer, "", "u", std::to_string(i), ""});
  };
  RepeatedInforms::Time now{};
  for (std::size_t i = 0; i <= RepeatedInforms::kMost; ++i) informs.Add(digest(i), now);
  EXPECT_EQ(informs.Size(), RepeatedInforms::kMost);
  EXPECT_FALSE(informs.Has(digest(0), now));
  EXPECT_TRUE(informs.Has(digest(1), now));
  now += RepeatedInforms::kWindow;
  EXPECT_TRUE(informs.Has(digest(1), now));
  now += 1s;
  EXPECT_FALSE(informs.Has(digest(1), now));
  informs.Add(digest(1), now);
  EXPECT_TRUE(informs.Has(digest(1), now));
  EXPECT_EQ(informs.Size(), 1U);
}

}  // namespace
}  // namespace sentrel::test
