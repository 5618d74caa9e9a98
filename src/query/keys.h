#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace sentrel::query {

/// What "key:value" may ask about.
enum class Key {
  kFrom,
  kTrap,
  kCommunity,
  kUser,
  kVersion,
  kLevel,
  kType,
  kSince,
  kUntil,
  kKind,
  kOid,
};

struct KeyWords {
  std::string_view name;
  /// What its value is, as in "Behind "since:" comes a time": with an example.
  std::string value;
};

/// In any case of letters.
std::optional<Key> KeyNamed(std::string_view name);
const KeyWords& WordsOf(Key key);
/// In the order of Key.
const std::array<KeyWords, 11>& AllKeys();

}  // namespace sentrel::query
