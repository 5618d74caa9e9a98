#pragma once

#include <atomic>
#include <cstddef>
#include <functional>
#include <memory>
#include <string_view>

namespace sentrel::mib {

/// Checks the blocks of an image, each once, before what lies in them is believed. Safe to use from
/// any thread.
class BlockGuard {
 public:
  /// The header must have been checked. The bytes must outlive the guard.
  explicit BlockGuard(std::string_view image);

  /// Throws Failure when a block that holds any of the bytes is damaged.
  void Require(const void* begin, size_t size);
  /// The same of all blocks. Calls `onMegabyte` after each megabyte.
  void RequireAll(const std::function<void()>& onMegabyte = [] {});

 private:
  void RequireBlock(size_t block);

  std::string_view image_;
  std::string_view body_;
  /// By block.
  std::unique_ptr<std::atomic<bool>[]> isGood_;
};

}  // namespace sentrel::mib
