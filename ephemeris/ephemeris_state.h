#pragma once
// Where the sky stands at the instant in force. One instance lives as long as the program;
// the ephemeris routines are its only writer, everybody else reads it.

#include <string>

namespace quillmere {

// Which ephemeris fills the state: the classic orbit model or the precise one.
enum class EphemerisModel { Classic, Precise };

struct EphemerisState {
  EphemerisModel model = EphemerisModel::Classic;

  // Date-time values in UT (days since 30 December 1899).
  double T = 0;       // the instant in force
  double SavedT = 0;  // one level of SaveT / RestoreT

  double JD0 = 0;      // Julian date of 0h UT of the date of T; always ends in .5
  double Day1900 = 0;  // T - 2.5: days since 1900 January 1, 12:00 UT
  float LMST0 = 0;     // local mean sidereal time at 0h UT of the date, hours
  float LMST = 0;      // local mean sidereal time at T, hours

  double SunRA = 0;   // hours
  double SunDec = 0;  // degrees
  std::string SunRAText;
  std::string SunDecText;
  double JupRA = 0;
  double JupDec = 0;
  std::string JupRAText;
  std::string JupDecText;

  float CML3 = 0;     // System III central meridian longitude, degrees, 0 to 360 inclusive
  float IoPhase = 0;  // degrees, 0 to 360 inclusive

  // Degrees; azimuth from north through east.
  double JupAlt = 0;
  double JupAz = 0;
  double SunAlt = 0;
  double SunAz = 0;

  // Hours after 0h UT of the date; kNoRiseSet where the body does not rise or set that day.
  double JupRise = 0;
  double JupSet = 0;
  double SunRise = 0;
  double SunSet = 0;

  // The precise model's observer longitude (degrees west), as its last sidereal time had it.
  float PreciseLong = 0;
};

inline constexpr double kNoRiseSet = -1;

}  // namespace quillmere
