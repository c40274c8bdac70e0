// The correctly rounded functions against MPFR, over arguments of the sizes the ephemeris uses
// and far beyond: every result must be the double that MPFR rounds to.

#include <gtest/gtest.h>
#include <mpfr.h>

#include <cmath>
#include <cstdint>
#include <random>

#include "ephemeris/crmath.h"

namespace quillmere {
namespace {

double Reference(int (*fn)(mpfr_ptr, mpfr_srcptr, mpfr_rnd_t), double x) {
  mpfr_t m;
  mpfr_init2(m, 53);
  mpfr_set_d(m, x, MPFR_RNDN);
  fn(m, m, MPFR_RNDN);
  const double r = mpfr_get_d(m, MPFR_RNDN);
  mpfr_clear(m);
  return r;
}

TEST(CorrectlyRounded, AgreesWithMpfr) {
  const struct {
    const char* name;
    double (*fn)(double);
    int (*reference)(mpfr_ptr, mpfr_srcptr, mpfr_rnd_t);
  } functions[] = {{"sin", crmath::sin, mpfr_sin},
                   {"cos", crmath::cos, mpfr_cos},
                   {"tan", crmath::tan, mpfr_tan},
                   {"sincos's sin",
                    [](double x) {
                      double s = 0, c = 0;
                      crmath::sincos(x, s, c);
                      return s;
                    },
                    mpfr_sin},
                   {"sincos's cos",
                    [](double x) {
                      double s = 0, c = 0;
                      crmath::sincos(x, s, c);
                      return c;
                    },
                    mpfr_cos},
                   {"atan", crmath::atan, mpfr_atan}};
  std::mt19937_64 rng(20261124);
  auto uniform = [&](double low, double high) {
    return low + (high - low) * static_cast<double>(rng() >> 11) * 0x1p-53;
  };
  for (const auto& f : functions) {
    int wrong = 0;
    // Angles up to the end of the exact reduction (2^20); any ratio for atan.
    const int topExponent = f.reference == mpfr_atan ? 40 : 20;
    for (int i = 0; i < 40000; ++i) {
      const double x = i % 4 == 0   ? uniform(-8, 8)
                       : i % 4 == 1 ? uniform(-800, 800)
                       : i % 4 == 2 ? uniform(-1e6, 1e6)
                                    : std::ldexp(uniform(-1, 1),
                                                 static_cast<int>(rng() % (topExponent + 40)) - 40);
      const double want = Reference(f.reference, x);
      if (f.fn(x) != want && ++wrong <= 5)
        ADD_FAILURE() << f.name << "(" << std::hexfloat << x << ") = " << f.fn(x) << ", not "
                      << want;
    }
    EXPECT_EQ(wrong, 0) << f.name;
  }
}

}  // namespace
}  // namespace quillmere
