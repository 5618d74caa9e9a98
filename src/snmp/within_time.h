#pragma once

#include <chrono>
#include <functional>
#include <future>
#include <memory>
#include <optional>
#include <thread>
#include <utility>

namespace sentrel {

/// What `ask` returns, or nothing where it takes longer than the limit: it then runs on, on a
/// thread of its own, and its result is dropped. It must own all that it touches and must not
/// throw. Throws std::system_error where the system gives no thread.
template <typename Result>
std::optional<Result> WithinTime(std::chrono::milliseconds limit, std::function<Result()> ask) {
  auto promise = std::make_shared<std::promise<Result>>();
  std::future<Result> answer = promise->get_future();
  std::thread([promise = std::move(promise), ask = std::move(ask)] {
    promise->set_value(ask());
  }).detach();
  if (answer.wait_for(limit) != std::future_status::ready) return std::nullopt;
  return answer.get();
}

}  // namespace sentrel
