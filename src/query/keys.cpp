#include "query/keys.h"

#include <algorithm>

#include "query/folded.h"

namespace sentrel::query {

const std::array<KeyWords, 11>& AllKeys() {
  static const std::array<KeyWords, 11> kAll = {{
      {"from", "an address, a range, a prefix or a device's name, such as 10.1.0.0/16"},
      {"trap", "the name or OID of a notification, such as linkDown or link*"},
      {"community", "a community, such as public"},
      {"user", "a version 3 user"},
      {"version", "a version of SNMP: 1, 2c or 3"},
      {"level", "a security level: noauth, auth or priv"},
      {"type", "a part of a device type"},
      {"since", "a time, such as 1h, 14:30 or 2026-11-24"},
      {"until", "a time, such as 1h, 14:30 or 2026-11-24"},
      {"kind", "a kind of notification: problem, clear, security, start or other"},
      {"oid", "an OID, such as 1.3.6.1.2.1.2"},
  }};
  return kAll;
}

std::optional<Key> KeyNamed(std::string_view name) {
  const auto* const found = std::ranges::find(AllKeys(), Folded(name), &KeyWords::name);
  if (found == AllKeys().end()) return std::nullopt;
  return static_cast<Key>(found - AllKeys().begin());
}

const KeyWords& WordsOf(Key key) {
  return AllKeys()[static_cast<std::size_t>(key)];
}

}  // namespace sentrel::query
