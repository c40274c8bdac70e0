// --ephemeris on every quillmere-cli command: classic by default and unchanged, precise on
// request, anything else refused.

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "cli_tool.h"
#include "storm_test_support.h"

namespace {

using quillmere::testing::ScratchDir;

using Result = quillmere::testing::ToolResult;
using quillmere::testing::Tool;

const char* const kPlace = " --lat 30 --long 80";

const char* const kCommands[] = {
    "instant --time 2006-07-05T12:00:00",
    "minutes --day 2006-07-05",
    "predict --day 2006-07-05",
    "forecast --start 2006-07-05 --days 2",
};

TEST(EphemerisOption, ClassicIsTheDefaultAndChangesNothing) {
  for (const char* command : kCommands) {
    const Result plain = Tool(std::string(command) + kPlace);
    const Result classic = Tool(std::string(command) + kPlace + " --ephemeris classic");
    EXPECT_EQ(plain.status, 0) << command;
    EXPECT_EQ(classic.status, 0) << command;
    EXPECT_EQ(plain.out, classic.out) << command;
  }
}

TEST(EphemerisOption, BadWordsAreRefused) {
  for (const char* command : kCommands) {
    for (const char* word : {"exact", "Precise", "''"}) {
      const Result r = Tool(std::string(command) + kPlace + " --ephemeris " + word);
      EXPECT_EQ(r.status, 2) << command << " " << word;
      EXPECT_TRUE(r.out.starts_with("quillmere-cli: bad --ephemeris ")) << r.out;
    }
    const Result missing = Tool(std::string(command) + kPlace + " --ephemeris");
    EXPECT_EQ(missing.status, 2) << command;
  }
}

#ifdef QUILLMERE_PRECISE
TEST(EphemerisOption, PreciseAnswersEveryCommand) {
  for (const char* command : kCommands) {
    const Result classic = Tool(std::string(command) + kPlace);
    const Result precise = Tool(std::string(command) + kPlace + " --ephemeris precise");
    EXPECT_EQ(precise.status, 0) << command << precise.out;
    EXPECT_NE(precise.out, classic.out) << command;
  }
  const Result minutes = Tool("minutes --day 2006-07-05 --ephemeris precise" + std::string(kPlace));
  EXPECT_TRUE(minutes.out.starts_with("2006-07-05, rows from 00:00:00 UT\n")) << minutes.out;
}

TEST(EphemerisOption, OnlyAPreciseReportSaysSo) {
  ScratchDir dir;
  const std::string report = "report --start 2006-07-05 --end 2006-07-06 --dir " + dir.Path();
  ASSERT_EQ(Tool(report + kPlace).status, 0);
  const std::string classic = dir.Read("20060705JP.TXT");
  EXPECT_NE(classic.find("\r\nQuillmere Pro Software Version 1.0.1\r\n\r\n"), std::string::npos);
  ASSERT_EQ(Tool(report + kPlace + " --ephemeris precise").status, 0);
  const std::string precise = dir.Read("20060705JP.TXT");
  EXPECT_NE(precise.find("\r\nQuillmere Pro Software Version 1.0.1 (precise ephemeris)\r\n\r\n"),
            std::string::npos);
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
