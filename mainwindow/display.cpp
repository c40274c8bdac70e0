#include "mainwindow/display.h"

#include "ephemeris/ephemeris.h"
#include "textutil/date_time.h"
#include "textutil/latlng.h"
#include "textutil/number_text.h"

namespace quillmere {
namespace {

// Rise and set move into local time when the boxes show it; the marker -1 moves with them.
double ShownRiseSet(const ProgramState& p, double hours) {
  if (p.UseGMT) return hours;
  double v = hours + p.TimeZone;
  if (v < 0) v = v + 24;
  if (v > 24) v = v - 24;
  return v;
}

}  // namespace

void DisplayInfo(const ProgramState& p, const EphemerisState& s, Captions& c) {
  const bool live = p.RealTime != 0;
  const double lmst = live ? s.LMST : p.FixedLMST;
  double jupHA = lmst - (live ? s.JupRA : p.FixedJupRA);
  double sunHA = lmst - (live ? s.SunRA : p.FixedSunRA);
  if (jupHA < -12) jupHA = jupHA + 24;  // no fold at the other end
  if (sunHA < -12) sunHA = sunHA + 24;

  c.LbLSunRise = "Rise: " + HoursText(ShownRiseSet(p, live ? s.SunRise : p.FixedSunRise));
  c.LbLSunSet = "Set: " + HoursText(ShownRiseSet(p, live ? s.SunSet : p.FixedSunSet));
  c.LbLJupRise = "Rise: " + HoursText(ShownRiseSet(p, live ? s.JupRise : p.FixedJupRise));
  c.LbLJupSet = "Set: " + HoursText(ShownRiseSet(p, live ? s.JupSet : p.FixedJupSet));
  c.LBLJupHA = "HA: " + HoursText(jupHA);
  c.LBLSunHA = "HA: " + HoursText(sunHA);

  if (live) {
    c.LblJupRA = "RA: " + s.JupRAText;
    c.LblJupDEC = "DEC: " + s.JupDecText;
    c.LBlCMIII = "CML: " + NumberText(s.CML3);
    c.LbLSGC = "Io Phase: " + Format(s.IoPhase, "000.00");
    c.LBLJupAlt = "EL: " + Format(s.JupAlt, "00.0");
    c.LblJUPAZ = "AZ: " + Format(s.JupAz, "000.0");
    c.LbLSunRA = "RA: " + s.SunRAText;
    c.LBLSunDec = "DEC: " + s.SunDecText;
    c.LBLSunAlt = "EL: " + Format(s.SunAlt, "00.0");
    c.LbLSunAz = "AZ: " + Format(s.SunAz, "000.0");
  } else {
    c.LblJupRA = "RA: " + HoursText(p.FixedJupRA);
    c.LblJupDEC = "DEC: " + DegreesText(p.FixedJupDec);
    c.LBlCMIII = "CMIII: " + NumberText(p.FixedCML3);
    c.LbLSGC = "Io SGC: " + Format(p.FixedIoPhase, "000.00");
    c.LBLJupAlt = "EL: " + Format(p.FixedJupAlt, "00.0");
    c.LblJUPAZ = "AZ: " + Format(p.FixedJupAz, "000.0");
    c.LbLSunRA = "RA: " + HoursText(p.FixedSunRA);
    c.LBLSunDec = "DEC: " + DegreesText(p.FixedSunDec);
    c.LBLSunAlt = "EL: " + Format(p.FixedSunAlt, "00.0");
    c.LbLSunAz = "AZ: " + Format(p.FixedSunAz, "000.0");
  }
}

void SetFixedTime(ProgramState& p, const EphemerisState& s) {
  p.FixedT = s.T;
  p.FixedLMST = s.LMST;
  p.FixedJupAlt = s.JupAlt;
  p.FixedJupAz = s.JupAz;
  p.FixedSunAlt = s.SunAlt;
  p.FixedSunAz = s.SunAz;
  p.FixedJupRA = s.JupRA;
  p.FixedJupDec = s.JupDec;
  p.FixedSunRA = s.SunRA;
  p.FixedSunDec = s.SunDec;
  p.FixedSunRise = s.SunRise;
  p.FixedSunSet = s.SunSet;
  p.FixedJupRise = s.JupRise;
  p.FixedJupSet = s.JupSet;
  p.FixedCML3 = s.CML3;
  p.FixedIoPhase = s.IoPhase;
}

std::optional<std::string> LmstCaption(float x) {
  const double H = Int(x);
  // A time of day takes its hours as a 16-bit number: beyond that (a stored longitude of 1e30
  // puts sidereal time there) nothing can be packed, and the label keeps what it showed.
  if (!(H >= -32768 && H <= 32767)) return std::nullopt;
  float f = static_cast<float>(x - H);
  const double M = Int(static_cast<float>(f * 60.0f));
  // From here on 64-bit: f - M / 60 is not stored back into the 32-bit f.
  const double rest = f - M / 60;
  const double S = Int(rest * 3600);
  const double t =
      TimeSerial(static_cast<long long>(H), static_cast<long long>(M), static_cast<long long>(S));
  return " LMST: " + FormatDateTime(t, "HH:MM:SS");
}

std::string ObserverCaption(const ProgramState& p) {
  std::string text = "Lat : " + LatToText(p.ObsLat) + "\r\n";
  return text + "Long: " + ShownLongitude(p.ObsLong, p.DisplayWest) +
         (p.DisplayWest == "W" ? " W" : " E");
}

double BoxesInstant(const ProgramState& p, const EphemerisState& s, double localNow) {
  if (p.RealTime) return p.UseGMT ? s.T : localNow;
  return p.UseGMT ? p.FixedT : p.FixedT + p.TimeZone / 24;
}

std::string MakeVersionBanner(int major, int minor, int revision) {
  return "Quillmere Speech Edition.  " + Format(major, "##") + "." + Format(minor, "#0") + "." +
         Format(revision, "#0");
}

}  // namespace quillmere
