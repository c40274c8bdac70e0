#include "cli/forecast_format.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <optional>
#include <string>

#include "cli/output.h"
#include "stormmodel/forecast.h"
#include "stormmodel/prediction.h"
#include "textutil/date_time.h"
#include "textutil/latlng.h"
#include "textutil/number_text.h"

namespace quillmere::cli {
namespace {

std::string Fmt(const char* format, auto... values) {
  char buf[160];
  std::snprintf(buf, sizeof buf, format, values...);
  return buf;
}

// The machine's local time of a UT value, and its offset from UT in minutes.
struct Local {
  double value = 0;
  int offset = 0;
};
Local LocalOf(double ut) {
  const std::time_t t = static_cast<std::time_t>(std::llround((ut - kUnixEpoch) * 86400));
  const std::tm* tm = std::localtime(&t);
  if (!tm) return {ut, 0};
  const auto date = DateSerial(tm->tm_year + 1900LL, tm->tm_mon + 1LL, tm->tm_mday);
  if (!date) return {ut, 0};
  const double value = *date + TimeSerial(tm->tm_hour, tm->tm_min, tm->tm_sec);
  return {value, static_cast<int>(std::lround((value - ut) * 1440))};
}

std::string Offset(int minutes) {
  const int a = std::abs(minutes);
  return Fmt("%c%02d:%02d", minutes < 0 ? '-' : '+', a / 60, a % 60);
}

std::string Iso(double value) {
  return FormatDateTime(value, "yyyy-mm-ddThh:nn:00");
}

// The observer as the program says it: "30:00:00.0 N 80:00:00.0 W".
std::string Place(const ForecastRequest& r) {
  const float lat = r.ObsLat, lng = r.ObsLong;
  const std::string longitude = lng < 0     ? LongToText(-lng) + " E"
                                : lng > 180 ? LongToText(360 - lng) + " E"
                                            : LongToText(lng) + " W";
  return LatToText(std::fabs(lat)) + (lat < 0 ? " S " : " N ") + longitude;
}

}  // namespace

std::string ForecastText(const std::vector<ForecastEvent>& events, const ForecastRequest& r,
                         bool local) {
  std::string out = "Storm windows at " + Place(r) + ", " + FormatDateTime(r.start, "yyyy-mm-dd") +
                    Fmt(" for %d day%s, times UT\n", r.days, r.days == 1 ? "" : "s");
  if (events.empty()) return out + "No events.\n";
  out += "Date        Mode         Begin  End    Minutes  Io   Jupiter alt  Sun alt";
  out += local ? "     Local begin       Local end         Offset\n" : "\n";
  for (const ForecastEvent& e : events) {
    std::string line =
        FormatDateTime(e.day, "yyyy-mm-dd") + "  " + Fmt("%-12s", e.name.c_str()) + " " +
        MinutesToClock(e.begin) + "  " + MinutesToClock(e.end) +
        Fmt("  %7d  %-3s  %4d to %-3d  %4d to %-3d", e.Minutes(), e.ioRelated ? "yes" : "no",
            e.JupAltBegin, e.JupAltEnd, e.SunAltBegin, e.SunAltEnd);
    if (local) {
      const Local b = LocalOf(e.Begin()), x = LocalOf(e.End());
      line += "  " + FormatDateTime(b.value, "yyyy-mm-dd hh:nn") + "  " +
              FormatDateTime(x.value, "yyyy-mm-dd hh:nn") + "  UTC" + Offset(b.offset);
    }
    line.erase(line.find_last_not_of(' ') + 1);
    out += line + "\n";
  }
  return out;
}

namespace {

std::string CsvField(const std::string& raw) {
  const std::string text = AsUtf8(raw);
  if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
  std::string out = "\"";
  for (char c : text) out += c == '"' ? std::string("\"\"") : std::string(1, c);
  return out + "\"";
}

}  // namespace

std::string ForecastCsv(const std::vector<ForecastEvent>& events, bool local) {
  std::string out =
      "date,mode,begin_ut,end_ut,minutes,io_related,jupiter_alt_begin,jupiter_alt_end,"
      "sun_alt_begin,sun_alt_end";
  out += local ? ",begin_local,end_local,utc_offset\r\n" : "\r\n";
  for (const ForecastEvent& e : events) {
    out += FormatDateTime(e.day, "yyyy-mm-dd") + "," + CsvField(e.name) + "," + Iso(e.Begin()) +
           "Z," + Iso(e.End()) + "Z" +
           Fmt(",%d,%s,%d,%d,%d,%d", e.Minutes(), e.ioRelated ? "true" : "false", e.JupAltBegin,
               e.JupAltEnd, e.SunAltBegin, e.SunAltEnd);
    if (local) {
      const Local b = LocalOf(e.Begin()), x = LocalOf(e.End());
      out += "," + Iso(b.value) + "," + Iso(x.value) + "," + Offset(b.offset);
    }
    out += "\r\n";
  }
  return out;
}

std::string ForecastJson(const std::vector<ForecastEvent>& events, const ForecastRequest& r,
                         bool local) {
  std::string out = "{\n  \"latitude\": " + JsonNumber(r.ObsLat) +
                    ",\n  \"longitude_west\": " + JsonNumber(r.ObsLong) + ",\n  \"start\": \"" +
                    FormatDateTime(r.start, "yyyy-mm-dd") + "\",\n" +
                    Fmt("  \"days\": %d,\n  \"events\": [", r.days);
  for (size_t i = 0; i < events.size(); ++i) {
    const ForecastEvent& e = events[i];
    out += i ? ",\n    {" : "\n    {";
    out += "\"day\": \"" + FormatDateTime(e.day, "yyyy-mm-dd") +
           "\", \"mode\": " + JsonString(e.name) +
           ", \"io_related\": " + (e.ioRelated ? "true" : "false") + ", \"begin\": \"" +
           Iso(e.Begin()) + "Z\", \"end\": \"" + Iso(e.End()) + "Z\"" +
           Fmt(", \"minutes\": %d, \"jupiter_alt_begin\": %d, \"jupiter_alt_end\": %d, "
               "\"sun_alt_begin\": %d, \"sun_alt_end\": %d",
               e.Minutes(), e.JupAltBegin, e.JupAltEnd, e.SunAltBegin, e.SunAltEnd);
    if (local) {
      const Local b = LocalOf(e.Begin()), x = LocalOf(e.End());
      out += ", \"begin_local\": \"" + Iso(b.value) + Offset(b.offset) + "\", \"end_local\": \"" +
             Iso(x.value) + Offset(x.offset) + "\"";
    }
    out += "}";
  }
  out += events.empty() ? "]\n}\n" : "\n  ]\n}\n";
  return out;
}

namespace {

// RFC 5545 text: backslash, semicolon and comma escaped.
std::string IcsText(const std::string& raw) {
  std::string out;
  for (char c : AsUtf8(raw)) {
    if (c == '\\' || c == ';' || c == ',') out += '\\';
    out += c;
  }
  return out;
}

// One content line, folded at 75 octets without splitting a UTF-8 character, ended by CR LF.
std::string IcsLine(const std::string& line) {
  std::string out;
  size_t at = 0, room = 75;
  while (line.size() - at > room) {
    size_t cut = at + room;
    while (cut > at && (static_cast<unsigned char>(line[cut]) & 0xC0) == 0x80) --cut;
    out += line.substr(at, cut - at) + "\r\n ";
    at = cut;
    room = 74;
  }
  return out + line.substr(at) + "\r\n";
}

std::string IcsStamp(double value) {
  return FormatDateTime(value, "yyyymmddThhnnssZ");
}

// A UID that stays the same for the same event at the same place, so that importing a newer
// forecast updates the events instead of doubling them.
std::string Uid(const ForecastEvent& e, const ForecastRequest& r) {
  std::string name;
  for (char c : e.name)
    name += (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') ? c : '-';
  return FormatDateTime(e.Begin(), "yyyymmddThhnnZ") + "-" + name +
         Fmt("-%d-%.4f-%.4f@quillmere", e.mode, static_cast<double>(r.ObsLat),
             static_cast<double>(r.ObsLong));
}

}  // namespace

std::string ForecastIcs(const std::vector<ForecastEvent>& events, const ForecastRequest& r,
                        double stamp) {
  std::string out = IcsLine("BEGIN:VCALENDAR") + IcsLine("VERSION:2.0") +
                    IcsLine("PRODID:-//Quillmere//Storm forecast//EN") +
                    IcsLine("CALSCALE:GREGORIAN") + IcsLine("METHOD:PUBLISH") +
                    IcsLine("X-WR-CALNAME:Jupiter storm windows");
  for (const ForecastEvent& e : events) {
    const std::string summary = IcsText(e.name) + " storm possible";
    out += IcsLine("BEGIN:VEVENT") + IcsLine("UID:" + Uid(e, r)) +
           IcsLine("DTSTAMP:" + IcsStamp(stamp)) + IcsLine("DTSTART:" + IcsStamp(e.Begin())) +
           IcsLine("DTEND:" + IcsStamp(e.End())) + IcsLine("SUMMARY:" + summary) +
           IcsLine("DESCRIPTION:" +
                   IcsText(Fmt("Jupiter altitude %d to %d degrees, Sun altitude %d to %d "
                               "degrees. ",
                               e.JupAltBegin, e.JupAltEnd, e.SunAltBegin, e.SunAltEnd) +
                           (e.ioRelated ? "Io-related region. " : "Region independent of Io. ") +
                           "Observer " + Place(r) + ".")) +
           IcsLine("TRANSP:TRANSPARENT") + IcsLine("BEGIN:VALARM") + IcsLine("ACTION:DISPLAY") +
           IcsLine("TRIGGER:-PT10M") + IcsLine("DESCRIPTION:" + summary + " in ten minutes") +
           IcsLine("END:VALARM") + IcsLine("END:VEVENT");
  }
  return out + IcsLine("END:VCALENDAR");
}

}  // namespace quillmere::cli
