#include "mib/lookup.h"

#include <algorithm>
#include <array>
#include <span>

#include "mib/oid_text.h"

namespace sentrel::mib {

namespace {

using Match = Database::Match;

/// The notification of exactly this OID; a match of depth 0 where there is none.
Match NotificationAt(const Database& database, std::span<const std::uint32_t> oid) {
  const Match match = database.Find(oid);
  if (match.depth < oid.size()) return {};
  const std::uint16_t kind = match.image->EntryOf(match.node).kind;
  return kind == static_cast<std::uint16_t>(Kind::Notification) ? match : Match();
}

/// The notification X.N for X.0.N, else X.0.N for X.N; a match of depth 0 where there is none.
Match OtherFormOf(const Database& database, std::span<const std::uint32_t> oid) {
  std::array<std::uint32_t, OidText::kMost + 1> other;
  if (oid.size() < 2) return {};
  const auto end = std::copy(oid.begin(), oid.end() - 1, other.begin());
  if (*(end - 1) == 0) {
    *(end - 1) = oid.back();
    const Match without = NotificationAt(database, {other.begin(), end});
    if (without.depth > 0) return without;
  }
  // An enterprise may end with a zero of its own.
  *(end - 1) = oid[oid.size() - 2];
  *end = 0;
  *(end + 1) = oid.back();
  return NotificationAt(database, {other.begin(), end + 2});
}

/// Whether no more is known of the OID than iso, org or dod.
bool IsBarelyKnown(std::span<const std::uint32_t> oid, size_t depth) {
  constexpr std::array<std::uint32_t, 3> kDod = {1, 3, 6};
  return depth < oid.size() && depth <= kDod.size() &&
         std::ranges::equal(oid.first(depth), std::span(kDod).first(depth));
}

/// The name of the entry and the rest of the OID behind it.
std::string NameOf(const Image& image, const format::EntryRecord& entry, std::string_view suffix) {
  const std::string_view known = image.Text(entry.name);
  std::string name;
  name.reserve(known.size() + suffix.size());
  return name.append(known).append(suffix);
}

/// Adds what the modules of one image call a node of it. `winner` goes to the front.
void AddAnswers(const Image& image, std::uint32_t node, std::string_view suffix,
                const format::EntryRecord& winner, std::vector<Answer>& answers) {
  for (const format::ModuleRecord& module : image.Modules()) {
    for (const format::EntryRecord& entry : image.Entries(module)) {
      if (entry.node != node) continue;
      answers.push_back({NameOf(image, entry, suffix),
                         image.Text(module.name),
                         {&image, &image.Type(entry.type)}});
      if (&entry == &winner) std::swap(answers.front(), answers.back());
    }
  }
}

std::span<const format::ValueRecord> ValuesOf(const ValueType& type) {
  if (type.record == nullptr) return {};
  return type.image->Values(*type.record);
}

}  // namespace

Database::Match MatchOf(const Database& database, std::span<const std::uint32_t> oid) {
  const Match match = database.Find(oid);
  if (match.depth == oid.size()) return match;
  const Match notification = OtherFormOf(database, oid);
  if (notification.depth > 0) return {notification.image, notification.node, oid.size()};
  return IsBarelyKnown(oid, match.depth) ? Match() : match;
}

Lookup LookUp(const Database& database, std::string_view text) {
  const OidText oid(text);
  if (!oid.IsOid()) return {std::string(text), {}};
  const Match match = MatchOf(database, oid.Numbers());
  if (match.depth == 0) return {std::string(text.substr(text.front() == '.' ? 1 : 0)), {}};
  const format::EntryRecord& entry = match.image->EntryOf(match.node);
  return {NameOf(*match.image, entry, oid.Behind(match.depth)),
          {match.image, &match.image->Type(entry.type)}};
}

std::vector<Answer> LookUpAll(const Database& database, std::string_view text) {
  const OidText oid(text);
  const Match match = oid.IsOid() ? MatchOf(database, oid.Numbers()) : Match();
  std::vector<Answer> answers;
  if (match.depth == 0) return answers;
  const auto numbers = match.image->OidOf(match.node);
  const format::EntryRecord& winner = match.image->EntryOf(match.node);
  for (const auto& image : database.Images()) {
    const std::uint32_t node = image->NodeAt(numbers);
    if (node == kNothing) continue;
    AddAnswers(*image, node, oid.Behind(match.depth), winner, answers);
  }
  return answers;
}

std::string ListOf(const ValueType& type) {
  std::string list;
  for (const format::ValueRecord& value : ValuesOf(type)) {
    if (!list.empty()) list += ',';
    list.append(type.image->Text(value.label)).append("(");
    list.append(std::to_string(value.value)) += ')';
  }
  return list;
}

std::string LabelOf(const ValueType& type, std::int32_t number) {
  const auto values = ValuesOf(type);
  const auto found = std::lower_bound(
      values.begin(), values.end(), number,
      [](const format::ValueRecord& value, std::int32_t wanted) { return value.value < wanted; });
  if (found == values.end() || found->value != number) return "unknown(0)";
  return std::string(type.image->Text(found->label)) + "(" + std::to_string(number) + ")";
}

}  // namespace sentrel::mib
