#pragma once
// The search of one UT day as a pure function: the observer, the day, the regions and the limits
// in; the minute tables, the marks and the events out. Every front end (the prediction window,
// the report, the companion tool's forecast, calendars) reads its day from here.

#include <vector>

#include "ephemeris/ephemeris.h"
#include "stormmodel/activity.h"
#include "stormmodel/mode_table.h"

namespace quillmere {

// One run of marked minutes of a mode, as the grid shows it: `begin` and `end` are minutes of
// the UT day (0 is 00:00, 1439 is 23:59), and the run covers the table rows begin + 1 to end,
// so it lasts end - begin minutes and the first minute after it is table row end + 1.
struct DayEvent {
  int mode = 0;  // 1 to 6
  int begin = 0;
  int end = 0;
};

// Every event of `mode` in the marks, in the order of the day.
std::vector<DayEvent> ModeEvents(const ActivityTable& marks, int mode);

struct DayPrediction {
  MinuteTables Minutes;
  ActivityTable DayActivity;
  std::vector<DayEvent> events;  // by mode, then by time
};

// The day named by the whole days of `day` for the observer (ObsLat degrees north, ObsLong
// degrees west, 32-bit as stored). Works on `s` as the window's search does: T comes back as it
// was, and the fields that a day's tables move keep their new values for whoever reads them next.
DayPrediction SearchDay(EphemerisState& s, double day, float ObsLat, float ObsLong,
                        const ModeTable& modes, const SearchLimits& limits);

// The same on a state of its own, so no caller's instant moves.
DayPrediction PredictDay(double day, float ObsLat, float ObsLong, const ModeTable& modes,
                         const SearchLimits& limits,
                         EphemerisModel model = EphemerisModel::Classic);

}  // namespace quillmere
