#include "query/query.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <filesystem>

#include "fakes/shell.h"
#include "query/kinds.h"
#include "subject_of_texts.h"

namespace sentrel::query {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::HasSubstr;

/// 2026-11-24 12:00 in a place 3.5 hours behind: the tests run there.
const Moment kNow = std::chrono::sys_days(std::chrono::year(2026) / 11 / 24) + 15h + 30min;

class TwoNames : public DeviceNames {
 public:
  std::string NameOf(std::string_view address) const override {
    return address == "10.1.2.3" ? "Core-1" : "";
  }
  bool HasName(std::string_view name) const override { return name == "core-1" || name == "edge"; }
};

Query Asked(const std::string& text, const DeviceNames* names = nullptr) {
  auto query = Query::Of(text, kNow, names);
  const auto* const error = std::get_if<QueryError>(&query);
  EXPECT_EQ(error, nullptr) << text << ": " << (error ? error->text : "");
  return error ? Query() : std::get<Query>(query);
}

void ExpectHolds(const Subject& subject, const std::vector<std::string>& yes,
                 const std::vector<std::string>& no) {
  for (const std::string& text : yes) EXPECT_TRUE(Asked(text).Holds(subject)) << text;
  for (const std::string& text : no) EXPECT_FALSE(Asked(text).Holds(subject)) << text;
}

TEST(QueryTest, FreeWordsAreWithinOneNameOrOneValueInAnyCase) {
  ExpectHolds(
      {SubjectOfTexts()},
      {"", "  ", "ethernet0/7", "\"Ethernet0/7 up\"", "ZÜRICH", "zürich", "10.1.2", "PUBLIC",
       "linkdown", "ifdescr", "down", "cat38", "\"\"", "0/7 uplink", "ab\"\"c or link"},
      {"\"12 GigabitEthernet\"", "linkUp", "ifIndex.121", "\"from:10.1.2.3\"", "\"or\""});
}

TEST(QueryTest, AndBindsTighterThanOrAndMinusTightest) {
  ExpectHolds({SubjectOfTexts()},
              {"link uplink", "nothing or link", "nothing link or public", "-nothing", "-(a1 b1)",
               "-nothing link", "(nothing or link) public", "-nothing or link", "--link",
               "LINK OR x", "-(-link)", "public (link)", "-a1 -b1", "x-y or link"},
              {"link nothing", "-link", "-(link or nothing)", "link -public", "(link or public) x1",
               "-link or -public", "nothing or x1 y1"});
}

TEST(QueryTest, KeysAskForOneThing) {
  SubjectOfTexts v2;
  v2.envelope.receivedAt = kNow - 30min;
  ExpectHolds(v2,
              {"from:10.1.2.3",
               "from:10.1.0.0/16",
               "from:10.1.2.1-10.1.2.9",
               "from:10.1",
               "from:10.1.",
               "from:10.*",
               "FROM:10",
               "trap:linkDown",
               "trap:LINK*",
               "trap:*down",
               "trap:l*k*n",
               "trap:1.3.6.1.6.3.1.1.5",
               "trap:.1.3.6.1.6.3.",
               "community:public",
               "community:p*c",
               "version:2c",
               "version:2",
               "version:V2C",
               "type:3850",
               "since:1h",
               "since:1000000w",
               "since:11:30",
               "since:2026-11-24",
               "until:12:00",
               "until:2026-11-24T12:00:00",
               "since:2026-11-23T23:59",
               "kind:problem",
               "kind:PROBLEM",
               "oid:1.3.6.1.2.1.2",
               "oid:1.3.6.1.6.3",
               "-from:10.2.0.0/16",
               "trap:\"linkDown\""},
              {"from:10.1.2.4",
               "from:10.2",
               "from:2001:db8::/32",
               "from:10.1.2.4-10.1.2.9",
               "trap:link",
               "trap:linkDow",
               "trap:1.3.6.1.6.3.1.1.51",
               "community:publi",
               "user:public",
               "version:1",
               "version:3",
               "level:noauth",
               "type:asr",
               "since:29m",
               "since:11:31",
               "until:1h",
               "until:2026-11-23",
               "kind:clear",
               "oid:1.3.6.1.2.1.22",
               "oid:1.3.6.1.2.1.2.2.1.1.1",
               "kind:other"});
  SubjectOfTexts v3;
  v3.sender = "2001:db8::7";
  v3.envelope.version = SnmpVersion::k3;
  v3.envelope.level = SecurityLevel::kAuthPriv;
  ExpectHolds(v3,
              {"from:2001:db8::/32", "from:2001:db8::1-2001:db8::f", "from:2001:DB8:0::7",
               "user:public", "level:priv", "level:authPriv", "version:3"},
              {"from:10", "community:public", "level:auth", "from:2001:db8::8"});
}

TEST(QueryTest, BindingsAreComparedByNameOrOid) {
  ExpectHolds({SubjectOfTexts()},
              {"ifOperStatus=down", "ifoperstatus=2", "ifOperStatus=down(2)", "ifOperStatus.12=d*",
               "ifIndex>11", "ifIndex>=12", "ifIndex<=12", "ifIndex<100", "ifIndex!=13",
               "1.3.6.1.2.1.2.2.1.1>5", ".1.3.6.1.2.1.2.2.1.1=12", "ifDescr=*uplink*",
               "ifDescr=\"gigabitethernet0/7 uplink zürich\"", "ifHCInOctets>18446744073709551614",
               "delta<0", "delta>-6", "delta=-5", "delta>=-0005"},
              {"ifOperStatus=up", "ifOper=down", "ifIndex>12", "ifIndex.1=12", "ifIndex!=12",
               "ifDescr>1", "ifHCInOctets>18446744073709551615", "ifHCInOctets<5", "delta<-5",
               "\"ifIndex>11\"", "nothing=1", "nothing!=1"});
}

TEST(QueryTest, NamesOfDevicesStandForTheirAddresses) {
  const TwoNames names;
  EXPECT_TRUE(Asked("from:core-1", &names).Holds(SubjectOfTexts()));
  EXPECT_FALSE(Asked("from:edge", &names).Holds(SubjectOfTexts()));
}

TEST(QueryTest, WhatCannotBeUnderstoodIsToldWithItsPlace) {
  const struct {
    const char* text;
    std::size_t at;
    std::size_t length;
    const char* part;
  } cases[] = {
      {"link \"open", 5, 5, "quote is not closed"},
      {"a (b or c", 2, 1, "bracket is not closed"},
      {"a b) c", 3, 1, "Nothing is open"},
      {"()", 1, 1, "Something to look for"},
      {"or link", 0, 2, "Something to look for"},
      {"link or", 5, 2, "Something to look for"},
      {"link -)", 5, 1, "behind the minus"},
      {"x from:", 2, 5, "an address"},
      {"from:10.1.2.300", 0, 15, "\"10.1.2.300\" is not an address"},
      {"from:10.1.2.3/33", 0, 16, "is not"},
      {"from:10.9.0.0-10.1.0.0", 0, 22, "is not"},
      {"from:core", 0, 9, "a device's name"},
      {"version:4", 0, 9, "1, 2c or 3"},
      {"level:high", 0, 10, "noauth, auth or priv"},
      {"since:yesterday", 0, 15, "a time"},
      {"since:2026-02-31", 0, 16, "a time"},
      {"until:25:00", 0, 11, "a time"},
      {"until:9999-01-01", 0, 16, "a time"},
      {"since:99999999999999999999h", 0, 27, "a time"},
      {"kind:red", 0, 8, "problem"},
      {"oid:ifIndex", 0, 11, "an OID"},
      {"form:10.1.2.3", 0, 13, "no key \"form\""},
      {"ifIndex>x", 0, 9, "not a whole number"},
      {"ifIndex=", 0, 8, "behind the sign"},
  };
  for (const auto& c : cases) {
    const auto query = Query::Of(c.text, kNow);
    const auto* const error = std::get_if<QueryError>(&query);
    ASSERT_NE(error, nullptr) << c.text;
    EXPECT_EQ(error->at, c.at) << c.text;
    EXPECT_EQ(error->length, c.length) << c.text;
    EXPECT_THAT(error->text, HasSubstr(c.part)) << c.text;
  }
}

TEST(QueryTest, SizeAndDepthAreBounded) {
  EXPECT_TRUE(std::holds_alternative<QueryError>(Query::Of(std::string(5'000, 'x'), kNow)));
  for (const char* deep : {"(", "-(", "--"}) {
    std::string text;
    while (text.size() < 3'000) text += deep;
    EXPECT_TRUE(std::holds_alternative<QueryError>(Query::Of(text, kNow))) << deep;
  }
  std::string nested = "link";
  for (int i = 0; i < Query::kMostDepth - 1; ++i) nested = "(" + nested + ")";
  EXPECT_TRUE(Asked(nested).Holds(SubjectOfTexts()));
}

TEST(QueryTest, CheapTermsAreAskedFirst) {
  const SubjectOfTexts subject;
  EXPECT_FALSE(Asked("uplink ifIndex=12 from:10.2.0.0/16").Holds(subject));
  EXPECT_TRUE(Asked("nothing or ifIndex=1 or trap:linkDown").Holds(subject));
  EXPECT_EQ(subject.asked, 0);
}

TEST(QueryTest, WordsToMarkAreThoseThatATrapMustHave) {
  EXPECT_THAT(Asked("Link -down \"Two Words\" -(-x) trap:y a=b (Z)").Words(),
              ElementsAre("link", "two words", "x", "z"));
}

TEST(QueryTest, KindsAreReadFromTheWordsOfAName) {
  const std::pair<const char*, Kind> cases[] = {{"linkDown", Kind::kProblem},
                                                {"linkUp", Kind::kClear},
                                                {"coldStart", Kind::kStart},
                                                {"authenticationFailure", Kind::kSecurity},
                                                {"entConfigChange", Kind::kOther},
                                                {"cefcFanTrayGroupChange", Kind::kOther},
                                                {"upsTrapAlarmEntryRemoved", Kind::kProblem},
                                                {"bgpEstablished", Kind::kClear},
                                                {"bgpBackwardTransition", Kind::kProblem},
                                                {"softwareUpdate", Kind::kOther},
                                                {"", Kind::kOther},
                                                {"1.3.6.1.4.1.9", Kind::kOther},
                                                {"Up", Kind::kClear},
                                                {"risingAlarm", Kind::kProblem}};
  for (const auto& [name, kind] : cases) EXPECT_EQ(KindOf(name), kind) << name;
}

TEST(QueryTest, TheCorpusOfTheFuzzerEndsWell) {
  std::size_t files = 0;
  for (const auto& file : std::filesystem::directory_iterator(CORPUS)) {
    auto query = Query::Of(ReadFile(file.path()), kNow);
    if (auto* const understood = std::get_if<Query>(&query)) understood->Holds(SubjectOfTexts());
    ++files;
  }
  EXPECT_GT(files, 5U);
}

}  // namespace
}  // namespace sentrel::query
