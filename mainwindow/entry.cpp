#include "mainwindow/entry.h"

#include <algorithm>
#include <cctype>
#include <cstdio>

#include "textutil/date_time.h"
#include "textutil/text.h"

namespace quillmere {
namespace {

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

// Reads a run of 1 to `most` digits at `i`.
bool Digits(const std::string& s, size_t& i, int most, long long& value) {
  const size_t start = i;
  value = 0;
  while (i < s.size() && IsDigit(s[i]) && static_cast<int>(i - start) < most)
    value = value * 10 + (s[i++] - '0');
  return i > start && (i == s.size() || !IsDigit(s[i]));
}

// "HH:MM[:SS]" from `i` to the end.
std::optional<double> TimePart(const std::string& s, size_t i) {
  long long h = 0, m = 0, sec = 0;
  if (!Digits(s, i, 2, h) || i >= s.size() || s[i++] != ':' || !Digits(s, i, 2, m))
    return std::nullopt;
  if (i < s.size() && s[i] == ':') {
    ++i;
    if (!Digits(s, i, 2, sec)) return std::nullopt;
  }
  if (i != s.size() || h > 23 || m > 59 || sec > 59) return std::nullopt;
  return TimeSerial(h, m, sec);
}

}  // namespace

std::optional<double> ParseDateTimeEntry(const std::string& text) {
  const std::string s = Trimmed(text, " \t");
  if (s.find('/') == std::string::npos) return TimePart(s, 0);
  size_t i = 0;
  long long month = 0, day = 0, year = 0;
  if (!Digits(s, i, 2, month) || i >= s.size() || s[i++] != '/' || !Digits(s, i, 2, day) ||
      i >= s.size() || s[i++] != '/' || !Digits(s, i, 4, year) || year < 1000)
    return std::nullopt;
  const auto date = CalendarDate(year, month, day);
  if (!date) return std::nullopt;
  if (i == s.size()) return *date;
  if (s[i] != ' ') return std::nullopt;
  while (i < s.size() && s[i] == ' ') ++i;
  const auto time = TimePart(s, i);
  if (!time) return std::nullopt;
  return *date + *time;
}

std::string NormalizeEntry(const std::string& line) {
  return UpperCase(Trimmed(line, " \t"));
}

bool IsValueEntry(const std::string& S) {
  std::string U = S;
  U.erase(std::remove_if(U.begin(), U.end(), [](char c) { return c == ':' || c == '/'; }), U.end());
  return IsNumeric(S) || IsNumeric(U) || ParseDateTimeEntry(S).has_value();
}

std::string WithMenuLetter(const std::string& S, const std::string& PendingCommand) {
  static const char* const kShortForms[] = {"A", "E", "H", "HA", "RS", "RA", "D", "*"};
  for (const char* form : kShortForms)
    if (S == form) return (PendingCommand == "S" ? "S" : "J") + S;
  if ((S == "I" || S == "C") && PendingCommand == "J") return "J" + S;
  return S;
}

}  // namespace quillmere
