#include "bare_path.h"

#include <chrono>
#include <cstdlib>
#include <fstream>

namespace sentrel::bench {

using namespace std::chrono_literals;

BarePath::BarePath(const std::string& configuration, int receiveBuffer)
    : state_(std::filesystem::temp_directory_path() / "sentrel-bench-state"),
      listener_({.port = 0,
                 .portHelper = "",
                 .stateFolder = state_,
                 .configurationPath = state_,
                 .queue = {},
                 .receiveBuffer = receiveBuffer},
                observer_, [this] { Wake(); }) {
  std::filesystem::create_directories(state_);
  std::ofstream(state_ / "sentrel.conf") << configuration;
  if (listener_.StartListening() != 0) std::abort();
  thread_ = std::thread([this] { Run(); });
}

BarePath::~BarePath() {
  done_ = true;
  Wake();
  thread_.join();
  listener_.CloseListener();
  std::error_code ignored;
  std::filesystem::remove_all(state_, ignored);
}

void BarePath::Settle() const {
  std::uint64_t before = 0;
  do {
    before = listener_.Counters().Received();
    std::this_thread::sleep_for(100ms);
  } while (listener_.Counters().Received() != before);
}

void BarePath::Wake() {
  const std::lock_guard lock(mutex_);
  awake_ = true;
  changed_.notify_one();
}

void BarePath::Run() {
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

}  // namespace sentrel::bench
