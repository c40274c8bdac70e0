// The typed settings: what each section reads from a store, and what each writer stores.

#include "stormmodel/settings_sections.h"

#include <gtest/gtest.h>

#include "ephemeris/precise.h"

namespace quillmere {
namespace {

const char* const kApp = "Quillmere Speaking Edition";

TEST(SettingsSections, DefaultsOfAFirstStart) {
  const MemorySettings empty;
  const StartupSettings startup = ReadStartupSettings(empty, kApp, "/opt/UFMODES.JMF");
  EXPECT_EQ(startup.ModeFileName, "/opt/UFMODES.JMF");
  EXPECT_EQ(startup.UseGMT, -1);
  EXPECT_EQ(startup.DisplayWest, "W");
  EXPECT_EQ(startup.AnnounceDelay, 0);
  EXPECT_EQ(startup.AnnounceActivity, 0);
  EXPECT_EQ(startup.SpeechEngine, "");
  const ProgramSettings settings = ReadProgramSettings(empty, kApp);
  EXPECT_EQ(settings.DFormat, 0);
  EXPECT_EQ(settings.Latitude, 0);
  EXPECT_EQ(settings.Ephemeris, EphemerisModel::Classic);
  EXPECT_EQ(settings.jis.RunJIS, 0);
  EXPECT_EQ(settings.jis.PushJIS, 0);
  EXPECT_EQ(settings.jis.JISIP, "127.0.0.1");
  EXPECT_EQ(settings.jis.JISPort, 4711);
  EXPECT_EQ(settings.jis.JISMin, 10);
  EXPECT_EQ(settings.report.ReportHeader, 1);
  EXPECT_EQ(settings.report.ReportJupAltMin, "0");
  EXPECT_EQ(settings.report.ReportMinDuration, "0");
}

// Stored texts as a hand or an older version may have left them.
TEST(SettingsSections, StoredTextsIntoTheirFields) {
  MemorySettings store;
  const struct {
    const char *section, *key, *text;
  } stored[] = {
      {"startup", "UseGMT", "FALSE"},
      {"Startup", "AnnounceDelay", "1e999"},
      {"Startup", "AnnounceActivity", " 1"},
      {"SETTINGS", "DFormat", "70000"},
      {"Settings", "Latitude", "1e39"},
      {"Settings", "Longitude", " 75.5abc"},
      {"Settings", "ReportIncludeHA", "1.2"},
      {"Settings", "ReportIoOnly", "1.2"},
      {"Settings", "ReportJupAltMin", " 15x"},
      {"Settings", "ReportHeader", "0"},
      {"Settings", "ReportMinDuration", "30 "},
      {"Settings", "Ephemeris", "precise"},
      {"SETTINGS", "RunJIS", "1"},
      {"Settings", "PushJIS", "-1"},
      {"Settings", "JISIP", "::1"},
      {"Settings", "JISPort", "70000"},
      {"Settings", "JISMin", "2.5"},
  };
  for (const auto& s : stored) store.SaveSetting(kApp, s.section, s.key, s.text);
  const StartupSettings startup = ReadStartupSettings(store, kApp);
  EXPECT_EQ(startup.UseGMT, 0);
  EXPECT_EQ(startup.AnnounceDelay, 0);     // beyond the 64-bit range
  EXPECT_EQ(startup.AnnounceActivity, 0);  // only "1" itself turns the alert on
  const ProgramSettings settings = ReadProgramSettings(store, kApp);
  EXPECT_EQ(settings.DFormat, 0);   // beyond 16 bits
  EXPECT_EQ(settings.Latitude, 0);  // beyond 32 bits
  EXPECT_EQ(settings.Longitude, 75.5f);
  EXPECT_EQ(settings.report.ReportIncludeHA, 0);  // read as exactly 1 or not
  EXPECT_EQ(settings.report.ReportIoOnly, 1);     // a check box: rounded
  EXPECT_EQ(settings.report.ReportJupAltMin, " 15x");
  EXPECT_EQ(settings.report.ReportHeader, 0);
  EXPECT_EQ(settings.report.ReportMinDuration, "30 ");
  EXPECT_EQ(settings.Ephemeris,
            PreciseEphemerisBuilt() ? EphemerisModel::Precise : EphemerisModel::Classic);
  EXPECT_EQ(settings.jis.RunJIS, 1);
  EXPECT_EQ(settings.jis.PushJIS, -1);
  EXPECT_EQ(settings.jis.JISIP, "::1");
  EXPECT_EQ(settings.jis.JISPort, 0);  // beyond 16 bits
  EXPECT_EQ(settings.jis.JISPortText, "70000");
  EXPECT_EQ(settings.jis.JISMin, 2);  // halves to even
}

TEST(SettingsSections, EachWriterStoresItsKey) {
  MemorySettings store;
  SaveLatitude(store, kApp, 41.5f);
  SaveLongitude(store, kApp, -75.25f);
  SaveAnnounceDelay(store, kApp, "5 ");
  SaveSpeechRate(store, kApp, "-3");
  SaveVoiceType(store, kApp, "1");
  SaveReportLimits(store, kApp, 15, -5);
  SaveReportOptions(store, kApp, "30", 1, 0, 1, 0);
  EXPECT_EQ(store.writes,
            (std::vector<std::string>{
                "Settings/Latitude= 41.5", "Settings/Longitude=-75.25", "Startup/AnnounceDelay=5 ",
                "Startup/SpeechRate=-3", "Startup/VoiceType=1", "Settings/ReportJupAltMin= 15",
                "settings/ReportSunAltMax=-5", "Settings/ReportMinDuration=30",
                "Settings/ReportHeader= 1", "Settings/ReportIncludeHA= 0",
                "Settings/ReportIoOnly= 1", "Settings/ReportNoNONE= 0"}));
  // What is written is what the next start reads.
  EXPECT_EQ(ReadProgramSettings(store, kApp).Latitude, 41.5f);
  EXPECT_EQ(ReadProgramSettings(store, kApp).report.ReportSunAltMax, "-5");
  EXPECT_EQ(ReadStartupSettings(store, kApp).AnnounceDelay, 5);
}

TEST(SettingsSections, ALimitReadBackThroughItsSevenDigits) {
  EXPECT_EQ(StoredLimit(15), 15);
  EXPECT_EQ(StoredLimit(-0.5f), -0.5f);
  EXPECT_EQ(StoredLimit(15.000001f), 15);  // the text " 15" leaves the extra bit behind
  EXPECT_EQ(StoredLimit(1.2345678f), 1.234568f);
}

}  // namespace
}  // namespace quillmere
