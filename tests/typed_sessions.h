#pragma once
// Typed sessions that the window and quillmere-term must answer with the same words. A line
// "\F1" is the F1 key, "\ESC" the Esc key; any other line is typed and entered. The test clock
// of the window stands on 07/05/2006, so the sessions name other days: only the date of the
// present that T reports in prediction mode differs between the two.

#include <string>
#include <vector>

namespace quillmere::testing {

inline const std::vector<std::vector<std::string>> kTypedSessions = {
    {"lat", "lng", "45:30", "lat", "lng", "-75:30", "lng", "-12.5", "tz", "ad", "abc",
     "as",  "nas", "aj",    "naj", "xyz", "S",      "x",   "J",     "q1", "12", "\\F1"},
    {"p", "\\F1", "p",   "d", "3",  "t", "07/06/2006", "r",  "i", "d", "1",
     "r", "ni",   "nxt", "f", "zz", "n", "p",          "je", "n", "ad"},
    {"p", "t", "07/06/2006", "d", "2", "sr", "fn", "t", "13/45/2006", "n"},
};

}  // namespace quillmere::testing
