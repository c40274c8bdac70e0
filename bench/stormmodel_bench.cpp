// One day's search (minute tables, events, grid), a year's report written to a file, and a
// year's forecast in each of its formats.

#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>

#include "cli/forecast_format.h"
#include "stormmodel/forecast.h"
#include "stormmodel/prediction.h"
#include "textutil/date_time.h"

namespace quillmere {
namespace {

class SilentUi : public StormUi {
 public:
  void ShowMessage(const std::string&) override {}
  void SpeakThis(const std::string&) override {}
  void SpeakCharacters(const std::string&) override {}
  void Yield() override {}
  void ShowReportOptions() override {}
};

struct Setup {
  Setup() {
    const std::string modes = (dir / "UFMODES.JMF").string();
    std::filesystem::create_directories(dir);
    std::ofstream(modes, std::ios::binary) << "Io-A,200,270,195,265\r\nIo-B,105,185,80,110\r\n"
                                              "Io-C,300,20,225,250\r\nIo-D,0,200,95,130\r\n"
                                              "Non-A,200,260,0,360\r\nAll,0,360,0,360\r\n";
    LoadModeFile(modes, storm.Modes);
    program.ObsLat = 30;
    program.ObsLong = 80;
    form3.txtJupAltMin = "0";
    form3.txtSunAltMax = "0";
  }
  ~Setup() {
    std::error_code ec;
    std::filesystem::remove_all(dir, ec);
  }
  std::filesystem::path dir = std::filesystem::temp_directory_path() / "quillmere-bench";
  EphemerisState s;
  StormValues storm;
  ProgramValues program;
  MemorySettings settings;
  SilentUi ui;
  PredictionWindow form3{s, storm, program, settings, ui};
};

void BM_DaySearchOf(benchmark::State& state, EphemerisModel model) {
  Setup f;
  f.s.model = model;
  const double first = *DateSerial(2006, 7, 5);
  int n = 0;
  for (auto _ : state) {
    f.form3.PredictTime = first + (n++ % 365);
    f.form3.DoPredictions();
    benchmark::DoNotOptimize(f.form3.Grid1.cells.data());
  }
}
void BM_DaySearch(benchmark::State& state) {
  BM_DaySearchOf(state, EphemerisModel::Classic);
}
BENCHMARK(BM_DaySearch)->Unit(benchmark::kMillisecond);

void BM_YearReportOf(benchmark::State& state, EphemerisModel model) {
  Setup f;
  f.s.model = model;
  f.storm.ReportStart = *DateSerial(2006, 1, 1);
  f.storm.ReportEnd = f.storm.ReportStart + 364;
  f.storm.ReportIncludeHA = -1;
  for (auto _ : state) f.form3.DoReport(f.dir.string());
}
void BM_YearReport(benchmark::State& state) {
  BM_YearReportOf(state, EphemerisModel::Classic);
}
BENCHMARK(BM_YearReport)->Unit(benchmark::kMillisecond);

#ifdef QUILLMERE_PRECISE
BENCHMARK_CAPTURE(BM_DaySearchOf, precise, EphemerisModel::Precise)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_YearReportOf, precise, EphemerisModel::Precise)->Unit(benchmark::kMillisecond);
#endif

// The search of 365 days and the text of their events: 0 text, 1 CSV, 2 JSON, 3 ICS.
void BM_YearForecast(benchmark::State& state) {
  Setup f;
  ForecastRequest r;
  r.start = *DateSerial(2006, 1, 1);
  r.days = 365;
  r.ObsLat = 30;
  r.ObsLong = 80;
  r.limits = {0, 0, 0};
  for (auto _ : state) {
    const std::vector<ForecastEvent> events = Forecast(f.storm.Modes, r);
    std::string out;
    switch (state.range(0)) {
      case 0:
        out = cli::ForecastText(events, r, true);
        break;
      case 1:
        out = cli::ForecastCsv(events, true);
        break;
      case 2:
        out = cli::ForecastJson(events, r, true);
        break;
      default:
        out = cli::ForecastIcs(events, r, r.start);
        break;
    }
    benchmark::DoNotOptimize(out.data());
  }
}
BENCHMARK(BM_YearForecast)->DenseRange(0, 3)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace quillmere
