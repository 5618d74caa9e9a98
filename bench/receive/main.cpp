// The bare receive path: from the socket to OnTrap, with an observer that does nothing. Prints the
// processor time a trap costs, against a bound and against the field's own receiver, and what is
// lost at which rate.

#include <sys/resource.h>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <mutex>
#include <thread>

#include "peer.h"
#include "snmp/net_snmp_listener.h"
#include "storm.h"

namespace sentrel::bench {
namespace {

using namespace std::chrono_literals;

constexpr double kBoundMicroseconds = 5;

class Nothing : public TrapObserver {
 public:
  void OnTrap(const Trap&) override {}
};

/// An event loop on a thread of its own that does nothing but deliver.
class Loop {
 public:
  Loop()
      : state_(std::filesystem::temp_directory_path() / "sentrel-bench-state"),
        listener_({.port = 0,
                   .portHelper = "",
                   .stateFolder = state_,
                   .configurationPath = state_,
                   .queue = {}},
                  observer_, [this] { Wake(); }) {
    if (listener_.StartListening() != 0) std::abort();
    thread_ = std::thread([this] { Run(); });
  }
  ~Loop() {
    done_ = true;
    Wake();
    thread_.join();
    listener_.CloseListener();
    std::error_code ignored;
    std::filesystem::remove_all(state_, ignored);
  }
  Loop(const Loop&) = delete;
  Loop& operator=(const Loop&) = delete;
  NetSnmpListener& Listener() { return listener_; }

 private:
  void Wake() {
    const std::lock_guard lock(mutex_);
    awake_ = true;
    changed_.notify_one();
  }
  void Run() {
    while (!done_) {
      {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [this] { return awake_; });
        awake_ = false;
      }
      while (listener_.Deliver(10ms)) {
      }
    }
  }

  Nothing observer_;
  std::filesystem::path state_;
  std::mutex mutex_;
  std::condition_variable changed_;
  bool awake_ = false;
  std::atomic<bool> done_ = false;
  NetSnmpListener listener_;
  std::thread thread_;
};

double ProcessSeconds() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
  };
  return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

/// Waits until nothing more arrives.
void Settle(const NetSnmpListener& listener) {
  std::uint64_t before = 0;
  do {
    before = listener.Counters().Received();
    std::this_thread::sleep_for(100ms);
  } while (listener.Counters().Received() != before);
}

void Measure(NetSnmpListener& listener, std::uint32_t rate, std::uint32_t count) {
  const std::uint64_t accepted = listener.Counters().Of(Outcome::kAccepted);
  const double before = ProcessSeconds();
  const double seconds = SendStorm(listener.Port(), count, rate);
  Settle(listener);
  const auto arrived = static_cast<double>(listener.Counters().Of(Outcome::kAccepted) - accepted);
  const double each = (ProcessSeconds() - before) / arrived * 1e6;
  std::printf("%9u  %9.0f  %6.2f us  %5.2f x bound  %7.3f %% lost\n", rate, count / seconds, each,
              each / kBoundMicroseconds, 100 * (1 - arrived / count));
}

void Compare(std::uint16_t port) {
  constexpr std::uint32_t kRate = 5'000;
  if (const auto peer = PeerSecondsPerTrap(port, 2 * kRate, kRate)) {
    std::printf("snmptrapd, %u traps/s: %.2f us a trap\n", kRate, *peer * 1e6);
  } else {
    std::printf("snmptrapd is not installed: no comparison\n");
  }
}

void Main() {
  std::uint16_t port = 0;
  {
    Loop loop;
    port = loop.Listener().Port();
    std::printf("bound: %.0f us of processor time a trap\n", kBoundMicroseconds);
    std::printf("%9s  %9s\n", "asked/s", "sent/s");
    for (const std::uint32_t rate : {1'000, 5'000, 20'000, 60'000, 100'000, 0}) {
      Measure(loop.Listener(), rate, rate == 0 ? 400'000 : 3 * rate);
    }
  }
  Compare(port);
}

}  // namespace
}  // namespace sentrel::bench

int main() {
  sentrel::bench::Main();
}
