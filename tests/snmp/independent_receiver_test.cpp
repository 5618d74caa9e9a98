#include <gmock/gmock.h>

#include <chrono>
#include <thread>

#include "fakes/free_port.h"
#include "listener_fixture.h"
#include "process.h"
#include "snmp/sender.h"

namespace sentrel::test {
namespace {

using testing::HasSubstr;
using namespace std::chrono_literals;

/// The field's own trap receiver, which writes what it gets to a file.
struct IndependentReceiver : testing::Test {
  void SetUp() override {
    if (std::string(SNMPTRAPD).ends_with("NOTFOUND")) GTEST_SKIP() << "there is no snmptrapd";
    WriteFile(folder_.Path() / "snmptrapd.conf", "disableAuthorization yes\n");
    const std::string own = folder_.Path();
    receiver_ = std::make_unique<Process>(
        std::vector<std::string>{SNMPTRAPD, "-f", "-n", "-On", "-c", own + "/snmptrapd.conf", "-Lf",
                                 log_, "-F", "%P|%v|\n", "udp:127.0.0.1:" + std::to_string(port_)},
        std::vector<std::string>{"SNMPCONFPATH=" + own, "SNMP_PERSISTENT_DIR=" + own, "MIBS="});
    AwaitLog("NET-SNMP version");
  }
  void AwaitLog(const std::string& text) {
    const auto end = std::chrono::steady_clock::now() + 20s;
    while (ReadFile(log_).find(text) == std::string::npos) {
      ASSERT_LT(std::chrono::steady_clock::now(), end) << ReadFile(log_);
      ASSERT_TRUE(receiver_->Running());
      std::this_thread::yield();
    }
  }

  const TemporaryFolder folder_;
  const std::string log_ = folder_.Path() / "log";
  const std::uint16_t port_ = FreePort();
  std::unique_ptr<Process> receiver_;
};

TEST_F(IndependentReceiver, SeesTheTestTrapAsItWasBuilt) {
  EXPECT_EQ(Sender(port_).SendTrap(
                "127.0.0.1", "a b",
                {"1.3.6.1.2.1.1.3.0", "1.3.6.1.6.3.1.1.4.1.0", "1.3.6.1.6.3.1.1.4.3.0",
                 "1.3.6.1.4.1.58213.10.1"},
                {"0", "1.3.6.1.4.1.58213.10", "1.3.6.1.4.1.58213", "Test trap at 03:49 PM"},
                {67, 6, 6, 4}),
            0);
  AwaitLog("PM\"|");
  EXPECT_THAT(ReadFile(log_),
              HasSubstr("TRAP2, SNMP v2c, community a b"
                        "|.1.3.6.1.2.1.1.3.0 = Timeticks: (0) 0:00:00.00\t"
                        ".1.3.6.1.6.3.1.1.4.1.0 = OID: .1.3.6.1.4.1.58213.10\t"
                        ".1.3.6.1.6.3.1.1.4.3.0 = OID: .1.3.6.1.4.1.58213\t"
                        ".1.3.6.1.4.1.58213.10.1 = STRING: \"Test trap at 03:49 PM\"|"));
}

TEST_F(IndependentReceiver, SeesEveryTypeAsItself) {
  const std::string id = "1.3.6.1.4.1.58213.1";
  std::vector<std::string> ids(12, id);
  ids[0] = "1.3.6.1.6.3.1.1.4.1.0";  // a receiver insists on the trap's own OID
  EXPECT_EQ(Sender(port_).SendTrap("127.0.0.1", "", ids,
                                   {id, "-5", "0x00FF1A", "", "192.0.2.1", "65", "66", "1.5",
                                    "-2.25", "3.141592653589793", "18446744073709551615", "last"},
                                   {6, 2, 4, 5, 64, 65, 66, 68, 68, 68, 70, 4}),
            0);
  AwaitLog("\"last\"|");
  std::string seen;
  for (const char* value :
       {"INTEGER: -5", "Hex-STRING: 00 FF 1A ", "NULL", "IpAddress: 192.0.2.1", "Counter32: 65",
        "Gauge32: 66", "Opaque: Float: 1.500000", "Opaque: Float: -2.250000",
        "Opaque: Float: 3.141593", "Counter64: 18446744073709551615", "STRING: \"last\""}) {
    seen += "\t." + id + " = " + value;
  }
  EXPECT_THAT(ReadFile(log_), HasSubstr(seen + "|"));
}

}  // namespace
}  // namespace sentrel::test
