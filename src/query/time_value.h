#pragma once

#include <chrono>
#include <optional>
#include <string_view>

namespace sentrel::query {

using Moment = std::chrono::system_clock::time_point;

/// The moment that "since:" and "until:" name: as long ago as "90s", "30m", "1h", "2d" or "1w" say,
/// or a local time "14:30" of today, "2026-11-24", "2026-11-24T14:30", either with seconds. Nothing
/// for any other text.
std::optional<Moment> MomentOf(std::string_view text, Moment now);

}  // namespace sentrel::query
