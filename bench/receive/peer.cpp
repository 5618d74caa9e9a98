#include "peer.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <string>
#include <thread>

#include "storm.h"

namespace sentrel::bench {
namespace {

using namespace std::chrono_literals;

double Seconds(const timeval& time) {
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

double ChildSeconds() {
  rusage usage{};
  getrusage(RUSAGE_CHILDREN, &usage);
  return Seconds(usage.ru_utime) + Seconds(usage.ru_stime);
}

bool Listens(std::uint16_t port) {
  std::string coded;
  for (int shift = 12; shift >= 0; shift -= 4) coded += "0123456789ABCDEF"[port >> shift & 0xF];
  std::ifstream list("/proc/net/udp");
  for (std::string line; std::getline(list, line);) {
    if (line.find(":" + coded + " ") != std::string::npos) return true;
  }
  return false;
}

pid_t StartPeer(std::uint16_t port) {
  const std::string address = "udp:127.0.0.1:" + std::to_string(port);
  const pid_t peer = fork();
  if (peer != 0) return peer;
  setenv("MIBS", "", 1);
  execlp("snmptrapd", "snmptrapd", "-f", "-n", "-On", "-C", "-Lf", "/dev/null",
         "--disableAuthorization=yes", address.c_str(), nullptr);
  std::_Exit(127);
}

bool Ended(pid_t process) {
  return waitpid(process, nullptr, WNOHANG) != 0;
}

/// Processor time of one life of the peer in which it receives so many traps.
std::optional<double> LifeSeconds(std::uint16_t port, std::uint32_t count, std::uint32_t rate) {
  const pid_t peer = StartPeer(port);
  while (!Listens(port)) {
    if (Ended(peer)) return std::nullopt;
    std::this_thread::sleep_for(5ms);
  }
  if (count > 0) SendStorm(port, count, rate);
  // Time to read what still waits in its socket.
  std::this_thread::sleep_for(200ms);
  const double before = ChildSeconds();
  kill(peer, SIGTERM);
  waitpid(peer, nullptr, 0);
  return ChildSeconds() - before;
}

}  // namespace

std::optional<double> PeerSecondsPerTrap(std::uint16_t port, std::uint32_t count,
                                         std::uint32_t rate) {
  const auto idle = LifeSeconds(port, 0, rate);
  const auto busy = LifeSeconds(port, count, rate);
  if (!idle || !busy) return std::nullopt;
  return (*busy - *idle) / count;
}

}  // namespace sentrel::bench
