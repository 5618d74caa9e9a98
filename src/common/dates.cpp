#include "common/dates.h"

#include <fmt/format.h>

namespace sentrel {
namespace {

std::string MediumTime(const LocalTime& time, const LocaleTexts& locale) {
  const int hour = time.hour % 12 == 0 ? 12 : time.hour % 12;
  const std::string& designator = time.hour < 12 ? locale.am : locale.pm;
  return fmt::format("{:02}:{:02} {}", hour, time.minute, designator);
}

std::string ShortTime(const LocalTime& time) {
  return fmt::format("{:02}:{:02}", time.hour, time.minute);
}

const std::string& NameOf(int month, const std::array<std::string, 12>& names) {
  return names.at(static_cast<size_t>(month - 1));
}

const std::string& MonthName(const LocalTime& time, const LocaleTexts& locale) {
  return NameOf(time.month, locale.months);
}

}  // namespace

std::string FormatMediumDate(const LocalTime& time, const LocaleTexts& locale) {
  return fmt::format("{:02}-{}-{:02}", time.day, MonthName(time, locale), time.year % 100);
}

std::string FormatMonthAndYear(const LocalTime& time, const LocaleTexts& locale) {
  return fmt::format("{} {:04}", NameOf(time.month, locale.fullMonths), time.year);
}

std::string FormatTime(const LocalTime& time, const LocaleTexts& locale) {
  std::string twelveHour = MediumTime(time, locale);
  return twelveHour.back() == 'M' ? twelveHour : ShortTime(time);
}

std::string FormatLogStamp(const LocalTime& time, const LocaleTexts& locale) {
  return fmt::format("{}-{:02} {:02}:{:02}:{:02}", MonthName(time, locale), time.day, time.hour,
                     time.minute, time.second);
}

}  // namespace sentrel
