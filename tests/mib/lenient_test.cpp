#include <gmock/gmock.h>

#include "workshop.h"

namespace sentrel::mib {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const std::string kState =
    "state OBJECT-TYPE SYNTAX INTEGER { up(1), down(2) } MAX-ACCESS read-only STATUS current\n"
    "DESCRIPTION \"x\" ::= { iso 7 }\n";

std::string InModule(const std::string& definitions) {
  return ModuleText("A-MIB", definitions);
}

/// The definition of x and the one behind it are understood without a word.
void ExpectUnderstood(const std::string& definition, const std::string& oid,
                      const std::string& labels) {
  const Compiled compiled(
      {InModule("top OBJECT IDENTIFIER ::= { iso 9 }\n" + definition + "\n" + kState)});
  EXPECT_EQ(compiled.Name(oid), "x") << definition;
  EXPECT_EQ(compiled.Labels(oid), labels) << definition;
  EXPECT_EQ(compiled.Labels("1.7"), "up(1),down(2)") << definition;
  EXPECT_THAT(compiled.Messages(), IsEmpty()) << definition;
}

/// Texts that are odd and clear: understood without a word.
TEST(Lenient, UnderstandsWhatMakersWrite) {
  struct Case {
    const char* what;
    std::string text;
  };
  const Case cases[] = {
      {"plain", InModule(kState)},
      {"byte order mark", "\xEF\xBB\xBF" + InModule(kState)},
      {"text around the module", "Dear \"customer,\n{ it's\n" + InModule(kState) + "Bye. \" {"},
      {"OID of the module", "A-MIB { iso org(3) 1 } DEFINITIONS ::= BEGIN\n" + kState + "END"},
      {"Latin-1 in strings and between words", InModule("-- \xE9t\xE9\n\xA0" + kState)},
      {"comment that ends at dashes", InModule("-- a -- " + kState)},
      {"comment meant to the end of the line", InModule("-- a -- b (c\n" + kState)},
      {"rulers of dashes", InModule("-----\n------\n-------\n" + kState + "---------")},
      {"quotation marks within a description",
       InModule("o OBJECT-IDENTITY STATUS current DESCRIPTION \"a \"b\" c\" ::= { iso 3 }" +
                kState)},
      {"a definition within a description",
       InModule("o OBJECT-IDENTITY DESCRIPTION \"as in\nstate OBJECT IDENTIFIER ::= { iso 5 }\n\""
                " ::= { iso 4 }\n" +
                kState)},
      {"macro defined in the module",
       InModule("OBJECT-TYPE MACRO ::= BEGIN TYPE NOTATION ::= \"SYNTAX\" type END\n" + kState)},
      {"underscores, capitals, digits first",
       InModule(
           "Bad_Name OBJECT IDENTIFIER ::= { iso 3 } 3com OBJECT IDENTIFIER ::= { Bad_Name 1 }" +
           kState)},
      {"constant of another type", InModule("limit INTEGER ::= 5\n" + kState)},
      {"exports and empty imports", InModule("EXPORTS a, b; IMPORTS ;" + kState)},
      {"SMIv1", InModule("state OBJECT-TYPE SYNTAX INTEGER { up(1), down(2) } ACCESS read-only\n"
                         "STATUS mandatory ::= { iso 7 }")},
      {"last comma, missing comma, blanks",
       InModule("state OBJECT-TYPE SYNTAX INTEGER { up (1) down( 2 ), } ::= { iso 7 }")},
      {"forward references",
       InModule("state OBJECT-TYPE SYNTAX T ::= { b 7 } b OBJECT IDENTIFIER ::= { c }\n"
                "c OBJECT IDENTIFIER ::= { iso } T ::= INTEGER { up(1), down(2) }")},
      {"path with names and numbers", InModule("org OBJECT IDENTIFIER ::= { iso 3 }\n"
                                               "a OBJECT IDENTIFIER ::= { iso org(3) dod(6) 1 }\n" +
                                               kState)},
  };
  for (const Case& c : cases) {
    std::string crLf, cr;
    for (const char ch : c.text) {
      crLf += ch == '\n' ? "\r\n" : std::string(1, ch);
      cr += ch == '\n' ? '\r' : ch;
    }
    for (const std::string& text : {c.text, crLf, cr}) {
      const Compiled compiled({text});
      EXPECT_EQ(compiled.Name("1.7.0"), "state.0") << c.what;
      EXPECT_EQ(compiled.Labels("1.7.0"), "up(1),down(2)") << c.what;
      EXPECT_THAT(compiled.Messages(), IsEmpty()) << c.what;
    }
  }
}

/// Texts that are wrong: one message, and everything else is there.
TEST(Lenient, PassesOverWhatIsWrongWithOneMessage) {
  struct Case {
    std::string broken;
    std::string message;
  };
  const Case cases[] = {
      {"x OBJECT-TYPE SYNTAX INTEGER ACCESS read-only", "'x' has no '::='"},
      {"x OBJECT-TYPE SYNTX INTEGER ::= { iso 4 }", "object 'x' has no SYNTAX"},
      {"x OBJECT-TYPO SYNTAX INTEGER ::= { iso 4 }", "unknown macro 'OBJECT-TYPO'"},
      {"x OBJECT-TYPE SYNTAX INTEGER INDEX { a, b ::= { iso 4 }", "no '}' for the '{' before this"},
      {"x ::= { iso 4 }", "no OBJECT IDENTIFIER behind 'x'"},
      {"x OBJECT IDENTIFIER { iso 4 }", "no '::=' behind 'x' OBJECT IDENTIFIER"},
      {"x OBJECT IDENTIFIER ::= { }", "the OID of 'x' is empty"},
      {"x OBJECT IDENTIFIER ::= { iso 99999999999 }", "'99999999999' is no number of an OID"},
      {"x OBJECT IDENTIFIER ::= { nowhere 4 }",
       "'x' has no place: its parent 'nowhere' is unknown"},
      {"x OBJECT-TYPE SYNTAX Nothing ::= { iso 4 }", "type 'Nothing' is unknown"},
      {"x TRAP-TYPE VARIABLES { a } ::= 4", "trap 'x' has no enterprise or no number"},
      {"X ::= TEXTUAL-CONVENTION STATUS current", "textual convention 'X' has no SYNTAX"},
      {"x OBJECT-TYPE SYNTAX INTEGER { a(1), b } ::= { iso 4 }", "label 'b' without a number"},
      {"= $", "'=' where a definition should begin"},
  };
  for (const Case& c : cases) {
    const Compiled compiled({InModule(c.broken + "\n" + kState)});
    EXPECT_EQ(compiled.Labels("1.7"), "up(1),down(2)") << c.broken;
    ASSERT_EQ(compiled.Messages().size(), 1) << c.broken;
    EXPECT_THAT(compiled.Messages()[0], testing::AnyOf("1:2: " + c.message, "1:3: " + c.message))
        << c.broken;
  }
}

/// The text of one description has no end: the definitions behind it are all there, and the message
/// names its line.
TEST(Lenient, AForgottenQuotationMarkCostsNoDefinition) {
  const std::string before =
      "a OBJECT-IDENTITY STATUS current DESCRIPTION \"first\" ::= { iso 1 }\n";
  const std::string after =
      "b OBJECT-TYPE SYNTAX INTEGER { on(1) } STATUS current\n"
      "  DESCRIPTION \"of b,\n  that is odd\" ::= { iso 4 }\n"
      "c OBJECT IDENTIFIER ::= { iso 5 }\n"
      "T ::= TEXTUAL-CONVENTION DESCRIPTION \"of T\" SYNTAX INTEGER { off(0) }\n"
      "d OBJECT-TYPE SYNTAX T DESCRIPTION \"of d\" ::= { iso 6 }\n";
  const std::string open[] = {
      "x OBJECT-IDENTITY STATUS current DESCRIPTION \"no end\n\n  ::= { iso 3 }\n",
      "x OBJECT-TYPE SYNTAX INTEGER DESCRIPTION \"no end\n ::= { iso 3 }\n",
      "X ::= TEXTUAL-CONVENTION DISPLAY-HINT \"d STATUS current SYNTAX INTEGER\n",
      "-- a comment -- that goes on\nx OBJECT-IDENTITY DESCRIPTION \"no end\n",
  };
  for (const std::string& text : open) {
    for (const std::string& more :
         {after, Join({after, "e OBJECT-IDENTITY REFERENCE \"e\" ::= { c 1 }\n", after})}) {
      const Compiled compiled({InModule(Join({before, text, more}))});
      EXPECT_EQ(compiled.Name("1.1"), "a") << text;
      EXPECT_EQ(compiled.Labels("1.4"), "on(1)") << text;
      EXPECT_EQ(compiled.Name("1.5"), "c") << text;
      EXPECT_EQ(compiled.Labels("1.6"), "off(0)") << text;
      EXPECT_THAT(compiled.Messages(), Contains(HasSubstr("no quotation mark at the end"))) << text;
    }
  }
}

TEST(Lenient, ANameThatStandsTwiceKeepsBothAndTheRest) {
  const Compiled compiled(
      {InModule("x OBJECT IDENTIFIER ::= { iso 3 }\n"
                "x OBJECT-TYPE SYNTAX INTEGER { on(1) } ::= { iso 4 }\n"
                "y OBJECT IDENTIFIER ::= { x 1 }\n"
                "T ::= INTEGER { a(1) }\nT ::= INTEGER { b(1) }\n"
                "z OBJECT-TYPE SYNTAX T ::= { iso 5 }\n"
                "z OBJECT-TYPE SYNTAX T ::= { iso 5 }\n" +
                kState)});
  EXPECT_EQ(compiled.Name("1.3"), "x");
  EXPECT_EQ(compiled.Name("1.3.1"), "y");
  EXPECT_EQ(compiled.Labels("1.4"), "on(1)");
  EXPECT_EQ(compiled.Labels("1.5"), "a(1)");
  EXPECT_EQ(compiled.Labels("1.7"), "up(1),down(2)");
  EXPECT_THAT(compiled.Messages(), ElementsAre("1:3: 'x' has another OID in the same module"));
}

/// Clauses that the database does not need, right and wrong ones.
TEST(Lenient, PassesOverClauses) {
  const char* clauses[] = {
      "MAX-ACESS read-only STAUS curent",
      "ACCESS not-accessible STATUS deprecated",
      "UNITS \"1/10 \xB0 C\" REFERENCE \"RFC 1 -- section 2\"",
      "INDEX { IMPLIED a, INTEGER (0..7), b }",
      "AUGMENTS { other }",
      "DEFVAL { 'c0a80001'H }",
      "DEFVAL { { low, high } }",
      "DEFVAL { -1 } DEFVAL { \"}\" }",
      "DEFVAL { other.1 } -- { -- ",
      "DESCRIPTION \"BEGIN x OBJECT-TYPE END ::= { } -- it's\"",
      "DESCRIPTION 'single' STATUS current",
      "WRITE-SYNTAX INTEGER { never(9) }",
      "MIN-ACCESS read-only SYNTAX INTEGER { second(2) }",
  };
  for (const char* clause : clauses) {
    ExpectUnderstood(Join({"x OBJECT-TYPE SYNTAX INTEGER { on(1) } ", clause, "\n::= { iso 4 }"}),
                     "1.4", "on(1)");
  }
}

/// Macros that define a node, with clauses in which other definitions are named.
TEST(Lenient, KnowsAllMacros) {
  const char* macros[] = {
      "MODULE-IDENTITY LAST-UPDATED \"9901010000Z\" ORGANIZATION \"o\" REVISION \"9901010000Z\"",
      "OBJECT-IDENTITY STATUS current DESCRIPTION \"d\"",
      "NOTIFICATION-TYPE OBJECTS { state, other } STATUS current",
      "OBJECT-GROUP OBJECTS { state } STATUS current",
      "NOTIFICATION-GROUP NOTIFICATIONS { other } STATUS current",
      "MODULE-COMPLIANCE STATUS current MODULE MANDATORY-GROUPS { g }\n"
      "  GROUP g DESCRIPTION \"\" OBJECT state SYNTAX INTEGER { up(1) } MIN-ACCESS read-only",
      "AGENT-CAPABILITIES PRODUCT-RELEASE \"1\" SUPPORTS B-MIB INCLUDES { g }\n"
      "  VARIATION state SYNTAX INTEGER { up(1) } ACCESS read-only CREATION-REQUIRES { state }",
  };
  for (const char* macro : macros) {
    ExpectUnderstood(Join({"x ", macro, "\n  ::= { iso 4 }"}), "1.4", "");
  }
}

/// A value of an OID in the forms in which makers write it.
TEST(Lenient, ReadsOids) {
  const std::pair<const char*, const char*> cases[] = {
      {"{ top 1 2 }", "1.9.1.2"},
      {"{ top 1, 2 }", "1.9.1.2"},
      {"{ top a(1) b(2) }", "1.9.1.2"},
      {"{top 4294967295}", "1.9.4294967295"},
      {"{ 1 9 3 }", "1.9.3"},
      {"{ iso(1) 9 3 }", "1.9.3"},
      {"{ iso x(9) 3 }", "1.9.3"},
      {"{ A-MIB.top 3 }", "1.9.3"},
      {"{ iso 9 top 5 }", "1.9.5"},
      {"{ top(9) 5 }", "1.9.5"},
      {"{ joint-iso-itu-t 5 }", "2.5"},
      {"{ ccitt data(9) }", "0.9"},
      {"top", "1.9"},
      {"{\n-- a comment\n top\t7\n}", "1.9.7"},
  };
  for (const auto& [value, oid] : cases) {
    ExpectUnderstood(Join({"x OBJECT-IDENTITY ::= ", value}), oid, "");
  }
}

TEST(Lenient, AFileMayHoldManyModules) {
  const Compiled compiled(
      {"Cut here -------\n" + ModuleText("A-MIB", "a OBJECT IDENTIFIER ::= { iso 2 }") +
       "\n[Page 1]\n\f\nRFC \"1\" {it's\n" +
       ModuleText("B-MIB", "b OBJECT IDENTIFIER ::= { a 2 }", "a FROM A-MIB") +
       ModuleText("C-MIB", "c OBJECT IDENTIFIER ::= { b 2 }", "b FROM B-MIB") + "[Page 2] \""});
  EXPECT_EQ(compiled.Name("1.2.2.2"), "c");
  EXPECT_THAT(compiled.Messages(), IsEmpty());
}

TEST(Lenient, ModulesWithoutAnEndOrWithoutASemicolon) {
  const Compiled noEnd({"A-MIB DEFINITIONS ::= BEGIN\na OBJECT IDENTIFIER ::= { iso 1 }\n" +
                        ModuleText("B-MIB", kState)});
  EXPECT_EQ(noEnd.Name("1.1"), "a");
  EXPECT_EQ(noEnd.Name("1.7"), "state");
  EXPECT_THAT(noEnd.Messages(), ElementsAre("1:3: module 'A-MIB' has no END"));

  const Compiled noSemicolon(
      {"A-MIB DEFINITIONS ::= BEGIN\nIMPORTS top FROM B-MIB\n"
       "a MODULE-IDENTITY LAST-UPDATED \"9901010000Z\" ::= { top 1 }\nEND\n" +
       ModuleText("B-MIB", "top OBJECT IDENTIFIER ::= { iso 2 }")});
  EXPECT_EQ(noSemicolon.Name("1.2.1"), "a");
  EXPECT_THAT(noSemicolon.Messages(), ElementsAre("1:3: no ';' behind the imports"));
}

TEST(Lenient, NamedValuesKeepTheirNumbers) {
  const Compiled compiled({InModule(
      "x OBJECT-TYPE SYNTAX INTEGER { c(2147483647), b(-3), a(0), d(4294967295) } ::= { iso 4 }\n"
      "y OBJECT-TYPE SYNTAX BITS { a(0), b(1) } ::= { iso 5 }")});
  EXPECT_EQ(compiled.Labels("1.4"), "b(-3),a(0),c(2147483647)");
  EXPECT_EQ(compiled.Labels("1.5"), "");
  EXPECT_THAT(compiled.Messages(),
              ElementsAre("1:2: '4294967295' is not a number for the label 'd'"));
}

}  // namespace
}  // namespace sentrel::mib
