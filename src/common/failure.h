#pragma once

#include <stdexcept>
#include <string>
#include <utility>

namespace sentrel {

/// What a call to an outside service throws when it cannot do what it was asked.
/// what() is a sentence for people, in UTF-8.
class Failure : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Runs one step whose failure is to be passed over: returns whether it succeeded.
template <typename Step>
bool Attempt(Step&& step) {
  try {
    std::forward<Step>(step)();
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

}  // namespace sentrel
