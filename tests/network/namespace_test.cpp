#include <arpa/inet.h>
#include <gmock/gmock.h>
#include <sys/socket.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <thread>

#include "fakes/fake_registry.h"
#include "network/system_network.h"
#include "reception/check_steps.h"
#include "snmp/datagram_socket.h"
#include "snmp/trap_socket.h"

namespace sentrel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

void Shell(const std::string& command) {
  ASSERT_EQ(std::system(command.c_str()), 0) << command;
}

void SendFrame(const std::string& oddity) {
  Shell(std::string("/usr/bin/python3 ") + std::getenv("SENDER") + " " + oddity);
}

/// What the check finds on this network, from when it was made.
class NetworkNamespaceTest : public testing::Test {
 protected:
  std::vector<std::string> LookHere() {
    CheckFacts facts;
    facts.listening = {.port = socket_.Port(),
                       .hasIpv6 = socket_.HasIpv6(),
                       .bufferedTraps = 10'000,
                       .engine = {},
                       .engineBoots = 0,
                       .engineTime = {}};
    facts.firewall = network_.AskFirewall().get();
    facts.testTrap.hasArrived = true;
    facts.lostBefore = before_;
    facts.lostNow = network_.Lost();
    facts.users = 1;
    std::vector<std::string> names;
    for (const CheckStep& step : CheckSteps(facts, settings_)) {
      if (step.verdict == CheckVerdict::kLookHere) names.push_back(step.name);
    }
    return names;
  }
  /// Until something is found; what the system counts late, such as fragments, it does by itself.
  std::vector<std::string> AwaitLookHere() {
    std::vector<std::string> found;
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (found.empty() && std::chrono::steady_clock::now() < end) {
      found = LookHere();
      std::this_thread::yield();
    }
    return found;
  }
  static void SendTo(std::uint16_t port, int times) {
    const int sender = socket(AF_INET, SOCK_DGRAM, 0);
    sockaddr_in target{};
    target.sin_family = AF_INET;
    target.sin_port = htons(port);
    target.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    for (int i = 0; i < times; ++i) {
      sendto(sender, "x", 1, 0, reinterpret_cast<sockaddr*>(&target), sizeof target);
    }
    close(sender);
  }

  const SystemNetwork network_;
  FakeRegistry registry_;
  Settings settings_{registry_};
  DatagramSocket socket_{BindTrapSocket(kTrapPort), 1 << 20};
  LostDatagrams before_ = network_.Lost();
};

TEST_F(NetworkNamespaceTest, FindsNothingWhereNothingIsWrong) {
  SendTo(kTrapPort, 1);
  EXPECT_THAT(LookHere(), IsEmpty());
}

TEST_F(NetworkNamespaceTest, NamesAFirewallThatKeepsThePortOut) {
  Shell(
      "nft 'add table inet t; add chain inet t in { type filter hook input priority 0; policy "
      "drop; }; add rule inet t in iif lo accept'");
  EXPECT_THAT(LookHere(), ElementsAre("Firewall"));
  Shell("nft 'add rule inet t in udp dport 162 accept'");
  EXPECT_THAT(LookHere(), IsEmpty());
  Shell(
      "nft 'flush chain inet t in; add rule inet t in udp dport { 161, 162 } counter drop; add "
      "chain inet t in { policy accept; }'");
  EXPECT_THAT(LookHere(), ElementsAre("Firewall"));
  Shell("nft flush ruleset");
}

TEST_F(NetworkNamespaceTest, NamesAPortThatNobodyHasOpen) {
  SendTo(1162, 3);
  EXPECT_THAT(AwaitLookHere(), ElementsAre("Closed ports"));
}

TEST_F(NetworkNamespaceTest, NamesABufferThatIsTooSmall) {
  const int tiny = 1;
  setsockopt(socket_.Descriptor(), SOL_SOCKET, SO_RCVBUF, &tiny, sizeof tiny);
  SendTo(kTrapPort, 100);
  EXPECT_THAT(AwaitLookHere(), ElementsAre("Full buffers"));
}

TEST_F(NetworkNamespaceTest, NamesAWayBackThatIsAnother) {
  Shell("echo 1 > /proc/sys/net/ipv4/conf/near/rp_filter");
  SendFrame("sender");
  EXPECT_THAT(AwaitLookHere(), ElementsAre("Reverse path"));
  Shell("echo 0 > /proc/sys/net/ipv4/conf/near/rp_filter");
}

TEST_F(NetworkNamespaceTest, NamesDamagedAndIncompleteDatagrams) {
  SendFrame("checksum");
  EXPECT_THAT(AwaitLookHere(), ElementsAre("Checksums"));
  before_ = network_.Lost();
  Shell("echo 1 > /proc/sys/net/ipv4/ipfrag_time");
  SendFrame("fragment");
  EXPECT_THAT(AwaitLookHere(), ElementsAre("Fragments"));
}

}  // namespace
}  // namespace sentrel
