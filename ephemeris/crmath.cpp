#include "ephemeris/crmath.h"

#include <cmath>
#include <cstdint>

namespace quillmere::crmath {
namespace {

// A number as the unevaluated sum hi + lo, |lo| at most half an ulp of hi.
struct DD {
  double hi;
  double lo;
};

DD TwoSum(double a, double b) {
  const double s = a + b;
  const double bb = s - a;
  return {s, (a - (s - bb)) + (b - bb)};
}

DD FastTwoSum(double a, double b) {  // |a| >= |b|
  const double s = a + b;
  return {s, b - (s - a)};
}

// Dekker's exact product, without fused multiply-add.
DD TwoProd(double a, double b) {
  const double p = a * b;
  const double ca = 134217729.0 * a, cb = 134217729.0 * b;
  const double ah = ca - (ca - a), al = a - ah;
  const double bh = cb - (cb - b), bl = b - bh;
  return {p, ((ah * bh - p) + ah * bl + al * bh) + al * bl};
}

DD Add(DD x, DD y) {
  DD s = TwoSum(x.hi, y.hi);
  const DD t = TwoSum(x.lo, y.lo);
  s.lo += t.hi;
  s = FastTwoSum(s.hi, s.lo);
  s.lo += t.lo;
  return FastTwoSum(s.hi, s.lo);
}

DD Add(DD x, double y) {
  return Add(x, DD{y, 0});
}

DD Mul(DD x, DD y) {
  DD p = TwoProd(x.hi, y.hi);
  p.lo += x.hi * y.lo + x.lo * y.hi;
  return FastTwoSum(p.hi, p.lo);
}

DD Neg(DD x) {
  return {-x.hi, -x.lo};
}

DD Div(DD x, DD y) {
  const double q1 = x.hi / y.hi;
  DD r = Add(x, Neg(Mul(y, DD{q1, 0})));
  const double q2 = r.hi / y.hi;
  r = Add(r, Neg(Mul(y, DD{q2, 0})));
  const double q3 = r.hi / y.hi;
  return Add(FastTwoSum(q1, q2), q3);
}

double Round(DD x) {
  return x.hi + x.lo;
}

// 1/n!, n = 1 to 31.
constexpr DD kInverseFactorial[] = {
    {0x1p+0, 0x0p+0},                                  // 1/1!
    {0x1p-1, 0x0p+0},                                  // 1/2!
    {0x1.5555555555555p-3, 0x1.5555555555555p-57},     // 1/3!
    {0x1.5555555555555p-5, 0x1.5555555555555p-59},     // 1/4!
    {0x1.1111111111111p-7, 0x1.1111111111111p-63},     // 1/5!
    {0x1.6c16c16c16c17p-10, -0x1.f49f49f49f49fp-65},   // 1/6!
    {0x1.a01a01a01a01ap-13, 0x1.a01a01a01a01ap-73},    // 1/7!
    {0x1.a01a01a01a01ap-16, 0x1.a01a01a01a01ap-76},    // 1/8!
    {0x1.71de3a556c734p-19, -0x1.c154f8ddc6cp-73},     // 1/9!
    {0x1.27e4fb7789f5cp-22, 0x1.cbbc05b4fa99ap-76},    // 1/10!
    {0x1.ae64567f544e4p-26, -0x1.c062e06d1f209p-80},   // 1/11!
    {0x1.1eed8eff8d898p-29, -0x1.2aec959e14c06p-83},   // 1/12!
    {0x1.6124613a86d09p-33, 0x1.f28e0cc748ebep-87},    // 1/13!
    {0x1.93974a8c07c9dp-37, 0x1.05d6f8a2efd1fp-92},    // 1/14!
    {0x1.ae7f3e733b81fp-41, 0x1.1d8656b0ee8cbp-97},    // 1/15!
    {0x1.ae7f3e733b81fp-45, 0x1.1d8656b0ee8cbp-101},   // 1/16!
    {0x1.952c77030ad4ap-49, 0x1.ac981465ddc6cp-103},   // 1/17!
    {0x1.6827863b97d97p-53, 0x1.eec01221a8b0bp-107},   // 1/18!
    {0x1.2f49b46814157p-57, 0x1.2650f61dbdcb4p-112},   // 1/19!
    {0x1.e542ba4020225p-62, 0x1.ea72b4afe3c2fp-120},   // 1/20!
    {0x1.71b8ef6dcf572p-66, -0x1.d043ae40c4647p-120},  // 1/21!
    {0x1.0ce396db7f853p-70, -0x1.aebcdbd20331cp-124},  // 1/22!
    {0x1.761b41316381ap-75, -0x1.3423c7d91404fp-130},  // 1/23!
    {0x1.f2cf01972f578p-80, -0x1.9ada5fcc1ab14p-135},  // 1/24!
    {0x1.3f3ccdd165fa9p-84, -0x1.58ddadf344487p-139},  // 1/25!
    {0x1.88e85fc6a4e5ap-89, -0x1.71c37ebd1654p-143},   // 1/26!
    {0x1.d1ab1c2dccea3p-94, 0x1.054d0c78aea14p-149},   // 1/27!
    {0x1.0a18a2635085dp-98, 0x1.b9e2e28e1aa54p-153},   // 1/28!
    {0x1.259f98b4358adp-103, 0x1.eaf8c39dd9bc5p-157},  // 1/29!
    {0x1.3932c5047d60ep-108, 0x1.832b7b530a627p-162},  // 1/30!
    {0x1.434d2e783f5bcp-113, 0x1.0b87b91be9affp-167},  // 1/31!
};

// atan(j/16), j = 0 to 16.
constexpr DD kAtanSixteenths[] = {
    {0x0p+0, 0x0p+0},                                // atan(0/16)
    {0x1.ff55bb72cfdeap-5, -0x1.c934d86d23f1dp-60},  // atan(1/16)
    {0x1.fd5ba9aac2f6ep-4, -0x1.cd37686760c17p-59},  // atan(2/16)
    {0x1.7b97b4bce5b02p-3, 0x1.347b0b4f881cap-58},   // atan(3/16)
    {0x1.f5b75f92c80ddp-3, 0x1.8ab6e3cf7afbdp-57},   // atan(4/16)
    {0x1.362773707ebccp-2, -0x1.963a544b672d8p-57},  // atan(5/16)
    {0x1.6f61941e4def1p-2, -0x1.c63aae6f6e918p-56},  // atan(6/16)
    {0x1.a64eec3cc23fdp-2, -0x1.24dec1b50b7ffp-56},  // atan(7/16)
    {0x1.dac670561bb4fp-2, 0x1.a2b7f222f65e2p-56},   // atan(8/16)
    {0x1.0657e94db30dp-1, -0x1.d5b495f6349e6p-56},   // atan(9/16)
    {0x1.1e00babdefeb4p-1, -0x1.928df287a668fp-58},  // atan(10/16)
    {0x1.345f01cce37bbp-1, 0x1.1021137c71102p-55},   // atan(11/16)
    {0x1.4978fa3269ee1p-1, 0x1.2419a87f2a458p-56},   // atan(12/16)
    {0x1.5d58987169b18p-1, 0x1.0028e4bc5e7cap-57},   // atan(13/16)
    {0x1.700a7c5784634p-1, -0x1.8c34d25aadef6p-56},  // atan(14/16)
    {0x1.819d0b7158a4dp-1, -0x1.bf76229d3b917p-56},  // atan(15/16)
    {0x1.921fb54442d18p-1, 0x1.1a62633145c07p-55},   // atan(16/16)
};

// 1/(2n+1), n = 1 to 14.
constexpr DD kInverseOdd[] = {
    {0x1.5555555555555p-2, 0x1.5555555555555p-56},   // 1/3
    {0x1.999999999999ap-3, -0x1.999999999999ap-57},  // 1/5
    {0x1.2492492492492p-3, 0x1.2492492492492p-57},   // 1/7
    {0x1.c71c71c71c71cp-4, 0x1.c71c71c71c71cp-58},   // 1/9
    {0x1.745d1745d1746p-4, -0x1.745d1745d1746p-59},  // 1/11
    {0x1.3b13b13b13b14p-4, -0x1.3b13b13b13b14p-58},  // 1/13
    {0x1.1111111111111p-4, 0x1.1111111111111p-60},   // 1/15
    {0x1.e1e1e1e1e1e1ep-5, 0x1.e1e1e1e1e1e1ep-61},   // 1/17
    {0x1.af286bca1af28p-5, 0x1.af286bca1af28p-59},   // 1/19
    {0x1.8618618618618p-5, 0x1.8618618618618p-59},   // 1/21
    {0x1.642c8590b2164p-5, 0x1.642c8590b2164p-60},   // 1/23
    {0x1.47ae147ae147bp-5, -0x1.eb851eb851eb8p-61},  // 1/25
    {0x1.2f684bda12f68p-5, 0x1.2f684bda12f68p-59},   // 1/27
    {0x1.1a7b9611a7b96p-5, 0x1.1a7b9611a7b96p-61},   // 1/29
};

constexpr DD kHalfPi = {0x1.921fb54442d18p+0, 0x1.1a62633145c07p-54};

// pi/2 in four parts; the first three have at most 33 bits, so k times each is exact for
// |k| < 2^20.
constexpr double kHalfPi1 = 0x1.921fb544p+0, kHalfPi2 = 0x1.0b4611a6p-34,
                 kHalfPi3 = 0x1.3198a2ep-69, kHalfPi4 = 0x1.b839a252049c1p-104;
constexpr double kTwoOverPi = 0x1.45f306dc9c883p-1;
constexpr double kReductionLimit = 0x1p20;

// x = k pi/2 + r, |r| <= pi/4 (a hair more where k rounds).
DD Reduce(double x, int64_t& k) {
  const double n = std::nearbyint(x * kTwoOverPi);
  k = static_cast<int64_t>(n);
  DD r = TwoSum(x - n * kHalfPi1, -(n * kHalfPi2));  // x - n kHalfPi1 is exact
  r = Add(r, -(n * kHalfPi3));
  return Add(r, Neg(TwoProd(n, kHalfPi4)));
}

// Taylor series of sin and cos for |r| <= pi/4: the last terms are below 2^-106 of the sum.
DD SinSeries(DD r) {
  const DD r2 = Mul(r, r);
  DD s = kInverseFactorial[28];  // 1/29!
  for (int n = 27; n >= 1; n -= 2) {
    s = Mul(s, r2);
    const DD c = kInverseFactorial[n - 1];
    s = Add(Neg(s), c);
  }
  return Mul(s, r);
}

DD CosSeries(DD r) {
  const DD r2 = Mul(r, r);
  DD s = kInverseFactorial[27];  // 1/28!
  for (int n = 26; n >= 0; n -= 2) {
    s = Mul(s, r2);
    s = Add(Neg(s), n == 0 ? DD{1, 0} : kInverseFactorial[n - 1]);
  }
  return s;
}

bool Reducible(double x) {
  return std::fabs(x) < kReductionLimit;
}

}  // namespace

double sin(double x) {
  if (x == 0 || !Reducible(x)) return x == 0 ? x : std::sin(x);  // keeps the sign of a zero
  int64_t k = 0;
  const DD r = Reduce(x, k);
  switch (k & 3) {
    case 0:
      return Round(SinSeries(r));
    case 1:
      return Round(CosSeries(r));
    case 2:
      return -Round(SinSeries(r));
    default:
      return -Round(CosSeries(r));
  }
}

double cos(double x) {
  if (!Reducible(x)) return std::cos(x);
  int64_t k = 0;
  const DD r = Reduce(x, k);
  switch (k & 3) {
    case 0:
      return Round(CosSeries(r));
    case 1:
      return -Round(SinSeries(r));
    case 2:
      return -Round(CosSeries(r));
    default:
      return Round(SinSeries(r));
  }
}

double tan(double x) {
  if (x == 0 || !Reducible(x)) return x == 0 ? x : std::tan(x);
  int64_t k = 0;
  const DD r = Reduce(x, k);
  const DD s = SinSeries(r), c = CosSeries(r);
  return (k & 1) ? -Round(Div(c, s)) : Round(Div(s, c));
}

double atan(double x) {
  if (std::isnan(x)) return x;
  const double a = std::fabs(x);
  if (a > 0x1p60) return std::copysign(kHalfPi.hi, x);
  // atan a = pi/2 - atan(1/a) above 1; then atan t = atan c + atan((t - c) / (1 + t c)) with c
  // the nearest sixteenth, which leaves |u| <= 1/32 for the series.
  const bool inverted = a > 1;
  const DD t = inverted ? Div(DD{1, 0}, DD{a, 0}) : DD{a, 0};
  const int j = static_cast<int>(t.hi * 16 + 0.5);
  const double c = j / 16.0;
  const DD u = Div(Add(t, -c), Add(Mul(t, DD{c, 0}), 1.0));
  const DD u2 = Mul(u, u);
  DD s = kInverseOdd[11];  // 1/25
  for (int n = 11; n >= 0; --n) {
    s = Mul(s, u2);
    s = Add(Neg(s), n == 0 ? DD{1, 0} : kInverseOdd[n - 1]);
  }
  DD result = Add(kAtanSixteenths[j], Mul(s, u));
  if (inverted) result = Add(kHalfPi, Neg(result));
  return std::copysign(Round(result), x);
}

}  // namespace quillmere::crmath
