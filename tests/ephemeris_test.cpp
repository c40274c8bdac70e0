#include "ephemeris/ephemeris.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "textutil/date_time.h"

namespace quillmere {
namespace {

constexpr double kDeg = 57.29577951308238;

double At(int y, int mo, int d, int h = 0, int mi = 0, int s = 0) {
  return *DateSerial(y, mo, d) + TimeSerial(h, mi, s);
}

EphemerisState Instant(double t, float lat, float lng) {
  EphemerisState s;
  s.T = t;
  ComputeSiderealTime(s, lng);
  ComputeInstant(s, lat);
  return s;
}

// Published values for J2000.0 noon at 30 N, 80 W, to the digits they were given in; the
// instants of EveryDigit below pin the rest bit for bit.
TEST(Instant, J2000Noon) {
  const EphemerisState s = Instant(At(2000, 1, 1, 12), 30, 80);
  const struct {
    const char* name;
    double got, want, within;
  } values[] = {
      {"JD0", s.JD0, 2451544.5, 0},
      {"Day1900", s.Day1900, 36524, 0},
      {"LMST0", s.LMST0, 1.331187, 5e-6},
      {"LMST", s.LMST, 13.36404, 5e-6},
      {"SunRA", s.SunRA, 18.63061, 5e-6},
      {"SunDec", s.SunDec, -23.16499, 5e-6},
      {"JupRA", s.JupRA, 1.58829, 5e-6},
      {"JupDec", s.JupDec, 8.57640, 5e-6},
      {"CML3", s.CML3, 54.68000030517578, 0},  // 54.68 as a 32-bit value
      {"CML3 at 0 N 0 E", Instant(At(2000, 1, 1, 12), 0, 0).CML3, 54.68000030517578, 0},
      {"IoPhase", s.IoPhase, 347.0113, 5e-5},
      {"SunAlt", s.SunAlt, -2.565, 5e-4},
      {"SunAz", s.SunAz, 115.393, 5e-4},
      {"SunRise", s.SunRise, 12.2529, 5e-5},
      {"SunSet", s.SunSet, 22.3460, 5e-5},
      {"JupAlt", s.JupAlt, -51.288, 5e-4},
      {"JupAz", s.JupAz, 354.677, 5e-4},
      {"JupRise", s.JupRise, 17.9241, 5e-5},
      {"JupSet", s.JupSet, 6.5901, 5e-5},
  };
  for (const auto& v : values) EXPECT_NEAR(v.got, v.want, v.within) << v.name;
}

TEST(SiderealTime, Quirks) {
  // At 0h UT both roads start from the same Greenwich value, but LMST0 lost its low digits in
  // a 32-bit float of the whole multi-day count of hours, and LMST did not.
  EphemerisState s;
  s.T = At(2006, 7, 5);
  ComputeSiderealTime(s, 0);
  EXPECT_NE(s.LMST0, s.LMST);
  EXPECT_NEAR(s.LMST0, s.LMST, 1e-4);

  // The rate applies to whole seconds only.
  EphemerisState a, b;
  a.T = At(2006, 7, 5, 12, 0, 10);
  b.T = a.T + 0.3 / 86400;  // still reads 12:00:10
  ComputeSiderealTime(a, 80);
  ComputeSiderealTime(b, 80);
  EXPECT_EQ(a.LMST, b.LMST);
  EXPECT_NE(a.Day1900, b.Day1900);

  s.T = At(2006, 7, 5, 12);
  ComputeSiderealTime(s, -350);  // a negative longitude folds upward only
  EXPECT_GT(s.LMST, 24);
  EXPECT_LT(s.LMST, 48);

  // Before J2000 whole days of 86400 s are added to a negative theta: the time stays continuous.
  a.T = At(1999, 12, 31, 23, 59, 59);
  b.T = At(2000, 1, 1, 0, 0, 0);
  ComputeSiderealTime(a, 0);
  ComputeSiderealTime(b, 0);
  double step = b.LMST - a.LMST;
  if (step < 0) step += 24;
  EXPECT_NEAR(step, 1.0027379 / 3600, 2e-6);
}

TEST(JulianDay, FromFields) {
  const struct {
    int y, mo, d, h;
    double J, F;
  } cases[] = {
      {1992, 12, 16, 0, 2448972, 0.5}, {2006, 7, 5, 12, 2453922, 0}, {2000, 1, 1, 12, 2451545, 0},
      {1582, 10, 10, 0, 2299155, 0.5},  // 1582 counts as Gregorian, with no gap
      {1581, 10, 10, 0, 2298800, 0.5},  // 1581 as Julian
  };
  for (const auto& c : cases) {
    const JulianDay jd = JulianDayFromFields(c.y, c.mo, c.d, c.h, 0, 0);
    EXPECT_EQ(jd.J, c.J) << c.y << "-" << c.mo << "-" << c.d;
    EXPECT_EQ(jd.F, c.F) << c.y << "-" << c.mo << "-" << c.d;
  }
}

TEST(Positions, SunRightAscensionStaysInADay) {
  for (double t = At(2000, 1, 1); t < At(2001, 1, 1); t += 0.37) {
    EphemerisState s;
    s.Day1900 = t - 2.5;
    ComputePositions(s);
    ASSERT_GE(s.SunRA, 0) << t;
    ASSERT_LT(s.SunRA, 24) << t;
    ASSERT_LE(std::fabs(s.SunDec), 23.5) << t;
  }
}

TEST(Positions, RectangularToPolarFoldsInOrder) {
  const struct {
    double x, y, A;
  } cases[] = {
      {1, 1, 0.7853981633974483},
      {-1, 1, 3.14159265358979 - 0.7853981633974483},      // atan < 0: add pi
      {-1, -1, 3.14159265358979 + 0.7853981633974483},     // atan > 0, y < 0: add pi
      {1, -1, 2 * 3.14159265358979 - 0.7853981633974483},  // both tests fire
      {0, 1, 0},                  // x = 0: the division fails and the angle stays 0
      {0, -1, 3.14159265358979},  // ... and the y test still runs
  };
  for (const auto& c : cases)
    EXPECT_NEAR(RectangularToPolar(c.x, c.y, 0).A, c.A, 1e-15) << c.x << "," << c.y;
  EXPECT_NEAR(RectangularToPolar(1, 0, 1).B * kDeg, 45, 1e-12);
  EXPECT_EQ(RectangularToPolar(1, 0, 1).r, std::sqrt(2.0));
}

TEST(Positions, EarthStaysInTheEcliptic) {
  for (double d : {-20000.0, 0.0, 36524.0, 70000.0}) EXPECT_EQ(OrbitPosition(Orbit::Earth, d).z, 0);
}

TEST(Positions, Texts) {
  const struct {
    double x;
    const char *hours, *degrees;
  } cases[] = {
      {5.5, "05:30", "05:30"},
      {-1, "-01:00", "-01:00"},
      {-5.5, "-05:30", "-05:30"},
      {-0.5, "-00:30", "-00:30"},
      {12.9999, "12:60", "12:59"},  // hours round the minutes, degrees
                                    // cut them
      {23.25, "23:15", "23:15"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(HoursText(c.x), c.hours) << c.x;
    EXPECT_EQ(DegreesText(c.x), c.degrees) << c.x;
  }
}

TEST(JupiterSeries, Examples) {
  const struct {
    double t;
    double alpha, delta, distance;
  } cases[] = {
      {0, 23.88895, 8.56943, 4.620918},
      {2377.0, 216.98543, -13.36884, 4.891858},
  };
  for (const auto& c : cases) {
    const JupiterSeries j = JupiterSeriesPosition(c.t);
    EXPECT_NEAR(j.alpha * kDeg, c.alpha, 5e-6);
    EXPECT_NEAR(j.delta * kDeg, c.delta, 5e-6);
    EXPECT_NEAR(j.distance, c.distance, 5e-7);
  }
  EXPECT_EQ(JupiterSeriesPosition(0).century, 1);
  // Before 2000 the arguments reduce by the floor and the result stays sound.
  const JupiterSeries past = JupiterSeriesPosition(-30000);
  EXPECT_GT(past.distance, 3.9);
  EXPECT_LT(past.distance, 6.5);
}

TEST(MeridianAndIo, Examples) {
  const struct {
    double t;
    double CML3, IoPhase;
  } cases[] = {
      {At(2024, 1, 1), 168.69, 219.7821},
      {At(1992, 12, 16), 349.04, 144.2513},
  };
  for (const auto& c : cases) {
    const EphemerisState s = Instant(c.t, 30, 80);
    EXPECT_EQ(s.CML3, static_cast<float>(c.CML3));
    EXPECT_NEAR(s.IoPhase, c.IoPhase, 5e-5);
  }
}

TEST(MeridianAndIo, CentralMeridianIsWholeHundredthsUpTo360) {
  for (double t = At(2010, 3, 1); t < At(2010, 3, 2); t += 1.0 / 1440) {
    EphemerisState s;
    ComputeCML3(s, t);
    ASSERT_GE(s.CML3, 0);
    ASSERT_LE(s.CML3, 360);
    const double hundredths = s.CML3 * 100.0;
    ASSERT_NEAR(hundredths, std::round(hundredths), 5e-3) << s.CML3;  // a 32-bit store
  }
}

TEST(MeridianAndIo, Folds) {
  const double circle = 6.28318530717958;
  EXPECT_EQ(Mod2Pi(1.0), 1.0);
  EXPECT_NEAR(Mod2Pi(-1e-9), circle - 1e-9, 1e-15);  // a small negative comes back near the top
  EXPECT_NEAR(Mod2Pi(3 * circle + 0.5), 0.5, 1e-14);
  EXPECT_NEAR(Mod360(-90), 270, 1e-12);
  EXPECT_NEAR(Mod360(725), 5, 1e-12);
  EXPECT_EQ(Mod360(0), 0);
}

TEST(Horizon, RiseAndSetAtTheEdges) {
  EphemerisState s;
  s.JupDec = 23.5;
  s.SunDec = -23.5;
  ComputeRiseSet(s, 70);  // circumpolar: no rise or set
  EXPECT_EQ((std::array{s.JupRise, s.JupSet, s.SunRise, s.SunSet}),
            (std::array{kNoRiseSet, kNoRiseSet, kNoRiseSet, kNoRiseSet}));
  // At the equator c is 0 whatever the declination: exactly one is still a rise and set, six
  // hours either side of transit, folded into 0..24.
  s.LMST0 = 0;
  s.JupRA = 3;
  s.SunRA = 20;
  ComputeRiseSet(s, 0);
  EXPECT_NEAR(s.JupRise, 21, 1e-9);
  EXPECT_NEAR(s.JupSet, 9, 1e-9);
  EXPECT_NEAR(s.SunRise, 14, 1e-9);
  EXPECT_NEAR(s.SunSet, 2, 1e-9);
}

TEST(Horizon, MeridianAndQuarterCircles) {
  // A body on the meridian south of the zenith.
  const Horizon south = EquatorialToHorizon(30, 5, 5, 0);
  EXPECT_NEAR(south.altitude, 60, 1e-7);
  EXPECT_NEAR(south.azimuth, 180, 1e-5);
  // East before transit, west after.
  EXPECT_LT(EquatorialToHorizon(30, 4, 5, 0).azimuth, 180);
  EXPECT_GT(EquatorialToHorizon(30, 6, 5, 0).azimuth, 180);
  // At a pole the division stays finite.
  const Horizon pole = EquatorialToHorizon(90, 7, 5, 20);
  EXPECT_NEAR(pole.altitude, 20, 1e-7);
  EXPECT_TRUE(std::isfinite(pole.azimuth));
  EXPECT_EQ(Arcsine(1), 1.570796326794895);
  EXPECT_EQ(Arcsine(-2), -1.570796326794895);
  EXPECT_EQ(Arccosine(0), 1.570796327);
  EXPECT_EQ(Arccosine(1), 1.570796327 - 1.570796326794895);  // about 2.05e-10, not 0
}

TEST(MinuteTables, Example) {
  EphemerisState s;
  MinuteTables t;
  FillMinuteTables(s, t, At(2006, 7, 5), 30, 80);
  EXPECT_EQ(s.CML3, 134.55f);
  EXPECT_NEAR(s.IoPhase, 266.6172, 5e-5);
  const struct {
    int row, cml, io, sunAlt, jupAlt;
    double jupHA;
  } rows[] = {
      {0, 0, 0, 0, 0, 0},
      {1, 134, 266, 0, 45, -0.7472},
      {2, 135, 266, 0, 45, -0.7304},
      {721, 209, 8, 22, -71, 11.2856},
      {1440, 284, 109, -1, 45, -0.6983},
  };
  for (const auto& r : rows) {
    EXPECT_EQ(t.MinuteCML[r.row], r.cml) << r.row;
    EXPECT_EQ(t.MinuteIo[r.row], r.io) << r.row;
    EXPECT_EQ(t.MinuteSunAlt[r.row], r.sunAlt) << r.row;
    EXPECT_EQ(t.MinuteJupAlt[r.row], r.jupAlt) << r.row;
    EXPECT_NEAR(t.MinuteJupHA[r.row], r.jupHA, 5e-5) << r.row;
  }
}

TEST(MinuteTables, FillLeavesTheStateAsDocumented) {
  EphemerisState s;
  s.T = At(2010, 5, 6, 7, 8, 9);
  ComputeSiderealTime(s, 10);
  const float lmst = s.LMST;
  SaveT(s);
  s.T = 123;  // the fill puts back what SaveT kept, not this
  MinuteTables t;
  FillMinuteTables(s, t, At(2006, 7, 5), 30, 80);
  EXPECT_EQ(s.T, At(2010, 5, 6, 7, 8, 9));
  EXPECT_EQ(s.LMST, lmst);
  EXPECT_EQ(s.Day1900, At(2006, 7, 5) + 0.006944444 - 2.5);  // the table's start
  // The altitudes are those of row 1440.
  EXPECT_EQ(t.MinuteJupAlt[1440], std::floor(s.JupAlt));
  EXPECT_EQ(t.MinuteSunAlt[1440], std::floor(s.SunAlt));
}

TEST(MinuteTables, TimeOfDayIsIgnoredAndRangesHold) {
  EphemerisState a, b;
  MinuteTables ta, tb;
  FillMinuteTables(a, ta, At(2019, 11, 30), -45, 200);
  FillMinuteTables(b, tb, At(2019, 11, 30, 18, 30), -45, 200);
  EXPECT_EQ(ta.MinuteCML, tb.MinuteCML);
  EXPECT_EQ(ta.MinuteIo, tb.MinuteIo);
  EXPECT_EQ(ta.MinuteJupHA, tb.MinuteJupHA);
  for (int i = 1; i < kMinuteRows; ++i) {
    ASSERT_LE(ta.MinuteCML[i], 360);
    ASSERT_GE(ta.MinuteCML[i], 0);
    ASSERT_LE(ta.MinuteIo[i], 360);
    ASSERT_GE(ta.MinuteJupHA[i], -12);
    ASSERT_LE(ta.MinuteJupHA[i], 12);
  }
}

// Every digit of a few instants across the globe and the two centuries, as the arithmetic
// of the routines gives them. A changed order of operations or a store at the wrong width
// shows here first.
TEST(EveryDigit, Instants) {
  const char* const names[] = {"JD0",    "Day1900", "LMST0",   "LMST",   "CML3",    "IoPhase",
                               "SunRA",  "SunDec",  "JupRA",   "JupDec", "JupAlt",  "JupAz",
                               "SunAlt", "SunAz",   "JupRise", "JupSet", "SunRise", "SunSet"};
  // The 32-bit values are written as such (f): widened to double they compare exactly.
  const struct {
    struct {
      double t;
      float lat, lng;
    } at;
    std::array<double, 18> values;
  } cases[] = {
      {{At(2006, 7, 5, 12), 30, 80},
       {2453921.5, 38901, 13.5234327f, 1.55629385f, 203.740005f, 6.99789429f, 6.8437450702655864,
        22.939819220849444, 14.454130986546936, -13.367795901775295, -69.227022781543994,
        320.29255846284246, 20.047361690990005, 74.430324139848736, 19.456427253042239,
        6.4049695365085411, 10.377396752661491, 0.26322824733851036}},
      {{At(1913, 3, 17, 5, 43, 21), -33.9f, 341.5f},
       {2419843.5, 4822.7384375000001, 12.8307285f, 18.5688972f, 300.799988f, 69.45401f,
        23.73029322574839, -1.7528777865233718, 19.058148194586089, -22.51805483839378,
        76.919369582123224, 31.424025632655415, 11.404927171968545, 84.378416322251951,
        23.149021850548571, 13.305815948523694, 4.8210090248805892, 16.978120461203396}},
      {{At(2087, 11, 2, 23, 59, 59), 89.5f, -120},
       {2483626.5, 68606.49998842593, 10.7670898f, 10.8325577f, 56.0699997f, 18.383667f,
        14.368878076388421, -14.149382385012604, 12.452288335175053, -1.713717325610536,
        -1.2579911109563966, 155.70937591476417, -13.848438921697147, 127.05474121328996, -1, -1,
        -1, -1}},
      {{At(2031, 6, 21, 18, 7), -65.25f, 200.75f},
       {2463038.5, 48018.254861111112, 4.54989433f, 22.7161789f, 141.460007f, 143.832733f,
        5.8650489561265839, 23.436961853096484, 17.503930192136437, -22.824942102107382,
        25.550183928193707, 270.57136848851042, -28.359586705206059, 95.237661126020043,
        2.5596620649527821, 23.348411360340187, 23.989121132780408, 2.6411879721390257}},
  };
  for (const auto& c : cases) {
    const EphemerisState s = Instant(c.at.t, c.at.lat, c.at.lng);
    const std::array<double, 18> got = {
        s.JD0,    s.Day1900, s.LMST0, s.LMST,   s.CML3,  s.IoPhase, s.SunRA,  s.SunDec,  s.JupRA,
        s.JupDec, s.JupAlt,  s.JupAz, s.SunAlt, s.SunAz, s.JupRise, s.JupSet, s.SunRise, s.SunSet};
    for (size_t i = 0; i < got.size(); ++i)
      EXPECT_EQ(got[i], c.values[i]) << names[i] << " at " << c.at.t;
  }
}

TEST(FailureRule, DegenerateInputsNeverHangOrPoison) {
  // Far outside the calendar: the date split fails, the folds give up, nothing turns into NaN.
  for (double t : {1e15, -1e15, 1e300}) {
    EphemerisState s;
    s.T = t;
    ComputeSiderealTime(s, 80);
    ComputeInstant(s, 30);
    for (double v : {s.JD0, s.SunRA, s.JupRA, s.JupAlt, s.SunAz, s.JupRise})
      EXPECT_TRUE(std::isfinite(v)) << t;
    EXPECT_TRUE(std::isfinite(s.LMST) && std::isfinite(s.CML3) && std::isfinite(s.IoPhase));
  }
  EphemerisState s;
  s.T = At(2006, 7, 5, 12);
  ComputeSiderealTime(s, 3e38f);  // the fold would never end: LMST0 keeps what it held
  EXPECT_TRUE(std::isfinite(s.LMST0));
}

}  // namespace
}  // namespace quillmere
