#pragma once
// The program-wide values every part of the program reads: the observer, the clock and its
// modes, file names and version texts, and the state of the command line. One instance lives in
// the main window.

#include <cstdint>
#include <string>
#include <vector>

namespace quillmere {

struct ProgramState {
  // Observer and clock.
  float ObsLat = 0;         // degrees, north positive
  float ObsLong = 0;        // degrees, west positive
  std::string DisplayWest;  // "W": longitudes shown west; anything else: east
  double DetectedTZ = 0;    // local time minus UT at start, hours, east positive
  double TimeZone = 0;      // as the program uses it; TZ changes it for this run only
  int16_t UseGMT = 0;       // boxes and rise and set show UT
  int16_t RealTime = -1;    // time mode
  int16_t DFormat = 0;      // 0 year month day, 1 month day year, 2 day month year

  // Files and version.
  std::string AppTitle;
  std::string ModeFileName;
  std::string VersionText;
  std::string VersionBanner;

  // Timed summaries.
  double AnnounceDelay = 0;  // minutes; 0: none
  int16_t AnnounceSun = 0;
  int16_t AnnounceJupiter = 0;
  // The storm alert said aloud when the modes in force change ([Startup] AnnounceActivity=1).
  int16_t AnnounceActivity = 0;

  // The tick's private marks. Empty compares as 0.
  int LastMinute = 0;
  double LastAnnounce = 0;  // local clock of the last timed summary
  double LastJISSend = 0;

  int16_t ProgramClosing = 0;

  // The command line.
  std::string PendingCommand;
  int16_t PredictMode = 0;
  int16_t IORelatedOnly = 0;   // a spoken prediction reads only the modes named "IO"
  double PredictDuration = 0;  // days that R reads; raised to 1 before each command

  // The voices installed, in the engine's order.
  std::vector<std::string> VoiceNames;

  // Copies taken for fixed time; the display reads these while RealTime is false.
  double FixedT = 0;
  float FixedLMST = 0;
  double FixedJupAlt = 0, FixedJupAz = 0, FixedSunAlt = 0, FixedSunAz = 0;
  double FixedJupRA = 0, FixedJupDec = 0, FixedSunRA = 0, FixedSunDec = 0;
  double FixedSunRise = 0, FixedSunSet = 0, FixedJupRise = 0, FixedJupSet = 0;
  float FixedCML3 = 0, FixedIoPhase = 0;
};

}  // namespace quillmere
