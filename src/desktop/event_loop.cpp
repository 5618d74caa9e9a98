#include "desktop/event_loop.h"

#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#include <memory>

namespace sentrel {
namespace {

constexpr int kEndSignals[] = {SIGTERM, SIGINT, SIGHUP};

volatile sig_atomic_t signalPipe = -1;

void OnSignal(int) {
  const char byte = 0;
  [[maybe_unused]] const auto written = write(signalPipe, &byte, 1);
}

}  // namespace

Wakeup::Wakeup(std::function<bool()> job, std::chrono::milliseconds rest)
    : job_(std::move(job)), rest_(rest) {
  resting_.setSingleShot(true);
  resting_.setTimerType(Qt::PreciseTimer);
  connect(&resting_, &QTimer::timeout, this, [this] { Run(); });
}

void Wakeup::Wake() {
  QMetaObject::invokeMethod(
      this, [this] { OnWake(); }, Qt::QueuedConnection);
}

void Wakeup::OnWake() {
  using std::chrono::milliseconds;
  const auto elapsed = std::chrono::steady_clock::now() - lastEnd_;
  if (elapsed >= rest_) return Run();
  resting_.start(std::chrono::ceil<milliseconds>(rest_ - elapsed));
}

void Wakeup::Run() {
  if (job_()) {
    QMetaObject::invokeMethod(
        this, [this] { Run(); }, Qt::QueuedConnection);
  } else {
    lastEnd_ = std::chrono::steady_clock::now();
  }
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

}  // namespace sentrel
