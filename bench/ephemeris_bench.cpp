#include <benchmark/benchmark.h>

#include "ephemeris/ephemeris.h"
#include "textutil/date_time.h"

namespace quillmere {
namespace {

// What a tick costs: sidereal time and every position for a new T.
void BM_Instant(benchmark::State& state) {
  EphemerisState s;
  const double start = *DateSerial(2006, 7, 5) + TimeSerial(12, 0, 0);
  double t = start;
  for (auto _ : state) {
    s.T = t;
    ComputeSiderealTime(s, 80);
    ComputeInstant(s, 30);
    benchmark::DoNotOptimize(s);
    t += 1.0 / 86400;
  }
}
BENCHMARK(BM_Instant);

// What one prediction day costs in tables.
void BM_FillMinuteTables(benchmark::State& state) {
  EphemerisState s;
  MinuteTables tables;
  double day = *DateSerial(2006, 7, 5);
  for (auto _ : state) {
    SaveT(s);
    FillMinuteTables(s, tables, day, 30, 80);
    benchmark::DoNotOptimize(tables);
    day += 1;
  }
}
BENCHMARK(BM_FillMinuteTables)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace quillmere
