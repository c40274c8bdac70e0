// quillmere-cli as scripts use it: arguments in, text, JSON, reports, calendars out, exit status 2
// on bad input; and --ephemeris on every command, classic by default and unchanged, precise on
// request, anything else refused.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

#include "cli_tool.h"
#include "storm_test_support.h"

namespace {

using quillmere::testing::ScratchDir;
using quillmere::testing::Tool;
using Result = quillmere::testing::ToolResult;

// Standard error apart from standard output.
Result RunCli(const std::string& args) {
  return Tool(args, true);
}

const char* const kPlace = " --lat 30 --long 80";

// The value of a top-level JSON key, as printed.
std::string JsonValue(const std::string& json, const std::string& key) {
  const std::string tag = "\"" + key + "\": ";
  const size_t at = json.find(tag);
  if (at == std::string::npos) return "<missing>";
  const size_t start = at + tag.size();
  return json.substr(start, json.find_first_of(",\n", start) - start);
}

TEST(Cli, InstantJsonCarriesEveryFieldExactly) {
  const Result r = RunCli("instant --time 2006-07-05T12:00:00 --lat 30 --long 80 --json");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.err, "");
  for (const char* key :
       {"T",         "SavedT",     "JD0",       "Day1900",    "LMST0",   "LMST",
        "SunRA",     "SunDec",     "SunRAText", "SunDecText", "JupRA",   "JupDec",
        "JupRAText", "JupDecText", "CML3",      "IoPhase",    "JupAlt",  "JupAz",
        "SunAlt",    "SunAz",      "JupRise",   "JupSet",     "SunRise", "SunSet"})
    EXPECT_NE(JsonValue(r.out, key), "<missing>") << key;
  EXPECT_EQ(JsonValue(r.out, "T"), "38903.5");
  EXPECT_EQ(JsonValue(r.out, "JD0"), "2453921.5");
  EXPECT_EQ(JsonValue(r.out, "CML3"), "203.740005");  // %.9g of a 32-bit value
  EXPECT_EQ(JsonValue(r.out, "SunRAText"), "\"06:51\"");
  EXPECT_EQ(JsonValue(r.out, "JupDecText"), "\"-13:22\"");
}

// The colon forms mean the place of the decimal ones. A negative decimal is east, kept as typed
// as the program keeps it: the colon form's place, with its own digits rather than 284.5's.
TEST(Cli, ColonFormsAndANegativeDecimalLongitude) {
  const std::string at = "instant --json --time 2006-07-05T12:00:00 --lat ";
  const Result plain = RunCli(at + "41.5 --long 284.5"), colon = RunCli(at + "41:30 --long -75:30");
  ASSERT_EQ(plain.status, 0);
  EXPECT_EQ(plain.out, colon.out);
  const Result decimal = RunCli(at + "41.5 --long -75.5");
  ASSERT_EQ(decimal.status, 0) << decimal.err;
  EXPECT_NEAR(std::stod(JsonValue(decimal.out, "JupAlt")),
              std::stod(JsonValue(colon.out, "JupAlt")), 1e-3);
  EXPECT_NEAR(std::stod(JsonValue(decimal.out, "LMST")), std::stod(JsonValue(colon.out, "LMST")),
              1e-4);
}

TEST(Cli, MinutesJsonHasFiveTablesOf1441Rows) {
  const Result r = RunCli("minutes --day 2006-07-05 --lat 30 --long 80 --json");
  ASSERT_EQ(r.status, 0) << r.err;
  for (const char* key : {"MinuteCML", "MinuteIo", "MinuteSunAlt", "MinuteJupAlt", "MinuteJupHA"}) {
    const size_t at = r.out.find(std::string("\"") + key + "\": [");
    ASSERT_NE(at, std::string::npos) << key;
    const std::string row = r.out.substr(at, r.out.find(']', at) - at);
    EXPECT_EQ(std::count(row.begin(), row.end(), ','), 1440) << key;
  }
  EXPECT_NE(r.out.find("\"MinuteCML\": [0,134,135,"), std::string::npos);
}

TEST(Cli, ReadableTextByDefault) {
  const Result r = RunCli("minutes --day 2006-07-05 --lat 30 --long 80");
  ASSERT_EQ(r.status, 0);
  EXPECT_NE(r.out.find("\n  721   209     8     22    -71   11.2856\n"), std::string::npos);
  const Result i = RunCli("instant --time 2000-01-01T12:00:00 --lat 30 --long 80");
  EXPECT_NE(i.out.find("CML3        54.68\n"), std::string::npos) << i.out;
}

