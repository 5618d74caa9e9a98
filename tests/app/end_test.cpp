#include <QFile>
#include <csignal>

#include "program_fixture.h"

namespace sentrel {
namespace {

/// However the program is told to end, what has arrived by then is shown and logged.
struct EndTest : ProgramFixture {
  static constexpr int kTraps = 2'000;

  EndTest() { LogTo(Log().toStdString(), program); }
  /// The event loop does not turn meanwhile.
  void SendAll() {
    for (int i = 0; i < kTraps; ++i) SendText("last");
  }
  void AwaitEnd() {
    EXPECT_TRUE(QTest::qWaitFor([&] { return !program.Listener().IsListening(); }, 10'000));
  }
  QString Log() const { return state.filePath("traps.log"); }
  qsizetype Logged() const {
    QFile log(Log());
    return log.open(QFile::ReadOnly) ? log.readAll().count("= last\r\n\r\n") : 0;
  }
  void ExpectAll() const {
    EXPECT_EQ(program.Listener().Counters().Of(Outcome::kAccepted), std::size_t{kTraps});
    EXPECT_EQ(program.Traps().Rows(), 1 + kMostTraps);
    EXPECT_EQ(Logged(), kTraps);
  }
};

TEST_F(EndTest, ByTheMenu) {
  SendAll();
  Choose("Main:Exit");
  ExpectAll();
}

TEST_F(EndTest, ByTheCloseBox) {
  SendAll();
  program.Window().close();
  ExpectAll();
}

TEST_F(EndTest, BySignalsThatComeTwiceUnderADialog) {
  user.When("SettingsForm", [&](QWidget& dialog) {
    SendAll();
    for (const int signal : {SIGTERM, SIGHUP}) raise(signal);
    AwaitEnd();
    raise(SIGINT);
    dialog.close();
  });
  Choose("Main:Settings");
  ExpectAll();
}

TEST_F(EndTest, WhilePausedLeavesNoTrace) {
  Choose("Edit:Pause");
  SendAll();
  raise(SIGTERM);
  AwaitEnd();
  EXPECT_EQ(program.Traps().Rows(), 1);
  EXPECT_EQ(Logged(), 0);
}

}  // namespace
}  // namespace sentrel
