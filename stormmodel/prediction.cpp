#include "stormmodel/prediction.h"

#include <limits>

#include "stormmodel/day_search.h"
#include "textutil/date_time.h"
#include "textutil/number_text.h"

namespace quillmere {
namespace {

const char* const kSettings = "Settings";

}  // namespace

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
  storm_.ReportIncludeHA =
      Val(settings_.GetSetting(program_.AppTitle, kSettings, "ReportIncludeHA", "0")) == 1 ? -1 : 0;
  SaveT(s_);
  PredictTime = RealTime ? s_.T : FixedT;
  WriteDateBoxes();
  txtJupAltMin = settings_.GetSetting(program_.AppTitle, kSettings, "ReportJupAltMin", "0");
  txtSunAltMax = settings_.GetSetting(program_.AppTitle, kSettings, "ReportSunAltMax", "0");
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
  SaveT(s_);
  storm_.DayActivity = ActivityTable{};
  FillMinuteTables(s_, storm_.Minutes, PredictTime, program_.ObsLat, program_.ObsLong);

  storm_.JupAltMin = SingleOf(Val(txtJupAltMin));
  storm_.SunAltMax = SingleOf(Val(txtSunAltMax));
  settings_.SaveSetting(program_.AppTitle, "Settings", "ReportJupAltMin",
                        NumberText(storm_.JupAltMin));
  settings_.SaveSetting(program_.AppTitle, "settings", "ReportSunAltMax",
                        NumberText(storm_.SunAltMax));

  ComputeReportEvents();
  FillGrid();
  HourBar();
  ui_.DayPredicted();
  RestoreT(s_);
}

void PredictionWindow::ComputeReportEvents() {
  // Only a report drops the short runs, so the window's own day is never shortened.
  const float minDuration = ReportRunning ? storm_.ReportMinDuration : 0;
  MarkDay(storm_.Modes, storm_.Minutes, {storm_.JupAltMin, storm_.SunAltMax, minDuration},
          storm_.DayActivity);
}

void PredictionWindow::FillGrid() {
  const int count = UsableModes(storm_.Modes);
  Grid1.cells.assign(count + 1, {});
  Grid1.cells[0] = {"", "Begin", " End", "Begin", " End", "Begin", " End"};
  for (int m = 1; m <= count; ++m) {
    auto& row = Grid1.cells[m];
    row[0] = storm_.Modes.ModeName[m];
    LBLMode[m - 1] = storm_.Modes.ModeName[m];
    const std::vector<DayEvent> events = ModeEvents(storm_.DayActivity, m);
    if (events.empty()) row[1] = "NONE";
    // The grid has room for three events of a mode.
    for (size_t e = 0; e < events.size() && e < 3; ++e) {
      row[1 + 2 * e] = MinutesToClock(events[e].begin);
      row[2 + 2 * e] = MinutesToClock(events[e].end);
    }
  }
}

// The chart's bands are the window's; what stays here is that the limit boxes show the saved
// numbers in their plain form after each search.
void PredictionWindow::HourBar() {
  storm_.SunAltMax =
      SingleOf(Val(settings_.GetSetting(program_.AppTitle, kSettings, "ReportSunAltMax", "0")));
  txtSunAltMax = PlainNumber(storm_.SunAltMax);
  storm_.JupAltMin =
      SingleOf(Val(settings_.GetSetting(program_.AppTitle, kSettings, "ReportJupAltMin", "0")));
  txtJupAltMin = PlainNumber(storm_.JupAltMin);
}

bool PredictionWindow::ChkValidDate() {
  const auto y = BoxInt16(txtYear), m = BoxInt16(txtMonth), d = BoxInt16(txtDay);
  if (!y || !m || !d) {
    ui_.ShowMessage(kDateOutOfRange);
    return false;
  }
  if (*y < 1900) {
    ui_.ShowMessage(kDatesPrior1900);
    return false;
  }
  const auto date = DateSerial(*y, *m, *d);
  if (!date) {
    ui_.ShowMessage(kDateOutOfRange);
    return false;
  }
  PredictTime = *date;
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
