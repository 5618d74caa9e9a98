#include "storm.h"

#include <arpa/inet.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <string>
#include <thread>

namespace sentrel::bench {
namespace {

using Clock = std::chrono::steady_clock;

std::string Tagged(char tag, const std::string& content) {
  std::string coded(1, tag);
  if (content.size() >= 0x80) coded += '\x81';
  coded += static_cast<char>(content.size());
  return coded + content;
}

std::string Binding(const std::string& id, char tag, const std::string& value) {
  return Tagged('\x30', Tagged('\x06', id) + Tagged(tag, value));
}

/// A link-down notification as a switch sends it: ifIndex, ifAdminStatus, ifOperStatus, ifDescr.
std::string LinkDown() {
  const std::string interface = "\x2b\x06\x01\x02\x01\x02\x02\x01";
  const std::string zero(1, '\0');
  const std::string bindings =
      Binding("\x2b\x06\x01\x02\x01\x01\x03" + zero, '\x43', "\x12\x34\x56") +
      Binding("\x2b\x06\x01\x06\x03\x01\x01\x04\x01" + zero, '\x06',
              "\x2b\x06\x01\x06\x03\x01\x01\x05\x03") +
      Binding(interface + "\x01\x07", '\x02', "\x07") +
      Binding(interface + "\x07\x07", '\x02', "\x01") +
      Binding(interface + "\x08\x07", '\x02', "\x02") +
      Binding(interface + "\x02\x07", '\x04', "GigabitEthernet0/7");
  const std::string number = "\x02\x01" + zero;
  const std::string pdu = "\x02\x01\x01" + number + number + Tagged('\x30', bindings);
  return Tagged('\x30', "\x02\x01\x01" + Tagged('\x04', "public") + Tagged('\xa7', pdu));
}

void SendAll(std::uint16_t port, std::uint32_t count, std::uint32_t rate) {
  const int socket = ::socket(AF_INET, SOCK_DGRAM, 0);
  sockaddr_in to{};
  to.sin_family = AF_INET;
  to.sin_port = htons(port);
  to.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  if (connect(socket, reinterpret_cast<const sockaddr*>(&to), sizeof to) != 0) std::_Exit(1);
  const std::string trap = LinkDown();
  const Clock::time_point start = Clock::now();
  // A millisecond's worth at a time, so that pacing costs little.
  const std::uint32_t slice = rate == 0 ? count : rate / 1'000 + 1;
  for (std::uint32_t sent = 0; sent < count; ++sent) {
    if (rate != 0 && sent % slice == 0) {
      std::this_thread::sleep_until(start + std::chrono::nanoseconds(1'000'000'000) * sent / rate);
    }
    while (send(socket, trap.data(), trap.size(), 0) < 0) std::this_thread::yield();
  }
}

}  // namespace

double SendStorm(std::uint16_t port, std::uint32_t count, std::uint32_t rate) {
  const Clock::time_point start = Clock::now();
  const pid_t sender = fork();
  if (sender < 0) std::abort();
  if (sender == 0) {
    SendAll(port, count, rate);
    std::_Exit(0);
  }
  int status = 0;
  waitpid(sender, &status, 0);
  if (status != 0) std::abort();
  return std::chrono::duration<double>(Clock::now() - start).count();
}

}  // namespace sentrel::bench
