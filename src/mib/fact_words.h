#pragma once

#include <array>
#include <string_view>

namespace sentrel::mib {

/// The words of the fact files, by the numbers of Kind and BaseType.
inline constexpr std::array<std::string_view, 7> kKindWords = {
    "label", "value", "identity", "object", "notification", "group", "type"};
inline constexpr std::array<std::string_view, 13> kBaseWords = {
    "none",    "integer",   "octets", "oid",       "bits",  "ipaddress", "counter32",
    "gauge32", "timeticks", "opaque", "counter64", "table", "row"};

}  // namespace sentrel::mib
