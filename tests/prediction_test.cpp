#include "stormmodel/prediction.h"

#include <gtest/gtest.h>

#include "storm_test_support.h"
#include "stormmodel/day_in_words.h"
#include "stormmodel/report_options.h"
#include "textutil/date_time.h"

namespace quillmere {
namespace {

using testing::RecordingUi;
using testing::ScratchDir;

double Day(int y, int m, int d) {
  return *DateSerial(y, m, d);
}

// A window over plain state, with modes from the given file text.
struct Fixture {
  explicit Fixture(const std::string& modeFile = "All,0,360,0,360\r\nNever,0,360,200,100\r\n") {
    LoadModeFile(dir.File("UFMODES.JMF", modeFile), storm.Modes);
    program.ObsLat = 30;
    program.ObsLong = 80;
  }
  ScratchDir dir;
  EphemerisState s;
  StormValues storm;
  ProgramValues program;
  MemorySettings settings;
  RecordingUi ui;
  PredictionWindow form3{s, storm, program, settings, ui};

  // Marks of mode 1 from a pattern: runs of [first, last] minutes, all of them event minutes.
  void Runs(const std::vector<std::pair<int, int>>& runs, int16_t mark = 1) {
    storm.DayActivity = ActivityTable{};
    for (auto [a, b] : runs)
      for (int i = a; i <= b; ++i) storm.DayActivity(1, i) = mark;
  }
  // The marks of the minute tables as they stand, by the limits of the window's searches.
  void MarkWithWindowLimits() {
    MarkDay(storm.Modes, storm.Minutes, form3.Limits(), storm.DayActivity);
  }
  std::vector<std::string> Row(int r) const {
    const auto& c = form3.Grid1.cells[r];
    return {c.begin(), c.end()};
  }
};

using Cells = std::vector<std::string>;

TEST(MinutesToClock, Examples) {
  const std::pair<int, const char*> cases[] = {
      {0, "00:00"}, {65, "01:05"}, {600, "10:00"}, {1439, "23:59"}};
  for (const auto& [minutes, text] : cases) EXPECT_EQ(MinutesToClock(minutes), text);
}

TEST(GridOf, RunsBecomeBeginAndEnd) {
  const struct {
    std::vector<std::pair<int, int>> runs;
    int16_t mark;
    Cells row;
  } cases[] = {
      {{{1, 1440}}, 1, {"All", "00:00", "23:59", "", "", "", ""}},
      {{{1, 10}}, 1, {"All", "00:00", "00:10", "", "", "", ""}},
      {{{100, 1439}}, 1, {"All", "01:39", "23:59", "", "", "", ""}},
      {{{2, 2}, {5, 6}, {9, 9}, {20, 30}},
       1,
       {"All", "00:01", "00:02", "00:04", "00:06", "00:08", "00:09"}},
      {{{1440, 1440}}, 1, {"All", "NONE", "", "", "", "", ""}},
      {{{1, 1440}}, -1, {"All", "NONE", "", "", "", "", ""}},
  };
  for (const auto& c : cases) {
    Fixture f;
    f.Runs(c.runs, c.mark);
    f.form3.Grid1 = GridOf(f.storm.Modes, f.storm.DayActivity);
    ASSERT_EQ(f.form3.Grid1.Rows(), 3);
    EXPECT_EQ(f.Row(0), (Cells{"", "Begin", " End", "Begin", " End", "Begin", " End"}));
    EXPECT_EQ(f.Row(1), c.row);
    EXPECT_EQ(f.Row(2), (Cells{"Never", "NONE", "", "", "", "", ""}));
  }
}

TEST(GridOf, AnExcludedMinuteSplitsARun) {
  Fixture f;
  f.Runs({{10, 20}});
  f.storm.DayActivity(1, 15) = -1;
  f.form3.Grid1 = GridOf(f.storm.Modes, f.storm.DayActivity);
  EXPECT_EQ(f.Row(1), (Cells{"All", "00:09", "00:14", "00:15", "00:20", "", ""}));
}

// The chart said in words: runs of the grid, and of the altitude tables at both ends of the day.
TEST(DayInWords, EventsJupiterAndSun) {
  PredictionGrid grid;
  grid.cells = {{"", "Begin", " End", "Begin", " End", "Begin", " End"},
                {"Io-A", "NONE", "", "", "", "", ""},
                {"Io-B", "20:27", "21:17", "", "", "", ""},
                {"Non-A", "00:00", "01:10", "22:00", "23:59", "", ""}};
  EXPECT_EQ(EventsInWords(grid),
            "Io-B from 20:27 to 21:17 UT. Non-A from 00:00 to 01:10 and from 22:00 to 23:59 UT.");
  grid.cells.resize(2);
  EXPECT_EQ(EventsInWords(grid), "No predicted events.");
  grid.cells.resize(1);  // no modes loaded: the header row alone
  EXPECT_EQ(EventsInWords(grid), "No predicted events.");

  // Row i is the clock minute i - 1; a span ends at its first row below the horizon.
  const struct {
    std::vector<std::pair<int, int>> up;  // rows at 0 degrees or more
    const char *jupiter, *sun;
  } days[] = {
      {{{298, 1050}},
       "Jupiter above the horizon from 04:57 to 17:30 UT.",
       "Sun up from 04:57 to 17:30 UT."},
      {{{1, 60}, {1201, 1440}},
       "Jupiter above the horizon from 00:00 to 01:00 and from 20:00 to 24:00 UT.",
       "Sun up from 00:00 to 01:00 and from 20:00 to 24:00 UT."},
      {{{1440, 1440}},
       "Jupiter above the horizon from 23:59 to 24:00 UT.",
       "Sun up from 23:59 to 24:00 UT."},
      {{{1, 1440}}, "Jupiter above the horizon all day.", "Sun up all day."},
      {{}, "Jupiter below the horizon all day.", "Sun down all day."},
  };
  for (const auto& d : days) {
    MinuteTables t;
    t.MinuteJupAlt.fill(-1);
    t.MinuteSunAlt.fill(-1);
    t.MinuteJupAlt[0] = t.MinuteSunAlt[0] = 0;  // row 0 is no minute of the day
    for (auto [a, b] : d.up)
      for (int i = a; i <= b; ++i)
        t.MinuteJupAlt[i] = t.MinuteSunAlt[i] = static_cast<int16_t>(i % 90);
    EXPECT_EQ(JupiterInWords(t), d.jupiter);
    EXPECT_EQ(SunInWords(t), d.sun);
    EXPECT_EQ(ChartInWords(grid, t),
              std::string("No predicted events. ") + d.jupiter + " " + d.sun);
  }
}

TEST(WindowLimits, AltitudeLimitsAreInclusive) {
  Fixture f;
  MinuteTables& t = f.storm.Minutes;
  f.storm.JupAltMin = 0;
  f.storm.SunAltMax = 0;
  t.MinuteJupAlt.fill(5);
  t.MinuteSunAlt.fill(-5);
  t.MinuteJupAlt[10] = 0;   // on the limit: kept
  t.MinuteJupAlt[11] = -1;  // below
  t.MinuteSunAlt[12] = 0;   // on the limit: kept
  t.MinuteSunAlt[13] = 1;   // above
  f.MarkWithWindowLimits();
  const ActivityTable& a = f.storm.DayActivity;
  EXPECT_EQ(a(1, 10), 1);
  EXPECT_EQ(a(1, 11), -1);
  EXPECT_EQ(a(1, 12), 1);
  EXPECT_EQ(a(1, 13), -1);
  EXPECT_EQ(a(2, 11), 0);  // a limit never turns a 0 into -1
  EXPECT_EQ(a(1, 0), 0);
}

TEST(WindowLimits, MinimumDurationOnlyDuringAReport) {
  Fixture f;
  MinuteTables& t = f.storm.Minutes;
  f.storm.JupAltMin = 0;
  f.storm.SunAltMax = 0;
  // Runs: 101-129 (29 minutes), 201-230 (30), 1420-1440 (20 counted, 1440 not among them).
  t.MinuteJupAlt.fill(-10);
  for (int i : {101, 201, 1420})
    for (int k = i; k < i + (i == 101 ? 29 : i == 201 ? 30 : 21); ++k) t.MinuteJupAlt[k] = 10;
  t.MinuteJupAlt[300] = 10;
  f.storm.ReportMinDuration = 30;

  f.MarkWithWindowLimits();
  EXPECT_EQ(f.storm.DayActivity(1, 101), 1);  // not shortened outside a report

  f.form3.ReportRunning = -1;
  f.MarkWithWindowLimits();
  const ActivityTable& a = f.storm.DayActivity;
  EXPECT_EQ(a(1, 101), 0);
  EXPECT_EQ(a(1, 129), 0);
  EXPECT_EQ(a(1, 130), -1);  // excluded minutes stay
  EXPECT_EQ(a(1, 201), 1);
  EXPECT_EQ(a(1, 230), 1);
  EXPECT_EQ(a(1, 300), 0);
  EXPECT_EQ(a(1, 1420), 0);
  EXPECT_EQ(a(1, 1439), 0);
  EXPECT_EQ(a(1, 1440), 1);  // the run stops counting at 1440, which it never clears
}

TEST(DoPredictions, SavesLimitsAndRestoresT) {
  Fixture f;
  f.s.T = Day(2006, 7, 5) + 0.25;
  f.form3.txtJupAltMin = "100";
  f.form3.txtSunAltMax = " 15abc";
  f.form3.txtYear = " 2006";
  f.form3.txtMonth = "7";
  f.form3.txtDay = "5";
  f.form3.CmdPredict_Click();
  EXPECT_EQ(f.s.T, Day(2006, 7, 5) + 0.25);
  EXPECT_EQ(f.settings.writes, (std::vector<std::string>{"Settings/ReportJupAltMin= 100",
                                                         "settings/ReportSunAltMax= 15"}));
  EXPECT_EQ(f.Row(1)[1], "NONE");  // Jupiter is never above 100 degrees
  EXPECT_EQ(f.form3.txtJupAltMin, "90");
  EXPECT_EQ(f.form3.txtSunAltMax, "15");
}

TEST(DoPredictions, RefusesDaysBefore1900) {
  Fixture f;
  f.form3.PredictTime = Day(1899, 12, 31);
  f.form3.DoPredictions();
  EXPECT_EQ(f.ui.messages, (std::vector<std::string>{"Dates Prior to 1900 are not permitted."}));
  EXPECT_EQ(f.form3.Grid1.Rows(), 7);
  EXPECT_TRUE(f.settings.writes.empty());
}

TEST(ChkValidDate, RollsOverAndRefuses) {
  const struct {
    const char *y, *m, *d;
    double date;  // 0: refused
    const char* message;
  } cases[] = {
      {" 2006", " 7", " 5", Day(2006, 7, 5), ""},
      {"2006", "13", "1", Day(2007, 1, 1), ""},
      {"2006", "1", "32", Day(2006, 2, 1), ""},
      {"2006", "3", "0", Day(2006, 2, 28), ""},
      {"2006.4", "2.5", "3.5", Day(2006, 2, 4), ""},  // rounded half to even
      {"1899", "13", "1", 0, "Dates Prior to 1900 are not permitted."},
      {"abc", "1", "1", 0, "Dates Prior to 1900 are not permitted."},
      {"2006", "40000", "1", 0, "Date Out of Range."},
      {"9999", "12", "32", 0, "Date Out of Range."},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.y) + "/" + c.m + "/" + c.d);
    Fixture f;
    f.form3.PredictTime = 7;
    f.form3.txtYear = c.y;
    f.form3.txtMonth = c.m;
    f.form3.txtDay = c.d;
    EXPECT_EQ(f.form3.ChkValidDate(), c.date != 0);
    EXPECT_EQ(f.form3.PredictTime, c.date != 0 ? c.date : 7);
    EXPECT_EQ(f.ui.messages.empty() ? "" : f.ui.messages[0], c.message);
  }
}

