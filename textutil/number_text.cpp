#include "textutil/number_text.h"

#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "textutil/text.h"

namespace quillmere {
namespace {

// A finite value as decimal digits: value = 0.digits x 10^exponent, digits without leading zero,
// rounded to `significant` digits by the C library (exact binary value, ties to even).
struct Decimal {
  bool negative = false;
  std::string digits;  // empty for zero
  int exponent = 0;
};

Decimal ToDecimal(double value, int significant) {
  Decimal d;
  d.negative = std::signbit(value);
  // to_chars with a precision rounds exactly as printf's "%.*e" does, at a fraction of the cost.
  char buf[64];
  const auto end = std::to_chars(buf, buf + sizeof buf, std::fabs(value),
                                 std::chars_format::scientific, significant - 1)
                       .ptr;
  std::string_view s(buf, end - buf);
  const size_t e = s.find('e');
  for (char c : s.substr(0, e))
    if (c != '.') d.digits.push_back(c);
  d.exponent = std::atoi(std::string(s.substr(e + 1)).c_str()) + 1;
  while (!d.digits.empty() && d.digits.back() == '0') d.digits.pop_back();
  if (d.digits.empty()) d.exponent = 0;
  return d;
}

// Increments a string of decimal digits by one unit in its last place.
void Increment(std::string& digits) {
  for (size_t i = digits.size(); i-- > 0;) {
    if (digits[i] != '9') {
      ++digits[i];
      return;
    }
    digits[i] = '0';
  }
  digits.insert(digits.begin(), '1');
}

std::string NumberTextOf(double value, int significant) {
  if (!std::isfinite(value)) return std::isnan(value) ? " NaN" : (value < 0 ? "-Inf" : " Inf");
  if (value == 0) value = 0;  // no "-0"
  char buf[64];
  const auto end =
      std::to_chars(buf, buf + sizeof buf, value, std::chars_format::general, significant).ptr;
  std::string s(buf, end);
  for (char& c : s)
    if (c == 'e') c = 'E';
  // "%G" writes "0.45" and "1.5E-05"; the program writes ".45" and keeps the exponent form.
  const bool negative = s[0] == '-';
  std::string body = negative ? s.substr(1) : s;
  if (body.size() > 1 && body[0] == '0' && body[1] == '.') body.erase(0, 1);
  return (negative ? "-" : " ") + body;
}

std::string FormatOf(double value, int significant, std::string_view pattern) {
  const size_t point = pattern.find('.');
  const std::string_view whole = pattern.substr(0, point);
  const int decimals =
      point == std::string_view::npos ? 0 : static_cast<int>(pattern.size() - point - 1);
  int minWhole = 0;
  for (char c : whole)
    if (c == '0') ++minWhole;
  if (!std::isfinite(value)) return NumberTextOf(value, significant).substr(1);

  // Whole numbers that fit the significant digits need no decimal conversion.
  const double size = std::fabs(value);
  if (size == std::trunc(size) && size < std::pow(10.0, significant)) {
    std::string digits = size == 0 ? "" : std::to_string(static_cast<long long>(size));
    const size_t wholeDigits = static_cast<size_t>(minWhole);
    if (digits.size() < wholeDigits) digits.insert(0, wholeDigits - digits.size(), '0');
    if (decimals > 0) digits += "." + std::string(decimals, '0');
    return (value < 0 ? "-" : "") + digits;
  }
  const Decimal d = ToDecimal(value, significant);
  // Digits of |value| x 10^decimals, rounded half away from zero at the units place.
  std::string scaled;
  const int keep = d.exponent + decimals;
  if (d.digits.empty() || keep < 0) {
    scaled = "0";
  } else if (keep >= static_cast<int>(d.digits.size())) {
    scaled = d.digits + std::string(keep - d.digits.size(), '0');
  } else {
    scaled = keep == 0 ? std::string("0") : d.digits.substr(0, keep);
    if (d.digits[keep] >= '5') Increment(scaled);
  }
  const size_t first = scaled.find_first_not_of('0');
  scaled = first == std::string::npos ? std::string() : scaled.substr(first);
  const size_t width = static_cast<size_t>(minWhole + decimals);
  if (scaled.size() < width) scaled.insert(0, width - scaled.size(), '0');
  if (decimals > 0) scaled.insert(scaled.size() - decimals, ".");
  return (d.negative && value != 0 ? "-" : "") + scaled;
}

}  // namespace

double RoundHalfEven(double x) {
  return std::nearbyint(x);
}

std::string NumberText(double value) {
  return NumberTextOf(value, 15);
}
std::string NumberText(float value) {
  return NumberTextOf(value, 7);
}

std::string Format(double value, std::string_view pattern) {
  return FormatOf(value, 15, pattern);
}
std::string Format(float value, std::string_view pattern) {
  return FormatOf(value, 7, pattern);
}

double Val(std::string_view text) {
  size_t i = 0;
  while (i < text.size() && (text[i] == ' ' || text[i] == '\t')) ++i;
  std::string number;
  if (i < text.size() && (text[i] == '+' || text[i] == '-')) number.push_back(text[i++]);
  size_t digits = 0;
  auto takeDigits = [&] {
    size_t n = 0;
    while (i < text.size() && text[i] >= '0' && text[i] <= '9') {
      number.push_back(text[i++]);
      ++n;
    }
    return n;
  };
  digits += takeDigits();
  if (i < text.size() && text[i] == '.') {
    number.push_back(text[i++]);
    digits += takeDigits();
  }
  if (digits == 0) return 0;
  if (i < text.size() && (text[i] == 'E' || text[i] == 'e' || text[i] == 'D' || text[i] == 'd')) {
    size_t j = i + 1;
    if (j < text.size() && (text[j] == '+' || text[j] == '-')) ++j;
    if (j < text.size() && text[j] >= '0' && text[j] <= '9') {
      number.push_back('e');
      number.append(text.substr(i + 1, j - i - 1));
      i = j;
      takeDigits();
    }
  }
  return std::strtod(number.c_str(), nullptr);
}

bool IsNumeric(const std::string& text) {
  const std::string s = Trimmed(text, " \t");
  size_t i = 0;
  if (i < s.size() && (s[i] == '+' || s[i] == '-')) ++i;
  size_t digits = 0;
  while (i < s.size() && (s[i] >= '0' && s[i] <= '9')) ++i, ++digits;
  if (i < s.size() && s[i] == '.') {
    ++i;
    while (i < s.size() && (s[i] >= '0' && s[i] <= '9')) ++i, ++digits;
  }
  if (digits == 0) return false;
  if (i < s.size() && (s[i] == 'E' || s[i] == 'e' || s[i] == 'D' || s[i] == 'd')) {
    ++i;
    if (i < s.size() && (s[i] == '+' || s[i] == '-')) ++i;
    size_t exponent = 0;
    while (i < s.size() && (s[i] >= '0' && s[i] <= '9')) ++i, ++exponent;
    if (exponent == 0) return false;
  }
  return i == s.size();
}

}  // namespace quillmere
