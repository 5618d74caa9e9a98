#include "mib/lookup.h"

#include <algorithm>
#include <array>
#include <span>

#include "mib/oid_text.h"

namespace sentrel::mib {

namespace {

/// The notification of exactly this OID; an empty text where there is none.
std::string_view NotificationAt(const Image& image, std::span<const std::uint32_t> oid) {
  const Image::Match match = image.Find(oid);
  const format::EntryRecord& entry = image.EntryOf(match.node);
  const bool isNotification = entry.kind == static_cast<std::uint32_t>(Kind::Notification);
  return match.depth == oid.size() && isNotification ? image.Text(entry.name) : std::string_view();
}

/// The notification X.N for X.0.N, else X.0.N for X.N; an empty text where there is none.
std::string_view OtherFormOf(const Image& image, std::span<const std::uint32_t> oid) {
  std::array<std::uint32_t, OidText::kMost + 1> other;
  if (oid.size() < 2) return {};
  const auto end = std::copy(oid.begin(), oid.end() - 1, other.begin());
  if (*(end - 1) == 0) {
    *(end - 1) = oid.back();
    const std::string_view without = NotificationAt(image, {other.begin(), end});
    if (!without.empty()) return without;
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

}  // namespace

Lookup LookUp(const Image& image, std::string_view text) {
  const OidText oid(text);
  Lookup result{{}, &image.Type(kNothing)};
  if (!oid.IsOid()) {
    result.name = text;
    return result;
  }
  const Image::Match match = image.Find(oid.Numbers());
  if (match.depth < oid.Numbers().size()) {
    result.name = OtherFormOf(image, oid.Numbers());
    if (!result.name.empty()) return result;
  }
  if (IsBarelyKnown(oid.Numbers(), match.depth)) {
    result.name = text.substr(text.front() == '.' ? 1 : 0);
    return result;
  }
  const format::EntryRecord& entry = image.EntryOf(match.node);
  const std::string_view name = image.Text(entry.name);
  const std::string_view suffix = oid.Behind(match.depth);
  result.name.reserve(name.size() + suffix.size());
  result.name.append(name).append(suffix);
  result.type = &image.Type(entry.type);
  return result;
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
