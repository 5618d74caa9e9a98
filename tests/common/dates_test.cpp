#include "common/dates.h"

#include <gtest/gtest.h>

#include "common/numbers.h"

namespace sentrel {
namespace {

const LocaleTexts kEnglish;
const LocaleTexts kGerman = {
    {"Jan", "Feb", "Mär", "Apr", "Mai", "Jun", "Jul", "Aug", "Sep", "Okt", "Nov", "Dez"}, "", ""};
const LocaleTexts kSpanish = {
    {"ene", "feb", "mar", "abr", "may", "jun", "jul", "ago", "sept", "oct", "nov", "dic"},
    "a. m.",
    "p. m."};

LocalTime At(int hour, int minute) {
  return {2026, 12, 5, hour, minute, 37};
}

TEST(FormatTime, FollowsTheDesignatorOfTheLanguage) {
  struct Case {
    LocalTime time;
    const LocaleTexts& locale;
    const char* expected;
  };
  const Case cases[] = {
      {At(15, 49), kEnglish, "03:49 PM"}, {At(3, 5), kEnglish, "03:05 AM"},
      {At(0, 0), kEnglish, "12:00 AM"},   {At(12, 0), kEnglish, "12:00 PM"},
      {At(15, 49), kGerman, "15:49"},     {At(0, 0), kGerman, "00:00"},
      {At(15, 49), kSpanish, "15:49"},    {At(9, 7), kSpanish, "09:07"},
  };
  for (const Case& c : cases) EXPECT_EQ(FormatTime(c.time, c.locale), c.expected);
}

TEST(FormatMonthAndYear, SpellsTheMonthOut) {
  EXPECT_EQ(FormatMonthAndYear({2007, 5, 31, 0, 0, 0}, kEnglish), "May 2007");
  LocaleTexts french;
  french.fullMonths[7] = "août";
  EXPECT_EQ(FormatMonthAndYear({2026, 8, 1, 0, 0, 0}, french), "août 2026");
}

TEST(FormatMediumDate, UsesTheMonthNamesOfTheLanguage) {
  EXPECT_EQ(FormatMediumDate({2026, 12, 5, 0, 0, 0}, kEnglish), "05-Dec-26");
  EXPECT_EQ(FormatMediumDate({2009, 3, 31, 0, 0, 0}, kGerman), "31-Mär-09");
}

TEST(FormatLogStamp, IsFifteenCharactersInEnglish) {
  EXPECT_EQ(FormatLogStamp(At(15, 49), kEnglish), "Dec-05 15:49:37");
  EXPECT_EQ(FormatLogStamp({2026, 1, 2, 3, 4, 5}, kEnglish), "Jan-02 03:04:05");
}

TEST(RoundHalfEven, SendsATieToTheEvenNumber) {
  EXPECT_EQ(RoundHalfEven(12.5), 12);
  EXPECT_EQ(RoundHalfEven(13.5), 14);
  EXPECT_EQ(RoundHalfEven(13.51), 14);
  EXPECT_EQ(RoundHalfEven(12.49), 12);
  EXPECT_EQ(RoundHalfEven(-0.5), 0);
  EXPECT_EQ(RoundHalfEven(-1.5), -2);
}

}  // namespace
}  // namespace sentrel
