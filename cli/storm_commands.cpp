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
#include "stormmodel/prediction.h"
#include "textutil/date_time.h"

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

// Messages go to standard error; the voice is silent here except for what the caller wants
// to know of a report: whether saving failed.
class ToolUi : public StormUi {
 public:
  void ShowMessage(const std::string& text) override {
    std::fprintf(stderr, "%s\n", text.c_str());
    ++messages;
  }
  void SpeakThis(const std::string& text) override {
    if (text.starts_with("There was an error trying to save ")) saveError = text;
  }
  void SpeakCharacters(const std::string&) override {}
  void Yield() override {}
  void ShowReportOptions() override {}

  int messages = 0;
  std::string saveError;
};

// Everything a prediction needs, with the mode file loaded and the window's load run for `day`.
struct Session {
  EphemerisState s;
  StormValues storm;
  ProgramValues program;
  MemorySettings settings;
  ToolUi ui;
  PredictionWindow form3{s, storm, program, settings, ui};

  // False when the mode file failed; its message is printed.
  bool Open(const Args& args, double day, bool includeHA) {
    program.ObsLat = ParseLatitude("--lat", args.Required("--lat"));
    program.ObsLong = ParseLongitude("--long", args.Required("--long"));
    const std::string app = program.AppTitle;
    settings.SaveSetting(app, "Settings", "ReportJupAltMin",
                         NumberArgument(args, "--jup-alt-min", "0"));
    settings.SaveSetting(app, "Settings", "ReportSunAltMax",
                         NumberArgument(args, "--sun-alt-max", "0"));
    settings.SaveSetting(app, "Settings", "ReportIncludeHA", includeHA ? " 1" : " 0");

    s.model = EphemerisArgument(args);
    if (!LoadModes(args, storm.Modes)) return false;
    s.T = day;
    form3.Form_Load(false, day);
    return ui.messages == 0;
  }
};

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

void PrintJson(const StormValues& storm, const PredictionGrid& grid) {
  std::string out = "{\n  \"DayActivity\": [";
  for (int m = 1; m <= kActivityModes; ++m) {
    out += m > 1 ? ",\n    [" : "\n    [";
    for (int i = 0; i < kMinuteRows; ++i) {
      if (i) out += ',';
      out += std::to_string(storm.DayActivity(m, i));
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
  Session session;
  if (!session.Open(args, DayArgument(args, "--day"), false)) return 1;
  if (args.Has("--json"))
    PrintJson(session.storm, session.form3.Grid1);
  else
    PrintGrid(session.form3.Grid1);
  return 0;
}

int Report(const Args& args) {
  const double start = DayArgument(args, "--start");
  const double end = DayArgument(args, "--end");
  if (end < start) throw UsageError("bad --end '" + args.Required("--end") + "': before --start");
  const std::string order = args.Optional("--date-order").value_or("0");
  if (order != "0" && order != "1" && order != "2")
    throw UsageError("bad --date-order '" + order + "': expected 0, 1 or 2");
  const std::string west = args.Optional("--display-west").value_or("W");
  if (west != "W" && west != "E")
    throw UsageError("bad --display-west '" + west + "': expected W or E");
  const double minDuration =
      std::strtod(NumberArgument(args, "--min-duration", "0").c_str(), nullptr);

  Session session;
  session.program.DFormat = static_cast<int16_t>(order[0] - '0');
  session.program.DisplayWest = west;
  if (!session.Open(args, start, args.Has("--include-ha"))) return 1;
  StormValues& storm = session.storm;
  storm.ReportStart = start;
  storm.ReportEnd = end;
  storm.ReportMinDuration = SingleOf(minDuration);
  storm.ReportIoOnly = args.Has("--io-only") ? -1 : 0;
  storm.ReportNoNONE = args.Has("--no-none") ? -1 : 0;
  storm.ReportHeader = -1;

  const std::string dir = args.Optional("--dir").value_or(".");
  session.form3.DoReport(dir);
  if (!session.ui.saveError.empty()) {
    std::fprintf(stderr, "quillmere-cli: %s\n", session.ui.saveError.c_str());
    return 1;
  }
  std::printf("%s\n", args.Has("--dir")
                          ? (std::filesystem::path(dir) / session.form3.FFF).string().c_str()
                          : session.form3.FFF.c_str());
  return 0;
}

}  // namespace quillmere::cli
