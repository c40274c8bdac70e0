#include "stormmodel/activity.h"

#include "textutil/date_time.h"

namespace quillmere {
namespace {

// Half the motion of Io's phase and of the central meridian in one minute of the tables.
constexpr double kHalfIoStep = 0.07066139061616733;
constexpr double kHalfCmlStep = 0.30226945588093584;

}  // namespace

int16_t ModeMark(const std::array<int16_t, 5>& limits, int16_t cml, int16_t io) {
  const double CL = limits[1], CH = limits[2], IL = limits[3], IH = limits[4];
  const double c = cml, o = io;
  if (IL - kHalfIoStep > o || IH + kHalfIoStep < o) return 0;  // the Io range never wraps
  const double U = CH >= CL ? CH : 360;
  int16_t mark = CL - kHalfCmlStep <= c && c <= U + kHalfCmlStep ? 1 : 0;
  if (CH < CL && c <= CH + kHalfCmlStep) mark = 1;  // the part past 0 of a wrapping region
  return mark;
}

void MarkDay(const ModeTable& modes, const MinuteTables& tables, const SearchLimits& limits,
             ActivityTable& marks) {
  const int count = UsableModes(modes);
  for (int i = 1; i <= kDayMinutes; ++i) {
    for (int m = 1; m <= count; ++m) {
      int16_t mark = ModeMark(modes.ModeLimits[m], tables.MinuteCML[i], tables.MinuteIo[i]);
      const bool A = tables.MinuteJupAlt[i] >= limits.JupAltMin;
      const bool B = tables.MinuteSunAlt[i] <= limits.SunAltMax;
      if (mark == 1 && !(A && B)) mark = -1;
      marks(m, i) = mark;
    }
  }

  if (!(limits.MinDuration > 0)) return;
  for (int m = 1; m <= count; ++m) {
    int i = 0;
    do {
      ++i;
      if (marks(m, i) == 1) {
        int j = i;
        while (j < kDayMinutes && marks(m, j) == 1) ++j;
        if (j - i < limits.MinDuration)
          for (int k = i; k < j; ++k) marks(m, k) = 0;
        i = j;
      }
    } while (i < kDayMinutes);
  }
}

void MarkDayActivity(const ModeTable& modes, const MinuteTables& tables,
                     ActivityTable& DayActivity) {
  MarkDay(modes, tables, SearchLimits{}, DayActivity);
}

void ComputeTodayActivity(EphemerisState& s, double presentUT, float ObsLat, float ObsLong,
                          const ModeTable& modes, MinuteTables& tables, ActivityTable& DayActivity,
                          TodayActivityState& today) {
  s.T = presentUT;
  SaveT(s);
  FillMinuteTables(s, tables, s.T, ObsLat, ObsLong);
  MarkDayActivity(modes, tables, DayActivity);
  const int count = UsableModes(modes);
  for (int m = 1; m <= count; ++m)
    for (int i = 1; i <= kDayMinutes; ++i) today.TodayActivity(m, i) = DayActivity(m, i);
  if (const auto f = SplitDateTime(s.T)) today.ActivityDay = f->day;
}

void CheckForActivity(double T, const ModeTable& modes, const ActivityTable& TodayActivity,
                      int16_t& alrt, std::string& alertstr) {
  alrt = 0;
  const auto f = SplitDateTime(T);
  if (!f) return;
  const int r = 60 * f->hour + f->minute + 1;
  const int count = UsableModes(modes);
  for (int m = 1; m <= count; ++m) {
    if (TodayActivity(m, r) == 1) {
      alrt = -1;
      alertstr = modes.ModeName[m] + "   " + alertstr;
    }
  }
}

}  // namespace quillmere
