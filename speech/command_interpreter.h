#pragma once
// The command line of both modes, without a window: an entered line and four keys in, spoken
// replies out. The values it reads back are the captions the display has shown, so the ear gets
// what the eye gets; the window and the terminal each fill that record and forward the keys.

#include <map>
#include <optional>
#include <string>

#include "ephemeris/ephemeris_state.h"
#include "mainwindow/program_state.h"
#include "speech/help.h"
#include "speech/speaker.h"
#include "stormmodel/prediction.h"
#include "stormmodel/settings_sections.h"

namespace quillmere {

// The captions on display, by the name of the label that shows them.
struct ShownCaptions {
  std::map<std::string, std::string> byName;
  // Empty for a name never shown.
  std::string operator()(const std::string& name) const {
    const auto it = byName.find(name);
    return it == byName.end() ? std::string() : it->second;
  }
};

// What the commands ask of the program around them.
class CommandHost {
 public:
  virtual ~CommandHost() = default;
  virtual void SwitchToFixedTime() = 0;
  virtual void SwitchToRealTime() = 0;
  // The instant in EphemerisState::T becomes the fixed time.
  virtual void NewTime() = 0;
  // The observer's place has changed.
  virtual void FillObLabel() = 0;
  virtual void ClearCommandLine() = 0;
  virtual void FocusCommandLine() = 0;
  // The main window, where there is one, comes to the front with the command line.
  virtual void FocusMainWindow() = 0;
  virtual void Quit() = 0;
  // A message the user must acknowledge.
  virtual void ShowMessage(const std::string& text) = 0;
  // The prediction session, loaded at its first use.
  virtual PredictionSession& Prediction() = 0;
  // Prediction mode begins: the session is shown where it can be.
  virtual void ShowPrediction() = 0;
  virtual void ClosePrediction() = 0;
};

class CommandInterpreter {
 public:
  static constexpr int kGraveAccent = 96;
  static constexpr int kEnter = 13;
  static constexpr int kEscape = 27;
  static constexpr int kF1 = 112;

  CommandInterpreter(ProgramState& p, EphemerisState& s, StormValues& storm,
                     SettingsStore& settings, Speaker& speaker, const ShownCaptions& captions,
                     CommandHost& host);

  // The help files walked by F1 in normal and in prediction mode.
  HelpWalk help;
  HelpWalk predictHelp;

  // Enter: the line is a value for the command waiting, or a command.
  void Enter(const std::string& line);
  // The grave accent reads back what has been typed, punctuation pronounced; the line to show
  // again is the one without accents.
  static std::string WithoutAccents(std::string line);
  void ReadBack(const std::string& line);
  // Esc stops a reading between utterances; F1 walks the help of the mode.
  void Escape();
  void F1();

  // Spoken summaries, read from the captions.
  void SpeakSunAll();
  void SpeakJupAll();
  // Reads the grid of the prediction session for one day.
  void SpeakPrediction(double pDay);

 private:
  void Say(const std::string& text, int flags);
  void DoValue(std::string S);
  void DoNormalCommand(const std::string& C, const std::string& line);
  void DoPredictCommand(const std::string& C, const std::string& line);
  bool DoPredictValue(const std::string& S, std::string& reply);
  // The start date made anew from the session's boxes; nothing when they hold none.
  std::optional<double> StartDate();
  void PutDateInBoxes(double day);
  std::string ReadDays();
  std::string SaveReport();
  std::string TimeModeText() const;

  ProgramState& p_;
  EphemerisState& s_;
  StormValues& storm_;
  SettingsStore& settings_;
  Speaker& speaker_;
  const ShownCaptions& caption_;
  CommandHost& host_;
};

}  // namespace quillmere
