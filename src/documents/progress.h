#pragma once

#include <cstddef>
#include <exception>

namespace sentrel {

/// The user cancelled the task.
class Cancelled : public std::exception {};

/// Is told how far a long task has come. Used on the event loop.
class Progress {
 public:
  virtual ~Progress() = default;
  /// Called often; `done` runs from 0 to `total`. Throws Cancelled to end the task, which then
  /// leaves nothing behind.
  virtual void Advance(std::size_t done, std::size_t total) = 0;
};

/// The progress of the first or second half of a task, reported to the progress of the whole, which
/// must outlive it.
class HalfOfWork : public Progress {
 public:
  enum Half { First, Second };
  HalfOfWork(Progress& whole, Half half) : whole_(whole), half_(half) {}
  void Advance(std::size_t done, std::size_t total) override {
    whole_.Advance(half_ == First ? done : total + done, 2 * total);
  }

 private:
  Progress& whole_;
  Half half_;
};

}  // namespace sentrel
