#include <gmock/gmock.h>

#include "encoded_message.h"
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

std::vector<Case> GoodValues() {
  const auto nines = "\x2b"s + std::string(126, '\x09');
  std::string ninesText = "1.3";
  for (int i = 0; i < 126; ++i) ninesText += ".9";
  return {
      {Tagged(0x02, "\x07"), 2, "7"},
      {Tagged(0x02, "\xff"), 2, "-1"},
      {Tagged(0x02, "\x80\0\0\0"s), 2, "-2147483648"},
      {Tagged(0x02, "\0\0\0\0\0\0\x07"s), 2, "7"},
      {Tagged(0x41, "\x7f\xff\xff\xff"), 65, "2147483647"},
      {Tagged(0x42, "\0\xff\xff\xff\xff"s), 66, "4294967295"},
      {Tagged(0x42, "\xff\xff\xff\xff"), 66, "4294967295"},
      {Tagged(0x42, "\xff"), 66, "255"},
      {Tagged(0x43, "\x12\x34\x56"), 67, "1193046"},
      {Tagged(0x47, "\0"s), 71, "0"},
      {Tagged(0x46, "\xff\xff\xff\xff\xff\xff\xff\xff"), 70, "18446744073709551615"},
      {Tagged(0x46, "\0\xff\xff\xff\xff\xff\xff\xff\xff"s), 70, "18446744073709551615"},
      {Tagged(0x46, "\x80\0\x07"s), 70, "8388615"},
      {Tagged(0x04, ""), 4, ""},
      {Tagged(0x04, "eth0: \xc3\xa4"), 4, "eth0: \xc3\xa4"},
      {Tagged(0x04, "\0\x1b"s), 4, "0x001B"},
      {Tagged(0x04, "0x001B"), 4, "0x001B"},
      {Tagged(0x04, std::string(3'000, 'x')), 4, std::string(3'000, 'x')},
      {"\x04\x84\0\0\0\x01x"s, 4, "x"},
      {Tagged(0x03, "\x80"), 3, "0x80"},
      {Tagged(0x03, ""), 3, ""},
      {Tagged(0x05, ""), 5, ""},
      {Tagged(0x06, "\x2b\x06\x01\x8f\xff\xff\xff\x7f"), 6, "1.3.6.1.4294967295"},
      {Tagged(0x06, "\0"s), 6, "0.0"},
      {Tagged(0x06, "\x88\x37\x01"), 6, "2.999.1"},
      {Tagged(0x06, nines), 6, ninesText},
      {Tagged(0x40, "\xc0\0\x02\x07"s), 64, "192.0.2.7"},
      {Tagged(0x44, "\x9f\x78\x04\x3f\xc0\0\0"s), 68, "1.5"},
      {Tagged(0x44, "\x9f\x79\x08\xc0\x02\0\0\0\0\0\0"s), 68, "-2.25"},
      {Tagged(0x44, "\x9f\x7a\x01\xf9"), 68, "-7"},
      {Tagged(0x44, "\x9f\x7b\x02\x01\0"s), 68, "256"},
      {Tagged(0x44, "\x9f\x78\x03\x3f\xc0\0"s), 68, "0x9F78033FC000"},
      {Tagged(0x44, "\x9f\xff\xff\xff"), 68, "0x9FFFFFFF"},
      {Tagged(0x44, ""), 68, ""},
      {Tagged(0x45, "\x49\x01"), 69, "0x4901"},
  };
}

std::vector<Case> OddValues() {
  const std::string longOid = "\x2b"s + std::string(127, '\x01');
  std::string longOidText = "tag 0x06: 0x2B";
  for (int i = 0; i < 127; ++i) longOidText += "01";
  return {
      {Tagged(0x02, ""), 2, "tag 0x02: empty"},
      {Tagged(0x02, "\x01\0\0\0\0\0\0"s), 2, "tag 0x02: 0x01000000000000"},
      {Tagged(0x02, "\0\x80\0\0\0"s), 2, "tag 0x02: 0x0080000000"},
      {Tagged(0x02, std::string(9, '\0')), 2, "tag 0x02: 0x000000000000000000"},
      {Tagged(0x41, ""), 65, "tag 0x41: empty"},
      {Tagged(0x42, "\x01\0\0\0\0"s), 66, "tag 0x42: 0x0100000000"},
      {Tagged(0x43, "\xff\xff\xff\xff\xff"), 67, "tag 0x43: 0xFFFFFFFFFF"},
      {Tagged(0x46, ""), 70, "tag 0x46: empty"},
      {Tagged(0x46, "\x01\0\0\0\0\0\0\0\0"s), 70, "tag 0x46: 0x010000000000000000"},
      {Tagged(0x40, ""), 64, "tag 0x40: empty"},
      {Tagged(0x40, std::string(16, '\x20')), 64, "tag 0x40: 0x20202020202020202020202020202020"},
      {Tagged(0x06, ""), 6, "tag 0x06: empty"},
      {Tagged(0x06, "\x2b\x86"), 6, "tag 0x06: 0x2B86"},
      {Tagged(0x06, "\x2b\x90\x80\x80\x80\0"s), 6, "tag 0x06: 0x2B9080808000"},
      {Tagged(0x06, longOid), 6, longOidText},
      {Tagged(0x05, "x"), 5, "tag 0x05: 0x78"},
      {Tagged(0x01, "\xff"), 1, "tag 0x01: 0xFF"},
      {Tagged(0x09, "\x80\0\x01"s), 9, "tag 0x09: 0x800001"},
      {Tagged(0x0a, "\x02"), 10, "tag 0x0A: 0x02"},
      {Tagged(0x24, Tagged(0x04, "ab")), 36, "tag 0x24: 0x04026162"},
      {Tagged(0x30, Tagged(0x02, "\x01")), 48, "tag 0x30: 0x020101"},
      {Tagged(0x80, ""), 128, "tag 0x80: empty"},
      {Tagged(0x82, ""), 130, "tag 0x82: empty"},
      {Tagged(0xc7, "ab"), 199, "tag 0xC7: 0x6162"},
      {"\x9f\x87\x01\x02xy", 159, "tag 0x9F8701: 0x7879"},
      {"\x1f\x01\x81\x01z", 31, "tag 0x1F01: 0x7A"},
  };
}

/// What is shown whole, name and all, because no value can be told apart.
std::vector<Case> OddBindings() {
  return {
      {"", 48, "tag 0x30: 0x06072B060102010105"},
      {"\x04", 48, "tag 0x30: 0x06072B06010201010504"},
      {Tagged(2, "\x07") + Tagged(4, "x"), 48, "tag 0x30: 0x06072B060102010105020107040178"},
      {"\x30\x80\x02\x01\x07\0\0"s, 48, "tag 0x30: 0x06072B06010201010530800201070000"},
      {"\x04\x05yx", 48, "tag 0x30: 0x06072B06010201010504057978"},
  };
}

std::vector<Case> AllCases() {
  std::vector<Case> cases = GoodValues();
  for (auto& more : {OddValues(), OddBindings()})
    cases.insert(cases.end(), more.begin(), more.end());
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
  AssignTrap(*read, datagram.peer, "public", arrived);
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
