#include "details/trap_details.h"

#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "details/copied_details.h"
#include "encoded_message.h"
#include "mib/library.h"
#include "snmp/community_message.h"
#include "snmp/notification_pdu.h"

namespace sentrel {
namespace {

using namespace std::string_literals;
using test::Tagged;

/// An OID of numbers below 128 behind 1.3.
std::string Oid(std::string numbers) {
  return Tagged(6, "\x2b" + std::move(numbers));
}
std::string Binding(const std::string& oid, const std::string& value) {
  return Tagged(0x30, oid + value);
}
std::string Number(char number) {
  return Tagged(2, std::string(1, number));
}

const std::string kUpTime = Binding(Oid("\6\1\2\1\1\3\0"s), Tagged(0x43, "\x12\x67"));
const std::string kTrapOidName = Oid("\6\1\6\3\1\1\4\1\0"s);
const std::string kLinkDown = Binding(kTrapOidName, Oid("\6\1\6\3\1\1\5\3"));
const std::string kOperStatus = Binding(Oid("\6\1\2\1\2\2\1\x08\x07"), Number(2));

class TrapDetailsTest : public testing::Test {
 protected:
  static std::shared_ptr<const ArrivedTrap> Arrived(const std::string& message) {
    const Datagram datagram = test::FromLoopback(message);
    MessageFrame frame;
    CommunityMessage read;
    EXPECT_EQ(ReadFrame(datagram.bytes, frame), Outcome::kAccepted);
    EXPECT_EQ(ReadCommunityMessage(frame, read), Outcome::kAccepted);
    auto trap = std::make_shared<ArrivedTrap>();
    const TrapEnvelope envelope{.version = static_cast<SnmpVersion>(frame.version),
                                .level = SecurityLevel::kNoAuthNoPriv,
                                .receivedAt = kArrival};
    AssignTrap(read.pdu, datagram.peer, ber::TextOf(read.community), read.whole, envelope, *trap);
    return trap;
  }
  TrapDetails Of(const std::string& message) { return {Arrived(message), mibs_, mibs_}; }
  TrapDetails OfBindings(const std::string& bindings) {
    return Of(test::Message(1, test::Pdu(0xA7, bindings)));
  }
  /// The value of the line of a name; "none" where there is none.
  static std::string Value(const TrapDetails& details, const std::string& name) {
    for (std::size_t i = 0; i < details.Lines(); ++i) {
      if (details.Line(i).name == name) return details.Line(i).value;
    }
    return "none";
  }

