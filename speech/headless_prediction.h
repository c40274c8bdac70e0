#pragma once
// The prediction window without a window, for a front end that has none: the same core, the
// same boxes and grid, and the instant put back when the session closes.

#include <functional>
#include <string>

#include "speech/program_session.h"
#include "stormmodel/prediction.h"
#include "stormmodel/storm_ui.h"

namespace quillmere {

class HeadlessPrediction : public PredictionSession, private StormUi {
 public:
  // `stopTimer` stops the tick while the session is open; messages go to the session's boxes.
  HeadlessPrediction(ProgramSession& session, std::function<void()> stopTimer);

  PredictionWindow& core() override { return core_; }
  void CmdPredict_Click() override { core_.CmdPredict_Click(); }
  void CmdNextDay_Click() override { core_.CmdNextDay_Click(); }
  void DoReport() override { core_.DoReport(session_.platform.programDirectory); }
  void Refresh() override {}

  // Loading stops the tick and searches the day the time modes give. Unloading puts back the
  // instant SaveT kept when the time was fixed, unless the program is closing: the one place
  // where a search's moving of T is undone.
  void Form_Load();
  void Form_Unload();
  bool Unloaded() const { return unloaded_; }

 private:
  void ShowMessage(const std::string& text) override;
  void SpeakThis(const std::string& text) override;
  void SpeakCharacters(const std::string& text) override;
  void Yield() override;
  void ShowReportOptions() override {}

  ProgramSession& session_;
  std::function<void()> stopTimer_;
  PredictionWindow core_;
  bool unloaded_ = false;
};

}  // namespace quillmere
