#include "infoserver/jis_record.h"

#include "textutil/date_time.h"
#include "textutil/number_text.h"

namespace quillmere {
namespace {

int16_t Stored16(const std::string& text) {
  const double v = RoundHalfEven(Val(text));
  return v >= -32768 && v <= 32767 ? static_cast<int16_t>(v) : 0;
}

}  // namespace

JISSettings ReadJISSettings(const SettingsStore& store, const std::string& AppTitle) {
  JISSettings j;
  j.RunJISText = store.GetSetting(AppTitle, "Settings", "RunJIS", "0");
  j.RunJIS = Stored16(j.RunJISText);
  j.PushJISText = store.GetSetting(AppTitle, "Settings", "PushJIS", "0");
  j.PushJIS = Stored16(j.PushJISText);
  j.JISIP = store.GetSetting(AppTitle, "Settings", "JISIP", "127.0.0.1");
  j.JISPortText = store.GetSetting(AppTitle, "Settings", "JISPort", "4711");
  j.JISPort = Stored16(j.JISPortText);
  j.JISMinText = store.GetSetting(AppTitle, "Settings", "JISMin", "10");
  j.JISMin = Stored16(j.JISMinText);
  return j;
}

std::string ComposeJISRecord(const EphemerisState& s, const std::string& LMSTCaption, int16_t alrt,
                             const std::string& alertstr) {
  const std::pair<const char*, std::string> lines[] = {
      {"Year = ", FormatDateTime(s.T, "YYYY")},
      {"Month = ", FormatDateTime(s.T, "MM")},
      {"Day = ", FormatDateTime(s.T, "DD")},
      {"Hour = ", FormatDateTime(s.T, "HH")},
      {"Minute = ", FormatDateTime(s.T, "nn")},
      {"Second = ", FormatDateTime(s.T, "ss")},
      {"JUPALT = ", Format(s.JupAlt, "00")},
      {"JUPAZ = ", Format(s.JupAz, "000")},
      {"SUNALT = ", Format(s.SunAlt, "00")},
      {"SUNAZ = ", Format(s.SunAz, "000")},
      {"CML3 = ", Format(s.CML3, "000.0")},
      {"IOPHASE = ", Format(s.IoPhase, "000.0")},
      {"LMSTTIME = ", LMSTCaption},
      {"ACTIVEMODE = ", alrt ? alertstr : std::string("NONE")},
  };
  std::string record;
  for (const auto& [key, value] : lines) record.append(key).append(value).append("\r\n");
  return record;
}

}  // namespace quillmere
