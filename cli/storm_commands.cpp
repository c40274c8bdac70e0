#include "cli/storm_commands.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "cli/output.h"
#include "ephemeris/precise.h"
#include "folders/folders.h"
#include "stormmodel/day_search.h"
#include "stormmodel/report.h"
#include "stormmodel/settings_sections.h"
#include "textutil/date_time.h"
#include "textutil/number_text.h"

namespace quillmere::cli {
namespace {

// As the program finds it: the user's own copy, else the installed one, else the one beside the
// tool.
std::string DefaultModeFile() {
  std::error_code ec;
  const auto exe = std::filesystem::read_symlink("/proc/self/exe", ec);
  const std::string toolFolder = ec ? std::string(".") : exe.parent_path().string();
  return FindDataFile(
      {UserFolder(FolderEnvironment::FromProcess()), {InstalledDataFolder(toolFolder), toolFolder}},
      "UFMODES.JMF");
}

}  // namespace

std::string NumberArgument(const Args& args, const std::string& option, const char* fallback) {
  const std::string text = args.Optional(option).value_or(fallback);
  char* end = nullptr;
  const double v = std::strtod(text.c_str(), &end);
  if (text.empty() || *end != '\0' || !std::isfinite(v) ||
      text.find_first_of("xXnN") != std::string::npos)
    throw UsageError("bad " + option + " '" + text + "': not a number");
  return text;
}

double DayArgument(const Args& args, const std::string& option) {
  const std::string& text = args.Required(option);
  const double day = ParseInstant(option, text, true);
  if (SplitDateTime(day)->year < 1900)
    throw UsageError("bad " + option + " '" + text + "': dates before 1900 are not permitted");
  return day;
}

EphemerisModel EphemerisArgument(const Args& args) {
  const std::string word = args.Optional("--ephemeris").value_or("classic");
  EphemerisModel model = EphemerisModel::Classic;
  if (!ParseEphemerisModel(word, model))
    throw UsageError("bad --ephemeris '" + word + "': expected classic or precise");
  if (model == EphemerisModel::Precise && !PreciseEphemerisBuilt())
    throw UsageError("bad --ephemeris 'precise': the precise ephemeris is not in this build");
  return model;
}

bool LoadModes(const Args& args, ModeTable& modes) {
  const ModeFileResult loaded =
      LoadModeFile(args.Optional("--modes").value_or(DefaultModeFile()), modes);
  for (const auto& m : {loaded.error, loaded.notice}) {
    if (!m) continue;
    std::string text = m->text;
    text.replace(text.find("\r\n"), 2, "\n");
    std::fprintf(stderr, "%s\n%s\n", m->title.c_str(), text.c_str());
  }
  return !loaded.error;
}

namespace {

// The limits of --jup-alt-min and --sun-alt-max as the window's first search reads its boxes.
SearchLimits LimitArguments(const Args& args) {
  return {SingleOf(Val(NumberArgument(args, "--jup-alt-min", "0"))),
          SingleOf(Val(NumberArgument(args, "--sun-alt-max", "0"))), 0};
}

void PrintGrid(const PredictionGrid& grid) {
  size_t nameWidth = 9;
  for (const auto& row : grid.cells) nameWidth = std::max(nameWidth, row[0].size());
  for (const auto& row : grid.cells) {
    std::string line = row[0] + std::string(nameWidth + 2 - row[0].size(), ' ');
    for (int c = 1; c < kGridColumns; ++c) {
      line += row[c];
      if (c + 1 < kGridColumns) line += std::string(row[c].size() < 7 ? 7 - row[c].size() : 1, ' ');
    }
    line.erase(line.find_last_not_of(' ') + 1);
    std::printf("%s\n", line.c_str());
  }
}

void PrintJson(const ActivityTable& DayActivity, const PredictionGrid& grid) {
  std::string out = "{\n  \"DayActivity\": [";
  for (int m = 1; m <= kActivityModes; ++m) {
    out += m > 1 ? ",\n    [" : "\n    [";
    for (int i = 0; i < kMinuteRows; ++i) {
      if (i) out += ',';
      out += std::to_string(DayActivity(m, i));
    }
    out += "]";
  }
  out += "\n  ],\n  \"Grid1\": [";
  for (int r = 0; r < grid.Rows(); ++r) {
    out += r ? ",\n    [" : "\n    [";
    for (int c = 0; c < kGridColumns; ++c) out += (c ? "," : "") + JsonString(grid.cells[r][c]);
    out += "]";
  }
  out += "\n  ]\n}\n";
  std::fputs(out.c_str(), stdout);
}

}  // namespace

const char* const kPredictUsage =
    "usage: quillmere-cli predict --day YYYY-MM-DD --lat L --long L [--modes FILE]\n"
    "                             [--jup-alt-min N] [--sun-alt-max N] [--json]\n"
    "\n"
    "Predicts the UT day as the prediction window does and prints its grid: for each mode\n"
    "up to three Begin and End times, or NONE. With --json, DayActivity (six arrays of\n"
    "1441 minute marks, one per mode: 1 event, -1 excluded by an altitude limit, 0 none)\n"
    "and Grid1 (its rows of seven cells).\n"
    "\n"
    "  --day D          the UT day, 1900 or later\n"
    "  --modes FILE     the mode file (default: UFMODES.JMF in the Quillmere folder, else the\n"
    "                   installed one)\n"
    "  --jup-alt-min N  exclude minutes when Jupiter stands below N degrees (default 0)\n"
    "  --sun-alt-max N  exclude minutes when the Sun stands above N degrees (default 0)\n";

const char* const kReportUsage =
    "usage: quillmere-cli report --start YYYY-MM-DD --end YYYY-MM-DD[THH:MM:SS] --lat L\n"
    "                            --long L [--modes FILE] [--jup-alt-min N] [--sun-alt-max N]\n"
    "                            [--min-duration N] [--include-ha] [--io-only] [--no-none]\n"
    "                            [--date-order 0|1|2] [--display-west W|E] [--dir DIR]\n"
    "\n"
    "Writes the report file of the typed report, header included, into DIR and prints its\n"
    "name. The file is named by its first day, e.g. 20060705JP.TXT, and replaced if there.\n"
    "\n"
    "  --start D         the first UT day, 1900 or later\n"
    "  --end D           the last day; a time of day counts (a day is written while its\n"
    "                    start is not later than --end)\n"
    "  --min-duration N  drop runs shorter than N minutes\n"
    "  --include-ha      add Jupiter's hour angle lines\n"
    "  --io-only         only modes with \"Io\" in their name\n"
    "  --no-none         leave out the rows that say NONE\n"
    "  --date-order O    0 year month day (default), 1 month day year, 2 day month year\n"
    "  --display-west W  W (default) shows the longitude west, E east\n"
    "  --dir DIR         where the file goes (default: the current directory)\n"
    "  (--modes, --jup-alt-min and --sun-alt-max as for predict; --json is not used)\n";

int Predict(const Args& args) {
  const double day = DayArgument(args, "--day");
  const float lat = ParseLatitude("--lat", args.Required("--lat"));
  const float lng = ParseLongitude("--long", args.Required("--long"));
  const SearchLimits limits = LimitArguments(args);
  const EphemerisModel model = EphemerisArgument(args);
  ModeTable modes;
  if (!LoadModes(args, modes)) return 1;
  const DayPrediction d = PredictDay(day, lat, lng, modes, limits, model);
  const PredictionGrid grid = GridOf(modes, d.DayActivity);
  if (args.Has("--json"))
    PrintJson(d.DayActivity, grid);
  else
    PrintGrid(grid);
  return 0;
}

int Report(const Args& args) {
  ReportRequest r;
  r.start = DayArgument(args, "--start");
  r.end = DayArgument(args, "--end");
  if (r.end < r.start)
    throw UsageError("bad --end '" + args.Required("--end") + "': before --start");
  const std::string order = args.Optional("--date-order").value_or("0");
  if (order != "0" && order != "1" && order != "2")
    throw UsageError("bad --date-order '" + order + "': expected 0, 1 or 2");
  r.DFormat = static_cast<int16_t>(order[0] - '0');
  r.DisplayWest = args.Optional("--display-west").value_or("W");
  if (r.DisplayWest != "W" && r.DisplayWest != "E")
    throw UsageError("bad --display-west '" + r.DisplayWest + "': expected W or E");
  r.MinDuration =
      SingleOf(std::strtod(NumberArgument(args, "--min-duration", "0").c_str(), nullptr));
  r.ObsLat = ParseLatitude("--lat", args.Required("--lat"));
  r.ObsLong = ParseLongitude("--long", args.Required("--long"));
  // The report starts from the boxes as the window's first search left them.
  const SearchLimits limits = LimitArguments(args);
  r.JupAltMin = StoredLimit(limits.JupAltMin);
  r.SunAltMax = StoredLimit(limits.SunAltMax);
  r.choices = {static_cast<int16_t>(args.Has("--include-ha") ? -1 : 0),
               static_cast<int16_t>(args.Has("--io-only") ? -1 : 0),
               static_cast<int16_t>(args.Has("--no-none") ? -1 : 0)};
  r.VersionText = ProgramValues{}.VersionText;
  r.model = EphemerisArgument(args);
  ModeTable modes;
  if (!LoadModes(args, modes)) return 1;

  const std::string dir = args.Optional("--dir").value_or(".");
  const ReportOutcome written = WriteReport(modes, r, dir);
  const std::string path =
      args.Has("--dir") ? (std::filesystem::path(dir) / written.file).string() : written.file;
  if (!written.error.empty()) {
    std::fprintf(stderr, "quillmere-cli: %s\n", written.error.c_str());
    return 1;
  }
  std::printf("%s\n", path.c_str());
  return 0;
}

}  // namespace quillmere::cli
