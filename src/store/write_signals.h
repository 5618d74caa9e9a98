#pragma once

#include <csignal>
#include <ctime>

namespace sentrel {

/// Keeps a write beyond the file size limit, or into a pipe without a reader, from ending the
/// process for the time of its lifetime: the write only fails. For one thread.
class WriteSignalsHeld {
 public:
  WriteSignalsHeld() {
    sigemptyset(&held_);
    sigaddset(&held_, SIGXFSZ);
    sigaddset(&held_, SIGPIPE);
    pthread_sigmask(SIG_BLOCK, &held_, &before_);
  }
  ~WriteSignalsHeld() {
    const timespec now{};
    while (sigtimedwait(&held_, nullptr, &now) > 0) {
    }
    pthread_sigmask(SIG_SETMASK, &before_, nullptr);
  }
  WriteSignalsHeld(const WriteSignalsHeld&) = delete;
  WriteSignalsHeld& operator=(const WriteSignalsHeld&) = delete;

 private:
  sigset_t held_;
  sigset_t before_;
};

}  // namespace sentrel
