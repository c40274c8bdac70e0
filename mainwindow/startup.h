#pragma once
// The start of the program that every front end shares: the words it says, the settings it reads
// and the notices it gives when a stored value would silently do nothing.

#include <string>
#include <vector>

#include "ephemeris/ephemeris_state.h"
#include "infoserver/jis_record.h"
#include "mainwindow/program_state.h"
#include "stormmodel/settings_sections.h"

namespace quillmere {

inline constexpr char kAppTitle[] = "Quillmere Speaking Edition";
inline constexpr char kWelcome[] = "Welcome to Quillmere Speech Edition. For Help Press F1.";
inline constexpr char kClosing[] = "Quillmere Speech Edition Closing.";
inline constexpr int kVersionMajor = 1, kVersionMinor = 0, kVersionRevision = 1;

// "1.0.1"
std::string VersionText();

// The stored values read at start into p (date order, mode file, UT display, west or east, the
// announcements, the observer) and the ephemeris chosen into s. `defaultModeFile` stands when
// none is stored.
void LoadStartupSettings(SettingsStore& store, const std::string& defaultModeFile, ProgramState& p,
                         EphemerisState& s);

// The lines of a message box's text, CR LF apart, without the empty ones.
std::vector<std::string> MessageLines(const std::string& text);

// What the user hears at start about JIS settings that would keep the service quiet.
std::vector<std::string> JisSettingNotices(const JISSettings& settings);

}  // namespace quillmere
