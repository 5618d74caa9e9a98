#include "settings/version3_users_page.h"

#include <gmock/gmock.h>

#include "fake_version3_users_view.h"
#include "fakes/fake_console.h"
#include "fakes/fake_version3_users.h"
#include "settings/version3_names.h"

namespace sentrel {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const std::string kEngine("\x80\x00\x00\x01\x02", 5);

struct Version3UsersPageTest : testing::Test {
  Version3UsersPageTest() {
    Version3User alice;
    alice.name = "alice";
    alice.authentication = Authentication::kSha256;
    alice.privacy = Privacy::kAes256;
    Version3User carol;
    carol.name = "carol";
    carol.leastLevel = SecurityLevel::kAuthNoPriv;
    carol.authentication = Authentication::kMd5;
    carol.engine = kEngine;
    carol.isFromFile = true;
    store.users = {alice, carol};
    page.Load();
  }
  void Select(std::size_t line) {
    view.selected = line;
    page.SelectionChanged();
  }
  /// What the dialog says of the draft that the user makes of a new one, or of the selected user's.
  std::string Problem(void (Version3UsersPage::*step)(),
                      std::function<void(Version3UserDraft&)> edit) {
    view.edit = std::move(edit);
    (page.*step)();
    return view.problem;
  }
  std::string Paste(const std::string& text) {
    view.clipboard = text;
    box.text.clear();
    page.Paste();
    return box.text;
  }
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const Version3UserLine& line : view.lines) names.push_back(line.name);
    return names;
  }

  FakeVersion3Users store;
  CallLog log;
  FakeMessageBox box{log};
  FakeVersion3UsersView view;
  Version3UsersPage page{store, box, view};
};

TEST_F(Version3UsersPageTest, ShowsTheUsersAndWhereThoseOfAFileAreChanged) {
  ASSERT_EQ(view.lines.size(), 2);
  EXPECT_EQ(view.lines[0].engine + view.lines[0].leastLevel, "anyauthPriv");
  EXPECT_EQ(view.lines[1].engine + view.lines[1].privacy, "0x8000000102none");
  EXPECT_TRUE(view.enabled.add && !view.enabled.change && !view.enabled.remove);
  Select(0);
  EXPECT_TRUE(view.enabled.change && view.enabled.remove);
  Select(1);
  EXPECT_FALSE(view.enabled.change || view.enabled.remove);
  EXPECT_THAT(view.note, HasSubstr("sentrel.conf"));
  view.edit = [](Version3UserDraft&) { FAIL() << "a user of a file has no dialog"; };
  page.Change();
  page.Remove();
  EXPECT_THAT(Names(), ElementsAre("alice", "carol"));
}

TEST_F(Version3UsersPageTest, WhatIsWrongWithAUserIsSaidInTheDialog) {
  const std::pair<const char*, std::function<void(Version3UserDraft&)>> mistakes[] = {
      {"enter the name", [](auto& draft) { draft.name = ""; }},
      {"at most 32", [](auto& draft) { draft.name = std::string(33, 'x'); }},
      {"control characters", [](auto& draft) { draft.name = "a\nb"; }},
      {"authentication passphrase has at least 8", [](auto& draft) { draft.authPassphrase = ""; }},
      {"privacy passphrase has at least 8", [](auto& draft) { draft.privPassphrase = "1234567"; }},
      {"privacy without authentication",
       [](auto& draft) { draft.authentication = Authentication::kNone; }},
      {"least level",
       [](auto& draft) {
         draft.privacy = Privacy::kNone;
         draft.leastLevel = SecurityLevel::kAuthPriv;
       }},
      {"5 to 32 octets", [](auto& draft) { draft.engine = "0x80000001"; }},
      {"5 to 32 octets", [](auto& draft) { draft.engine = std::string(66, '1'); }},
      {"5 to 32 octets", [](auto& draft) { draft.engine = "0x800000010g"; }},
      {"already", [](auto& draft) { draft.name = "alice"; }},
      {"already",
       [](auto& draft) {
         draft.name = "carol";
         draft.engine = "80:00:00:01:02";
       }},
  };
  for (const auto& pair : mistakes) {
    EXPECT_THAT(Problem(&Version3UsersPage::Add,
                        [&](Version3UserDraft& draft) {
                          draft.name = "bob";
                          draft.authPassphrase = draft.privPassphrase = "password";
                          pair.second(draft);
                        }),
                HasSubstr(pair.first));
  }
  EXPECT_EQ(view.lines.size(), 2);
  EXPECT_EQ(page.Save(), "");
  EXPECT_EQ(store.replacements, 0) << "nothing has changed";
}

TEST_F(Version3UsersPageTest, OKReplacesTheUsersThatAreNotFromAFile) {
  EXPECT_EQ(Problem(&Version3UsersPage::Add,
                    [](Version3UserDraft& draft) {
                      draft.name = "bob";
                      draft.authPassphrase = "password";
                      draft.privacy = Privacy::kNone;
                      draft.leastLevel = SecurityLevel::kNoAuthNoPriv;
                      draft.engine = " 0x80 00 00-01:02 ";
                    }),
            "");
  EXPECT_EQ(view.selected, 2);
  EXPECT_EQ(store.replacements, 0) << "until OK";
  EXPECT_EQ(page.Save(), "");
  ASSERT_EQ(store.replaced.size(), 2);
  EXPECT_EQ(store.replaced[0].user, store.users[1]);
  EXPECT_EQ(store.replaced[0].authPassphrase, "") << "the kept key";
  EXPECT_EQ(store.replaced[1].user.engine, kEngine);
  EXPECT_EQ(store.replaced[1].user.leastLevel, SecurityLevel::kNoAuthNoPriv);
  EXPECT_EQ(store.replaced[1].authPassphrase, "password");
}

