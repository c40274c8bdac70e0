#pragma once
// The ephemeris routines. Angles are radians inside, hours and degrees at the edge. The
// observer comes in as ObsLat (degrees, north positive) and ObsLong (degrees west of
// Greenwich, 0 to 360 as a rule), both 32-bit as the program stores them.
//
// None of these routines ever stops on bad arithmetic: a step that would divide by zero or
// overflow is skipped and the value it would have written keeps what it held.

#include <array>
#include <cstdint>

#include "ephemeris/ephemeris_state.h"

namespace quillmere {

// --- Time scales --------------------------------------------------------------------------

// JD0, Day1900, LMST0 and LMST for a new T. Run it before ComputeInstant.
void ComputeSiderealTime(EphemerisState& s, float ObsLong);

struct JulianDay {
  double J = 0;  // whole part
  double F = 0;  // fraction, 0 <= F < 1
};
// Julian date of a calendar date and time; every date of 1582 on counts as Gregorian.
JulianDay JulianDayFromFields(double year, double month, double day, double hour, double minute,
                              double second);

// One level of keeping T: SaveT copies T to SavedT, RestoreT puts it back.
inline void SaveT(EphemerisState& s) {
  s.SavedT = s.T;
}
inline void RestoreT(EphemerisState& s) {
  s.T = s.SavedT;
}

// --- Sun and Jupiter on the orbit model ---------------------------------------------------

struct Vector3 {
  double x = 0;
  double y = 0;
  double z = 0;
};
struct Polar {
  double A = 0;  // longitude-like angle, radians
  double B = 0;  // latitude-like angle, radians
  double r = 0;  // length
};

enum class Orbit { Earth = 1, Jupiter = 2 };

// Heliocentric ecliptic coordinates in AU at Day1900.
Vector3 OrbitPosition(Orbit k, double Day1900);
Polar RectangularToPolar(double x, double y, double z);

// SunRA, SunDec, JupRA, JupDec and their texts at Day1900.
void ComputePositions(EphemerisState& s);

// "05:30" for 5.5 hours; minutes rounded, so they can read "60".
std::string HoursText(double x);
// "05:30" for 5.5 degrees; minutes rounded down.
std::string DegreesText(double x);

// --- Jupiter by its series, for the central meridian only ---------------------------------

struct JupiterSeries {
  double alpha = 0;     // right ascension, radians, -pi/2 to 3pi/2
  double delta = 0;     // declination, radians
  double distance = 0;  // from the Earth, AU
  double century = 0;   // Julian centuries from 1900 January 0.5
};
// t: days since J2000.0 (Julian date - 2451545).
JupiterSeries JupiterSeriesPosition(double t);

// --- Central meridian and Io ---------------------------------------------------------------

void ComputeCML3(EphemerisState& s, double instant);
void ComputeIoPhase(EphemerisState& s, double day1900);
double Mod2Pi(double x);
double Mod360(double x);

// --- Horizon ---------------------------------------------------------------------------------

double Arcsine(double x);
double Arccosine(double x);

struct Horizon {
  double altitude = 0;  // degrees
  double azimuth = 0;   // degrees from north through east
};
Horizon EquatorialToHorizon(double latitude, double siderealTime, double rightAscension,
                            double declination);

void ComputeHorizonCoords(EphemerisState& s, float ObsLat);
void ComputeRiseSet(EphemerisState& s, float ObsLat);

// --- One instant, one day ------------------------------------------------------------------

// Every position field for T, after ComputeSiderealTime.
void ComputeInstant(EphemerisState& s, float ObsLat);

inline constexpr int kMinuteRows = 1441;  // rows 0 to 1440; row 0 stays 0

struct MinuteTables {
  std::array<int16_t, kMinuteRows> MinuteCML{};     // whole degrees, 0 to 360
  std::array<int16_t, kMinuteRows> MinuteIo{};      // whole degrees, 0 to 360
  std::array<int16_t, kMinuteRows> MinuteSunAlt{};  // whole degrees, rounded down
  std::array<int16_t, kMinuteRows> MinuteJupAlt{};  // whole degrees, rounded down
  std::array<float, kMinuteRows> MinuteJupHA{};     // hours, -12 to +12
};

// The tables of the day named by the whole days of `day`, from 00:10:00 UT on (the precise
// ephemeris: row i is 00:00 UT plus i - 1 minutes). Moves T and ends with RestoreT, so a caller
// that wants its T back calls SaveT first.
void FillMinuteTables(EphemerisState& s, MinuteTables& tables, double day, float ObsLat,
                      float ObsLong);

}  // namespace quillmere
