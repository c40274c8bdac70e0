// quillmere-cli forecast: every event of a period as text, CSV, JSON or an iCalendar file.

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <string>

#include "cli/forecast_format.h"
#include "cli/storm_commands.h"
#include "stormmodel/prediction.h"
#include "textutil/date_time.h"
#include "textutil/number_text.h"

namespace quillmere::cli {

const char* const kForecastUsage =
    "usage: quillmere-cli forecast --start YYYY-MM-DD --days N --lat L --long L\n"
    "                              [--format text|csv|json|ics] [--local] [--modes FILE]\n"
    "                              [--jup-alt-min N] [--sun-alt-max N] [--min-duration N]\n"
    "\n"
    "Every event of the N days from --start, from the same search as a report (same marks,\n"
    "limits and minimum duration): mode, begin and end (UT), length in minutes, whether the\n"
    "region depends on Io, and the altitudes of Jupiter and the Sun at begin and end.\n"
    "\n"
    "  --start D         the first UT day, 1900 or later\n"
    "  --days N          how many days, 1 to 36525 (100 years)\n"
    "  --format F        text (default), csv, json, or ics: an iCalendar file with one event\n"
    "                    each and an alarm ten minutes before, for any calendar program\n"
    "  --local           add this machine's local time of begin and end (not for ics, whose\n"
    "                    times are UT and shown in local time by the calendar)\n"
    "  --min-duration N  drop runs shorter than N minutes\n"
    "  (--modes, --jup-alt-min and --sun-alt-max as for predict; --json is --format json)\n";

int ForecastCommand(const Args& args) {
  ForecastRequest r;
  r.start = DayArgument(args, "--start");
  const std::string daysText = args.Required("--days");
  char* end = nullptr;
  const long days = std::strtol(daysText.c_str(), &end, 10);
  if (daysText.empty() || *end != '\0' || days < 1)
    throw UsageError("bad --days '" + daysText + "': expected a whole number of days, 1 or more");
  if (days > kForecastMaxDays)
    throw UsageError("bad --days '" + daysText + "': a forecast covers at most " +
                     std::to_string(kForecastMaxDays) + " days (100 years)");
  r.days = static_cast<int>(days);
  if (!SplitDateTime(r.start + r.days - 1))
    throw UsageError("bad --days '" + daysText + "': the period would pass the year 9999");
  std::string format = args.Optional("--format").value_or(args.Has("--json") ? "json" : "text");
  if (format != "text" && format != "csv" && format != "json" && format != "ics")
    throw UsageError("bad --format '" + format + "': expected text, csv, json or ics");
  r.ObsLat = ParseLatitude("--lat", args.Required("--lat"));
  r.ObsLong = ParseLongitude("--long", args.Required("--long"));
  // The limits act as in a report: the boxes' text read as numbers, stored in 32 bits.
  r.limits.JupAltMin = SingleOf(Val(NumberArgument(args, "--jup-alt-min", "0")));
  r.limits.SunAltMax = SingleOf(Val(NumberArgument(args, "--sun-alt-max", "0")));
  r.limits.MinDuration = SingleOf(Val(NumberArgument(args, "--min-duration", "0")));

  r.model = EphemerisArgument(args);
  ModeTable modes;
  if (!LoadModes(args, modes)) return 1;
  const std::vector<ForecastEvent> events = Forecast(modes, r);
  const bool local = args.Has("--local");
  std::string out;
  if (format == "csv")
    out = ForecastCsv(events, local);
  else if (format == "json")
    out = ForecastJson(events, r, local);
  else if (format == "ics")
    out = ForecastIcs(events, r, kUnixEpoch + static_cast<double>(std::time(nullptr)) / 86400);
  else
    out = ForecastText(events, r, local);
  std::fwrite(out.data(), 1, out.size(), stdout);
  return 0;
}

}  // namespace quillmere::cli
