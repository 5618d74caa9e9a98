#include <arpa/inet.h>
#include <gmock/gmock.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <set>

#include "fakes/notification.h"
#include "listener_fixture.h"

namespace sentrel::test {
namespace {

constexpr std::size_t kLargestDatagram = 65'507;

class ExtremeTrapTest : public ListenerTest {
 protected:
  void SetUp() override { Start(); }
  const Trap& Received(const std::string& datagram) {
    const std::size_t before = traps_.size();
    UdpSender(Listener().Port()).Send(datagram);
    EXPECT_TRUE(WaitForTraps(before + 1));
    return traps_.back();
  }
};

std::string OidOf(std::size_t subidentifiers) {
  std::string id = "1.3";
  for (std::size_t i = 2; i < subidentifiers; ++i) id += ".4294967295";
  return id;
}

TEST_F(ExtremeTrapTest, TheLargestDatagramArrivesWhole) {
  const std::string id = "1.3.6.1.4.1.58213.1";
  const std::size_t rest = NotificationBytes("c", {id}, {std::string(60'000, 'x')}).size() - 60'000;
  const std::string text(kLargestDatagram - rest, 'x');
  const std::string datagram = NotificationBytes("c", {id}, {text});
  ASSERT_EQ(datagram.size(), kLargestDatagram);
  EXPECT_EQ(Received(datagram).Values.back(), text);
}

TEST_F(ExtremeTrapTest, FiveThousandBindingsArriveInOrder) {
  std::vector<std::string> ids(5000);
  for (std::size_t i = 0; i < ids.size(); ++i) ids[i] = "1.3.6." + std::to_string(i);
  const Trap& trap = Received(NotificationBytes("c", ids, std::vector<std::string>(5000)));
  EXPECT_EQ(std::vector(trap.OIDs.begin() + 2, trap.OIDs.end()), ids);
}

TEST_F(ExtremeTrapTest, AnOidOfAHundredAndTwentyEightSubidentifiersArrives) {
  EXPECT_EQ(Received(NotificationBytes("c", {OidOf(128)}, {"x"})).OIDs.back(), OidOf(128));
}

/// One more is against RFC 2578, section 3.5; whether taken or dropped, it does no harm.
TEST_F(ExtremeTrapTest, ALongerOidHarmsNoOtherTrap) {
  // A binding of 129 subidentifiers: 0x2B stands for the first two.
  std::string value = "\x06\x81\x80\x2B" + std::string(127, '\x01') + "\x05";
  value += '\0';
  const auto sequence = [](char tag, const std::string& content) {
    std::string bytes = {tag, '\x82', static_cast<char>(content.size() >> 8),
                         static_cast<char>(content.size())};
    return bytes + content;
  };
  const std::string number = std::string("\x02\x01", 2) + '\0';
  const std::string pdu =
      sequence('\xA7', number + number + number + sequence('\x30', sequence('\x30', value)));
  const std::string version2 = "\x02\x01\x01";
  UdpSender(Listener().Port())
      .Send(sequence('\x30', version2 +
                                 "\x04\x01"
                                 "c" +
                                 pdu));
  EXPECT_TRUE(WaitUntil([&] { return Listener().Counters().Received() == 1; }));
  EXPECT_EQ(Received(NotificationBytes("c", {OidOf(3)}, {"x"})).Values.back(), "x");
}

/// Request id of a version 2c message, encoded. The lengths may be short or long.
std::string RequestId(const std::string& message, const std::string& community) {
  const std::size_t length = message.find(community) + community.size() + 1;
  const auto first = static_cast<std::uint8_t>(message[length]);
  const std::size_t id = length + 1 + (first < 0x80 ? 0 : first - 0x80);
  return message.substr(id, 2 + static_cast<std::size_t>(message[id + 1]));
}

TEST_F(ExtremeTrapTest, EveryInformOfAFloodIsAnsweredWhileTheLoopTurns) {
  constexpr std::size_t kInforms = 5000;
  constexpr std::size_t kAhead = 100;
  const int descriptor = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
  sockaddr_in to{};
  to.sin_family = AF_INET;
  to.sin_port = htons(Listener().Port());
  to.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  ASSERT_EQ(connect(descriptor, reinterpret_cast<const sockaddr*>(&to), sizeof to), 0);
  std::multiset<std::string> open;
  std::size_t answers = 0;
  const auto takeAnswers = [&] {
    std::array<char, 2048> bytes;
    for (ssize_t size; (size = recv(descriptor, bytes.data(), bytes.size(), MSG_DONTWAIT)) > 0;) {
      const auto id = open.find(RequestId({bytes.data(), static_cast<std::size_t>(size)}, "flood"));
      ASSERT_TRUE(id != open.end()) << "an answer to nothing";
      open.erase(id);
      ++answers;
    }
  };
  for (std::size_t sent = 0; sent < kInforms; ++sent) {
    const std::string inform = AsInform(NotificationBytes("flood", {}, {}), "flood");
    open.insert(RequestId(inform, "flood"));
    ASSERT_EQ(send(descriptor, inform.data(), inform.size(), 0), ssize_t(inform.size()));
    if (open.size() < kAhead) continue;
    ASSERT_TRUE(WaitUntil([&] {
      takeAnswers();
      return open.size() < kAhead;
    }));
  }
  EXPECT_TRUE(WaitUntil([&] {
    takeAnswers();
    return open.empty();
  }));
  EXPECT_EQ(answers, kInforms);
  EXPECT_TRUE(WaitForTraps(kInforms));
  EXPECT_EQ(Listener().Counters().answeredInforms, kInforms);
  close(descriptor);
}

}  // namespace
}  // namespace sentrel::test
