// The precise ephemeris in the state's fields and the minute tables, in the classic routines'
// units and forms.

#include <erfa.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "ephemeris/checked.h"
#include "ephemeris/precise.h"
#include "textutil/number_text.h"

namespace quillmere {

namespace {

using precise::Sky;
using precise::SkyAt;
using precise::TimeScales;

constexpr double kPi = 3.14159265358979323846;
constexpr double kTwoPi = 2 * kPi;
constexpr double kDegree = kPi / 180;
// The Earth's equatorial radius in AU (6378.137 km; IAU 2012 au).
constexpr double kEarthRadiusAu = 6378.137 / 149597870.7;

double Wrap(double x, double period) {
  x = std::fmod(x, period);
  return x < 0 ? x + period : x;
}

// b brought within half a period of a, so that a straight line between them is short.
double Near(double a, double b, double period) {
  return b - period * std::round((b - a) / period);
}

// Where a body stands for the observer: RA and Dec of date (radians), distance (AU).
struct Body {
  double ra = 0, dec = 0, distance = 1;
};

struct Horizontal {
  double altitude = 0;  // degrees
  double azimuth = 0;   // degrees from north through east
};

// What rise and set look for: the sine of the geocentric altitude less the sine of the
// horizontal parallax, which is 0 where the topocentric altitude below is 0 (to the square of
// the parallax, 4e-10 rad) and has its sign elsewhere.
double AboveHorizon(const Body& b, double sinPhi, double cosPhi, double last) {
  return sinPhi * std::sin(b.dec) + cosPhi * std::cos(b.dec) * std::cos(last - b.ra) -
         kEarthRadiusAu / b.distance;
}

// Topocentric altitude and azimuth of the body's centre (no refraction) from the local
// apparent sidereal time (radians). The parallax is that of a spherical Earth: at most 8.8" for
// the Sun, 2" for Jupiter.
Horizontal ToHorizon(const Body& b, double latitude, double last) {
  const double H = last - b.ra;
  const double sinPhi = std::sin(latitude), cosPhi = std::cos(latitude);
  const double sinDec = std::sin(b.dec), cosDec = std::cos(b.dec);
  const double cosH = std::cos(H);
  const double sinAlt = std::clamp(sinPhi * sinDec + cosPhi * cosDec * cosH, -1.0, 1.0);
  double alt = std::asin(sinAlt);
  alt -= std::asin(kEarthRadiusAu / b.distance) * std::cos(alt);
  Horizontal out;
  out.altitude = alt / kDegree;
  out.azimuth = Wrap(
      std::atan2(-cosDec * std::sin(H), sinDec * cosPhi - cosDec * cosH * sinPhi) / kDegree, 360.0);
  return out;
}

// The hour angle, hours, -12 to 12.
double HourAngle(double last, double ra) {
  double h = Wrap(last - ra, kTwoPi) * 12 / kPi;
  if (h > 12) h -= 24;
  return h;
}

// Straight-line values between the exact skies of a day's nodes.
class DaySky {
 public:
  // Nodes at 0h UT of `day0` and every `step` days after it, `count` in all, with the Earth
  // carried from `earth` (within half a day of every node).
  DaySky(double day0, int count, double step, bool satellites, const precise::Earth& earth)
      : step_(step), nodes_(count) {
    for (int k = 0; k < count; ++k) {
      const TimeScales t = precise::FromT(day0 + k * step);
      nodes_[k] = SkyAt(t, precise::EarthNear(earth, t.tt), satellites);
    }
    // Unwrapped, so that each value runs smoothly from node to node.
    for (int k = 1; k < count; ++k) {
      Sky& n = nodes_[k];
      const Sky& p = nodes_[k - 1];
      n.sunRA = Near(p.sunRA, n.sunRA, kTwoPi);
      n.jupRA = Near(p.jupRA, n.jupRA, kTwoPi);
      n.gastMinusEra = Near(p.gastMinusEra, n.gastMinusEra, kTwoPi);
    }
    if (satellites) {
      for (int k = 0; k < count; ++k) {
        cmlOffset_.push_back(nodes_[k].cml - kCmlRate * nodes_[k].t.tt);
        ioOffset_.push_back(nodes_[k].io - kIoRate * nodes_[k].t.tt);
        if (k > 0) {
          cmlOffset_[k] = Near(cmlOffset_[k - 1], std::fmod(cmlOffset_[k], 360.0), 360);
          ioOffset_[k] = Near(ioOffset_[k - 1], std::fmod(ioOffset_[k], 360.0), 360);
        } else {
          cmlOffset_[0] = std::fmod(cmlOffset_[0], 360.0);
          ioOffset_[0] = std::fmod(ioOffset_[0], 360.0);
        }
      }
    }
  }

  const Sky& Node(int k) const { return nodes_[k]; }

