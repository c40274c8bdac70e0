#include <cmath>

#include "ephemeris/checked.h"
#include "ephemeris/ephemeris.h"
#include "ephemeris/trig.h"
#include "textutil/number_text.h"

namespace quillmere {

using checked::Divide;
using checked::Store;

namespace {

// This routine's own circle.
constexpr double kPi = 3.14159265358979;
constexpr double kFullCircle = 6.28318530717958;
constexpr double kObliquity = 0.40928;  // radians, the same for all dates
constexpr double kDegreesPerRadian = 57.29577951308238;

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

// Right ascension (hours) and declination (degrees) of a geocentric ecliptic vector.
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

std::string HoursText(double x) {
  const double size = std::fabs(x);
  return SexagesimalText(x, (size - Fix(size)) * 60);
}

std::string DegreesText(double x) {
  const double size = std::fabs(x);
  return SexagesimalText(x, Int(60 * (size - Fix(size))));
}

}  // namespace quillmere