TEST(CmdNextDay, StepsAndWritesTheBoxes) {
  Fixture f;
  f.form3.txtYear = "2006";
  f.form3.txtMonth = "12";
  f.form3.txtDay = "31";
  f.form3.CmdNextDay_Click();
  EXPECT_EQ(f.form3.PredictTime, Day(2007, 1, 1));
  EXPECT_EQ(f.form3.txtYear + f.form3.txtMonth + f.form3.txtDay, " 2007 1 1");
  f.form3.CmdPrevious_Click();
  EXPECT_EQ(f.form3.PredictTime, Day(2006, 12, 31));
}

TEST(FormatDate, OrdersAndTheirNames) {
  const double d = Day(2006, 7, 5) + 0.75;
  const struct {
    int16_t DFormat;
    const char *text, *order;
  } cases[] = {{0, "2006/07/05", "YYYY  MM  DD"},
               {1, "07/05/2006", "MM  DD YYYY"},
               {2, "05/07/2006", "DD  MM  YYYY"},
               {3, "", "unchanged"}};
  for (const auto& c : cases) {
    std::string order = "unchanged";
    EXPECT_EQ(FormatDate(d, c.DFormat, order), c.text);
    EXPECT_EQ(order, c.order);
  }
  EXPECT_EQ(ReportFileName(d), "20060705JP.TXT");
}

