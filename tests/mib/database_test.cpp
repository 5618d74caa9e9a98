#include "mib/database.h"

#include <gmock/gmock.h>

#include "common/failure.h"
#include "mib/image_writer.h"
#include "mib/lookup.h"
#include "workshop.h"

namespace sentrel::mib {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The built-in modules of these tests.
Compiled Base() {
  return Compiled({ModuleText("A-MIB",
                              "id MODULE-IDENTITY LAST-UPDATED \"202001010000Z\" ::= { iso 99 }\n"
                              "x OBJECT-TYPE SYNTAX T ::= { iso 5 } T ::= INTEGER { old(1) }\n"
                              "gap OBJECT IDENTIFIER ::= { iso label(6) 7 }\n"
                              "down NOTIFICATION-TYPE OBJECTS { x } ::= { gap 0 1 }\n"
                              "up NOTIFICATION-TYPE ::= { gap 2 }")});
}

/// Whoever wins, an OID has the name that one image of all modules would give it.
TEST(Database, AnswersFromBothImagesAsOneWould) {
  struct Case {
    const char* what;
    const char* definition;
    const char* oid;
    const char* name;
  };
  const Case cases[] = {
      {"a user's value over a built-in object", "z OBJECT IDENTIFIER ::= { iso 5 }", "1.5", "z"},
      {"an object of another type", "z OBJECT-TYPE SYNTAX Gauge32 ::= { iso 5 }", "1.5.0", "z.0"},
      {"no label over a definition", "b OBJECT IDENTIFIER ::= { iso z(5) 1 }", "1.5", "x"},
      {"what is below it", "b OBJECT IDENTIFIER ::= { iso z(5) 1 }", "1.5.1.4", "b.4"},
      {"a label over a label", "b OBJECT IDENTIFIER ::= { iso z(6) 9 }", "1.6", "z"},
      {"a definition over a label", "z OBJECT IDENTIFIER ::= { iso 6 }", "1.6", "z"},
      {"the built-in name below a user's", "z OBJECT IDENTIFIER ::= { iso 6 }", "1.6.7", "gap"},
      {"a user's name below a built-in one", "b OBJECT IDENTIFIER ::= { gap 4 }", "1.6.7.4", "b"},
      {"a built-in trap without its zero", "b OBJECT IDENTIFIER ::= { gap 4 }", "1.6.7.1", "down"},
      {"a built-in trap with a zero", "z OBJECT IDENTIFIER ::= { gap 0 }", "1.6.7.0.2", "up"},
      {"a user's definition of the other form", "z OBJECT IDENTIFIER ::= { gap 1 }", "1.6.7.1",
       "z"},
      {"a user's trap without its zero", "z NOTIFICATION-TYPE ::= { gap 0 9 }", "1.6.7.9", "z"},
      {"the other built-in trap", "z NOTIFICATION-TYPE ::= { gap 0 9 }", "1.6.7.0.1", "down"},
  };
  const Compiled base = Base();
  for (const Case& c : cases) {
    const Compiled own({ModuleText("B-MIB", c.definition, "gap FROM A-MIB")}, base.Result());
    EXPECT_EQ(own.Name(c.oid), c.name) << c.what;
    EXPECT_THAT(own.Messages(), IsEmpty()) << c.what;
  }
}

TEST(Database, AModuleOfTheUsersReplacesABuiltInOneOfItsNameAndRefersToIt) {
  const Compiled own({ModuleText("A-MIB", "z OBJECT-IDENTITY ::= { iso 5 }"),
                      ModuleText("B-MIB",
                                 "b OBJECT-TYPE SYNTAX T ::= { gap 1 }\n"
                                 "n NOTIFICATION-TYPE OBJECTS { x, b } ::= { gap 0 3 }",
                                 "gap, T, x FROM A-MIB")},
                     Base().Result());
  EXPECT_EQ(own.Name("1.5"), "z");
  EXPECT_EQ(own.Labels("1.6.7.1"), "old(1)");
  EXPECT_THAT(own.Messages(), IsEmpty());
  // What a notification carries is known by its OID, wherever that has its name.
  const Image& image = *own.Result().Images().back();
  std::vector<std::string> carried;
  const auto node = image.NodeAt(std::vector<std::uint32_t>{1, 6, 7, 0, 3});
  for (const std::uint32_t related : image.Related(image.EntryOf(node))) {
    std::string oid;
    for (const std::uint32_t number : image.OidOf(related)) oid += "." + std::to_string(number);
    carried.push_back(own.Name(oid));
  }
  EXPECT_THAT(carried, ElementsAre("z", "b"));
}

TEST(Database, TellsTheAnswersOfAllImages) {
  const Compiled own({ModuleText("B-MIB", "b OBJECT IDENTIFIER ::= { iso l(5) 3 }"),
                      ModuleText("C-MIB", "c NOTIFICATION-TYPE ::= { 1 6 7 0 1 }")},
                     Base().Result());
  const auto answers = [&](const char* oid) {
    std::vector<std::string> texts;
    for (const Answer& answer : LookUpAll(own.Result(), oid)) {
      texts.push_back(Join({answer.module, ":", answer.name, " ", ListOf(answer.type)}));
    }
    return texts;
  };
  EXPECT_THAT(answers("1.5.7"), ElementsAre("A-MIB:x.7 old(1)", "B-MIB:l.7 "));
  EXPECT_THAT(answers("1.6.7.1"), ElementsAre("C-MIB:c ", "A-MIB:down "));
  EXPECT_THAT(answers("2.9"), IsEmpty());
}

TEST(Database, HoldsOnlyTheUsersFactsInTheUsersImage) {
  const Compiled own({ModuleText("B-MIB", "b OBJECT IDENTIFIER ::= { gap 4 }", "gap FROM A-MIB")},
                     Base().Result());
  const Image& image = *own.Result().Images().back();
  ASSERT_EQ(image.Modules().size(), 1);
  EXPECT_EQ(image.Entries(image.Modules()[0]).size(), 1);
}

TEST(Database, DamageBelowCostsNoNameOfTheUsers) {
  const Workshop workshop;
  Collection collection({workshop.Write("a", ModuleText("B", "b OBJECT IDENTIFIER ::= { 1 5 }"))},
                        {});
  auto bytes = std::make_shared<std::string>(MakeImage(collection.Compile({}), 0));
  auto bad = std::make_shared<std::string>(*bytes);
  bad->at(sizeof(format::Header) + 8) ^= 1;
  const Database database(Database(Image::Over(*bad, bad, DamageCheck::WhenRead)),
                          Image::Over(*bytes, bytes));
  EXPECT_FALSE(database.IsSound());
  EXPECT_EQ(LookUp(database, "1.5.3").name, "b.3");
  EXPECT_THROW(LookUp(database, "2.5.3"), Failure);
}

}  // namespace
}  // namespace sentrel::mib
