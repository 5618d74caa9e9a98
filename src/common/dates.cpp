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

const std::string& MonthName(const LocalTime& time, const LocaleTexts& locale) {
  return locale.months.at(static_cast<size_t>(time.month - 1));
}

}  // namespace

std::string FormatMediumDate(const LocalTime& time, const LocaleTexts& locale) {
  return fmt::format("{:02}-{}-{:02}", time.day, MonthName(time, locale), time.year % 100);
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
