#include "stormmodel/prediction.h"

#include <limits>

#include "stormmodel/day_search.h"
#include "stormmodel/settings_sections.h"
#include "textutil/date_time.h"
#include "textutil/number_text.h"

namespace quillmere {
std::string MinutesToClock(int minutes) {
  auto two = [](int n) {
    std::string t = std::to_string(n);
    return t.size() < 2 ? "0" + t : t;
  };
  return two(minutes / 60) + ":" + two(minutes % 60);
}

std::string PlainNumber(float value) {
  const std::string t = NumberText(value);
  return t[0] == ' ' ? t.substr(1) : t;
}

std::optional<int16_t> BoxInt16(const std::string& text) {
  const double v = RoundHalfEven(Val(text));
  if (!(v >= -32768 && v <= 32767)) return std::nullopt;
  return static_cast<int16_t>(v);
}

float SingleOf(double value) {
  constexpr double kMax = std::numeric_limits<float>::max();
  if (value > kMax) return std::numeric_limits<float>::infinity();
  if (value < -kMax) return -std::numeric_limits<float>::infinity();
  return static_cast<float>(value);
}

void PredictionWindow::Form_Load(bool RealTime, double FixedT) {
  const ReportSettings stored = ReadProgramSettings(settings_, program_.AppTitle).report;
  storm_.ReportIncludeHA = stored.ReportIncludeHA;
  SaveT(s_);
  PredictTime = RealTime ? s_.T : FixedT;
  WriteDateBoxes();
  txtJupAltMin = stored.ReportJupAltMin;
  txtSunAltMax = stored.ReportSunAltMax;
  DoPredictions();
}

void PredictionWindow::WriteDateBoxes() {
  const auto f = SplitDateTime(PredictTime);
  if (!f) return;
  txtYear = NumberText(f->year);
  txtMonth = NumberText(f->month);
  txtDay = NumberText(f->day);
}

void PredictionWindow::DoPredictions() {
  const auto f = SplitDateTime(PredictTime);
  if (!f) {
    ui_.ShowMessage(kDateOutOfRange);
    return;
  }
  if (f->year < 1900) {
    ui_.ShowMessage(kDatesPrior1900);
    return;
  }
  storm_.JupAltMin = SingleOf(Val(txtJupAltMin));
  storm_.SunAltMax = SingleOf(Val(txtSunAltMax));
  SaveReportLimits(settings_, program_.AppTitle, storm_.JupAltMin, storm_.SunAltMax);

  // The one place where the window's search moves the program's own state: T comes back as it
  // was, and the fields that the day's tables moved stay moved for whoever reads them next (the
  // info server, in fixed time).
  DayPrediction day =
      SearchDay(s_, PredictTime, program_.ObsLat, program_.ObsLong, storm_.Modes, Limits());
  storm_.Minutes = day.Minutes;
  storm_.DayActivity = day.DayActivity;
  Grid1 = GridOf(storm_.Modes, storm_.DayActivity);
  for (int m = 1; m < Grid1.Rows(); ++m) LBLMode[m - 1] = Grid1.TextMatrix(m, 0);
  HourBar();
  ui_.DayPredicted();
}

SearchLimits PredictionWindow::Limits() const {
  // Only a report drops the short runs, so the window's own day is never shortened.
  const float minDuration = ReportRunning ? storm_.ReportMinDuration : 0;
  return {storm_.JupAltMin, storm_.SunAltMax, minDuration};
}

PredictionGrid GridOf(const ModeTable& modes, const ActivityTable& marks) {
  PredictionGrid grid;
  const int count = UsableModes(modes);
  grid.cells.assign(count + 1, {});
  grid.cells[0] = {"", "Begin", " End", "Begin", " End", "Begin", " End"};
  for (int m = 1; m <= count; ++m) {
    auto& row = grid.cells[m];
    row[0] = modes.ModeName[m];
    const std::vector<DayEvent> events = ModeEvents(marks, m);
    if (events.empty()) row[1] = "NONE";
    // The grid has room for three events of a mode.
    for (size_t e = 0; e < events.size() && e < 3; ++e) {
      row[1 + 2 * e] = MinutesToClock(events[e].begin);
      row[2 + 2 * e] = MinutesToClock(events[e].end);
    }
  }
  return grid;
}

// The chart's bands are the window's; what stays here is that the limit boxes show the saved
// numbers in their plain form after each search, as read back from the store.
void PredictionWindow::HourBar() {
  storm_.SunAltMax = StoredLimit(storm_.SunAltMax);
  txtSunAltMax = PlainNumber(storm_.SunAltMax);
  storm_.JupAltMin = StoredLimit(storm_.JupAltMin);
  txtJupAltMin = PlainNumber(storm_.JupAltMin);
}

BoxesDate ReadDateBoxes(const std::string& year, const std::string& month, const std::string& day) {
  const auto y = BoxInt16(year), m = BoxInt16(month), d = BoxInt16(day);
  if (!y || !m || !d) return {};
  return {true, *y, DateSerial(*y, *m, *d)};
}

bool PredictionWindow::ChkValidDate() {
  const BoxesDate boxes = ReadDateBoxes(txtYear, txtMonth, txtDay);
  if (boxes.numbers && boxes.year < 1900) {
    ui_.ShowMessage(kDatesPrior1900);
    return false;
  }
  if (!boxes.date) {
    ui_.ShowMessage(kDateOutOfRange);
    return false;
  }
  PredictTime = *boxes.date;
  return true;
}

void PredictionWindow::CmdPredict_Click() {
  if (!ChkValidDate()) return;
  DoPredictions();
  // The search just made used the numbers as typed; the bounds act from the next one on.
  for (std::string* box : {&txtJupAltMin, &txtSunAltMax}) {
    const double v = Val(*box);
    if (v < -90) *box = "-90";
    if (v > 90) *box = "90";
  }
}

void PredictionWindow::MoveDay(double days) {
  ChkValidDate();  // on a bad date the step is made from the day that stood
  PredictTime += days;
  WriteDateBoxes();
  DoPredictions();
}

void PredictionWindow::CmdNextDay_Click() {
  MoveDay(1);
}
void PredictionWindow::CmdPrevious_Click() {
  MoveDay(-1);
}

void PredictionWindow::cmdNow_Click(double presentUT) {
  PredictTime = presentUT;
  WriteDateBoxes();
  CmdPredict_Click();
}

}  // namespace quillmere
