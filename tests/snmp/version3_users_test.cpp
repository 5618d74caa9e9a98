#include <gmock/gmock.h>

#include <filesystem>

#include "common/failure.h"
#include "listener_fixture.h"

namespace sentrel::test {
namespace {

using namespace std::string_literals;

const std::string kPhrase = "auth-pass-phrase";
const std::string kPrivPhrase = "priv-pass-phrase";
const std::string kEngine = "0x8000000001020304";
const std::string kOther = "0x80000000aabbccdd";
const std::string kEngineBytes = "\x80\x00\x00\x00\x01\x02\x03\x04"s;

Version3UserEntry EntryFor(const std::string& name, Authentication authentication,
                           Privacy privacy = Privacy::kNone, const std::string& engine = "") {
  const bool isPrivate = privacy != Privacy::kNone;
  const auto level = isPrivate ? SecurityLevel::kAuthPriv : SecurityLevel::kAuthNoPriv;
  return {{name, level, authentication, privacy, engine, std::nullopt, false},
          kPhrase,
          isPrivate ? kPrivPhrase : ""};
}

class Version3UsersTest : public ListenerTest {
 protected:
  Version3UserStore& Store() { return Listener().Version3UsersKept(); }
  std::string UserFile() const { return folder_ / "state" / "version3-users"; }

  static std::vector<std::string> Arguments(const std::string& user, const std::string& engine,
                                            const std::string& digest = "SHA",
                                            const std::string& cipher = "",
                                            const std::string& phrase = kPhrase) {
    std::vector<std::string> arguments = {"-v3", "-r0",  "-t5", "-u",   user,
                                          "-a",  digest, "-A",  phrase, "-l"};
    if (cipher.empty()) {
      arguments.emplace_back("authNoPriv");
    } else {
      arguments.insert(arguments.end(), {"authPriv", "-x", cipher, "-X", kPrivPhrase});
    }
    if (!engine.empty()) arguments.insert(arguments.end(), {"-e", engine});
    arguments.insert(arguments.end(), {"HOST", "1", "1.3.6.1.4.1.58213.10"});
    return arguments;
  }
  static std::vector<std::string> At(const std::string& moment,
                                     std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"-Z", moment});
    return arguments;
  }
  void ExpectOf(Outcome outcome, const std::vector<std::string>& arguments) {
    ExpectOutcome(outcome, [&] { EXPECT_EQ(Send(SNMPTRAP, arguments), 0); });
  }
  void ExpectBytes(Outcome outcome, const std::string& datagram) {
    ExpectOutcome(datagram, outcome);
  }
};

const std::vector<std::pair<std::string, Authentication>> kDigests = {
    {"MD5", Authentication::kMd5},        {"SHA", Authentication::kSha1},
    {"SHA-224", Authentication::kSha224}, {"SHA-256", Authentication::kSha256},
    {"SHA-384", Authentication::kSha384}, {"SHA-512", Authentication::kSha512}};
const std::vector<std::pair<std::string, Privacy>> kCiphers = {
    {"DES", Privacy::kDes},           {"AES", Privacy::kAes128},
    {"AES-192", Privacy::kAes192},    {"AES-256", Privacy::kAes256},
    {"AES-192-C", Privacy::kAes192C}, {"AES-256-C", Privacy::kAes256C}};

/// A user of any engine for each pair, with the name of the pair.
std::vector<Version3UserEntry> UsersOfEveryPair() {
  std::vector<Version3UserEntry> entries;
  for (const auto& [digest, authentication] : kDigests) {
    for (const auto& [cipher, privacy] : kCiphers) {
      entries.push_back(EntryFor(std::string(digest).append(cipher), authentication, privacy));
    }
  }
  return entries;
}

TEST_F(Version3UsersTest, EveryPairOfProtocolsPassesFromAnyEngine) {
  Start();
  Store().Replace(UsersOfEveryPair());
  std::size_t arrived = 0;
  for (const auto& [digest, authentication] : kDigests) {
    for (const auto& [cipher, privacy] : kCiphers) {
      const std::string user = std::string(digest).append(cipher);
      EXPECT_EQ(Send(SNMPTRAP, Arguments(user, kEngine, digest, cipher)), 0) << user;
      EXPECT_TRUE(WaitForTraps(++arrived)) << user;
    }
  }
  EXPECT_EQ(Send(SNMPINFORM, Arguments("SHA-256AES-256", "", "SHA-256", "AES-256")), 0);
  EXPECT_TRUE(WaitForTraps(++arrived));
}

