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
}

/// What the object x comes to be, through chains of conventions, some of them in another module.
TEST(Resolver, TypesComeDownToABaseAHintAndLabels) {
  const std::string conventions =
      "Plain ::= TEXTUAL-CONVENTION STATUS current DESCRIPTION \"\" SYNTAX OCTET STRING\n"
      "Shown ::= TEXTUAL-CONVENTION DISPLAY-HINT \"255a\" SYNTAX Plain (SIZE (0..255))\n"
      "Again ::= TEXTUAL-CONVENTION DISPLAY-HINT \"1x:\" SYNTAX Shown\n"
      "State ::= INTEGER { up(1), down(2) }\n"
      "Scaled ::= TEXTUAL-CONVENTION DISPLAY-HINT \"d-2\" SYNTAX State\n"
      "Flags ::= TEXTUAL-CONVENTION SYNTAX BITS { a(0), b(1) }\n"
      "Row ::= SEQUENCE { x INTEGER { a(1) }, y Row }\n";
  struct Case {
    const char* what;
    std::string syntax;
    BaseType base;
    const char* hint;
    const char* labels;
  };
  const Case cases[] = {
      {"base", "SYNTAX Counter64", BaseType::Counter64, "", ""},
      {"old names", "SYNTAX NetworkAddress", BaseType::IpAddress, "", ""},
      {"range", "SYNTAX Integer32 (-1..2147483647 | 'ff'H)", BaseType::Integer, "", ""},
      {"two words", "SYNTAX OBJECT IDENTIFIER", BaseType::ObjectIdentifier, "", ""},
      {"tag", "SYNTAX [APPLICATION 1] IMPLICIT OCTET STRING", BaseType::OctetString, "", ""},
      {"hint through a chain", "SYNTAX Shown", BaseType::OctetString, "255a", ""},
      {"the outer hint", "SYNTAX Again (SIZE (6))", BaseType::OctetString, "1x:", ""},
      {"labels and hint", "SYNTAX Scaled", BaseType::Integer, "d-2", "up(1),down(2)"},
      {"own labels", "SYNTAX Scaled { down(2), odd(7) }", BaseType::Integer, "d-2",
       "down(2),odd(7)"},
      {"range of a convention", "SYNTAX Scaled (1..2)", BaseType::Integer, "d-2", "up(1),down(2)"},
      {"labels of any type", "SYNTAX Gauge32 { none(0) }", BaseType::Gauge32, "", "none(0)"},
      {"bits", "SYNTAX Flags", BaseType::Bits, "", ""},
      {"own bits", "SYNTAX Flags { c(2) }", BaseType::Bits, "", ""},
      {"table", "SYNTAX SEQUENCE OF Row", BaseType::Table, "", ""},
      {"row", "SYNTAX Row", BaseType::Row, "", ""},
      {"only the first syntax", "SYNTAX State WRITE-SYNTAX State { up(1) } SYNTAX Flags",
       BaseType::Integer, "", "up(1),down(2)"},
  };
  for (const Case& c : cases) {
    const Compiled compiled({ModuleText("A-MIB", "x OBJECT-TYPE " + c.syntax + " ::= { iso 4 }",
                                        "Shown, Again, State, Scaled, Flags, Row FROM B-MIB"),
                             ModuleText("B-MIB", conventions)});
    const ValueType type = LookUp(compiled.Result(), "1.4").type;
    EXPECT_EQ(type.record->base, static_cast<std::uint32_t>(c.base)) << c.what;
    EXPECT_EQ(type.image->Text(type.record->hint), c.hint) << c.what;
    EXPECT_EQ(compiled.Labels("1.4"), c.labels) << c.what;
    EXPECT_THAT(compiled.Messages(), IsEmpty()) << c.what;
  }
}