// Report ---------------------------------------------------------------------------------------

const char* const kHeader =
    "JUPITER EVENT PREDICTIONS\r\n"
    "\r\n"
    "Report Period  (GMT) 07/05/2006  to  07/06/2006    ( MM/DD YYYY )\r\n"
    "Reference Coordinates:  Longitude 10:00:00.0 E     Latitude 30:00:00.0\r\n"
    "Exclude times when Jupiter is below -90 deg.\r\n"
    "Exclude times when Sun is above 90 deg.\r\n"
    "Include only events that last at least  2.5 minutes.\r\n"
    "Quillmere Pro Software Version 1.0.1\r\n"
    "\r\n";

std::string Block(int day, const std::string& rows) {
  return "< Year 2006   Month 7   Day " + std::to_string(day) + " >\r\n\r\n" + rows +
         "_______________________________\r\n\r\n";
}

const char* const kHeaderRow =
    "           Begin      End      Begin      End      Begin      End     \r\n";
const char* const kAllRow =
    " All       00:00     23:59                                            \r\n";
const char* const kNeverRow =
    " Never     NONE     \r\n                                                  \r\n";

struct ReportFixture : Fixture {
  explicit ReportFixture(const std::string& modes = "All,0,360,0,360\r\nNever,0,360,200,100\r\n")
      : Fixture(modes) {
    settings.SaveSetting(program.AppTitle, "Settings", "ReportJupAltMin", "-90");
    settings.SaveSetting(program.AppTitle, "Settings", "ReportSunAltMax", "90");
    form3.Form_Load(false, Day(2006, 7, 5));
    storm.ReportStart = Day(2006, 7, 5);
    storm.ReportEnd = Day(2006, 7, 5);
  }
  std::string Run() {
    form3.DoReport(dir.Path());
    return dir.Read("20060705JP.TXT");
  }
};

