#pragma once
// The source regions ("modes"): rectangles in the plane of System III central meridian and Io
// phase, read once at start from the mode file.

#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace quillmere {

inline constexpr int kModeRecords = 10;   // the file may name this many
inline constexpr int kActivityModes = 6;  // the activity tables, the grid and the chart hold six

struct ModeTable {
  // Index 1 to 10; index 0 is unused so that a mode's number is its index.
  std::array<std::string, kModeRecords + 1> ModeName{};
  // ModeLimits[i][1..4]: CML low, CML high, Io low, Io high, whole degrees.
  std::array<std::array<int16_t, 5>, kModeRecords + 1> ModeLimits{};
  int16_t ModeCount = 0;
  int16_t ModesLoaded = 0;  // 0 false, -1 true
};

// The modes everybody else works with: the first six, and none at all when the file failed
// part-way (which leaves ModeCount at 10 over records that were never read).
inline int UsableModes(const ModeTable& t) {
  if (!t.ModesLoaded) return 0;
  return t.ModeCount < kActivityModes ? t.ModeCount : kActivityModes;
}

// A modal message for the user: title and text, the text's lines joined by CR LF.
struct ModeFileMessage {
  std::string title;
  std::string text;
  int number = 0;  // the run-time error number; 0 for a notice
};

struct ModeFileResult {
  std::optional<ModeFileMessage> error;   // "FILE ERROR!"; ModesLoaded stays false
  std::optional<ModeFileMessage> notice;  // more than six modes: only the first six are used
};

// Reads the file into `table` and sets ModeCount and ModesLoaded. The caller shows the message,
// if any, when it can.
ModeFileResult LoadModeFile(const std::string& ModeFileName, ModeTable& table);

}  // namespace quillmere
