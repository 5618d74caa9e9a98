#include "snmp/listen_failure.h"

#include <gmock/gmock.h>
#include <grp.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "listener_fixture.h"
#include "snmp/port_holder.h"
#include "snmp/port_permission.h"

namespace sentrel::test {
namespace {

using testing::AllOf, testing::HasSubstr, testing::Not;

using ListenFailureTest = ListenerTest;

TEST_F(ListenFailureTest, SecondListenerIsToldWhoHoldsThePort) {
  Start();
  const ListenerOptions options{.port = Listener().Port(), .stateFolder = folder_ / "second"};
  NetSnmpListener second(options, *this, [] {});
  EXPECT_GT(second.StartListening(), 0);
  EXPECT_FALSE(second.IsListening());
  EXPECT_EQ(second.WhyNotListening().reason, "UDP port " + std::to_string(options.port) +
                                                 " is in use by test_snmp (process " +
                                                 std::to_string(getpid()) + ").");
  EXPECT_THAT(second.WhyNotListening().remedy, HasSubstr("Another copy"));
  EXPECT_FALSE(std::filesystem::exists(options.stateFolder)) << "a failed start leaves no trace";
  EXPECT_TRUE(Listener().IsListening());
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
  NetSnmpListener listener({.port = port, .stateFolder = folder_ / "state"}, *this, [] {});
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
    NetSnmpListener listener({.port = 0, .stateFolder = folder}, *this, [] {});
    EXPECT_EQ(listener.StartListening(), 0) << folder;
  }
}

TEST(ExplainListenFailure, NamesTheExactRemedy) {
  EXPECT_EQ(ExplainListenFailure(EACCES, 162, "").reason,
            "This user may not open UDP port 162 (permission denied).");
  EXPECT_THAT(ExplainListenFailure(EMFILE, 162, "").reason, HasSubstr("Too many open files"));
  // The processes of other users look to this one like none at all.
  const std::uint16_t port = FreePort();
  EXPECT_THAT(ExplainListenFailure(EADDRINUSE, port, "").remedy,
              HasSubstr("sudo ss -lunp 'sport = :" + std::to_string(port) + "'"));
}

/// A helper of another owner than root, and of a group of his.
struct PortPermissionTest : testing::Test {
  PortPermissionTest() {
    const bool root = geteuid() == 0;
    const passwd* const entry = root ? getpwnam("games") : getpwuid(geteuid());
    owner = {entry->pw_uid, entry->pw_name, {entry->pw_gid}};
    group = getgrgid(entry->pw_gid)->gr_name;
    WriteFile(helper, "");
    EXPECT_EQ(chown(helper.c_str(), owner.id, owner.groups[0]), 0);
  }
  std::string RemedyFor(const PortUser& user, mode_t mode) const {
    EXPECT_EQ(chmod(helper.c_str(), mode), 0);
    return HowToBeLetIn(helper, user);
  }

  const QTemporaryDir temporary;
  const std::string helper = temporary.filePath("the helper").toStdString();
  PortUser owner;
  std::string group;
};

TEST_F(PortPermissionTest, NamesTheCommandThatLetsThisUserIn) {
  const PortUser stranger{owner.id + 1, "ann", {}};
  const PortUser newMember{owner.id + 1, owner.name, {}};
  const std::string start = "\r\nsg " + group + " -c /";
  EXPECT_THAT(RemedyFor(stranger, 0750),
              AllOf(HasSubstr("\r\nsudo adduser ann " + group + "\r\n"), HasSubstr(start)));
  EXPECT_THAT(RemedyFor(newMember, 0750), AllOf(Not(HasSubstr("sudo")), HasSubstr(start)));
  EXPECT_THAT(RemedyFor(stranger, 0700), HasSubstr("with sudo"));
  EXPECT_THAT(RemedyFor(owner, 0755),
              HasSubstr("\r\nchmod 700 '" + helper + "' && sudo setcap cap_net_bind_service=ep '" +
                        helper + "'\r\n"));
  EXPECT_THAT(HowToBeLetIn("/usr/bin/env", stranger),
              HasSubstr("\r\nsudo dpkg-reconfigure sentrel && sudo adduser ann sentrel\r\n"));
  EXPECT_THAT(HowToBeLetIn("/no/such/helper", stranger), HasSubstr("with sudo"));
}

}  // namespace
}  // namespace sentrel::test