/// It makes the keys by itself, also the longer ones of AES.
TEST_F(Version3UsersTest, EveryPairOfASenderOfAnotherMakePasses) {
  Start();
  const auto users = UsersOfEveryPair();
  Store().Replace(users);
  QProcess sender;
  sender.setProcessChannelMode(QProcess::ForwardedChannels);
  sender.start(PYTHON3, {PYSNMP_SENDER, QString::number(Listener().Port()),
                         QString::fromStdString(kPhrase), QString::fromStdString(kPrivPhrase)});
  EXPECT_TRUE(WaitForTraps(users.size()));
  EXPECT_TRUE(sender.waitForFinished());
  EXPECT_EQ(sender.exitCode(), 0);
  std::vector<std::string> senders;
  for (const Trap& trap : traps_) senders.push_back(trap.Community);
  std::vector<std::string> names;
  for (const auto& entry : users) names.push_back(entry.user.name);
  EXPECT_EQ(senders, names);
}

TEST_F(Version3UsersTest, OnlyARightDigestIsLearnedFrom) {
  Start();
  Store().Replace({EntryFor("any", Authentication::kSha1)});
  const std::string genuine = Caught(SNMPTRAP, At("5,1000", Arguments("any", kEngine)));
  std::string moved = genuine;
  moved.replace(moved.find(kEngineBytes), kEngineBytes.size(), "\x80\x00\x00\x00\x01\x02\x03\x05"s);
  ExpectBytes(Outcome::kWrongDigest, moved);
  ExpectOf(Outcome::kWrongDigest, Arguments("any", kEngine, "SHA", "", "another-phrase"));
  ExpectOf(Outcome::kWrongDigest, Arguments("any", kEngine, "SHA-256"));
  ExpectOf(Outcome::kUnknownUser, Arguments("Any", kEngine));
  ExpectBytes(Outcome::kAccepted, genuine);
  ExpectBytes(Outcome::kRepeated, genuine);
  ExpectBytes(Outcome::kWrongDigest, moved);
  ExpectOf(Outcome::kAccepted, Arguments("any", "0x80" + std::string(62, '1')));
  // A second engine, and a second device that says it is the first.
  ExpectOf(Outcome::kAccepted, At("1,10", Arguments("any", kOther)));
  ExpectOf(Outcome::kAccepted, At("5,1001", Arguments("any", kEngine)));
  ExpectOf(Outcome::kNotInTimeWindow, At("4,1002", Arguments("any", kEngine)));
  ExpectOf(Outcome::kNotInTimeWindow, At("2147483647,1", Arguments("any", kOther)));
  Stop();
  EXPECT_EQ(Listener().StartListening(), 0);
  ExpectBytes(Outcome::kNotInTimeWindow, genuine);
  ExpectOf(Outcome::kAccepted, At("5,1002", Arguments("any", kEngine)));
}

TEST_F(Version3UsersTest, ARefusalTellsWhatIsOtherwise) {
  Start();
  const std::string right = "The passphrase is right: the message can be read as ";
  const struct {
    Privacy ofUser;
    const char* sentAs;
    std::string hint;
  } cases[] = {
      {Privacy::kAes256C, "AES-256",
       right + "AES-256, and the user is set to AES-256-C, which makes its key otherwise."},
      {Privacy::kAes192, "AES-256-C",
       right + "AES-256-C, and the user is set to AES-192, which makes its key otherwise."},
      {Privacy::kDes, "AES", right + "AES, and the user is set to DES."},
      {Privacy::kAes128, "DES", right + "DES, and the user is set to AES."},
  };
  const auto lastHint = [&] { return Listener().Refused().front().hint; };
  for (const auto& c : cases) {
    Store().Replace({EntryFor("any", Authentication::kSha1, c.ofUser)});
    ExpectOf(Outcome::kNotDecrypted, Arguments("any", kEngine, "SHA", c.sentAs));
    EXPECT_EQ(lastHint(), c.hint);
  }
  auto entry = EntryFor("fixed", Authentication::kSha1, Privacy::kAes128, kEngineBytes);
  entry.privPassphrase = "another-phrase";
  Store().Replace({entry});
  ExpectOf(Outcome::kNotDecrypted, Arguments("fixed", kEngine, "SHA", "AES"));
  EXPECT_EQ(lastHint(), "");
  ExpectOf(Outcome::kUnknownEngine, Arguments("fixed", kOther, "SHA", "AES"));
  EXPECT_EQ(lastHint(), "This user is known for the engine " + kEngine + " alone.");
}

TEST_F(Version3UsersTest, AnEngineThatIsForgottenBeginsAnew) {
  Start();
  Store().Replace({EntryFor("any", Authentication::kSha1)});
  ExpectOf(Outcome::kAccepted, At("9,1000", Arguments("any", kEngine)));
  ExpectOf(Outcome::kNotInTimeWindow, At("1,5", Arguments("any", kEngine)));
  EXPECT_EQ(Listener().Refused().front().hint,
            "It says start 1, second 5; this engine has been heard at start 9, second 1000.");
  Store().ForgetEngine(kEngineBytes);
  ExpectOf(Outcome::kAccepted, At("1,6", Arguments("any", kEngine)));
}

