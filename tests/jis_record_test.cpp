// The JIS record byte for byte.

#include "infoserver/jis_record.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "textutil/date_time.h"

namespace quillmere {
namespace {

EphemerisState Sky(double T, double JupAlt, double JupAz, double SunAlt, double SunAz, float CML3,
                   float IoPhase) {
  EphemerisState s;
  s.T = T;
  s.JupAlt = JupAlt, s.JupAz = JupAz, s.SunAlt = SunAlt, s.SunAz = SunAz;
  s.CML3 = CML3, s.IoPhase = IoPhase;
  return s;
}

TEST(JISRecord, FourteenLinesInOrder) {
  const double T = *DateSerial(2006, 7, 5) + TimeSerial(13, 2, 9);
  const std::string record = ComposeJISRecord(Sky(T, 41.2, 187.4, -12.3, 305.1, 215.44f, 90.5f),
                                              " LMST: 12:34:56", -1, "Source B   Source A   ");
  EXPECT_EQ(record,
            "Year = 2006\r\nMonth = 07\r\nDay = 05\r\nHour = 13\r\nMinute = 02\r\nSecond = 09\r\n"
            "JUPALT = 41\r\nJUPAZ = 187\r\nSUNALT = -12\r\nSUNAZ = 305\r\nCML3 = 215.4\r\n"
            "IOPHASE = 090.5\r\nLMSTTIME =  LMST: 12:34:56\r\n"
            "ACTIVEMODE = Source B   Source A   \r\n");
}

// One value at a time against the line it lands on: rounding, signs, widths and the fold of a
// second into the next day.
TEST(JISRecord, ValuesRoundToTheirLines) {
  const double noon = *DateSerial(2010, 12, 31) + TimeSerial(12, 0, 0);
  const struct {
    EphemerisState sky;
    int16_t alrt;
    const char* alertstr;
    const char* line;
  } cases[] = {
      {Sky(noon, 5.5, 0, 0, 0, 0, 0), 0, "", "JUPALT = 06\r\n"},
      {Sky(noon, -0.4, 0, 0, 0, 0, 0), 0, "", "JUPALT = -00\r\n"},
      {Sky(noon, -5.5, 0, 0, 0, 0, 0), 0, "", "JUPALT = -06\r\n"},
      {Sky(noon, 0, 359.6, 0, 0, 0, 0), 0, "", "JUPAZ = 360\r\n"},
      {Sky(noon, 0, 7.49, 0, 0, 0, 0), 0, "", "JUPAZ = 007\r\n"},
      {Sky(noon, 0, 0, -89.5, 0, 0, 0), 0, "", "SUNALT = -90\r\n"},
      {Sky(noon, 0, 0, 0, 99.5, 0, 0), 0, "", "SUNAZ = 100\r\n"},
      {Sky(noon, 0, 0, 0, 0, 359.96f, 0), 0, "", "CML3 = 360.0\r\n"},
      {Sky(noon, 0, 0, 0, 0, 47.85f, 0), 0, "", "CML3 = 047.9\r\n"},
      {Sky(noon, 0, 0, 0, 0, 0, 0.04f), 0, "", "IOPHASE = 000.0\r\n"},
      {Sky(noon + TimeSerial(11, 59, 59) + 0.6 / 86400, 0, 0, 0, 0, 0, 0), 0, "",
       "Year = 2011\r\nMonth = 01\r\nDay = 01\r\nHour = 00\r\nMinute = 00\r\nSecond = 00\r\n"},
      {Sky(noon, 0, 0, 0, 0, 0, 0), 0, "", "ACTIVEMODE = NONE\r\n"},
      {Sky(noon, 0, 0, 0, 0, 0, 0), -1, "Io-A   ", "ACTIVEMODE = Io-A   \r\n"},
  };
  for (const auto& c : cases) {
    const std::string record = ComposeJISRecord(c.sky, " LMST: 00:00:00", c.alrt, c.alertstr);
    EXPECT_NE(record.find(c.line), std::string::npos) << c.line << "in\n" << record;
    EXPECT_EQ(std::count(record.begin(), record.end(), '\n'), 14) << c.line;
  }
}

}  // namespace
}  // namespace quillmere
