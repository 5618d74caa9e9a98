#include <gmock/gmock.h>

#include <sstream>

#include "listener_fixture.h"

namespace sentrel::test {
namespace {

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

struct User {
  std::string name;
  std::vector<std::string> keys;
  /// Of the receiver's createUser line.
  std::string line;
};

std::vector<User> Users() {
  const std::string phrase = "auth pass phrase";
  const std::string quoted = " \"auth pass phrase\"";
  std::vector<User> users = {{"plain", Keys(), ""}};
  for (const std::string digest : {"MD5", "SHA", "SHA-224", "SHA-256", "SHA-384", "SHA-512"}) {
    users.push_back({"auth-" + digest, Keys(digest, phrase), digest + quoted});
  }
  for (const std::string cipher : {"DES", "AES"}) {
    users.push_back({"priv-" + cipher, Keys("SHA", phrase, cipher, "priv-pass-phrase"),
                     "SHA" + quoted + " " + cipher + " priv-pass-phrase"});
  }
  return users;
}

class Version3Test : public ListenerTest {
 protected:
  int SendAs(const char* tool, const std::string& user, const std::vector<std::string>& keys,
             const std::vector<std::string>& more = {}) {
    std::vector<std::string> arguments = {"-v3", "-r0", "-t5", "-u", user};
    arguments.insert(arguments.end(), keys.begin(), keys.end());
    arguments.insert(arguments.end(), more.begin(), more.end());
    arguments.insert(arguments.end(),
                     {"HOST", "1", kVendor + ".10", kVendor + ".1", "s", "from " + user});
    return Send(tool, arguments);
  }
  int SendTrapAs(const std::string& user, const std::vector<std::string>& keys) {
    return SendAs(SNMPTRAP, user, keys, {"-e", kEngine});
  }
  std::string State() const { return ReadFile(folder_ / "state" / "sentrel.conf"); }
  std::string Stored(const std::string& token) const {
    std::istringstream lines(State());
    for (std::string line; std::getline(lines, line);) {
      if (line.starts_with(token + " ")) return line.substr(token.size() + 1);
    }
    return "";
  }
};

TEST_F(Version3Test, TrapsAndInformsOfEveryProtocolArrive) {
  std::string configuration;
  for (const User& user : Users()) {
    configuration += "createUser -e " + kEngine + " " + user.name + " " + user.line + "\n" +
                     "createUser " + user.name + " " + user.line + "\n";
  }
  Start(configuration);
  std::size_t expected = 0;
  for (const User& user : Users()) {
    EXPECT_EQ(SendTrapAs(user.name, user.keys), 0) << user.name;
    EXPECT_TRUE(WaitForTraps(++expected)) << user.name;
    EXPECT_EQ(SendAs(SNMPINFORM, user.name, user.keys), 0) << user.name;
    EXPECT_TRUE(WaitForTraps(++expected)) << user.name;
    ASSERT_EQ(traps_.size(), expected);
    EXPECT_EQ(traps_.back().Community, user.name);
    EXPECT_EQ(traps_.back().Values.back(), "from " + user.name);
  }
  EXPECT_EQ(Listener().Counters().answeredInforms, Users().size());
}

TEST_F(Version3Test, RefusalsAreCountedByReason) {
  Start("createUser -e " + kEngine + " alice SHA auth-pass-phrase AES priv-pass-phrase\n" +
        "createUser -e " + kEngine + " bob SHA auth-pass-phrase\n");
  const auto wrongPrivacy = Keys("SHA", "auth-pass-phrase", "AES", "another-phrase");
  const auto refused = [this](Outcome outcome, const std::string& user,
                              const std::vector<std::string>& keys, const std::string& engine) {
    const std::uint64_t before = Listener().Counters().Of(outcome);
    EXPECT_EQ(SendAs(SNMPTRAP, user, keys, {"-e", engine}), 0);
    EXPECT_TRUE(WaitUntil([&] { return Listener().Counters().Of(outcome) == before + 1; }))
        << OutcomeText(outcome);
  };
  refused(Outcome::kUnknownUser, "mallory", Keys(), kEngine);
  refused(Outcome::kUnknownUser, "alice", Keys(), "0x80000000ffffffff");
  refused(Outcome::kWrongDigest, "alice", Keys("SHA", "another-phrase"), kEngine);
  refused(Outcome::kUnsupportedLevel, "bob", wrongPrivacy, kEngine);
  // What a wrong key makes of an encrypted message is not always the same.
  EXPECT_EQ(SendTrapAs("alice", wrongPrivacy), 0);
  EXPECT_TRUE(WaitUntil([&] { return Listener().Counters().Received() == 5; }));
  EXPECT_EQ(Listener().Counters().Of(Outcome::kAccepted), 0U);
  // None of them stands in the way of the next good one.
  EXPECT_EQ(SendTrapAs("bob", Keys("SHA", "auth-pass-phrase")), 0);
  EXPECT_TRUE(WaitForTraps(1));
  EXPECT_EQ(Listener().Counters().Dropped(), 5U);
}

TEST_F(Version3Test, ReplayedDatagramFromThePastIsRefused) {
  Start("createUser -e " + kEngine + " sha SHA auth-pass-phrase\n");
  // The sender's clock starts at its own start: the captured message carries an old boots count
  // once the engine has been heard with a newer one.
  const auto keys = Keys("SHA", "auth-pass-phrase");
  EXPECT_EQ(SendAs(SNMPTRAP, "sha", keys, {"-e", kEngine, "-Z", "1000,100"}), 0);
  ASSERT_TRUE(WaitForTraps(1));
  EXPECT_EQ(SendAs(SNMPTRAP, "sha", keys, {"-e", kEngine, "-Z", "999,100"}), 0);
  EXPECT_TRUE(WaitUntil([&] { return Listener().Counters().Of(Outcome::kNotInTimeWindow) == 1; }));
  EXPECT_EQ(traps_.size(), 1U);
}

TEST_F(Version3Test, EngineIdAndBootsCountPersist) {
  const auto keys = Keys("SHA", "auth-pass-phrase", "AES", "priv-pass-phrase");
  Start("createUser carol SHA auth-pass-phrase AES priv-pass-phrase\n");
  EXPECT_EQ(SendAs(SNMPINFORM, "carol", keys), 0);
  Stop();
  const std::string engine = Stored("oldEngineID");
  EXPECT_NE(engine, "");
  EXPECT_EQ(Stored("engineBoots"), "1");
  EXPECT_THAT(State(), testing::HasSubstr("usmUser"));
  EXPECT_THAT(State(), testing::Not(testing::HasSubstr("pass-phrase")));

  // The localized keys are enough for the next life.
  Start();
  EXPECT_EQ(SendAs(SNMPINFORM, "carol", keys), 0);
  Stop();
  EXPECT_EQ(Stored("oldEngineID"), engine);
  EXPECT_EQ(Stored("engineBoots"), "2");

  // A passphrase that was changed since wins over them.
  Start("createUser carol SHA a-new-auth-phrase AES a-new-priv-phrase\n");
  EXPECT_NE(SendAs(SNMPINFORM, "carol", keys), 0);
  EXPECT_EQ(
      SendAs(SNMPINFORM, "carol", Keys("SHA", "a-new-auth-phrase", "AES", "a-new-priv-phrase")), 0);
  Stop();
  EXPECT_EQ(Stored("engineBoots"), "3");
}

TEST_F(Version3Test, FaultyConfigurationIsPassedOverWithoutAWord) {
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  Start(
      "createUser\ncreateUser x SHA short\ncreateUser y NONSENSE z\nno such token\n"
      "logOption e\n[snmp] logOption e\n[snmp] doDebugging yes\ncreateUser -e " +
      kEngine + " good\n");
  UdpSender(Listener().Port()).Send("\x30\x03\x02\x01\x09");
  EXPECT_TRUE(WaitUntil([&] { return Listener().Counters().Received() == 1; }));
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  EXPECT_EQ(SendTrapAs("good", Keys()), 0);
  EXPECT_TRUE(WaitForTraps(1));
}

}  // namespace
}  // namespace sentrel::test
