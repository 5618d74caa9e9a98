#include "snmp/plain_trap.h"

#include <gmock/gmock.h>

#include <random>

#include "listener_fixture.h"
#include "snmp/notification_parser.h"
#include "snmp/snmp_library.h"

namespace sentrel::test {
namespace {

namespace fs = std::filesystem;

Datagram FromLoopback(const std::string& bytes) {
  Datagram datagram{.bytes = {reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()},
                    .peer = {}};
  datagram.peer.remote.v4.sin_family = AF_INET;
  datagram.peer.remote.v4.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  datagram.peer.remoteLength = sizeof(sockaddr_in);
  return datagram;
}

std::string Tagged(int tag, const std::string& content) {
  EXPECT_LT(content.size(), 0x10000U);
  std::string length{'\x82', static_cast<char>(content.size() >> 8)};
  if (content.size() < 0x80) length.clear();
  return static_cast<char>(tag) + length + static_cast<char>(content.size()) + content;
}

/// A version 2c trap with one binding.
std::string TrapWith(const std::string& id, int tag, const std::string& value) {
  const std::string zero(1, '\0');
  const std::string binding = Tagged(0x30, Tagged(6, id) + Tagged(tag, value));
  const std::string pdu = Tagged(2, "\x01") + Tagged(2, zero) + Tagged(2, zero);
  return Tagged(
      0x30, Tagged(2, "\x01") + Tagged(4, "public") + Tagged(0xA7, pdu + Tagged(0x30, binding)));
}

/// What the SNMP library makes of the same message.
class PlainTrapTest : public testing::Test {
 protected:
  std::optional<Trap> ByLibrary(const std::string& message) {
    read_.reset();
    parser_.ParseByLibrary(FromLoopback(message));
    return read_;
  }
  bool IsPlain(const std::string& message) {
    if (!TakePlainTrap(FromLoopback(message), arrived_)) return false;
    arrived_.Read(plain_);
    return true;
  }
  /// The trap that was read last is what the library makes of the message.
  void ExpectSame(const std::string& message) {
    const auto read = ByLibrary(message);
    ASSERT_TRUE(read) << "the library refuses what was taken as plain";
    EXPECT_TRUE(plain_ == *read) << testing::PrintToString(message);
  }

  SnmpLibrary library_{"", "/nonexistent"};
  std::optional<Trap> read_;
  /// Used again and again, as by the receiver and by the log.
  ArrivedTrap arrived_;
  Trap plain_;
  NotificationParser parser_{library_.Guard(),
                             [this](ArrivedTrap& trap) {
                               trap.Read(read_.emplace());
                               return true;
                             },
                             [](const Peer&, auto) { return true; }};
};

const std::string kSysName = "\x2b\x06\x01\x02\x01\x01\x05";

TEST_F(PlainTrapTest, ReadsWhatIsUsualAsTheLibraryDoes) {
  struct Case {
    int tag;
    std::string value;
    std::string text;
  };
  using namespace std::string_literals;
  const Case cases[] = {
      {0x02, "\x07", "7"},
      {0x02, "\xff", "-1"},
      {0x02, "\x80\x00\x00\x00"s, "-2147483648"},
      {0x41, "\x7f\xff\xff\xff", "2147483647"},
      {0x42, "\x00\xff\xff\xff\xff"s, "4294967295"},
      {0x43, "\x12\x34\x56", "1193046"},
      {0x04, "", ""},
      {0x04, "eth0: \xc3\xa4", "eth0: \xc3\xa4"},
      {0x04, "\x00\x1b"s, "0x001B"},
      {0x04, std::string(3'000, 'x'), std::string(3'000, 'x')},
      {0x05, "", ""},
      {0x06, "\x2b\x06\x01\x8f\xff\xff\xff\x7f", "1.3.6.1.4294967295"},
      {0x40, "\xc0\x00\x02\x07"s, "192.0.2.7"},
  };
  for (const Case& c : cases) {
    const std::string message = TrapWith(kSysName, c.tag, c.value);
    ASSERT_TRUE(IsPlain(message)) << c.text;
    EXPECT_THAT(plain_.Values, testing::ElementsAre(c.text));
    EXPECT_THAT(plain_.OIDs, testing::ElementsAre("1.3.6.1.2.1.1.5"));
    ExpectSame(message);
  }
}

TEST_F(PlainTrapTest, LeavesTheUnusualToTheLibrary) {
  using namespace std::string_literals;
  const std::string plain = TrapWith(kSysName, 2, "\x07");
  const std::string messages[] = {
      "",
      plain.substr(0, plain.size() - 1),
      plain + "behind it",
      TrapWith(kSysName, 0x46, "\x07"),
      TrapWith(kSysName, 0x02, ""),
      TrapWith(kSysName, 0x02, "\x00\x00\x00\x00\x07"s),
      TrapWith(kSysName, 0x42, "\xff"),
      TrapWith(kSysName, 0x42, "\x01\x00\x00\x00\x00"s),
      TrapWith(kSysName, 0x05, "x"),
      TrapWith(kSysName, 0x40, "\xc0\x00\x02"s),
      TrapWith("", 0x02, "\x07"),
      TrapWith("\x0b\x06", 0x02, "\x07"),
      TrapWith("\x2b\x86", 0x02, "\x07"),
      TrapWith("\x2b\x80\x06", 0x02, "\x07"),
      TrapWith("\x2b\x90\x80\x80\x80\x00"s, 0x02, "\x07"),
      TrapWith("\x2b" + std::string(127, '\x01'), 0x02, "\x07"),
  };
  for (const std::string& message : messages) {
    EXPECT_FALSE(IsPlain(message)) << testing::PrintToString(message);
  }
}

TEST_F(PlainTrapTest, AgreesWithTheLibraryOnMutatedMessages) {
  constexpr int kRounds = 20'000;
  std::vector<std::string> seeds = {TrapWith(kSysName, 2, "\x07"), TrapWith(kSysName, 6, kSysName)};
  for (const fs::path& file : fs::directory_iterator(CORPUS)) seeds.push_back(ReadFile(file));
  std::sort(seeds.begin(), seeds.end());
  std::mt19937 random(1157);
  int plain = 0;
  for (int round = 0; round < kRounds && !HasFailure(); ++round) {
    std::string message = seeds[random() % seeds.size()];
    for (auto change = random() % 3; change > 0 && !message.empty(); --change) {
      message[random() % message.size()] = static_cast<char>(random());
    }
    if (!IsPlain(message)) continue;
    ++plain;
    ExpectSame(message);
  }
  EXPECT_GT(plain, kRounds / 50) << "the seeds must hold plain traps";
}

}  // namespace
}  // namespace sentrel::test
