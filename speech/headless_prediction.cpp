#include "speech/headless_prediction.h"

namespace quillmere {

HeadlessPrediction::HeadlessPrediction(ProgramSession& session, std::function<void()> stopTimer)
    : session_(session),
      stopTimer_(std::move(stopTimer)),
      core_(session.s, session.storm, session.programValues(), *session.platform.settings, *this) {}

void HeadlessPrediction::Form_Load() {
  unloaded_ = false;
  stopTimer_();
  core_.Form_Load(session_.p.RealTime != 0, session_.p.FixedT);
}

void HeadlessPrediction::Form_Unload() {
  if (unloaded_) return;  // a second restore would bring back a T saved by someone else
  unloaded_ = true;
  if (!session_.p.ProgramClosing) RestoreT(session_.s);
}

void HeadlessPrediction::ShowMessage(const std::string& text) {
  session_.platform.messages->Show(session_.p.AppTitle, text);
}

void HeadlessPrediction::SpeakThis(const std::string& text) {
  session_.speaker->SpeakThis(text);
}

void HeadlessPrediction::SpeakCharacters(const std::string& text) {
  session_.speaker->SpeakCharacters(text);
}

void HeadlessPrediction::Yield() {
  session_.speaker->Yield();
}

}  // namespace quillmere
