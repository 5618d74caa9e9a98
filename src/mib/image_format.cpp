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

namespace {

std::string_view ChecksumsOf(std::string_view image) {
  return image.substr(image.size() - BlocksIn(image.size()) * sizeof(std::uint64_t));
}

}  // namespace

std::string_view BodyOf(std::string_view image) {
  return image.substr(sizeof(Header), image.size() - sizeof(Header) - ChecksumsOf(image).size());
}

std::string_view BlockOf(std::string_view image, size_t block) {
  return BodyOf(image).substr(block * kBlock, kBlock);
}

std::uint64_t ChecksumOf(std::string_view image, size_t block) {
  std::uint64_t sum = 0;
  std::memcpy(&sum, ChecksumsOf(image).data() + block * sizeof sum, sizeof sum);
  return sum;
}

std::uint64_t HeaderChecksum(std::string_view image) {
  constexpr size_t kBegin = offsetof(Header, fingerprint);
  const std::uint64_t ofHeader = Checksum(image.substr(kBegin, sizeof(Header) - kBegin));
  return ofHeader ^ Checksum(ChecksumsOf(image));
}

}  // namespace sentrel::mib::format
