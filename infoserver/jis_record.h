#pragma once
// The JIS record and settings without any socket: what a client receives, byte for byte, and
// what the store says about the service.

#include <cstdint>
#include <string>

#include "ephemeris/ephemeris_state.h"
#include "stormmodel/settings_sections.h"

namespace quillmere {

// The service's settings from the store.
JISSettings ReadJISSettings(const SettingsStore& store, const std::string& AppTitle);

// The fourteen lines, each ended by CR LF. T and the positions are taken from `s` as they stand;
// `LMSTCaption` is the sidereal time label's caption, `alrt` and `alertstr` the answer of
// CheckForActivity.
std::string ComposeJISRecord(const EphemerisState& s, const std::string& LMSTCaption, int16_t alrt,
                             const std::string& alertstr);

}  // namespace quillmere
