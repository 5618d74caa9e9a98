#include "mib/facts.h"

#include <gmock/gmock.h>

#include "mib/lookup.h"
#include "workshop.h"

namespace sentrel::mib {
namespace {

/// The facts of the only module of a file.
std::string FactsOf(const std::string& text, const ReadOptions& options) {
  const Workshop workshop;
  Collection collection({workshop.Write("a", text)}, options);
  const Catalog catalog = collection.Compile({});
  EXPECT_THAT(collection.AllMessages(), testing::IsEmpty());
  return WriteFacts(catalog, catalog.modules.at(0));
}

TEST(Facts, OfAModuleAreItsDefinitionsAndComeBackAsTheyWere) {
  std::string facts =
      "module A-MIB 202001020304\n"
      "type State integer \"d-2\"\n  -1 low\n  2 high\n"
      "value 1.7 a\n"
      "trap 1.7.0.4 e\n"
      "  of b c\n"
      "trap 1.7.0.5 f\n"
      "  same\n"
      "object 1.7.1 b A-MIB:State\n"
      "  units steps\n"
      "object 1.7.2 c integer\n  1 up\n"
      "identity 1.7.9 m\n";
  EXPECT_EQ(FactsOf(ModuleText("A-MIB",
                               "m MODULE-IDENTITY LAST-UPDATED \"202001020304Z\" "
                               "DESCRIPTION \"words\" ::= { 1 7 9 }\n"
                               "State ::= TEXTUAL-CONVENTION DISPLAY-HINT \"d-2\" SYNTAX "
                               "INTEGER { high(2), low(-1) }\n"
                               "a OBJECT IDENTIFIER ::= { iso 7 }\n"
                               "b OBJECT-TYPE SYNTAX State UNITS \"steps\" ::= { a 1 }\n"
                               "c OBJECT-TYPE SYNTAX INTEGER { up(1) } ::= { a 2 }\n"
                               "e TRAP-TYPE ENTERPRISE a VARIABLES { b, c } ::= 4\n"
                               "f NOTIFICATION-TYPE OBJECTS { b, c } ::= { a 0 5 }\n"),
                    {}),
            facts);
  facts =
      "module A-MIB 0\n"
      "below 1.7.10.11.12.13\n"
      "object .1 d octets \"255a\"\n"
      "object .2 g gauge32\n";
  ReadOptions asFacts;
  asFacts.parse = ParseFacts;
  EXPECT_EQ(FactsOf(facts, asFacts), facts);
}

TEST(Facts, LinesThatNoToolWroteAreNamed) {
  const char* bad[] = {"object 1.x b integer",
                       "object 1.7 b number",
                       "thing 1.7 b",
                       "  x up",
                       "type T",
                       "object 1.7 b integer \"d",
                       "module B-MIB x",
                       "value 1.7",
                       "value .7 b",
                       "  of",
                       "  same",
                       "  of x:",
                       "below x",
                       "labels 1 a"};
  for (const char* line : bad) {
    Arena arena;
    const ParsedFile file = ParseFacts(std::string("module A-MIB 0\nvalue 1.1 a\n") + line, arena);
    ASSERT_EQ(file.messages.size(), 1) << line;
    EXPECT_EQ(file.messages[0].line, 3) << line;
    EXPECT_EQ(file.modules.size(), 1) << line;
  }
  Arena arena;
  EXPECT_EQ(ParseFacts("", arena).messages.size(), 1);
}

}  // namespace
}  // namespace sentrel::mib
