#include <benchmark/benchmark.h>

#include <cmath>

#include "ephemeris/crmath.h"
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

// One call of the correctly rounded functions against the C library's, over the angles and
// ratios of a day's tables.
template <double (*Fn)(double)>
void BM_Function(benchmark::State& state) {
  double x = -3.0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(Fn(x));
    x += 0.001;
    if (x > 3.0) x = -3.0;
  }
}
double LibrarySin(double x) {
  return std::sin(x);
}
double LibraryAtan(double x) {
  return std::atan(x);
}
BENCHMARK(BM_Function<crmath::sin>)->Name("BM_CorrectlyRoundedSin");
BENCHMARK(BM_Function<LibrarySin>)->Name("BM_LibrarySin");
BENCHMARK(BM_Function<crmath::atan>)->Name("BM_CorrectlyRoundedAtan");
BENCHMARK(BM_Function<LibraryAtan>)->Name("BM_LibraryAtan");

}  // namespace
}  // namespace quillmere
