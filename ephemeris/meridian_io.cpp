// The two numbers the storm model turns on: Jupiter's System III central meridian longitude and
// Io's phase. Each has its own little theory; neither uses the orbit model of positions.cpp.

#include <cmath>

#include "ephemeris/checked.h"
#include "ephemeris/constants.h"
#include "ephemeris/ephemeris.h"
#include "ephemeris/trig.h"
#include "textutil/date_time.h"
#include "textutil/number_text.h"

namespace quillmere {

using checked::Divide;
using checked::Store;
using classic::kDegreesPerRadian;
using classic::kFullCircle;
using classic::kJ2000;
using classic::kRadiansPerDegree;

// x radians folded by the floor into 0 up to the full circle; a small negative x comes back just
// under the full circle.
double Mod2Pi(double x) {
  return x - kFullCircle * Int(x / kFullCircle);
}

// x degrees folded into 0 up to 360 by way of the fraction of x / 360.
double Mod360(double x) {
  double u = x / 360;
  u = u - Int(u);
  return u * 360;
}

// s.CML3: the System III central meridian longitude of Jupiter as seen from the Earth, degrees,
// 0 to 360 inclusive, rounded to hundredths, at `instant` (a date-time value in UT, read as it
// comes, with no UT to TT step). Jupiter's place and distance come from JupiterSeriesPosition
// (equator and equinox of date); the pole stands at 268.05 + 0.107 Tc, 64.49 - 0.015 Tc degrees,
// Tc in Julian centuries from J2000.0. The prime meridian turns at 870.536 degrees a day, the
// System III (1965) rate, from 284.894 degrees at J2000.0 with 1.291 Tc added, seen with a
// light-time of 0.0057755 days an AU, this routine's own. The central meridian is that angle
// less xi, which the pole and Jupiter's place give for the Earth's direction in Jupiter's
// equator.
void ComputeCML3(EphemerisState& s, double instant) {
  DateTimeFields f;
  if (const auto split = SplitDateTime(instant)) f = *split;
  const JulianDay jd = JulianDayFromFields(f.year, f.month, f.day, f.hour, f.minute, f.second);
  const double t = (jd.J - kJ2000) + jd.F;

  const JupiterSeries jup = JupiterSeriesPosition(t);
  const double alpha = jup.alpha;
  const double delta = jup.delta;
  const double Tc = jup.century - 1;

  // Jupiter's pole.
  const double alphaP = Mod360(268.05 + 0.107 * Tc) * kRadiansPerDegree;
  const double deltaP = Mod360(64.49 - 0.015 * Tc) * kRadiansPerDegree;

  const double Y = trig::cos(delta) * trig::sin(alphaP - alpha);
  const double X = trig::sin(deltaP) * trig::cos(delta) * trig::cos(alphaP - alpha) -
                   trig::cos(deltaP) * trig::sin(delta);
  double xi = 0;
  if (double q; Divide(X, Y, q)) xi = kDegreesPerRadian * trig::atan(q);
  if (Y < 0) xi = xi + 180;

  // 870.536 degrees a day of rotation, seen 0.0057755 days an AU late.
  const double W = 284.894 + 870.536 * (t - 0.0057755 * jup.distance) + 1.291 * Tc;
  double C = Mod360(W - xi);
  // Rounded to hundredths before the store: 359.996 gives 360.00, which stays.
  C = Int(100 * C + 0.5) / 100;
  Store(s.CML3, C);
}

// s.IoPhase: Io's phase, degrees, 0 to 360 inclusive, 0 at superior conjunction (Io behind
// Jupiter as seen from the Earth), at day1900 (days from 1900 January 1, 12:00 UT). Meeus's
// lower-accuracy method for Jupiter's satellites, in its form counting days from 1900 January
// 0.5, with the angles in radians: the Earth and Jupiter on low-order circles with their
// equations of centre, the Earth-Jupiter distance and the phase angle, light-time at this
// routine's own speed of light of 173.1446 AU a day, and Europa's largest pull on Io. The
// angles are counted from the line between the Earth and Jupiter, so no equinox enters.
void ComputeIoPhase(EphemerisState& s, double day1900) {
  using trig::cos;
  using trig::sin;
  const double d = 1.0 + day1900;  // days from 1900 January 0.5
  const double V = Mod2Pi(0.0000194756 * d + 2.34974);
  const double M = Mod2Pi(0.01720197 * d + 6.256586);
  const double N = Mod2Pi(0.0014501127 * d + 3.93272126 + 0.00576 * sin(V));
  const double J = Mod2Pi(0.015751909 * d + 3.8684699 - 0.00576 * sin(V));
  const double A = Mod2Pi(0.0334405 * sin(M) + 0.000349 * sin(2 * M));
  const double B = Mod2Pi(0.0969007 * sin(N) + 0.0029147 * sin(2 * N));
  const double K = Mod2Pi(J + A - B);
  const double R = 1.00014 - 0.01672 * cos(M) - 0.00014 * cos(2 * M);
  const double r = 5.20867 - 0.25192 * cos(N) - 0.0061 * cos(2 * N);
  double Delta = 0, psi = 0;
  Store(Delta, std::sqrt(R * R + r * r - 2 * R * r * cos(K)));
  if (double q; Divide(R * sin(K), Delta, q)) psi = Arcsine(q);
  const double d2 = d - Delta / 173.1446;  // light at 173.1446 AU a day

  // u1 is Io's angle, u2 Europa's; Europa only pulls on Io here.
  double u1 = Mod2Pi(1.475686 + 3.550102027 * d2 + psi - B);
  const double u2 = Mod2Pi(0.724338 + 1.767872488 * d2 + psi - B);
  const double diff = u1 - u2;
  u1 = Mod2Pi(0.0082296 * sin(diff + diff) + u1);

  Store(s.IoPhase, u1 * kDegreesPerRadian + 180.0);
  if (s.IoPhase > 360) Store(s.IoPhase, s.IoPhase - 360.0);  // once: an exact 360 stays
}

}  // namespace quillmere
