#pragma once

#include <array>
#include <string>

namespace sentrel {

/// A moment of local time, to the second. Months count from 1, hours from 0 to 23.
struct LocalTime {
  int year = 0;
  int month = 1;
  int day = 1;
  int hour = 0;
  int minute = 0;
  int second = 0;
};

/// The words of the system's language for dates and times. The defaults are English.
struct LocaleTexts {
  /// Short month names, January first, without a closing dot.
  std::array<std::string, 12> months = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                        "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  /// Designators of the 12-hour clock; empty in a language that has none.
  std::string am = "AM";
  std::string pm = "PM";
  /// Full month names, January first, in the form used without a day.
  std::array<std::string, 12> fullMonths = {"January",   "February", "March",    "April",
                                            "May",       "June",     "July",     "August",
                                            "September", "October",  "November", "December"};
};

/// The "Medium Date" form: 05-Dec-26.
std::string FormatMediumDate(const LocalTime& time, const LocaleTexts& locale);

/// The full name of the month and the year: May 2007.
std::string FormatMonthAndYear(const LocalTime& time, const LocaleTexts& locale);

/// A time of day without seconds: the 12-hour form (03:49 PM) where the language's designator
/// ends in "M", the 24-hour form (15:49) elsewhere.
std::string FormatTime(const LocalTime& time, const LocaleTexts& locale);

/// The stamp of a log entry: Dec-05 15:49:37.
std::string FormatLogStamp(const LocalTime& time, const LocaleTexts& locale);

}  // namespace sentrel
