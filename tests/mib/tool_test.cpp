#include <gmock/gmock.h>

#include <QProcess>

#include "mib/image.h"
#include "workshop.h"

namespace sentrel::mib {
namespace {

using testing::HasSubstr;

struct Outcome {
  int status = -1;
  std::string text;
};

/// The real program, as a user would start it, in surroundings of its own.
class ToolTest : public testing::Test {
 protected:
  Outcome Run(const std::string& words) const {
    QProcess shell;
    auto environment = QProcessEnvironment::systemEnvironment();
    for (const auto& [name, folder] :
         {std::pair{"XDG_CACHE_HOME", "cache"}, {"XDG_DATA_HOME", "data"}, {"HOME", ""}}) {
      environment.insert(name, QString::fromStdString(workshop_.Path(folder)));
    }
    shell.setProcessEnvironment(environment);
    shell.setProcessChannelMode(QProcess::MergedChannels);
    shell.start("sh", {"-c", QString::fromStdString(words)});
    shell.waitForFinished(-1);
    return {shell.exitCode(), shell.readAll().toStdString()};
  }

  Outcome RunTool(const std::string& words) const {
    return Run(ProgramFolder() + "/sentrel-mib " + words);
  }

  const Workshop workshop_;
  const std::string vendor_ =
      ModuleText("ACME-MIB",
                 "acme OBJECT IDENTIFIER ::= { enterprises 99999 }\n"
                 "mode OBJECT-TYPE SYNTAX INTEGER { on(1), off(2) } ::= { acme 1 }\n"
                 "lost OBJECT IDENTIFIER ::= { nowhere 1 }",
                 "enterprises FROM SNMPv2-SMI");
};

TEST_F(ToolTest, LooksUpArgumentsAndStandardInput) {
  const std::string expected =
      ".1.3.6.1.2.1.2.2.1.7.3\tifAdminStatus.3\tup(1),down(2),testing(3)\n1.3.6\tdod\t\n";
  EXPECT_EQ(RunTool("lookup .1.3.6.1.2.1.2.2.1.7.3 1.3.6").text, expected);
  EXPECT_EQ(Run("printf '.1.3.6.1.2.1.2.2.1.7.3\\r\\n\\n1.3.6' | " + ProgramFolder() +
                "/sentrel-mib lookup")
                .text,
            expected);
}

TEST_F(ToolTest, LooksUpInFolders) {
  workshop_.Write("mibs/acme", vendor_);
  EXPECT_EQ(RunTool("lookup -M " + workshop_.Path("mibs") + " 1.3.6.1.4.1.99999.1.0").text,
            "1.3.6.1.4.1.99999.1.0\tmode.0\ton(1),off(2)\n");
  workshop_.Write("data/sentrel/mibs/deep/acme", vendor_);
  EXPECT_EQ(RunTool("lookup 1.3.6.1.4.1.99999.1.0").text,
            "1.3.6.1.4.1.99999.1.0\tmode.0\ton(1),off(2)\n");
}

TEST_F(ToolTest, MakesADamagedImageAnew) {
  workshop_.Write("mibs/acme", vendor_);
  const std::string command = "lookup -M " + workshop_.Path("mibs") + " 1.3.6.1.4.1.99999.1.0";
  const std::string answer = RunTool(command).text;
  const std::string image = workshop_.Path("cache/sentrel/lookup-mibs.image");
  const auto size = std::filesystem::file_size(image);
  for (const auto& damage : {"dd conv=notrunc bs=1 seek=200 count=100 if=/dev/zero of=",
                             "truncate -s 5000 ", "truncate -s +8 ", "truncate -s 0 "}) {
    ASSERT_EQ(Run(damage + image).status, 0);
    EXPECT_EQ(RunTool(command).text, answer) << damage;
    EXPECT_EQ(std::filesystem::file_size(image), size) << damage;
    EXPECT_NO_THROW(Image::Open(image)) << damage;
  }
}

TEST_F(ToolTest, CompilesAndTellsWhatIsWrong) {
  const std::string file = workshop_.Write("mibs/acme", vendor_);
  const std::string image = workshop_.Path("out.image");
  const Outcome outcome =
      RunTool("compile -o " + image + " " + workshop_.Path("mibs") + " " + workshop_.Path("gone"));
  EXPECT_EQ(outcome.status, 0);
  EXPECT_THAT(outcome.text,
              HasSubstr(file + ":5: 'lost' has no place: its parent 'nowhere' is unknown\n"));
  EXPECT_THAT(outcome.text, HasSubstr(workshop_.Path("gone: ")));
  EXPECT_THAT(outcome.text, HasSubstr("1 files, 1 modules, "));
  EXPECT_NO_THROW(Image::Open(image));
}

TEST_F(ToolTest, ChecksFiles) {
  EXPECT_EQ(RunTool("check " + workshop_.Write("bad", vendor_)).status, 1);
  const Outcome good =
      RunTool("check " + workshop_.Write("good", ModuleText("G", "T ::= INTEGER")));
  EXPECT_EQ(good.status, 0);
  EXPECT_EQ(good.text, "");
}

TEST_F(ToolTest, TellsOfADamagedBuiltInFile) {
  for (const char* name : {"sentrel-mib", "sentrel-mibs.image"}) {
    std::filesystem::copy(ProgramFolder() + "/" + name, workshop_.Path(name));
  }
  const std::string check = workshop_.Path("sentrel-mib") + " check";
  const std::string image = workshop_.Path("sentrel-mibs.image");
  EXPECT_EQ(Run(check).status, 0);
  for (const auto& damage : {"dd conv=notrunc bs=1k seek=99 count=1 if=/dev/zero of=", "rm "}) {
    ASSERT_EQ(Run(damage + image).status, 0);
    const Outcome outcome = Run(check);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.text, testing::StartsWith(image + ": "));
  }
}

TEST_F(ToolTest, TellsEveryAnswerWithItsModule) {
  const std::string head = "m MODULE-IDENTITY LAST-UPDATED \"";
  workshop_.Write("mibs/a", ModuleText("A-MIB", head + "202001010000Z\" ::= { 1 7 9 }\n"
                                                       "a NOTIFICATION-TYPE ::= { 1 7 0 1 }"));
  workshop_.Write("mibs/b", ModuleText("B-MIB", head + "202101010000Z\" ::= { 1 7 9 }\n"
                                                       "b NOTIFICATION-TYPE ::= { 1 7 0 1 }"));
  EXPECT_EQ(RunTool("lookup --all -M " + workshop_.Path("mibs") + " 1.7.1").text,
            "1.7.1\tb\tB-MIB\t\n1.7.1\ta\tA-MIB\t\n");
}

/// The order in which the file system lists files is that in which they were made, or none.
TEST_F(ToolTest, WritesTheSameFactsOfMakersEachTime) {
  const std::string modules[] = {
      ModuleText("ACME-MIB",
                 "acme OBJECT IDENTIFIER ::= { enterprises 99999 }\n"
                 "mode OBJECT-TYPE SYNTAX INTEGER { on(1), off(2) } ::= { acme 1 }\n"
                 "idle OBJECT-TYPE SYNTAX INTEGER ::= { acme 2 }\n"
                 "model OBJECT IDENTIFIER ::= { acme 3 }\n"
                 "changed NOTIFICATION-TYPE OBJECTS { mode } ::= { acme 0 1 }",
                 "enterprises FROM SNMPv2-SMI"),
      ModuleText("SNMPv2-SMI", "enterprises OBJECT IDENTIFIER ::= { iso 3 6 1 4 1 }")};
  for (const auto& [folder, first] : {std::pair{"x", 0}, {"y", 1}}) {
    for (const int module : {first, 1 - first}) {
      workshop_.Write(std::string(folder) + "/" + std::to_string(module), modules[module]);
    }
    const std::string out = workshop_.Path(std::string(folder) + "-facts");
    ASSERT_EQ(RunTool("makers -o " + out + " " + workshop_.Path(folder)).status, 0);
    EXPECT_EQ(Run("cat " + out + "/99999-acme.facts").text,
              "module ACME-MIB 0\n"
              "below 1.3.6.1.4.1\n"
              "value .99999 acme\n"
              "trap .99999.0.1 changed\n  of mode\n"
              "object .99999.1 mode integer\n  1 on\n  2 off\n"
              "value .99999.3 model\n");
  }
}

TEST_F(ToolTest, ExplainsItself) {
  for (const char* words : {"", "nonsense", "lookup -x", "compile", "compile -o"}) {
    const Outcome outcome = RunTool(words);
    EXPECT_EQ(outcome.status, 2) << words;
    EXPECT_THAT(outcome.text, HasSubstr("usage: sentrel-mib")) << words;
  }
}

}  // namespace
}  // namespace sentrel::mib
