#pragma once
// The report options dialog without its widgets: the period and contents of a report, checked
// and stored as the dialog does it.

#include <cstdint>
#include <string>

#include "stormmodel/prediction.h"

namespace quillmere {

class ReportOptions {
 public:
  ReportOptions(PredictionWindow& form3, StormValues& storm, const ProgramValues& program,
                SettingsStore& settings, StormUi& ui)
      : form3_(form3), storm_(storm), program_(program), settings_(settings), ui_(ui) {}

  std::string txtSYear, txtSMonth, txtSDay;
  std::string txtEYear, txtEMonth, txtEDay;
  std::string txtMin;
  // Check boxes: 0 clear, 1 ticked.
  int16_t chkHA = 0, chkIoOnly = 0, chkNoNONE = 0, chkHeader = 0;

  // `presentLocal` stands in when PredictTime holds no date.
  void Form_Load(double presentLocal);
  // True when the dialog closes; false leaves it open after a message, with nothing stored.
  bool cmdOK_Click();
  void cmdCancel_Click() {}

 private:
  PredictionWindow& form3_;
  StormValues& storm_;
  const ProgramValues& program_;
  SettingsStore& settings_;
  StormUi& ui_;
};

}  // namespace quillmere
