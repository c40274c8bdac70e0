#include "textutil/date_time.h"

#include <cctype>
#include <chrono>
#include <cmath>
#include <cstdio>

namespace quillmere {
namespace {

using std::chrono::days;
using std::chrono::sys_days;
using std::chrono::year_month_day;

constexpr sys_days kEpoch = std::chrono::year{1899} / 12 / 30;

long long FloorDiv(long long a, long long b) {
  return a / b - ((a % b != 0) && ((a < 0) != (b < 0)));
}

bool InCalendar(const year_month_day& ymd) {
  const int y = static_cast<int>(ymd.year());
  return y >= kFirstYear && y <= kLastYear;
}

std::string Padded(int value, int width) {
  char buf[16];
  std::snprintf(buf, sizeof buf, "%0*d", width, value);
  return buf;
}

}  // namespace

std::optional<double> DateSerial(long long year, long long month, long long day) {
  // Far beyond any calendar year: refuse before the arithmetic can overflow.
  if (year < -100000 || year > 100000 || month < -1200000 || month > 1200000 || day < -40000000 ||
      day > 40000000)
    return std::nullopt;
  const long long months = year * 12 + (month - 1);
  const long long y = FloorDiv(months, 12);
  const long long m = months - y * 12 + 1;
  if (y < kFirstYear - 1 || y > kLastYear + 1) return std::nullopt;
  const sys_days first = std::chrono::year{static_cast<int>(y)} / static_cast<unsigned>(m) / 1;
  const sys_days date = first + days{day - 1};
  // Compared as day counts: a year_month_day holds only years up to 32767, and a date beyond
  // that would come back as some year inside the calendar.
  constexpr sys_days kFirstDay = std::chrono::year{kFirstYear} / 1 / 1;
  constexpr sys_days kLastDay = std::chrono::year{kLastYear} / 12 / 31;
  if (date < kFirstDay || date > kLastDay) return std::nullopt;
  return static_cast<double>((date - kEpoch).count());
}

std::optional<double> CalendarDate(long long year, long long month, long long day) {
  if (month < 1 || month > 12 || day < 1 || day > 31) return std::nullopt;
  const auto date = DateSerial(year, month, day);
  const auto back = date ? SplitDateTime(*date) : std::nullopt;
  if (!back || back->day != day) return std::nullopt;
  return date;
}

double TimeSerial(long long hour, long long minute, long long second) {
  return static_cast<double>(hour * 3600 + minute * 60 + second) / 86400.0;
}

std::optional<DateTimeFields> SplitDateTime(double value) {
  if (!(value > -700000.0 && value < 3000000.0)) return std::nullopt;
  double whole = std::floor(value);
  long long seconds = std::llround((value - whole) * 86400.0);
  if (seconds >= 86400) {
    whole += 1;
    seconds -= 86400;
  }
  const year_month_day ymd{kEpoch + days{static_cast<long long>(whole)}};
  if (!InCalendar(ymd)) return std::nullopt;
  DateTimeFields f;
  f.year = static_cast<int>(ymd.year());
  f.month = static_cast<int>(static_cast<unsigned>(ymd.month()));
  f.day = static_cast<int>(static_cast<unsigned>(ymd.day()));
  f.hour = static_cast<int>(seconds / 3600);
  f.minute = static_cast<int>(seconds / 60 % 60);
  f.second = static_cast<int>(seconds % 60);
  return f;
}

std::string FormatDateTime(double value, std::string_view pattern) {
  const auto f = SplitDateTime(value);
  if (!f) return {};
  std::string out;
  bool afterHour = false;
  size_t i = 0;
  auto at = [&](std::string_view token) {
    if (pattern.size() - i < token.size()) return false;
    for (size_t k = 0; k < token.size(); ++k)
      if (std::tolower(static_cast<unsigned char>(pattern[i + k])) != token[k]) return false;
    return true;
  };
  while (i < pattern.size()) {
    if (at("yyyy")) {
      out += Padded(f->year, 4), i += 4, afterHour = false;
    } else if (at("mm")) {
      out += Padded(afterHour ? f->minute : f->month, 2), i += 2, afterHour = false;
    } else if (at("dd")) {
      out += Padded(f->day, 2), i += 2, afterHour = false;
    } else if (at("hh")) {
      out += Padded(f->hour, 2), i += 2, afterHour = true;
    } else if (at("nn")) {
      out += Padded(f->minute, 2), i += 2, afterHour = false;
    } else if (at("ss")) {
      out += Padded(f->second, 2), i += 2, afterHour = false;
    } else {
      out += pattern[i++];
    }
  }
  return out;
}

const DateOrder* DateOrderOf(int DFormat) {
  static const DateOrder kOrders[] = {
      {"YYYY  MM  DD", "YYYY  MM  DD", "YYYY/MM/DD", {0, 1, 2}},
      {"MM  DD  YYYY", "MM  DD YYYY", "MM/DD/YYYY", {1, 2, 0}},
      {"DD  MM  YYYY", "DD  MM  YYYY", "DD/MM/YYYY", {2, 1, 0}},
  };
  return DFormat >= 0 && DFormat <= 2 ? &kOrders[DFormat] : nullptr;
}

}  // namespace quillmere
