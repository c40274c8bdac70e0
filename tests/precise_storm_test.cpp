// The storm search on the precise ephemeris: the same activity rule on other numbers.

#ifdef QUILLMERE_PRECISE

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "storm_test_support.h"
#include "stormmodel/forecast.h"
#include "textutil/date_time.h"

namespace quillmere {
namespace {

// The classic tables start at 00:10 although they are read as 00:00, so their event edges come
// about 9 minutes early (the precise tables start at 00:00). Over a year of one CML-only region,
// whose edges move with the central meridian alone, the precise events begin and end a median
// 9 minutes after the classic ones (CML III's 0.7 deg adds about a minute the other way).
TEST(PreciseStormSearch, EventEdgesComeAboutNineMinutesLater) {
  const ModeTable modes = testing::ModesFrom("Non-A,200,260,0,360\r\n");
  ForecastRequest r;
  r.start = *DateSerial(2025, 1, 1);
  r.days = 120;
  r.ObsLat = 30;
  r.ObsLong = 80;
  r.limits.JupAltMin = -90;
  r.limits.SunAltMax = 90;
  const std::vector<ForecastEvent> classic = Forecast(modes, r);
  r.model = EphemerisModel::Precise;
  const std::vector<ForecastEvent> precise = Forecast(modes, r);
  ASSERT_GT(classic.size(), 100u);

  std::vector<int> begins, ends;
  for (const ForecastEvent& c : classic) {
    for (const ForecastEvent& p : precise) {
      if (p.day != c.day || p.end < c.begin || p.begin > c.end) continue;
      // Runs that touch midnight are cut by the day's edge in both; they say nothing.
      if (c.begin > 0 && c.end < 1439 && p.begin > 0 && p.end < 1439) {
        begins.push_back(p.begin - c.begin);
        ends.push_back(p.end - c.end);
      }
      break;
    }
  }
  ASSERT_GT(begins.size(), 100u);
  std::sort(begins.begin(), begins.end());
  std::sort(ends.begin(), ends.end());
  EXPECT_NEAR(begins[begins.size() / 2], 9, 1);
  EXPECT_NEAR(ends[ends.size() / 2], 9, 1);
  // A CML window of 60 degrees lasts about 99 minutes on either ephemeris.
  for (const ForecastEvent& p : precise) {
    if (p.begin == 0 || p.end == 1439) continue;
    EXPECT_NEAR(p.end - p.begin, 99, 2);
  }
}

}  // namespace
}  // namespace quillmere

#endif
