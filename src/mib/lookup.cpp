#include "mib/lookup.h"

#include <algorithm>

#include "mib/oid_text.h"

namespace sentrel::mib {

Lookup LookUp(const Image& image, std::string_view text) {
  const OidText oid(text);
  Lookup result{{}, &image.Type(kNothing)};
  if (!oid.IsOid()) {
    result.name = text;
    return result;
  }
  const Image::Match match = image.Find(oid.Numbers());
  if (match.depth == 0) {
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
