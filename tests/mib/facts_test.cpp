#include "mib/facts.h"

#include <gmock/gmock.h>

#include "mib/lookup.h"
#include "workshop.h"

namespace sentrel::mib {
namespace {

constexpr const char* kFacts =
    "module A-MIB 202001020304\n"
    "type State integer \"d-2\"\n"
    "  -1 low\n"
    "  2 high\n"
    "value 1.7 a\n"
    "object 1.7.1 b A-MIB:State\n"
    "object 1.7.2 c integer\n"
    "  1 up\n"
    "object 1.7.3 d octets \"255a\"\n"
    "notification 1.7.0.4 e\n";

TEST(Facts, OfAModuleAreItsDefinitions) {
  const Workshop workshop;
  Collection collection(
      {workshop.Write("a", ModuleText("A-MIB",
                                      "m MODULE-IDENTITY LAST-UPDATED \"202001020304Z\" "
                                      "DESCRIPTION \"words\" ::= { 1 7 9 }\n"
                                      "State ::= TEXTUAL-CONVENTION DISPLAY-HINT \"d-2\" SYNTAX "
                                      "INTEGER { high(2), low(-1) }\n"
                                      "a OBJECT IDENTIFIER ::= { iso 7 }\n"
                                      "b OBJECT-TYPE SYNTAX State ::= { a 1 }\n"
                                      "c OBJECT-TYPE SYNTAX INTEGER { up(1) } ::= { a 2 }\n"
                                      "e TRAP-TYPE ENTERPRISE a ::= 4\n"))},
      {});
  const Catalog catalog = collection.Compile(*Image::Empty());
  EXPECT_EQ(WriteFacts(catalog, catalog.modules.at(0)),
            "module A-MIB 202001020304\n"
            "type State integer \"d-2\"\n  -1 low\n  2 high\n"
            "value 1.7 a\n"
            "notification 1.7.0.4 e\n"
            "object 1.7.1 b A-MIB:State\n"
            "object 1.7.2 c integer\n  1 up\n"
            "identity 1.7.9 m\n");
}

TEST(Facts, ComeBackAsTheyWere) {
  const Workshop workshop;
  ReadOptions options;
  options.parse = ParseFacts;
  Collection collection({workshop.Write("a", kFacts)}, options);
  const Catalog catalog = collection.Compile(*Image::Empty());
  EXPECT_THAT(collection.AllMessages(), testing::IsEmpty());
  std::string lines = WriteFacts(catalog, catalog.modules.at(0));
  Collection again({workshop.Write("b", lines)}, options);
  const Catalog second = again.Compile(*Image::Empty());
  EXPECT_EQ(WriteFacts(second, second.modules.at(0)), lines);
  EXPECT_THAT(lines, testing::HasSubstr("object 1.7.3 d octets \"255a\"\n"));
}

TEST(Facts, LinesThatNoToolWroteAreNamed) {
  const char* bad[] = {
      "object 1.x b integer",     "object 1.7 b number", "thing 1.7 b", "  x up", "type T",
      "object 1.7 b integer \"d", "module B-MIB 0",      "value 1.7"};
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
