#pragma once
// The words of every value label of the main window. What a label shows is also what the voice
// reads back, so these texts are the program's answers.

#include <optional>
#include <string>

#include "ephemeris/ephemeris_state.h"
#include "mainwindow/program_state.h"

namespace quillmere {

struct Captions {
  std::string LblJupRA, LblJupDEC, LBlCMIII, LbLSGC, LBLJupAlt, LblJUPAZ, LBLJupHA, LbLJupRise,
      LbLJupSet;
  std::string LbLSunRA, LBLSunDec, LBLSunAlt, LbLSunAz, LBLSunHA, LbLSunRise, LbLSunSet;
};

// The captions from the live values, or in fixed time from the fixed copies.
void DisplayInfo(const ProgramState& p, const EphemerisState& s, Captions& c);

// Copies the live values to the fixed copies.
void SetFixedTime(ProgramState& p, const EphemerisState& s);

// " LMST: HH:MM:SS" from sidereal time in hours; nothing when the hours do not fit 16 bits.
std::optional<std::string> LmstCaption(float x);

// The observer label: "Lat : ..." and "Long: ... W" (or " E"), joined by CR LF.
std::string ObserverCaption(const ProgramState& p);

// The instant the date and time boxes show.
double BoxesInstant(const ProgramState& p, const EphemerisState& s, double localNow);

// "Quillmere Speech Edition.  1.0.1" from the version numbers.
std::string MakeVersionBanner(int major, int minor, int revision);

}  // namespace quillmere
