#pragma once

#include <chrono>
#include <string>

namespace sentrel {

/// "2026-11-23 15:49:37.125", in local time.
std::string TimeText(std::chrono::system_clock::time_point moment);
/// "15:49:37.125", in local time.
std::string TimeOfDayText(std::chrono::system_clock::time_point moment);

}  // namespace sentrel
