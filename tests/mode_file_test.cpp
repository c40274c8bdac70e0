#include <gtest/gtest.h>
#ifndef _WIN32
#include <unistd.h>
#endif

#include <random>

#include "storm_test_support.h"
#include "stormmodel/activity.h"
#include "stormmodel/mode_table.h"
#include "textutil/date_time.h"

namespace quillmere {
namespace {

using testing::ScratchDir;

struct Loaded {
  ModeTable table;
  ModeFileResult result;
};

Loaded LoadBytes(const std::string& bytes) {
  ScratchDir dir;
  Loaded l;
  l.result = LoadModeFile(dir.File("UFMODES.JMF", bytes), l.table);
  return l;
}

TEST(LoadModeFile, ReadsRecords) {
  const struct {
    const char* bytes;
    int count;
    const char* name1;
    std::array<int16_t, 4> limits1;
  } cases[] = {
      {"Io-A,200,270,195,265\r\nIo-B,105,185,80,110\r\n", 2, "Io-A", {200, 270, 195, 265}},
      {"Io-A,200,270,195,265", 1, "Io-A", {200, 270, 195, 265}},  // no line end at the end
      {"A,1,2\r3\n4", 1, "A", {1, 2, 3, 4}},                      // CR, LF and comma alike
      {"A,1,2,3,4,B,5,6,7,8", 2, "A", {1, 2, 3, 4}},  // records need not stand one a line
      {"  Source A  ,  1 , 2 ,3,4\n", 1, "Source A", {1, 2, 3, 4}},
      {"\"Io, A\" dropped ,1,2,3,4\n", 1, "Io, A", {1, 2, 3, 4}},
      {"\"  io-a \",1,2,3,4\n", 1, "  io-a ", {1, 2, 3, 4}},          // quotes keep blanks and case
      {",abc,,12xyz,-7\n", 1, "", {0, 0, 12, -7}},                    // no number reads as 0
      {"A,1.5,2.5,-32768,32767.4\n", 1, "A", {2, 2, -32768, 32767}},  // half to even
      {"A,1,2,3,4,\n", 0, "A", {1, 2, 3, 4}},  // the line end after a comma starts a record
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.bytes);
    const Loaded l = LoadBytes(c.bytes);
    EXPECT_EQ(l.table.ModeName[1], c.name1);
    for (int k = 0; k < 4; ++k) EXPECT_EQ(l.table.ModeLimits[1][k + 1], c.limits1[k]);
    if (c.count == 0) {
      ASSERT_TRUE(l.result.error);
      EXPECT_EQ(l.result.error->number, 62);
    } else {
      EXPECT_FALSE(l.result.error);
      EXPECT_EQ(l.table.ModeCount, c.count);
      EXPECT_EQ(l.table.ModesLoaded, -1);
    }
  }
}

TEST(LoadModeFile, FailuresGiveTheirNumbers) {
  const struct {
    std::string bytes;
    int number;
  } cases[] = {
      {"", 62},
      {"A,1,2,3,4\r\n\r\n", 62},  // a blank line starts a further record
      {"A,1,2,3", 62},
      {"\"A,1,2,3,4\n", 62},  // a quote that never closes runs to the end
      {"A,32768,0,0,0", 6},
      {"A,0,0,0,-32768.6", 6},
      {"A,1e9999,0,0,0", 6},
      {std::string(200000, 'x'), 14},  // a field too long stops the reading
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.bytes.substr(0, 40));
    const Loaded l = LoadBytes(c.bytes);
    ASSERT_TRUE(l.result.error);
    EXPECT_EQ(l.result.error->number, c.number);
    EXPECT_EQ(l.table.ModesLoaded, 0);
    EXPECT_EQ(l.table.ModeCount, 10);
    EXPECT_EQ(UsableModes(l.table), 0);
  }
}

