#include "snmp/listen_failure.h"

#include <gmock/gmock.h>
#include <unistd.h>

#include <cerrno>

#include "listener_fixture.h"
#include "snmp/port_holder.h"

namespace sentrel::test {
namespace {

using testing::HasSubstr;

using ListenFailureTest = ListenerTest;

TEST_F(ListenFailureTest, SecondListenerIsToldWhoHoldsThePort) {
  Start();
  ListenerOptions options;
  options.port = Listener().Port();
  options.stateFolder = folder_ / "second";
  NetSnmpListener second(options, *this, [] {});
  EXPECT_GT(second.StartListening(), 0);
  EXPECT_FALSE(second.Listening());
  EXPECT_EQ(second.WhyNotListening().reason, "UDP port " + std::to_string(options.port) +
                                                 " is in use by test_snmp (process " +
                                                 std::to_string(getpid()) + ").");
  EXPECT_THAT(second.WhyNotListening().remedy, HasSubstr("Another copy"));
  EXPECT_FALSE(std::filesystem::exists(options.stateFolder)) << "a failed start leaves no trace";
  EXPECT_TRUE(Listener().Listening());
}

TEST_F(ListenFailureTest, PortOfAnotherProgramIsTracedToIt) {
  if (std::string(SNMPTRAPD).ends_with("NOTFOUND")) GTEST_SKIP() << "there is no snmptrapd";
  Start();
  const std::uint16_t port = Listener().Port();
  Stop();
  QProcess holder;
  holder.setProcessEnvironment(EnvironmentIn(folder_));
  holder.start(SNMPTRAPD, {"-f", "-Lo", "-C", "--disableAuthorization=yes",
                           QString("udp:127.0.0.1:%1").arg(port)});
  WaitBlockedUntil([&] { return holder.waitForFinished(1) || FindPortHolder(port); });
  if (holder.state() == QProcess::NotRunning) GTEST_SKIP() << "no second receiver to hold the port";
  ListenerOptions options;
  options.port = port;
  options.stateFolder = folder_ / "state";
  NetSnmpListener listener(options, *this, [] {});
  EXPECT_GT(listener.StartListening(), 0);
  EXPECT_THAT(listener.WhyNotListening().reason,
              HasSubstr("snmptrapd (process " + std::to_string(holder.processId()) + ")"));
  EXPECT_THAT(listener.WhyNotListening().remedy,
              HasSubstr("kill " + std::to_string(holder.processId())));
  holder.kill();
  holder.waitForFinished();
}

TEST_F(ListenFailureTest, ListenerRunsWithoutAFolderForItsState) {
  for (const char* folder : {"", "/dev/null/not/possible"}) {
    ListenerOptions options;
    options.port = 0;
    options.stateFolder = folder;
    EXPECT_EQ(NetSnmpListener(options, *this, [] {}).StartListening(), 0) << folder;
  }
}

TEST(ExplainListenFailure, NamesTheExactRemedy) {
  const ListenFailure withHelper = ExplainListenFailure(EACCES, 162, "/bin/sh");
  EXPECT_EQ(withHelper.reason, "This user may not open UDP port 162 (permission denied).");
  EXPECT_THAT(withHelper.remedy, HasSubstr("sudo setcap cap_net_bind_service=+ep '/bin/sh'"));
  EXPECT_THAT(ExplainListenFailure(EACCES, 162, "/no/such/helper").remedy, HasSubstr("sudo"));
  EXPECT_THAT(ExplainListenFailure(EMFILE, 162, "").reason, HasSubstr("Too many open files"));
}

}  // namespace
}  // namespace sentrel::test
