#include "snmp/usm_parameters.h"

namespace sentrel {
namespace {

using Bytes = std::span<const std::uint8_t>;

constexpr std::uint8_t kInteger = 0x02;
constexpr std::uint8_t kOctets = 0x04;
constexpr std::uint8_t kSequence = 0x30;

/// RFC 3411, section 5, and RFC 3414, section 2.4.
constexpr std::size_t kLongestEngineId = 32;
constexpr std::size_t kLongestUserName = 32;

/// Cuts the element off the front and returns its content; nothing where it is not whole or has
/// another tag.
std::optional<Bytes> Take(std::uint8_t tag, Bytes& bytes) {
  if (bytes.size() < 2 || bytes[0] != tag) return std::nullopt;
  std::size_t length = bytes[1];
  std::size_t header = 2;
  if (length >= 0x80) {
    const std::size_t count = length & 0x7F;
    if (count == 0 || count > 4 || bytes.size() < header + count) return std::nullopt;
    length = 0;
    while (header < 2 + count) length = length << 8 | bytes[header++];
  }
  if (length > bytes.size() - header) return std::nullopt;
  const Bytes content = bytes.subspan(header, length);
  bytes = bytes.subspan(header + length);
  return content;
}

/// 0 to 2^31 - 1, as both the boots and the time are.
std::optional<std::uint32_t> TakeNumber(Bytes& bytes) {
  const auto content = Take(kInteger, bytes);
  if (!content || content->empty() || content->size() > 4 || content->front() >= 0x80) {
    return std::nullopt;
  }
  std::uint32_t number = 0;
  for (const std::uint8_t byte : *content) number = number << 8 | byte;
  return number;
}

std::string Text(Bytes bytes) {
  return {bytes.begin(), bytes.end()};
}

}  // namespace

std::optional<UsmParameters> ReadUsmParameters(Bytes bytes) {
  Bytes behind = bytes;
  auto octets = Take(kOctets, behind);
  auto fields = octets ? Take(kSequence, *octets) : std::nullopt;
  if (!fields || !octets->empty()) return std::nullopt;
  const auto engine = Take(kOctets, *fields);
  const auto boots = TakeNumber(*fields);
  const auto time = TakeNumber(*fields);
  const auto user = Take(kOctets, *fields);
  const auto digest = Take(kOctets, *fields);
  const auto salt = Take(kOctets, *fields);
  if (!engine || !boots || !time || !user || !digest || !salt || !fields->empty()) {
    return std::nullopt;
  }
  if (engine->size() > kLongestEngineId || user->size() > kLongestUserName) return std::nullopt;
  return UsmParameters{
      Text(*engine), Text(*user), {*boots, *time}, *digest, bytes.size() - behind.size()};
}

}  // namespace sentrel
