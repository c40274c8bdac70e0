#pragma once
// The prediction search of one day and the window's plain data: the date and limit boxes as
// text, the grid of Begin and End times, the report that steps through the days.

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "ephemeris/ephemeris.h"
#include "stormmodel/activity.h"
#include "stormmodel/mode_table.h"
#include "stormmodel/settings_store.h"
#include "stormmodel/storm_ui.h"

namespace quillmere {

inline constexpr int kGridColumns = 7;

// Minutes since midnight as "hh:nn": 0 gives "00:00", 1439 "23:59".
std::string MinutesToClock(int minutes);

// The grid of a day's predictions: row 0 the header, row m mode m; column 0 the mode's name,
// then up to three Begin and End pairs.
struct PredictionGrid {
  std::vector<std::array<std::string, kGridColumns>> cells =
      std::vector<std::array<std::string, kGridColumns>>(7);

  int Rows() const { return static_cast<int>(cells.size()); }
  const std::string& TextMatrix(int row, int col) const { return cells[row][col]; }
};

// The grid of a day's marks: up to three runs of each usable mode, "NONE" for a mode without one.
PredictionGrid GridOf(const ModeTable& modes, const ActivityTable& marks);

// The main window's values that the storm model reads.
struct ProgramValues {
  std::string AppTitle = "Quillmere Speaking Edition";
  std::string VersionText = "1.0.1";
  float ObsLat = 0;
  float ObsLong = 0;  // west positive
  std::string DisplayWest = "W";
  int16_t DFormat = 0;
};

// The storm model's program-wide values.
struct StormValues {
  ModeTable Modes;
  MinuteTables Minutes;
  ActivityTable DayActivity;
  float JupAltMin = 0;
  float SunAltMax = 0;
  float ReportMinDuration = 0;
  double ReportStart = 0;
  double ReportEnd = 0;
  int16_t ReportIncludeHA = 0;
  int16_t ReportIoOnly = 0;
  int16_t ReportNoNONE = 0;
  int16_t ReportHeader = 0;
  std::string DateOrderText;
};

// Shown when a date box or PredictTime names a day before 1900.
inline constexpr char kDatesPrior1900[] = "Dates Prior to 1900 are not permitted.";
// Shown when a date box holds a number past 16 bits or the date falls after the year 9999.
inline constexpr char kDateOutOfRange[] = "Date Out of Range.";

// The prediction window without its widgets. Handlers carry the window's names.
class PredictionWindow {
 public:
  PredictionWindow(EphemerisState& s, StormValues& storm, const ProgramValues& program,
                   SettingsStore& settings, StormUi& ui)
      : s_(s), storm_(storm), program_(program), settings_(settings), ui_(ui) {}

  double PredictTime = 0;
  std::string FFF;
  bool CancelReport = false;
  int16_t ReportRunning = 0;
  bool CmdCancelReportVisible = false;
  std::string txtYear, txtMonth, txtDay;
  std::string txtJupAltMin, txtSunAltMax;
  std::array<std::string, kActivityModes> LBLMode{};  // captions of the chart's key
  PredictionGrid Grid1;

  // The load's steps that are no widget work; the search of the day at the end.
  void Form_Load(bool RealTime, double FixedT);
  void DoPredictions();
  // What the searches leave out: the limits as the last search read them from the boxes, and
  // the minimum duration while a report runs.
  SearchLimits Limits() const;
  bool ChkValidDate();
  void CmdPredict_Click();
  void CmdNextDay_Click();
  void CmdPrevious_Click();
  void cmdNow_Click(double presentUT);

  // The two roads of the report; the file goes into `directory`.
  void CmdReport_Click(const std::string& directory);
  void DoReport(const std::string& directory);

 private:
  void WriteDateBoxes();
  void HourBar();
  void MoveDay(double days);
  void Report(bool typed, const std::string& directory);

  EphemerisState& s_;
  StormValues& storm_;
  const ProgramValues& program_;
  SettingsStore& settings_;
  StormUi& ui_;
};

// The prediction window as the command line drives it, with its widgets or without.
class PredictionSession {
 public:
  virtual ~PredictionSession() = default;
  virtual PredictionWindow& core() = 0;
  virtual void CmdPredict_Click() = 0;
  virtual void CmdNextDay_Click() = 0;
  // The report without its options dialog.
  virtual void DoReport() = 0;
  // Shows the boxes, grid and chart again after the core was changed directly.
  virtual void Refresh() = 0;
};

// The date of a value by the order of DFormat ("YYYY/MM/DD"); sets DateOrderText. An unknown
// order gives empty text and leaves DateOrderText alone.
std::string FormatDate(double value, int16_t DFormat, std::string& DateOrderText);

// The line of the observer's place that the report header and the printed page share.
std::string ReferenceCoordinates(const ProgramValues& program);

// The report's file name for its first day: "20060705JP.TXT".
std::string ReportFileName(double ReportStart);

// Number text without its leading blank ("15", "-5"), as the boxes show numbers.
std::string PlainNumber(float value);

// Val of a box, rounded into 16 bits; nothing when it does not fit.
std::optional<int16_t> BoxInt16(const std::string& text);

// The date in three date boxes, each read as Val rounded into 16 bits; a month or day beyond its
// range rolls over.
struct BoxesDate {
  bool numbers = false;  // every box fits 16 bits
  int16_t year = 0;
  std::optional<double> date;  // nothing when a box does not fit or the date is past the calendar
};
BoxesDate ReadDateBoxes(const std::string& year, const std::string& month, const std::string& day);

// A 64-bit value stored into a 32-bit field; beyond the float range it becomes an infinity.
float SingleOf(double value);

}  // namespace quillmere
