#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <filesystem>

#include "common/atomic_file.h"
#include "common/failure.h"
#include "fakes/shell.h"
#include "snmp/version3_user_file.h"
#include "snmp/version3_user_keeper.h"

namespace sentrel::test {
namespace {

namespace fs = std::filesystem;

const std::string kKey = "000102030405060708090a0b0c0d0e0f";
const std::string kGood = "createUser -l auth 0x616e79 MD5 -m 0x" + kKey + "\n";

TEST(Version3UserFileTest, UsersComeBackAsTheyWere) {
  const std::string key(20, '\x7f');
  KeyedUser both{{" a\n", SecurityLevel::kAuthNoPriv, Authentication::kSha1, Privacy::kAes192C,
                  std::string("\x80\0\0\0\1", 5), std::nullopt, false},
                 key,
                 std::string(20, '\0')};
  KeyedUser none{{"n", SecurityLevel::kNoAuthNoPriv, Authentication::kNone, Privacy::kNone, "12345",
                  std::nullopt, false},
                 "",
                 ""};
  const auto file = ReadVersion3Users(Version3UsersText({both, none}));
  EXPECT_EQ(file.problem, "");
  ASSERT_EQ(file.users.size(), 2U);
  EXPECT_EQ(file.users[0].user, both.user);
  EXPECT_EQ(file.users[0].authKey, both.authKey);
  EXPECT_EQ(file.users[0].privKey, both.privKey);
  EXPECT_EQ(file.users[1].user, none.user);
}

TEST(Version3UserFileTest, DamagedLinesAreToldAndLeftOut) {
  for (const std::string damaged :
       {"createUser", "createUser -l auth 0x61", "createUser -l noauth 0x61",
        "createUser -l high 0x61 MD5 -m 0xKEY", "createUser -l auth any MD5 -m 0xKEY",
        "createUser -l auth 0x MD5 -m 0xKEY", "createUser -l auth 0x6100 MD5 -m 0xKEY",
        "createUser -l auth 0x61 MD5 -m 0xKEY00", "createUser -l auth 0x61 MD5 0xKEY",
        "createUser -l auth 0x61 SHA -m 0xKEY", "createUser -l auth 0x61 MD5 -m 0xKEY AES",
        "createUser -e 0x80 -l auth 0x61 MD5 -m 0xKEY", "usmUser 1",
        "createUser -l auth 0x61 MD5 -m 0xKEY AES -m 0xKEY more"}) {
    std::string line = damaged;
    for (auto at = line.find("KEY"); at != std::string::npos; at = line.find("KEY")) {
      line.replace(at, 3, kKey);
    }
    const auto file = ReadVersion3Users(kGood + line + "\n");
    EXPECT_EQ(file.users.size(), 1U) << line;
    EXPECT_EQ(file.problem, "line 2 is damaged") << line;
  }
}

class Version3UserFilePlaceTest : public testing::Test {
 protected:
  void ExpectUnreadable(const Version3UserKeeper& keeper) const {
    EXPECT_THROW(keeper.Users(), Failure);
    EXPECT_TRUE(keeper.Keyed().empty());
  }
  const QTemporaryDir temporary_;
  const fs::path folder_ = temporary_.path().toStdString();
  const fs::path path_ = folder_ / "version3-users";
};

TEST_F(Version3UserFilePlaceTest, WhatIsNotAPlainFileIsNeitherReadNorReplaced) {
  const fs::path elsewhere = folder_ / "elsewhere";
  WriteFile(elsewhere, kGood);
  fs::create_symlink(elsewhere, path_);
  Version3UserKeeper linked(path_);
  ExpectUnreadable(linked);
  EXPECT_THROW(linked.Replace({}), Failure);
  EXPECT_EQ(ReadFile(elsewhere), kGood);
  fs::remove(path_);
  fs::create_directory(path_);
  ExpectUnreadable(Version3UserKeeper(path_));
}

TEST_F(Version3UserFilePlaceTest, ADamagedFileIsKeptUntilItIsRepaired) {
  WriteFile(path_, kGood + "damaged\n");
  Version3UserKeeper keeper(path_);
  EXPECT_EQ(keeper.Keyed().size(), 1U);
  EXPECT_THROW(keeper.Users(), Failure);
  EXPECT_THROW(keeper.Replace({}), Failure);
  EXPECT_EQ(ReadFile(path_), kGood + "damaged\n");
  WriteFile(path_, kGood);
  EXPECT_EQ(keeper.Users().size(), 1U);
}

TEST_F(Version3UserFilePlaceTest, AFileThatOthersMayReadIsClosedToThem) {
  WriteFile(path_, kGood, 0644);
  fs::permissions(path_, fs::perms(0644));
  EXPECT_EQ(Version3UserKeeper(path_).Users().size(), 1U);
  EXPECT_EQ(fs::status(path_).permissions(), fs::perms(0600));
}

TEST_F(Version3UserFilePlaceTest, UsersThatCannotBeWrittenDoNotChange) {
  // The folder of the file cannot be made where a file is.
  WriteFile(folder_ / "file", "");
  Version3UserKeeper keeper(folder_ / "file" / "version3-users");
  const Version3UserEntry entry{{"any", SecurityLevel::kAuthNoPriv, Authentication::kSha1,
                                 Privacy::kNone, "", std::nullopt, false},
                                "auth-pass-phrase",
                                ""};
  EXPECT_THROW(keeper.Replace({entry}), Failure);
  EXPECT_TRUE(keeper.Keyed().empty());
}

}  // namespace
}  // namespace sentrel::test
