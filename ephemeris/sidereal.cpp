// Calendar and sidereal time: the time scales of the instant in force.

#include <cmath>

#include "ephemeris/checked.h"
#include "ephemeris/constants.h"
#include "ephemeris/ephemeris.h"
#include "ephemeris/precise.h"
#include "textutil/date_time.h"
#include "textutil/number_text.h"

namespace quillmere {

using checked::FoldDown;
using checked::FoldUp;
using checked::Store;
using classic::kDaysPerJulianCentury;
using classic::kJ2000;

// The time scales of s.T: JD0 (Julian date of 0h UT of the date), Day1900 (days from 1900
// January 1, 12:00 UT), and the local mean sidereal time in hours, 0 to 24, at 0h UT (LMST0) and
// at T (LMST). T and every result are UT; ObsLong is in degrees west of Greenwich. Greenwich mean
// sidereal time at 0h UT comes from the IAU 1982 expression (Aoki et al. 1982) in Julian
// centuries from J2000.0, and runs on by 1.002737908 sidereal seconds a whole second of UT. LMST0
// and LMST are brought to the observer by two roads: LMST0 passes through a 32-bit float before it
// is folded and loses low digits there, so neither may be derived from the other.
void ComputeSiderealTime(EphemerisState& s, float ObsLong) {
#ifdef QUILLMERE_PRECISE
  if (s.model == EphemerisModel::Precise) return PreciseSiderealTime(s, ObsLong);
#endif
  // Whole seconds since 0h UT: the sidereal rate is applied to whole seconds only.
  double S = 0;
  if (const auto f = SplitDateTime(s.T)) S = f->hour * 3600 + f->minute * 60 + f->second;

  Store(s.JD0, Int(s.T) + 2415018.5);
  Store(s.Day1900, s.T - 2.5);
  const double Tc = (s.JD0 - kJ2000) / kDaysPerJulianCentury;
  double theta = 0;
  Store(theta, 8640184.812866 * Tc + 0.093104 * (Tc * Tc) - 0.0000062 * (Tc * Tc * Tc));
  FoldUp(theta, 0, 86400);  // not reduced from above
  double G0 = 0;
  Store(G0, 24110.54841 + theta);  // Greenwich mean sidereal time at 0h UT, seconds

  // The whole multi-day count of hours passes through a 32-bit float before it is folded.
  Store(s.LMST0, G0 / 3600);
  FoldDown(s.LMST0, 24, 24);
  Store(s.LMST0, s.LMST0 - ObsLong / 15.0);
  FoldUp(s.LMST0, 0, 24);

  double H = 0;
  Store(H, (S * 1.002737908 + G0) / 3600);
  FoldDown(H, 24, 24);
  FoldUp(H, 0, 24);
  Store(s.LMST, H - static_cast<float>(ObsLong / 15.0));
  FoldUp(s.LMST, 0, 24);
}

// The Julian date of a calendar date and time of day (whole numbers), as a whole part J and a
// fraction 0 <= F < 1, by a closed formula of whole-number parts (each a real division and a
// floor). Dates before 1582 are read in the Julian calendar, every date of 1582 on in the
// Gregorian, with no gap in October 1582. UT in, so a Julian date in UT out.
JulianDay JulianDayFromFields(double year, double month, double day, double hour, double minute,
                              double second) {
  const double D = day + hour / 24 + minute / 1440 + second / 86400;
  const double G = year < 1582 ? 0 : 1;
  const double DI = Int(D);
  double F = D - DI - 0.5;
  double J = -Int(7 * (Int((month + 9) / 12) + year) / 4);
  double J1 = 0;
  if (G != 0) {
    const double S = month > 9 ? 1 : (month < 9 ? -1 : 0);
    const double A = std::fabs(month - 9);
    J1 = Int(year + S * Int(A / 7));
    J1 = -Int(Int(J1 / 100 + 1) * 3 / 4);
  }
  J = J + Int(275 * month / 9) + DI + G * J1;
  J = J + 1721027 + 2 * G + 367 * year;
  if (F < 0) {
    F = F + 1;
    J = J - 1;
  }
  return {J, F};
}

}  // namespace quillmere