TEST(Cli, HelpForTheToolAndEachCommand) {
  for (const char* args : {"--help", "instant --help", "minutes --help"}) {
    const Result r = RunCli(args);
    EXPECT_EQ(r.status, 0) << args;
    EXPECT_NE(r.out.find("usage: quillmere-cli"), std::string::npos) << args;
  }
}

TEST(Cli, BatchRepliesAsEachCommandAlone) {
  const std::string one = "instant --time 2006-07-05T12:00:00 --lat 30 --long 80 --json";
  const std::string two = "minutes --day 1900-01-01 --lat -33.9 --long -151.2";
  const std::string input = ::testing::TempDir() + "cli_batch_" + std::to_string(getpid()) + ".txt";
  std::ofstream(input) << one << "\n\n  instant --lat 30\n" << two << "\r\n";
  const Result r = RunCli("batch < " + input);
  std::remove(input.c_str());
  EXPECT_EQ(r.status, 2);
  EXPECT_EQ(r.out, RunCli(one).out + RunCli(two).out);
  EXPECT_EQ(std::count(r.err.begin(), r.err.end(), '\n'), 1) << r.err;
  EXPECT_NE(r.err.find("--time"), std::string::npos) << r.err;
  EXPECT_EQ(RunCli("batch --json").status, 2);
}

TEST(Cli, BadArgumentsGiveOneLineAndStatusTwo) {
  const struct {
    const char* args;
    const char* named;
  } cases[] = {
      {"", "command"},
      {"orbit", "orbit"},
      {"instant --lat 30 --long 80", "--time"},
      {"instant --time 2006-07-05T12:00:00 --long 80", "--lat"},
      {"instant --time 2006-07-05T12:00:00 --lat 30", "--long"},
      {"instant --time 2006-07-05 --lat 30 --long 80", "--time"},
      {"instant --time 2006-02-30T00:00:00 --lat 30 --long 80", "--time"},
      {"instant --time 2006-07-05T24:00:00 --lat 30 --long 80", "--time"},
      {"instant --time 2006-07-05T12:00:00 --lat 91 --long 80", "--lat"},
      {"instant --time 2006-07-05T12:00:00 --lat abc --long 80", "--lat"},
      {"instant --time 2006-07-05T12:00:00 --lat 91:00 --long 80", "--lat"},
      {"instant --time 2006-07-05T12:00:00 --lat 30 --long 361:00", "--long"},
      {"instant --time 2006-07-05T12:00:00 --lat 30 --long 1e30", "--long"},
      {"instant --time 2006-07-05T12:00:00 --lat 30 --long", "--long"},
      {"instant --time 2006-07-05T12:00:00 --lat 30 --long 80 --frobnicate", "--frobnicate"},
      {"minutes --day 20060705 --lat 30 --long 80", "--day"},
      // Clock fields out of range, coordinates that are no numbers, NaN and infinities.
      {"instant --time 2006-07-05T-1:00:00 --lat 30 --long 80", "--time"},
      {"instant --time 2006-07-05T-9:-9:-9 --lat 30 --long 80", "--time"},
      {"instant --time 2006-07-05T12:60:00 --lat 30 --long 80", "--time"},
      {"instant --time 2006-07-05T12:00:60 --lat 30 --long 80", "--time"},
      {"instant --time 2006-7-5T12:00:00 --lat 30 --long 80", "--time"},
      {"instant --time +2006-07-05T12:00:0 --lat 30 --long 80", "--time"},
      {"minutes --day 2006-07--5 --lat 30 --long 80", "--day"},
      {"instant --time 2006-07-05T12:00:00 --lat abc:def --long 80", "--lat"},
      {"instant --time 2006-07-05T12:00:00 --lat 30 --long xyz:1", "--long"},
      {"instant --time 2006-07-05T12:00:00 --lat 30:nan --long 80", "--lat"},
      {"instant --time 2006-07-05T12:00:00 --lat 30: --long 80", "--lat"},
      {"instant --time 2006-07-05T12:00:00 --lat 30:-5 --long 80", "--lat"},
      {"instant --time 2006-07-05T12:00:00 --lat nan --long 80", "--lat"},
      {"instant --time 2006-07-05T12:00:00 --lat 30 --long inf", "--long"},
      {"instant --time 2006-07-05T12:00:00 --lat -Infinity --long 80", "--lat"},
      {"instant --time 2006-07-05T12:00:00 --lat 30 --long 75:30:inf", "--long"},
      {"predict --day 2006-07-05 --lat 30 --long 80 --jup-alt-min nan", "--jup-alt-min"},
  };
  for (const auto& c : cases) {
    const Result r = RunCli(c.args);
    EXPECT_EQ(r.status, 2) << c.args;
    EXPECT_EQ(r.out, "") << c.args;
    EXPECT_EQ(std::count(r.err.begin(), r.err.end(), '\n'), 1) << c.args << ": " << r.err;
    EXPECT_NE(r.err.find(c.named), std::string::npos) << c.args << ": " << r.err;
  }
}

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

