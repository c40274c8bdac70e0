#pragma once
// The precise ephemeris: apparent places of date from liberfa, Jupiter's System III central
// meridian from the IAU 2015 rotation model and Io from Lieske's E5 theory as Meeus gives it.
// It fills the same fields and minute tables, in the same units and forms, as the classic
// routines; ComputeSiderealTime, ComputeInstant and FillMinuteTables hand over to it when the
// state's model is EphemerisModel::Precise and this build carries it.

#include "ephemeris/ephemeris.h"

namespace quillmere {

// Whether this build carries the precise ephemeris (it needs liberfa).
bool PreciseEphemerisBuilt();

// "classic" or "precise" as a model; nothing for any other word.
bool ParseEphemerisModel(const std::string& word, EphemerisModel& model);

// The model a stored setting names: precise for "precise" where this build carries it, classic
// for anything else.
EphemerisModel EphemerisModelSetting(const std::string& stored);

void PreciseSiderealTime(EphemerisState& s, float ObsLong);
void PreciseInstant(EphemerisState& s, float ObsLat);
void PreciseMinuteTables(EphemerisState& s, MinuteTables& tables, double day, float ObsLat,
                         float ObsLong);

namespace precise {

// The time scales of one instant, each as days from J2000.0 (JD 2451545.0).
struct TimeScales {
  double ut1 = 0;
  double tt = 0;
};

// TT - UT1 in seconds before 1960 (Espenak & Meeus 2006).
double DeltaT(double decimalYear);
// The scales of T (days since 30 December 1899, UTC from 1960 on, UT1 before).
TimeScales FromT(double T);

// Where the Sun and Jupiter stand at one instant, geocentric.
struct Sky {
  TimeScales t;
  double sunRA = 0, sunDec = 0, sunDistance = 0;  // radians (true equator and equinox of date), AU
  double jupRA = 0, jupDec = 0, jupDistance = 0;
  double gastMinusEra = 0;  // apparent sidereal time less the Earth rotation angle, radians
  double cml = 0;           // System III central meridian, degrees 0 to 360
  double io = 0;            // Io's phase, degrees 0 to 360, 0 at superior conjunction
};

// The Earth: heliocentric place (AU) and velocity (AU/day), barycentric velocity (AU/day),
// BCRS axes, at `tt`.
struct Earth {
  double tt = 0;
  double p[3] = {0, 0, 0};
  double v[3] = {0, 0, 0};
  double vb[3] = {0, 0, 0};
};
// From eraEpv00 (accurate to a few km, 1900 to 2100).
Earth EarthAt(double tt);
// Carried to `tt` by the Sun's pull (second-order Taylor step); within half a day of `e` the
// place is good to about 40 km (the Moon's pull, which the step leaves out), 0.05".
Earth EarthNear(const Earth& e, double tt);

// Every value of Sky; without `satellites`, cml and io stay 0.
Sky SkyAt(const TimeScales& t, bool satellites);
// The same with the Earth given.
Sky SkyAt(const TimeScales& t, const Earth& earth, bool satellites);

// The Earth rotation angle at UT1 (days from J2000.0), radians.
double EarthRotationAngle(double ut1);

}  // namespace precise
}  // namespace quillmere