  // Hours after day0 at which the body's centre crosses the true horizon, the first rising and
  // the first setting within [0, 24); kNoRiseSet where there is none. The day is scanned every
  // half hour (no body of ours crosses twice within one), each crossing then found by regula
  // falsi (Illinois) to 1e-8 in the sine of the altitude (0.002").
  template <typename Altitude>
  static void Crossings(Altitude altitude, double& rise, double& set) {
    rise = kNoRiseSet;
    set = kNoRiseSet;
    constexpr int kSteps = 48;
    double h0 = 0, a0 = altitude(0.0);
    for (int k = 1; k <= kSteps && (rise == kNoRiseSet || set == kNoRiseSet); ++k) {
      const double h1 = 24.0 * k / kSteps;
      const double a1 = altitude(h1);
      const bool up = a0 < 0 && a1 >= 0, down = a0 >= 0 && a1 < 0;
      double& out = up ? rise : set;
      if ((up || down) && out == kNoRiseSet) {
        double lo = h0, hi = h1, flo = a0, fhi = a1, m = h0;
        int side = 0;
        for (int it = 0; it < 60; ++it) {
          m = (lo * fhi - hi * flo) / (fhi - flo);
          const double fm = altitude(m);
          if (std::fabs(fm) < 1e-8) break;
          if ((fm >= 0) == (fhi >= 0)) {
            hi = m;
            fhi = fm;
            if (side == +1) flo /= 2;
            side = +1;
          } else {
            lo = m;
            flo = fm;
            if (side == -1) fhi /= 2;
            side = -1;
          }
        }
        out = m < 24 ? m : kNoRiseSet;
      }
      h0 = h1;
      a0 = a1;
    }
  }

  // The exact UT of `hours` after day0 and the node values on a straight line there.
  struct At {
    double ut1 = 0, tt = 0;
    Body sun, jup;
    double gastMinusEra = 0;
    double cml = 0, io = 0;
  };
  At Interpolate(double hours, bool satellites) const {
    const double x = hours / 24 / step_;
    const int k =
        std::clamp(static_cast<int>(std::floor(x)), 0, static_cast<int>(nodes_.size()) - 2);
    const double f = x - k;
    const Sky& a = nodes_[k];
    const Sky& b = nodes_[k + 1];
    auto lerp = [f](double u, double v) { return u + (v - u) * f; };
    At out;
    out.ut1 = lerp(a.t.ut1, b.t.ut1);
    out.tt = lerp(a.t.tt, b.t.tt);
    out.sun = {lerp(a.sunRA, b.sunRA), lerp(a.sunDec, b.sunDec),
               lerp(a.sunDistance, b.sunDistance)};
    out.jup = {lerp(a.jupRA, b.jupRA), lerp(a.jupDec, b.jupDec),
               lerp(a.jupDistance, b.jupDistance)};
    out.gastMinusEra = lerp(a.gastMinusEra, b.gastMinusEra);
    if (satellites) {
      out.cml =
          Wrap(lerp(cmlOffset_[k], cmlOffset_[k + 1]) + std::fmod(kCmlRate * out.tt, 360.0), 360.0);
      out.io =
          Wrap(lerp(ioOffset_[k], ioOffset_[k + 1]) + std::fmod(kIoRate * out.tt, 360.0), 360.0);
    }
    return out;
  }

  // Rise and set of both bodies within the UT day of day0, hours.
  void RiseSet(double latitude, double westRadians, EphemerisState& s) const {
    const double sinPhi = std::sin(latitude), cosPhi = std::cos(latitude);
    auto altitudeOf = [&](bool jupiter) {
      return [this, sinPhi, cosPhi, westRadians, jupiter](double hours) {
        const At at = Interpolate(hours, false);
        const double last = precise::EarthRotationAngle(at.ut1) + at.gastMinusEra - westRadians;
        return AboveHorizon(jupiter ? at.jup : at.sun, sinPhi, cosPhi, last);
      };
    };
    Crossings(altitudeOf(true), s.JupRise, s.JupSet);
    Crossings(altitudeOf(false), s.SunRise, s.SunSet);
  }

 private:
  // The mean rates taken out before the straight lines: Jupiter's rotation (degrees a day)
  // and Io's synodic motion.
  static constexpr double kCmlRate = 870.536;
  static constexpr double kIoRate = 203.4058646;

