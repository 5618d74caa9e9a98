#include "snmp/usm_parameters.h"

#include "snmp/ber.h"

namespace sentrel {
namespace {

using ber::Bytes;

/// RFC 3414, section 2.4.
constexpr std::size_t kLongestUserName = 32;

/// 0 to 2^31 - 1, as both the boots and the time are.
std::optional<std::uint32_t> TakeNumber(Bytes& bytes) {
  const auto content = ber::TakeContent(ber::kInteger, bytes);
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
  auto octets = ber::TakeContent(ber::kOctets, behind);
  auto fields = octets ? ber::TakeContent(ber::kSequence, *octets) : std::nullopt;
  if (!fields || !octets->empty()) return std::nullopt;
  const auto engine = ber::TakeContent(ber::kOctets, *fields);
  const auto boots = TakeNumber(*fields);
  const auto time = TakeNumber(*fields);
  const auto user = ber::TakeContent(ber::kOctets, *fields);
  const auto digest = ber::TakeContent(ber::kOctets, *fields);
  const auto salt = ber::TakeContent(ber::kOctets, *fields);
  if (!engine || !boots || !time || !user || !digest || !salt || !fields->empty()) {
    return std::nullopt;
  }
  if (engine->size() > kLongestEngineId || user->size() > kLongestUserName) return std::nullopt;
  return UsmParameters{Text(*engine),
                       Text(*user),
                       {*boots, *time},
                       {digest->begin(), digest->end()},
                       {salt->begin(), salt->end()},
                       static_cast<std::size_t>(digest->data() - bytes.data()),
                       bytes.size() - behind.size()};
}

}  // namespace sentrel
