#include "ephemeris/crmath.h"

#include <cfloat>
#include <cmath>
#include <cstdint>

// Double-double arithmetic needs every operation rounded to 64 bits, as SSE2 and ARM do; the x87
// unit's wider registers would spoil it.
static_assert(FLT_EVAL_METHOD == 0, "double arithmetic must round to double");

// Nor may a product and a sum be fused: the exact products below rely on each rounding. GCC and
// Clang have -ffp-contract=off from the build; older MSVC contracted under /fp:precise.
#if defined(_MSC_VER)
#pragma fp_contract(off)
#endif

// The small steps of double-double arithmetic are worth inlining wherever they are used.
#if defined(_MSC_VER)
#define QUILLMERE_STEP __forceinline
#else
#define QUILLMERE_STEP inline __attribute__((always_inline))
#endif

namespace quillmere::crmath {
namespace {

// A number as the unevaluated sum hi + lo, |lo| at most half an ulp of hi.
struct DD {
  double hi;
  double lo;
};

QUILLMERE_STEP DD TwoSum(double a, double b) {
  const double s = a + b;
  const double bb = s - a;
  return {s, (a - (s - bb)) + (b - bb)};
}

QUILLMERE_STEP DD FastTwoSum(double a, double b) {  // |a| >= |b|
  const double s = a + b;
  return {s, b - (s - a)};
}

// Dekker's exact product, without fused multiply-add.
QUILLMERE_STEP DD TwoProd(double a, double b) {
  const double p = a * b;
  const double ca = 134217729.0 * a, cb = 134217729.0 * b;
  const double ah = ca - (ca - a), al = a - ah;
  const double bh = cb - (cb - b), bl = b - bh;
  return {p, ((ah * bh - p) + ah * bl + al * bh) + al * bl};
}

QUILLMERE_STEP DD Add(DD x, DD y) {
  DD s = TwoSum(x.hi, y.hi);
  const DD t = TwoSum(x.lo, y.lo);
  s.lo += t.hi;
  s = FastTwoSum(s.hi, s.lo);
  s.lo += t.lo;
  return FastTwoSum(s.hi, s.lo);
}

QUILLMERE_STEP DD Add(DD x, double y) {
  return Add(x, DD{y, 0});
}

QUILLMERE_STEP DD Mul(DD x, DD y) {
  DD p = TwoProd(x.hi, y.hi);
  p.lo += x.hi * y.lo + x.lo * y.hi;
  return FastTwoSum(p.hi, p.lo);
}

QUILLMERE_STEP DD Neg(DD x) {
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

QUILLMERE_STEP double Round(DD x) {
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

// The nearest whole number to x (ties to even) for |x| < 2^51, without a library call.
QUILLMERE_STEP double Nearest(double x) {
  constexpr double kShift = 0x1.8p52;
  return (x + kShift) - kShift;
}

// x = k pi/2 + r, |r| <= pi/4 (a hair more where k rounds).
DD Reduce(double x, int64_t& k) {
  const double n = Nearest(x * kTwoOverPi);
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

// The quick road, taken almost always: table values at the nearest 64th and short series, about
// 70 bits. Its result is used only when the bound on its error leaves one double as the nearest
// (Ziv's test); otherwise the long series above decide.

// sin(j/64) and cos(j/64), j = 0 to 52.
constexpr DD kSin64[] = {
    {0x0p+0, 0x0p+0},                                // sin(0/64)
    {0x1.fffaaaaeeeed5p-7, -0x1.2ab639a9f0776p-63},  // sin(1/64)
    {0x1.ffeaaaeeee86fp-6, -0x1.cd406fb224ae2p-60},  // sin(2/64)
    {0x1.7fdc01032fba9p-5, -0x1.599bdf46e997ap-59},  // sin(3/64)
    {0x1.ffaaaeeed4edbp-5, -0x1.2d16d32684b69p-59},  // sin(4/64)
    {0x1.3facb12d1755bp-4, -0x1.921915299468bp-58},  // sin(5/64)
    {0x1.7f701032550e4p-4, 0x1.afc2d1800501ap-60},   // sin(6/64)
    {0x1.bf1b78568391dp-4, 0x1.e91841dea4cc8p-58},   // sin(7/64)
    {0x1.feaaeee86ee36p-4, -0x1.afcb2bcc6f03bp-59},  // sin(8/64)
    {0x1.1f0d3d7afceafp-3, -0x1.6ef95099769a5p-57},  // sin(9/64)
    {0x1.3eb312c5d66cbp-3, 0x1.47d666b66cb91p-57},   // sin(10/64)
    {0x1.5e44fcfa126f3p-3, -0x1.6f443063f89b6p-57},  // sin(11/64)
    {0x1.7dc102fbaf2b5p-3, 0x1.5ab50e23c97c3p-59},   // sin(12/64)
    {0x1.9d252d0cec312p-3, 0x1.9c43d80b1137dp-58},   // sin(13/64)
    {0x1.bc6f84edc6199p-3, 0x1.9c1a56a7b0cabp-57},   // sin(14/64)
    {0x1.db9e15fb5a5dp-3, -0x1.32e20d6cc6fc2p-57},   // sin(15/64)
    {0x1.faaeed4f31577p-3, -0x1.15d88508e32b8p-57},  // sin(16/64)
    {0x1.0cd00cef36436p-2, -0x1.9fb0a0c93e2b4p-56},  // sin(17/64)
    {0x1.1c37d64c6b876p-2, 0x1.46076fe0dcff4p-56},   // sin(18/64)
    {0x1.2b8ddc43eb49fp-2, 0x1.1553899f2d807p-57},   // sin(19/64)
    {0x1.3ad129769d3d8p-2, 0x1.03d550487839ap-63},   // sin(20/64)
    {0x1.4a00c9b0f3d2p-2, 0x1.823ba6bb08eadp-56},    // sin(21/64)
    {0x1.591bc9fa2f597p-2, 0x1.7c74bac3fe0cbp-57},   // sin(22/64)
    {0x1.682138a38d7f7p-2, -0x1.d889202444aadp-56},  // sin(23/64)
    {0x1.7710255764214p-2, -0x1.6ead7314bb6cep-57},  // sin(24/64)
    {0x1.85e7a12826949p-2, 0x1.8a40e9b5facep-56},    // sin(25/64)
    {0x1.94a6be9f546c5p-2, -0x1.69ce13e683f58p-56},  // sin(26/64)
    {0x1.a34c91cc50ccap-2, -0x1.a310e3b50cecdp-58},  // sin(27/64)
    {0x1.b1d8305321617p-2, -0x1.ae242cb99f519p-56},  // sin(28/64)
    {0x1.c048b17b140a3p-2, 0x1.19fe6757e9fa7p-57},   // sin(29/64)
    {0x1.ce9d2e3d4a51fp-2, -0x1.2fc8a12dae298p-57},  // sin(30/64)
    {0x1.dcd4c15329c9ap-2, 0x1.0d4c6e171fd9ap-56},   // sin(31/64)
    {0x1.eaee8744b05fp-2, -0x1.789b43c9b027dp-58},   // sin(32/64)
    {0x1.f8e99e76abc97p-2, 0x1.9d950af2d00a3p-58},   // sin(33/64)
    {0x1.0362939c69955p-1, -0x1.2d8cd78397b01p-55},  // sin(34/64)
    {0x1.0a4021e9e1001p-1, -0x1.6f643a13914f6p-55},  // sin(35/64)
    {0x1.110d0c4b69c3bp-1, 0x1.d918998809981p-55},   // sin(36/64)
    {0x1.17c8e5f2eedbp-1, 0x1.35e57102e2488p-57},    // sin(37/64)
    {0x1.1e7343236574cp-1, 0x1.22a3fa4f41d5ap-56},   // sin(38/64)
    {0x1.250bb93788bbbp-1, 0x1.ea3d02457bccep-56},   // sin(39/64)
    {0x1.2b91dea88421ep-1, -0x1.fa371db216abp-55},   // sin(40/64)
    {0x1.32054b148bc4fp-1, 0x1.f6b42095a135bp-55},   // sin(41/64)
    {0x1.386597456282bp-1, -0x1.10fada93b07a8p-56},  // sin(42/64)
    {0x1.3eb25d36cd53ap-1, -0x1.be570e1570fcp-58},   // sin(43/64)
    {0x1.44eb381cf386bp-1, -0x1.3ed6c1e6a5505p-55},  // sin(44/64)
    {0x1.4b0fc46aab761p-1, 0x1.0da05738cc59cp-61},   // sin(45/64)
    {0x1.511f9fd7b351cp-1, -0x1.5c0e861c48831p-55},  // sin(46/64)
    {0x1.571a6966d59b3p-1, 0x1.c843b4d0fb197p-58},   // sin(47/64)
    {0x1.5cffc16bf8f0dp-1, 0x1.96cb370eb578ap-55},   // sin(48/64)
    {0x1.62cf49921ac79p-1, -0x1.edd9855b6241ap-55},  // sin(49/64)
    {0x1.6888a4e134b2fp-1, -0x1.6b7d37644d5e6p-55},  // sin(50/64)
    {0x1.6e2b77c40bde1p-1, -0x1.0e729857fad53p-56},  // sin(51/64)
    {0x1.73b7680dea578p-1, -0x1.2248306dc12a2p-56},  // sin(52/64)
};
constexpr DD kCos64[] = {
    {0x1p+0, 0x0p+0},                                // cos(0/64)
    {0x1.fff000155549fp-1, 0x1.28a28a03a5ef3p-55},   // cos(1/64)
    {0x1.ffc00155527d3p-1, -0x1.3b54492d89b5bp-55},  // cos(2/64)
    {0x1.ff7006bfdf99fp-1, -0x1.8b3b560648d5fp-56},  // cos(3/64)
    {0x1.ff0015549f4d3p-1, 0x1.328387b99426fp-55},   // cos(4/64)
    {0x1.fe7034129ef6fp-1, -0x1.cbf4337c96f97p-57},  // cos(5/64)
    {0x1.fdc06bf7e6b9bp-1, 0x1.31902b535f8dbp-55},   // cos(6/64)
    {0x1.fcf0c800e99b1p-1, 0x1.ea3d786d186acp-57},   // cos(7/64)
    {0x1.fc015527d5bd3p-1, 0x1.b68f35094efb8p-55},   // cos(8/64)
    {0x1.faf22263c4bd3p-1, -0x1.52ace133a2769p-58},  // cos(9/64)
    {0x1.f9c340a7cc428p-1, 0x1.c5b6b063b7462p-55},   // cos(10/64)
    {0x1.f874c2e1eecf6p-1, -0x1.c6514e1332b16p-55},  // cos(11/64)
    {0x1.f706bdf9ece1cp-1, -0x1.698c80c36dcb4p-55},  // cos(12/64)
    {0x1.f57948cff6797p-1, 0x1.e3a0d3e03b1d4p-57},   // cos(13/64)
    {0x1.f3cc7c3b3d16ep-1, -0x1.21a3ad28a3494p-57},  // cos(14/64)
    {0x1.f20073086649fp-1, 0x1.b940416c1984bp-56},   // cos(15/64)
    {0x1.f01549f7deea1p-1, 0x1.d3c1e99e5cafdp-55},   // cos(16/64)
    {0x1.ee0b1fbc0f11cp-1, -0x1.bfd2380bbc3b1p-59},  // cos(17/64)
    {0x1.ebe214f76efa8p-1, -0x1.02f9f12ba543ep-55},  // cos(18/64)
    {0x1.e99a4c3a7cd83p-1, -0x1.2264b1bc53ce8p-55},  // cos(19/64)
    {0x1.e733ea0193d4p-1, -0x1.6428b3546ce13p-55},   // cos(20/64)
    {0x1.e4af14b2a449cp-1, -0x1.68ca02e8a6833p-55},  // cos(21/64)
    {0x1.e20bf49acd6c1p-1, -0x1.660aec7ef636bp-58},  // cos(22/64)
    {0x1.df4ab3ebd875ep-1, -0x1.e2d8a7e6736c4p-55},  // cos(23/64)
    {0x1.dc6b7eb995912p-1, 0x1.4b364776dcd35p-58},   // cos(24/64)
    {0x1.d96e82f71a9dcp-1, 0x1.ff61bd5d2039dp-55},   // cos(25/64)
    {0x1.d653f073e404p-1, -0x1.76236434bec37p-55},   // cos(26/64)
    {0x1.d31bf8d8d7c06p-1, 0x1.e60dd3089cbddp-56},   // cos(27/64)
    {0x1.cfc6cfa52ad9fp-1, 0x1.8b5b5508f2a0dp-55},   // cos(28/64)
    {0x1.cc54aa2b2972ep-1, 0x1.4ee162ba83a98p-57},   // cos(29/64)
    {0x1.c8c5bf8ce1a84p-1, 0x1.ab3d1a1590123p-56},   // cos(30/64)
    {0x1.c51a48b8b175ep-1, -0x1.1bbb43b9aa88p-57},   // cos(31/64)
    {0x1.c1528065b7d5p-1, -0x1.892111312e828p-55},   // cos(32/64)
    {0x1.bd6ea310294f5p-1, 0x1.31bbcc88c109dp-56},   // cos(33/64)
    {0x1.b96eeef58840ep-1, 0x1.45a3cc78fadep-58},    // cos(34/64)
    {0x1.b553a410c104ep-1, 0x1.8ff7947027a15p-58},   // cos(35/64)
    {0x1.b11d04162a4c6p-1, 0x1.1dd561efbc0c2p-56},   // cos(36/64)
    {0x1.accb526f69de5p-1, 0x1.8fb6a8dd6b6ccp-55},   // cos(37/64)
    {0x1.a85ed4373e02dp-1, 0x1.9be06385ec792p-57},   // cos(38/64)
    {0x1.a3d7d0352bdcfp-1, -0x1.68dbaeca19669p-55},  // cos(39/64)
    {0x1.9f368ed912f85p-1, -0x1.1d200c5791606p-55},  // cos(40/64)
    {0x1.9a7b5a36a6514p-1, 0x1.722cfcc9fa7a9p-55},   // cos(41/64)
    {0x1.95a67e00cb1fdp-1, -0x1.0befda21f862dp-55},  // cos(42/64)
    {0x1.90b84784ddaf7p-1, -0x1.0feb10ab93b87p-56},  // cos(43/64)
    {0x1.8bb105a5dc9p-1, 0x1.863e03e9474c1p-55},     // cos(44/64)
    {0x1.869108d77a6c6p-1, 0x1.338ffe2bfe9ddp-56},   // cos(45/64)
    {0x1.8158a31916d5dp-1, -0x1.de8b90b8228dep-57},  // cos(46/64)
    {0x1.7c0827f09e54fp-1, -0x1.c73d6d72aee68p-57},  // cos(47/64)
    {0x1.769fec655211fp-1, -0x1.827d5cf8c68c5p-57},  // cos(48/64)
    {0x1.712046fa77678p-1, 0x1.425b0a5029c81p-55},   // cos(49/64)
    {0x1.6b898fa9efb5dp-1, 0x1.15ac786ccf4b2p-56},   // cos(50/64)
    {0x1.65dc1fdeb8cbap-1, -0x1.97c1b47337c77p-58},  // cos(51/64)
    {0x1.6018526f563dfp-1, 0x1.46ca5e0e432dp-55},    // cos(52/64)
};

// atan(j/64), j = 0 to 64.
constexpr DD kAtan64[] = {
    {0x0p+0, 0x0p+0},                                // atan(0/64)
    {0x1.fff555bbb729bp-7, -0x1.220c39d4dff5p-61},   // atan(1/64)
    {0x1.ffd55bba97625p-6, -0x1.5ec431444912cp-60},  // atan(2/64)
    {0x1.7fb818430da2ap-5, -0x1.86ef8f794f105p-63},  // atan(3/64)
    {0x1.ff55bb72cfdeap-5, -0x1.c934d86d23f1dp-60},  // atan(4/64)
    {0x1.3f59f0e7c559dp-4, 0x1.ac4ce285df847p-58},   // atan(5/64)
    {0x1.7ee182602f10fp-4, -0x1.cfb654c0c3d98p-58},  // atan(6/64)
    {0x1.be39ebe6f07c3p-4, 0x1.f7b8f29a05987p-58},   // atan(7/64)
    {0x1.fd5ba9aac2f6ep-4, -0x1.cd37686760c17p-59},  // atan(8/64)
    {0x1.1e1fafb043727p-3, -0x1.b485914dacf8cp-59},  // atan(9/64)
    {0x1.3d6eee8c6626cp-3, 0x1.61a3b0ce9281bp-57},   // atan(10/64)
    {0x1.5c9811e3ec26ap-3, -0x1.054ab2c010f3dp-58},  // atan(11/64)
    {0x1.7b97b4bce5b02p-3, 0x1.347b0b4f881cap-58},   // atan(12/64)
    {0x1.9a6a8e96c8626p-3, 0x1.cf601e7b4348ep-59},   // atan(13/64)
    {0x1.b90d7529260a2p-3, 0x1.17b10d2e0e5abp-61},   // atan(14/64)
    {0x1.d77d5df205736p-3, 0x1.c648d1534597ep-57},   // atan(15/64)
    {0x1.f5b75f92c80ddp-3, 0x1.8ab6e3cf7afbdp-57},   // atan(16/64)
    {0x1.09dc597d86362p-2, 0x1.62e47390cb865p-56},   // atan(17/64)
    {0x1.18bf5a30bf178p-2, 0x1.30ca4748b1bf9p-57},   // atan(18/64)
    {0x1.278372057ef46p-2, -0x1.077cdd36dfc81p-56},  // atan(19/64)
    {0x1.362773707ebccp-2, -0x1.963a544b672d8p-57},  // atan(20/64)
    {0x1.44aa436c2af0ap-2, -0x1.5d5e43c55b3bap-56},  // atan(21/64)
    {0x1.530ad9951cd4ap-2, -0x1.2566480884082p-57},  // atan(22/64)
    {0x1.614840309cfe2p-2, -0x1.a725715711fp-56},    // atan(23/64)
    {0x1.6f61941e4def1p-2, -0x1.c63aae6f6e918p-56},  // atan(24/64)
    {0x1.7d5604b63b3f7p-2, 0x1.69c885c2b249ap-56},   // atan(25/64)
    {0x1.8b24d394a1b25p-2, 0x1.b6d0ba3748fa8p-56},   // atan(26/64)
    {0x1.98cd5454d6b18p-2, 0x1.9e6c988fd0a77p-56},   // atan(27/64)
    {0x1.a64eec3cc23fdp-2, -0x1.24dec1b50b7ffp-56},  // atan(28/64)
    {0x1.b3a911da65c6cp-2, 0x1.ae187b1ca504p-56},    // atan(29/64)
    {0x1.c0db4c94ec9fp-2, -0x1.cc1ce70934c34p-56},   // atan(30/64)
    {0x1.cde53432c1351p-2, -0x1.a2cfa4418f1adp-56},  // atan(31/64)
    {0x1.dac670561bb4fp-2, 0x1.a2b7f222f65e2p-56},   // atan(32/64)
    {0x1.e77eb7f175a34p-2, 0x1.0e53dc1bf3435p-56},   // atan(33/64)
    {0x1.f40dd0b541418p-2, -0x1.a3992dc382a23p-57},  // atan(34/64)
    {0x1.0039c73c1a40cp-1, -0x1.b32c949c9d593p-55},  // atan(35/64)
    {0x1.0657e94db30dp-1, -0x1.d5b495f6349e6p-56},   // atan(36/64)
    {0x1.0c6145b5b43dap-1, 0x1.974fa13b5404fp-58},   // atan(37/64)
    {0x1.1255d9bfbd2a9p-1, -0x1.2bdaee1c0ee35p-58},  // atan(38/64)
    {0x1.1835a88be7c13p-1, 0x1.c621cec00c301p-55},   // atan(39/64)
    {0x1.1e00babdefeb4p-1, -0x1.928df287a668fp-58},  // atan(40/64)
    {0x1.23b71e2cc9e6ap-1, 0x1.c421c9f38224ep-57},   // atan(41/64)
    {0x1.2958e59308e31p-1, -0x1.09e73b0c6c087p-56},  // atan(42/64)
    {0x1.2ee628406cbcap-1, 0x1.c5d5e9ff0cf8dp-55},   // atan(43/64)
    {0x1.345f01cce37bbp-1, 0x1.1021137c71102p-55},   // atan(44/64)
    {0x1.39c391cd4171ap-1, -0x1.2304331d8bf46p-55},  // atan(45/64)
    {0x1.3f13fb89e96f4p-1, 0x1.ecf8b492644fp-56},    // atan(46/64)
    {0x1.445065b795b56p-1, -0x1.f76d0163f79c8p-56},  // atan(47/64)
    {0x1.4978fa3269ee1p-1, 0x1.2419a87f2a458p-56},   // atan(48/64)
    {0x1.4e8de5bb6ec04p-1, 0x1.4a33dbeb3796cp-55},   // atan(49/64)
    {0x1.538f57b89061fp-1, -0x1.1bb74abda520cp-55},  // atan(50/64)
    {0x1.587d81f732fbbp-1, -0x1.5e5c9d8c5a95p-56},   // atan(51/64)
    {0x1.5d58987169b18p-1, 0x1.0028e4bc5e7cap-57},   // atan(52/64)
    {0x1.6220d115d7b8ep-1, -0x1.2b785350ee8c1p-57},  // atan(53/64)
    {0x1.66d663923e087p-1, -0x1.6ea6febe8bbbap-56},  // atan(54/64)
    {0x1.6b798920b3d99p-1, -0x1.a80386188c50ep-55},  // atan(55/64)
    {0x1.700a7c5784634p-1, -0x1.8c34d25aadef6p-56},  // atan(56/64)
    {0x1.748978fba8e0fp-1, 0x1.7b2a6165884a1p-59},   // atan(57/64)
    {0x1.78f6bbd5d315ep-1, 0x1.406a08980374p-55},    // atan(58/64)
    {0x1.7d528289fa093p-1, 0x1.560821e2f3aa9p-55},   // atan(59/64)
    {0x1.819d0b7158a4dp-1, -0x1.bf76229d3b917p-56},  // atan(60/64)
    {0x1.85d69576cc2c5p-1, 0x1.6b66e7fc8b8c3p-57},   // atan(61/64)
    {0x1.89ff5ff57f1f8p-1, -0x1.55b9a5e177a1bp-55},  // atan(62/64)
    {0x1.8e17aa99cc05ep-1, -0x1.ec182ab042f61p-56},  // atan(63/64)
    {0x1.921fb54442d18p-1, 0x1.1a62633145c07p-55},   // atan(64/64)
};

// The relative error bound of the quick road: far above its real error, far below a half ulp.
constexpr double kQuickBound = 0x1p-64;

// The double nearest to y, when y's error of at most bound * |y| cannot change it.
bool Decided(DD y, double bound, double& out) {
  const double a = std::fabs(y.hi);
  if (!(a > 0x1p-900)) return false;  // zeros and tiny results take the long road
  const double e = a * bound;
  const double up = y.hi + (y.lo + e), down = y.hi + (y.lo - e);
  if (up != down) return false;
  out = up;
  return true;
}

// sin r and cos r, |r| <= pi/4 + a hair, each where asked for: r = j/64 + t, |t| <= 1/128.
void QuickSinCos(DD r, DD* sinR, DD* cosR) {
  const double jr = Nearest(r.hi * 64);
  const int j = static_cast<int>(jr);
  const double t = r.hi - jr / 64;  // exact
  const DD S = j < 0 ? Neg(kSin64[-j]) : kSin64[j];
  const DD C = kCos64[j < 0 ? -j : j];
  const DD t2 = TwoProd(t, t);
  const double u = t2.hi;
  // sin(t + r.lo) - t, and cos(t + r.lo) - 1 less its head -t^2/2, to about 2^-75.
  const double sm = r.lo + t * u * (-1.0 / 6 + u * (1.0 / 120 + u * (-1.0 / 5040)));
  const double cmTail = u * u * (1.0 / 24 + u * (-1.0 / 720)) - t * r.lo - t2.lo * 0.5;
  const double cmHead = -0.5 * t2.hi;  // exact
  // sin = S + C t + (C sm + S cm), cos = C - S t + (C cm - S sm).
  if (sinR) {
    const DD p = TwoProd(C.hi, t), q = TwoProd(S.hi, cmHead);
    const DD a = TwoSum(S.hi, p.hi), b = TwoSum(a.hi, q.hi);
    const double lo =
        a.lo + b.lo + p.lo + q.lo + S.lo + C.lo * t + C.hi * sm + S.hi * cmTail + S.lo * cmHead;
    *sinR = FastTwoSum(b.hi, lo);
  }
  if (cosR) {
    const DD p = TwoProd(-S.hi, t), q = TwoProd(C.hi, cmHead);
    const DD a = TwoSum(C.hi, p.hi), b = TwoSum(a.hi, q.hi);
    const double lo =
        a.lo + b.lo + p.lo + q.lo + C.lo - S.lo * t - S.hi * sm + C.hi * cmTail + C.lo * cmHead;
    *cosR = FastTwoSum(b.hi, lo);
  }
}

// atan t for 0 <= t <= 1 (t a double-double): atan(j/64) + atan(u), u = (t - c) / (1 + t c).
DD QuickAtan(DD t) {
  const double jt = Nearest(t.hi * 64);
  const double c = jt / 64;
  const DD num = TwoSum(t.hi - c, t.lo);  // t.hi - c is exact
  const DD tc = TwoProd(t.hi, c);
  const DD d = TwoSum(1.0, tc.hi);
  const DD den = FastTwoSum(d.hi, d.lo + tc.lo + t.lo * c);
  const double uh = num.hi / den.hi;
  const DD m = TwoProd(uh, den.hi);
  const double ul = (((num.hi - m.hi) - m.lo + num.lo) - uh * den.lo) / den.hi;
  const double u2 = uh * uh;
  // atan u - u for |u| <= 1/128, to about 2^-80.
  const double w = uh * u2 * (-1.0 / 3 + u2 * (1.0 / 5 + u2 * (-1.0 / 7 + u2 * (1.0 / 9))));
  const DD A = kAtan64[static_cast<int>(jt)];
  const DD s = TwoSum(A.hi, uh);
  return FastTwoSum(s.hi, s.lo + A.lo + ul + w);
}

}  // namespace

// sin x, x in radians: the quick road, or the long series where it cannot decide.
double sin(double x) {
  if (x == 0 || !Reducible(x)) return x == 0 ? x : std::sin(x);  // keeps the sign of a zero
  int64_t k = 0;
  const DD r = Reduce(x, k);
  const bool odd = (k & 1) != 0, negative = (k & 2) != 0;
  DD quick;
  QuickSinCos(r, odd ? nullptr : &quick, odd ? &quick : nullptr);
  double y;
  if (!Decided(quick, kQuickBound, y)) y = Round(odd ? CosSeries(r) : SinSeries(r));
  return negative ? -y : y;
}

// cos x, x in radians, as sin.
double cos(double x) {
  if (!Reducible(x)) return std::cos(x);
  int64_t k = 0;
  const DD r = Reduce(x, k);
  const bool odd = (k & 1) != 0, negative = ((k + 1) & 2) != 0;
  DD quick;
  QuickSinCos(r, odd ? &quick : nullptr, odd ? nullptr : &quick);
  double y;
  if (!Decided(quick, kQuickBound, y)) y = Round(odd ? SinSeries(r) : CosSeries(r));
  return negative ? -y : y;
}

// sin x and cos x from one reduction, each the same as sin and cos give.
void sincos(double x, double& sinX, double& cosX) {
  if (x == 0 || !Reducible(x)) {
    sinX = sin(x);
    cosX = cos(x);
    return;
  }
  int64_t k = 0;
  const DD r = Reduce(x, k);
  DD s, c;
  QuickSinCos(r, &s, &c);
  double ys, yc;
  if (!Decided(s, kQuickBound, ys)) ys = Round(SinSeries(r));
  if (!Decided(c, kQuickBound, yc)) yc = Round(CosSeries(r));
  switch (k & 3) {
    case 0:
      sinX = ys;
      cosX = yc;
      break;
    case 1:
      sinX = yc;
      cosX = -ys;
      break;
    case 2:
      sinX = -ys;
      cosX = -yc;
      break;
    default:
      sinX = -yc;
      cosX = ys;
  }
}

// tan x, x in radians, as the quotient of sine and cosine in double-double arithmetic.
double tan(double x) {
  if (x == 0 || !Reducible(x)) return x == 0 ? x : std::tan(x);
  int64_t k = 0;
  const DD r = Reduce(x, k);
  DD s, c;
  QuickSinCos(r, &s, &c);
  const bool odd = (k & 1) != 0;
  double y;
  if (Decided(odd ? Neg(Div(c, s)) : Div(s, c), 4 * kQuickBound, y)) return y;
  const DD S = SinSeries(r), C = CosSeries(r);
  return odd ? -Round(Div(C, S)) : Round(Div(S, C));
}

// atan x in radians, -π/2 to π/2.
double atan(double x) {
  if (std::isnan(x)) return x;
  const double a = std::fabs(x);
  if (a > 0x1p60) return std::copysign(kHalfPi.hi, x);
  // atan a = pi/2 - atan(1/a) above 1; then atan t = atan c + atan((t - c) / (1 + t c)) with c
  // the nearest sixteenth, which leaves |u| <= 1/32 for the series.
  const bool inverted = a > 1;
  DD t{a, 0};
  if (inverted) {
    const double q = 1 / a;
    const DD m = TwoProd(q, a);
    t = FastTwoSum(q, ((1 - m.hi) - m.lo) / a);  // 1 - m.hi is exact
  }
  DD quick = QuickAtan(t);
  if (inverted) {
    const DD d = TwoSum(kHalfPi.hi, -quick.hi);
    quick = FastTwoSum(d.hi, d.lo + kHalfPi.lo - quick.lo);
  }
  if (double y; Decided(quick, kQuickBound, y)) return std::copysign(y, x);
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