// Only a report on the precise ephemeris says which it is.
TEST(ReportCommand, WritesTheFileAndNamesIt) {
  ScratchDir dir;
  const std::string report =
      "report --start 2006-07-05 --end 2006-07-07T12:00:00 --include-ha --dir " + dir.Path() +
      kPlace;
  const Result r = Tool(report);
  EXPECT_EQ(r.status, 0);
  EXPECT_EQ(r.out, dir.Path("20060705JP.TXT") + "\n");
  const std::string file = dir.Read("20060705JP.TXT");
  EXPECT_TRUE(file.starts_with("JUPITER EVENT PREDICTIONS\r\n"));
  EXPECT_TRUE(file.ends_with("End of Report\r\n\r\n"));
  EXPECT_NE(file.find("\r\nQuillmere Pro Software Version 1.0.1\r\n\r\n"), std::string::npos);
#ifdef QUILLMERE_PRECISE
  ASSERT_EQ(Tool(report + " --ephemeris precise").status, 0);
  EXPECT_NE(dir.Read("20060705JP.TXT")
                .find("\r\nQuillmere Pro Software Version 1.0.1 (precise ephemeris)\r\n\r\n"),
            std::string::npos);
#endif
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

const char* const kCommands[] = {
    "instant --time 2006-07-05T12:00:00",
    "minutes --day 2006-07-05",
    "predict --day 2006-07-05",
    "forecast --start 2006-07-05 --days 2",
};

// On every command: classic by default and unchanged, precise where it is built (other numbers),
// any other word refused.
TEST(EphemerisOption, OnEveryCommand) {
  for (const char* command : kCommands) {
    const std::string run = command + std::string(kPlace) + " --ephemeris";
    const Result plain = Tool(std::string(command) + kPlace), classic = Tool(run + " classic");
    EXPECT_EQ(plain.status, 0) << command;
    EXPECT_EQ(classic.status, 0) << command;
    EXPECT_EQ(plain.out, classic.out) << command;
    for (const char* word : {"exact", "Precise", "''"}) {
      const Result r = Tool(run + " " + word);
      EXPECT_EQ(r.status, 2) << command << " " << word;
      EXPECT_TRUE(r.out.starts_with("quillmere-cli: bad --ephemeris ")) << r.out;
    }
    EXPECT_EQ(Tool(run).status, 2) << command;
#ifdef QUILLMERE_PRECISE
    const Result precise = Tool(run + " precise");
    EXPECT_EQ(precise.status, 0) << command << precise.out;
    EXPECT_NE(precise.out, classic.out) << command;
#endif
  }
}

#ifdef QUILLMERE_PRECISE
TEST(EphemerisOption, PreciseMinutesStartAtMidnight) {
  const Result minutes = Tool("minutes --day 2006-07-05 --ephemeris precise" + std::string(kPlace));
  EXPECT_TRUE(minutes.out.starts_with("2006-07-05, rows from 00:00:00 UT\n")) << minutes.out;
}
#else
TEST(EphemerisOption, PreciseIsRefusedWhereItIsNotBuilt) {
  const Result r =
      Tool("instant --time 2006-07-05T12:00:00 --ephemeris precise" + std::string(kPlace));
  EXPECT_EQ(r.status, 2);
  EXPECT_NE(r.out.find("the precise ephemeris is not in this build"), std::string::npos);
}
#endif

}  // namespace
