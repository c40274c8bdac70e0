#pragma once
// The activity rule: whether a minute of a day lies inside a source region, and the marks of
// every minute of a day for every mode.

#include <array>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>

#include "ephemeris/ephemeris.h"
#include "stormmodel/mode_table.h"

namespace quillmere {

inline constexpr int kDayMinutes = 1440;

// Marks by mode 1 to 6 and minute 0 to 1440 of the day, the mode index running fastest.
// 1: inside the region; 0: outside; -1 (searches only): inside, but an altitude limit excludes
// the minute.
struct ActivityTable {
  std::array<int16_t, kActivityModes * kMinuteRows> marks{};

  int16_t& operator()(int mode, int minute) { return marks[minute * kActivityModes + mode - 1]; }
  int16_t operator()(int mode, int minute) const {
    return marks[minute * kActivityModes + mode - 1];
  }
};

// The rule for one mode at whole-degree CML and Io phase: 1 inside, 0 outside. The limits are
// widened by half a minute's motion of each angle, so a run of minutes cannot step over a
// region's edge.
int16_t ModeMark(const std::array<int16_t, 5>& limits, int16_t cml, int16_t io);

// What a search leaves out: minutes with Jupiter below JupAltMin or the Sun above SunAltMax
// (degrees, whole-degree tables compared inclusively), and runs shorter than MinDuration minutes
// (dropped only when MinDuration > 0).
struct SearchLimits {
  float JupAltMin = -std::numeric_limits<float>::infinity();
  float SunAltMax = std::numeric_limits<float>::infinity();
  float MinDuration = 0;
};

// The marks of minutes 1 to 1440 for the usable modes: 1 inside a region, -1 inside but
// excluded by an altitude limit, 0 outside or in a run too short to keep.
void MarkDay(const ModeTable& modes, const MinuteTables& tables, const SearchLimits& limits,
             ActivityTable& marks);

// DayActivity for the usable modes from the minute tables as they stand, with no limits.
void MarkDayActivity(const ModeTable& modes, const MinuteTables& tables,
                     ActivityTable& DayActivity);

// The marks of the present UT day. Leaves T as it found it.
struct TodayActivityState {
  ActivityTable TodayActivity{};
  std::optional<int> ActivityDay;  // day of the month that TodayActivity holds
};
void ComputeTodayActivity(EphemerisState& s, double presentUT, float ObsLat, float ObsLong,
                          const ModeTable& modes, MinuteTables& tables, ActivityTable& DayActivity,
                          TodayActivityState& today);

// Looks up the minute of T in TodayActivity. `alertstr` comes in empty and goes out with the
// names of the modes in force, the last one first, each followed by three blanks.
void CheckForActivity(double T, const ModeTable& modes, const ActivityTable& TodayActivity,
                      int16_t& alrt, std::string& alertstr);

}  // namespace quillmere
