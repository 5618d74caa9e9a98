#pragma once

#include <array>
#include <string_view>

namespace sentrel::mib {

/// The words of the fact files, by the numbers of Kind and BaseType.
inline constexpr std::array<std::string_view, 7> kKindWords = {
    "label", "value", "identity", "object", "trap", "group", "type"};
inline constexpr std::array<std::string_view, 13> kBaseWords = {
    "none",    "integer",   "octets", "oid",       "bits",  "ipaddress", "counter32",
    "gauge32", "timeticks", "opaque", "counter64", "table", "row"};

inline constexpr std::string_view kModuleWord = "module";
inline constexpr std::string_view kBelowWord = "below";
inline constexpr std::string_view kLabelsWord = "labels";
inline constexpr std::string_view kUnitsWord = "units";
inline constexpr std::string_view kRelatedWord = "of";
inline constexpr std::string_view kSameWord = "same";

}  // namespace sentrel::mib
