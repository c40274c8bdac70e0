#pragma once
// The constants that several classic ephemeris routines share, in the digits they share.
//
// These digits are part of the results: π and the full circle have fourteen decimals, short of
// a double's, and a routine that used a longer value would move the last bits of what the
// program shows and speaks. A routine whose own digits differ keeps its own constant beside it
// and says so: the quarter circles of Arcsine and Arccosine and the nine-decimal full circle of
// the horizon (horizon.cpp), the quarter circle 2 atan(1) of the rise and set, the light-time of
// the central meridian and the speed of light of the Io phase (meridian_io.cpp). The precise
// ephemeris and crmath work with π to a double's full precision and do not use these.

namespace quillmere::classic {

// π, radians, to fourteen decimals.
inline constexpr double kPi = 3.14159265358979;
// The full circle, radians: 2π in the same fourteen decimals.
inline constexpr double kFullCircle = 6.28318530717958;
// Degrees in one radian.
inline constexpr double kDegreesPerRadian = 57.29577951308238;
// Radians in one degree.
inline constexpr double kRadiansPerDegree = 0.017453292519943278;

// Julian date of J2000.0, 2000 January 1, 12:00.
inline constexpr double kJ2000 = 2451545.0;
// Days in a Julian century.
inline constexpr double kDaysPerJulianCentury = 36525.0;

}  // namespace quillmere::classic