TEST(Report, HeaderBlocksAndTrailer) {
  ReportFixture f;
  f.program.DFormat = 1;
  f.program.DisplayWest = "E";
  f.program.ObsLong = 350;
  f.storm.ReportMinDuration = 2.5f;
  f.storm.ReportEnd = Day(2006, 7, 6) + 0.5;  // a fraction: the 6th is the last day
  EXPECT_EQ(f.Run(), kHeader + Block(5, std::string(kHeaderRow) + kAllRow + kNeverRow) +
                         Block(6, std::string(kHeaderRow) + kAllRow + kNeverRow) +
                         "End of Report\r\n\r\n");
  EXPECT_EQ(f.ui.spoken, (std::vector<std::string>{"Please Wait While report is Generated.",
                                                   "Report Generation Finished. File ",
                                                   "spell:20060705JP.TXT"}));
  EXPECT_EQ(f.form3.PredictTime, Day(2006, 7, 7));
  EXPECT_EQ(f.form3.ReportRunning, 0);
  EXPECT_FALSE(f.form3.CmdCancelReportVisible);
  EXPECT_EQ(f.ui.yields, 2 * 3);  // once per grid row
}

TEST(Report, RowFilters) {
  const std::string ioRow =
      " Io-All    00:00     23:59                                            \r\n";
  const struct {
    int16_t ioOnly, noNone;
    std::string rows;
  } cases[] = {
      {0, 0, std::string(kHeaderRow) + ioRow + kAllRow + kNeverRow},
      {0, -1, std::string(kHeaderRow) + ioRow + kAllRow},
      {-1, 0, "           Begin      End     \r\n" + ioRow},
  };
  for (const auto& c : cases) {
    ReportFixture f("Io-All,0,360,0,360\nAll,0,360,0,360\nNever,0,360,200,100\n");
    f.storm.ReportIoOnly = c.ioOnly;
    f.storm.ReportNoNONE = c.noNone;
    const std::string file = f.Run();
    const size_t at = file.find("< Year");
    ASSERT_NE(at, std::string::npos);
    EXPECT_EQ(file.substr(at), Block(5, c.rows) + "End of Report\r\n\r\n");
  }
}

