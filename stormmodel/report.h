#pragma once
// The report file's text, shared by the prediction window's report and the companion tool: the
// header, one block per day made from the day's grid, and the file that takes them.

#include <cstdint>
#include <cstdio>
#include <functional>
#include <string>

#include "ephemeris/ephemeris_state.h"
#include "stormmodel/mode_table.h"
#include "stormmodel/prediction.h"

namespace quillmere {

// What the header says. The limits are the texts of the window's limit boxes.
struct ReportHeading {
  double start = 0, end = 0;  // the period as chosen, UT
  int16_t DFormat = 0;
  std::string referenceCoordinates;  // ReferenceCoordinates of the observer
  std::string JupAltMin, SunAltMax;
  float MinDuration = 0;
  std::string VersionText;
  EphemerisModel model = EphemerisModel::Classic;
};

// The header with its empty line after it. Each date is formatted by FormatDate, so an unknown
// date order keeps the DateOrderText it found.
std::string ReportHeader(const ReportHeading& heading, std::string& DateOrderText);

// What the rows of a day hold (16-bit flags, 0 false).
struct ReportChoices {
  int16_t IncludeHA = 0;  // each row of times gets a row of Jupiter's hour angles
  int16_t IoOnly = 0;     // only the modes whose names hold "Io"
  int16_t NoNONE = 0;     // the rows that say NONE are left out
};

// The block of one day: its date, the header row and the mode rows 1 to `rows` of the grid, the
// hour angles from `minutes`. `afterRow` runs after each row is composed (the window yields
// there). The block is written only when it holds a time (a ":").
std::string ReportDay(double day, const PredictionGrid& grid, int rows, const MinuteTables& minutes,
                      const ReportChoices& choices, const std::function<void()>& afterRow = {});

inline constexpr char kEndOfReport[] = "End of Report\r\n\r\n";

// A report file written whole or not at all, with the errno of the first failure.
class ReportFile {
 public:
  explicit ReportFile(const std::string& path);
  ~ReportFile() { Close(); }
  ReportFile(const ReportFile&) = delete;
  ReportFile& operator=(const ReportFile&) = delete;

  bool Write(const std::string& text);
  bool Close();
  int error() const { return error_; }

 private:
  std::FILE* f_;
  int error_ = 0;
};

// A report without a window: the typed report's file, header included.
struct ReportRequest {
  double start = 0, end = 0;  // the first UT day; a day is written while it is not after `end`
  float ObsLat = 0, ObsLong = 0;
  std::string DisplayWest = "W";
  int16_t DFormat = 0;
  // The limits as the window's boxes hold them after a search (see StoredLimit).
  float JupAltMin = 0, SunAltMax = 0;
  float MinDuration = 0;
  ReportChoices choices;
  std::string VersionText;
  EphemerisModel model = EphemerisModel::Classic;
};

struct ReportOutcome {
  std::string file;   // the name, as ReportFileName gives it
  std::string error;  // why the file is not whole, in the window's words; empty when it is
};

// What the user hears when the file cannot be written: "There was an error trying to save "...
std::string ReportSaveError(const std::string& file, int error);

// Writes the report into `directory`, day by day on one ephemeris state, as the window does.
ReportOutcome WriteReport(const ModeTable& modes, const ReportRequest& request,
                          const std::string& directory);

}  // namespace quillmere