  double step_;
  std::vector<Sky> nodes_;
  std::vector<double> cmlOffset_, ioOffset_;
};

// The Earth of a UT day: exact at its noon, carried from there to any instant of the day. A
// pure function of the day; the last one is kept, since ticks and tables ask for the same day
// again and again.
const precise::Earth& DayEarth(double day0) {
  thread_local double keptDay = -1e300;
  thread_local precise::Earth kept;
  if (day0 != keptDay) {
    kept = precise::EarthAt(precise::FromT(day0 + 0.5).tt);
    keptDay = day0;
  }
  return kept;
}

void SetPlaces(EphemerisState& s, const Body& sun, const Body& jup) {
  s.SunRA = sun.ra * 12 / kPi;
  s.SunDec = sun.dec / kDegree;
  s.SunRAText = HoursText(s.SunRA);
  s.SunDecText = DegreesText(s.SunDec);
  s.JupRA = Wrap(jup.ra, kTwoPi) * 12 / kPi;
  s.JupDec = jup.dec / kDegree;
  s.JupRAText = HoursText(s.JupRA);
  s.JupDecText = DegreesText(s.JupDec);
}

void SetHorizon(EphemerisState& s, const Horizontal& sun, const Horizontal& jup) {
  s.JupAlt = jup.altitude;
  s.JupAz = jup.azimuth;
  s.SunAlt = sun.altitude;
  s.SunAz = sun.azimuth;
}

// Local mean sidereal time, hours: Greenwich mean sidereal time (IAU 2006, eraGmst06, from UT1
// and TT) less the west longitude.
double LocalMeanSiderealHours(const TimeScales& t, float ObsLong) {
  const double gmst = eraGmst06(2451545.0, t.ut1, 2451545.0, t.tt) * 12 / kPi;
  return Wrap(gmst - ObsLong / 15.0, 24.0);
}

double WestRadians(float ObsLong) {
  return ObsLong * kDegree;
}

}  // namespace

void PreciseSiderealTime(EphemerisState& s, float ObsLong) {
  s.JD0 = Int(s.T) + 2415018.5;
  s.Day1900 = s.T - 2.5;
  s.LMST0 = static_cast<float>(LocalMeanSiderealHours(precise::FromT(Int(s.T)), ObsLong));
  s.LMST = static_cast<float>(LocalMeanSiderealHours(precise::FromT(s.T), ObsLong));
  if (s.LMST0 >= 24) s.LMST0 = 0;
  if (s.LMST >= 24) s.LMST = 0;
  s.PreciseLong = ObsLong;
}

void PreciseInstant(EphemerisState& s, float ObsLat) {
  const TimeScales t = precise::FromT(s.T);
  const precise::Earth& earth = DayEarth(Int(s.T));
  const Sky sky = SkyAt(t, precise::EarthNear(earth, t.tt), true);
  const Body sun{sky.sunRA, sky.sunDec, sky.sunDistance};
  const Body jup{sky.jupRA, sky.jupDec, sky.jupDistance};
  SetPlaces(s, sun, jup);
  s.CML3 = static_cast<float>(sky.cml);
  s.IoPhase = static_cast<float>(sky.io);
  const double latitude = ObsLat * kDegree;
  const double west = WestRadians(s.PreciseLong);
  const double last = precise::EarthRotationAngle(sky.t.ut1) + sky.gastMinusEra - west;
  SetHorizon(s, ToHorizon(sun, latitude, last), ToHorizon(jup, latitude, last));
  // The day's places at its two ends; a straight line between them is good to a second of
  // time in rise and set.
  DaySky(Int(s.T), 2, 1.0, false, earth).RiseSet(latitude, west, s);
}

void PreciseMinuteTables(EphemerisState& s, MinuteTables& tables, double day, float ObsLat,
                         float ObsLong) {
  tables = MinuteTables{};
  const float keptLMST = s.LMST;
  const double day0 = Int(day);
  s.T = day0;
  PreciseSiderealTime(s, ObsLong);

  // Exact skies every hour; in between, straight lines for the slow parts and the exact
  // rotation of the Earth.
  const DaySky sky(day0, 25, 1.0 / 24, true, DayEarth(day0));
  const Sky& first = sky.Node(0);
  SetPlaces(s, {first.sunRA, first.sunDec, first.sunDistance},
            {first.jupRA, first.jupDec, first.jupDistance});
  s.CML3 = static_cast<float>(Wrap(first.cml, 360.0));
  s.IoPhase = static_cast<float>(Wrap(first.io, 360.0));
  const double latitude = ObsLat * kDegree;
  const double west = WestRadians(ObsLong);
  sky.RiseSet(latitude, west, s);

  Horizontal jup, sun;
  for (int i = 1; i < kMinuteRows; ++i) {
    // Row i is clock minute i - 1 of the day.
    const DaySky::At at = sky.Interpolate((i - 1) / 60.0, true);
    const double last = precise::EarthRotationAngle(at.ut1) + at.gastMinusEra - west;
    jup = ToHorizon(at.jup, latitude, last);
    sun = ToHorizon(at.sun, latitude, last);
    // Stores that cannot fail on good input; checked all the same, as every table store is.
    checked::Store(tables.MinuteJupHA[i], HourAngle(last, at.jup.ra));
    checked::Store(tables.MinuteJupAlt[i], std::floor(jup.altitude));
    checked::Store(tables.MinuteSunAlt[i], std::floor(sun.altitude));
    checked::Store(tables.MinuteCML[i], std::floor(at.cml));
    checked::Store(tables.MinuteIo[i], std::floor(at.io));
  }
  SetHorizon(s, sun, jup);
  s.LMST = keptLMST;
  RestoreT(s);
}

}  // namespace quillmere