TEST(Report, DaysWithoutATimeLeaveNoTrace) {
  ReportFixture f("Never,0,360,200,100\r\nAll,0,360,0,360\r\n");
  f.storm.ReportIoOnly = -1;  // drops the one mode with times
  const std::string file = f.Run();
  EXPECT_EQ(file.find("< Year"), std::string::npos);
  EXPECT_TRUE(file.ends_with("\r\n\r\nEnd of Report\r\n\r\n"));
}

TEST(Report, HourAngleLines) {
  ReportFixture f("All,0,360,0,360\r\nNever,0,360,200,100\r\n");
  f.storm.ReportIncludeHA = -1;
  const std::string line = " Hr Ang    -00.7     -00.7     \r\n\r\n";  // at 00:00 and 23:59
  EXPECT_NE(f.Run().find(std::string(kAllRow) + line + kNeverRow + "____"), std::string::npos);
}

TEST(Report, CancelStopsAtTheNextDay) {
  ReportFixture f;
  f.storm.ReportEnd = Day(2006, 7, 9);
  f.ui.onYield = [&] { f.form3.CancelReport = true; };
  const std::string file = f.Run();
  EXPECT_EQ(f.ui.messages, (std::vector<std::string>{"Report 20060705JP.TXT Canceled by User."}));
  EXPECT_TRUE(file.ends_with(Block(5, std::string(kHeaderRow) + kAllRow + kNeverRow)));
  EXPECT_EQ(f.ui.spoken.back(), "Report Generation Canceled.");

  // Pressed during the last day: that day is finished and the trailer written.
  ReportFixture g;
  g.ui.onYield = [&] { g.form3.CancelReport = true; };
  EXPECT_TRUE(g.Run().ends_with("End of Report\r\n\r\n"));
  EXPECT_TRUE(g.ui.messages.empty());
  EXPECT_EQ(g.ui.spoken.back(), "Report Generation Canceled.");
}

