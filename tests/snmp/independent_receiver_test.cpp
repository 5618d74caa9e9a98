#include <gmock/gmock.h>

#include <chrono>

#include "fakes/free_port.h"
#include "listener_fixture.h"
#include "snmp/sender.h"

namespace sentrel::test {
namespace {

using testing::HasSubstr;
using namespace std::chrono_literals;

/// The field's own trap receiver, which writes what it gets to a file.
struct IndependentReceiver : testing::Test {
  void SetUp() override {
    if (std::string(SNMPTRAPD).ends_with("NOTFOUND")) GTEST_SKIP() << "there is no snmptrapd";
    WriteFile(folder_ + "/snmptrapd.conf", "disableAuthorization yes\n");
    receiver_.setProcessEnvironment(EnvironmentIn(folder_));
    receiver_.start(SNMPTRAPD, {"-f", "-n", "-On", "-c", temporary_.filePath("snmptrapd.conf"),
                                "-Lf", temporary_.filePath("log"), "-F", "%P|%v|\n",
                                QString("udp:127.0.0.1:%1").arg(port_)});
    AwaitLog("NET-SNMP version");
  }
  void TearDown() override {
    receiver_.kill();
    receiver_.waitForFinished();
  }
  void AwaitLog(const std::string& text) {
    const auto end = std::chrono::steady_clock::now() + 20s;
    while (ReadFile(log_).find(text) == std::string::npos) {
      ASSERT_LT(std::chrono::steady_clock::now(), end) << ReadFile(log_);
      ASSERT_FALSE(receiver_.waitForFinished(1));
    }
  }

  const QTemporaryDir temporary_;
  const std::string folder_ = temporary_.path().toStdString();
  const std::string log_ = folder_ + "/log";
  const std::uint16_t port_ = FreePort();
  QProcess receiver_;
};

TEST_F(IndependentReceiver, SeesEveryTypeAsItself) {
  const std::string id = "1.3.6.1.4.1.58213.1";
  std::vector<std::string> ids(13, id);
  ids[0] = "1.3.6.1.6.3.1.1.4.1.0";  // a receiver insists on the trap's own OID
  EXPECT_EQ(Sender(port_).SendTrap("127.0.0.1", "a b", ids,
                                   {id, "0", "-5", "0x00FF1A", "", "192.0.2.1", "65", "66", "1.5",
                                    "-2.25", "3.141592653589793", "18446744073709551615", "last"},
                                   {6, 67, 2, 4, 5, 64, 65, 66, 68, 68, 68, 70, 4}),
            0);
  AwaitLog("\"last\"|");
  std::string seen = "TRAP2, SNMP v2c, community a b|." + ids[0] + " = OID: ." + id;
  for (const char* value :
       {"Timeticks: (0) 0:00:00.00", "INTEGER: -5", "Hex-STRING: 00 FF 1A ", "NULL",
        "IpAddress: 192.0.2.1", "Counter32: 65", "Gauge32: 66", "Opaque: Float: 1.500000",
        "Opaque: Float: -2.250000", "Opaque: Float: 3.141593", "Counter64: 18446744073709551615",
        "STRING: \"last\""}) {
    seen += "\t." + id + " = " + value;
  }
  EXPECT_THAT(ReadFile(log_), HasSubstr(seen + "|"));
}

}  // namespace
}  // namespace sentrel::test
