#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>
#include <string>

#include "storm_test_support.h"

namespace {

using quillmere::testing::ScratchDir;

struct Result {
  int status;
  std::string out;
};

// Runs the tool with standard error joined to standard output.
Result Tool(const std::string& arguments) {
  const std::string command = std::string(QUILLMERE_CLI) + " " + arguments + " 2>&1";
  FILE* p = popen(command.c_str(), "r");
  std::string out;
  char buf[4096];
  for (size_t n; (n = fread(buf, 1, sizeof buf, p)) > 0;) out.append(buf, n);
  const int status = pclose(p);
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, out};
}

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
  };
  for (const auto& c : cases) {
    const Result r = Tool(c.arguments + kPlace);
    EXPECT_EQ(r.status, c.status) << c.arguments;
    EXPECT_NE(r.out.find(c.says), std::string::npos) << r.out;
  }
}

}  // namespace
