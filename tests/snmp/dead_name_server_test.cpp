#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <chrono>

#include "listener_fixture.h"
#include "snmp/datagram_socket.h"
#include "snmp/sender.h"

namespace sentrel::test {
namespace {

using namespace std::chrono_literals;

/// A name server that takes every question and answers none. It needs a network of its own: see
/// dead_name_server_test.sh, which runs these tests.
class SilentNameServer {
 public:
  SilentNameServer() {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(53);
    bind(socket_.Descriptor(), reinterpret_cast<const sockaddr*>(&address), sizeof address);
  }
  bool WasAsked() { return !socket_.ReadBatch().empty(); }

 private:
  DatagramSocket socket_{socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0), 1 << 20};
};

using DISABLED_DeadNameServer = ListenerTest;

TEST_F(DISABLED_DeadNameServer, HoldsTheWindowForFiveSecondsAtMostAndCostsNoTrap) {
  SilentNameServer server;
  Start();
  const std::uint16_t port = Listener().Port();
  std::thread others([port] {
    Sender sender(port);
    for (int i = 0; i < 1'000; ++i) sender.SendTrap("127.0.0.1", "public", {}, {}, {});
  });
  Sender sender;
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_EQ(sender.ResolveHost("noc.example"), "");
  const auto taken = std::chrono::steady_clock::now() - begin;
  others.join();
  EXPECT_TRUE(server.WasAsked());
  EXPECT_EQ(sender.StatusText(), "No name server answers the question for \"noc.example\".");
  EXPECT_GT(taken, 3s) << "a slow server gets its chance";
  EXPECT_LT(taken, 5s);
  EXPECT_TRUE(WaitForTraps(1'000));
}

}  // namespace
}  // namespace sentrel::test
