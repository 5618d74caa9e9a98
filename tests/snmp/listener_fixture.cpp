#include "listener_fixture.h"

#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "process.h"

namespace sentrel::test {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr auto kPatience = 20s;

}  // namespace

TemporaryFolder::TemporaryFolder() {
  std::string name = fs::temp_directory_path() / "sentrel-test-XXXXXX";
  if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
  path_ = name;
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  fs::remove_all(path_, ignored);
}

UdpSender::UdpSender(std::uint16_t port) : socket_(socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0)) {
  sockaddr_in to{};
  to.sin_family = AF_INET;
  to.sin_port = htons(port);
  to.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  if (connect(socket_, reinterpret_cast<const sockaddr*>(&to), sizeof to) != 0) {
    throw std::runtime_error("cannot connect a UDP socket");
  }
}

UdpSender::~UdpSender() {
  close(socket_);
}

void UdpSender::Send(const std::string& bytes) const {
  while (send(socket_, bytes.data(), bytes.size(), 0) < 0) {
    if (errno != ENOBUFS && errno != EAGAIN) throw std::runtime_error("cannot send");
  }
}

std::string ReadFile(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream content;
  content << file.rdbuf();
  return content.str();
}

void WriteFile(const fs::path& path, const std::string& content) {
  std::ofstream(path, std::ios::binary) << content;
}

void ListenerTest::Start(const std::string& configuration, QueueLimits limits) {
  const fs::path configured = folder_.Path() / "configuration";
  fs::create_directories(configured);
  WriteFile(configured / "sentrel.conf", configuration);
  ListenerOptions options;
  options.port = 0;
  options.stateFolder = folder_.Path() / "state";
  options.configurationPath = configured;
  options.queue = limits;
  listener_ = std::make_unique<NetSnmpListener>(options, *this, [this] { Wake(); });
  ASSERT_EQ(listener_->StartListening(), 0) << listener_->WhyNotListening().reason;
  ASSERT_NE(listener_->Port(), 0);
}

void ListenerTest::Stop() {
  listener_->StopListening();
  listener_->CloseListener();
}

void ListenerTest::Wake() {
  const std::lock_guard lock(mutex_);
  awake_ = true;
  changed_.notify_one();
}

bool ListenerTest::WaitUntil(const std::function<bool()>& condition) {
  const auto deadline = Clock::now() + kPatience;
  while (Clock::now() < deadline) {
    while (listener_->Deliver(10ms)) {
    }
    if (condition()) return true;
    std::unique_lock lock(mutex_);
    // Counters change without a wake, so the condition is looked at now and then.
    changed_.wait_for(lock, 10ms, [this] { return awake_; });
    awake_ = false;
  }
  return false;
}

bool ListenerTest::WaitBlockedUntil(const std::function<bool()>& condition) {
  const auto deadline = Clock::now() + kPatience;
  while (!condition()) {
    if (Clock::now() >= deadline) return false;
    std::this_thread::yield();
  }
  return true;
}

int ListenerTest::Send(const std::string& tool, std::vector<std::string> arguments,
                       const std::string& host) {
  const std::string address = host + ":" + std::to_string(listener_->Port());
  for (std::string& argument : arguments) {
    if (argument == "HOST") argument = address;
  }
  arguments.insert(arguments.begin(), tool);
  const fs::path own = folder_.Path() / "sender";
  return RunCommand(
      arguments, {"SNMPCONFPATH=" + own.string(), "SNMP_PERSISTENT_DIR=" + own.string(), "MIBS="});
}

}  // namespace sentrel::test