TEST_F(Version3UsersTest, AChangeHoldsFromTheNextMessageOn) {
  Start("createUser -e " + kEngine + " filed SHA " + kPhrase + "\n");
  ExpectOf(Outcome::kUnknownEngine, Arguments("late", kOther));
  Store().Replace({EntryFor("late", Authentication::kSha1),
                   EntryFor("fixed", Authentication::kSha1, Privacy::kAes128, kEngineBytes)});
  ExpectOf(Outcome::kAccepted, Arguments("late", kOther));
  ExpectOf(Outcome::kAccepted, Arguments("fixed", kEngine, "SHA", "AES"));
  ExpectOf(Outcome::kLevelTooLow, Arguments("fixed", kEngine));
  ExpectOf(Outcome::kUnknownUser, Arguments("fixed", kOther, "SHA", "AES"));
  auto changed = EntryFor("late", Authentication::kSha1);
  changed.authPassphrase = "changed-phrase";
  Store().Replace({changed});
  ExpectOf(Outcome::kWrongDigest, Arguments("late", kOther));
  ExpectOf(Outcome::kUnknownUser, Arguments("fixed", kEngine, "SHA", "AES"));
  // The key is kept where no passphrase is given.
  changed.authPassphrase.clear();
  Store().Replace({changed});
  ExpectOf(Outcome::kAccepted, Arguments("late", kOther, "SHA", "", "changed-phrase"));
  Store().Replace({});
  ExpectOf(Outcome::kUnknownEngine, Arguments("late", kOther, "SHA", "", "changed-phrase"));
  ExpectOf(Outcome::kAccepted, Arguments("filed", kEngine));
}

TEST_F(Version3UsersTest, UsersAreListedAndKeptWithoutPassphrases) {
  Start("createUser -e " + kEngine + " filed SHA " + kPhrase + "\n");
  Store().Replace({EntryFor("any", Authentication::kSha256, Privacy::kAes256C)});
  ExpectOf(Outcome::kAccepted, Arguments("any", kEngine, "SHA-256", "AES-256-C"));
  ExpectOf(Outcome::kAccepted, Arguments("filed", kEngine));
  auto users = Store().Users();
  ASSERT_EQ(users.size(), 2U);
  EXPECT_TRUE(users[0].isFromFile);
  EXPECT_EQ(users[0].name, "filed");
  EXPECT_EQ(users[0].engine, kEngineBytes);
  EXPECT_EQ(users[0].authentication, Authentication::kSha1);
  EXPECT_TRUE(users[0].lastHeard && users[1].lastHeard);
  EXPECT_EQ(users[1].privacy, Privacy::kAes256C);
  namespace fs = std::filesystem;
  for (const auto& file : fs::recursive_directory_iterator(folder_ / "state")) {
    if (!file.is_regular_file()) continue;
    const std::string text = ReadFile(file.path());
    for (const std::string& secret : {kPhrase, kPrivPhrase}) {
      EXPECT_EQ(text.find(secret), std::string::npos) << file.path();
    }
  }
  EXPECT_EQ(fs::status(UserFile()).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(Version3UsersTest, WhatCannotBeKeptIsRefusedWithoutAChange) {
  Start();
  const auto good = EntryFor("good", Authentication::kSha1);
  Store().Replace({good});
  auto noPhrase = EntryFor("other", Authentication::kSha1);
  noPhrase.authPassphrase.clear();
  auto shortPhrase = EntryFor("other", Authentication::kSha1);
  shortPhrase.authPassphrase = "seven77";
  auto unsigned_ = EntryFor("other", Authentication::kNone);
  unsigned_.user.leastLevel = SecurityLevel::kNoAuthNoPriv;
  for (const auto& bad :
       {noPhrase, shortPhrase, unsigned_, good,
        EntryFor(std::string(33, 'x'), Authentication::kSha1), EntryFor("", Authentication::kSha1),
        EntryFor("other", Authentication::kSha1, Privacy::kNone, "\x80\x01"s),
        EntryFor("other", Authentication::kNone, Privacy::kDes)}) {
    try {
      Store().Replace({good, bad});
      ADD_FAILURE() << bad.user.name;
    } catch (const Failure& failure) {
      EXPECT_EQ(std::string(failure.what()).find(kPhrase), std::string::npos);
      EXPECT_EQ(std::string(failure.what()).find("seven77"), std::string::npos);
    }
  }
  ExpectOf(Outcome::kAccepted, Arguments("good", kEngine));
  ExpectOf(Outcome::kUnknownUser, Arguments("other", kEngine));
  EXPECT_EQ(Store().Users().size(), 1U);
}

}  // namespace
}  // namespace sentrel::test
