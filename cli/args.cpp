#include "cli/args.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "textutil/date_time.h"
#include "textutil/latlng.h"

namespace quillmere::cli {
namespace {

[[noreturn]] void Bad(const std::string& option, const std::string& text, const char* why) {
  throw UsageError("bad " + option + " '" + text + "': " + why);
}

// A whole decimal number and nothing else.
std::optional<double> Decimal(const std::string& text) {
  if (text.empty()) return std::nullopt;
  char* end = nullptr;
  const double v = std::strtod(text.c_str(), &end);
  if (*end != '\0' || !std::isfinite(v) || text.find_first_of("xXnN") != std::string::npos)
    return std::nullopt;
  return v;
}

// Each field of a colon form is a number: digits, with a decimal point (a comma too in the last
// field, as the program reads it) and a sign only before the first. Anything else would be
// read as 0 and give a place nobody typed.
bool ColonFieldsAreNumbers(const std::string& text) {
  size_t start = 0;
  for (int field = 0;; ++field) {
    const size_t end = std::min(text.find(':', start), text.size());
    const bool last = end == text.size();
    size_t i = start;
    if (field == 0 && i < end && (text[i] == '-' || text[i] == '+')) ++i;
    size_t digits = 0, points = 0;
    for (; i < end; ++i) {
      const char c = text[i];
      if (c >= '0' && c <= '9') {
        ++digits;
      } else if (c == '.' || (c == ',' && last)) {
        ++points;
      } else {
        return false;
      }
    }
    if (digits == 0 || points > 1) return false;
    if (last) return true;
    start = end + 1;
  }
}

}  // namespace

Args::Args(const std::vector<std::string>& words, const std::set<std::string>& options,
           const std::set<std::string>& flags) {
  for (size_t i = 0; i < words.size(); ++i) {
    const std::string& w = words[i];
    if (options.count(w)) {
      if (i + 1 >= words.size()) throw UsageError("missing value for " + w);
      if (Has(w)) throw UsageError("repeated option " + w);
      values_[w] = words[++i];
    } else if (flags.count(w)) {
      values_[w] = "";
    } else {
      throw UsageError("unknown argument '" + w + "'");
    }
  }
}

const std::string& Args::Required(const std::string& name) const {
  const auto it = values_.find(name);
  if (it == values_.end()) throw UsageError("missing " + name);
  return it->second;
}

std::optional<std::string> Args::Optional(const std::string& name) const {
  const auto it = values_.find(name);
  if (it == values_.end()) return std::nullopt;
  return it->second;
}

double ParseInstant(const std::string& option, const std::string& text, bool dateAlone) {
  // Digits where the pattern has them and nothing else: scanf alone would take "-1" for an hour.
  const auto shaped = [&text](const char* pattern) {
    const std::string_view p(pattern);
    if (text.size() != p.size()) return false;
    for (size_t i = 0; i < p.size(); ++i) {
      const bool digit = text[i] >= '0' && text[i] <= '9';
      if (p[i] == '9' ? !digit : text[i] != p[i]) return false;
    }
    return true;
  };
  int y = 0, mo = 0, d = 0, h = 0, mi = 0, s = 0;
  const bool full =
      shaped("9999-99-99T99:99:99") &&
      std::sscanf(text.c_str(), "%4d-%2d-%2dT%2d:%2d:%2d", &y, &mo, &d, &h, &mi, &s) == 6;
  const bool date = !full && dateAlone && shaped("9999-99-99") &&
                    std::sscanf(text.c_str(), "%4d-%2d-%2d", &y, &mo, &d) == 3;
  if (!full && !date)
    Bad(option, text,
        dateAlone ? "expected YYYY-MM-DD or YYYY-MM-DDTHH:MM:SS (UT)"
                  : "expected YYYY-MM-DDTHH:MM:SS (UT)");
  if (y < kFirstYear || y > kLastYear) Bad(option, text, "year out of range 100 to 9999");
  const auto day = CalendarDate(y, mo, d);
  if (!day) Bad(option, text, "no such date");
  if (h > 23 || mi > 59 || s > 59) Bad(option, text, "no such time of day");
  return *day + TimeSerial(h, mi, s);
}

float ParseLatitude(const std::string& option, const std::string& text) {
  if (text.find(':') != std::string::npos) {
    if (!ColonFieldsAreNumbers(text))
      Bad(option, text, "not a number in degrees:minutes[:seconds]");
    std::string s = text;
    const float v = TextToLat(s);
    if (v == kLatLongError) Bad(option, text, "out of range -90 to 90");
    return v;
  }
  const auto v = Decimal(text);
  if (!v) Bad(option, text, "not a number");
  if (*v < -90 || *v > 90) Bad(option, text, "out of range -90 to 90");
  return static_cast<float>(*v);
}

float ParseLongitude(const std::string& option, const std::string& text) {
  if (text.find(':') != std::string::npos) {
    if (!ColonFieldsAreNumbers(text))
      Bad(option, text, "not a number in degrees:minutes[:seconds]");
    std::string s = text;
    const float v = TextToLong(s);
    if (v == kLatLongError) Bad(option, text, "out of range 0 to 360");
    return v;
  }
  const auto v = Decimal(text);
  if (!v) Bad(option, text, "not a number");
  if (*v < -360 || *v > 360) Bad(option, text, "out of range -360 to 360");
  // Kept as typed, as the program keeps a decimal that LNG is given: -75.5 is 75.5 degrees east
  // and stays -75.5, so every digit is the program's own.
  return static_cast<float>(*v);
}

}  // namespace quillmere::cli
