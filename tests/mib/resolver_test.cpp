#include <gmock/gmock.h>

#include "mib/lookup.h"
#include "mib/oid_text.h"
#include "workshop.h"

namespace sentrel::mib {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string Dated(const std::string& name, const std::string& date, const std::string& rest) {
  return ModuleText(name, "id" + date + " MODULE-IDENTITY LAST-UPDATED \"" + date +
                              "Z\" ::= { iso 99 }\n" + rest);
}

TEST(Resolver, FollowsImportsAndConventionsAcrossModules) {
  const Compiled compiled({
      ModuleText("C-MIB", "c OBJECT-TYPE SYNTAX Middle ::= { b 5 }",
                 "b FROM B-MIB Middle FROM B-MIB"),
      ModuleText("B-MIB", "b OBJECT IDENTIFIER ::= { a 1 } Middle ::= Inner",
                 "a, Inner FROM A-MIB"),
      ModuleText("A-MIB",
                 "a OBJECT IDENTIFIER ::= { iso 2 }\n"
                 "Inner ::= TEXTUAL-CONVENTION DISPLAY-HINT \"d\" STATUS current DESCRIPTION \"\"\n"
                 "SYNTAX INTEGER { on(1), off(2) }"),
  });
  EXPECT_EQ(compiled.Name("1.2.1.5.17.4"), "c.17.4");
  EXPECT_EQ(compiled.Labels("1.2.1.5.17.4"), "on(1),off(2)");
  EXPECT_THAT(compiled.Messages(), IsEmpty());
  const auto& type = *LookUp(*compiled.Database(), "1.2.1.5").type;
  EXPECT_EQ(compiled.Database()->Text(type.hint), "d");
  EXPECT_EQ(type.base, static_cast<std::uint32_t>(BaseType::Integer));
}

TEST(Resolver, AnObjectMayNarrowAConvention) {
  const Compiled compiled({ModuleText("A-MIB",
                                      "T ::= INTEGER { a(1), b(2) }\n"
                                      "x OBJECT-TYPE SYNTAX T { b(2) } ::= { iso 2 }\n"
                                      "y OBJECT-TYPE SYNTAX T (1..2) ::= { iso 3 }")});
  EXPECT_EQ(compiled.Labels("1.2"), "b(2)");
  EXPECT_EQ(compiled.Labels("1.3"), "a(1),b(2)");
}

TEST(Resolver, ATrapOfVersion1StandsBelowZero) {
  const Compiled compiled({ModuleText("A-MIB",
                                      "e OBJECT IDENTIFIER ::= { iso 2 }\n"
                                      "t TRAP-TYPE ENTERPRISE e ::= 3\n"
                                      "u TRAP-TYPE ENTERPRISE { e } ::= 4")});
  EXPECT_EQ(compiled.Name("1.2.0.3"), "t");
  EXPECT_EQ(compiled.Name("1.2.0.4"), "u");
  EXPECT_EQ(compiled.Name("1.2.0.5"), "e.0.5");
}

TEST(Resolver, AnInstanceKeepsTheNameOfItsObject) {
  const Compiled compiled({ModuleText("A-MIB",
                                      "up OBJECT-TYPE SYNTAX TimeTicks ::= { iso 3 }\n"
                                      "upInstance OBJECT IDENTIFIER ::= { up 0 }")});
  EXPECT_EQ(compiled.Name("1.3.0"), "up.0");
}

TEST(Resolver, NamesWhatIsMissingAndGoesOn) {
  const Compiled compiled(
      {ModuleText("A-MIB", "a OBJECT IDENTIFIER ::= { gone 1 }", "gone, Unused FROM GONE-MIB"),
       ModuleText("B-MIB",
                  "b OBJECT IDENTIFIER ::= { top 1 }\n"
                  "c OBJECT IDENTIFIER ::= { forgotten 2 }",
                  "top FROM OTHER-MIB"),
       ModuleText("C-MIB",
                  "top OBJECT IDENTIFIER ::= { iso 3 }\n"
                  "forgotten OBJECT IDENTIFIER ::= { top 4 }")});
  EXPECT_EQ(compiled.Name("1.3.1"), "b");
  EXPECT_EQ(compiled.Name("1.3.4.2"), "c");
  EXPECT_THAT(compiled.Messages(),
              ElementsAre("1:2: module 'GONE-MIB' is missing, 'gone' is imported from it",
                          "1:3: 'a' has no place: its parent 'gone' is unknown",
                          "2:2: module 'OTHER-MIB' is missing, 'top' is imported from it"));
}

TEST(Resolver, TheNewerModuleOfANameWins) {
  const std::string old = Dated("A-MIB", "9901010000", "x OBJECT IDENTIFIER ::= { iso 5 }");
  const std::string recent = Dated("A-MIB", "200201010000", "y OBJECT IDENTIFIER ::= { iso 5 }");
  for (const auto& texts : {std::vector{old, recent}, std::vector{recent, old}}) {
    const Compiled compiled(texts);
    EXPECT_EQ(compiled.Name("1.5"), "y");
    EXPECT_EQ(compiled.Messages().size(), 1);
  }
}

TEST(Resolver, OfTwoNamesForOneOidTheStrongerWins) {
  const std::string value = ModuleText("V-MIB", "v OBJECT IDENTIFIER ::= { iso 5 }");
  const std::string label = ModuleText("L-MIB", "other OBJECT IDENTIFIER ::= { iso l(5) 6 }");
  const std::string old = Dated("O-MIB", "9901010000", "o OBJECT-IDENTITY ::= { iso 5 }");
  const std::string recent = Dated("R-MIB", "0201010000", "r OBJECT-IDENTITY ::= { iso 5 }");
  EXPECT_EQ(Compiled({label}).Name("1.5"), "l");
  EXPECT_EQ(Compiled({label, value}).Name("1.5"), "v");
  EXPECT_THAT(Compiled({label, value}).Messages(), IsEmpty());
  EXPECT_EQ(Compiled({value, old}).Name("1.5"), "o");
  EXPECT_EQ(Compiled({recent, old, value}).Name("1.5"), "r");
  EXPECT_THAT(Compiled({value, old}).Messages(),
              ElementsAre("2:3: 'o' has the same OID as 'v' of module 'V-MIB'"));
}

TEST(Resolver, UserModulesStandOnTheBaseAndWinOverIt) {
  const Compiled base({Dated("A-MIB", "202001010000",
                             "x OBJECT-TYPE SYNTAX T ::= { iso 5 } T ::= INTEGER { old(1) }\n"
                             "gap OBJECT IDENTIFIER ::= { iso 6 }")});
  const Compiled own(
      {Dated("A-MIB", "9901010000", "z OBJECT-IDENTITY ::= { iso 5 }"),
       ModuleText("B-MIB", "b OBJECT-TYPE SYNTAX T ::= { gap 1 }", "gap, T FROM A-MIB")},
      base.Database());
  EXPECT_EQ(own.Name("1.5"), "z");
  EXPECT_EQ(own.Name("1.6"), "gap");
  EXPECT_EQ(own.Name("1.6.1"), "b");
  EXPECT_EQ(own.Labels("1.6.1"), "old(1)");
  EXPECT_THAT(own.Messages(), IsEmpty());
}

TEST(OidText, TakesDottedNumbersOnly) {
  std::string longest = "1";
  for (int i = 1; i < 128; ++i) longest += ".4294967295";
  const std::vector<std::string> good = {"1", ".1.3", "1.3.6.1.4.1.4294967295", longest};
  for (const std::string& text : good) EXPECT_TRUE(OidText(text).IsOid()) << text;
  const std::vector<std::string> bad = {
      "",     ".",    "1.",   "1..3",         "1.3 ",        " 1.3",        "1.-3",
      "1.+3", "1.3x", "1.x3", "1.4294967296", "sysUpTime.0", longest + ".1"};
  for (const std::string& text : bad) EXPECT_FALSE(OidText(text).IsOid()) << text;
  EXPECT_EQ(OidText(".1.3.6").Behind(2), ".6");
  EXPECT_FALSE(OidText(std::string(70000, '1')).IsOid());
}

TEST(Lookup, GivesTheNumbersWhereNothingIsKnown) {
  const Compiled compiled({ModuleText("A-MIB", "a OBJECT IDENTIFIER ::= { iso 3 }")});
  EXPECT_EQ(compiled.Name(".2.5.4"), "2.5.4");
  EXPECT_EQ(compiled.Name("1.3.x"), "1.3.x");
  EXPECT_EQ(compiled.Name(""), "");
  EXPECT_EQ(compiled.Labels("1.3.x"), "");
}

}  // namespace
}  // namespace sentrel::mib
