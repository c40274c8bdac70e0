#pragma once
// The program on a terminal: the session of the window without the window, its voice a line of
// text per utterance unless an engine is asked for, and the command line read from standard
// input with F1, Esc and the grave accent as keys.

#include <QSocketNotifier>
#include <QTimer>
#include <memory>
#include <string>

#include "infoserver/info_server.h"
#include "speech/headless_prediction.h"
#include "speech/program_session.h"

namespace quillmere {

class Terminal : public CommandHost, public ProgramView {
 public:
  // `keys`: standard input is a terminal, read key by key; otherwise each line is an entry.
  Terminal(SessionPlatform platform, bool keys);
  ~Terminal() override;

  // Start-up, in the window's order; the welcome at its end.
  void Load(std::unique_ptr<Voice> voice, const std::string& voiceNotice,
            const std::vector<std::string>& notices);
  // Shut-down: once, whoever asks.
  void Unload();
  void Tick();
  ProgramSession& session() { return session_; }

  // Bytes as read from standard input.
  void Input(const char* bytes, size_t n);
  // The end of the input: a line not yet entered is entered, then the program closes.
  void EndOfInput();

  // What the interpreter asks of the program.
  void SwitchToFixedTime() override;
  void SwitchToRealTime() override;
  void NewTime() override { session_.NewTime(); }
  void FillObLabel() override { session_.FillObLabel(); }
  void ClearCommandLine() override;
  void FocusCommandLine() override {}
  void FocusMainWindow() override {}
  void Quit() override;
  void ShowMessage(const std::string& text) override;
  PredictionSession& Prediction() override;
  void ShowPrediction() override { Prediction(); }
  void ClosePrediction() override;

  void ShowCaption(const std::string&, const std::string&) override {}

 private:
  void TakeInput();
  void Key(char c);
  void Enter();
  // A line of the input when it is no terminal: "\F1" and "\ESC" are the keys, anything else
  // is typed and entered.
  void PipedLine(const std::string& line);
  // The line as it stands, shown again on the terminal after a key changed it.
  void Echo(const std::string& text);

  ProgramSession session_;
  std::unique_ptr<HeadlessPrediction> prediction_;
  QTimer timer_;
  InfoServer jis_;
  bool keys_;
  bool unloaded_ = false;
  bool busy_ = false;        // a key or a line is being taken
  bool endPending_ = false;  // the input ended while a command was under way
  std::string line_;         // the command line
  std::string pending_;      // bytes of a key sequence or a piped line not yet complete
};

// "\F1" and "\ESC": the lines that stand for the keys when the input is no terminal.
inline constexpr char kPipedF1[] = "\\F1";
inline constexpr char kPipedEsc[] = "\\ESC";

}  // namespace quillmere
