#include "mib/block_guard.h"

#include <algorithm>

#include "common/failure.h"
#include "mib/image_format.h"

namespace sentrel::mib {

BlockGuard::BlockGuard(std::string_view image)
    : image_(image),
      body_(format::BodyOf(image)),
      isGood_(std::make_unique<std::atomic<bool>[]>(format::BlocksIn(image.size()))) {}

void BlockGuard::Require(const void* begin, size_t size) {
  if (size == 0) return;
  const auto offset = static_cast<size_t>(static_cast<const char*>(begin) - body_.data());
  const size_t last = (offset + size - 1) / format::kBlock;
  for (size_t block = offset / format::kBlock; block <= last; ++block) {
    if (!isGood_[block].load(std::memory_order_relaxed)) RequireBlock(block);
  }
}

void BlockGuard::RequireAll(const std::function<void()>& onMegabyte) {
  constexpr size_t kMegabyte = size_t{1024} * 1024;
  for (size_t begin = 0; begin < body_.size(); begin += kMegabyte) {
    Require(body_.data() + begin, std::min(kMegabyte, body_.size() - begin));
    onMegabyte();
  }
}

void BlockGuard::RequireBlock(size_t block) {
  if (format::Checksum(format::BlockOf(image_, block)) != format::ChecksumOf(image_, block)) {
    throw Failure("the MIB image is damaged");
  }
  isGood_[block].store(true, std::memory_order_relaxed);
}

}  // namespace sentrel::mib
