#include <gmock/gmock.h>

#include <random>

#include "encoded_message.h"
#include "fakes/notification.h"
#include "fakes/table_file.h"
#include "oracle/library_reading.h"
#include "snmp/notification_parser.h"
#include "snmp/snmp_library.h"

namespace sentrel::test {
namespace {

using namespace std::string_literals;
using testing::ElementsAre;

const std::string kEnterprise = Tagged(6, "\x2b\x06\x01\x04\x01\x09");
const std::string kAddress = Tagged(0x40, "\xc0\0\x02\x07"s);
const std::string kBinding = Tagged(0x30, Tagged(6, "\x2b\x06\x01") + Tagged(2, "\x07"));
const std::string kOddBinding = Tagged(0x30, Tagged(6, "\x2b\x06\x01") + Tagged(0x1c, "?"));

std::string Number(int value) {
  return Tagged(2, std::string(1, static_cast<char>(value)));
}

class CommunityMessageTest : public testing::Test {
 protected:
  Outcome Parse(const std::string& message) {
    read_ = {};
    return parser_.Parse(FromLoopback(message));
  }

  Version3UserKeeper keeper_{""};
  SnmpLibrary library_{"", "/nonexistent", keeper_};
  Trap read_;
  std::string answer_;
  /// Its trap is used again and again, as by the receiver.
  NotificationParser parser_{library_.Guard(),
                             [this](ArrivedTrap& trap) {
                               trap.Read(read_);
                               return true;
                             },
                             [this](const Peer&, std::span<const std::uint8_t> bytes) {
                               answer_.assign(bytes.begin(), bytes.end());
                               return true;
                             }};
};

TEST_F(CommunityMessageTest, IsTakenWithAnyFrameThatFits) {
  const std::string trap = Pdu(0xA7, kBinding);
  const std::string longNumbers = Tagged(2, std::string(9, '\1')) + Tagged(2, "") + Number(5);
  const auto longLength = [](int tag, const std::string& content) {
    return static_cast<char>(tag) + "\x86\0\0\0\0\0"s + static_cast<char>(content.size()) + content;
  };
  const std::pair<std::string, std::string> messages[] = {
      {Message(1, trap) + "behind it", "public"},
      {Message(1, trap + "behind it"), "public"},
      {Message(1, trap, std::string(300, 'c')), std::string(300, 'c')},
      {Message(1, trap, "\0\xff"s), "0x00FF"},
      {Message(0, trap, ""), ""},
      {Tagged(0x30, Number(1) + Tagged(0x40, "c") + trap), "c"},
      {Tagged(0x30, Tagged(2, "\0\0\0\0\0\0\0\0\x01"s) + Tagged(4, "c") + trap), "c"},
      {Message(1, Tagged(0xA7, longNumbers + Tagged(0x30, kBinding) + "behind it")), "public"},
      {longLength(0x30, longLength(2, "\1") + longLength(4, "c") +
                            longLength(0xA7, longNumbers + longLength(0x30, kBinding))),
       "c"},
  };
  for (const auto& [message, community] : messages) {
    EXPECT_EQ(Parse(message), Outcome::kAccepted) << testing::PrintToString(message);
    EXPECT_EQ(read_.Community, community);
    EXPECT_THAT(read_.Values, ElementsAre("7")) << testing::PrintToString(message);
  }
}

TEST_F(CommunityMessageTest, IsRefusedWhereItIsNone) {
  const std::string trap = Pdu(0xA7, kBinding);
  const std::string version = Number(1) + Tagged(4, "c");
  const std::pair<std::string, Outcome> messages[] = {
      {Message(2, trap), Outcome::kUnsupportedVersion},
      {Tagged(0x30, Tagged(2, "\x01\0\0\0\x01"s) + Tagged(4, "c") + trap),
       Outcome::kUnsupportedVersion},
      {Tagged(0x30, Tagged(2, "") + Tagged(4, "c") + trap), Outcome::kMalformed},
      {Tagged(0x30, Tagged(4, "\x01") + Tagged(4, "c") + trap), Outcome::kMalformed},
      {Tagged(0x30, version), Outcome::kMalformed},
      {Tagged(0x30, version + Tagged(0xA7, "")), Outcome::kMalformed},
      {Tagged(0x30, version + Tagged(0xA7, Number(1) + Number(0) + Number(0))),
       Outcome::kMalformed},
      {Tagged(0x30, version + Tagged(0xA7, Number(1) + Number(0) + Tagged(4, "") + kBinding)),
       Outcome::kMalformed},
      {Tagged(0x30, version + trap.substr(0, trap.size() - 1)), Outcome::kMalformed},
      {Message(0, Tagged(0xA4, kEnterprise + kAddress + Number(6) + Number(1))),
       Outcome::kMalformed},
      {Message(1, Pdu(0xA2, kBinding)), Outcome::kUnsupportedPdu},
      {Message(1, Pdu(0xA9, kBinding)), Outcome::kMalformed},
      {"\x30\xff"s + trap, Outcome::kTruncated},
      {"", Outcome::kNotSnmp},
  };
  for (const auto& [message, outcome] : messages) {
    EXPECT_EQ(Parse(message), outcome) << testing::PrintToString(message);
  }
  for (const auto& row : RowsOf(TEST_DATA "/snmp/refused_datagrams.txt")) {
    EXPECT_EQ(OutcomeText(Parse(ReadFile(CORPUS "/" + row.at(0)))), row.at(1)) << row.at(0);
  }
}

TEST_F(CommunityMessageTest, IsTakenHoweverMuchItHolds) {
  std::vector<std::string> ids(5'000);
  for (std::size_t i = 0; i < ids.size(); ++i) ids[i] = "1.3.6." + std::to_string(i);
  EXPECT_EQ(Parse(NotificationBytes("c", ids, std::vector<std::string>(ids.size()))),
            Outcome::kAccepted);
  EXPECT_EQ(std::vector(read_.OIDs.begin() + 2, read_.OIDs.end()), ids);

  // The longest OID (RFC 2578, section 3.5), and one that is longer still.
  std::string longest = "1.3";
  for (int i = 2; i < 128; ++i) longest += ".16384";
  std::string message = NotificationBytes("c", {longest}, {"x"});
  EXPECT_EQ(Parse(message), Outcome::kAccepted);
  EXPECT_EQ(read_.OIDs.back(), longest);
  message[message.rfind('\x81')] = '\x01';  // makes two subidentifiers of the last one
  EXPECT_EQ(Parse(message), Outcome::kAccepted);
  EXPECT_THAT(read_.OIDs.back(), testing::StartsWith("tag 0x06: 0x2B8180"));
}

TEST_F(CommunityMessageTest, Version1TrapIsShownWithAnyHeader) {
  for (const auto& row : RowsOf(TEST_DATA "/snmp/version1_headers.txt")) {
    const std::string parts = FromHex(row.at(0)).value() + Tagged(0x30, kBinding);
    EXPECT_EQ(Parse(Message(0, Tagged(0xA4, parts))), Outcome::kAccepted);
    EXPECT_THAT(read_.Values, ElementsAre(row.at(1), row.at(2), "7", row.at(3), row.at(4)));
  }
}

TEST_F(CommunityMessageTest, InformIsAnsweredByItselfWhateverItHolds) {
  for (const int version : {0, 1}) {
    const std::string requestId(5 + version, '\x01');
    const std::string inform = Message(version, Pdu(0xA6, kOddBinding, requestId));
    const std::string response = Message(version, Pdu(0xA2, kOddBinding, requestId));
    EXPECT_EQ(Parse(inform + "behind it"), Outcome::kAccepted);
    EXPECT_EQ(answer_, response);
    EXPECT_THAT(read_.Values, ElementsAre("tag 0x1C: 0x3F"));
  }
  const std::string error = Number(1) + Tagged(2, "\0\x05"s) + Number(-1) + Tagged(0x30, kBinding);
  const std::string none = Number(1) + Tagged(2, "\0\0"s) + Number(0) + Tagged(0x30, kBinding);
  EXPECT_EQ(Parse(Message(1, Tagged(0xA6, error))), Outcome::kAccepted);
  EXPECT_EQ(answer_, Message(1, Tagged(0xA2, none)));
  EXPECT_EQ(parser_.AnsweredInforms(), 3U);
}

TEST_F(CommunityMessageTest, AgreesWithTheLibraryOnAllThatItTakes) {
  constexpr int kRounds = 50'000;
  const std::vector<std::string> seeds = FilesIn(CORPUS);
  std::mt19937 random(1157);
  int taken = 0;
  for (int round = 0; round < kRounds && !HasFailure(); ++round) {
    std::string message = seeds[random() % seeds.size()];
    for (auto change = random() % 3; change > 0 && !message.empty(); --change) {
      message[random() % message.size()] = static_cast<char>(random());
    }
    const auto library = LibraryReading(FromLoopback(message));
    if (!library) continue;
    ++taken;
    const Outcome outcome = Parse(message);
    if (outcome == Outcome::kRepeated) continue;
    EXPECT_EQ(outcome, Outcome::kAccepted) << testing::PrintToString(message);
    EXPECT_TRUE(Agree(read_, *library))
        << testing::PrintToString(message) << testing::PrintToString(read_.Values)
        << testing::PrintToString(library->Values);
  }
  EXPECT_GT(taken, kRounds / 20) << "the seeds must hold what the library takes";
}

}  // namespace
}  // namespace sentrel::test
