#include "console/trap_log.h"

#include <gtest/gtest.h>

#include "fakes/fake_console.h"
#include "fakes/fake_log_file.h"
#include "fakes/fake_registry.h"

namespace sentrel {
namespace {

class TrapLogTest : public testing::Test {
 protected:
  void Name(std::string filename) { settings_.SetLogFilename(filename); }

  FakeRegistry registry_;
  Settings settings_{registry_};
  FakeClock clock_;
  FakeLocale locale_;
  FakeLogFile file_;
  TrapLog log_{settings_, clock_, locale_, file_};
};

TEST_F(TrapLogTest, EntriesFollowInOrderAndTheNameIsReadForEach) {
  Name("a.log");
  log_.WriteToLog("1\r\n");
  log_.WriteToLog("2\r\n");
  Name("b.log");
  clock_.now = {2027, 3, 1, 0, 0, 9};
  locale_.texts.months[2] = "Mär";
  log_.WriteToLog("3\r\n");
  EXPECT_EQ(file_.contents["a.log"], "Dec-05 15:49:37   1\r\n\r\nDec-05 15:49:37   2\r\n\r\n");
  EXPECT_EQ(file_.contents["b.log"], "Mär-01 00:00:09   3\r\n\r\n");
}

TEST_F(TrapLogTest, AnEntryThatCannotBeWrittenIsLostInSilence) {
  settings_.SetLoggingEnabled(true);
  log_.WriteToLog("no name\r\n");
  Name("a.log");
  file_.failing = true;
  log_.WriteToLog("disk full\r\n");
  file_.failing = false;
  log_.WriteToLog("works again\r\n");
  EXPECT_EQ(file_.contents["a.log"], "Dec-05 15:49:37   works again\r\n\r\n");
  EXPECT_EQ(file_.contents.size(), 1U);
  EXPECT_TRUE(settings_.LoggingEnabled());
}

}  // namespace
}  // namespace sentrel
