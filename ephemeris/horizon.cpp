#include "ephemeris/horizon.h"

#include <cmath>

#include "ephemeris/checked.h"
#include "ephemeris/ephemeris.h"
#include "ephemeris/trig.h"

namespace quillmere {

using checked::Divide;
using checked::FoldDown;
using checked::FoldUp;
using checked::Store;

namespace {

constexpr double kRadiansPerDegree = 0.017453292519943278;
constexpr double kDegreesPerRadian = 57.29577951308238;

// Rise and set of one body: a closed formula at the positions of the instant, with the
// sidereal interval from LMST0 read as hours of UT.
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

double Arcsine(double x) {
  if (std::fabs(x) >= 1) return (x < 0 ? -1 : 1) * 1.570796326794895;
  return trig::atan(x / std::sqrt(1 - x * x));
}

// Its quarter circle has nine decimals, unlike Arcsine's: Arccosine(1) is 2.05e-10, not 0.
double Arccosine(double x) {
  return 1.570796327 - Arcsine(x);
}

namespace horizon {

Sky MakeSky(double latitude, double rightAscension, double declination) {
  const double phi = latitude * kRadiansPerDegree;
  const double delta = declination * kRadiansPerDegree;
  return {trig::cos(phi), trig::sin(phi), trig::sin(delta), trig::cos(delta), rightAscension};
}

Horizon AtSiderealTime(const Sky& sky, double siderealTime) {
  double H = siderealTime - sky.rightAscension;  // hour angle, hours
  FoldUp(H, 0, 24);
  const double h = (H * kRadiansPerDegree) * 15;
  double sinH = 0, cosH = 0;
  trig::sincos(h, sinH, cosH);
  const double sa = sky.sinDelta * sky.sinPhi + (sky.cosDelta * sky.cosPhi) * cosH;
  const double a = sa == 1.0 ? 1.570796327 : Arcsine(sa);
  // At a pole, or with the body at the zenith, the division stays finite.
  double w = sky.cosPhi * trig::cos(a);
  if (w < 1e-20) w = 1e-20;
  double c = 0;
  Divide(sky.sinDelta - sky.sinPhi * sa, w, c);
  double z = Arccosine(c);
  if (sinH > 0) z = 6.283185308 - z;  // the western half of the sky; nine decimals here too
  Horizon out;
  out.azimuth = z * kDegreesPerRadian;
  FoldDown(out.azimuth, 360, 360);
  out.altitude = a * kDegreesPerRadian;
  return out;
}

}  // namespace horizon

Horizon EquatorialToHorizon(double latitude, double siderealTime, double rightAscension,
                            double declination) {
  return horizon::AtSiderealTime(horizon::MakeSky(latitude, rightAscension, declination),
                                 siderealTime);
}

void ComputeHorizonCoords(EphemerisState& s, float ObsLat) {
  const Horizon jup = EquatorialToHorizon(ObsLat, s.LMST, s.JupRA, s.JupDec);
  Store(s.JupAlt, jup.altitude);
  Store(s.JupAz, jup.azimuth);
  const Horizon sun = EquatorialToHorizon(ObsLat, s.LMST, s.SunRA, s.SunDec);
  Store(s.SunAlt, sun.altitude);
  Store(s.SunAz, sun.azimuth);
}

void ComputeRiseSet(EphemerisState& s, float ObsLat) {
  RiseSet(s.JupRA, s.JupDec, s.LMST0, ObsLat, s.JupRise, s.JupSet);
  RiseSet(s.SunRA, s.SunDec, s.LMST0, ObsLat, s.SunRise, s.SunSet);
}

}  // namespace quillmere
