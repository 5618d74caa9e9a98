#include "query/kinds.h"

#include <algorithm>
#include <string>
#include <vector>

#include "query/folded.h"

namespace sentrel::query {
namespace {

struct Words {
  Kind kind;
  std::vector<std::string_view> words;
};

/// The first that fits decides: "authenticationFailure" is about security, "notOk" no clear.
const std::vector<Words>& AllWords() {
  static const std::vector<Words> kAll = {
      {Kind::kSecurity, {"auth", "security", "violation", "intrusion", "attack", "login", "spoof"}},
      {Kind::kStart, {"coldstart", "warmstart", "restart", "reboot", "reload", "started"}},
      {Kind::kProblem,
       {"down",        "fail",     "fault",   "error",   "lost",          "loss",
        "critical",    "major",    "minor",   "alarm",   "exceed",        "overtemp",
        "unreachable", "notok",    "broken",  "missing", "backwardtrans", "full",
        "rising",      "degraded", "offline", "removed", "warning"}},
      {Kind::kClear,
       {"up", "clear", "restored", "recover", "normal", "established", "resolved", "falling",
        "online", "inserted", "available"}},
  };
  return kAll;
}

bool IsUpper(char c) {
  return c >= 'A' && c <= 'Z';
}

/// Whether the word is in the name and, where it is as short as "up", begins a word of the name
/// and ends it: "linkUp", not "group" or "update".
bool HasWord(std::string_view name, const std::string& folded, std::string_view word) {
  for (auto at = folded.find(word); at != std::string::npos; at = folded.find(word, at + 1)) {
    if (word.size() > 2) return true;
    const auto end = at + word.size();
    const bool begins = at == 0 || IsUpper(name[at]);
    const bool ends = end == name.size() || IsUpper(name[end]) || name[end] == '.';
    if (begins && ends) return true;
  }
  return false;
}

}  // namespace

Kind KindOf(std::string_view notificationName) {
  const std::string folded = Folded(notificationName);
  if (folded.size() != notificationName.size()) return Kind::kOther;
  for (const auto& [kind, words] : AllWords()) {
    const bool isOfKind = std::ranges::any_of(
        words, [&](std::string_view word) { return HasWord(notificationName, folded, word); });
    if (isOfKind) return kind;
  }
  return Kind::kOther;
}

std::optional<Kind> KindNamed(std::string_view name) {
  const auto* const found = std::ranges::find(kKindNames, Folded(name));
  if (found == kKindNames.end()) return std::nullopt;
  return static_cast<Kind>(found - kKindNames.begin());
}

}  // namespace sentrel::query
