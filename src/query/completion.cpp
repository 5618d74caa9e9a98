#include "query/completion.h"

#include <fmt/format.h>

#include <algorithm>
#include <set>

#include "query/folded.h"
#include "query/keys.h"
#include "query/kinds.h"

namespace sentrel::query {
namespace {

/// Where the word begins that ends at the end of the text.
std::size_t StartOfWord(std::string_view text) {
  const auto before = text.find_last_of(" \t\"()");
  std::size_t start = before == std::string_view::npos ? 0 : before + 1;
  if (start < text.size() && text[start] == '-') ++start;
  return start;
}

std::vector<std::string> ValuesOf(Key key, const KnownNames& known) {
  switch (key) {
    case Key::kTrap:
      return known.notifications;
    case Key::kVersion:
      return {"1", "2c", "3"};
    case Key::kLevel:
      return {"auth", "noauth", "priv"};
    case Key::kKind:
      return {kKindNames.begin(), kKindNames.end()};
    default:
      return {};
  }
}

std::vector<std::string> Starts(const KnownNames& known) {
  std::vector<std::string> starts;
  for (const KeyWords& key : AllKeys()) starts.push_back(fmt::format("{}:", key.name));
  for (const std::string& binding : known.bindings) starts.push_back(fmt::format("{}=", binding));
  return starts;
}

/// Those that go on from the prefix, sorted, each once.
std::vector<std::string> GoingOn(const std::vector<std::string>& all, std::string_view prefix) {
  const std::string folded = Folded(prefix);
  std::set<std::string> fitting;
  for (const std::string& text : all) {
    const std::string candidate = Folded(text);
    if (candidate.starts_with(folded) && candidate.size() > folded.size()) fitting.insert(text);
  }
  const auto count = std::min(fitting.size(), kMostCompletions);
  return {fitting.begin(), std::next(fitting.begin(), static_cast<std::ptrdiff_t>(count))};
}

}  // namespace

Completion Complete(std::string_view query, std::size_t caret, const KnownNames& known) {
  const std::string_view text = query.substr(0, caret);
  const std::size_t start = StartOfWord(text);
  const std::string_view word = text.substr(start);
  const auto colon = word.find(':');
  if (colon == std::string_view::npos) {
    if (word.empty()) return {start, {}};
    return {start, GoingOn(Starts(known), word)};
  }
  const auto key = KeyNamed(word.substr(0, colon));
  const std::size_t at = start + colon + 1;
  if (!key) return {at, {}};
  return {at, GoingOn(ValuesOf(*key, known), text.substr(at))};
}

}  // namespace sentrel::query
