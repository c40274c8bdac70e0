#pragma once
// The JIS record and settings without any socket: what a client receives, byte for byte, and
// what the store says about the service.

#include <cstdint>
#include <string>

#include "ephemeris/ephemeris_state.h"
#include "stormmodel/settings_store.h"

namespace quillmere {

struct JISSettings {
  int16_t RunJIS = 0;               // not 0: the service starts with the program
  int16_t PushJIS = 0;              // not 0: the tick pushes records
  std::string JISIP = "127.0.0.1";  // the one local address listened on
  int16_t JISPort = 4711;
  int16_t JISMin = 10;  // push period, minutes
  // The texts as stored, to name the one at fault when the service cannot use it.
  std::string RunJISText = "0", PushJISText = "0", JISPortText = "4711", JISMinText = "10";
};

// The five settings from section "Settings", in their order. A number that does not fit its
// 16-bit field reads as 0.
JISSettings ReadJISSettings(const SettingsStore& store, const std::string& AppTitle);

// The fourteen lines, each ended by CR LF. T and the positions are taken from `s` as they stand;
// `LMSTCaption` is the sidereal time label's caption, `alrt` and `alertstr` the answer of
// CheckForActivity.
std::string ComposeJISRecord(const EphemerisState& s, const std::string& LMSTCaption, int16_t alrt,
                             const std::string& alertstr);

}  // namespace quillmere
