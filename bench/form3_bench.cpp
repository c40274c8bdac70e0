// A month's report through the prediction window: one search per day, the chart drawn and the
// grid shown for each day, the event loop run between the rows.

#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>

#include "stormmodel/ui/form3.h"
#include "textutil/date_time.h"

namespace quillmere {
namespace {

class QuietHost : public Form3Host {
 public:
  void StopTimer() override {}
  void FocusMainWindow() override {}
  void ShowForThisTime(double) override {}
  bool ProgramClosing() override { return false; }
  bool RealTime() override { return false; }
  double FixedT() override { return *DateSerial(2006, 7, 5); }
  double TimeZone() override { return -5; }
  double PresentUT() override { return FixedT(); }
  void SpeakThis(const std::string&) override {}
  void SpeakCharacters(const std::string&) override {}
  std::string ReportDirectory() override { return dir.string(); }

  std::filesystem::path dir = std::filesystem::temp_directory_path() / "quillmere-form3-bench";
};

void BM_MonthReportThroughTheWindow(benchmark::State& state) {
  QuietHost host;
  std::filesystem::create_directories(host.dir);
  const std::string modes = (host.dir / "UFMODES.JMF").string();
  std::ofstream(modes, std::ios::binary) << "Io-A,200,270,195,265\r\nIo-B,105,185,80,110\r\n"
                                            "Io-C,300,20,225,250\r\nIo-D,0,200,95,130\r\n"
                                            "Non-A,200,260,0,360\r\nAll,0,360,0,360\r\n";
  EphemerisState s;
  StormValues storm;
  LoadModeFile(modes, storm.Modes);
  ProgramValues program;
  program.ObsLat = 30;
  program.ObsLong = 80;
  MemorySettings settings;
  Form3 form(host, s, storm, program, settings);
  form.Form_Load();
  form.show();
  storm.ReportStart = *DateSerial(2006, 7, 1);
  storm.ReportEnd = storm.ReportStart + 30;
  storm.ReportIncludeHA = -1;
  for (auto _ : state) form.DoReport();
  std::filesystem::remove_all(host.dir);
}
BENCHMARK(BM_MonthReportThroughTheWindow)->Unit(benchmark::kMillisecond)->Repetitions(5);

}  // namespace
}  // namespace quillmere
