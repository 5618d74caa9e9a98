#include <gmock/gmock.h>

#include <sstream>

#include "listener_fixture.h"

namespace sentrel::test {
namespace {

const std::string kEngine = "0x8000000001020304";
const std::string kVendor = "1.3.6.1.4.1.58213";

struct User {
  std::string name;
  /// Of the sender: -a, -x and so on.
  std::vector<std::string> keys;
  /// Of the receiver's createUser line.
  std::string line;
};

std::vector<User> Users() {
  std::vector<User> users = {{"plain", {"-l", "noAuthNoPriv"}, ""}};
  for (const std::string digest : {"MD5", "SHA", "SHA-224", "SHA-256", "SHA-384", "SHA-512"}) {
    users.push_back({"auth-" + digest,
                     {"-l", "authNoPriv", "-a", digest, "-A", "auth pass phrase"},
                     digest + " \"auth pass phrase\""});
  }
  for (const std::string cipher : {"DES", "AES"}) {
    users.push_back({"priv-" + cipher,
                     {"-l", "authPriv", "-a", "SHA", "-A", "auth pass phrase", "-x", cipher, "-X",
                      "priv-pass-phrase"},
                     "SHA \"auth pass phrase\" " + cipher + " priv-pass-phrase"});
  }
  return users;
}

class Version3Test : public ListenerTest {
 protected:
  int SendAs(const std::string& tool, const std::string& user, const std::vector<std::string>& keys,
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
  std::string State() const { return ReadFile(folder_.Path() / "state" / "sentrel.conf"); }
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
  const std::vector<std::string> bad_digest = {"-l",  "authNoPriv", "-a",
                                               "SHA", "-A",         "another-phrase"};
  const std::vector<std::string> bad_privacy = {
      "-l", "authPriv", "-a", "SHA", "-A", "auth-pass-phrase", "-x", "AES", "-X", "another-phrase"};
  const auto refused = [this](Outcome outcome, const std::string& user,
                              const std::vector<std::string>& keys, const std::string& engine) {
    const std::uint64_t before = Listener().Counters().Of(outcome);
    EXPECT_EQ(SendAs(SNMPTRAP, user, keys, {"-e", engine}), 0);
    EXPECT_TRUE(WaitUntil([&] { return Listener().Counters().Of(outcome) == before + 1; }))
        << OutcomeText(outcome);
  };
  refused(Outcome::kUnknownUser, "mallory", {"-l", "noAuthNoPriv"}, kEngine);
  refused(Outcome::kUnknownUser, "alice", {"-l", "noAuthNoPriv"}, "0x80000000ffffffff");
  refused(Outcome::kWrongDigest, "alice", bad_digest, kEngine);
  refused(Outcome::kUnsupportedLevel, "bob", bad_privacy, kEngine);
  EXPECT_EQ(traps_.size(), 0U);
  // None of them stands in the way of the next good one.
  EXPECT_EQ(SendTrapAs("bob", {"-l", "authNoPriv", "-a", "SHA", "-A", "auth-pass-phrase"}), 0);
  EXPECT_TRUE(WaitForTraps(1));
  EXPECT_EQ(Listener().Counters().Dropped(), 4U);
}

TEST_F(Version3Test, WrongPrivacyKeyYieldsNoTrap) {
  Start("createUser -e " + kEngine + " alice SHA auth-pass-phrase AES priv-pass-phrase\n");
  EXPECT_EQ(SendTrapAs("alice", {"-l", "authPriv", "-a", "SHA", "-A", "auth-pass-phrase", "-x",
                                 "AES", "-X", "another-phrase"}),
            0);
  EXPECT_TRUE(WaitUntil([&] { return Listener().Counters().Received() == 1; }));
  EXPECT_EQ(Listener().Counters().Of(Outcome::kAccepted), 0U);
  EXPECT_TRUE(traps_.empty());
}

TEST_F(Version3Test, ReplayedDatagramFromThePastIsRefused) {
  Start("createUser -e " + kEngine + " sha SHA auth-pass-phrase\n");
  // The sender's clock starts at its own start: the captured message carries an old boots count
  // once the engine has been heard with a newer one.
  const std::vector<std::string> keys = {"-l", "authNoPriv", "-a", "SHA", "-A", "auth-pass-phrase"};
  EXPECT_EQ(SendAs(SNMPTRAP, "sha", keys, {"-e", kEngine, "-Z", "1000,100"}), 0);
  ASSERT_TRUE(WaitForTraps(1));
  EXPECT_EQ(SendAs(SNMPTRAP, "sha", keys, {"-e", kEngine, "-Z", "999,100"}), 0);
  EXPECT_TRUE(WaitUntil([&] { return Listener().Counters().Of(Outcome::kNotInTimeWindow) == 1; }));
  EXPECT_EQ(traps_.size(), 1U);
}

TEST_F(Version3Test, EngineIdAndBootsCountPersist) {
  const std::vector<std::string> keys = {"-l", "authPriv",         "-a", "SHA",
                                         "-A", "auth-pass-phrase", "-x", "AES",
                                         "-X", "priv-pass-phrase"};
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
  EXPECT_EQ(SendAs(SNMPINFORM, "carol",
                   {"-l", "authPriv", "-a", "SHA", "-A", "a-new-auth-phrase", "-x", "AES", "-X",
                    "a-new-priv-phrase"}),
            0);
  Stop();
  EXPECT_EQ(Stored("engineBoots"), "3");
}

TEST_F(Version3Test, FaultyConfigurationIsPassedOver) {
  Start(
      "createUser\ncreateUser x SHA short\ncreateUser y NONSENSE z\nno such token\n"
      "createUser -e " +
      kEngine + " good\n");
  EXPECT_EQ(SendTrapAs("good", {"-l", "noAuthNoPriv"}), 0);
  EXPECT_TRUE(WaitForTraps(1));
}

}  // namespace
}  // namespace sentrel::test
