#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include "cli_tool.h"
#include "storm_test_support.h"

namespace {

using quillmere::testing::ScratchDir;

using Result = quillmere::testing::ToolResult;
using quillmere::testing::Tool;

const char* const kPlace = " --lat 30 --long 80";

TEST(PredictCommand, GridAndJson) {
  ScratchDir dir;
  const std::string modes = dir.File("m.JMF", "All,0,360,0,360\r\nNever,0,360,200,100\r\n");
  const Result text =
      Tool("predict --day 2006-07-05 --jup-alt-min -90 --sun-alt-max 90 --modes " + modes + kPlace);
  EXPECT_EQ(text.status, 0);
  EXPECT_EQ(text.out,
            "           Begin   End   Begin   End   Begin   End\n"
            "All        00:00  23:59\n"
            "Never      NONE\n");

  const Result json = Tool("predict --json --day 2006-07-05 --modes " + modes + kPlace);
  EXPECT_EQ(json.status, 0);
  EXPECT_NE(json.out.find("\"DayActivity\": [\n    [0,"), std::string::npos);
  EXPECT_NE(json.out.find("[\"Never\",\"NONE\",\"\",\"\",\"\",\"\",\"\"]"), std::string::npos);
}

TEST(PredictCommand, DefaultModeFileLiesBesideTheTool) {
  const Result r = Tool("predict --day 2006-07-05" + std::string(kPlace));
  EXPECT_EQ(r.status, 0);
  EXPECT_NE(r.out.find("Io-A"), std::string::npos);
}

TEST(ReportCommand, WritesTheFileAndNamesIt) {
  ScratchDir dir;
  const Result r = Tool("report --start 2006-07-05 --end 2006-07-07T12:00:00 --include-ha --dir " +
                        dir.Path() + kPlace);
  EXPECT_EQ(r.status, 0);
  EXPECT_EQ(r.out, dir.Path("20060705JP.TXT") + "\n");
  const std::string file = dir.Read("20060705JP.TXT");
  EXPECT_TRUE(file.starts_with("JUPITER EVENT PREDICTIONS\r\n"));
  EXPECT_TRUE(file.ends_with("End of Report\r\n\r\n"));
}

TEST(StormCommands, Failures) {
  ScratchDir dir;
  const struct {
    std::string arguments;
    int status;
    const char* says;
  } cases[] = {
      {"predict --day 2006-07-05 --modes " + dir.Path("none.JMF"), 1, "File Not Found"},
      {"predict --day 2006-07-05 --modes " + dir.File("e.JMF", ""), 1, "Input Past End of File"},
      {"predict --day 1899-12-31", 2, "before 1900"},
      {"predict --day 2006-07-05 --jup-alt-min ten", 2, "--jup-alt-min"},
      {"report --start 2006-07-05 --end 2006-07-04", 2, "before --start"},
      {"report --start 2006-07-05 --end 2006-07-05 --date-order 3", 2, "--date-order"},
      {"report --start 2006-07-05 --end 2006-07-05 --dir " + dir.Path("none"), 1,
       "There was an error trying to save 20060705JP.TXT"},
      {"forecast --start 2006-07-05 --days 36526", 2, "at most 36525 days (100 years)"},
      {"forecast --start 2006-07-05 --days 0", 2, "--days '0'"},
      {"forecast --start 2006-07-05 --days 2x", 2, "--days '2x'"},
      {"forecast --start 9999-12-01 --days 40", 2, "pass the year 9999"},
      {"forecast --start 2006-07-05 --days 1 --format xml", 2, "--format 'xml'"},
  };
  for (const auto& c : cases) {
    const Result r = Tool(c.arguments + kPlace);
    EXPECT_EQ(r.status, c.status) << c.arguments;
    EXPECT_NE(r.out.find(c.says), std::string::npos) << r.out;
  }
}

TEST(ForecastCommand, FormatsAgreeOnTheEvents) {
  const std::string period = "forecast --start 2006-07-05 --days 3" + std::string(kPlace);
  const Result text = Tool(period);
  EXPECT_EQ(text.status, 0);
  EXPECT_NE(text.out.find("2006-07-05  Non-A        01:49  03:30      101  no     43 to 31    "
                          "-20 to -33\n"),
            std::string::npos)
      << text.out;
  const Result csv = Tool(period + " --format csv");
  EXPECT_NE(csv.out.find("\r\n2006-07-06,Io-D,2006-07-06T02:06:00Z,2006-07-06T02:33:00Z,27,true,"),
            std::string::npos)
      << csv.out;
  const Result json = Tool(period + " --json");
  EXPECT_NE(json.out.find("\"mode\": \"Io-D\", \"io_related\": true, \"begin\": "
                          "\"2006-07-06T02:06:00Z\""),
            std::string::npos)
      << json.out;
}

// Content lines end in CR LF and fold at 75 octets; a long name folds without splitting a
// character, and the calendar reads back (through python3-icalendar where it is installed).
TEST(ForecastCommand, IcsIsACalendar) {
  ScratchDir dir;
  const std::string name(40, 'x');
  const std::string modes = dir.File("m.JMF", name + "\xe9\xe9\xe9 Io,0,360,0,360\r\n");
  const Result ics = Tool(
      "forecast --format ics --start 2006-07-05 --days 2 --jup-alt-min -90 "
      "--sun-alt-max 90 --modes " +
      modes + kPlace);
  ASSERT_EQ(ics.status, 0);
  EXPECT_TRUE(ics.out.starts_with("BEGIN:VCALENDAR\r\nVERSION:2.0\r\n"));
  EXPECT_TRUE(ics.out.ends_with("END:VCALENDAR\r\n"));
  std::string unfolded;
  size_t events = 0;
  for (size_t at = 0; at < ics.out.size();) {
    const size_t end = ics.out.find("\r\n", at);
    ASSERT_NE(end, std::string::npos);
    const std::string line = ics.out.substr(at, end - at);
    EXPECT_LE(line.size(), 75u) << line;
    EXPECT_EQ(line.find('\n'), std::string::npos);
    ASSERT_FALSE(line.empty());
    if (line[0] == ' ') {
      EXPECT_NE(static_cast<unsigned char>(line[1]) & 0xC0, 0x80) << "split character";
      unfolded += line.substr(1);
    } else {
      unfolded += "\n" + line;
    }
    events += line == "BEGIN:VEVENT";
    at = end + 2;
  }
  EXPECT_EQ(events, 2u);
  EXPECT_NE(unfolded.find("\nSUMMARY:" + name + "\xc3\xa9\xc3\xa9\xc3\xa9 Io storm possible\n"),
            std::string::npos);
  EXPECT_NE(unfolded.find("\nDTSTART:20060705T000000Z\nDTEND:20060705T235900Z\n"),
            std::string::npos);
  EXPECT_NE(unfolded.find("\nTRIGGER:-PT10M\n"), std::string::npos);
  EXPECT_NE(unfolded.find("Io-related region."), std::string::npos);

  if (std::system("/usr/bin/python3 -c 'import icalendar' 2>/dev/null") != 0)
    GTEST_SKIP() << "python3-icalendar is not installed: the calendar was not read back";
  const std::string file = dir.File("f.ics", ics.out);
  const std::string check =
      "/usr/bin/python3 -c 'import icalendar,sys; "
      "c=icalendar.Calendar.from_ical(open(sys.argv[1],\"rb\")."
      "read()); e=c.walk(\"VEVENT\"); assert len(e)==2, e; "
      "assert str(e[1][\"SUMMARY\"]).endswith(\"Io storm possible\"); "
      "assert e[0][\"UID\"] != e[1][\"UID\"]' " +
      file;
  EXPECT_EQ(std::system(check.c_str()), 0);
}

}  // namespace
