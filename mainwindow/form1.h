#pragma once
// The main window: the program's spine. Its load handler brings everything up, its timer keeps
// the values running, its command line is the user's one road into the program.

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "ephemeris/ephemeris.h"
#include "folders/folders.h"
#include "infoserver/info_server.h"
#include "mainwindow/display.h"
#include "mainwindow/platform.h"
#include "mainwindow/program_state.h"
#include "speech/command_interpreter.h"
#include "speech/help.h"
#include "speech/program_session.h"
#include "speech/speaker.h"
#include "speech/voice.h"
#include "stormmodel/activity.h"
#include "stormmodel/mode_table.h"
#include "stormmodel/prediction.h"
#include "stormmodel/settings_store.h"
#include "stormmodel/ui/form3.h"

namespace quillmere {

// What the window is given by whoever starts it: the real machine, or test doubles.
struct Form1Platform {
  Clock* clock = nullptr;
  SettingsStore* settings = nullptr;
  MessageBoxes* messages = nullptr;
  std::function<std::unique_ptr<Voice>()> createVoice;
  // After createVoice: which engine speaks and why, when it is not the one asked for; said once
  // after the welcome. Empty, or no function, says nothing.
  std::function<std::string()> voiceNotice;
  // The working directory, where reports are written.
  std::string programDirectory;
  // Where the mode file and the help files are looked for; none given: the program's directory.
  DataFolders dataFolders;
  // Change the working directory to the program's directory (the real program only).
  bool enterProgramDirectory = false;
};

class Form1 : public QWidget, public Form3Host, public CommandHost, public ProgramView {
  Q_OBJECT  // a class name of its own, for its accessible role

 public:
  explicit Form1(Form1Platform platform, QWidget* parent = nullptr);
  ~Form1() override;

  // Start-up and shut-down.
  void Form_Load();
  // A sentence the user hears once, right after the welcome: what went wrong at start-up.
  void AddStartupNotice(std::string text);
  void Form_Unload();

  // The tick and the time modes.
  void Timer1_Timer();
  void SwitchToRealTime() override;
  void SwitchToFixedTime() override;
  void NewTime() override;
  void FillObLabel() override;
  void ArrangeDateBoxes();

  // The command line: its keys go to the interpreter.
  void txtIn_KeyPress(int KeyAscii);
  void txtIn_KeyUp();
  void Form_KeyUp(int KeyCode);

  // The prediction window, loaded at its first use.
  Form3& GetForm3();
  bool Form3Loaded() const { return form3_ != nullptr; }
  void UnloadForm3();

  // What the prediction window asks of this one.
  void StopTimer() override;
  void FocusMainWindow() override;
  void ShowForThisTime(double instant) override;
  bool ProgramClosing() override { return p_.ProgramClosing != 0; }
  bool RealTime() override { return p_.RealTime != 0; }
  double FixedT() override { return p_.FixedT; }
  double TimeZone() override { return p_.TimeZone; }
  double PresentUT() override;
  void SpeakThis(const std::string& text) override;
  void SpeakCharacters(const std::string& text) override;
  std::string ReportDirectory() override { return platform_.programDirectory; }

  ProgramState& state() { return p_; }
  EphemerisState& ephemeris() { return s_; }
  const ModeTable& modes() const { return storm_.Modes; }
  StormValues& storm() { return storm_; }
  Speaker& speaker() { return *session_.speaker; }
  QTimer& Timer1() { return timer1_; }
  InfoServer& jis() { return jis_; }
  QLineEdit* input() { return txtIn; }
  // The caption of a control by its name; empty for an unknown name.
  std::string Caption(const std::string& objectName) const { return session_.shown(objectName); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;

 private:
  void BuildControls();
  QLabel* AddLabel(const char* name, const char* caption, const char* toolTip);
  QLineEdit* AddBox(const char* name, const char* toolTip);
  void DisplayCaption();
  // What the session shows.
  void ShowCaption(const std::string& name, const std::string& caption) override;
  void ShowInstant(double t) override;
  void ShowAlert(const std::string& alertstr) override;
  // What the interpreter asks of the window.
  void ClearCommandLine() override;
  void FocusCommandLine() override { txtIn->setFocus(); }
  void Quit() override { close(); }
  void ShowMessage(const std::string& text) override;
  PredictionSession& Prediction() override { return GetForm3(); }
  void ShowPrediction() override { GetForm3().show(); }
  void ClosePrediction() override { UnloadForm3(); }
  void EnableTimerIfRealTime();
  Form1Platform platform_;
  ProgramSession session_;
  ProgramState& p_ = session_.p;
  EphemerisState& s_ = session_.s;
  StormValues& storm_ = session_.storm;  // shared with Form3
  std::unique_ptr<Form3> form3_;
  QTimer timer1_;
  InfoServer jis_{[this] { return session_.JISRecord(); },
                  [this] { return platform_.clock->LocalNow(); }, p_.LastJISSend};
  bool unloaded_ = false;

  QLineEdit* txtIn = nullptr;
  QLineEdit *txtY = nullptr, *txtM = nullptr, *txtD = nullptr;
  QLineEdit *txtH = nullptr, *txtN = nullptr, *txtS = nullptr;
  QLabel *LBLDate = nullptr, *LBLDateFormat = nullptr, *Label5 = nullptr, *Label6 = nullptr;
  QLabel *LBLLMST = nullptr, *LBLOB = nullptr, *LBLQ = nullptr, *PicJupIcon = nullptr;
  QLabel *LblJupRA = nullptr, *LblJupDEC = nullptr, *LBlCMIII = nullptr, *LbLSGC = nullptr;
  QLabel *LBLJupAlt = nullptr, *LblJUPAZ = nullptr, *LBLJupHA = nullptr;
  QLabel *LbLJupRise = nullptr, *LbLJupSet = nullptr;
  QLabel *LbLSunRA = nullptr, *LBLSunDec = nullptr, *LBLSunAlt = nullptr, *LbLSunAz = nullptr;
  QLabel *LBLSunHA = nullptr, *LbLSunRise = nullptr, *LbLSunSet = nullptr;
  QHBoxLayout* dateRow_ = nullptr;
  std::map<std::string, QLabel*> labels_;
};

}  // namespace quillmere
