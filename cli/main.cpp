// quillmere-cli: the program's core without its windows. It adds no logic of its own.

#include <algorithm>
#include <cstdio>
#include <functional>
#include <iostream>
#include <iterator>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "cli/args.h"
#include "cli/output.h"
#include "cli/storm_commands.h"
#include "ephemeris/ephemeris.h"
#include "ephemeris/ephemeris_state.h"
#include "textutil/date_time.h"

namespace quillmere::cli {
namespace {

struct Observer {
  float ObsLat = 0;
  float ObsLong = 0;
};

Observer ReadObserver(const Args& args) {
  return {ParseLatitude("--lat", args.Required("--lat")),
          ParseLongitude("--long", args.Required("--long"))};
}

void Print(const Record& record, bool json) {
  std::fputs(json ? record.Json().c_str() : record.Text().c_str(), stdout);
}

int Instant(const Args& args) {
  EphemerisState s;
  s.model = EphemerisArgument(args);
  s.T = ParseInstant("--time", args.Required("--time"), false);
  const Observer obs = ReadObserver(args);
  ComputeSiderealTime(s, obs.ObsLong);
  ComputeInstant(s, obs.ObsLat);

  Record r;
  r.Add("T", s.T);
  r.Add("SavedT", s.SavedT);
  r.Add("JD0", s.JD0);
  r.Add("Day1900", s.Day1900);
  r.Add("LMST0", s.LMST0);
  r.Add("LMST", s.LMST);
  r.Add("SunRA", s.SunRA);
  r.Add("SunDec", s.SunDec);
  r.Add("SunRAText", s.SunRAText);
  r.Add("SunDecText", s.SunDecText);
  r.Add("JupRA", s.JupRA);
  r.Add("JupDec", s.JupDec);
  r.Add("JupRAText", s.JupRAText);
  r.Add("JupDecText", s.JupDecText);
  r.Add("CML3", s.CML3);
  r.Add("IoPhase", s.IoPhase);
  r.Add("JupAlt", s.JupAlt);
  r.Add("JupAz", s.JupAz);
  r.Add("SunAlt", s.SunAlt);
  r.Add("SunAz", s.SunAz);
  r.Add("JupRise", s.JupRise);
  r.Add("JupSet", s.JupSet);
  r.Add("SunRise", s.SunRise);
  r.Add("SunSet", s.SunSet);
  if (!args.Has("--json"))
    std::printf("%s UT\n", FormatDateTime(s.T, "yyyy-mm-dd hh:nn:ss").c_str());
  Print(r, args.Has("--json"));
  return 0;
}

int Minutes(const Args& args) {
  const double day = ParseInstant("--day", args.Required("--day"), true);
  const Observer obs = ReadObserver(args);
  EphemerisState s;
  s.model = EphemerisArgument(args);
  s.T = day;
  SaveT(s);
  MinuteTables t;
  FillMinuteTables(s, t, day, obs.ObsLat, obs.ObsLong);

  if (args.Has("--json")) {
    Record r;
    r.Add("MinuteCML", t.MinuteCML);
    r.Add("MinuteIo", t.MinuteIo);
    r.Add("MinuteSunAlt", t.MinuteSunAlt);
    r.Add("MinuteJupAlt", t.MinuteJupAlt);
    r.Add("MinuteJupHA", t.MinuteJupHA);
    Print(r, true);
    return 0;
  }
  std::printf(
      s.model == EphemerisModel::Precise ? "%s, rows from 00:00:00 UT\n%5s %5s %5s %6s %6s %9s\n"
                                         : "%s, rows from 00:10:00 UT\n%5s %5s %5s %6s %6s %9s\n",
      FormatDateTime(day, "yyyy-mm-dd").c_str(), "Row", "CML", "Io", "SunAlt", "JupAlt", "JupHA");
  for (int i = 0; i < kMinuteRows; ++i)
    std::printf("%5d %5d %5d %6d %6d %9.4f\n", i, t.MinuteCML[i], t.MinuteIo[i], t.MinuteSunAlt[i],
                t.MinuteJupAlt[i], static_cast<double>(t.MinuteJupHA[i]));
  return 0;
}

struct Command {
  const char* name;
  const char* summary;
  const char* usage;
  std::set<std::string> options;
  std::function<int(const Args&)> run;
  std::set<std::string> flags = {};
};

const char* const kObserverHelp =
    "  --lat L     observer latitude in degrees, north positive; decimal (41.5) or\n"
    "              degrees:minutes[:seconds] (41:30, -41:30:00)\n"
    "  --long L    observer longitude in degrees, WEST positive (80 is 80 degrees west);\n"
    "              decimal or degrees:minutes[:seconds], where a leading '-' means east\n"
    "              (-75:30 is stored as 284.5; -75.5, also 75.5 east, is kept as typed,\n"
    "              as the program keeps it)\n"
    "  --json      one JSON object; numbers print their exact binary value\n"

