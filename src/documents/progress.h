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

}  // namespace sentrel
