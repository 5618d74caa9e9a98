#include "snmp/state_writer.h"

#include <algorithm>
#include <utility>

namespace sentrel {
namespace {

constexpr std::chrono::seconds kAfterChange{1};
constexpr std::chrono::seconds kBetweenWrites{10};

}  // namespace

StateWriter::StateWriter(std::function<void()> write)
    : write_(std::move(write)), thread_([this] { Run(); }) {}

StateWriter::~StateWriter() {
  {
    const std::lock_guard lock(mutex_);
    ending_ = true;
  }
  woken_.notify_one();
  thread_.join();
}

void StateWriter::Changed() {
  if (changed_.load(std::memory_order_relaxed) || changed_.exchange(true)) return;
  // The thread is either before its look at changed_ or waiting.
  const std::lock_guard lock(mutex_);
  woken_.notify_one();
}

bool StateWriter::WaitUntil(Clock::time_point moment) {
  std::unique_lock lock(mutex_);
  return !woken_.wait_until(lock, moment, [this] { return ending_; });
}

void StateWriter::Run() {
  Clock::time_point earliest = Clock::now();
  while (true) {
    {
      std::unique_lock lock(mutex_);
      woken_.wait(lock, [this] { return changed_ || ending_; });
    }
    if (!WaitUntil(std::max(Clock::now() + kAfterChange, earliest))) return;
    changed_ = false;
    write_();
    earliest = Clock::now() + kBetweenWrites;
  }
}

}  // namespace sentrel
