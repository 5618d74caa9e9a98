#include "desktop/event_loop.h"

#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <memory>
#include <utility>

namespace sentrel {
namespace {

constexpr int kEndSignals[] = {SIGTERM, SIGINT, SIGHUP};

volatile sig_atomic_t signalPipe = -1;

void OnSignal(int) {
  const char byte = 0;
  [[maybe_unused]] const auto written = write(signalPipe, &byte, 1);
}

/// Never destroyed: it is looked at when the process ends.
std::function<void()>& JobOfForcedEnd() {
  static auto* const job = new std::function<void()>;
  return *job;
}

void OnExit() {
  const std::function<void()> job = std::exchange(JobOfForcedEnd(), nullptr);
  if (!job) return;
  job();
  std::_Exit(EXIT_FAILURE);
}

}  // namespace

Wakeup::Wakeup(std::function<bool()> job, std::chrono::milliseconds rest)
    : job_(std::move(job)), rest_(rest) {
  resting_.setSingleShot(true);
  resting_.setTimerType(Qt::PreciseTimer);
  connect(&resting_, &QTimer::timeout, this, [this] { EndRest(); });
}

void Wakeup::Wake() {
  if (state_.fetch_or(kAsked) == 0) Post();
}

void Wakeup::Post() {
  QMetaObject::invokeMethod(
      this, [this] { Run(); }, Qt::QueuedConnection);
}

void Wakeup::Run() {
  state_ = kResting;
  if (job_()) return Post();
  resting_.start(rest_);
}

void Wakeup::EndRest() {
  if (state_.fetch_and(~kResting) & kAsked) Run();
}

EndRequest::EndRequest(std::function<void()> job) {
  if (pipe2(pipe_, O_CLOEXEC | O_NONBLOCK) != 0) pipe_[0] = pipe_[1] = -1;
  signalPipe = pipe_[1];
  notifier_ = std::make_unique<QSocketNotifier>(pipe_[0], QSocketNotifier::Read);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, [this, job = std::move(job)] {
    char byte = 0;
    while (read(pipe_[0], &byte, 1) > 0) {
    }
    job();
  });
  for (const int signal : kEndSignals) std::signal(signal, OnSignal);
}

EndRequest::~EndRequest() {
  for (const int signal : kEndSignals) std::signal(signal, SIG_DFL);
  notifier_.reset();
  close(pipe_[0]);
  close(pipe_[1]);
}

ForcedEnd::ForcedEnd(std::function<void()> job) {
  JobOfForcedEnd() = std::move(job);
  [[maybe_unused]] static const int registered = std::atexit(OnExit);
}

ForcedEnd::~ForcedEnd() {
  JobOfForcedEnd() = nullptr;
}

}  // namespace sentrel
