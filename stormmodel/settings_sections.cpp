#include "stormmodel/settings_sections.h"

#include <algorithm>
#include <cctype>
#include <cmath>

#include "ephemeris/precise.h"
#include "stormmodel/prediction.h"
#include "textutil/number_text.h"
#include "textutil/text.h"

namespace quillmere {
namespace {

const char* const kStartup = "Startup";
const char* const kSettings = "Settings";

// "True" / "False" in any case, or a number.
int16_t StoredBoolean(const std::string& text) {
  std::string lower = text;
  std::transform(lower.begin(), lower.end(), lower.begin(), ::tolower);
  if (lower == "true") return -1;
  if (lower == "false") return 0;
  const double v = Val(text);
  return std::isfinite(v) && v != 0 && IsNumeric(text) ? -1 : 0;
}

float StoredSingle(const std::string& text) {
  const double v = Val(text);
  return std::fabs(v) <= 3.4028234663852886e38 ? static_cast<float>(v) : 0.0f;
}

int16_t Stored16(const std::string& text) {
  return BoxInt16(text).value_or(0);
}

// Reads the keys of one section of one application.
struct Section {
  const SettingsStore& store;
  const std::string& app;
  const char* name;
  std::string operator()(const char* key, const std::string& fallback) const {
    return store.GetSetting(app, name, key, fallback);
  }
};

}  // namespace

StartupSettings ReadStartupSettings(const SettingsStore& store, const std::string& AppTitle,
                                    const std::string& defaultModeFile) {
  const Section get{store, AppTitle, kStartup};
  StartupSettings s;
  s.ModeFileName = get("ModeFileName", defaultModeFile);
  s.UseGMT = StoredBoolean(get("UseGMT", "True"));
  s.DisplayWest = get("DisplayWest", "W");
  const double delay = Val(get("AnnounceDelay", "0"));
  s.AnnounceDelay = std::isfinite(delay) ? delay : 0;
  s.AnnounceActivity = get("AnnounceActivity", "0") == "1" ? -1 : 0;
  s.SpeechEngine = get("SpeechEngine", "");
  return s;
}

void SaveAnnounceDelay(SettingsStore& store, const std::string& AppTitle,
                       const std::string& typed) {
  store.SaveSetting(AppTitle, kStartup, "AnnounceDelay", typed);
}

void SaveSpeechRate(SettingsStore& store, const std::string& AppTitle, const std::string& typed) {
  store.SaveSetting(AppTitle, kStartup, "SpeechRate", typed);
}

void SaveVoiceType(SettingsStore& store, const std::string& AppTitle, const std::string& typed) {
  store.SaveSetting(AppTitle, kStartup, "VoiceType", typed);
}

ProgramSettings ReadProgramSettings(const SettingsStore& store, const std::string& AppTitle) {
  const Section get{store, AppTitle, kSettings};
  ProgramSettings s;
  s.DFormat = Stored16(get("DFormat", "0"));
  s.Latitude = StoredSingle(get("Latitude", "0"));
  s.Longitude = StoredSingle(get("Longitude", "0"));
  s.Ephemeris = EphemerisModelSetting(get("Ephemeris", "classic"));

  JISSettings& j = s.jis;
  j.RunJISText = get("RunJIS", "0");
  j.RunJIS = Stored16(j.RunJISText);
  j.PushJISText = get("PushJIS", "0");
  j.PushJIS = Stored16(j.PushJISText);
  j.JISIP = get("JISIP", "127.0.0.1");
  j.JISPortText = get("JISPort", "4711");
  j.JISPort = Stored16(j.JISPortText);
  j.JISMinText = get("JISMin", "10");
  j.JISMin = Stored16(j.JISMinText);

  ReportSettings& r = s.report;
  r.ReportJupAltMin = get("ReportJupAltMin", "0");
  r.ReportSunAltMax = get("ReportSunAltMax", "0");
  r.ReportIncludeHA = Val(get("ReportIncludeHA", "0")) == 1 ? -1 : 0;
  r.ReportIoOnly = Stored16(get("ReportIoOnly", "0"));
  r.ReportNoNONE = Stored16(get("ReportNoNONE", "0"));
  r.ReportHeader = Stored16(get("ReportHeader", "1"));
  r.ReportMinDuration = get("ReportMinDuration", "0");
  return s;
}

void SaveLatitude(SettingsStore& store, const std::string& AppTitle, float ObsLat) {
  store.SaveSetting(AppTitle, kSettings, "Latitude", NumberText(ObsLat));
}

void SaveLongitude(SettingsStore& store, const std::string& AppTitle, float ObsLong) {
  store.SaveSetting(AppTitle, kSettings, "Longitude", NumberText(ObsLong));
}

void SaveReportLimits(SettingsStore& store, const std::string& AppTitle, float JupAltMin,
                      float SunAltMax) {
  store.SaveSetting(AppTitle, kSettings, "ReportJupAltMin", NumberText(JupAltMin));
  // The section's name in lower case, as the window has always written this key; the store
  // matches section names without regard to case.
  store.SaveSetting(AppTitle, "settings", "ReportSunAltMax", NumberText(SunAltMax));
}

float StoredLimit(float value) {
  return SingleOf(Val(NumberText(value)));
}

void SaveReportOptions(SettingsStore& store, const std::string& AppTitle,
                       const std::string& MinDuration, int16_t Header, int16_t IncludeHA,
                       int16_t IoOnly, int16_t NoNONE) {
  store.SaveSetting(AppTitle, kSettings, "ReportMinDuration", MinDuration);
  store.SaveSetting(AppTitle, kSettings, "ReportHeader", NumberText(Header));
  store.SaveSetting(AppTitle, kSettings, "ReportIncludeHA", NumberText(IncludeHA));
  store.SaveSetting(AppTitle, kSettings, "ReportIoOnly", NumberText(IoOnly));
  store.SaveSetting(AppTitle, kSettings, "ReportNoNONE", NumberText(NoNONE));
}

}  // namespace quillmere
