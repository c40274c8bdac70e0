#include <benchmark/benchmark.h>

#include <cmath>

#include "ephemeris/crmath.h"
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
