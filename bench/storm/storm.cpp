#include "storm.h"

#include <arpa/inet.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <thread>

namespace sentrel::bench {
namespace {

using Clock = std::chrono::steady_clock;

int Connected(std::uint16_t port) {
  const int socket = ::socket(AF_INET, SOCK_DGRAM, 0);
  sockaddr_in to{};
  to.sin_family = AF_INET;
  to.sin_port = htons(port);
  to.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  if (connect(socket, reinterpret_cast<const sockaddr*>(&to), sizeof to) != 0) std::_Exit(1);
  return socket;
}

void SendAll(std::uint16_t port, const StormPlan& plan, const Datagrams& datagrams) {
  const int socket = Connected(port);
  const Clock::time_point start = Clock::now();
  // A millisecond's worth at a time, so that pacing costs little.
  const std::uint32_t slice = plan.rate == 0 ? plan.count : plan.rate / 1'000 + 1;
  std::size_t next = 0;
  for (std::uint32_t sent = 0; sent < plan.count; ++sent) {
    if (plan.rate != 0 && sent % slice == 0) {
      std::this_thread::sleep_until(start +
                                    std::chrono::nanoseconds(1'000'000'000) * sent / plan.rate);
    }
    const std::string& trap = datagrams[next];
    if (++next == datagrams.size()) next = 0;
    while (send(socket, trap.data(), trap.size(), 0) < 0) std::this_thread::yield();
  }
}

}  // namespace

Storm::Storm(std::uint16_t port, const StormPlan& plan, const Datagrams& datagrams)
    : count_(plan.count), sender_(fork()) {
  if (sender_ < 0) std::abort();
  if (sender_ > 0) return;
  SendAll(port, plan, datagrams);
  std::_Exit(0);
}

bool Storm::Rages() {
  int status = 0;
  if (sender_ != 0 && waitpid(sender_, &status, WNOHANG) != 0) End(status);
  return sender_ != 0;
}

void Storm::Await() {
  int status = 0;
  if (sender_ == 0) return;
  waitpid(sender_, &status, 0);
  End(status);
}

void Storm::End(int status) {
  if (status != 0) std::abort();
  seconds_ = Clock::now() - start_;
  sender_ = 0;
}

}  // namespace sentrel::bench
