#include "mainwindow/startup.h"

#include <algorithm>
#include <cmath>

#include "textutil/number_text.h"

namespace quillmere {

std::string VersionText() {
  return std::to_string(kVersionMajor) + "." + std::to_string(kVersionMinor) + "." +
         std::to_string(kVersionRevision);
}

void LoadStartupSettings(SettingsStore& st, const std::string& defaultModeFile, ProgramState& p,
                         EphemerisState& s) {
  const StartupSettings startup = ReadStartupSettings(st, p.AppTitle, defaultModeFile);
  const ProgramSettings settings = ReadProgramSettings(st, p.AppTitle);
  p.DFormat = settings.DFormat;
  p.ModeFileName = startup.ModeFileName;
  p.UseGMT = startup.UseGMT;
  p.DisplayWest = startup.DisplayWest;
  p.AnnounceDelay = startup.AnnounceDelay;
  p.AnnounceActivity = startup.AnnounceActivity;
  p.ObsLat = settings.Latitude;
  p.ObsLong = settings.Longitude;
  // The ephemeris is chosen once, before the first sidereal time: classic unless asked otherwise.
  s.model = settings.Ephemeris;
}

std::vector<std::string> MessageLines(const std::string& text) {
  std::vector<std::string> lines;
  for (size_t at = 0; at <= text.size();) {
    const size_t end = std::min(text.find("\r\n", at), text.size());
    if (end > at) lines.push_back(text.substr(at, end - at));
    at = end + 2;
  }
  return lines;
}

std::vector<std::string> JisSettingNotices(const JISSettings& settings) {
  std::vector<std::string> notices;
  // A switch that reads as 0 for want of a number would keep the service quiet without a word.
  const struct {
    const char* key;
    const std::string& text;
    const char* meaning;
  } switches[] = {
      {"RunJIS", settings.RunJISText, "so the info server does not start."},
      {"PushJIS", settings.PushJISText, "so no records are pushed."},
  };
  for (const auto& sw : switches) {
    const double v = IsNumeric(sw.text) ? RoundHalfEven(Val(sw.text)) : NAN;
    if (!(v >= -32768 && v <= 32767))
      notices.push_back(std::string("The stored ") + sw.key + " \"" + sw.text +
                        "\" is not a number from -32768 to 32767, " + sw.meaning);
  }
  // With pushing on, a period that is no number of minutes pushes on every tick.
  if (settings.PushJIS) {
    const std::string& text = settings.JISMinText;
    const double v = IsNumeric(text) ? RoundHalfEven(Val(text)) : NAN;
    if (!(v >= 0 && v <= 32767))
      notices.push_back("The stored JISMin \"" + text +
                        "\" is not a number of minutes from 0 to 32767, so records are pushed "
                        "every second.");
  }
  return notices;
}

}  // namespace quillmere
