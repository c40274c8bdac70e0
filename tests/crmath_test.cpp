// The correctly rounded functions: cases that the C libraries of Linux or Windows (as Wine has
// it) round to the other neighbour, pinned to the nearest double; this table runs on every
// platform the core is built for.

#include "ephemeris/crmath.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace quillmere {
namespace {

using Fn = double (*)(double);

struct Case {
  Fn fn;
  const char* name;
  double x;
  double nearest;
};

const Case kMisroundedElsewhere[] = {
    {crmath::sin, "sin", 0x1.aab705fa92c3p+1, -0x1.870a92a5cbe99p-3},
    {crmath::sin, "sin", -0x1.6d3a63f31fb14p+1, -0x1.2318806cc1057p-2},
    {crmath::sin, "sin", -0x1.304e936d3e86ap+2, 0x1.ff8a2947b9b47p-1},
    {crmath::cos, "cos", -0x1.720e945e59dc9p+2, 0x1.c110be73955ebp-1},
    {crmath::cos, "cos", 0x1.2d98105939ba2p+2, 0x1.21981e73b4ffbp-16},  // near pi/2 * 3
    {crmath::cos, "cos", -0x1.37bee89c89568p+2, 0x1.4387ab46542e7p-3},
    {crmath::tan, "tan", -0x1.5dbb23b4aeea8p+7, 0x1.ccc859f52ce3dp+0},
    {crmath::tan, "tan", 0x1.9cfce7a57171cp+7, -0x1.2418950489eabp+0},
    {crmath::tan, "tan", -0x1.b452ca6db001fp+8, 0x1.7f12eab8f0f63p-2},
    {crmath::tan, "tan", 0x1.6a2af01e7ad9p+8, 0x1.38929d1bfb919p+0},
    {crmath::atan, "atan", 0x1.443d8e62045dp+2, 0x1.603c19892662bp+0},
    {crmath::atan, "atan", 0x1.8e450ea5dc154p+5, 0x1.8cfb7885202d9p+0},
    {crmath::atan, "atan", -0x1.4b01c4a6034c4p+3, -0x1.7973a9531194fp+0},
    {crmath::atan, "atan", -0x1.a91fae857b47p+3, -0x1.7ee3f453e0449p+0},
};

TEST(CorrectlyRounded, TheNearestDoubleWhereLibrariesMissIt) {
  for (const Case& c : kMisroundedElsewhere)
    EXPECT_EQ(c.fn(c.x), c.nearest) << c.name << "(" << std::hexfloat << c.x << ")";
}

TEST(CorrectlyRounded, SignsLimitsAndTheEdgesOfTheReduction) {
  const double inf = std::numeric_limits<double>::infinity();
  EXPECT_TRUE(std::signbit(crmath::sin(-0.0)));
  EXPECT_TRUE(std::signbit(crmath::atan(-0.0)));
  EXPECT_EQ(crmath::cos(0.0), 1.0);
  EXPECT_EQ(crmath::atan(inf), 0x1.921fb54442d18p+0);
  EXPECT_EQ(crmath::atan(-1e300), -0x1.921fb54442d18p+0);
  EXPECT_EQ(crmath::atan(1.0), 0x1.921fb54442d18p-1);  // pi/4: the table's last sixteenth
  EXPECT_TRUE(std::isnan(crmath::atan(std::nan(""))));
  EXPECT_TRUE(std::isnan(crmath::sin(inf)));
  for (const double x : {0.1, 1.0, 2.5, 700.25, 0x1p20 - 1}) {
    EXPECT_EQ(crmath::sin(-x), -crmath::sin(x)) << x;
    EXPECT_EQ(crmath::cos(-x), crmath::cos(x)) << x;
    EXPECT_EQ(crmath::tan(-x), -crmath::tan(x)) << x;
    EXPECT_EQ(crmath::atan(-x), -crmath::atan(x)) << x;
    double s = 0, c = 0;
    crmath::sincos(-x, s, c);
    EXPECT_EQ(s, crmath::sin(-x)) << x;
    EXPECT_EQ(c, crmath::cos(-x)) << x;
  }
}

}  // namespace
}  // namespace quillmere
