#include <cmath>

#include "ephemeris/checked.h"
#include "ephemeris/ephemeris.h"
#include "ephemeris/precise.h"
#include "textutil/date_time.h"
#include "textutil/number_text.h"

namespace quillmere {

using checked::FoldDown;
using checked::FoldUp;
using checked::Store;

void ComputeSiderealTime(EphemerisState& s, float ObsLong) {
#ifdef QUILLMERE_PRECISE
  if (s.model == EphemerisModel::Precise) return PreciseSiderealTime(s, ObsLong);
#endif
  // Whole seconds since 0h UT: the sidereal rate is applied to whole seconds only.
  double S = 0;
  if (const auto f = SplitDateTime(s.T)) S = f->hour * 3600 + f->minute * 60 + f->second;

  Store(s.JD0, Int(s.T) + 2415018.5);
  Store(s.Day1900, s.T - 2.5);
  const double Tc = (s.JD0 - 2451545.0) / 36525.0;
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
