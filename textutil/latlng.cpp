#include "textutil/latlng.h"

#include <cmath>

#include "textutil/number_text.h"
#include "textutil/text.h"

namespace quillmere {
namespace {

// Text that the number text of a whole number gives, without its leading blank.
std::string WholeText(double value) {
  std::string s = NumberText(value);
  return s[0] == ' ' ? s.substr(1) : s;
}

// The degrees, minutes and seconds of both texts. The factors a shade over 6000, 3600 and so
// on push a value that is a hair under a whole minute or tenth of a second up to it.
std::string AngleText(float x, double f, double minuteFactor, double minuteDivisor,
                      double secondFactor, double wrap) {
  const double whole = Fix(x);
  std::string degrees = x < 0 && whole == 0 ? "-" : "";
  degrees += WholeText(whole) + ":";
  double m = Int(Int(f * minuteFactor) / minuteDivisor);
  const double r = f - m / 60;
  double s = r * secondFactor;
  if (Val(Format(s, "00.0")) >= 60) {
    s = s - 60;
    m = m + 1;
  }
  if (Val(Format(m, "00")) >= 60) {
    m = 0;
    // The carry moves the degrees away from zero, so a negative value keeps its sign.
    const bool negative = degrees[0] == '-';
    double d = Val(degrees) + (negative ? -1 : 1);
    if (std::fabs(d) >= wrap) d = 0;
    degrees = negative && d == 0 ? "-" : "";
    degrees += WholeText(d) + ":";
  }
  return degrees + Format(m, "00") + ":" + Format(s, "00.0");
}

// The parts of a colon form: d (whole degrees), m (whole minutes, with two colons) and r, the
// rest. Gives false when the text has no colon.
struct ColonForm {
  double d = 0;
  double m = 0;
  double r = 0;
  bool twoColons = false;
};

bool ParseColonForm(const std::string& s, ColonForm& form) {
  const size_t p1 = s.find(':');
  if (p1 == std::string::npos) return false;
  form.d = RoundHalfEven(Val(s.substr(0, p1 + 1)));
  const size_t p2 = s.find(':', p1 + 1);
  form.twoColons = p2 != std::string::npos;
  if (form.twoColons) form.m = RoundHalfEven(Val(s.substr(p1 + 1, p2 - p1 - 1)));
  std::string rest = s.substr((form.twoColons ? p2 : p1) + 1);
  form.r = ParseDecimal(rest);
  return true;
}

// d + m / 60 + r / 3600, or d + r / 60 with one colon; `d` is the degrees to count with.
double ColonValue(const ColonForm& form, double d) {
  return form.twoColons ? d + form.m / 60 + form.r / 3600 : d + form.r / 60;
}

// A 32-bit result; what a 32-bit float cannot hold is out of range.
float Single(double value) {
  return std::fabs(value) <= 3.4028234663852886e38 ? static_cast<float>(value) : kLatLongError;
}

}  // namespace

std::string LatToText(float x) {
  const double f = std::fabs(static_cast<double>(x)) - std::fabs(Fix(x));
  return AngleText(x, f, 6000.5, 100, 3600.005, 90);
}

std::string LongToText(float x) {
  const double f = std::fabs(static_cast<double>(x) - Fix(x));
  return AngleText(x, f, 60000.5, 1000, 3600.05, 360);
}

float TextToLat(std::string& s) {
  s = Trimmed(s);
  const double sign = !s.empty() && s[0] == '-' ? -1 : 1;
  ColonForm form;
  if (!ParseColonForm(s, form)) return Single(ParseDecimal(s));
  // The degrees count by their size: the sign was read from the text.
  const double value = sign * ColonValue(form, std::fabs(form.d));
  return value >= -90 && value <= 90 ? static_cast<float>(value) : kLatLongError;
}

float TextToLong(std::string& s) {
  s = Trimmed(s);
  const bool east = !s.empty() && s[0] == '-';
  if (east) s.erase(0, 1);
  if (!s.empty() && s[0] == '+') s.erase(0, 1);
  ColonForm form;
  if (!ParseColonForm(s, form)) {
    const double value = Val(s);
    return Single(east ? -value : value);
  }
  double value = ColonValue(form, form.d);
  if (east) value = 360 - value;
  return value >= 0 && value <= 360 ? static_cast<float>(value) : kLatLongError;
}

double ParseDecimal(std::string& s) {
  if (s.empty()) return 0;
  for (char& c : s)
    if (c == ',') c = '.';
  return Val(s);
}

std::string ShownLongitude(float ObsLong, const std::string& DisplayWest) {
  return DisplayWest == "W" ? LongToText(ObsLong) : LongToText(static_cast<float>(360 - ObsLong));
}

}  // namespace quillmere
