#include "query/terms.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <functional>
#include <optional>

#include "query/address_value.h"
#include "query/binding_term.h"
#include "query/folded.h"
#include "query/keys.h"
#include "query/kinds.h"
#include "query/pattern.h"

namespace sentrel::query {
namespace {

/// A term that is one function.
class Test : public Node {
 public:
  using Function = std::function<bool(const Subject&)>;
  Test(Cost cost, Function holds) : Node(cost), holds_(std::move(holds)) {}
  bool Holds(const Subject& subject) const override { return holds_(subject); }

 private:
  Function holds_;
};

OwnedNode Make(Cost cost, Test::Function holds) {
  return std::make_unique<Test>(cost, std::move(holds));
}

bool IsVersion3(const Subject& subject) {
  return subject.Envelope().version == SnmpVersion::k3;
}

bool IsOid(std::string_view text) {
  return text.find('.') != std::string_view::npos &&
         text.find_first_not_of("0123456789.") == std::string_view::npos;
}

/// Null, as all below, where the value cannot be understood.
OwnedNode From(const std::string& value, const TermContext& context) {
  if (const auto addresses = AddressValue::Of(value)) {
    return Make(Cost::kEnvelope,
                [addresses](const Subject& s) { return addresses->Holds(s.Sender()); });
  }
  const auto* const names = context.names;
  if (names == nullptr || !names->HasName(value)) return nullptr;
  return Make(Cost::kEnvelope, [names, pattern = Pattern(value)](const Subject& s) {
    return pattern.Fits(names->NameOf(s.Sender()));
  });
}

OwnedNode Trap(const std::string& value) {
  if (IsOid(value)) {
    return Make(Cost::kNotification, [subtree = std::string(WithoutDots(value))](const Subject& s) {
      return IsBelow(s.NotificationOid(), subtree);
    });
  }
  return Make(Cost::kNotification, [pattern = Pattern(value)](const Subject& s) {
    return pattern.Fits(s.NotificationName());
  });
}

OwnedNode Community(const std::string& value, bool isOfVersion3) {
  return Make(Cost::kEnvelope, [pattern = Pattern(value), isOfVersion3](const Subject& s) {
    return IsVersion3(s) == isOfVersion3 && pattern.Fits(s.Community());
  });
}

OwnedNode Version(const std::string& value) {
  const std::string name = Folded(value);
  std::optional<SnmpVersion> version;
  if (name == "1" || name == "v1") version = SnmpVersion::k1;
  if (name == "2" || name == "2c" || name == "v2c") version = SnmpVersion::k2c;
  if (name == "3" || name == "v3") version = SnmpVersion::k3;
  if (!version) return nullptr;
  return Make(Cost::kEnvelope,
              [version](const Subject& s) { return s.Envelope().version == *version; });
}

OwnedNode Level(const std::string& value) {
  const std::string name = Folded(value);
  std::optional<SecurityLevel> level;
  if (name == "noauth" || name == "noauthnopriv") level = SecurityLevel::kNoAuthNoPriv;
  if (name == "auth" || name == "authnopriv") level = SecurityLevel::kAuthNoPriv;
  if (name == "priv" || name == "authpriv") level = SecurityLevel::kAuthPriv;
  if (!level) return nullptr;
  return Make(Cost::kEnvelope,
              [level](const Subject& s) { return IsVersion3(s) && s.Envelope().level == *level; });
}

OwnedNode Type(const std::string& value) {
  return Make(Cost::kNotification, [pattern = Pattern(fmt::format("*{}*", value))](
                                       const Subject& s) { return pattern.Fits(s.DeviceType()); });
}

OwnedNode When(const std::string& value, const TermContext& context, bool isSince) {
  const auto moment = MomentOf(value, context.now);
  if (!moment) return nullptr;
  return Make(Cost::kEnvelope, [moment, isSince](const Subject& s) {
    const auto arrival = s.Envelope().receivedAt;
    return isSince ? arrival >= *moment : arrival <= *moment;
  });
}

OwnedNode OfKind(const std::string& value) {
  const auto kind = KindNamed(value);
  if (!kind) return nullptr;
  return Make(Cost::kNotification,
              [kind](const Subject& s) { return KindOf(s.NotificationName()) == *kind; });
}

/// Of the notification, or of any binding.
OwnedNode Oid(const std::string& value) {
  if (value.find_first_not_of("0123456789.") != std::string::npos) return nullptr;
  return Make(Cost::kBindings, [subtree = std::string(WithoutDots(value))](const Subject& s) {
    return IsBelow(s.NotificationOid(), subtree) ||
           std::ranges::any_of(s.Bindings(), [&](const NamedValue& binding) {
             return IsBelow(binding.oid, subtree);
           });
  });
}

/// Within one name or one value, not across.
OwnedNode FreeWord(const std::string& word) {
  return Make(Cost::kBindings, [needle = Folded(word)](const Subject& s) {
    return Holds(s.Sender(), needle) || Holds(s.Community(), needle) ||
           Holds(s.NotificationName(), needle) || Holds(s.DeviceType(), needle) ||
           std::ranges::any_of(s.Bindings(), [&](const NamedValue& binding) {
             return Holds(binding.name, needle) || Holds(binding.value, needle) ||
                    Holds(binding.label, needle);
           });
  });
}

OwnedNode ByKey(Key key, const std::string& value, const TermContext& context) {
  switch (key) {
    case Key::kFrom:
      return From(value, context);
    case Key::kTrap:
      return Trap(value);
    case Key::kCommunity:
      return Community(value, false);
    case Key::kUser:
      return Community(value, true);
    case Key::kVersion:
      return Version(value);
    case Key::kLevel:
      return Level(value);
    case Key::kType:
      return Type(value);
    case Key::kSince:
      return When(value, context, true);
    case Key::kUntil:
      return When(value, context, false);
    case Key::kKind:
      return OfKind(value);
    case Key::kOid:
      return Oid(value);
  }
  return nullptr;
}

bool IsLetters(std::string_view text) {
  return !text.empty() && std::ranges::all_of(text, [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
  });
}

/// Of "key:value" the length of the key; nothing where the token is no such term. An address, a
/// time or a path with a colon is a free word.
std::optional<std::size_t> KeyLength(const Token& token) {
  const auto colon = token.text.find(':');
  if (colon == std::string::npos || colon >= token.plain) return std::nullopt;
  const std::string_view key = std::string_view(token.text).substr(0, colon);
  const bool isDoubled = colon + 1 < token.text.size() && token.text[colon + 1] == ':';
  return IsLetters(key) && !isDoubled ? std::optional(colon) : std::nullopt;
}

QueryError ErrorOf(const Token& token, std::string text) {
  return {token.at, token.length, std::move(text)};
}

}  // namespace

std::variant<OwnedNode, QueryError> TermOf(const Token& token, const TermContext& context) {
  if (const auto length = KeyLength(token)) {
    const std::string name = token.text.substr(0, *length);
    const std::string value = token.text.substr(*length + 1);
    const auto key = KeyNamed(name);
    if (!key) {
      return ErrorOf(
          token,
          fmt::format("There is no key \"{}\". To look for the text itself, put it in quotes.",
                      name));
    }
    const KeyWords& words = WordsOf(*key);
    if (value.empty())
      return ErrorOf(token, fmt::format("Behind \"{}:\" comes {}.", name, words.value));
    if (auto term = ByKey(*key, value, context)) return term;
    return ErrorOf(token, fmt::format("\"{}\" is not {}.", value, words.value));
  }
  if (const auto comparison = ComparisonIn(token)) return BindingTerm(token, *comparison);
  return FreeWord(token.text);
}

bool IsFreeWord(const Token& token) {
  return !KeyLength(token) && !ComparisonIn(token);
}

}  // namespace sentrel::query
