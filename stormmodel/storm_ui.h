#pragma once
// What the storm model needs of the windows and the voice, as plain calls. The program backs it
// with its message boxes, its voice and its event loop; tests record the calls.

#include <string>

namespace quillmere {

class StormUi {
 public:
  virtual ~StormUi() = default;
  // A modal message with one OK button.
  virtual void ShowMessage(const std::string& text) = 0;
  virtual void SpeakThis(const std::string& text) = 0;
  // Spells the text character by character.
  virtual void SpeakCharacters(const std::string& text) = 0;
  // Pending events run here: a report lets the user press its cancel button.
  virtual void Yield() = 0;
  // The report options dialog, modal (CmdReport_Click only).
  virtual void ShowReportOptions() = 0;
  // A day's search is done: the minute tables, DayActivity and the grid hold the new day. The
  // window draws its chart and shows its grid here, so a report steps visibly through the days.
  virtual void DayPredicted() {}
};

}  // namespace quillmere
