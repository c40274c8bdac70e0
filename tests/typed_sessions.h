#pragma once
// Typed sessions that the window and quillmere-term must answer with the same words, and the
// replies that the window and the interpreter without a window must both give. A line
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

// A line typed and the reply said last, through the window and through the interpreter alone, on
// the test clock and place (2006-07-05 12:00 UT, 30 N, 80 W).
struct Reply {
  const char *typed, *said;
};

inline const Reply kNormalReplies[] = {
    {"je", "Jupiter  elevation  -69.2"},
    {" A ", "Jupiter  azimuth  320.3"},
    {"I", "I not recognized. You are in Normal Mode."},  // Io needs the Jupiter menu
    {"s", "Sun Menu"},
    {"a", "Sun  azimuth  074.4"},
    {"E", "Sun  elevation  20.0"},
    {"rs", "Sun Rise: 10:23 Set: 00:16"},
    {"j", "Jupiter Menu"},
    {"i", "Io Phase: 007.00"},
    {"c", " System three longitude   203.74"},
    {"rs", "Jupiter Rise: 19:27  Set: 06:24"},
    {"jra", "Jupiter  Right Ascension  14 hours and 27 minutes."},
    {"sd", "Sun  Declination  22 degrees and 56 minutes."},
    {"lmst", " Local Mean Sidereal Time  01:33:22"},
    {"m", "Jupiter Possible Activity:  Non-A   "},  // CML 203.74 lies in Non-A
    {"", " not recognized. You are in Normal Mode."},
    {"Whatever", "Whatever not recognized. You are in Normal Mode."},
    {"12", "12 not recognized."},
    {"lat", "Latitude 30 degrees 00 minutes 00.0 seconds "},
    {"45:30", "Latitude changed to 45 degrees 30 minutes "},
    {"ad", "Announce Delay. 0 minutes."},
    {"10", "Announce Delay changed to 10minutes."},
    {"vt", "Speech Type Alpha. available voices are  0  Alpha.  1  Beta. "},
    {"1", "Speech Voice changed to Beta"},
    {"as", "Announce Sun ON."},
    {"naj", "Announce Jupiter OFF."},
    {"t", "Real Time Mode.  Current Time 07/05/2006 12:00:00"},
    {"fix", "Fixed Time Mode.  Current Time 07/05/2006 12:00:00"},
    {"t", "Fixed Time Mode.  Current Time 07/05/2006 12:00:00"},
};

// Prediction mode from normal mode and back, through the window's prediction and without it.
inline const Reply kPredictionReplies[] = {
    {"p", "Prediction Moded Entered.  Press F1 for Prediction Mode Help."},
    {"p", "You are in prediction mode."},
    {"je", "je not recognized. You are in Predict Mode. Type N for normal mode."},
    {"7", "7 not recognized."},
    {"d", "Prediction Duration in Days is  1"},  // raised to 1 before the lookup
    {"0", "Prediction Duration changed to  0days."},
    {"d", "Prediction Duration in Days is  1"},
    {"t", "Prediction Start Date 07/05/2006"},
    {"12/31/2006", "Prediction Start Date. 12/31/2006"},
    {"nxt", "Prediction Start Date is Now. 01/01/2007"},  // across the year's end
    {"f", "No prediction report has been saved yet."},
    {"i", "'I' 'O' related storms only will be predicted."},
    {"ni", "All storms will be predicted."},
    {"j", "j not recognized. You are in Predict Mode. Type N for normal mode."},
    {"*", "* not recognized. You are in Predict Mode. Type N for normal mode."},
    {"t", "Prediction Start Date 01/01/2007"},
    {"07/05/2006", "Prediction Start Date. 07/05/2006"},
    {"sr", "Saved Report 20060705JP.TXT"},
    {"fn", "Last Saved Prediction Report was 20060705JP.TXT ."},
    {"n", "Normal Mode Resumed. "},
};

}  // namespace quillmere::testing