TEST(LoadModeFile, PartWayFailureKeepsWhatWasRead) {
  const Loaded l = LoadBytes("A,1,2,3,4\nB,5,6");
  EXPECT_EQ(l.table.ModeName[1], "A");
  EXPECT_EQ(l.table.ModeName[2], "B");
  EXPECT_EQ(l.table.ModeLimits[2][2], 6);
  EXPECT_EQ(l.table.ModeLimits[2][3], 0);
  EXPECT_EQ(l.table.ModeName[3], "");
}

TEST(LoadModeFile, MoreThanSixModes) {
  std::string seven, eleven;
  for (int i = 1; i <= 11; ++i) {
    const std::string record = "M" + std::to_string(i) + "," + std::to_string(i) + ",2,3,4\r\n";
    if (i <= 7) seven += record;
    eleven += record;
  }
  const Loaded a = LoadBytes(seven);
  EXPECT_EQ(a.table.ModeCount, 7);
  EXPECT_EQ(UsableModes(a.table), 6);
  ASSERT_TRUE(a.result.notice);
  // What follows the tenth record is not read, so an eleventh record does not matter.
  const Loaded b = LoadBytes(eleven + "junk without end");
  EXPECT_FALSE(b.result.error);
  EXPECT_EQ(b.table.ModeCount, 10);
  EXPECT_EQ(b.table.ModeName[10], "M10");
  EXPECT_TRUE(b.result.notice);
  EXPECT_FALSE(LoadBytes("A,1,2,3,4").result.notice);
}

TEST(LoadModeFile, OpenFailuresAndTheirMessage) {
  ScratchDir dir;
  ModeTable t;
  const std::string missing = dir.Path("UFMODES.JMF");
  const ModeFileResult r = LoadModeFile(missing, t);
  ASSERT_TRUE(r.error);
  EXPECT_EQ(r.error->title, "FILE ERROR!");
  EXPECT_EQ(r.error->text, "Error  53 Occurred Loading " + missing + ".\r\nFile Not Found");
  EXPECT_EQ(t.ModeCount, 0);
  EXPECT_EQ(t.ModesLoaded, 0);

  EXPECT_EQ(LoadModeFile(dir.Path("nowhere/UFMODES.JMF"), t).error->number, 76);
  EXPECT_EQ(LoadModeFile(dir.Path(), t).error->number, 75);
  EXPECT_EQ(LoadModeFile(dir.Path(), t).error->text.substr(0, 10), "Error  75 ");
#ifndef _WIN32             // Windows has no mode bit that forbids reading
  if (::geteuid() != 0) {  // root reads whatever the mode bits say
    const std::string locked = dir.File("locked.JMF", "A,1,2,3,4");
    std::filesystem::permissions(locked, std::filesystem::perms::none);
    EXPECT_EQ(LoadModeFile(locked, t).error->number, 70);
  }
#endif
}

// Random files of the reader's own alphabet and some binary: the reader must end with a table
// that holds together, whatever it was given.
TEST(LoadModeFile, RandomFilesNeverBreakTheTable) {
  ScratchDir dir;
  std::mt19937 rng(20060705);
  const std::string alphabet = ",,,\"\r\n\n  \t0123456789-.eEIo";
  for (int n = 0; n < 1500; ++n) {
    std::string bytes;
    const int length = std::uniform_int_distribution<int>(0, n % 10 == 0 ? 2000 : 120)(rng);
    const bool binary = n % 7 == 0;
    for (int i = 0; i < length; ++i) {
      bytes += binary ? static_cast<char>(rng() & 0xFF) : alphabet[rng() % alphabet.size()];
    }
    ModeTable t;
    const ModeFileResult r = LoadModeFile(dir.File("r.JMF", bytes), t);
    if (r.error) {
      EXPECT_TRUE(r.error->number == 62 || r.error->number == 6) << r.error->number;
      EXPECT_EQ(t.ModesLoaded, 0);
    } else {
      EXPECT_GE(t.ModeCount, 1);
      EXPECT_LE(t.ModeCount, 10);
    }
    EXPECT_LE(UsableModes(t), 6);
  }
}

