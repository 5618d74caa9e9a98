#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include <random>

#include "mib/sources.h"
#include "workshop.h"

namespace sentrel::mib {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;

std::string Repeat(const std::string& text, size_t times) {
  std::string all;
  for (size_t i = 0; i < times; ++i) all += text;
  return all;
}

TEST(Hostile, NestingAndLoopsEnd) {
  const std::string kept = "kept OBJECT IDENTIFIER ::= { iso 7 }\n";
  const Compiled braces({ModuleText("A-MIB", kept + "x OBJECT-TYPE INDEX " + Repeat("{", 10000))});
  EXPECT_EQ(braces.Name("1.7"), "kept");
  EXPECT_THAT(braces.Messages(), testing::Contains(HasSubstr("no '}'")));

  const Compiled loop({ModuleText("A-MIB", kept + "a OBJECT IDENTIFIER ::= { b 1 }\n"
                                                  "b OBJECT IDENTIFIER ::= { a 1 }\n"
                                                  "self OBJECT IDENTIFIER ::= { self 1 }\n"
                                                  "T ::= U U ::= T x OBJECT-TYPE SYNTAX T ::= "
                                                  "{ iso 8 }")});
  EXPECT_EQ(loop.Name("1.7"), "kept");
  EXPECT_EQ(loop.Name("1.8"), "x");
  EXPECT_EQ(loop.Messages().size(), 3);
  EXPECT_THAT(loop.Messages(), Each(HasSubstr("leads back to itself")));

  const Compiled imports({ModuleText("A-MIB", "a OBJECT IDENTIFIER ::= { b 1 }", "b FROM B-MIB"),
                          ModuleText("B-MIB", "b OBJECT IDENTIFIER ::= { a 1 }", "a FROM A-MIB")});
  EXPECT_THAT(imports.Messages(), ElementsAre(HasSubstr("leads back to itself")));
}

TEST(Hostile, WordsInWrongPlacesAreReadOnce) {
  const std::string begin = "A-MIB DEFINITIONS ::= BEGIN ";
  const std::string texts[] = {
      begin + "DEFINITIONS",
      begin + "X ::= TEXTUAL-CONVENTION OBJECT-TYPE",
      begin + "X ::= TEXTUAL-CONVENTION ::= ",
      begin + "x OBJECT-TYPE MACRO DEFINITIONS ::= BEGIN",
      begin + "\" x DEFINITIONS ::= BEGIN DEFINITIONS \"",
      begin + Repeat("IMPORTS a, b ", 100'000),
      begin + Repeat("x { 1 } DEFINITIONS ", 100'000),
      begin + Repeat("x OBJECT-TYPE { ", 100'000),
      begin + Repeat("x OBJECT-TYPE \" ", 100'001),
      Repeat(begin, 10'000),
  };
  for (const std::string& text : texts) EXPECT_FALSE(Compiled({text}).Messages().empty());
}

TEST(Hostile, LongChainsAndLongOidsAreRefused) {
  std::string chain = "n0 OBJECT IDENTIFIER ::= { iso 1 }\n";
  for (int i = 1; i < 3000; ++i) {
    chain = "n" + std::to_string(i) + " OBJECT IDENTIFIER ::= { n" + std::to_string(i - 1) +
            " 1 }\n" + chain;
  }
  const Compiled compiled({ModuleText("A-MIB", chain)});
  EXPECT_EQ(compiled.Name("1.1.1"), "n1");
  EXPECT_FALSE(compiled.Messages().empty());
}

TEST(Hostile, BytesWithoutMeaningAreNoModule) {
  std::mt19937 random(1);
  std::string bytes(200'000, '\0');
  for (char& c : bytes) c = static_cast<char>(random());
  EXPECT_THAT(Compiled({bytes}).Messages(), ElementsAre("1:1: no MIB module in this file"));
  // Inside a module anything may come; messages are bounded.
  EXPECT_LE(Compiled({ModuleText("A-MIB", bytes)}).Messages().size(), 101);
}

TEST(Hostile, FoldersMayHoldAnything) {
  const Workshop workshop;
  workshop.Write("mibs/.hidden", "");
  workshop.Write("mibs/b/c/deep", "");
  workshop.Write("mibs/a", "");
  ASSERT_EQ(mkfifo(workshop.Path("mibs/pipe").c_str(), 0600), 0);
  std::filesystem::create_directory_symlink("..", workshop.Path("mibs/b/loop"));
  std::filesystem::create_symlink("nowhere", workshop.Path("mibs/dangling"));

  const std::string mibs = workshop.Path("mibs");
  EXPECT_THAT(FindSources({{mibs, true}}).files, ElementsAre(mibs + "/a", mibs + "/b/c/deep"));
  EXPECT_THAT(FindSources({{mibs, false}, {mibs, false}}).files, ElementsAre(mibs + "/a"));
  EXPECT_EQ(FindSources({{workshop.Path("gone"), true}}).messages.size(), 1);
  EXPECT_EQ(FindSources({{mibs + "/a", true}}).messages.size(), 1);
}

TEST(Hostile, FilesAndFoldersComeInTheOrderOfTheirNames) {
  const Workshop workshop;
  const std::string mibs = workshop.Path("mibs");
  std::vector<std::string> expected;
  for (const char* name : {"/a", "/b/x", "/b-c", "/b.d/a", "/b.d/c/y", "/b.d/d", "/e"}) {
    workshop.Write(std::string("mibs") + name, name);
    expected.push_back(mibs + name);
  }
  EXPECT_EQ(FindSources({{mibs, true}}).files, expected);
}

TEST(Hostile, FilesThatAreNotReadAreNamed) {
  const Workshop workshop;
  const std::string huge = workshop.Write("huge", "A-MIB DEFINITIONS ::= BEGIN END");
  ASSERT_EQ(truncate(huge.c_str(), 100'000'000), 0);
  const Collection collection({workshop.Path("gone"), workshop.Path(""), huge}, {});
  ASSERT_EQ(collection.AllMessages().size(), 3);
  EXPECT_THAT(collection.AllMessages()[0].ToText(), testing::StartsWith(workshop.Path("gone: ")));
  EXPECT_THAT(collection.AllMessages()[2].text, HasSubstr("too large"));
}

/// Every definition brings two names that nobody knows: the most that a module's names can be.
TEST(Hostile, NothingButUnknownNames) {
  for (const int count : {1, 5, 8, 64, 20'000}) {
    std::string text;
    for (int i = 0; i < count; ++i) {
      const std::string n = std::to_string(i);
      text += "x" + n + " OBJECT-TYPE SYNTAX T" + n + " ::= { p" + n + " 1 }\n";
    }
    const Compiled compiled({ModuleText("A-MIB", text + "last OBJECT IDENTIFIER ::= { iso 9 }\n")});
    EXPECT_EQ(compiled.Name("1.9"), "last");
    ASSERT_EQ(compiled.Messages().size(), 2 * count);
    EXPECT_THAT(compiled.Messages()[0], testing::EndsWith("its parent 'p0' is unknown"));
    EXPECT_THAT(compiled.Messages()[1], testing::EndsWith("type 'T0' is unknown"));
  }
}

/// Lists of several megabytes lie in blocks of their own; small ones follow them.
TEST(Hostile, AModuleOfManyDefinitions) {
  constexpr int kCount = 60'000;
  std::string text;
  for (int i = 1; i <= kCount; ++i) {
    const std::string n = std::to_string(i);
    text +=
        "x" + n + " OBJECT-TYPE SYNTAX INTEGER { a" + n + "(" + n + ") } ::= { iso 9 " + n + " }\n";
  }
  const Compiled compiled(
      {ModuleText("A-MIB", text),
       ModuleText("B-MIB", "b OBJECT-TYPE SYNTAX INTEGER { c(1) } ::= { x60000 1 }")});
  for (int i = 1; i <= kCount; ++i) {
    const std::string n = std::to_string(i);
    ASSERT_EQ(compiled.Name("1.9." + n), "x" + n);
    ASSERT_EQ(compiled.Labels("1.9." + n), "a" + n + "(" + n + ")");
  }
  EXPECT_EQ(compiled.Name("1.9.60001"), "1.9.60001");
  EXPECT_EQ(compiled.Labels("1.9.60000.1"), "c(1)");
}

}  // namespace
}  // namespace sentrel::mib
