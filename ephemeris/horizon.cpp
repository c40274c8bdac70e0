// The Sun and Jupiter in the observer's sky: altitude, azimuth, rise and set, and the two
// inverse sines of the ephemeris. A geometric model: no refraction, no parallax, no allowance
// for the Sun's disc; a body rises when its centre crosses the true horizon.

#include "ephemeris/horizon.h"

#include <cmath>

#include "ephemeris/checked.h"
#include "ephemeris/constants.h"
#include "ephemeris/ephemeris.h"
#include "ephemeris/trig.h"

namespace quillmere {

using checked::Divide;
using checked::FoldDown;
using checked::FoldUp;
using checked::Store;
using classic::kDegreesPerRadian;
using classic::kRadiansPerDegree;

namespace {

// Each routine here keeps its own circle, in its own digits, on purpose: they differ from the
// shared ones and from each other, and the differences show (Arccosine(1) is 2.05e-10, not 0).
// Arcsine's quarter circle, radians: half the shared π, to fifteen decimals.
constexpr double kArcsineQuarterCircle = 1.570796326794895;
// Arccosine's quarter circle, radians, to nine decimals; the horizon's zenith takes it too.
constexpr double kArccosineQuarterCircle = 1.570796327;
// The horizon's full circle for the western azimuths, radians, to nine decimals.
constexpr double kHorizonFullCircle = 6.283185308;

// Rise and set of one body, hours after 0h UT of the date, 0 to 24, or kNoRiseSet for both when
// it stays up or down all day (the two are not told apart). A closed formula, no iteration, at
// the positions of the instant: the transit is the right ascension (hours) less LMST0, with the
// sidereal interval read as hours of UT, and the semi-diurnal arc comes from
// cos H = -tan(latitude) tan(declination), the arcsine taken as 2 atan(c / (1 + sqrt(1 - c^2)))
// and the quarter circle as 2 atan(1), this routine's own. Right ascension and declination are
// rounded to 32-bit floats first.
void RiseSet(double rightAscension, double declination, float LMST0, float ObsLat, double& rise,
             double& set) {
  const float alpha = static_cast<float>(rightAscension);
  const float delta = static_cast<float>(declination);
  float m = 0;
  Store(m, static_cast<double>(alpha) - LMST0);
  if (m < 0) Store(m, m + 24.0);
  const double c = -trig::tan(ObsLat * kRadiansPerDegree) * trig::tan(delta * kRadiansPerDegree);
  if (std::fabs(c) > 1) {
    // Up all day or down all day: the two are not told apart.
    rise = kNoRiseSet;
    set = kNoRiseSet;
    return;
  }
  const double q = 2.0 * trig::atan(c / ((1.0 + std::sqrt(1 - c * c)) + 1e-20));  // arcsine of c
  const double D = ((2.0 * trig::atan(1.0) - q) * kDegreesPerRadian) / 15;  // semi-diurnal arc
  Store(rise, m - D);
  FoldUp(rise, 0, 24);
  Store(set, m + D);
  FoldDown(set, 24, 24);
}

}  // namespace

// The arcsine of x, radians, from atan(x / sqrt(1 - x^2)); any x outside -1 to 1 gives the
// quarter circle with the sign of x.
double Arcsine(double x) {
  if (std::fabs(x) >= 1) return (x < 0 ? -1 : 1) * kArcsineQuarterCircle;
  return trig::atan(x / std::sqrt(1 - x * x));
}

// The arccosine of x, radians, as the quarter circle less Arcsine(x). Its quarter circle has
// nine decimals, unlike Arcsine's: Arccosine(1) is 2.05e-10, not 0.
double Arccosine(double x) {
  return kArccosineQuarterCircle - Arcsine(x);
}

namespace horizon {

// The part of the conversion that the sidereal time does not change: the sines and cosines of
// the latitude and declination (degrees in) and the right ascension (hours).
Sky MakeSky(double latitude, double rightAscension, double declination) {
  const double phi = latitude * kRadiansPerDegree;
  const double delta = declination * kRadiansPerDegree;
  return {trig::cos(phi), trig::sin(phi), trig::sin(delta), trig::cos(delta), rightAscension};
}

namespace {

// The hour angle at a local sidereal time (hours), radians, 0 to 2 pi.
double HourAngle(const Sky& sky, double siderealTime) {
  double H = siderealTime - sky.rightAscension;  // hours
  FoldUp(H, 0, 24);
  return (H * kRadiansPerDegree) * 15;
}

double SinAltitude(const Sky& sky, double cosH) {
  return sky.sinDelta * sky.sinPhi + (sky.cosDelta * sky.cosPhi) * cosH;
}

// The altitude, radians, from its sine.
double AltitudeOf(double sa) {
  return sa == 1.0 ? kArccosineQuarterCircle : Arcsine(sa);
}

}  // namespace

// Altitude (degrees, -90 to +90) and azimuth (degrees, 0 to 360 from north through east) at a
// local sidereal time in hours, by the spherical triangle of pole, zenith and body: the sine of
// the altitude from the hour angle, the azimuth from its cosine, and the western half of the sky
// (sin H > 0) as the full circle less it.
Horizon AtSiderealTime(const Sky& sky, double siderealTime) {
  double sinH = 0, cosH = 0;
  trig::sincos(HourAngle(sky, siderealTime), sinH, cosH);
  const double sa = SinAltitude(sky, cosH);
  const double a = AltitudeOf(sa);
  // At a pole, or with the body at the zenith, the division stays finite.
  double w = sky.cosPhi * trig::cos(a);
  if (w < 1e-20) w = 1e-20;
  double c = 0;
  Divide(sky.sinDelta - sky.sinPhi * sa, w, c);
  double z = Arccosine(c);
  if (sinH > 0) z = kHorizonFullCircle - z;  // the western half of the sky
  Horizon out;
  out.azimuth = z * kDegreesPerRadian;
  FoldDown(out.azimuth, 360, 360);
  out.altitude = a * kDegreesPerRadian;
  return out;
}

// sincos gives the cosine that cos gives, so the altitude is AtSiderealTime's to the last bit.
double AltitudeAtSiderealTime(const Sky& sky, double siderealTime) {
  return AltitudeOf(SinAltitude(sky, trig::cos(HourAngle(sky, siderealTime)))) * kDegreesPerRadian;
}

}  // namespace horizon

// Altitude and azimuth (degrees; azimuth from north through east) of a body at right ascension
// (hours) and declination (degrees), seen from a latitude (degrees, north positive) at a
// local sidereal time (hours). Geometric: no refraction, no parallax.
Horizon EquatorialToHorizon(double latitude, double siderealTime, double rightAscension,
                            double declination) {
  return horizon::AtSiderealTime(horizon::MakeSky(latitude, rightAscension, declination),
                                 siderealTime);
}

// JupAlt, JupAz, SunAlt, SunAz (degrees) at s.LMST from the right ascensions and declinations
// in force; Jupiter first, then the Sun.
void ComputeHorizonCoords(EphemerisState& s, float ObsLat) {
  const Horizon jup = EquatorialToHorizon(ObsLat, s.LMST, s.JupRA, s.JupDec);
  Store(s.JupAlt, jup.altitude);
  Store(s.JupAz, jup.azimuth);
  const Horizon sun = EquatorialToHorizon(ObsLat, s.LMST, s.SunRA, s.SunDec);
  Store(s.SunAlt, sun.altitude);
  Store(s.SunAz, sun.azimuth);
}

// JupRise, JupSet, SunRise, SunSet (hours after 0h UT of the date, or kNoRiseSet) from LMST0 and
// the places at T: one formula for both bodies, with no second pass at the time of rise.
void ComputeRiseSet(EphemerisState& s, float ObsLat) {
  RiseSet(s.JupRA, s.JupDec, s.LMST0, ObsLat, s.JupRise, s.JupSet);
  RiseSet(s.SunRA, s.SunDec, s.LMST0, ObsLat, s.SunRise, s.SunSet);
}

}  // namespace quillmere
