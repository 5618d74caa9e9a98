#include <gmock/gmock.h>

#include <filesystem>
#include <sstream>

#include "encoded_message.h"
#include "listener_fixture.h"
#include "udp_socket.h"

namespace sentrel::test {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;

const std::string kEngine = "0x8000000001020304";
const std::string kVendor = "1.3.6.1.4.1.58213";

/// What a sender is told of a user's keys. No digest, or no cipher, is none.
std::vector<std::string> Keys(const std::string& digest = "", const std::string& phrase = "",
                              const std::string& cipher = "",
                              const std::string& privacyPhrase = "") {
  if (digest.empty()) return {"-l", "noAuthNoPriv"};
  if (cipher.empty()) return {"-l", "authNoPriv", "-a", digest, "-A", phrase};
  return {"-l", "authPriv", "-a", digest, "-A", phrase, "-x", cipher, "-X", privacyPhrase};
}

const std::vector<std::string> kNone = Keys();
const std::vector<std::string> kSigned = Keys("SHA", "auth-pass-phrase");
const std::vector<std::string> kBoth = Keys("SHA", "auth-pass-phrase", "AES", "priv-pass-phrase");
const std::string kSignedUser = "createUser -e " + kEngine + " sha SHA auth-pass-phrase\n";

class Version3Test : public ListenerTest {
 protected:
  static std::vector<std::string> Arguments(const std::string& user,
                                            const std::vector<std::string>& keys,
                                            const std::vector<std::string>& more) {
    std::vector<std::string> arguments = {"-v3", "-r0", "-t5", "-u", user};
    arguments.insert(arguments.end(), keys.begin(), keys.end());
    arguments.insert(arguments.end(), more.begin(), more.end());
    arguments.insert(arguments.end(),
                     {"HOST", "1", kVendor + ".10", kVendor + ".1", "s", "from " + user});
    return arguments;
  }
  int SendAs(const char* tool, const std::string& user, const std::vector<std::string>& keys,
             const std::vector<std::string>& more = {}) {
    return Send(tool, Arguments(user, keys, more));
  }
  /// A trap of the engine at this moment ("boots,time"), recorded on its way.
  std::string Recorded(const std::string& user, const std::vector<std::string>& keys,
                       const std::string& moment) {
    return Caught(SNMPTRAP, Arguments(user, keys, {"-e", kEngine, "-Z", moment}));
  }
  void ExpectOutcomeOfTrap(Outcome outcome, const std::string& user,
                           const std::vector<std::string>& keys,
                           const std::string& engine = kEngine) {
    SCOPED_TRACE(user);
    ExpectOutcome(outcome, [&] { EXPECT_EQ(SendAs(SNMPTRAP, user, keys, {"-e", engine}), 0); });
  }
  int SendTrapAs(const std::string& user, const std::vector<std::string>& keys) {
    return SendAs(SNMPTRAP, user, keys, {"-e", kEngine});
  }
  std::string StateFile() const { return folder_ / "state" / "sentrel.conf"; }
  std::string State() const { return ReadFile(StateFile()); }
  std::string Stored(const std::string& token) const {
    std::istringstream lines(State());
    for (std::string line; std::getline(lines, line);) {
      if (line.starts_with(token + " ")) return line.substr(token.size() + 1);
    }
    return "";
  }
};

TEST_F(Version3Test, TrapsAndInformsOfEveryLevelArrive) {
  const std::string keys = " SHA auth-pass-phrase";
  std::string configuration;
  for (const std::string& engine : {"-e " + kEngine + " ", std::string()}) {
    configuration += "createUser " + engine + "plain\ncreateUser " + engine + "auth" + keys +
                     "\ncreateUser " + engine + "priv" + keys + " AES priv-pass-phrase\n";
  }
  Start(configuration);
  const std::pair<const char*, std::vector<std::string>> users[] = {
      {"plain", kNone}, {"auth", kSigned}, {"priv", kBoth}};
  for (const auto& [user, options] : users) {
    EXPECT_EQ(SendTrapAs(user, options), 0);
    EXPECT_EQ(SendAs(SNMPINFORM, user, options), 0) << user;
    ASSERT_TRUE(WaitForTraps(2)) << user;
    for (const Trap& trap : std::exchange(traps_, {})) {
      EXPECT_EQ(trap.Community, user);
      EXPECT_EQ(trap.Values.back(), std::string("from ") + user);
    }
  }
  EXPECT_EQ(Listener().Counters().answeredInforms, 3U);
}

TEST_F(Version3Test, HowATrapCameTravelsWithIt) {
  Start(kSignedUser + "createUser -e " + kEngine +
        " both SHA auth-pass-phrase AES priv-pass-phrase\n");
  const auto before = std::chrono::system_clock::now();
  const std::string name = "from both";
  EXPECT_EQ(SendAs(SNMPTRAP, "both", kBoth, {"-e", kEngine}), 0);
  ASSERT_TRUE(WaitForTraps(1));
  EXPECT_EQ(last_.Envelope().version, SnmpVersion::k3);
  EXPECT_EQ(last_.Envelope().level, SecurityLevel::kAuthPriv);
  EXPECT_GE(last_.Envelope().receivedAt, before);
  EXPECT_LE(last_.Envelope().receivedAt, std::chrono::system_clock::now());
  EXPECT_EQ(last_.Message()[0], '\x30');
  EXPECT_EQ(std::size_t(last_.Message()[1]) + 2, last_.Message().size()) << "the scoped PDU alone";
  EXPECT_NE(last_.Message().find(name), std::string::npos) << "it is decrypted";
  SendTrapAs("sha", kSigned);
  ASSERT_TRUE(WaitForTraps(2));
  EXPECT_EQ(last_.Envelope().level, SecurityLevel::kAuthNoPriv);
  const std::string message = Message(1, Pdu(0xA7, ""));
  UdpSocket(Listener().Port()).Send(message + "behind it");
  ASSERT_TRUE(WaitForTraps(3));
  EXPECT_EQ(last_.Envelope().version, SnmpVersion::k2c);
  EXPECT_EQ(last_.Envelope().level, SecurityLevel::kNoAuthNoPriv);
  EXPECT_EQ(last_.Message(), message);
}

TEST_F(Version3Test, RefusalsAreCountedByReason) {
  Start("createUser -e " + kEngine + " alice SHA auth-pass-phrase AES priv-pass-phrase\n" +
        "createUser -e " + kEngine + " bob SHA auth-pass-phrase\n");
  const auto wrongPrivacy = Keys("SHA", "auth-pass-phrase", "AES", "another-phrase");
  ExpectOutcomeOfTrap(Outcome::kUnknownUser, "mallory", kNone);
  ExpectOutcomeOfTrap(Outcome::kUnknownEngine, "alice", kNone, "0x80000000ffffffff");
  ExpectOutcomeOfTrap(Outcome::kWrongDigest, "bob", Keys("SHA", "another-phrase"));
  ExpectOutcomeOfTrap(Outcome::kUnsupportedLevel, "bob", wrongPrivacy);
  // What a wrong key makes of an encrypted message is not always the same.
  EXPECT_EQ(SendTrapAs("alice", wrongPrivacy), 0);
  EXPECT_TRUE(WaitUntil([&] { return Listener().Counters().Received() == 5; }));
  EXPECT_EQ(Count(Outcome::kAccepted), 0U);
  // None of them keeps the next good one out.
  EXPECT_EQ(SendTrapAs("bob", kSigned), 0);
  EXPECT_TRUE(WaitForTraps(1));
  EXPECT_EQ(Listener().Counters().Dropped(), 5U);
}

TEST_F(Version3Test, MessageBelowTheLevelOfTheKeysIsRefused) {
  const std::string auth = " SHA auth-pass-phrase";
  std::string lines = "authUser log easy noauth\nauthUser log,execute -s usm half\n";
  for (const std::string user : {"ann", "easy", "half"}) {
    const std::string keys = std::string(user).append(auth).append(" AES priv-pass-phrase\n");
    lines.append("createUser ").append(keys).append("createUser -e ").append(kEngine);
    lines.append(" ").append(keys);
  }
  Start(lines + "createUser -e " + kEngine + " bob" + auth + "\n");
  for (const auto& [user, keys] :
       {std::pair{"ann", kNone}, {"ann", kSigned}, {"bob", kNone}, {"half", kNone}}) {
    ExpectOutcomeOfTrap(Outcome::kLevelTooLow, user, keys);
  }
  for (const auto& [user, keys] :
       {std::pair{"ann", kBoth}, {"bob", kSigned}, {"half", kSigned}, {"easy", kNone}}) {
    ExpectOutcomeOfTrap(Outcome::kAccepted, user, keys);
  }
  // The library takes nobody, too, for a user.
  std::string nobody = Recorded("u", kNone, "1,1");
  const std::string user = "\x04\x01u\x04\x00\x04\x00"s;
  nobody.replace(nobody.find(user), user.size(), "\x04\x00\x04\x01u\x04\x00"s);
  ExpectOutcome(nobody, Outcome::kUnknownUser);
  EXPECT_NE(SendAs(SNMPINFORM, "ann", kSigned), 0) << "is not acknowledged";
  EXPECT_EQ(SendAs(SNMPINFORM, "half", kSigned), 0);
  EXPECT_EQ(Count(Outcome::kLevelTooLow), 5U);
  EXPECT_EQ(Count(Outcome::kAccepted), 5U);
  EXPECT_TRUE(WaitForTraps(5));
}

TEST_F(Version3Test, RecordedMessageMakesNoSecondRow) {
  const auto arrives = [this](const std::string& moment, Outcome outcome) {
    SCOPED_TRACE(moment);
    ExpectOutcome(Recorded("sha", kSigned, moment), outcome);
  };
  const std::string newest = Recorded("sha", kSigned, "1000,1000");
  const std::string earlier = Recorded("sha", kSigned, "1000,950");
  Start(kSignedUser);
  for (const std::string& recorded : {newest, earlier}) {
    ExpectOutcome(recorded, Outcome::kAccepted);
    ExpectOutcome(recorded, Outcome::kRepeated);
  }
  for (const char* old : {"1000,100", "999,500"}) arrives(old, Outcome::kNotInTimeWindow);
  Stop();

  Start(kSignedUser);
  for (const std::string& recorded : {earlier, newest}) {
    ExpectOutcome(recorded, Outcome::kNotInTimeWindow);
  }
  for (const char* old : {"1000,100", "999,500"}) arrives(old, Outcome::kNotInTimeWindow);
  arrives("1000,1001", Outcome::kAccepted);
  Stop();

  // The device was replaced.
  Start(kSignedUser + "forgetEngine " + kEngine + "\n");
  arrives("1,7", Outcome::kAccepted);
  // Such a count says that the engine can no longer tell messages apart.
  arrives("2147483647,7", Outcome::kNotInTimeWindow);
  EXPECT_EQ(traps_.size(), 4U);
}

TEST_F(Version3Test, OddValueCostsNoMessage) {
  const std::string value = "\x04\x0a"s + "from plain";
  Start(kSignedUser + "createUser -e " + kEngine + " plain\n");
  std::string trap = Recorded("plain", kNone, "1,1");
  const std::size_t at = trap.find(value);
  std::string cut = trap;
  trap[at] = '\x48';
  ExpectOutcome(trap, Outcome::kAccepted);
  trap[trap.find('\xA7')] = '\xA6';
  ExpectOutcome(trap, Outcome::kAccepted);
  EXPECT_EQ(Listener().Counters().answeredInforms, 1U);
  // Two octets stay behind the last binding, which the library cannot take for anything.
  cut[at + 1] -= 2;
  cut[cut.rfind('\x30', at) + 1] -= 2;
  ExpectOutcome(cut, Outcome::kAccepted);
  ASSERT_TRUE(WaitForTraps(3));
  for (const Trap& shown : traps_) EXPECT_THAT(shown.Values.back(), testing::StartsWith("tag 0x"));
  // What is behind the message is no part of it.
  ExpectOutcome(Recorded("sha", kSigned, "1,1") + "x", Outcome::kAccepted);
}

TEST_F(Version3Test, WhatWasHeardIsKeptWithoutAnEnd) {
  Start(kSignedUser);
  ExpectOutcome(Recorded("sha", kSigned, "3,4"), Outcome::kAccepted);
  EXPECT_TRUE(WaitUntil([&] { return Stored("heardEngine") == kEngine + " 3 4"; }));
}

TEST_F(Version3Test, EngineIdAndBootsCountPersist) {
  Start("createUser carol SHA auth-pass-phrase AES priv-pass-phrase\n");
  EXPECT_EQ(SendAs(SNMPINFORM, "carol", kBoth), 0);
  Stop();
  const std::string engine = Stored("oldEngineID");
  EXPECT_NE(engine, "");
  EXPECT_EQ(Stored("engineBoots"), "1");
  EXPECT_THAT(State(), testing::HasSubstr("usmUser"));
  EXPECT_THAT(State(), testing::Not(testing::HasSubstr("pass-phrase")));

  // The localized keys are enough for the next life.
  Start();
  EXPECT_EQ(SendAs(SNMPINFORM, "carol", kBoth), 0);
  Stop();
  EXPECT_EQ(Stored("oldEngineID"), engine);
  EXPECT_EQ(Stored("engineBoots"), "2");

  // A passphrase that was changed since wins over them.
  Start("createUser carol SHA a-new-auth-phrase AES a-new-priv-phrase\n");
  EXPECT_NE(SendAs(SNMPINFORM, "carol", kBoth), 0);
  EXPECT_EQ(
      SendAs(SNMPINFORM, "carol", Keys("SHA", "a-new-auth-phrase", "AES", "a-new-priv-phrase")), 0);
  Stop();
  EXPECT_EQ(Stored("engineBoots"), "3");
}

TEST_F(Version3Test, BootsStopAtTheirHighestValue) {
  const std::string engine = "0x8000000005060708";
  const std::pair<const char*, const char*> cases[] = {{"2147483645", "2147483646"},
                                                       {"2147483646", "2147483647"},
                                                       {"2147483647", "2147483647"},
                                                       {"99999999999", "2147483647"},
                                                       {"-5", "1"}};
  for (const auto& [kept, next] : cases) {
    MakeFolderFor(StateFile());
    WriteFile(StateFile(), "engineBoots " + std::string(kept) + "\noldEngineID " + engine + "\n");
    Start();
    Stop();
    EXPECT_EQ(Stored("engineBoots"), next);
    // Nobody knows how often an engine of fewer than no boots has started.
    EXPECT_EQ(Stored("oldEngineID") == engine, *kept != '-');
  }
}

TEST_F(Version3Test, RunThatCannotKeepItsBootsIsAnotherEngine) {
  const std::string configuration = "createUser carol SHA auth-pass-phrase\n";
  const auto discovery = [this] {
    UdpSocket sender(Listener().Port());
    sender.Send(ReadFile(fs::path(CORPUS) / "v3-discovery"));
    return QByteArray::fromStdString(sender.Await()).toHex().toStdString();
  };
  Start(configuration);
  const std::string answer = discovery();
  Stop();
  const std::string kept = State();
  const std::string engine = Stored("oldEngineID").substr(2);
  EXPECT_THAT(answer, testing::HasSubstr(engine));
  EXPECT_EQ(fs::status(StateFile()).permissions(), fs::perms::owner_read | fs::perms::owner_write);

  fs::permissions(StateFile(), fs::perms::owner_read);
  Start(configuration);
  EXPECT_THAT(discovery(), testing::Not(testing::HasSubstr(engine)));
  EXPECT_EQ(SendAs(SNMPINFORM, "carol", kSigned), 0);
  Stop();
  EXPECT_EQ(State(), kept);
}

TEST_F(Version3Test, ReportsAreFewHoweverManyAskForThem) {
  Start();
  const std::string question = ReadFile(CORPUS "/v3-discovery");
  const std::string trap = Recorded("stranger", kNone, "1,1");
  UdpSocket sender(Listener().Port());
  constexpr std::uint64_t kQuestions = 2'000;
  const auto answersTo = [&](const std::string& message) {
    std::uint64_t answers = 0;
    for (std::uint64_t sent = 1; sent <= kQuestions; ++sent) {
      const std::uint64_t before = Listener().Counters().Received();
      sender.Send(message);
      EXPECT_TRUE(WaitBlockedUntil([&] { return Listener().Counters().Received() > before; }));
      answers += sender.TakeAll();
    }
    return answers;
  };
  EXPECT_EQ(answersTo(trap), 0U);
  sender.Send(question);
  EXPECT_NE(sender.Await(), "") << "what asks for nothing does not count";
  EXPECT_THAT(answersTo(question), testing::AllOf(testing::Gt(0U), testing::Lt(kQuestions / 2)));
}

TEST_F(Version3Test, FaultyConfigurationIsPassedOverWithoutAWord) {
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  Start(
      "createUser\ncreateUser x SHA\ncreateUser -e 0x8000000001020304 x NONE\n"
      "createUser -M -e 0x80\ncreateUser x SHA short\ncreateUser y NONSENSE z\nno such token\n"
      "logOption e\n[snmp] logOption e\n[snmp] doDebugging yes\ncreateUser -e " +
      kEngine + " good\n");
  UdpSocket(Listener().Port()).Send("\x30\x03\x02\x01\x09");
  EXPECT_TRUE(WaitUntil([&] { return Listener().Counters().Received() == 1; }));
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  EXPECT_EQ(SendTrapAs("good", kNone), 0);
  EXPECT_TRUE(WaitForTraps(1));
}

}  // namespace
}  // namespace sentrel::test
