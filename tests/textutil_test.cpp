#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <string>

#include "textutil/date_time.h"
#include "textutil/error_text.h"
#include "textutil/latlng.h"
#include "textutil/number_text.h"

namespace quillmere {
namespace {

TEST(NumberText, ShortestTextWithBlankForNonNegative) {
  const std::pair<double, const char*> doubles[] = {
      {15, " 15"},        {-5, "-5"}, {0.45, " .45"},
      {-0.45, "-.45"},    {0, " 0"},  {1.0 / 3, " .333333333333333"},
      {0.00001, " 1E-05"}};
  for (const auto& [value, text] : doubles) EXPECT_EQ(NumberText(value), text) << value;
  // A 32-bit value shows seven digits, not the digits of its binary expansion.
  const std::pair<float, const char*> floats[] = {
      {41.5f, " 41.5"},
      {47.85f, " 47.85"},
      {0.1f, " .1"},
      {1.0f / 3, " .3333333"},
      {12345678.0f, " 1.234568E+07"},
  };
  for (const auto& [value, text] : floats) EXPECT_EQ(NumberText(value), text) << value;
}

// Halves round away from zero; a value that rounds to zero keeps its sign; 1.005 is held as
// 1.00499999999999989 but read by its fifteen digits, 1.00500000000000.
TEST(Format, Patterns) {
  const struct {
    double value;
    const char *pattern, *text;
  } cases[] = {{5, "00", "05"},
               {-1, "00", "-01"},
               {29.5, "00", "30"},
               {-29.5, "00", "-30"},
               {123, "00", "123"},
               {7.25, "000", "007"},
               {7.25, "00.0", "07.3"},
               {-0.04, "00.0", "-00.0"},
               {0.04, "00.0", "00.0"},
               {59.96, "00.0", "60.0"},
               {1.005, "000.00", "001.01"},
               {0.5, "000.00", "000.50"},
               {0, "##", ""},
               {7, "##", "7"},
               {12, "##", "12"},
               {0, "#0", "0"},
               {3, "#0", "3"},
               {999.96, "000.0", "1000.0"},
               {0.0000001, "00.0", "00.0"}};
  for (const auto& c : cases)
    EXPECT_EQ(Format(c.value, c.pattern), c.text) << c.value << " by " << c.pattern;
  // 47.85f is held as 47.84999847: read by its seven digits as a 32-bit value, by fifteen as a
  // 64-bit one.
  EXPECT_EQ(Format(47.85f, "000.0"), "047.9");
  EXPECT_EQ(Format(static_cast<double>(47.85f), "000.0"), "047.8");
}

TEST(Val, LongestNumericPrefix) {
  const struct {
    const char* text;
    double value;
  } cases[] = {
      {"", 0},        {"abc", 0},       {"  12", 12},     {"\t-3.5x", -3.5}, {"+.5", 0.5},
      {"1.5e2", 150}, {"1.5D2", 150},   {"2E", 2},        {"2E+", 2},        {"2e-1z", 0.2},
      {".", 0},       {"-", 0},         {"1 2", 1},       {"41,5", 41},      {"12:30", 12},
      {"007", 7},     {"-0.25", -0.25}, {" 4711 ", 4711}, {"1.2.3", 1.2},    {"--1", 0},
  };
  for (const auto& c : cases) EXPECT_EQ(Val(c.text), c.value) << "'" << c.text << "'";
  EXPECT_TRUE(std::isinf(Val("1e999")));
}

TEST(Rounding, IntFixAndHalfEven) {
  const std::array<double, 4> cases[] = {// x, Int, Fix, RoundHalfEven
                                         {-0.5, -1, 0, 0}, {2.7, 2, 2, 3}, {-2.7, -3, -2, -3},
                                         {2.5, 2, 2, 2},   {3.5, 3, 3, 4}, {-2.5, -3, -2, -2}};
  for (const auto& [x, i, f, r] : cases)
    EXPECT_EQ((std::array{Int(x), Fix(x), RoundHalfEven(x)}), (std::array{i, f, r})) << x;
}

TEST(DateTime, ComposeWithRollOver) {
  const struct {
    int y, m, d;
    double value;
  } cases[] = {
      {1899, 12, 30, 0},    {1899, 12, 31, 1},   {1900, 1, 1, 2},
      {2000, 1, 1, 36526},  {2006, 7, 5, 38903}, {2006, 13, 1, 39083},  // 1 January 2007
      {2006, 3, 0, 38776},                                              // 28 February 2006
      {2006, 1, -1, 38716},                                             // 30 December 2005
      {2006, 0, 1, 38687},                                              // 1 December 2005
      {2004, 2, 30, 38047},                                             // 1 March 2004
      {1899, 12, 29, -1},
  };
  for (const auto& c : cases) {
    const auto v = DateSerial(c.y, c.m, c.d);
    ASSERT_TRUE(v) << c.y << "-" << c.m << "-" << c.d;
    EXPECT_EQ(*v, c.value) << c.y << "-" << c.m << "-" << c.d;
  }
  // Whatever leaves the years 100 to 9999 is refused, also by way of a roll-over far beyond
  // the years a calendar type can hold (the year 74 000 is not some year inside the range).
  const long long outside[][3] = {
      {10000, 1, 1},       {99, 12, 31},         {9999, 12, 32},    {2000000000, 1, 1},
      {2000, 1, 26400000}, {2000, 1, -26400000}, {2000, 960000, 1}, {100, 1, 0},
  };
  for (const auto& o : outside) EXPECT_FALSE(DateSerial(o[0], o[1], o[2])) << o[0] << " " << o[2];
  EXPECT_TRUE(DateSerial(100, 1, 1));
  EXPECT_TRUE(DateSerial(9999, 12, 31));
  EXPECT_TRUE(DateSerial(9000, 1, 365242));  // 999 years of roll-over that stay inside
  EXPECT_EQ(TimeSerial(12, 0, 0), 0.5);
  EXPECT_EQ(TimeSerial(0, 10, 0), 600.0 / 86400);
}

TEST(DateTime, SplitAtTheNearestSecond) {
  const double day = *DateSerial(2006, 7, 5);
  const struct {
    double value;
    int y, mo, d, h, mi, s;
  } cases[] = {
      {day + 0.5, 2006, 7, 5, 12, 0, 0},
      {day + 0.006944444, 2006, 7, 5, 0, 10, 0},  // a hair short of ten minutes
      {day + 59.4 / 86400, 2006, 7, 5, 0, 0, 59},
      {day + 1.0 / 256, 2006, 7, 5, 0, 5, 38},  // exactly 00:05:37.5: the half goes up
      {day + 255.0 / 256, 2006, 7, 5, 23, 54, 23},
      {day + 86399.6 / 86400, 2006, 7, 6, 0, 0, 0},  // rounds into the next day
      {day + 86399.4 / 86400, 2006, 7, 5, 23, 59, 59},
      {-0.25, 1899, 12, 29, 18, 0, 0},
      {*DateSerial(2000, 2, 29), 2000, 2, 29, 0, 0, 0},
  };
  for (const auto& c : cases) {
    const auto f = SplitDateTime(c.value);
    ASSERT_TRUE(f) << c.value;
    EXPECT_EQ((std::array{f->year, f->month, f->day, f->hour, f->minute, f->second}),
              (std::array{c.y, c.mo, c.d, c.h, c.mi, c.s}))
        << c.value;
  }
  EXPECT_FALSE(SplitDateTime(std::numeric_limits<double>::quiet_NaN()));
  EXPECT_FALSE(SplitDateTime(1e12));
}

TEST(DateTime, Patterns) {
  const double t = *DateSerial(2006, 7, 5) + TimeSerial(13, 4, 9);
  const std::pair<const char*, const char*> cases[] = {
      {"MM/DD/YYYY HH:nn:ss", "07/05/2006 13:04:09"},
      {"yyyy-mm-dd", "2006-07-05"},
      {"hh:mm", "13:04"},  // minutes after an hour field
      {"hh:mm dd/mm", "13:04 05/07"},
      {"dd.mm.yyyy", "05.07.2006"}};
  for (const auto& [pattern, text] : cases) EXPECT_EQ(FormatDateTime(t, pattern), text) << pattern;
  EXPECT_EQ(FormatDateTime(1e12, "yyyy"), "");
}

TEST(LatLng, ToText) {
  const struct {
    float x;
    bool longitude;
    const char* text;
  } cases[] = {
      {41.5f, false, "41:30:00.0"},
      {-41.5f, false, "-41:30:00.0"},
      {-0.5f, false, "-0:30:00.0"},
      {0, false, "0:00:00.0"},
      {30, false, "30:00:00.0"},
      {75.5f, true, "75:30:00.0"},
      {-75.5f, true, "-75:30:00.0"},
      {284.5f, true, "284:30:00.0"},
      {41.25f, false, "41:15:00.0"},
      // A fraction of a second short of a whole degree carries into the next degree; the
      // seconds keep the sign of what was left, a hair below zero.
      {41.99999f, false, "42:00:-00.0"},
      {10.99999f, true, "11:00:-00.0"},
      {89.99999f, false, "0:00:-00.0"},  // the carry reaches 90 and wraps
      {-41.99999f, false, "-42:00:-00.0"},
      {-0.99999f, false, "-1:00:-00.0"},
      {41.9998f, false, "41:59:59.3"},
  };
  for (const auto& c : cases)
    EXPECT_EQ(c.longitude ? LongToText(c.x) : LatToText(c.x), c.text) << c.x;
}

TEST(LatLng, FromText) {
  const struct {
    const char* text;
    bool longitude;
    float value;
    const char* trimmed;
  } cases[] = {
      {"41:30", false, 41.5f, "41:30"},
      {" 41:30:00 ", false, 41.5f, "41:30:00"},
      {"-41:30", false, -41.5f, "-41:30"},
      {"41,5", false, 41.5f, "41.5"},
      {"41:30:15,5", false, static_cast<float>(41 + 30.0 / 60 + 15.5 / 3600), "41:30:15,5"},
      {"91:00:00", false, -999, "91:00:00"},
      {"91", false, 91, "91"},
      {"-90:00:00", false, -90, "-90:00:00"},
      {"41:30.5", false, static_cast<float>(41 + 30.5 / 60), "41:30.5"},
      {"41:29.5:00", false, static_cast<float>(41 + 30.0 / 60), "41:29.5:00"},  // minutes to even
      {"75:30", true, 75.5f, "75:30"},
      {"-75:30", true, 284.5f, "75:30"},
      {"-75.5", true, -75.5f, "75.5"},
      {"+75.5", true, 75.5f, "75.5"},
      {"75,5", true, 75, "75,5"},  // no comma as decimal point in a plain longitude
      {"361:00", true, -999, "361:00"},
      {"-0:30", true, 359.5f, "0:30"},
      {"", true, 0, ""},
  };
  for (const auto& c : cases) {
    std::string s = c.text;
    const float v = c.longitude ? TextToLong(s) : TextToLat(s);
    EXPECT_EQ(v, c.value) << "'" << c.text << "'";
    EXPECT_EQ(s, c.trimmed) << "'" << c.text << "'";
  }
  std::string huge = "1e300";
  EXPECT_EQ(TextToLat(huge), kLatLongError);
}

TEST(ErrorText, WordsAndNumbers) {
  const std::pair<int, const char*> cases[] = {
      {53, "File Not Found"}, {6, "OverFlow"},  {74, "Can't Rename with Different Drive"},
      {482, "Printer Error"}, {0, "Error # 0"}, {13, "Error # 13"},
      {-1, "Error #-1"}};
  for (const auto& [number, text] : cases) EXPECT_EQ(ErrorText(number), text) << number;
}

}  // namespace
}  // namespace quillmere