    "  --ephemeris E  classic (the default: the program's own orbit model) or precise\n"
    "              (apparent places from liberfa, IAU 2015 System III, Io by Meeus ch. 44)\n";

const std::vector<Command>& Commands() {
  static const std::vector<Command> commands = {
      {"instant",
       "every position field for one UT instant",
       "usage: quillmere-cli instant --time YYYY-MM-DDTHH:MM:SS --lat L --long L [--json]\n"
       "\n"
       "Sets T to the instant (UT), computes the sidereal times and every position, and\n"
       "prints every field of the ephemeris state.\n"
       "\n"
       "  --time T    the instant in UT, e.g. 2006-07-05T12:00:00\n",
       {"--time", "--lat", "--long"},
       Instant},
      {"minutes",
       "the five minute tables of one day",
       "usage: quillmere-cli minutes --day YYYY-MM-DD --lat L --long L [--json]\n"
       "\n"
       "Fills the minute tables of the day (rows 0 to 1440, from 00:10:00 UT, or from\n"
       "00:00:00 with --ephemeris precise) and prints MinuteCML, MinuteIo, MinuteSunAlt,\n"
       "MinuteJupAlt and MinuteJupHA.\n"
       "\n"
       "  --day D     the UT day; a time of day, if given, is ignored\n",
       {"--day", "--lat", "--long"},
       Minutes},
      {"predict",
       "a day's predicted storm events, as the prediction window shows them",
       kPredictUsage,
       {"--day", "--lat", "--long", "--modes", "--jup-alt-min", "--sun-alt-max"},
       Predict},
      {"report",
       "write the report file of a period",
       kReportUsage,
       {"--start", "--end", "--lat", "--long", "--modes", "--jup-alt-min", "--sun-alt-max",
        "--min-duration", "--date-order", "--display-west", "--dir"},
       Report,
       {"--include-ha", "--io-only", "--no-none"}},
      {"forecast",
       "every event of a period as text, CSV, JSON or a calendar (ICS)",
       kForecastUsage,
       {"--start", "--days", "--lat", "--long", "--modes", "--jup-alt-min", "--sun-alt-max",
        "--min-duration", "--format"},
       ForecastCommand,
       {"--local"}},
  };
  return commands;
}

void PrintToolHelp() {
  std::printf(
      "usage: quillmere-cli COMMAND [OPTIONS]\n"
      "\n"
      "Quillmere's computations without its windows, for scripts and checks.\n"
      "\n"
      "Commands:\n");
  for (const Command& c : Commands()) std::printf("  %-10s %s\n", c.name, c.summary);
  std::printf("  %-10s %s\n", "batch", "run one command per line of standard input");
  std::printf("\n'quillmere-cli COMMAND --help' tells more of each.\n");
}

const char* const kBatchUsage =
    "usage: quillmere-cli batch < COMMANDS\n"
    "\n"
    "Runs each line of standard input as one command with its options, as if it were given\n"
    "on the command line, and prints the replies one after the other, each as the command\n"
    "alone prints it. A refused line says why on standard error and the next line runs.\n"
    "Words are split at blanks, without quoting. Blank lines are skipped. The exit status\n"
    "is the highest of the commands'.\n"
    "One start of the tool serves many commands, which matters where starting it is slow.\n";

int Main(const std::vector<std::string>& words);

int Batch() {
  int status = 0;
  std::string line;
  while (std::getline(std::cin, line)) {
    std::istringstream in(line);
    const std::vector<std::string> words{std::istream_iterator<std::string>(in), {}};
    if (words.empty()) continue;
    int code = 2;
    try {
      if (words[0] == "batch") throw UsageError("batch does not nest");
      code = Main(words);
    } catch (const UsageError& e) {
      std::fflush(stdout);
      std::fprintf(stderr, "quillmere-cli: %s\n", e.what());
    }
    std::fflush(stdout);
    status = std::max(status, code);
  }
  return status;
}

int Main(const std::vector<std::string>& words) {
  if (words.empty()) throw UsageError("missing command (try --help)");
  if (words[0] == "--help" || words[0] == "-h" || words[0] == "help") {
    PrintToolHelp();
    return 0;
  }
  if (words[0] == "batch") {
    if (words.size() == 2 && (words[1] == "--help" || words[1] == "-h")) {
      std::fputs(kBatchUsage, stdout);
      return 0;
    }
    if (words.size() > 1) throw UsageError("unknown argument '" + words[1] + "'");
    return Batch();
  }
  for (const Command& c : Commands()) {
    if (words[0] != c.name) continue;
    const std::vector<std::string> rest(words.begin() + 1, words.end());
    for (const std::string& w : rest) {
      if (w == "--help" || w == "-h") {
        std::printf("%s\n%s", c.usage, kObserverHelp);
        return 0;
      }
    }
    std::set<std::string> flags = c.flags;
    flags.insert("--json");
    std::set<std::string> options = c.options;
    options.insert("--ephemeris");
    return c.run(Args(rest, options, flags));
  }
  throw UsageError("unknown command '" + words[0] + "' (try --help)");
}

}  // namespace
}  // namespace quillmere::cli

int main(int argc, char** argv) {
  try {
    return quillmere::cli::Main(std::vector<std::string>(argv + 1, argv + argc));
  } catch (const quillmere::cli::UsageError& e) {
    std::fprintf(stderr, "quillmere-cli: %s\n", e.what());
    return 2;
  }
}
