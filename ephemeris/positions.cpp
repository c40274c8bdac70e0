// The Sun and Jupiter on the orbit model: right ascension and declination for the program's
// display, speech, horizon and rise and set, and their texts.
//
// A two-body model of the Earth and Jupiter with fixed elements: each runs on a fixed ellipse
// about the Sun, the true anomaly comes from a one-line formula without Kepler's equation, and no
// precession, nutation, aberration or light-time is applied. The places are geometric and
// geocentric, in a frame fixed with the elements: the equinox does not move with the date, so
// that the Sun stands about 0.12 hour of right ascension behind its place of date in 2000.

#include <cmath>

#include "ephemeris/checked.h"
#include "ephemeris/constants.h"
#include "ephemeris/ephemeris.h"
#include "ephemeris/trig.h"
#include "textutil/number_text.h"

namespace quillmere {

using checked::Divide;
using checked::Store;
using classic::kDegreesPerRadian;
using classic::kFullCircle;
using classic::kPi;

namespace {

// The obliquity of the ecliptic, radians (23.45 degrees), the same for all dates.
constexpr double kObliquity = 0.40928;

struct OrbitRow {
  double P;   // period, days
  double e;   // eccentricity
  double a;   // semi-major axis, AU
  double W;   // longitude of perihelion, radians
  double N;   // longitude of the ascending node, radians
  double I;   // inclination, radians
  double D0;  // days added to Day1900 so that (Day1900 + D0) / P counts from longitude 0
};

constexpr OrbitRow kEarth{365.2564, 0.016719, 1, 1.789792, 0, 0, 101.9};
constexpr OrbitRow kJupiter{4332.0446, 0.0479528, 5.202168, 0.244685, 1.748931, 0.022786, 2875.5};

// Right ascension (hours, 0 to 24) and declination (degrees) of a geocentric ecliptic vector
// (AU): a rotation about the x axis by the fixed obliquity, done in polar form.
void EclipticToEquatorial(double x, double y, double z, double& ra, double& dec) {
  double rho = 0;
  Store(rho, std::sqrt(y * y + z * z));
  // rho is taken: the guard only gives the angle below a sign.
  if (z == 0) z = 1e-30;
  double a = 0;
  if (double q; Divide(z, y, q)) a = trig::atan(q);
  if (a < 0) a = a + kPi;
  if (z < 0) a = a + kPi;
  a = a + kObliquity;
  Store(z, rho * trig::sin(a));
  Store(y, rho * trig::cos(a));
  const Polar p = RectangularToPolar(x, y, z);
  Store(ra, (p.A / 15) * kDegreesPerRadian);
  Store(dec, p.B * kDegreesPerRadian);
}

// The whole and minutes of a value in hours or degrees, as "hh:mm" with a leading "-".
std::string SexagesimalText(double x, double minutes) {
  const double whole = Fix(std::fabs(x));
  return (x < 0 ? "-" : "") + Format(whole, "00") + ":" + Format(minutes, "00");
}

}  // namespace

// Heliocentric ecliptic rectangular coordinates (AU) of the Earth or Jupiter at Day1900 (days
// from 1900 January 1, 12:00 UT), on a fixed ellipse of the row's seven elements. The true
// anomaly is 2 atan(tan(M/2) (1 + e)/(1 - e)) of the mean anomaly M, good to first order in e;
// the latitude is the inclination times sin(L - N). Radians inside.
Vector3 OrbitPosition(Orbit k, double Day1900) {
  const OrbitRow& o = k == Orbit::Earth ? kEarth : kJupiter;
  // The mean anomaly is not reduced; tan takes it as it is.
  double M = 0, v = 0, r = 0;
  Store(M, ((Day1900 + o.D0) / o.P) * kFullCircle - o.W);
  // One factor carries the mean anomaly to the true anomaly, to first order in e.
  const double q = (1 + o.e) / (1 - o.e);
  Store(v, 2.0 * trig::atan(trig::tan(M / 2) * q));
  if (v < 0) v = kFullCircle + v;
  Store(r, ((1 - o.e * o.e) / (1 + o.e * trig::cos(v))) * o.a);
  const double L = v + o.W;
  const double B = trig::sin(L - o.N) * o.I;
  Vector3 p;
  Store(p.x, r * trig::cos(L) * trig::cos(B));
  Store(p.y, r * trig::sin(L) * trig::cos(B));
  Store(p.z, r * trig::sin(B));
  return p;
}

// The longitude-like angle A (radians, 0 to 2π), the latitude-like angle B (radians) and the
// length r of a rectangular vector, in whatever frame and unit it comes.
Polar RectangularToPolar(double x, double y, double z) {
  Polar p;
  Store(p.r, std::sqrt(x * x + y * y + z * z));
  if (double q; Divide(y, x, q)) p.A = trig::atan(q);
  if (p.A < 0) p.A = kPi + p.A;
  if (y < 0) p.A = kPi + p.A;
  double s = 0;
  Divide(z, p.r, s);
  if (double q; Divide(s, std::sqrt(1 - s * s), q)) p.B = trig::atan(q);
  return p;
}

// SunRA, JupRA (hours, 0 to 24), SunDec, JupDec (degrees) and their texts at s.Day1900 (UT), on
// the orbit model above: geocentric, geometric, equator of the fixed frame. The Sun's place is
// the reverse of the Earth's; Jupiter's is its own less the Earth's.
void ComputePositions(EphemerisState& s) {
  const Vector3 earth = OrbitPosition(Orbit::Earth, s.Day1900);
  // The Sun is the reverse of the Earth.
  EclipticToEquatorial(-earth.x, -earth.y, 0, s.SunRA, s.SunDec);
  s.SunRAText = HoursText(s.SunRA);
  s.SunDecText = DegreesText(s.SunDec);

  const Vector3 jupiter = OrbitPosition(Orbit::Jupiter, s.Day1900);
  EclipticToEquatorial(jupiter.x - earth.x, jupiter.y - earth.y, jupiter.z, s.JupRA, s.JupDec);
  s.JupRAText = HoursText(s.JupRA);
  s.JupDecText = DegreesText(s.JupDec);
}

// Hours as "hh:mm" (5.5 gives "05:30"): minutes rounded, so they can read "60".
std::string HoursText(double x) {
  const double size = std::fabs(x);
  return SexagesimalText(x, (size - Fix(size)) * 60);
}

// Degrees as "dd:mm" (-5.5 gives "-05:30"): minutes rounded down, never 60.
std::string DegreesText(double x) {
  const double size = std::fabs(x);
  return SexagesimalText(x, Int(60 * (size - Fix(size))));
}

}  // namespace quillmere
