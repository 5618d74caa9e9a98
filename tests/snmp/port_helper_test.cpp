#include "snmp/port_helper.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cerrno>

#include "listener_fixture.h"
#include "snmp/datagram_socket.h"

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
  const int descriptor = SocketFromPortHelper(Script("exec unshare -rn " PORT_HELPER));
  ASSERT_GE(descriptor, 0) << -descriptor;
  const DatagramSocket socket(descriptor);
  EXPECT_EQ(socket.Port(), 162);
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

TEST_F(PortHelperTest, ExitCodesBecomeErrors) {
  const auto ending = [this](int code) {
    return SocketFromPortHelper(Script("exit " + std::to_string(code)));
  };
  EXPECT_EQ(ending(kPortNotPermitted), -EACCES);
  EXPECT_EQ(ending(kPortInUse), -EADDRINUSE);
  EXPECT_EQ(ending(kPortHandedOver), -EIO) << "nothing was handed over";
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
  EXPECT_NE(refused.WhyNotListening().remedy.find("sudo setcap"), std::string::npos);

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
