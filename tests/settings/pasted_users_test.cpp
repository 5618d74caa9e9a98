#include "settings/pasted_users.h"

#include <fmt/format.h>
#include <gmock/gmock.h>

#include "settings/version3_names.h"

namespace sentrel {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

/// "NAME ENGINE AUTHENTICATION PASSPHRASE PRIVACY PASSPHRASE" of each user, then each problem.
std::vector<std::string> Read(std::string_view text) {
  const PastedUsers pasted = ReadPastedUsers(text);
  std::vector<std::string> read;
  for (const auto& [user, authPassphrase, privPassphrase] : pasted.users) {
    EXPECT_EQ(user.leastLevel, LevelOf(user.authentication, user.privacy));
    read.push_back(fmt::format("{} {} {} {} {} {}", user.name, EngineText(user.engine),
                               NameOf(user.authentication), authPassphrase, NameOf(user.privacy),
                               privPassphrase));
  }
  read.insert(read.end(), pasted.problems.begin(), pasted.problems.end());
  return read;
}

TEST(PastedUsersTest, UnderstandsTheLinesOfToolsAndDevices) {
  const std::pair<const char*, const char*> lines[] = {
      {R"(createUser -e 0x8000000001020304 alice SHA-256 "her auth pass" AES 'her "priv" pass')",
       R"(alice 0x8000000001020304 SHA-256 her auth pass AES-128 her "priv" pass)"},
      {"createuser bob SHA512 password AES-256-C", "bob any SHA-512 password AES-256-C password"},
      {R"(createUser bob MD5 pass\ word\\8 DES "a\"passphrase")",
       R"(bob any MD5 pass word\8 DES a"passphrase)"},
      {"createUser carol", "carol any none  none "},
      {"snmp-server user bob ops v3 auth sha authpass1 priv aes 256 privpass1",
       "bob any SHA-1 authpass1 AES-256-C privpass1"},
      {"snmp-server user bob ops v3 auth sha256 authpass1 priv aes 256 privpass1 access 10",
       "bob any SHA-256 authpass1 AES-256 privpass1"},
      {"snmp-server user bob ops v3 auth sha-2 512 authpass1 priv aes 192 privpass1",
       "bob any SHA-512 authpass1 AES-192 privpass1"},
      {"snmp-server user v1 ops v3 auth md5 authpass1", "v1 any MD5 authpass1 none "},
      {"snmp-server user v3 v3 v3 auth md5 0 auth\\pass1 priv des 0 privpass1",
       "v3 any MD5 auth\\pass1 DES privpass1"},
      {"snmp-server user bob remote 10.0.0.1 udp-port 162 v3 auth md5 authpass1 priv privpass1",
       "bob any MD5 authpass1 DES privpass1"},
      {"snmp-server user bob auth sha authpass1 priv aes-128 privpass1 engineID 80:00:00:09:03",
       "bob 0x8000000903 SHA-1 authpass1 AES-128 privpass1"},
      {"snmp-server user bob ops auth-sha authpass1 priv-aes128 privpass1",
       "bob any SHA-1 authpass1 AES-128 privpass1"},
      {"snmpv3 user \"bob\" auth sha \"auth pass\" priv aes \"priv pass\"",
       "bob any SHA-1 auth pass AES-128 priv pass"},
      {"snmp-agent usm-user v3 bob ops simple authentication-mode sha authpass1 privacy-mode des56 "
       "privpass1 acl 2000",
       "bob any SHA-1 authpass1 DES privpass1"},
      {"set snmp v3 usm local-engine user bob authentication-sha256 authentication-password "
       "authpass1\nset snmp v3 usm local-engine user bob privacy-aes128 privacy-password "
       "\"privpass1\"",
       "bob any SHA-256 authpass1 AES-128 privpass1"},
      {"set snmp v3 usm remote-engine 80000a4c01 user bob authentication-none",
       "bob 0x80000a4c01 none  none "},
  };
  for (const auto& [line, user] : lines) EXPECT_THAT(Read(line), ElementsAre(user)) << line;
}

TEST(PastedUsersTest, TakesWholeBlocksAndPassesOverWhatCreatesNoUser) {
  EXPECT_THAT(Read("sw1#show running-config\r\n"
                   "!\r\n"
                   "# createUser eve MD5 password\r\n"
                   "snmp-server group ops v3 priv\r\n"
                   "  sw1(config)#snmp-server user bob ops v3 auth md5 authpass1\r\n"
                   "sw1(config)# snmp-server user alice ops v3 auth sha authpass2 \r\n"
                   "sw1(config)# no snmp-server user eve ops v3 auth sha authpass2\r\n"
                   "sw1(config)# snmp-server user old ops v2c\r\n"
                   "[sw2]snmp-agent usm-user v3 carol ops\r\n"
                   "\r\n"),
              ElementsAre("bob any MD5 authpass1 none ", "alice any SHA-1 authpass2 none ",
                          "carol any none  none "));
  EXPECT_THAT(Read("hello\nworld \"quoted"), IsEmpty());
}

TEST(PastedUsersTest, TellsWhatCannotBeUsedWithoutASecret) {
  const std::pair<const char*, const char*> lines[] = {
      {"createUser bob SHA -m 0x5ec4e7ab AES -l 0x5ec4e7ab", "as they were typed"},
      {"snmp-server user bob ops v3 encrypted auth md5 5ec4e7ab priv des 5ec4e7ab", "encrypted"},
      {"snmp-server user bob ops v3 auth sha 7 5ec4e7ab", "encrypted"},
      {"snmp-server user bob auth md5 0x5ec4e7ab priv 0x5ec4e7ab localizedkey", "encrypted"},
      {"snmp-server user bob ops auth-sha-key 5ec4e7ab", "encrypted"},
      {"snmp-agent usm-user v3 bob ops cipher authentication-mode sha $c$5ec4e7ab", "encrypted"},
      {"set snmp v3 usm local-engine user bob authentication-sha authentication-key $9$5ec4e7ab",
       "encrypted"},
      {"createUser bob 5ec4e7ab", "protocol is none of MD5"},
      {"snmp-server user bob ops v3 auth 5ec4e7ab", "protocol is none of MD5"},
      {"snmp-server user bob ops v3 auth sha 5ec4e7ab priv 3des 5ec4e7ab",
       "protocol is none of DES"},
      {"createUser bob SHA 5ec4e7ab AES 5ec4e7ab 5ec4e7ab", "words that Sentrel does not know"},
      {"snmp-server user bob ops v3 auth sha 5ec4e7ab 5ec4e7ab",
       "words that Sentrel does not know"},
      {"createUser -e 0x8000 bob SHA 5ec4e7ab", "engine ID"},
      {"createUser bob SHA 5ec4e7", "at least 8 characters"},
      {"createUser bob SHA \"5ec4e7ab", "quotation mark is missing"},
      {"createUser aNameOfMoreThanThirtyTwoCharacters SHA 5ec4e7ab", "at most 32"},
  };
  for (const auto& [line, problem] : lines) {
    const std::vector<std::string> read = Read(line);
    EXPECT_THAT(read, ElementsAre(HasSubstr(problem))) << line;
    EXPECT_THAT(read, ElementsAre(Not(HasSubstr("5ec4e7")))) << line;
  }
  EXPECT_THAT(Read(std::string(300'000, 'x')), ElementsAre(HasSubstr("too much text")));
}

}  // namespace
}  // namespace sentrel