std::array<int16_t, 5> Limits(int16_t cl, int16_t ch, int16_t il, int16_t ih) {
  return {0, cl, ch, il, ih};
}

TEST(ModeMark, InclusiveLimitsAndTheWrap) {
  // Io-A's box, a box across 0, a single longitude, an Io range that can never hold, and zeros.
  const auto io = Limits(200, 270, 195, 265), wrap = Limits(300, 20, 0, 360),
             one = Limits(100, 100, 0, 360), never = Limits(0, 360, 200, 100),
             zero = Limits(0, 0, 0, 0);
  const struct {
    std::array<int16_t, 5> limits;
    int16_t cml, io;
    int16_t mark;
  } cases[] = {
      {io, 200, 265, 1}, {io, 270, 195, 1}, {io, 199, 265, 0},  {io, 200, 266, 0},
      {io, 271, 200, 0}, {io, 230, 194, 0}, {wrap, 300, 10, 1}, {wrap, 360, 10, 1},
      {wrap, 0, 10, 1},  {wrap, 20, 10, 1}, {wrap, 21, 10, 0},  {wrap, 299, 10, 0},
      {one, 100, 0, 1},  {one, 101, 0, 0},  {one, 99, 0, 0},    {never, 150, 150, 0},
      {zero, 0, 0, 1},   {zero, 0, 1, 0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(::testing::Message() << c.limits[1] << "-" << c.limits[2] << " / " << c.limits[3]
                                      << "-" << c.limits[4] << " at " << c.cml << ", " << c.io);
    EXPECT_EQ(ModeMark(c.limits, c.cml, c.io), c.mark);
  }
}

TEST(CheckForActivity, NamesTheModesInForceLastFirst) {
  ModeTable modes;
  modes.ModeCount = 3;
  modes.ModesLoaded = -1;
  modes.ModeName = {"", "Source A", "Source B", "Source C"};
  ActivityTable today;
  const double t = *DateSerial(2006, 7, 5) + TimeSerial(0, 0, 30);  // row 1
  today(1, 1) = 1;
  today(2, 1) = 1;
  today(3, 2) = 1;
  int16_t alrt = 0;
  std::string text;
  CheckForActivity(t, modes, today, alrt, text);
  EXPECT_EQ(alrt, -1);
  EXPECT_EQ(text, "Source B   Source A   ");

  text.clear();
  CheckForActivity(t + TimeSerial(0, 1, 0), modes, today, alrt, text);
  EXPECT_EQ(text, "Source C   ");
  text.clear();
  modes.ModesLoaded = 0;  // without modes nothing is ever in force
  CheckForActivity(t, modes, today, alrt, text);
  EXPECT_EQ(alrt, 0);
  EXPECT_EQ(text, "");
}

TEST(ComputeTodayActivity, MarksThePresentDayAndKeepsT) {
  const ModeTable modes = testing::ModesFrom("All,0,360,0,360\r\nNever,0,360,200,100\r\n");
  EphemerisState s;
  s.T = 123;
  MinuteTables tables;
  ActivityTable day;
  TodayActivityState today;
  const double now = *DateSerial(2006, 7, 5) + TimeSerial(13, 0, 0);
  ComputeTodayActivity(s, now, 30, 80, modes, tables, day, today);
  EXPECT_EQ(s.T, now);
  EXPECT_EQ(today.ActivityDay, 5);
  EXPECT_EQ(today.TodayActivity(1, 1), 1);
  EXPECT_EQ(today.TodayActivity(1, 1440), 1);
  EXPECT_EQ(today.TodayActivity(1, 0), 0);
  EXPECT_EQ(today.TodayActivity(2, 700), 0);
  EXPECT_EQ(today.TodayActivity(3, 700), 0);
}

}  // namespace
}  // namespace quillmere
