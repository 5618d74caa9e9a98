#pragma once

#include <cstddef>
#include <exception>

namespace sentrel {

/// The user gave the work up.
class Cancelled : public std::exception {};

/// Told how far a long work has come.
class Progress {
 public:
  virtual ~Progress() = default;
  /// Called often. `done` runs from 0 to `total`. Throws Cancelled to end the work, which then
  /// leaves nothing behind.
  virtual void Advance(std::size_t done, std::size_t total) = 0;
};

/// Tells how far one of two equal halves of a work has come as how far the whole has. The whole must
/// outlive it.
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
