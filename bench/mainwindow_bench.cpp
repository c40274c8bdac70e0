#include <benchmark/benchmark.h>

#include "mainwindow/display.h"
#include "mainwindow/form1.h"
#include "speech/recording_voice.h"
#include "stormmodel/settings_store.h"
#include "textutil/date_time.h"

namespace quillmere {
namespace {

class SteppingClock : public Clock {
 public:
  double now = *DateSerial(2006, 7, 5) + TimeSerial(12, 0, 0);
  double LocalNow() override { return now += 1.0 / 86400; }
  TimeZoneInformation GetTimeZoneInformation() override { return {1, 0, 0, 0}; }
};

class NoMessages : public MessageBoxes {
 public:
  void Show(const std::string&, const std::string&) override {}
};

// A tick's work without the widgets: sidereal time, every position, every caption.
void BM_TickCore(benchmark::State& state) {
  ProgramState p;
  p.ObsLat = 30;
  p.ObsLong = 80;
  p.UseGMT = -1;
  EphemerisState s;
  Captions c;
  double t = *DateSerial(2006, 7, 5) + TimeSerial(12, 0, 0);
  for (auto _ : state) {
    s.T = t;
    ComputeSiderealTime(s, p.ObsLong);
    ComputeInstant(s, p.ObsLat);
    DisplayInfo(p, s, c);
    benchmark::DoNotOptimize(LmstCaption(s.LMST));
    benchmark::DoNotOptimize(c);
    t += 1.0 / 86400;
  }
}
BENCHMARK(BM_TickCore);

// The whole tick of the window, labels and boxes updated.
void BM_TickWithWidgets(benchmark::State& state) {
  SteppingClock clock;
  MemorySettings settings;
  NoMessages messages;
  Form1Platform platform;
  platform.clock = &clock;
  platform.settings = &settings;
  platform.messages = &messages;
  platform.programDirectory = ".";
  platform.createVoice = [] { return std::make_unique<RecordingVoice>(); };
  Form1 form(platform);
  form.Form_Load();
  form.show();
  for (auto _ : state) form.Timer1_Timer();
  state.SetLabel(form.Caption("LBLJupAlt"));
}
BENCHMARK(BM_TickWithWidgets)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace quillmere