TEST(Resolver, ATrapOfVersion1StandsBelowZero) {
  const Compiled compiled({ModuleText("A-MIB",
                                      "e OBJECT IDENTIFIER ::= { iso 2 }\n"
                                      "t TRAP-TYPE ENTERPRISE e ::= 3\n"
                                      "u TRAP-TYPE ENTERPRISE { e } VARIABLES { x, y }\n"
                                      "  DESCRIPTION \"\" ::= 4\n"
                                      "v TRAP-TYPE ENTERPRISE other ::= 0\n"
                                      "w TRAP-TYPE ENTERPRISE e ::= { e 9 }\n"
                                      "n TRAP-TYPE ENTERPRISE e ::= -1\n"
                                      "g TRAP-TYPE ENTERPRISE gone ::= 5",
                                      "other FROM B-MIB"),
                           ModuleText("B-MIB", "other OBJECT IDENTIFIER ::= { iso 3 }")});
  const std::pair<const char*, const char*> names[] = {
      {"1.2.0.3", "t"}, {"1.2.0.4", "u"}, {"1.2.0.5", "e.0.5"}, {"1.3.0.0", "v"}, {"1.2.9", "w"}};
  for (const auto& [oid, name] : names) EXPECT_EQ(compiled.Name(oid), name);
  EXPECT_THAT(compiled.Messages(),
              ElementsAre("1:9: trap 'n' has no enterprise or no number",
                          "1:10: 'g' has no place: its parent 'gone' is unknown"));
}

TEST(Resolver, AnInstanceKeepsTheNameOfItsObject) {
  const Compiled compiled({ModuleText("A-MIB",
                                      "up OBJECT-TYPE SYNTAX TimeTicks ::= { iso 4 }\n"
                                      "upInstance OBJECT IDENTIFIER ::= { up 0 }")});
  EXPECT_EQ(compiled.Name("1.4.0"), "up.0");
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

/// Two modules of one name: the first of each pair wins, wherever it stands.
TEST(Resolver, OfTwoModulesOfANameOneWins) {
  const std::string x = "x OBJECT IDENTIFIER ::= { iso 5 }";
  const std::string y = "y OBJECT IDENTIFIER ::= { iso 5 }";
  const auto undated = [](const std::string& text) { return ModuleText("A-MIB", text); };
  const std::pair<std::string, std::string> cases[] = {
      {Dated("A-MIB", "200201010000", y), Dated("A-MIB", "9901010000", x)},
      {Dated("A-MIB", "0001010000", y), Dated("A-MIB", "9912312359", x)},
      {Dated("A-MIB", "7001010000", y), undated(x)},
      {undated(y + " z OBJECT IDENTIFIER ::= { iso 6 }"), undated(x)},
  };
  for (const auto& [winner, loser] : cases) {
    for (const auto& texts : {std::vector{winner, loser}, std::vector{loser, winner}}) {
      const Compiled compiled(texts);
      EXPECT_EQ(compiled.Name("1.5"), "y") << winner;
      EXPECT_THAT(compiled.Messages(),
                  ElementsAre(testing::HasSubstr("module 'A-MIB' is left out: that of")))
          << winner;
    }
  }
  EXPECT_EQ(Compiled({undated(y), undated(x)}).Name("1.5"), "y");
}

/// A name that is not where the import says, or not imported at all, is found in this order.
TEST(Resolver, LooksForANameNearbyFirst) {
  const auto defining = [](const std::string& module, int number) {
    return ModuleText(module, "top OBJECT IDENTIFIER ::= { iso " + std::to_string(number) + " }");
  };
  const auto importing = [](const std::string& imports) {
    return ModuleText("U-MIB", "b OBJECT IDENTIFIER ::= { top 1 }", imports);
  };
  const std::string first = defining("A-MIB", 1);
  const std::string second = defining("C-MIB", 2);
  struct Case {
    const char* what;
    std::vector<std::string> texts;
    int number;
  };
  const Case cases[] = {
      {"as it says", {first, second, importing("top FROM C-MIB")}, 2},
      {"in another module of its imports",
       {first, second, importing("top FROM A x FROM C-MIB")},
       2},
      {"in the same file", {first, second, importing("") + defining("D-MIB", 3)}, 3},
      {"in the first module", {first, second, importing("")}, 1},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(Compiled(c.texts).Name("1." + std::to_string(c.number) + ".1"), "b") << c.what;
  }
  const Compiled base({defining("E-MIB", 4)});
  EXPECT_EQ(Compiled({first, importing("")}, base.Result()).Name("1.4.1"), "b");
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

}  // namespace
}  // namespace sentrel::mib
