#include "stormmodel/day_search.h"

namespace quillmere {

std::vector<DayEvent> ModeEvents(const ActivityTable& marks, int mode) {
  std::vector<DayEvent> events;
  int p = 0;
  for (;;) {
    while (p < kDayMinutes && marks(mode, p) != 1) ++p;
    if (p >= kDayMinutes) break;
    DayEvent e{mode, p - 1, 0};
    while (p < kDayMinutes && marks(mode, p) >= 1) ++p;
    e.end = p - 1;
    events.push_back(e);
    if (p >= kDayMinutes) break;
  }
  return events;
}

DayPrediction SearchDay(EphemerisState& s, double day, float ObsLat, float ObsLong,
                        const ModeTable& modes, const SearchLimits& limits) {
  DayPrediction d;
  SaveT(s);
  FillMinuteTables(s, d.Minutes, day, ObsLat, ObsLong);
  MarkDay(modes, d.Minutes, limits, d.DayActivity);
  for (int m = 1; m <= UsableModes(modes); ++m) {
    const std::vector<DayEvent> events = ModeEvents(d.DayActivity, m);
    d.events.insert(d.events.end(), events.begin(), events.end());
  }
  RestoreT(s);
  return d;
}

DayPrediction PredictDay(double day, float ObsLat, float ObsLong, const ModeTable& modes,
                         const SearchLimits& limits, EphemerisModel model) {
  EphemerisState s;
  s.model = model;
  s.T = day;
  return SearchDay(s, day, ObsLat, ObsLong, modes, limits);
}

}  // namespace quillmere
