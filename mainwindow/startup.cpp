#include "mainwindow/startup.h"

#include <algorithm>
#include <cctype>
#include <cmath>

#include "ephemeris/precise.h"
#include "mainwindow/entry.h"
#include "textutil/number_text.h"
#include "textutil/text.h"

namespace quillmere {
namespace {

// A stored text read as a 16-bit boolean: "True" / "False" in any case, or a number.
int16_t StoredBoolean(const std::string& text) {
  std::string lower = text;
  std::transform(lower.begin(), lower.end(), lower.begin(), ::tolower);
  if (lower == "true") return -1;
  if (lower == "false") return 0;
  const double v = Val(text);
  return std::isfinite(v) && v != 0 && (IsNumeric(text)) ? -1 : 0;
}

// A stored number read into a 32-bit field; a value the field cannot hold reads as 0.
float StoredSingle(const std::string& text) {
  const double v = Val(text);
  return std::fabs(v) <= 3.4028234663852886e38 ? static_cast<float>(v) : 0.0f;
}

}  // namespace

std::string VersionText() {
  return std::to_string(kVersionMajor) + "." + std::to_string(kVersionMinor) + "." +
         std::to_string(kVersionRevision);
}

void LoadStartupSettings(SettingsStore& st, const std::string& defaultModeFile, ProgramState& p,
                         EphemerisState& s) {
  const std::string& app = p.AppTitle;
  const double dformat = RoundHalfEven(Val(st.GetSetting(app, "Settings", "DFormat", "0")));
  p.DFormat = dformat >= -32768 && dformat <= 32767 ? static_cast<int16_t>(dformat) : 0;
  p.ModeFileName = st.GetSetting(app, "Startup", "ModeFileName", defaultModeFile);
  p.UseGMT = StoredBoolean(st.GetSetting(app, "Startup", "UseGMT", "True"));
  p.DisplayWest = st.GetSetting(app, "Startup", "DisplayWest", "W");
  const double delay = Val(st.GetSetting(app, "Startup", "AnnounceDelay", "0"));
  p.AnnounceDelay = std::isfinite(delay) ? delay : 0;
  p.AnnounceActivity = st.GetSetting(app, "Startup", "AnnounceActivity", "0") == "1" ? -1 : 0;
  p.ObsLat = StoredSingle(st.GetSetting(app, "Settings", "Latitude", "0"));
  p.ObsLong = StoredSingle(st.GetSetting(app, "Settings", "Longitude", "0"));
  // The ephemeris is chosen once, before the first sidereal time: classic unless asked otherwise.
  s.model = EphemerisModelSetting(st.GetSetting(app, "Settings", "Ephemeris", "classic"));
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
