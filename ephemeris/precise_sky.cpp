// The precise ephemeris at one instant: time scales, apparent places of the Sun and Jupiter,
// sidereal time, Jupiter's central meridian and Io's phase.

#include <erfa.h>
#include <erfam.h>

#include <cmath>

#include "ephemeris/precise.h"

namespace quillmere::precise {

namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kDegree = kPi / 180;
constexpr double kUnixToJ2000 = 2451545.0;
// T counts days from 30 December 1899, 0h: JD 2415018.5.
constexpr double kTToJ2000 = 2415018.5 - kUnixToJ2000;
constexpr double kLightDaysPerAu = 1 / ERFA_DC;  // days

double Wrap360(double x) {
  x = std::fmod(x, 360.0);
  return x < 0 ? x + 360 : x;
}

double Norm(const double v[3]) {
  return std::sqrt(v[0] * v[0] + v[1] * v[1] + v[2] * v[2]);
}

double Dot(const double a[3], const double b[3]) {
  return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

// Right ascension 0 to 2 pi and declination of a vector.
void ToPolar(double v[3], double& ra, double& dec) {
  eraC2s(v, &ra, &dec);
  ra = eraAnp(ra);
}

// Apparent direction of date from a geocentric astrometric vector: annual aberration for an
// observer moving at `velocity` (units of c) at `sunDistance` AU from the Sun (eraAb, which
// includes the relativistic terms), then bias, precession and nutation (`npb`).
void Apparent(const double astrometric[3], double velocity[3], double sunDistance, double npb[3][3],
              double& ra, double& dec) {
  double unit[3], aberrated[3], ofDate[3];
  double length = 0;
  eraPn(const_cast<double*>(astrometric), &length, unit);
  const double bm1 = std::sqrt(1 - Dot(velocity, velocity));
  eraAb(unit, velocity, sunDistance, bm1, aberrated);
  eraRxp(npb, aberrated, ofDate);
  ToPolar(ofDate, ra, dec);
}

// Jupiter's System III central meridian, degrees, seen along `fromJupiter` (ICRF, Jupiter to the
// Earth) with the planet's rotation read at `emission` (TDB days from J2000.0, taken as TT; the
// two differ by under 2 ms).
//
// IAU WG on Cartographic Coordinates and Rotational Elements 2015 (Archinal et al. 2018,
// Celest. Mech. Dyn. Astron. 130:22), Jupiter: pole right ascension a0 and declination d0 in
// degrees, ICRF; prime meridian W = 284.95 + 870.536 d degrees (System III). T is Julian
// centuries, d days. The central meridian is the sub-Earth west longitude: W less the angle of
// the Earth's direction in Jupiter's equator counted from the node Q = z x P eastward.
double CentralMeridian(const double fromJupiter[3], double emission) {
  const double d = emission;
  const double T = d / 36525;
  const double Ja = (99.360714 + 4850.4046 * T) * kDegree;
  const double Jb = (175.895369 + 1191.9605 * T) * kDegree;
  const double Jc = (300.323162 + 262.5475 * T) * kDegree;
  const double Jd = (114.012305 + 6070.2476 * T) * kDegree;
  const double Je = (49.511251 + 64.3000 * T) * kDegree;
  const double a0 = (268.056595 - 0.006499 * T + 0.000117 * std::sin(Ja) + 0.000938 * std::sin(Jb) +
                     0.001432 * std::sin(Jc) + 0.000030 * std::sin(Jd) + 0.002150 * std::sin(Je)) *
                    kDegree;
  const double d0 = (64.495303 + 0.002413 * T + 0.000050 * std::cos(Ja) + 0.000404 * std::cos(Jb) +
                     0.000617 * std::cos(Jc) - 0.000013 * std::cos(Jd) + 0.000926 * std::cos(Je)) *
                    kDegree;
  const double W = 284.95 + 870.5360000 * d;

  const double P[3] = {std::cos(d0) * std::cos(a0), std::cos(d0) * std::sin(a0), std::sin(d0)};
  const double Q[3] = {-std::sin(a0), std::cos(a0), 0};
  const double R[3] = {P[1] * Q[2] - P[2] * Q[1], P[2] * Q[0] - P[0] * Q[2],
                       P[0] * Q[1] - P[1] * Q[0]};
  const double phi = std::atan2(Dot(fromJupiter, R), Dot(fromJupiter, Q)) / kDegree;
  return Wrap360(std::fmod(W, 360.0) - phi);
}

// Io's phase, degrees, 0 when Io stands behind Jupiter (superior conjunction), growing with
// its motion. Io's longitude in Jupiter's equator from Lieske's E5 theory as given by Meeus,
// Astronomical Algorithms, 2nd ed., chapter 44 (the accurate method): mean longitudes and the
// periodic terms of Io's longitude in degrees, t in days from JDE 2443000.5 less the light
// time, longitudes counted from the B1950 equinox along the ecliptic to the node psi of
// Jupiter's equator and on along that equator. The Earth's direction (`fromJupiterEcliptic`,
// mean ecliptic and equinox of date) goes into the same equator by Meeus's rotations
// (inclination I of Jupiter's equator on its orbit, the orbit's node and inclination on the
// ecliptic of date, the precession P of longitudes since B1950).
double IoPhase(const double fromJupiterEcliptic[3], double tt, double lightTime) {
  const double t = tt + kUnixToJ2000 - 2443000.5 - lightTime;
  const double l1 = 106.07719 + 203.488955790 * t;
  const double l2 = 175.73161 + 101.374724735 * t;
  const double l3 = 120.55883 + 50.317609207 * t;
  const double pi1 = 97.0881 + 0.16138586 * t;
  const double pi2 = 154.8663 + 0.04726307 * t;
  const double pi3 = 188.1840 + 0.00712734 * t;
  const double pi4 = 335.2868 + 0.00184000 * t;
  const double w2 = 100.4411 - 0.03263064 * t;
  const double w3 = 119.1942 - 0.00717703 * t;
  const double Gamma = 0.33033 * std::sin((163.679 + 0.0010512 * t) * kDegree) +
                       0.03439 * std::sin((34.486 - 0.0161731 * t) * kDegree);
  const double phiLambda = 199.6766 + 0.17379190 * t;
  const double psi = 316.5182 - 0.00000208 * t;
  const double G = 30.23756 + 0.0830925701 * t + Gamma;
  const double Pi = 13.469942;

  struct Term {
    double amplitude;
    double argument;  // degrees
  };
  const Term terms[] = {
      {+0.47259, 2 * (l1 - l2)},
      {-0.03478, pi3 - pi4},
      {+0.01081, l2 - 2 * l3 + pi3},
      {+0.00738, phiLambda},
      {+0.00713, l2 - 2 * l3 + pi2},
      {-0.00674, pi1 + pi3 - 2 * Pi - 2 * G},
      {+0.00666, l2 - 2 * l3 + pi4},
      {+0.00445, l1 - pi3},
      {-0.00354, l1 - l2},
      {-0.00317, 2 * psi - 2 * Pi},
      {+0.00265, l1 - pi4},
      {-0.00186, G},
      {+0.00162, pi2 - pi3},
      {+0.00158, 4 * (l1 - l2)},
      {-0.00155, l1 - l3},
      {-0.00138, psi + w3 - 2 * Pi - 2 * G},
      {-0.00115, 2 * (l1 - 2 * l2 + w2)},
      {+0.00089, pi2 - pi4},
      {+0.00085, l1 + pi3 - 2 * Pi - 2 * G},
      {+0.00083, w2 - w3},
      {+0.00053, psi - w2},
  };
  double sum = 0;
  for (const Term& term : terms)
    sum += term.amplitude * std::sin(std::fmod(term.argument, 360.0) * kDegree);
  const double L1 = l1 + sum;

  // Rotations of Meeus's chain, undone: ecliptic of date -> Jupiter's orbit -> its equator.
  const double T0 = (tt + kUnixToJ2000 - 2433282.423) / 36525;  // centuries from B1950
  const double P = 1.3966626 * T0 + 0.0003088 * T0 * T0;
  const double Tj = (tt - lightTime) / 36525;
  const double Omega = (100.464407 + 1.0209774 * Tj + 0.00040315 * Tj * Tj) * kDegree;
  const double inc = (1.303267 - 0.0054965 * Tj + 0.00000466 * Tj * Tj) * kDegree;
  const double T1900 = (tt + kUnixToJ2000 - 2415020.5) / 36525;
  const double I = (3.120262 + 0.0006 * T1900) * kDegree;
  const double nodeFromOmega = (psi + P) * kDegree - Omega;

  double x = fromJupiterEcliptic[0], y = fromJupiterEcliptic[1], z = fromJupiterEcliptic[2];
  auto aboutZ = [&](double a) {  // rotate the vector by -a about z
    const double x1 = x * std::cos(a) + y * std::sin(a);
    y = -x * std::sin(a) + y * std::cos(a);
    x = x1;
  };
  auto aboutX = [&](double a) {  // rotate the vector by -a about x
    const double y1 = y * std::cos(a) + z * std::sin(a);
    z = -y * std::sin(a) + z * std::cos(a);
    y = y1;
  };
  aboutZ(Omega);
  aboutX(inc);
  aboutZ(nodeFromOmega);
  aboutX(I);
  const double earth = std::atan2(y, x) / kDegree;  // from the node psi, in Jupiter's equator
  return Wrap360(std::fmod(L1 - psi, 360.0) - earth - 180);
}

}  // namespace

double DeltaT(double y) {
  // Espenak & Meeus (2006), Five Millennium Canon of Solar Eclipses, the polynomial
  // expressions for Delta T; seconds, y the decimal year.
  if (y < 1860) {
    const double u = (y - 1820) / 100;
    return -20 + 32 * u * u;
  }
  if (y < 1900) {
    const double t = y - 1860;
    return 7.62 + 0.5737 * t - 0.251754 * t * t + 0.01680668 * t * t * t -
           0.0004473624 * t * t * t * t + t * t * t * t * t / 233174;
  }
  if (y < 1920) {
    const double t = y - 1900;
    return -2.79 + 1.494119 * t - 0.0598939 * t * t + 0.0061966 * t * t * t -
           0.000197 * t * t * t * t;
  }
  if (y < 1941) {
    const double t = y - 1920;
    return 21.20 + 0.84493 * t - 0.076100 * t * t + 0.0020936 * t * t * t;
  }
  const double t = y - 1950;
  return 29.07 + 0.407 * t - t * t / 233 + t * t * t / 2547;
}

TimeScales FromT(double T) {
  TimeScales out;
  const double jd = T + kTToJ2000;  // days from J2000.0 in the clock's own scale
  int iy = 0, im = 0, id = 0;
  double fd = 0;
  if (eraJd2cal(kUnixToJ2000, jd, &iy, &im, &id, &fd) != 0) {
    out.ut1 = jd;
    out.tt = jd;
    return out;
  }
  double dat = 0;
  // From 1960 the clock is UTC and UT1 is within 0.9 s of it; TT = UTC + (TAI - UTC) +
  // 32.184 s, with ERFA's table of leap seconds. Past its last entry the last offset stays:
  // no leap seconds are foreseen. Before 1960 the clock is read as UT1.
  if (iy >= 1960 && eraDat(iy, im, id, fd, &dat) >= 0) {
    out.ut1 = jd;
    out.tt = jd + (dat + 32.184) / 86400;
    return out;
  }
  const double year = iy + (im - 1 + (id - 1 + fd) / 31) / 12;
  out.ut1 = jd;
  out.tt = jd + DeltaT(year) / 86400;
  return out;
}

double EarthRotationAngle(double ut1) {
  return eraEra00(kUnixToJ2000, ut1);
}

Earth EarthAt(double tt) {
  // eraEpv00: Bretagnon's series fitted to the JPL DE405 ephemeris, good to a few km in 1900
  // to 2100; heliocentric and barycentric, AU and AU/day, BCRS axes, tt as TDB.
  double pvh[2][3], pvb[2][3];
  eraEpv00(kUnixToJ2000, tt, pvh, pvb);
  Earth e;
  e.tt = tt;
  for (int k = 0; k < 3; ++k) {
    e.p[k] = pvh[0][k];
    e.v[k] = pvh[1][k];
    e.vb[k] = pvb[1][k];
  }
  return e;
}

Earth EarthNear(const Earth& e, double tt) {
  // The Sun's pull, k^2 = GM of the Sun in AU^3/day^2 (k the Gaussian constant 0.01720209895).
  constexpr double kGM = 0.01720209895 * 0.01720209895;
  const double dt = tt - e.tt;
  const double r = Norm(e.p);
  Earth out;
  out.tt = tt;
  for (int k = 0; k < 3; ++k) {
    const double a = -kGM * e.p[k] / (r * r * r);
    out.p[k] = e.p[k] + e.v[k] * dt + 0.5 * a * dt * dt;
    out.v[k] = e.v[k] + a * dt;
    out.vb[k] = e.vb[k] + a * dt;
  }
  return out;
}

Sky SkyAt(const TimeScales& t, bool satellites) {
  return SkyAt(t, EarthAt(t.tt), satellites);
}

Sky SkyAt(const TimeScales& t, const Earth& earth, bool satellites) {
  Sky sky;
  sky.t = t;
  const double tt1 = kUnixToJ2000, tt2 = t.tt;

  double pvh[2][3];
  for (int k = 0; k < 3; ++k) pvh[0][k] = earth.p[k];
  double velocity[3];
  for (int k = 0; k < 3; ++k) velocity[k] = earth.vb[k] / ERFA_DC;
  const double sunDistance = Norm(pvh[0]);

  // Bias, precession and nutation (IAU 2000B) and the apparent sidereal time with it.
  double dpsi = 0, deps = 0, epsa = 0;
  double rb[3][3], rp[3][3], rbp[3][3], rn[3][3], npb[3][3];
  eraNut00b(tt1, tt2, &dpsi, &deps);
  eraPn00(tt1, tt2, dpsi, deps, &epsa, rb, rp, rbp, rn, npb);
  const double gast = eraGmst00(kUnixToJ2000, t.ut1, tt1, tt2) + eraEe00(tt1, tt2, epsa, dpsi);
  sky.gastMinusEra = gast - EarthRotationAngle(t.ut1);

  // The Sun: the reverse of the Earth's heliocentric place (the Sun's own motion during the
  // 8 minutes of light is a few km).
  const double sun[3] = {-pvh[0][0], -pvh[0][1], -pvh[0][2]};
  Apparent(sun, velocity, sunDistance, npb, sky.sunRA, sky.sunDec);
  sky.sunDistance = sunDistance;

  // Jupiter (Simon et al. 1994, eraPlan94, heliocentric, J2000 mean equator), where it stood
  // when the light left it.
  double pv[2][3];
  double jup[3] = {0, 0, 0};
  double lightTime = 0;
  for (int pass = 0; pass < 3; ++pass) {
    eraPlan94(tt1, tt2 - lightTime, 5, pv);
    for (int k = 0; k < 3; ++k) jup[k] = pv[0][k] - pvh[0][k];
    lightTime = Norm(jup) * kLightDaysPerAu;
  }
  sky.jupDistance = Norm(jup);
  Apparent(jup, velocity, sunDistance, npb, sky.jupRA, sky.jupDec);

  if (satellites) {
    const double fromJupiter[3] = {-jup[0], -jup[1], -jup[2]};
    sky.cml = CentralMeridian(fromJupiter, t.tt - lightTime);
    double ecm[3][3], ecliptic[3];
    eraEcm06(tt1, tt2, ecm);
    eraRxp(ecm, const_cast<double*>(fromJupiter), ecliptic);
    sky.io = IoPhase(ecliptic, t.tt, lightTime);
  }
  return sky;
}

}  // namespace quillmere::precise
