#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace sentrel::query {

/// What a notification is about, as far as its name tells.
enum class Kind { kProblem, kClear, kSecurity, kStart, kOther };

inline constexpr std::array<std::string_view, 5> kKindNames = {"problem", "clear", "security",
                                                               "start", "other"};

/// By words in the name: "linkDown" is a problem, "linkUp" clears one.
Kind KindOf(std::string_view notificationName);

std::optional<Kind> KindNamed(std::string_view name);

}  // namespace sentrel::query
