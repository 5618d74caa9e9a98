#include "console_fixture.h"

namespace sentrel {
namespace {

struct TrapLogTest : ConsoleTest {
  void Name(std::string filename) { settings.SetLogFilename(filename); }
};

TEST_F(TrapLogTest, EntriesFollowInOrderAndTheNameIsReadForEach) {
  Name("a.log");
  log.WriteToLog("1\r\n");
  log.WriteToLog("2\r\n");
  Name("b.log");
  clock.now = {2027, 3, 1, 0, 0, 9};
  locale.texts.months[2] = "Mär";
  log.WriteToLog("3\r\n");
  EXPECT_EQ(logFile.contents["a.log"], "Dec-05 15:49:37   1\r\n\r\nDec-05 15:49:37   2\r\n\r\n");
  EXPECT_EQ(logFile.contents["b.log"], "Mär-01 00:00:09   3\r\n\r\n");
}

TEST_F(TrapLogTest, AnEntryThatCannotBeWrittenIsLostInSilence) {
  settings.SetLoggingEnabled(true);
  log.WriteToLog("no name\r\n");
  Name("a.log");
  logFile.failing = true;
  log.WriteToLog("disk full\r\n");
  logFile.failing = false;
  log.WriteToLog("works again\r\n");
  EXPECT_EQ(logFile.contents["a.log"], "Dec-05 15:49:37   works again\r\n\r\n");
  EXPECT_EQ(logFile.contents.size(), 1U);
  EXPECT_TRUE(settings.LoggingEnabled());
}

}  // namespace
}  // namespace sentrel
