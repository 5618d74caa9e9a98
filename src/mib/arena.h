#pragma once

#include <cstring>
#include <memory>
#include <string_view>
#include <vector>

namespace sentrel::mib {

/// Keeps copies of texts at fixed addresses until it ends. One thread at a time.
class Arena {
 public:
  /// A view of a copy of the text, valid as long as the arena.
  std::string_view Keep(std::string_view text) {
    if (text.empty()) return {};
    if (text.size() > left_) Grow(text.size());
    char* place = next_;
    std::memcpy(place, text.data(), text.size());
    next_ += text.size();
    left_ -= text.size();
    return {place, text.size()};
  }

 private:
  static constexpr size_t kBlock = 64 * 1024;

  void Grow(size_t atLeast) {
    left_ = atLeast > kBlock ? atLeast : kBlock;
    blocks_.emplace_back(new char[left_]);
    next_ = blocks_.back().get();
  }

  std::vector<std::unique_ptr<char[]>> blocks_;
  char* next_ = nullptr;
  size_t left_ = 0;
};

}  // namespace sentrel::mib
