#include <benchmark/benchmark.h>

#include "ephemeris/ephemeris.h"
#include "textutil/date_time.h"

namespace quillmere {
namespace {

// What a tick costs: sidereal time and every position for a new T, `step` days after the last
// (a second for the clock's ticks; a day makes every instant the first of its day).
void BM_InstantOf(benchmark::State& state, EphemerisModel model, double step = 1.0 / 86400) {
  EphemerisState s;
  s.model = model;
  const double start = *DateSerial(2006, 7, 5) + TimeSerial(12, 0, 0);
  double t = start;
  for (auto _ : state) {
    s.T = t;
    ComputeSiderealTime(s, 80);
    ComputeInstant(s, 30);
    benchmark::DoNotOptimize(s);
    t += step;
  }
}
void BM_Instant(benchmark::State& state) {
  BM_InstantOf(state, EphemerisModel::Classic);
}
BENCHMARK(BM_Instant);

// What one prediction day costs in tables.
void BM_FillMinuteTablesOf(benchmark::State& state, EphemerisModel model) {
  EphemerisState s;
  s.model = model;
  MinuteTables tables;
  double day = *DateSerial(2006, 7, 5);
  for (auto _ : state) {
    SaveT(s);
    FillMinuteTables(s, tables, day, 30, 80);
    benchmark::DoNotOptimize(tables);
    day += 1;
  }
}
void BM_FillMinuteTables(benchmark::State& state) {
  BM_FillMinuteTablesOf(state, EphemerisModel::Classic);
}
BENCHMARK(BM_FillMinuteTables)->Unit(benchmark::kMicrosecond);

#ifdef QUILLMERE_PRECISE
BENCHMARK_CAPTURE(BM_InstantOf, precise, EphemerisModel::Precise)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BM_InstantOf, precise_new_day, EphemerisModel::Precise, 1.0)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BM_FillMinuteTablesOf, precise, EphemerisModel::Precise)
    ->Unit(benchmark::kMicrosecond);
#endif

}  // namespace
}  // namespace quillmere
