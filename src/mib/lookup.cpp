#include "mib/lookup.h"

#include <algorithm>
#include <array>
#include <span>

#include "mib/oid_text.h"

namespace sentrel::mib {

namespace {

/// The node of the notification of exactly this OID; kNothing where there is none.
std::uint32_t NotificationAt(const Image& image, std::span<const std::uint32_t> oid) {
  const Image::Match match = image.Find(oid);
  const bool isNotification =
      image.EntryOf(match.node).kind == static_cast<std::uint32_t>(Kind::Notification);
  return match.depth == oid.size() && isNotification ? match.node : kNothing;
}

/// The node of the notification X.N for X.0.N, else of X.0.N for X.N; kNothing where there is none.
std::uint32_t OtherFormOf(const Image& image, std::span<const std::uint32_t> oid) {
  std::array<std::uint32_t, OidText::kMost + 1> other;
  if (oid.size() < 2) return kNothing;
  const auto end = std::copy(oid.begin(), oid.end() - 1, other.begin());
  if (*(end - 1) == 0) {
    *(end - 1) = oid.back();
    const std::uint32_t without = NotificationAt(image, {other.begin(), end});
    if (without != kNothing) return without;
  }
  // An enterprise may end with a zero of its own.
  *(end - 1) = oid[oid.size() - 2];
  *end = 0;
  *(end + 1) = oid.back();
  return NotificationAt(image, {other.begin(), end + 2});
}

/// Whether no more is known of the OID than iso, org or dod.
bool IsBarelyKnown(std::span<const std::uint32_t> oid, size_t depth) {
  constexpr std::array<std::uint32_t, 3> kDod = {1, 3, 6};
  return depth < oid.size() && depth <= kDod.size() &&
         std::ranges::equal(oid.first(depth), std::span(kDod).first(depth));
}

/// Where the answers for an OID are, and how many of its numbers they stand for.
Image::Match MatchOf(const Image& image, std::span<const std::uint32_t> oid) {
  const Image::Match match = image.Find(oid);
  if (match.depth == oid.size()) return match;
  const std::uint32_t notification = OtherFormOf(image, oid);
  if (notification != kNothing) return {notification, oid.size()};
  return IsBarelyKnown(oid, match.depth) ? Image::Match() : match;
}

/// The name of the entry and the rest of the OID behind it.
std::string NameOf(const Image& image, const format::EntryRecord& entry, std::string_view suffix) {
  const std::string_view known = image.Text(entry.name);
  std::string name;
  name.reserve(known.size() + suffix.size());
  return name.append(known).append(suffix);
}

}  // namespace

Lookup LookUp(const Image& image, std::string_view text) {
  const OidText oid(text);
  Lookup result{{}, &image.Type(kNothing)};
  if (!oid.IsOid()) {
    result.name = text;
    return result;
  }
  const Image::Match match = MatchOf(image, oid.Numbers());
  if (match.depth == 0) {
    result.name = text.substr(text.front() == '.' ? 1 : 0);
    return result;
  }
  const format::EntryRecord& entry = image.EntryOf(match.node);
  result.name = NameOf(image, entry, oid.Behind(match.depth));
  result.type = &image.Type(entry.type);
  return result;
}

std::vector<Answer> LookUpAll(const Image& image, std::string_view text) {
  const OidText oid(text);
  const Image::Match match = oid.IsOid() ? MatchOf(image, oid.Numbers()) : Image::Match();
  std::vector<Answer> answers;
  if (match.depth == 0) return answers;
  const format::EntryRecord* winner = &image.EntryOf(match.node);
  for (const format::ModuleRecord& module : image.Modules()) {
    for (const format::EntryRecord& entry : image.Entries(module)) {
      if (entry.node != match.node) continue;
      answers.push_back({NameOf(image, entry, oid.Behind(match.depth)), image.Text(module.name),
                         &image.Type(entry.type)});
      if (&entry == winner) std::swap(answers.front(), answers.back());
    }
  }
  return answers;
}

std::string ListOf(const Image& image, const format::TypeRecord& type) {
  std::string list;
  for (const format::ValueRecord& value : image.Values(type)) {
    if (!list.empty()) list += ',';
    list.append(image.Text(value.label)).append("(").append(std::to_string(value.value)) += ')';
  }
  return list;
}

std::string LabelOf(const Image& image, const format::TypeRecord& type, std::int32_t number) {
  const auto values = image.Values(type);
  const auto found = std::lower_bound(
      values.begin(), values.end(), number,
      [](const format::ValueRecord& value, std::int32_t wanted) { return value.value < wanted; });
  if (found == values.end() || found->value != number) return "unknown(0)";
  return std::string(image.Text(found->label)) + "(" + std::to_string(number) + ")";
}

}  // namespace sentrel::mib
