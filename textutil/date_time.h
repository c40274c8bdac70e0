#pragma once
// The date-time value: a 64-bit count of days since 30 December 1899 00:00, the time of day as
// the fraction. Days before that epoch count down linearly (-0.25 is 29 December 1899 18:00).

#include <optional>
#include <string>
#include <string_view>

namespace quillmere {

// The years a date-time value may name.
inline constexpr int kFirstYear = 100;
inline constexpr int kLastYear = 9999;

struct DateTimeFields {
  int year = 0;
  int month = 0;
  int day = 0;
  int hour = 0;
  int minute = 0;
  int second = 0;
};

// Year, month and day to a date-time value, rolling months and days over as calendar
// arithmetic does (month 13 is January of the next year, day 0 the last day of the month
// before). Nothing when the result falls outside kFirstYear..kLastYear.
std::optional<double> DateSerial(long long year, long long month, long long day);

// The order of a date's three fields by the setting DFormat: 0 year month day, 1 month day year,
// 2 day month year.
struct DateOrder {
  const char* caption;      // the date boxes' label: "YYYY  MM  DD"
  const char* reportOrder;  // the report header's words; month first has one blank before YYYY
  const char* pattern;      // FormatDateTime's pattern: "YYYY/MM/DD"
  int fields[3];            // left to right: 0 the year, 1 the month, 2 the day
};
// Nothing for another DFormat: the design's order stands and no date is formatted.
const DateOrder* DateOrderOf(int DFormat);

// A date exactly as written, without roll-over: nothing for 30 February or month 13.
std::optional<double> CalendarDate(long long year, long long month, long long day);

// A time of day as the fraction of a day; hours, minutes and seconds may run over.
double TimeSerial(long long hour, long long minute, long long second);

// Splits a value into its clock fields at the nearest whole second, a half second up:
// 23:59:59.5 reads as 00:00:00 of the next day. Nothing outside kFirstYear..kLastYear.
std::optional<DateTimeFields> SplitDateTime(double value);

// Date patterns: "yyyy", "mm", "dd", "hh", "nn", "ss" and their upper-case forms, with
// leading zeros; "mm" right after an hour field means minutes. Other characters stand as they
// are: "MM/DD/YYYY HH:nn:ss". A value outside the calendar gives empty text.
std::string FormatDateTime(double value, std::string_view pattern);

}  // namespace quillmere
