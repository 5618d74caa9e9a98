#include "snmp/reception_record.h"

#include <gmock/gmock.h>

#include "encoded_message.h"
#include "fakes/notification.h"
#include "listener_fixture.h"
#include "snmp/datagram_description.h"

namespace sentrel::test {
namespace {

using namespace std::string_literals;

class ReceptionMonitorTest : public ListenerTest {
 protected:
  std::vector<SeenDatagram> Watched(std::size_t count) {
    std::vector<SeenDatagram> all;
    EXPECT_TRUE(WaitUntil([&] {
      for (SeenDatagram& seen : Listener().TakeWatched()) all.push_back(std::move(seen));
      return all.size() >= count;
    }));
    return all;
  }
};

TEST_F(ReceptionMonitorTest, TellsHowItListens) {
  Start();
  EXPECT_TRUE(WaitUntil([&] { return !Listener().Listening().engine.empty(); }));
  const ListeningFacts facts = Listener().Listening();
  EXPECT_EQ(facts.port, Listener().Port());
  EXPECT_GT(facts.bufferedTraps, 0U);
  EXPECT_EQ(facts.engineBoots, 1U);
  EXPECT_LT(facts.engineTime, std::chrono::minutes(1));
  Stop();
  EXPECT_EQ(Listener().Listening().port, 0);
}

TEST_F(ReceptionMonitorTest, TellsWhatCouldBeReadOfRefusedDatagramsTheNewestFirst) {
  Start();
  const std::pair<std::string, Outcome> sent[] = {
      {"<13>text", Outcome::kNotSnmp},
      {"\x30\x50xyz", Outcome::kTruncated},
      {Message(1, Pdu(0xA0, "")), Outcome::kUnsupportedPdu},
      {ReadFile(CORPUS "/v3-discovery"), Outcome::kUnknownEngine}};
  for (const auto& [datagram, outcome] : sent) ExpectOutcome(datagram, outcome);
  const auto refused = Listener().Refused();
  ASSERT_EQ(refused.size(), 4U);
  const char* hints[] = {"A sender of informs asks", "", "It says that it has 82 octets; 5 came.",
                         "It looks like a syslog"};
  for (std::size_t i = 0; i < refused.size(); ++i) {
    EXPECT_EQ(refused[i].outcome, sent[3 - i].second);
    EXPECT_EQ(refused[i].sender, "127.0.0.1");
    EXPECT_THAT(refused[i].hint, testing::StartsWith(hints[i]));
  }
  EXPECT_EQ(refused[0].version, 3);
  EXPECT_EQ(refused[0].level, SecurityLevel::kNoAuthNoPriv);
  EXPECT_EQ(refused[1].version, 2);
  EXPECT_EQ(refused[1].community, "public");
  EXPECT_EQ(Listener().LastOf(Outcome::kNotSnmp)->sender, "127.0.0.1");
  EXPECT_FALSE(Listener().LastOf(Outcome::kWrongDigest));
  EXPECT_THAT(Listener().TakeWatched(), testing::IsEmpty());
}

TEST_F(ReceptionMonitorTest, WatchSeesAcceptedOnesTooWithTheirNotificationAlsoWhereItIsEncrypted) {
  Start("createUser -e 0x8000000001020304 al SHA auth-pass-phrase AES priv-pass-phrase\n");
  const auto send = [this] {
    EXPECT_EQ(
        Send(SNMPTRAP, {"-v1", "-c", "c", "HOST", "1.3.6.1.4.1.9", "127.0.0.1", "6", "5", ""}), 0);
    EXPECT_EQ(Send(SNMPTRAP, {"-v3", "-e", "0x8000000001020304", "-u", "al", "-l", "authPriv", "-a",
                              "SHA", "-A", "auth-pass-phrase", "-x", "AES", "-X",
                              "priv-pass-phrase", "HOST", "", "1.3.6.1.6.3.1.1.5.4"}),
              0);
  };
  Listener().SetWatching(true);
  send();
  const auto seen = Watched(2);
  EXPECT_EQ(seen[0].version, 1);
  EXPECT_EQ(seen[0].community, "c");
  EXPECT_EQ(seen[0].notification, "1.3.6.1.4.1.9.0.5");
  EXPECT_EQ(seen[1].community, "al");
  EXPECT_EQ(seen[1].level, SecurityLevel::kAuthPriv);
  EXPECT_EQ(seen[1].engine, "\x80\0\0\0\1\2\3\4"s);
  EXPECT_EQ(seen[1].notification, "1.3.6.1.6.3.1.1.5.4");
  Listener().SetWatching(false);
  send();
  EXPECT_TRUE(WaitForTraps(4));
  EXPECT_THAT(Listener().TakeWatched(), testing::IsEmpty());
  EXPECT_THAT(Listener().Refused(), testing::IsEmpty());
  EXPECT_TRUE(Listener().LastOf(Outcome::kAccepted));
}

TEST(DescribeDatagram, SaysWhatABrokenOrForeignDatagramLooksLike) {
  const auto hint = [](const std::string& bytes, Outcome outcome) {
    return DescribeDatagram({ber::BytesOf(bytes), PeerOf(1, 1)}, outcome, "", nullptr).hint;
  };
  const std::pair<std::string, const char*> foreign[] = {
      {"", "It is empty."},
      {"<", "It begins with the octet 0x3C"},
      {"<13>text", "It looks like a syslog"},
      {"\0\5\0\1"s + std::string(68, 'x'), "It looks like NetFlow"},
      {"\0\5\0\1"s + std::string(67, 'x'), "It begins with the octet 0x00"},
      {"\0\12\0\24"s + std::string(16, 'x'), "It looks like NetFlow"},
      {"GET / HTTP/1.1", "It looks like HTTP"},
      {"\x16\x03\1\0\5hello"s, "It looks like TLS"},
      {"\x16\xFE\xFD\0\0\0"s, "It looks like TLS"},
      {"ab\1\0\0\1\0\0\0\0\0\0\1a\0\0\1\0\1"s, "It looks like a DNS query"}};
  for (const auto& [bytes, begin] : foreign) {
    EXPECT_THAT(hint(bytes, Outcome::kNotSnmp), testing::StartsWith(begin));
  }
  const std::pair<std::string, const char*> cut[] = {
      {"\x30", "It ends within"},
      {"\x30\x82\1", "It ends within"},
      {"\x30\x82\1\0x"s, "It says that it has 260 octets; 5 came."},
      {"\x30\xFF" + std::string(127, '\xFF'), "It says that it is longer than any"}};
  for (const auto& [bytes, begin] : cut) {
    EXPECT_THAT(hint(bytes, Outcome::kTruncated), testing::StartsWith(begin));
  }
  EXPECT_EQ(hint("\x30\x80"s, Outcome::kMalformed), "It does not say how long it is.");
  EXPECT_EQ(hint("\x30\0"s, Outcome::kMalformed), "It names no version.");
}

TEST(ReceptionRecord, AFloodIsRememberedInSamplesAndInBoundedMemory) {
  ReceptionRecord record;
  const auto noHint = [] { return std::string(); };
  const std::string bytes = "x";
  for (std::uint32_t i = 0; i < 100'000; ++i) {
    const Datagram datagram{ber::BytesOf(bytes), PeerOf(i, 162)};
    record.Note(datagram, Outcome::kNotSnmp, noHint, nullptr);
  }
  EXPECT_EQ(record.Refused().size(), ReceptionMonitor::kMostRefused);
  EXPECT_EQ(record.LastOf(Outcome::kNotSnmp)->sender, "0.1.134.159") << "is exact all the same";
  record.SetWatching(true);
  for (std::size_t i = 0; i < ReceptionRecord::kMostWatched + 10; ++i) {
    record.Note({ber::BytesOf(bytes), PeerOf(1, 1)}, Outcome::kAccepted, noHint, nullptr);
  }
  EXPECT_EQ(record.MissedByWatch(), 10U);
  const auto watched = record.TakeWatched();
  EXPECT_EQ(watched.size(), ReceptionRecord::kMostWatched);
  record.SetWatching(true);
  EXPECT_EQ(record.MissedByWatch(), 0U);
}

}  // namespace
}  // namespace sentrel::test