TEST(Report, WindowRoadHonoursTheDialog) {
  ReportFixture f;
  f.ui.onReportOptions = [&] { f.form3.CancelReport = true; };
  f.form3.CmdReport_Click(f.dir.Path());
  EXPECT_FALSE(std::filesystem::exists(f.dir.Path("20060705JP.TXT")));

  f.storm.ReportHeader = 0;
  f.ui.onReportOptions = [&] { f.form3.CancelReport = false; };
  f.form3.CmdReport_Click(f.dir.Path());
  EXPECT_TRUE(f.dir.Read("20060705JP.TXT").starts_with("< Year 2006"));
  EXPECT_TRUE(f.ui.spoken.empty());
}

TEST(Report, SaveFailureIsSpoken) {
  ReportFixture f;
  f.form3.DoReport(f.dir.Path("missing"));
  ASSERT_EQ(f.ui.spoken.size(), 4u);
  EXPECT_EQ(f.ui.spoken[1],
            "There was an error trying to save 20060705JP.TXT  No such file or directory");
  EXPECT_EQ(f.form3.ReportRunning, 0);
  EXPECT_TRUE(f.form3.CmdCancelReportVisible);
}

TEST(Report, APeriodPastTheLastDateIsRefusedBeforeAnythingIsWritten) {
  const double last = Day(9999, 12, 31);
  const struct {
    double start, end;
  } periods[] = {
      {Day(9999, 12, 25), Day(9999, 12, 25) + 12},
      {Day(2006, 7, 5), Day(2006, 7, 5) + 1e308},
      {Day(2006, 7, 5), std::numeric_limits<double>::infinity()},
      {Day(2006, 7, 5), std::numeric_limits<double>::quiet_NaN()},
  };
  for (const auto& p : periods) {
    ReportFixture f;
    f.storm.ReportStart = p.start;
    f.storm.ReportEnd = p.end;
    f.form3.DoReport(f.dir.Path());
    EXPECT_EQ(f.ui.messages, std::vector<std::string>{"Date Out of Range."}) << p.end;
    EXPECT_EQ(f.ui.spoken, std::vector<std::string>{"Date Out of Range."}) << p.end;
    for (const auto& entry : std::filesystem::directory_iterator(f.dir.Path()))
      EXPECT_FALSE(entry.path().string().ends_with("JP.TXT")) << entry.path();
    EXPECT_EQ(f.form3.ReportRunning, 0);
    EXPECT_EQ(f.form3.FFF, "");
  }
  // The last day itself, with a fraction beyond it, is still written.
  ReportFixture f;
  f.storm.ReportStart = last;
  f.storm.ReportEnd = last + 0.5;
  f.form3.DoReport(f.dir.Path());
  EXPECT_EQ(f.ui.messages, std::vector<std::string>{});
  EXPECT_TRUE(f.dir.Read("99991231JP.TXT").ends_with("End of Report\r\n\r\n"));
}

// Report options -------------------------------------------------------------------------------

struct OptionsFixture : Fixture {
  ReportOptions dialog{form3, storm, program, settings, ui};
  void Dates(const char* sy, const char* sm, const char* sd, const char* ey, const char* em,
             const char* ed) {
    dialog.txtSYear = sy, dialog.txtSMonth = sm, dialog.txtSDay = sd;
    dialog.txtEYear = ey, dialog.txtEMonth = em, dialog.txtEDay = ed;
  }
};

