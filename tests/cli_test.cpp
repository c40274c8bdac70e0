// quillmere-cli as scripts use it: arguments in, text or JSON out, exit status 2 on bad input.

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

namespace {

struct Result {
  int status = -1;
  std::string out;
  std::string err;
};

Result RunCli(const std::string& args) {
  // One file per test process: ctest runs the tests side by side.
  const std::string errFile = ::testing::TempDir() + "cli_err_" + std::to_string(getpid()) + ".txt";
  const std::string command = std::string(QUILLMERE_CLI) + " " + args + " 2>" + errFile;
  Result r;
  FILE* pipe = popen(command.c_str(), "r");
  if (!pipe) return r;
  char buf[4096];
  size_t n;
  while ((n = fread(buf, 1, sizeof buf, pipe)) > 0) r.out.append(buf, n);
  const int raw = pclose(pipe);
  r.status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
  std::ifstream err(errFile);
  std::stringstream ss;
  ss << err.rdbuf();
  r.err = ss.str();
  std::remove(errFile.c_str());
  return r;
}

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

TEST(Cli, ColonFormsMeanTheSamePlace) {
  const Result plain = RunCli("instant --time 2006-07-05T12:00:00 --lat 41.5 --long 284.5 --json");
  const Result colon =
      RunCli("instant --time 2006-07-05T12:00:00 --lat 41:30 --long -75:30 --json");
  ASSERT_EQ(plain.status, 0);
  ASSERT_EQ(colon.status, 0);
  EXPECT_EQ(plain.out, colon.out);
}

// A negative decimal is east, kept as typed as the program keeps it: the same place as the colon
// form, with the program's own digits rather than those of 284.5.
TEST(Cli, ANegativeDecimalLongitudeIsEastKeptAsTyped) {
  const Result decimal = RunCli("instant --time 2006-07-05T12:00:00 --lat 30 --long -75.5 --json");
  const Result colon = RunCli("instant --time 2006-07-05T12:00:00 --lat 30 --long -75:30 --json");
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

}  // namespace