  static constexpr std::chrono::sys_time<std::chrono::nanoseconds> kArrival{
      std::chrono::milliseconds(1'795'489'897'125)};
  mib::Library mibs_{{.builtInImage = BUILT_IN_MODULES, .folders = {}, .cacheFile = {}}, [] {}};
};

TEST_F(TrapDetailsTest, TellWhatIsAroundTheBindings) {
  const TrapDetails details = OfBindings(kUpTime + kLinkDown + kOperStatus);
  EXPECT_EQ(Value(details, "Notification"), "linkDown (IF-MIB)");
  EXPECT_EQ(Value(details, "Sender"), "127.0.0.1");
  EXPECT_EQ(Value(details, "Community"), "public");
  EXPECT_EQ(Value(details, "Version"), "2c");
  EXPECT_EQ(Value(details, "Request ID"), "1");
  EXPECT_EQ(Value(details, "Kind"), "trap");
  EXPECT_EQ(Value(details, "Arrival"), "2026-11-23 23:41:37.125");
  for (const char* missing : {"Maker", "Enterprise", "Security level", "Relay"}) {
    EXPECT_EQ(Value(details, missing), "none");
  }
}

TEST_F(TrapDetailsTest, OfVersion1TellItsOwnParts) {
  const std::string head = Oid("\6\1\4\1\x09") + Tagged(0x40, "\xc0\x00\x02\x07"s) + Number(6) +
                           Number(42) + Tagged(0x43, "\x01");
  const TrapDetails details = Of(test::Message(0, Tagged(0xA4, head + Tagged(0x30, kOperStatus))));
  EXPECT_EQ(Value(details, "Maker"), "cisco (CISCO-SMI)");
  EXPECT_EQ(details.Line(0).oid, "1.3.6.1.4.1.9.0.42");
  EXPECT_EQ(Value(details, "Agent address"), "192.0.2.7");
  EXPECT_EQ(Value(details, "Relay"), "127.0.0.1, which passed it on for the agent");
  EXPECT_EQ(Value(details, "Generic trap"), "enterpriseSpecific(6)");
  EXPECT_EQ(Value(details, "Specific trap"), "42");
  EXPECT_EQ(Value(details, "Time stamp"), "0.01 seconds (1)");
  EXPECT_EQ(Value(details, "Version"), "1");
}

TEST_F(TrapDetailsTest, OfBindingsSayWhatTheyMean) {
  const struct {
    std::string binding;
    const char *name, *oid, *type, *value;
  } cases[] = {
      {kUpTime, "sysUpTime.0", "1.3.6.1.2.1.1.3.0", "TimeTicks", "47.11 seconds (4711)"},
      {kLinkDown, "snmpTrapOID.0", "1.3.6.1.6.3.1.1.4.1.0", "OBJECT IDENTIFIER",
       "linkDown (1.3.6.1.6.3.1.1.5.3)"},
      {kOperStatus, "ifOperStatus.7", "1.3.6.1.2.1.2.2.1.8.7", "INTEGER", "down(2)"},
      {Binding(Oid("\6\1\2\1\2\2\1\6\7"), Tagged(4, "\x00\x1a\x2b\x01\x02\x03"s)),
       "ifPhysAddress.7", "1.3.6.1.2.1.2.2.1.6.7", "OCTET STRING", "00:1a:2b:01:02:03"},
      // ifDescr is text: octets that are none are shown as they are anywhere else.
      {Binding(Oid("\6\1\2\1\2\2\1\2\7"), Tagged(4, "\xff\xfe")), "ifDescr.7",
       "1.3.6.1.2.1.2.2.1.2.7", "OCTET STRING", "0xFFFE"},
      {Binding(Oid("\6\1\2\1\2\2\1\2\7"), Tagged(4,
                                                 "a\xe2\x80\xae"
                                                 "b")),
       "ifDescr.7", "1.3.6.1.2.1.2.2.1.2.7", "OCTET STRING", "a<U+202E>b"},
      {Binding(Oid("\6\1\2\1\x19\1\2\0"s), Tagged(4, "\x07\xea\x0b\x18\x02\x1f\x25\x01")),
       "hrSystemDate.0", "1.3.6.1.2.1.25.1.2.0", "OCTET STRING", "2026-11-24 02:31:37.1"},
      {Binding(Oid("\6\1\2\1\x19\2\2\0"s), Number(16)), "hrMemorySize.0", "1.3.6.1.2.1.25.2.2.0",
       "INTEGER", "16 KBytes"},
      {Binding(Oid("\6\1\2\1\2\2\1\x0a\7"), Tagged(0x46, std::string(8, '\xff'))), "ifInOctets.7",
       "1.3.6.1.2.1.2.2.1.10.7", "Counter64", "18446744073709551615"},
      {Binding(Oid("\5"), Tagged(0x40, "\x01")), "1.3.5", "1.3.5", "IpAddress", "tag 0x40: 0x01"},
      {Binding(Oid("\5"), Tagged(5, "")), "1.3.5", "1.3.5", "NULL", ""},
      {Binding(Number(1), Number(2)), "tag 0x02: 0x01", "", "INTEGER", "2"},
      {Binding(Oid("\5"), ""), "1.3.5", "1.3.5", "no value", "tag 0x30: 0x06022B05"},
  };
  for (const auto& [binding, name, oid, type, value] : cases) {
    const TrapDetails details = OfBindings(binding);
    const DetailLine& line = details.Line(details.FirstBinding());
    EXPECT_EQ(line.name, name);
    EXPECT_EQ(line.oid, oid);
    EXPECT_EQ(line.type, type);
    EXPECT_EQ(line.value, value) << name;
    EXPECT_EQ(details.WholeValue(details.FirstBinding()), value);
  }
}

TEST_F(TrapDetailsTest, TakeIndexesApart) {
  const struct {
    std::string oid;
    std::vector<std::pair<std::string, std::string>> parts;
  } cases[] = {
      {Oid("\6\1\2\1\2\2\1\x08\x07"), {{"ifIndex", "7"}}},
      // ifXEntry augments ifEntry.
      {Oid("\6\1\2\1\x1f\1\1\1\1\x07"), {{"ifIndex", "7"}}},
      {Oid("\6\1\2\1\6\x0d\1\1\x0a\0\0\1\x50\x0a\0\0\2\x51"s),
       {{"tcpConnLocalAddress", "10.0.0.1"},
        {"tcpConnLocalPort", "80"},
        {"tcpConnRemAddress", "10.0.0.2"},
        {"tcpConnRemPort", "81"}}},
      {Oid("\6\1\2\1\1\3\0"s), {}},
  };
  for (const auto& [oid, parts] : cases) {
    const TrapDetails details = OfBindings(Binding(oid, Number(1)));
    std::vector<std::pair<std::string, std::string>> shown;
    for (const DetailLine& part : details.Line(details.FirstBinding()).parts) {
      shown.emplace_back(part.name, part.value);
    }
    EXPECT_EQ(shown, parts);
  }
}

TEST_F(TrapDetailsTest, EachByteLeadsToItsLine) {
  const std::string message = test::Message(1, test::Pdu(0xA7, kUpTime + kLinkDown + kOperStatus));
  const TrapDetails details = Of(message);
  const auto lineAt = [&](std::size_t byte) {
    const auto line = details.LineAt(byte);
    return line ? details.Line(*line).name : "none";
  };
  EXPECT_EQ(lineAt(0), "none");
  EXPECT_EQ(lineAt(3), "Version");
  EXPECT_EQ(lineAt(message.find("public")), "Community");
  EXPECT_EQ(lineAt(message.find(kUpTime)), "sysUpTime.0");
  EXPECT_EQ(lineAt(message.find(kLinkDown)), "snmpTrapOID.0");
  EXPECT_EQ(lineAt(message.size() - 1), "ifOperStatus.7");
  EXPECT_EQ(lineAt(message.size()), "none");
  for (std::size_t i = details.FirstBinding(); i < details.Lines(); ++i) {
    EXPECT_EQ(details.LineAt(details.Line(i).bytes.begin), i);
    EXPECT_EQ(details.LineAt(details.Line(i).bytes.end - 1), i);
  }
}

TEST_F(TrapDetailsTest, CutLongValuesAndCopyThemWhole) {
  const std::string text(60'000, 'x');
  const TrapDetails details = OfBindings(Binding(Oid("\6\1\2\1\1\1\0"s), Tagged(4, text)));
  const std::size_t line = details.FirstBinding();
  EXPECT_EQ(details.Line(line).value,
            std::string(kMostShownOctets, 'x') + " ... (60000 octets in all)");
  EXPECT_EQ(details.WholeValue(line), text);
  EXPECT_NE(DetailsAsText(details).find("sysDescr.0 [1.3.6.1.2.1.1.1.0]: " + text + "\n"),
            std::string::npos);
}

TEST_F(TrapDetailsTest, TheWholeAsTextAndAsJson) {
  const TrapDetails details = OfBindings(kLinkDown + kOperStatus);
  const std::string text = DetailsAsText(details);
  EXPECT_TRUE(text.starts_with("Notification [1.3.6.1.6.3.1.1.5.3]: linkDown (IF-MIB)\n"));
  EXPECT_THAT(text, testing::HasSubstr("\nCommunity: public\n"));
  EXPECT_THAT(text, testing::HasSubstr("\nifOperStatus.7 [1.3.6.1.2.1.2.2.1.8.7]: down(2)\n"
                                       "    ifIndex [1.3.6.1.2.1.2.2.1.1]: 7\n"));
  const auto json = nlohmann::json::parse(DetailsAsJson(details));
  ASSERT_EQ(json["bindings"].size(), 2U);
  EXPECT_EQ(json["bindings"][1]["value"], "down(2)");
  EXPECT_EQ(json["bindings"][1]["index"][0]["name"], "ifIndex");
  EXPECT_EQ(json["bindings"][1]["bytes"], "300f060a2b060102010202010807020102");
  EXPECT_EQ(json["message"][0]["value"], "linkDown (IF-MIB)");
}

TEST_F(TrapDetailsTest, OfWhatIsNoBindingNothingIsHidden) {
  const TrapDetails details = OfBindings(kOperStatus + "\x01\x02");
  EXPECT_EQ(Value(details, "Not readable"), "The end of the list holds no binding.");
  EXPECT_EQ(Value(details, "Notification"), "not told");
  EXPECT_EQ(details.Lines(), details.FirstBinding() + 1);
  const TrapDetails read(std::make_shared<ArrivedTrap>(Trap{"192.0.2.1", "c", {}, {}, {}}), mibs_,
                         mibs_);
  EXPECT_EQ(Value(read, "Sender"), "192.0.2.1") << "also of a trap that was never a message";
}

}  // namespace
}  // namespace sentrel
