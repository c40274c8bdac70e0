#include "stormmodel/forecast.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <sstream>
#include <tuple>

#include "storm_test_support.h"
#include "stormmodel/prediction.h"
#include "stormmodel/report.h"
#include "textutil/date_time.h"

namespace quillmere {
namespace {

using testing::RecordingUi;
using testing::ScratchDir;

using Event = std::tuple<std::string, std::string, std::string, std::string>;  // day, mode, b, e

// The events a report file lists: each day's rows of Begin and End times.
std::vector<Event> ReportEvents(const std::string& report) {
  std::vector<Event> events;
  std::istringstream in(report);
  std::string line, day;
  while (std::getline(in, line)) {
    int y, m, d;
    if (std::sscanf(line.c_str(), "< Year %d   Month %d   Day %d >", &y, &m, &d) == 3) {
      day = FormatDateTime(*DateSerial(y, m, d), "yyyy-mm-dd");
      continue;
    }
    std::istringstream cells(line);
    std::string name, begin, end;
    if (!(cells >> name) || name == "Begin" || day.empty()) continue;
    if (name.starts_with("_")) {
      day.clear();
      continue;
    }
    while (cells >> begin >> end) events.emplace_back(day, name, begin, end);
  }
  return events;
}

// The same from the forecast, keeping the three events of a mode's day that the grid has room for.
std::vector<Event> ForecastEvents(const std::vector<ForecastEvent>& forecast) {
  std::vector<Event> events;
  std::map<std::pair<double, int>, int> shown;
  for (const ForecastEvent& e : forecast)
    if (++shown[{e.day, e.mode}] <= 3)
      events.emplace_back(FormatDateTime(e.day, "yyyy-mm-dd"), e.name, MinutesToClock(e.begin),
                          MinutesToClock(e.end));
  return events;
}

TEST(Forecast, SameEventsAsTheReportOverRandomPeriods) {
  std::mt19937 rng(20061124);
  auto uniform = [&](int a, int b) { return std::uniform_int_distribution<int>(a, b)(rng); };
  for (int trial = 0; trial < 12; ++trial) {
    ScratchDir dir;
    std::string modeFile;
    const int count = uniform(1, 6);
    for (int m = 1; m <= count; ++m) {
      const int cl = uniform(0, 359), il = uniform(0, 300);
      modeFile += (m % 2 ? "Io-" : "Mode") + std::to_string(m) + "," + std::to_string(cl) + "," +
                  std::to_string((cl + uniform(10, 200)) % 360) + "," + std::to_string(il) + "," +
                  std::to_string(il + uniform(20, 150)) + "\r\n";
    }
    ForecastRequest r;
    r.start = *DateSerial(uniform(1900, 2099), uniform(1, 12), uniform(1, 28));
    r.days = uniform(1, 40);
    r.ObsLat = static_cast<float>(uniform(-600, 600) / 10.0);
    r.ObsLong = static_cast<float>(uniform(0, 3599) / 10.0);
    r.limits = {static_cast<float>(uniform(-10, 20)), static_cast<float>(uniform(-18, 5)),
                static_cast<float>(uniform(0, 40))};

    EphemerisState s;
    StormValues storm;
    ProgramValues program;
    MemorySettings settings;
    RecordingUi ui;
    PredictionWindow form3{s, storm, program, settings, ui};
    LoadModeFile(dir.File("m.JMF", modeFile), storm.Modes);
    program.ObsLat = r.ObsLat;
    program.ObsLong = r.ObsLong;
    form3.txtJupAltMin = PlainNumber(r.limits.JupAltMin);
    form3.txtSunAltMax = PlainNumber(r.limits.SunAltMax);
    storm.ReportMinDuration = r.limits.MinDuration;
    storm.ReportStart = r.start;
    storm.ReportEnd = r.start + r.days - 1;
    storm.ReportHeader = -1;
    form3.DoReport(dir.Path());

    const auto expected = ReportEvents(dir.Read(ReportFileName(r.start)));
    EXPECT_EQ(ForecastEvents(Forecast(storm.Modes, r)), expected) << "trial " << trial;

    storm.ReportIncludeHA = static_cast<int16_t>(-uniform(0, 1));
    storm.ReportIoOnly = static_cast<int16_t>(-uniform(0, 1));
    storm.ReportNoNONE = static_cast<int16_t>(-uniform(0, 1));
    program.DFormat = static_cast<int16_t>(uniform(0, 2));
    program.DisplayWest = uniform(0, 1) ? "W" : "E";
    form3.DoReport(dir.Path());
    const std::string report = dir.Read(ReportFileName(r.start));

    // The report without a window, as the companion tool writes it, byte for byte.
    ReportRequest alone;
    alone.start = r.start;
    alone.end = storm.ReportEnd;
    alone.ObsLat = r.ObsLat;
    alone.ObsLong = r.ObsLong;
    alone.DisplayWest = program.DisplayWest;
    alone.DFormat = program.DFormat;
    alone.JupAltMin = r.limits.JupAltMin;
    alone.SunAltMax = r.limits.SunAltMax;
    alone.MinDuration = r.limits.MinDuration;
    alone.choices = {storm.ReportIncludeHA, storm.ReportIoOnly, storm.ReportNoNONE};
    alone.VersionText = program.VersionText;
    ScratchDir elsewhere;
    EXPECT_EQ(WriteReport(storm.Modes, alone, elsewhere.Path()).error, "");
    EXPECT_EQ(elsewhere.Read(ReportFileName(r.start)), report) << "trial " << trial;
  }
}

TEST(Forecast, EveryEventOfADayWithAltitudesFromItsEdges) {
  const ModeTable modes = testing::ModesFrom("All,0,360,0,360\r\n");
  ForecastRequest r;
  r.start = *DateSerial(2006, 7, 5);
  r.ObsLat = 30;
  r.ObsLong = 80;
  r.limits = {0, 90, 0};  // every minute with Jupiter up
  const auto events = Forecast(modes, r);
  ASSERT_FALSE(events.empty());
  const DayPrediction day = PredictDay(r.start, r.ObsLat, r.ObsLong, modes, r.limits);
  for (const ForecastEvent& e : events) {
    EXPECT_TRUE(e.ioRelated == false);
    EXPECT_EQ(e.Minutes(), e.end - e.begin);
    EXPECT_GE(e.JupAltBegin, 0);  // the first minute is in, the one after is out unless at 23:59
    if (e.end < 1439) {
      EXPECT_LT(e.JupAltEnd, 0);
    }
    EXPECT_EQ(e.JupAltBegin, day.Minutes.MinuteJupAlt[e.begin + 1]);
  }
}

TEST(ModeEvents, AllRunsInOrderWhereTheGridShowsThree) {
  ActivityTable marks;
  for (int start : {1, 100, 300, 500, 700}) marks(1, start) = marks(1, start + 1) = 1;
  marks(1, 1439) = marks(1, 1440) = 1;  // the last row is never read
  const auto events = ModeEvents(marks, 1);
  ASSERT_EQ(events.size(), 6u);
  EXPECT_EQ(events[0].begin, 0);
  EXPECT_EQ(events[0].end, 2);
  EXPECT_EQ(events[4].begin, 699);
  EXPECT_EQ(events[5].begin, 1438);
  EXPECT_EQ(events[5].end, 1439);
}

TEST(SearchDay, GivesTBackAndPredictDayMovesNothing) {
  const ModeTable modes = testing::ModesFrom("All,0,360,0,360\r\n");
  EphemerisState s;
  s.T = 40000.25;
  const DayPrediction a = SearchDay(s, 38903, 30, 80, modes, {});
  EXPECT_EQ(s.T, 40000.25);
  const DayPrediction b = PredictDay(38903, 30, 80, modes, {});
  EXPECT_EQ(a.DayActivity.marks, b.DayActivity.marks);
  EXPECT_EQ(a.Minutes.MinuteCML, b.Minutes.MinuteCML);
  ASSERT_EQ(a.events.size(), 1u);
  EXPECT_EQ(a.events[0].begin, 0);
  EXPECT_EQ(a.events[0].end, 1439);
}

}  // namespace
}  // namespace quillmere
