#include "infoserver/jis_record.h"

#include "textutil/date_time.h"
#include "textutil/number_text.h"

namespace quillmere {
JISSettings ReadJISSettings(const SettingsStore& store, const std::string& AppTitle) {
  return ReadProgramSettings(store, AppTitle).jis;
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
