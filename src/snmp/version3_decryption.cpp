#include "snmp/version3_decryption.h"

#include <algorithm>
#include <array>
#include <vector>

namespace sentrel {
namespace {

using ber::Bytes;

constexpr std::size_t kSaltLength = 8;
constexpr std::array kProtocols = {Privacy::kDes,    Privacy::kAes128,  Privacy::kAes192,
                                   Privacy::kAes256, Privacy::kAes192C, Privacy::kAes256C};

void Append(std::vector<std::uint8_t>& bytes, std::uint32_t number) {
  for (int shift = 24; shift >= 0; shift -= 8) {
    bytes.push_back(static_cast<std::uint8_t>(number >> shift));
  }
}

/// RFC 3826, section 3.1.2.1.
std::vector<std::uint8_t> AesStart(const UsmParameters& parameters) {
  std::vector<std::uint8_t> start;
  Append(start, parameters.moment.boots);
  Append(start, parameters.moment.time);
  start.insert(start.end(), parameters.salt.begin(), parameters.salt.end());
  return start;
}

/// RFC 3414, section 8.1.1.1: the second half of the key, mixed with the salt. The SNMP library
/// counts only the first half as the key's length.
std::vector<std::uint8_t> DesStart(const usmUser& user, const UsmParameters& parameters) {
  std::vector<std::uint8_t> start = parameters.salt;
  for (std::size_t i = 0; i < kSaltLength; ++i) start[i] ^= user.privKey[kSaltLength + i];
  return start;
}

/// RFC 3412, section 6: contextEngineID, contextName and a PDU.
bool IsScopedPdu(Bytes bytes) {
  auto content = ber::TakeContent(ber::kSequence, bytes);
  return content && ber::TakeContent(ber::kOctets, *content) &&
         ber::TakeContent(ber::kOctets, *content) && ber::TakeElement(*content);
}

bool IsReadAs(Privacy protocol, const KeyedUser& keyed, const UsmParameters& parameters,
              Bytes encrypted) {
  KeyedUser other = keyed;
  other.user.privacy = protocol;
  const OwnedUsmUser user = Localize(other, parameters.engine);
  if (!user) return false;
  auto start = protocol == Privacy::kDes ? DesStart(*user, parameters) : AesStart(parameters);
  std::vector<std::uint8_t> data(encrypted.begin(), encrypted.end());
  std::vector<std::uint8_t> plain(data.size() + start.size());
  std::size_t length = plain.size();
  const int error = sc_decrypt(user->privProtocol, user->privProtocolLen, user->privKey,
                               static_cast<u_int>(user->privKeyLen), start.data(),
                               static_cast<u_int>(start.size()), data.data(),
                               static_cast<u_int>(data.size()), plain.data(), &length);
  return error == SNMPERR_SUCCESS && IsScopedPdu({plain.data(), std::min(length, plain.size())});
}

}  // namespace

std::optional<Privacy> OtherPrivacyOf(const KeyedUser& user, const UsmParameters& parameters,
                                      Bytes encrypted) {
  const auto octets = ber::TakeContent(ber::kOctets, encrypted);
  if (!octets || user.privKey.empty() || parameters.salt.size() != kSaltLength) return std::nullopt;
  const auto* const found = std::ranges::find_if(kProtocols, [&](Privacy protocol) {
    return protocol != user.user.privacy && IsReadAs(protocol, user, parameters, *octets);
  });
  return found == kProtocols.end() ? std::nullopt : std::optional(*found);
}

}  // namespace sentrel
