#include "query/time_value.h"

#include <charconv>
#include <ctime>
#include <string>

#include "common/text.h"

namespace sentrel::query {
namespace {

using std::chrono::seconds;
using std::chrono::system_clock;

constexpr int kMostAgo = 1'000'000;  // of any unit
/// Clocks that count nanoseconds end soon after.
constexpr int kLastYear = 2200;

std::optional<int> NumberOf(std::string_view digits, int least, int most) {
  int number = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  const bool isNumber = error == std::errc() && end == digits.data() + digits.size();
  return isNumber && number >= least && number <= most ? std::optional(number) : std::nullopt;
}

std::optional<seconds> UnitOf(char unit) {
  switch (unit) {
    case 's':
      return seconds(1);
    case 'm':
      return std::chrono::minutes(1);
    case 'h':
      return std::chrono::hours(1);
    case 'd':
      return std::chrono::days(1);
    case 'w':
      return std::chrono::weeks(1);
    default:
      return std::nullopt;
  }
}

std::optional<Moment> Ago(std::string_view text, Moment now) {
  if (text.size() < 2) return std::nullopt;
  const auto unit = UnitOf(text.back());
  const auto count = NumberOf(text.substr(0, text.size() - 1), 0, kMostAgo);
  if (!unit || !count) return std::nullopt;
  const seconds ago = *count * *unit;
  // Nothing is older than the epoch, and a clock counts no further back than some centuries.
  const auto sinceEpoch = std::chrono::duration_cast<seconds>(now.time_since_epoch());
  return ago < sinceEpoch ? now - ago : Moment{};
}

bool TakeDate(std::string_view text, std::tm& time) {
  const auto parts = Split(text, "-");
  if (parts.size() != 3) return false;
  const auto year = NumberOf(parts[0], 1970, kLastYear);
  const auto month = NumberOf(parts[1], 1, 12);
  const auto day = NumberOf(parts[2], 1, 31);
  if (!year || !month || !day) return false;
  time.tm_year = *year - 1900;
  time.tm_mon = *month - 1;
  time.tm_mday = *day;
  return true;
}

bool TakeTime(std::string_view text, std::tm& time) {
  const auto parts = Split(text, ":");
  if (parts.size() < 2 || parts.size() > 3) return false;
  const auto hour = NumberOf(parts[0], 0, 23);
  const auto minute = NumberOf(parts[1], 0, 59);
  const auto second = parts.size() == 3 ? NumberOf(parts[2], 0, 59) : 0;
  if (!hour || !minute || !second) return false;
  time.tm_hour = *hour;
  time.tm_min = *minute;
  time.tm_sec = *second;
  return true;
}

}  // namespace

std::optional<Moment> MomentOf(std::string_view text, Moment now) {
  if (const auto ago = Ago(text, now)) return ago;
  const std::time_t today = system_clock::to_time_t(now);
  std::tm time{};
  localtime_r(&today, &time);
  time.tm_hour = time.tm_min = time.tm_sec = 0;
  time.tm_isdst = -1;
  const auto between = text.find('T');
  const bool hasBoth = between != std::string_view::npos;
  const bool isRead =
      hasBoth ? TakeDate(text.substr(0, between), time) && TakeTime(text.substr(between + 1), time)
              : TakeDate(text, time) || TakeTime(text, time);
  if (!isRead) return std::nullopt;
  const int day = time.tm_mday;
  const std::time_t seconds = std::mktime(&time);
  // The 31st of a shorter month.
  if (time.tm_mday != day) return std::nullopt;
  return system_clock::from_time_t(seconds);
}

}  // namespace sentrel::query