TEST(ReportOptions, LoadProposesAPeriodAndReadsTheSettings) {
  OptionsFixture f;
  f.settings.SaveSetting(f.program.AppTitle, "settings", "ReportHeader", " 0");
  f.settings.SaveSetting(f.program.AppTitle, "Settings", "ReportNoNONE", " 1");
  f.settings.SaveSetting(f.program.AppTitle, "Settings", "ReportMinDuration", "2.5x");
  f.form3.PredictTime = Day(2006, 7, 15) + 0.5;
  f.dialog.Form_Load(0);
  const ReportOptions& d = f.dialog;
  EXPECT_EQ(d.txtSYear + d.txtSMonth + d.txtSDay, "20060715");
  EXPECT_EQ(d.txtEYear + d.txtEMonth + d.txtEDay, "20060801");
  EXPECT_EQ(d.chkHeader, 0);
  EXPECT_EQ(f.storm.ReportHeader, 0);
  EXPECT_EQ(f.storm.ReportNoNONE, -1);
  EXPECT_EQ(d.txtMin, "2.5x");
  EXPECT_EQ(f.storm.ReportMinDuration, 2.5f);
  EXPECT_TRUE(f.form3.CancelReport);

  f.form3.PredictTime = Day(2006, 12, 20);
  f.dialog.Form_Load(0);
  EXPECT_EQ(d.txtEYear + d.txtEMonth + d.txtEDay, "20070101");
}

TEST(ReportOptions, ChecksInTheirOrder) {
  const struct {
    std::array<const char*, 6> boxes;  // start y m d, end y m d
    const char* message;
  } cases[] = {
      {{"1899", "0", "0", "3001", "0", "0"}, "Invalid Start Year"},
      {{"1900", "0", "0", "3001", "0", "0"}, "Invalid End Year"},
      {{"1900", "0", "0", "3000", "13", "0"}, "Invalid End Month"},
      {{"1900", "0", "0", "3000", "12", "0"}, "Invalid Start Month"},
      {{"1900", "1", "0", "3000", "12", "32"}, "Invalid End Day"},
      {{"1900", "1", "0", "3000", "12", "31"}, "Invalid Start Day"},
      {{"2006", "2", "31", "2006", "3", "1"},
       "You entered a which occurs ending date before the start date."},
      {{"abc", "1", "1", "2006", "1", "1"}, "Invalid Start Year"},
  };
  for (const auto& c : cases) {
    OptionsFixture f;
    f.form3.PredictTime = Day(2006, 7, 15);
    f.dialog.Form_Load(0);
    const auto& b = c.boxes;
    f.Dates(b[0], b[1], b[2], b[3], b[4], b[5]);
    EXPECT_FALSE(f.dialog.cmdOK_Click());
    EXPECT_EQ(f.ui.messages, (std::vector<std::string>{c.message}));
    EXPECT_TRUE(f.settings.writes.empty());
    EXPECT_TRUE(f.form3.CancelReport);
  }
}

TEST(ReportOptions, OkStoresTheOptions) {
  OptionsFixture f;
  f.form3.PredictTime = Day(2006, 7, 15);
  f.dialog.Form_Load(0);
  f.Dates("2006", "4", "31", "2006", "5", "1");  // 31 April is 1 May
  f.dialog.txtMin = "-5";
  f.dialog.chkHA = 1;
  f.dialog.chkIoOnly = 1;
  f.dialog.chkHeader = 0;
  EXPECT_TRUE(f.dialog.cmdOK_Click());
  EXPECT_EQ(f.storm.ReportStart, Day(2006, 5, 1));
  EXPECT_EQ(f.storm.ReportEnd, Day(2006, 5, 1));
  EXPECT_FALSE(f.form3.CancelReport);
  EXPECT_EQ(f.dialog.txtMin, "0");
  EXPECT_EQ(f.storm.ReportMinDuration, 0);
  EXPECT_EQ(f.storm.ReportIncludeHA, -1);
  EXPECT_EQ(f.storm.ReportIoOnly, -1);
  EXPECT_EQ(f.storm.ReportHeader, 0);
  EXPECT_EQ(f.settings.writes,
            (std::vector<std::string>{"Settings/ReportMinDuration=0", "Settings/ReportHeader= 0",
                                      "Settings/ReportIncludeHA= 1", "Settings/ReportIoOnly= 1",
                                      "Settings/ReportNoNONE= 0"}));
}

}  // namespace
}  // namespace quillmere