TEST_F(Version3UsersPageTest, AKeyIsKeptForTheSameNameEngineAndProtocolsOnly) {
  const std::pair<bool, std::function<void(Version3UserDraft&)>> changes[] = {
      {true, [](auto& draft) { draft.leastLevel = SecurityLevel::kAuthNoPriv; }},
      {true, [](auto& draft) { draft.privacy = Privacy::kNone; }},
      {false, [](auto& draft) { draft.name = "bob"; }},
      {false, [](auto& draft) { draft.engine = "0x8000000102"; }},
      {false, [](auto& draft) { draft.authentication = Authentication::kSha512; }},
      {false, [](auto& draft) { draft.privacy = Privacy::kAes256C; }},
  };
  for (const auto& [kept, change] : changes) {
    page.Load();
    Select(0);
    EXPECT_EQ(Problem(&Version3UsersPage::Change, change).empty(), kept);
    EXPECT_EQ(view.offered.authPassphrase + view.offered.privPassphrase, "");
  }
  page.Load();
  Select(0);
  EXPECT_EQ(Problem(&Version3UsersPage::Change,
                    [](Version3UserDraft& draft) {
                      draft.name = "bob";
                      draft.authPassphrase = draft.privPassphrase = "password";
                    }),
            "");
  EXPECT_EQ(Problem(&Version3UsersPage::Change,
                    [](Version3UserDraft& draft) { draft.privacy = Privacy::kDes; }),
            "")
      << "it was typed in this dialog";
  EXPECT_EQ(page.Save(), "");
  EXPECT_EQ(store.replaced[0].privPassphrase, "password");
}

TEST_F(Version3UsersPageTest, PastedUsersReplaceThoseOfTheSameNameAndEngine) {
  EXPECT_EQ(Paste("createUser alice SHA password1 AES-192\nsnmpv3 user bob auth md5 password2"),
            "");
  EXPECT_THAT(Names(), ElementsAre("alice", "carol", "bob"));
  EXPECT_EQ(view.lines[0].authentication, "SHA-1");
  EXPECT_THAT(view.note, HasSubstr("alice, bob"));
  Select(0);
  EXPECT_THAT(view.note, HasSubstr("try AES-192-C")) << "SHA-1 makes too short a key";
  EXPECT_THAT(Paste("createUser -e 0x8000000102 carol SHA password1\ncreateUser eve SHA short"),
              testing::AllOf(HasSubstr("eve: The auth"), HasSubstr("carol: sentrel.conf has")));
  EXPECT_THAT(Paste("hello"), HasSubstr("no line that creates"));
  std::string many;
  for (int i = 0; i < 100; ++i) many += "createUser bad SHA\n";
  EXPECT_THAT(Paste(many), HasSubstr("... and 92 more."));
  EXPECT_EQ(page.Save(), "");
  EXPECT_EQ(store.replaced[0].authPassphrase, "password1");
}

TEST_F(Version3UsersPageTest, AnEngineIsForgottenWithOK) {
  const auto forget = [&](const char* engine) {
    view.typedEngine = engine;
    page.ForgetEngine();
    return view.problem;
  };
  for (const char* wrong : {"", "any", "0x80"}) EXPECT_THAT(forget(wrong), HasSubstr("5 to 32"));
  Select(1);
  for (int twice = 0; twice < 2; ++twice) EXPECT_EQ(forget("8000000102"), "");
  EXPECT_EQ(view.offeredEngine, "0x8000000102") << "that of the selected user";
  EXPECT_THAT(view.note, HasSubstr("0x8000000102"));
  EXPECT_THAT(store.forgotten, IsEmpty());
  store.unforgettable = "The disk is full.";
  EXPECT_EQ(page.Save(), "The disk is full.");
  store.unforgettable = "";
  EXPECT_EQ(page.Save(), "");
  EXPECT_THAT(store.forgotten, ElementsAre(kEngine));
  EXPECT_EQ(store.replacements, 0);
}

TEST_F(Version3UsersPageTest, UsersThatCannotBeReadAreNotNone) {
  store.unreadable = "The file is locked.";
  page.Load();
  EXPECT_THAT(view.note, HasSubstr("The file is locked."));
  EXPECT_FALSE(view.enabled.add);
  EXPECT_EQ(page.Save(), "");
  EXPECT_EQ(store.replacements, 0);
}

TEST(KeyFormTest, ThereAreTwoWhereTheDigestIsTooShortForTheKey) {
  const std::tuple<Authentication, Privacy, std::optional<Privacy>> cases[] = {
      {Authentication::kMd5, Privacy::kAes192, Privacy::kAes192C},
      {Authentication::kSha1, Privacy::kAes256C, Privacy::kAes256},
      {Authentication::kSha224, Privacy::kAes192C, std::nullopt},
      {Authentication::kSha224, Privacy::kAes256, Privacy::kAes256C},
      {Authentication::kSha256, Privacy::kAes256, std::nullopt},
      {Authentication::kMd5, Privacy::kAes128, std::nullopt},
  };
  for (const auto& [authentication, privacy, other] : cases)
    EXPECT_EQ(OtherKeyForm(authentication, privacy), other) << NameOf(privacy);
}

}  // namespace
}  // namespace sentrel
