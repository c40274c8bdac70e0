// Jupiter by a trigonometric series, for the central meridian only: the coordinates of the
// display and the horizon come from the orbit model of positions.cpp, and the two are not mixed.

#include <cmath>

#include "ephemeris/checked.h"
#include "ephemeris/constants.h"
#include "ephemeris/ephemeris.h"
#include "ephemeris/trig.h"
#include "textutil/number_text.h"

namespace quillmere {

using checked::Divide;
using checked::Store;
using classic::kDaysPerJulianCentury;
using classic::kFullCircle;
using classic::kPi;

namespace {

// Seconds of arc in one radian, to the whole second: the series' coefficients are in seconds.
constexpr double kArcsecondsPerRadian = 206265;

// A fundamental argument: base + rate x t revolutions (t in days), its fraction in radians,
// 0 to 2π; the floor keeps it there for a negative t too.
double Argument(double base, double rate, double t) {
  const double x = base + rate * t;
  return (x - Int(x)) * kFullCircle;
}

}  // namespace

// Jupiter's geocentric right ascension and declination (radians, mean equator and equinox of
// date: the obliquity of date, no nutation, no aberration, no light-time) and its distance from
// the Earth (AU), at t days from J2000.0 (Julian date - 2451545, UT as the caller gives it).
// A low-precision series: mean longitudes and anomalies of the Sun, Jupiter and Saturn linear in
// t, in revolutions; the Sun's equation of centre; Jupiter's heliocentric longitude, latitude and
// radius vector with its largest terms from Saturn (coefficients in seconds of arc and in AU).
// The right ascension is not folded and runs from -π/2 to 3π/2. `century` is T, Julian centuries
// from 1900 January 0.5.
JupiterSeries JupiterSeriesPosition(double t) {
  using trig::cos;
  using trig::sin;
  using trig::tan;
  JupiterSeries out;
  const double T = t / kDaysPerJulianCentury + 1;

  const double L = Argument(0.779072, 0.00273790931, t);   // Sun's mean longitude
  const double g = Argument(0.993126, 0.0027377785, t);    // Sun's mean anomaly
  const double l5 = Argument(0.089608, 0.00023080893, t);  // Jupiter's mean longitude
  const double g5 = Argument(0.056531, 0.00023080893, t);  // Jupiter's mean anomaly
  const double g6 = Argument(0.882987, 0.00009294371, t);  // Saturn's mean anomaly

  // The Sun: longitude Ls (radians) and distance R.
  const double S = 6910 * sin(g) + 72 * sin(2 * g) - 17 * T * sin(g) - 7 * cos(g - g5);
  const double R = 1.00014 - 0.01675 * cos(g) - 0.00014 * cos(2 * g);
  const double Ls = L + S / kArcsecondsPerRadian;

  // Jupiter: heliocentric longitude perturbation U and latitude B (seconds of arc), radius r.
  const double U = 19934 * sin(g5) + 5023 * T + 2511 + 1093 * cos(2 * g5 - 5 * g6) +
                   601 * sin(2 * g5) - 479 * sin(2 * g5 - 5 * g6) - 185 * sin(2 * g5 - 2 * g6) +
                   137 * sin(3 * g5 - 5 * g6) - 131 * sin(g5 - 2 * g6);
  const double B = -4692 * cos(g5) + 227 - 227 * cos(2 * g5) + 30 * T * sin(g5);
  const double r = 5.20883 - 0.25122 * cos(g5) - 0.00604 * cos(2 * g5) +
                   0.0026 * cos(2 * g5 - 2 * g6) - 0.0017 * cos(3 * g5 - 5 * g6) -
                   0.00106 * sin(2 * g5 - 2 * g6) - 0.00091 * T * sin(g5) - 0.00084 * T * cos(g5);
  const double l = l5 + U / kArcsecondsPerRadian;  // not folded
  const double b = B / kArcsecondsPerRadian;

  // Geocentric, in the ecliptic, with the x axis towards longitude Ls.
  const double y = r * cos(b) * sin(l - Ls);
  const double x = r * cos(b) * cos(l - Ls) + R;
  double A = 0;
  if (double q; Divide(y, x, q)) A = trig::atan(q);
  if (x < 0) A = A + kPi;
  const double lambda = A + Ls;  // not folded
  const double zHelio = r * sin(b);
  Store(out.distance, std::sqrt(y * y + x * x + zHelio * zHelio));
  double s = 0, beta = 0;
  Divide(zHelio, out.distance, s);
  if (double q; Divide(s, std::sqrt(1 - s * s), q)) beta = trig::atan(q);

  const double epsilon = (84428 - 47 * T) / kArcsecondsPerRadian;  // obliquity of date
  const double Y = sin(lambda) * cos(epsilon) - tan(beta) * sin(epsilon);
  const double X = cos(lambda);
  if (double q; Divide(Y, X, q)) out.alpha = trig::atan(q);
  if (X < 0) out.alpha = out.alpha + kPi;
  s = sin(beta) * cos(epsilon) + cos(beta) * sin(epsilon) * sin(lambda);
  if (double q; Divide(s, std::sqrt(1 - s * s), q)) out.delta = trig::atan(q);
  out.century = T;
  return out;
}

}  // namespace quillmere
