#include "peer.h"

#include <arpa/inet.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <thread>

#include "process_time.h"

namespace sentrel::bench {
namespace {

using namespace std::chrono_literals;

bool Listens(std::uint16_t port) {
  std::string coded;
  for (int shift = 12; shift >= 0; shift -= 4) coded += "0123456789ABCDEF"[port >> shift & 0xF];
  std::ifstream list("/proc/net/udp");
  for (std::string line; std::getline(list, line);) {
    if (line.find(":" + coded + " ") != std::string::npos) return true;
  }
  return false;
}

pid_t Start(std::uint16_t port, const std::string& log) {
  const std::string address = "udp:127.0.0.1:" + std::to_string(port);
  const pid_t peer = fork();
  if (peer != 0) return peer;
  setenv("MIBS", "", 1);
  execlp("snmptrapd", "snmptrapd", "-f", "-n", "-On", "-Lf", log.c_str(),
         "--disableAuthorization=yes", address.c_str(), nullptr);
  std::_Exit(127);
}

}  // namespace

Peer::Peer(std::uint16_t port)
    : log_(std::filesystem::temp_directory_path() / ("peer-" + std::to_string(port) + ".log")),
      process_(Start(port, log_)) {
  while (!Listens(port)) {
    if (waitpid(process_, nullptr, WNOHANG) != 0) {
      process_ = -1;
      return;
    }
    std::this_thread::sleep_for(5ms);
  }
}

Peer::~Peer() {
  if (Runs()) {
    kill(process_, SIGTERM);
    waitpid(process_, nullptr, 0);
  }
  std::error_code ignored;
  std::filesystem::remove(log_, ignored);
}

double Peer::Seconds() const {
  return SecondsOf(process_);
}

std::uint64_t Peer::Received() const {
  std::ifstream file(log_, std::ios::binary);
  std::uint64_t traps = 0;
  for (std::string line; std::getline(file, line);) {
    // Each trap begins with a line that names its sender.
    if (line.find("[UDP: ") != std::string::npos) ++traps;
  }
  return traps;
}

void Peer::Settle() const {
  std::uintmax_t before = 0;
  std::error_code ignored;
  do {
    before = std::filesystem::file_size(log_, ignored);
    std::this_thread::sleep_for(300ms);
  } while (std::filesystem::file_size(log_, ignored) != before);
}

std::uint16_t FreePort() {
  const int socket = ::socket(AF_INET, SOCK_DGRAM, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t length = sizeof address;
  const bool bound = bind(socket, reinterpret_cast<const sockaddr*>(&address), length) == 0 &&
                     getsockname(socket, reinterpret_cast<sockaddr*>(&address), &length) == 0;
  close(socket);
  if (!bound) std::abort();
  return ntohs(address.sin_port);
}

}  // namespace sentrel::bench
