#include <gmock/gmock.h>

#include "encoded_message.h"
#include "fakes/table_file.h"
#include "oracle/library_reading.h"
#include "snmp/notification_pdu.h"
#include "snmp/odd_values.h"

namespace sentrel::test {
namespace {

using namespace std::string_literals;

const std::string kSysName = "\x2b\x06\x01\x02\x01\x01\x05";

struct Case {
  /// The bytes of the only binding behind its name.
  std::string value;
  int type;
  std::string text;
};

/// Good values, odd ones, and bindings of which no value can be told apart.
std::vector<Case> AllCases() {
  const auto times = [](const std::string& text, int count) {
    std::string all;
    while (count-- > 0) all += text;
    return all;
  };
  std::vector<Case> cases = {
      {Tagged(0x04, times("x", 3'000)), 4, times("x", 3'000)},
      {Tagged(0x06, times("\x2b", 127)), 6, "1.3" + times(".43", 126)},
      {Tagged(0x06, times("\x2b", 128)), 6, "tag 0x06: 0x" + times("2B", 128)},
  };
  for (const char* text : {"plain\ttext\r\n", "\xF0\x9F\x94\x94", "\xF4\x8F\xBF\xBF", "\xC2\xA0"}) {
    cases.push_back({Tagged(0x04, text), 4, text});
  }
  for (const auto& row : RowsOf(TEST_DATA "/snmp/values.txt")) {
    cases.push_back({FromHex(row.at(0)).value(), std::stoi(row.at(1)), row.at(2)});
  }
  return cases;
}

std::string Binding(const std::string& value) {
  return Tagged(0x30, Tagged(6, kSysName) + value);
}

/// A list of three, of which the outer ones are good.
std::string Between(const std::string& good, const std::string& value) {
  return std::string(good).append(Binding(value)).append(good);
}

Trap Read(const std::string& pdu) {
  const Datagram datagram = FromLoopback(pdu);
  const auto read = ReadPdu(datagram.bytes);
  Trap trap;
  if (!read) {
    ADD_FAILURE() << "refused: " << testing::PrintToString(pdu);
    return trap;
  }
  ArrivedTrap arrived;
  AssignTrap(*read, datagram.peer, "public", datagram.bytes, {}, arrived);
  arrived.Read(trap);
  return trap;
}

LibraryPdu ByLibrary(const std::string& pdu) {
  return LibraryPduOf({pdu.begin(), pdu.end()});
}

/// The same PDU with no value that the library refuses.
std::string Neutral(std::string pdu) {
  NeutralizeOddValues({reinterpret_cast<std::uint8_t*>(pdu.data()), pdu.size()});
  return pdu;
}

TEST(OddValue, IsShownByItsOctetsBesideWhatIsGood) {
  for (const Case& c : AllCases()) {
    const std::string good = Binding(Tagged(2, "\x07"));
    const Trap trap = Read(Pdu(0xA7, Between(good, c.value)));
    EXPECT_THAT(trap.OIDs, testing::Each("1.3.6.1.2.1.1.5"));
    EXPECT_THAT(trap.DataTypes, testing::ElementsAre(2, c.type, 2)) << c.text;
    EXPECT_THAT(trap.Values, testing::ElementsAre("7", c.text, "7"));
    const bool isText = c.type != 4 || c.value.find(c.text) != std::string::npos;
    EXPECT_EQ(trap.HexOctets, std::vector<std::size_t>(isText ? 0 : 1, 1)) << c.text;
  }
}

TEST(OddValue, OfANameOrOfTheListHidesNothing) {
  const std::string good = Binding(Tagged(2, "\x07"));
  const auto binding = [](const std::string& name) {
    return Tagged(0x30, name + Tagged(2, "\x07"));
  };
  const Case cases[] = {
      {binding(Tagged(6, "")), 2, "tag 0x06: empty = 7"},
      {binding(Tagged(6, "\x2b\x86")), 2, "tag 0x06: 0x2B86 = 7"},
      {binding(Tagged(4, "name")), 2, "tag 0x04: 0x6E616D65 = 7"},
      {Tagged(0x31, "ab"), 0x31, "no name = tag 0x31: 0x026162"},
      {Tagged(0x30, ""), 0x30, "no name = tag 0x30: 0x00"},
      {"\x30\x80"s + good, 0x30, "no name = tag 0x30: 0x80300C06072B060102010105020107"},
      {"\x30\x7f\x06", 0x30, "no name = tag 0x30: 0x7F06"},
      {"\x30", 0x30, "no name = tag 0x30: empty"},
  };
  for (const Case& c : cases) {
    const Trap trap = Read(Pdu(0xA7, good + c.value));
    ASSERT_EQ(trap.OIDs.size(), 2U) << c.text;
    EXPECT_EQ(trap.OIDs[1] + " = " + trap.Values[1], c.text);
    EXPECT_EQ(trap.DataTypes[1], c.type) << c.text;
  }
}

TEST(OddValue, IsNoneWhereABindingReachesIntoTheNext) {
  const std::string good = Binding(Tagged(2, "\x07"));
  for (const int length : {13, 14, 20, 26}) {
    std::string wrong = good;
    wrong[1] = static_cast<char>(length);
    EXPECT_THAT(Read(Pdu(0xA7, wrong.append(good))).Values, testing::ElementsAre("7", "7"));
  }
}

TEST(OddValue, IsHiddenFromTheLibraryAndNothingElse) {
  for (const Case& c : AllCases()) {
    const std::string good = Binding(Tagged(2, "\x07"));
    const std::string pdu = Pdu(0xA6, Between(good, c.value));
    const std::string neutral = Neutral(pdu);
    const LibraryPdu read = ByLibrary(neutral);
    ASSERT_TRUE(read) << testing::PrintToString(pdu);
    EXPECT_EQ(read->variables->type, ASN_INTEGER);
    if (IsOdd(c.text)) {
      EXPECT_EQ(read->variables->next_variable->type, ASN_OCTET_STR) << c.text;
    } else {
      EXPECT_EQ(pdu == neutral, ByLibrary(pdu) != nullptr) << c.text;
    }
  }
  for (const std::size_t size : {0, 124, 125, 126, 127, 128, 129, 250, 255, 256, 300, 40'000}) {
    EXPECT_TRUE(ByLibrary(Neutral(Pdu(0xA6, Binding(Tagged(1, std::string(size, 'x'))))))) << size;
    EXPECT_TRUE(ByLibrary(Neutral(Pdu(0xA6, Tagged(7, "more" + std::string(size, 'x')) + "x"))))
        << size;
  }
}

}  // namespace
}  // namespace sentrel::test
