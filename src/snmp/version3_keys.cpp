#include "snmp/version3_keys.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>

#include "common/failure.h"

namespace sentrel {
namespace {

/// In the order of Authentication and Privacy.
constexpr std::array<std::string_view, 7> kAuthentications = {
    "", "MD5", "SHA", "SHA-224", "SHA-256", "SHA-384", "SHA-512"};
constexpr std::array<std::string_view, 7> kPrivacies = {
    "", "DES", "AES", "AES-192", "AES-256", "AES-192-C", "AES-256-C"};

/// More than any key of the library, lengthened or not.
constexpr std::size_t kKeyRoom = 128;

template <typename Protocol, std::size_t kCount>
std::optional<Protocol> Named(const std::array<std::string_view, kCount>& names,
                              std::string_view name) {
  const auto* const found = std::find(names.begin() + 1, names.end(), name);
  if (found == names.end()) return std::nullopt;
  return static_cast<Protocol>(found - names.begin());
}

struct ProtocolId {
  const oid* parts = nullptr;
  std::size_t length = 0;
};

int TypeOf(Authentication protocol) {
  return usm_lookup_auth_type(WordOf(protocol).data());
}

ProtocolId IdOf(Authentication protocol) {
  if (protocol == Authentication::kNone) {
    return {usmNoAuthProtocol, OID_LENGTH(usmNoAuthProtocol)};
  }
  ProtocolId id;
  id.parts = sc_get_auth_oid(TypeOf(protocol), &id.length);
  return id;
}

ProtocolId IdOf(Privacy protocol) {
  if (protocol == Privacy::kNone) return {usmNoPrivProtocol, OID_LENGTH(usmNoPrivProtocol)};
  ProtocolId id;
  id.parts = sc_get_priv_oid(usm_lookup_priv_type(WordOf(protocol).data()), &id.length);
  return id;
}

template <typename Protocol>
Protocol ProtocolOf(const oid* id, std::size_t length, std::size_t count) {
  for (std::size_t i = 1; i < count; ++i) {
    const ProtocolId candidate = IdOf(static_cast<Protocol>(i));
    if (candidate.parts != nullptr &&
        snmp_oid_compare(id, length, candidate.parts, candidate.length) == 0) {
      return static_cast<Protocol>(i);
    }
  }
  return Protocol::kNone;
}

const u_char* Octets(std::string_view text) {
  return reinterpret_cast<const u_char*>(text.data());
}

/// Memory of the library's kind, which it frees.
template <typename Element>
bool SetCopy(Element*& target, std::size_t& length, const Element* source, std::size_t count) {
  std::free(target);
  target = static_cast<Element*>(netsnmp_memdup(source, count * sizeof(Element)));
  length = target == nullptr ? 0 : count;
  return target != nullptr;
}

bool SetKey(const usmUser& user, std::string_view master, u_char*& key, std::size_t& length) {
  if (master.empty()) return true;
  key = static_cast<u_char*>(std::calloc(1, kKeyRoom));
  length = kKeyRoom;
  return key != nullptr &&
         generate_kul(user.authProtocol, user.authProtocolLen, user.engineID, user.engineIDLen,
                      Octets(master), master.size(), key, &length) == SNMPERR_SUCCESS;
}

bool FitPrivacyKey(usmUser& user) {
  if (user.privKey == nullptr) return true;
  if (usm_extend_user_kul(&user, kKeyRoom) != SNMPERR_SUCCESS) return false;
  const int wanted = sc_get_proper_priv_length(user.privProtocol, user.privProtocolLen);
  if (wanted <= 0 || user.privKeyLen < static_cast<std::size_t>(wanted)) return false;
  user.privKeyLen = wanted;
  return true;
}

}  // namespace

std::string_view WordOf(Authentication protocol) {
  return kAuthentications.at(static_cast<std::size_t>(protocol));
}

std::string_view WordOf(Privacy protocol) {
  return kPrivacies.at(static_cast<std::size_t>(protocol));
}

std::optional<Authentication> AuthenticationOfWord(std::string_view name) {
  return Named<Authentication>(kAuthentications, name);
}

std::optional<Privacy> PrivacyOfWord(std::string_view name) {
  return Named<Privacy>(kPrivacies, name);
}

std::size_t KeyLength(Authentication protocol) {
  if (protocol == Authentication::kNone) return 0;
  return std::max(0, sc_get_proper_auth_length_bytype(TypeOf(protocol)));
}

std::size_t DigestLength(Authentication protocol) {
  if (protocol == Authentication::kNone) return 0;
  return std::max(0, sc_get_auth_maclen(TypeOf(protocol)));
}

std::string MasterKey(Authentication protocol, std::string_view passphrase) {
  if (passphrase.size() < USM_LENGTH_P_MIN) {
    throw Failure("A passphrase has eight characters or more.");
  }
  const ProtocolId id = IdOf(protocol);
  std::string key(kKeyRoom, '\0');
  std::size_t length = key.size();
  if (id.parts == nullptr ||
      generate_Ku(id.parts, id.length, Octets(passphrase), passphrase.size(),
                  reinterpret_cast<u_char*>(key.data()), &length) != SNMPERR_SUCCESS) {
    throw Failure("This system cannot make keys for the authentication protocol.");
  }
  key.resize(length);
  return key;
}

OwnedUsmUser Localize(const KeyedUser& keyed, std::string_view engine) {
  OwnedUsmUser user(usm_create_user());
  const ProtocolId auth = IdOf(keyed.user.authentication);
  const ProtocolId priv = IdOf(keyed.user.privacy);
  if (!user || auth.parts == nullptr || priv.parts == nullptr) return nullptr;
  user->name = strdup(keyed.user.name.c_str());
  user->secName = strdup(keyed.user.name.c_str());
  user->userStatus = RS_ACTIVE;
  // Not to be kept with the users of the library's own file.
  user->userStorageType = ST_VOLATILE;
  const bool isMade = SetCopy(user->engineID, user->engineIDLen, Octets(engine), engine.size()) &&
                      SetCopy(user->authProtocol, user->authProtocolLen, auth.parts, auth.length) &&
                      SetCopy(user->privProtocol, user->privProtocolLen, priv.parts, priv.length) &&
                      SetKey(*user, keyed.authKey, user->authKey, user->authKeyLen) &&
                      SetKey(*user, keyed.privKey, user->privKey, user->privKeyLen) &&
                      FitPrivacyKey(*user);
  return isMade ? std::move(user) : nullptr;
}

Version3User DescriptionOf(const usmUser& user) {
  Version3User description;
  description.name = user.name;
  description.engine.assign(reinterpret_cast<const char*>(user.engineID), user.engineIDLen);
  description.authentication =
      ProtocolOf<Authentication>(user.authProtocol, user.authProtocolLen, kAuthentications.size());
  description.privacy =
      ProtocolOf<Privacy>(user.privProtocol, user.privProtocolLen, kPrivacies.size());
  return description;
}

}  // namespace sentrel
