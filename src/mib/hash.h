#pragma once

#include <cstdint>
#include <cstring>
#include <string_view>

namespace sentrel::mib {

/// A 64-bit hash of a short text or record, the same in every run on the same byte order. Not
/// for text from a foe who may choose collisions on purpose to slow a table down: tables that hold
/// such text are bounded.
inline std::uint64_t Hash(std::string_view bytes, std::uint64_t seed = 0) {
  constexpr std::uint64_t kMultiplier = 0x9E3779B97F4A7C15;
  std::uint64_t hash = (seed + bytes.size()) * kMultiplier;
  const auto mix = [&hash](std::uint64_t word) {
    hash = (hash ^ word) * kMultiplier;
    hash ^= hash >> 29;
  };
  for (; bytes.size() >= sizeof(std::uint64_t); bytes.remove_prefix(sizeof(std::uint64_t))) {
    std::uint64_t word = 0;
    std::memcpy(&word, bytes.data(), sizeof word);
    mix(word);
  }
  std::uint64_t tail = 0;
  if (!bytes.empty()) std::memcpy(&tail, bytes.data(), bytes.size());
  mix(tail);
  return hash ^ (hash >> 32);
}

}  // namespace sentrel::mib
