#include "listener_fixture.h"

#include <chrono>

namespace sentrel::test {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr auto kPatience = 20s;

}  // namespace

QProcessEnvironment EnvironmentIn(const fs::path& folder) {
  auto environment = QProcessEnvironment::systemEnvironment();
  for (const char* name : {"SNMPCONFPATH", "SNMP_PERSISTENT_DIR"}) {
    environment.insert(name, QString::fromStdString(folder));
  }
  environment.insert("MIBS", "");
  return environment;
}

void ListenerTest::Start(const std::string& configuration, QueueLimits limits) {
  const fs::path configured = folder_ / "configuration";
  MakeFolderFor(configured / "sentrel.conf");
  WriteFile(configured / "sentrel.conf", configuration);
  const ListenerOptions options{.port = 0,
                                .stateFolder = folder_ / "state",
                                .configurationPath = configured,
                                .queue = limits};
  listener_ = std::make_unique<NetSnmpListener>(options, *this, [this] {
    onWake_();
    wakes_.release();
  });
  ASSERT_EQ(listener_->StartListening(), 0) << listener_->WhyNotListening().reason;
  ASSERT_NE(listener_->Port(), 0);
}

void ListenerTest::Stop() {
  listener_->StopListening();
  listener_->CloseListener();
}

bool ListenerTest::WaitUntil(const std::function<bool()>& condition) {
  const auto deadline = Clock::now() + kPatience;
  while (Clock::now() < deadline) {
    while (listener_->Deliver(10ms)) {
    }
    if (condition()) return true;
    // Counters change without a wake, so the condition is looked at now and then.
    (void)wakes_.try_acquire_for(10ms);
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

void ListenerTest::ExpectOutcome(Outcome outcome, const std::function<void()>& step) {
  const std::uint64_t before = Count(outcome);
  step();
  EXPECT_TRUE(WaitUntil([&] { return Count(outcome) == before + 1; }))
      << "not " << OutcomeText(outcome);
}

std::string ListenerTest::Caught(const char* tool, const std::vector<std::string>& arguments) {
  UdpSocket catcher;
  SendTo(catcher.Port(), tool, arguments, "127.0.0.1");
  return catcher.Take();
}

int ListenerTest::SendTo(std::uint16_t port, const char* tool,
                         const std::vector<std::string>& arguments, const std::string& host) {
  const std::string address = host + ":" + std::to_string(port);
  QStringList words;
  for (const std::string& argument : arguments) {
    words << QString::fromStdString(argument == "HOST" ? address : argument);
  }
  QProcess process;
  process.setProcessEnvironment(EnvironmentIn(folder_ / "sender"));
  process.setProcessChannelMode(QProcess::ForwardedChannels);
  process.start(tool, words);
  process.waitForFinished(-1);
  return process.exitCode();
}

}  // namespace sentrel::test
