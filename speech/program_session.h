#pragma once
// The program without its window: start-up, the one-second tick, the time modes, the captions,
// the alert and the voice with its command line. The window and the terminal each show what it
// holds and forward their keys to its interpreter.

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "ephemeris/ephemeris.h"
#include "folders/folders.h"
#include "mainwindow/display.h"
#include "mainwindow/platform.h"
#include "mainwindow/program_state.h"
#include "speech/command_interpreter.h"
#include "speech/speaker.h"
#include "speech/voice.h"
#include "stormmodel/activity.h"
#include "stormmodel/prediction.h"
#include "stormmodel/settings_store.h"

namespace quillmere {

// Where the program runs: the real machine, or test doubles.
struct SessionPlatform {
  Clock* clock = nullptr;
  SettingsStore* settings = nullptr;
  MessageBoxes* messages = nullptr;
  // The working directory, where reports are written.
  std::string programDirectory;
  // Where the mode file and the help files are looked for; none given: the program's directory.
  DataFolders dataFolders;
};

// What a front end shows besides the captions.
class ProgramView {
 public:
  virtual ~ProgramView() = default;
  // A caption has been set; the record holds it already. Called on every set.
  virtual void ShowCaption(const std::string& name, const std::string& text) = 0;
  // The date and time boxes show this instant.
  virtual void ShowInstant(double) {}
  // The storm alert: the modes in force, or empty when none is.
  virtual void ShowAlert(const std::string&) {}
};

class ProgramSession {
 public:
  ProgramSession(SessionPlatform platform, ProgramView& view, CommandHost& host);

  // Start-up in its order: the title and the help files (a missing one noted for after the
  // welcome), the time zone; then the voice; then the settings, the mode file, the observer,
  // the instant and the day's marks; at the end the welcome with the notices.
  void LoadHelpAndZone();
  void StartVoice(std::unique_ptr<Voice> voice, std::function<void()> yield);
  void LoadStateAndModes();
  void Welcome();
  void AddStartupNotice(std::string text);
  // "Quillmere Speech Edition Closing."
  void SayClosing();

  // The tick, without the info server's push: the instant, the day's marks at a new day, the
  // alert, sidereal time, the captions and the timed summaries.
  void Tick();
  double PresentUT();
  // Fixed time at s.T: the copies the display reads, and the day's marks of the fixed day.
  void NewTime();
  // Back to the clock: the instant now, the captions, the alert cleared.
  void ResumeRealTime();
  void DisplayTimes();
  void DisplayInfo();
  void FillObLabel();
  void VisualAlert();
  // Says the alert once each time the set of modes in force changes to a new one, when the
  // user has asked for it.
  void AnnounceActivity();
  void ComputeTodayActivity();
  // The caption of the date boxes' order; nothing for an unknown order.
  const char* DateOrderCaption() const;
  // The JIS record from the values and captions as they stand.
  std::string JISRecord();
  // The program's values as the storm model reads them, brought up to date.
  const ProgramValues& programValues();
  // Where a data file (the mode file, a help file) is read from.
  std::string DataFile(const std::string& name) const;
  void SetCaption(const std::string& name, const std::string& text);

  SessionPlatform platform;
  ProgramState p;
  EphemerisState s;
  StormValues storm;  // the mode table, the minute tables and DayActivity, shared with Form3
  TodayActivityState today;
  ShownCaptions shown;
  std::unique_ptr<Voice> voice;
  std::unique_ptr<Speaker> speaker;
  std::unique_ptr<CommandInterpreter> commands;

 private:
  ProgramView& view_;
  CommandHost& host_;
  ProgramValues programValues_;
  Captions captions_;
  std::vector<std::string> help_, predictHelp_;
  std::vector<std::string> startupNotices_;
  std::string activityText_;   // what CheckForActivity gave at the last VisualAlert
  std::string announcedText_;  // the set of modes last seen by AnnounceActivity
};

}  // namespace quillmere
