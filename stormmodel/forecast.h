#pragma once
// The events of a period, day after day from the same search as the report (same marks, limits
// and minimum duration), with what a calendar or a plan for the night needs of each.

#include <cstdint>
#include <string>
#include <vector>

#include "stormmodel/day_search.h"

namespace quillmere {

// The longest period a forecast covers: a hundred years of days.
inline constexpr int kForecastMaxDays = 36525;

struct ForecastEvent {
  double day = 0;  // the UT day (whole days of the date-time value)
  int mode = 0;
  std::string name;
  bool ioRelated = false;  // the region depends on Io: its name holds "Io", as the report reads it
  int begin = 0;           // minutes of the UT day, as the grid shows them
  int end = 0;
  // Whole degrees from the minute tables, at the first minute of the event and at the first
  // minute after it.
  int16_t JupAltBegin = 0, JupAltEnd = 0;
  int16_t SunAltBegin = 0, SunAltEnd = 0;

  double Begin() const { return day + begin / 1440.0; }
  double End() const { return day + end / 1440.0; }
  int Minutes() const { return end - begin; }
};

struct ForecastRequest {
  double start = 0;  // the first UT day
  int days = 1;
  float ObsLat = 0;   // degrees north
  float ObsLong = 0;  // degrees west
  SearchLimits limits;
  EphemerisModel model = EphemerisModel::Classic;
};

// Every event of the days start to start + days - 1, by day, then by mode, then by time.
// One ephemeris state runs through the period, as it does through a report.
std::vector<ForecastEvent> Forecast(const ModeTable& modes, const ForecastRequest& request);

}  // namespace quillmere
