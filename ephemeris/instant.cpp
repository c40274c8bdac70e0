// What the rest of the program calls: everything for one instant, and the minute tables of a day.

#include <cmath>

#include "ephemeris/checked.h"
#include "ephemeris/ephemeris.h"
#include "ephemeris/horizon.h"
#include "ephemeris/precise.h"
#include "textutil/number_text.h"

namespace quillmere {

using checked::FoldDown;
using checked::Store;

// Every position field of s for s.T (UT), after ComputeSiderealTime for the same T: places,
// central meridian, Io phase, altitudes and azimuths, rise and set, in that order. Hands over to
// the precise ephemeris when the state asks for it.
void ComputeInstant(EphemerisState& s, float ObsLat) {
#ifdef QUILLMERE_PRECISE
  if (s.model == EphemerisModel::Precise) return PreciseInstant(s, ObsLat);
#endif
  ComputePositions(s);
  ComputeCML3(s, s.T);
  ComputeIoPhase(s, s.Day1900);
  ComputeHorizonCoords(s, ObsLat);
  ComputeRiseSet(s, ObsLat);
}

// The minute tables of the UT day named by the whole days of `day`: everything is computed once at
// 00:10:00 UT and then runs on by fixed rates, the places of the Sun and Jupiter standing still.
// Per row: LMST steps by 0.016712298 hours (one minute of UT in sidereal hours) before it is
// read, giving the whole-degree altitudes (rounded down) and Jupiter's hour angle in hours,
// -12 to +12; the central meridian runs on by 0.6045389117618717 degrees and the Io phase by
// 0.14132278123233466 degrees a minute, whole degrees, 0 to 360. LMST is put back, T restored
// from the last SaveT.
void FillMinuteTables(EphemerisState& s, MinuteTables& tables, double day, float ObsLat,
                      float ObsLong) {
#ifdef QUILLMERE_PRECISE
  if (s.model == EphemerisModel::Precise)
    return PreciseMinuteTables(s, tables, day, ObsLat, ObsLong);
#endif
  tables = MinuteTables{};
  const float keptLMST = s.LMST;

  // The table starts at 00:10:00 UT; the constant is a hair short of ten minutes and reads as
  // 00:10:00 at the nearest second.
  Store(s.T, Int(day) + 0.006944444);
  ComputeSiderealTime(s, ObsLong);
  ComputePositions(s);
  ComputeCML3(s, s.T);
  ComputeIoPhase(s, s.Day1900);
  ComputeRiseSet(s, ObsLat);

  // Sun and Jupiter stand still for the whole day: only the sidereal time moves.
  const horizon::Sky jupiter = horizon::MakeSky(ObsLat, s.JupRA, s.JupDec);
  const horizon::Sky sun = horizon::MakeSky(ObsLat, s.SunRA, s.SunDec);
  for (int i = 1; i < kMinuteRows; ++i) {
    // The sidereal time steps before it is read, so the altitudes run a minute ahead of the
    // rate columns, which start at i - 1 = 0.
    Store(s.LMST, s.LMST + 0.016712298);
    if (s.LMST > 24) Store(s.LMST, s.LMST - 24.0);
    const double jupAlt = horizon::AltitudeAtSiderealTime(jupiter, s.LMST);
    const double sunAlt = horizon::AltitudeAtSiderealTime(sun, s.LMST);

    float h = 0;
    Store(h, s.LMST - s.JupRA);
    if (h < -12) Store(h, h + 24.0);
    if (h > 12) Store(h, h - 24.0);
    tables.MinuteJupHA[i] = h;
    Store(tables.MinuteJupAlt[i], Int(jupAlt));
    Store(tables.MinuteSunAlt[i], Int(sunAlt));

    const double minutes = i - 1;
    Store(tables.MinuteCML[i], Int(s.CML3 + 0.6045389117618717 * minutes));
    FoldDown(tables.MinuteCML[i], 360, 360);  // 360 itself stays
    Store(tables.MinuteIo[i], Int(s.IoPhase + 0.14132278123233466 * minutes));
    FoldDown(tables.MinuteIo[i], 360, 360);
  }
  // The places at the last minute stay in the state, azimuths too.
  const Horizon jup = horizon::AtSiderealTime(jupiter, s.LMST);
  const Horizon sol = horizon::AtSiderealTime(sun, s.LMST);
  Store(s.JupAlt, jup.altitude);
  Store(s.JupAz, jup.azimuth);
  Store(s.SunAlt, sol.altitude);
  Store(s.SunAz, sol.azimuth);

  s.LMST = keptLMST;
  RestoreT(s);
}

}  // namespace quillmere
