#include "snmp/repeated_informs.h"

#include <sys/socket.h>
#include <unistd.h>

#include <future>

#include "encoded_message.h"
#include "fakes/loopback.h"
#include "listener_fixture.h"

namespace sentrel::test {
namespace {

using namespace std::chrono_literals;

/// Passes datagrams between a sender and the listener, but for one answer.
class LossyRelay {
 public:
  LossyRelay(std::uint16_t listener, int lostAnswer)
      : sender_(Socket()), listener_(Socket()), lostAnswer_(lostAnswer) {
    sockaddr_in to = Loopback(listener);
    EXPECT_EQ(connect(listener_, reinterpret_cast<sockaddr*>(&to), sizeof to), 0);
    sockaddr_in own = Loopback(0);
    EXPECT_EQ(bind(sender_, reinterpret_cast<sockaddr*>(&own), sizeof own), 0);
  }
  ~LossyRelay() {
    close(sender_);
    close(listener_);
  }
  LossyRelay(const LossyRelay&) = delete;
  LossyRelay& operator=(const LossyRelay&) = delete;

  std::string Address() const {
    sockaddr_in own{};
    socklen_t length = sizeof own;
    getsockname(sender_, reinterpret_cast<sockaddr*>(&own), &length);
    return "127.0.0.1:" + std::to_string(ntohs(own.sin_port));
  }
  void Pass() {
    socklen_t length = sizeof from_;
    auto* from = reinterpret_cast<sockaddr*>(&from_);
    ssize_t size = recvfrom(sender_, bytes_, sizeof bytes_, MSG_DONTWAIT, from, &length);
    if (size > 0) {
      send(listener_, bytes_, size, 0);
      recorded_.assign(bytes_, size);
    }
    size = recv(listener_, bytes_, sizeof bytes_, MSG_DONTWAIT);
    if (size > 0 && ++answers_ != lostAnswer_) sendto(sender_, bytes_, size, 0, from, sizeof from_);
  }
  /// What the sender sent last.
  const std::string& Recorded() const { return recorded_; }

 private:
  static int Socket() { return socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0); }

  const int sender_;
  const int listener_;
  const int lostAnswer_;
  int answers_ = 0;
  sockaddr_in from_{};
  char bytes_[65'536];
  std::string recorded_;
};

class RepeatedInformTest : public ListenerTest {
 protected:
  /// The exit code of snmpinform where it misses one answer.
  int SendWithLoss(int lostAnswer, std::vector<std::string> arguments) {
    LossyRelay relay(Listener().Port(), lostAnswer);
    const std::vector<std::string> more = {"-r5",     "-t", "0.5", relay.Address(), "1", "1.3.6",
                                           "1.3.6.1", "s",  "x"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    auto exitCode = std::async(std::launch::async, [&] { return Send(SNMPINFORM, arguments); });
    EXPECT_TRUE(WaitUntil([&] {
      relay.Pass();
      return exitCode.wait_for(0s) == std::future_status::ready;
    }));
    recorded_ = relay.Recorded();
    return exitCode.get();
  }
  std::uint64_t Repeated() { return Listener().Counters().Of(Outcome::kRepeated); }

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
  EXPECT_EQ(Listener().Counters().Of(Outcome::kAccepted), 2U);
  EXPECT_EQ(Listener().Counters().answeredInforms, 2 + Repeated());

  // A recording gets no answer for each time that it is played back.
  const UdpSender stranger(Listener().Port());
  const std::uint64_t received = Listener().Counters().Received();
  constexpr std::uint64_t kPlayed = 2'000;
  for (std::uint64_t i = 0; i < kPlayed; ++i) stranger.Send(recorded_);
  EXPECT_TRUE(WaitUntil([&] { return Listener().Counters().Received() == received + kPlayed; }));
  EXPECT_LT(stranger.TakeAnswers(), kPlayed / 2);
  EXPECT_EQ(traps_.size(), 2U);
}

TEST_F(RepeatedInformTest, ThatWasNotTakenIsTakenLater) {
  Start("", {.traps = 1, .bytes = 1 << 20});
  const UdpSender sender(Listener().Port());
  sender.Send(ReadFile(std::filesystem::path(CORPUS) / "v2c-no-bindings"));
  const auto inform = ReadFile(std::filesystem::path(CORPUS) / "v2c-inform");
  sender.Send(inform);
  const auto full = [&] { return Listener().Counters().Of(Outcome::kQueueFull) == 1; };
  ASSERT_TRUE(WaitBlockedUntil(full));
  ASSERT_TRUE(WaitForTraps(1));
  sender.Send(inform);
  EXPECT_TRUE(WaitForTraps(2));
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
