#pragma once
// The program's settings as typed records, one per section of the store, with the one reading of
// each section and the one writer of each key. No other code names a key.
//
// Every value is stored as text. Numbers are read with Val and rounded into their field; a number
// the field cannot hold reads as 0. Unless a writer says otherwise a number is written as number
// text (" 15", "-5").

#include <cstdint>
#include <string>

#include "ephemeris/ephemeris_state.h"
#include "stormmodel/settings_store.h"

namespace quillmere {

// [Startup]: how the program starts and speaks.
struct StartupSettings {
  std::string ModeFileName;
  int16_t UseGMT = -1;            // "True" / "False" or a number; else false
  std::string DisplayWest = "W";  // "W": longitudes shown west; anything else: east
  double AnnounceDelay = 0;       // minutes between timed summaries; 0: none
  int16_t AnnounceActivity = 0;   // "1": the storm alert is said aloud
  std::string SpeechEngine;       // the engine to try first; empty: the best that works
  // SpeechRate and VoiceType record the last choice and are never read back.
};

// `defaultModeFile` stands when no mode file is stored.
StartupSettings ReadStartupSettings(const SettingsStore& store, const std::string& AppTitle,
                                    const std::string& defaultModeFile = "");

// The AD, VR and VT commands store the number as the user typed it.
void SaveAnnounceDelay(SettingsStore& store, const std::string& AppTitle, const std::string& typed);
void SaveSpeechRate(SettingsStore& store, const std::string& AppTitle, const std::string& typed);
void SaveVoiceType(SettingsStore& store, const std::string& AppTitle, const std::string& typed);

// The JIS service's part of [Settings].
struct JISSettings {
  int16_t RunJIS = 0;               // not 0: the service starts with the program
  int16_t PushJIS = 0;              // not 0: the tick pushes records
  std::string JISIP = "127.0.0.1";  // the one local address listened on
  int16_t JISPort = 4711;
  int16_t JISMin = 10;  // push period, minutes
  // The texts as stored, to name the one at fault when the service cannot use it.
  std::string RunJISText = "0", PushJISText = "0", JISPortText = "4711", JISMinText = "10";
};

// The report's part of [Settings]: the prediction window's limits and the report options.
struct ReportSettings {
  // The limit boxes show the stored texts as they are until the first search rewrites them.
  std::string ReportJupAltMin = "0";  // degrees
  std::string ReportSunAltMax = "0";  // degrees
  int16_t ReportIncludeHA = 0;        // -1 when the stored number is 1
  // The option dialog's check boxes: the stored number rounded into 16 bits (1 ticked).
  int16_t ReportIoOnly = 0, ReportNoNONE = 0, ReportHeader = 1;
  std::string ReportMinDuration = "0";  // minutes, as the dialog's box shows it
};

// [Settings]: the observer, the date order, the ephemeris, the info server and the report.
struct ProgramSettings {
  int16_t DFormat = 0;  // 0 year month day, 1 month day year, 2 day month year
  float Latitude = 0;   // degrees north
  float Longitude = 0;  // degrees west
  EphemerisModel Ephemeris = EphemerisModel::Classic;
  JISSettings jis;
  ReportSettings report;
};

ProgramSettings ReadProgramSettings(const SettingsStore& store, const std::string& AppTitle);

// The LAT and LNG commands.
void SaveLatitude(SettingsStore& store, const std::string& AppTitle, float ObsLat);
void SaveLongitude(SettingsStore& store, const std::string& AppTitle, float ObsLong);
// Each search of the prediction window stores the limits it used.
void SaveReportLimits(SettingsStore& store, const std::string& AppTitle, float JupAltMin,
                      float SunAltMax);
// A limit as the search reads it back from the store: the number text of the 32-bit value, read
// again into 32 bits.
float StoredLimit(float value);
// The report options dialog: the minimum duration as typed and the four check boxes (0 or 1).
void SaveReportOptions(SettingsStore& store, const std::string& AppTitle,
                       const std::string& MinDuration, int16_t Header, int16_t IncludeHA,
                       int16_t IoOnly, int16_t NoNONE);

}  // namespace quillmere
