#include "snmp/port_helper.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <tuple>

#include "listener_fixture.h"
#include "snmp/datagram_socket.h"
#include "snmp/port_permission.h"

namespace sentrel::test {
namespace {

/// A shell script that runs the helper where this user may open any port.
class PortHelperTest : public testing::Test {
 protected:
  std::string Script(const std::string& content) {
    const std::filesystem::path path = folder_ / "helper";
    WriteFile(path, "#!/bin/sh\n" + content + "\n");
    std::filesystem::permissions(path, std::filesystem::perms::owner_all);
    return path;
  }
  static bool MayUnshare() { return QProcess::execute("unshare", {"-rn", "true"}) == 0; }

  const QTemporaryDir temporary_;
  const std::filesystem::path folder_ = temporary_.path().toStdString();
};

TEST_F(PortHelperTest, HandsOverTheBoundSocket) {
  if (!MayUnshare()) GTEST_SKIP() << "no user namespaces here";
  for (const char* streams : {"", "0<&- 1>&- 2>&-"}) {
    const int descriptor = SocketFromPortHelper(
        Script(std::string("exec unshare -rn sh -c 'exec " PORT_HELPER " ") + streams + "'"));
    ASSERT_GE(descriptor, 0) << -descriptor << streams;
    const DatagramSocket socket(descriptor, 1 << 20);
    EXPECT_EQ(socket.Port(), 162);
  }
}

TEST_F(PortHelperTest, WaitsForNoChannel) {
  if (!MayUnshare()) GTEST_SKIP() << "no user namespaces here";
  std::array<int, 2> pair{}, pipe{};
  ASSERT_EQ(socketpair(AF_UNIX, SOCK_SEQPACKET, 0, pair.data()), 0);
  while (send(pair[1], "", 1, MSG_DONTWAIT) == 1) {
  }
  ASSERT_EQ(::pipe(pipe.data()), 0);
  const int lonely = socket(AF_UNIX, SOCK_DGRAM, 0);
  const std::tuple<const char*, int, int> channels[] = {{"full", pair[1], kPortNotBound},
                                                        {"unconnected", lonely, kPortNotBound},
                                                        {"no socket", pipe[1], kPortHelperMisused}};
  for (const auto& [name, channel, ending] : channels) {
    const int copy = fcntl(channel, F_DUPFD, kPortHelperChannel + 1);
    QProcess helper;
    helper.setChildProcessModifier([copy] { dup2(copy, kPortHelperChannel); });
    helper.start("unshare", {"-rn", PORT_HELPER});
    EXPECT_TRUE(helper.waitForFinished(20'000)) << name;
    EXPECT_EQ(helper.exitCode(), ending) << name;
    close(copy);
  }
  for (const int descriptor : {pair[0], pair[1], pipe[0], pipe[1], lonely}) close(descriptor);
}

TEST_F(PortHelperTest, TellsThatThePortIsInUse) {
  if (!MayUnshare()) GTEST_SKIP() << "no user namespaces here";
  // The first run's socket is held by this process while the second one tries.
  const std::filesystem::path result = folder_ / "result";
  const int first = SocketFromPortHelper(Script("exec unshare -rn sh -c '" PORT_HELPER
                                                "; " PORT_HELPER "; echo $? > " +
                                                result.string() + "'"));
  ASSERT_GE(first, 0);
  close(first);
  EXPECT_EQ(ReadFile(result), std::to_string(kPortInUse) + "\n");
}

TEST_F(PortHelperTest, AnswersBecomeErrors) {
  const auto answer = [this](PortHelperResult result) {
    return SocketFromPortHelper(Script("printf '\\00" + std::to_string(result) + "' >&3"));
  };
  // Where SIGCHLD is ignored, which a program inherits, there is no exit code.
  for (const auto handler : {SIG_DFL, SIG_IGN}) {
    const auto before = std::signal(SIGCHLD, handler);
    EXPECT_EQ(answer(kPortNotPermitted), -EACCES);
    EXPECT_EQ(answer(kPortInUse), -EADDRINUSE);
    EXPECT_EQ(answer(kPortHandedOver), -EIO) << "nothing was handed over";
    EXPECT_EQ(SocketFromPortHelper(Script("exit 0")), -EIO);
    std::signal(SIGCHLD, before);
  }
  EXPECT_EQ(SocketFromPortHelper(folder_ / "none"), -ENOENT);
}

TEST_F(PortHelperTest, ListenerUsesItWhereItMayNotOpenThePortItself) {
  const int own = BindTrapSocket(kTrapPort);
  if (own >= 0) close(own);
  if (own != -EACCES) GTEST_SKIP() << "this user may open the port";
  class : public TrapObserver {
    void OnTrap(const ArrivedTrap&) override {}
  } nobody;
  ListenerOptions options;
  NetSnmpListener alone(options, nobody, [] {});
  EXPECT_GT(alone.StartListening(), 0);
  EXPECT_EQ(alone.WhyNotListening().remedy, "Start the program with sudo.");

  options.portHelper = PORT_HELPER;
  NetSnmpListener refused(options, nobody, [] {});
  EXPECT_GT(refused.StartListening(), 0);
  EXPECT_EQ(refused.WhyNotListening().remedy, HowToBeLetIn(PORT_HELPER, ThisUser()));

  if (!MayUnshare()) return;
  options.portHelper = Script("exec unshare -rn " PORT_HELPER);
  NetSnmpListener helped(options, nobody, [] {});
  EXPECT_EQ(helped.StartListening(), 0);
  EXPECT_EQ(helped.Port(), kTrapPort);
}

TEST_F(PortHelperTest, RefusesToRunByHand) {
  EXPECT_EQ(QProcess::execute(PORT_HELPER), kPortHelperMisused);
  EXPECT_EQ(QProcess::execute(PORT_HELPER, {"argument"}), kPortHelperMisused);
}

}  // namespace
}  // namespace sentrel::test
