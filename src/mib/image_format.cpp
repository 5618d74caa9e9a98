#include "mib/image_format.h"

#include <cstring>

#include "mib/hash.h"

namespace sentrel::mib::format {

std::uint64_t Checksum(std::string_view bytes) {
  constexpr std::uint64_t kMultiplier = 0x9E3779B97F4A7C15;
  constexpr size_t kLanes = 8;
  std::uint64_t lanes[kLanes] = {1, 2, 3, 4, 5, 6, 7, 8};
  std::uint64_t words[kLanes];
  const auto size = bytes.size();
  for (; bytes.size() >= sizeof words; bytes.remove_prefix(sizeof words)) {
    std::memcpy(words, bytes.data(), sizeof words);
    for (size_t i = 0; i < kLanes; ++i) {
      lanes[i] = (lanes[i] ^ words[i]) * kMultiplier;
      lanes[i] ^= lanes[i] >> 32;
    }
  }
  std::uint64_t sum = Hash(bytes, size);
  for (const std::uint64_t lane : lanes) sum = (sum ^ lane) * kMultiplier + (sum >> 31);
  return sum;
}

}  // namespace sentrel::mib::format
