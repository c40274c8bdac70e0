#include "speech/program_session.h"

#include "infoserver/jis_record.h"
#include "mainwindow/startup.h"
#include "speech/help.h"
#include "stormmodel/mode_table.h"
#include "textutil/date_time.h"

namespace quillmere {

ProgramSession::ProgramSession(SessionPlatform platform_, ProgramView& view, CommandHost& host)
    : platform(std::move(platform_)), view_(view), host_(host) {}

std::string ProgramSession::DataFile(const std::string& name) const {
  const DataFolders& folders = platform.dataFolders;
  if (folders.user.empty() && folders.program.empty())
    return platform.programDirectory + "/" + name;
  return FindDataFile(folders, name);
}

void ProgramSession::LoadHelpAndZone() {
  p.AppTitle = kAppTitle;
  // Before the voice exists a missing help file can only be noted; it is said after the
  // welcome, or F1 would be silent without a word of why.
  const auto loadHelp = [this](const char* name, const char* what) {
    const std::string path = DataFile(name);
    if (!FileExists(path))
      AddStartupNotice(std::string(what) + " help file " + path + " not found.");
    return LoadHelpLines(path);
  };
  help_ = loadHelp("SpkHlp.txt", "Speech");
  predictHelp_ = loadHelp("PredictHlp.txt", "Predict");
  p.DetectedTZ = DetectTimeZone(platform.clock->GetTimeZoneInformation());
}

void ProgramSession::StartVoice(std::unique_ptr<Voice> v, std::function<void()> yield) {
  voice = std::move(v);
  speaker = std::make_unique<Speaker>(*voice, std::move(yield));
  commands =
      std::make_unique<CommandInterpreter>(p, s, storm, *platform.settings, *speaker, shown, host_);
  commands->help.lines = std::move(help_);
  commands->predictHelp.lines = std::move(predictHelp_);
  p.VoiceNames = voice->GetVoices();
}

void ProgramSession::LoadStateAndModes() {
  p.VersionText = VersionText();
  LoadStartupSettings(*platform.settings, DataFile("UFMODES.JMF"), p, s);
  p.RealTime = -1;
  // The mode file's message holds up the start until it is closed. The box is not seen by
  // everyone: its lines are said after the welcome as well.
  const ModeFileResult loaded = LoadModeFile(p.ModeFileName, storm.Modes);
  for (const auto& message : {loaded.error, loaded.notice}) {
    if (!message) continue;
    platform.messages->Show(message->title, message->text);
    for (std::string& line : MessageLines(message->text)) AddStartupNotice(std::move(line));
  }
  p.TimeZone = p.DetectedTZ;
  s.T = PresentUT();
  ComputeSiderealTime(s, p.ObsLong);
  if (storm.Modes.ModesLoaded) ComputeTodayActivity();
}

void ProgramSession::Welcome() {
  voice->Speak(kWelcome, SVSFDefault);
  for (const std::string& notice : startupNotices_) voice->Speak(notice, SVSFDefault);
  startupNotices_.clear();
}

void ProgramSession::AddStartupNotice(std::string text) {
  startupNotices_.push_back(std::move(text));
}

void ProgramSession::SayClosing() {
  if (voice) voice->Speak(kClosing, SVSFDefault);
}

double ProgramSession::PresentUT() {
  return platform.clock->LocalNow() - p.TimeZone / 24;
}

void ProgramSession::Tick() {
  s.T = PresentUT();
  if (const auto f = SplitDateTime(s.T);
      f && f->minute != p.LastMinute && storm.Modes.ModesLoaded) {
    if (!today.ActivityDay || *today.ActivityDay != f->day) ComputeTodayActivity();
    p.LastMinute = f->minute;
  }
  VisualAlert();
  AnnounceActivity();
  ComputeSiderealTime(s, p.ObsLong);
  DisplayTimes();
  ComputeInstant(s, p.ObsLat);
  DisplayInfo();
  if (p.AnnounceDelay > 0 && platform.clock->LocalNow() > p.LastAnnounce + p.AnnounceDelay / 1440) {
    if (p.AnnounceSun) commands->SpeakSunAll();
    if (p.AnnounceJupiter) commands->SpeakJupAll();
    p.LastAnnounce = platform.clock->LocalNow();
    speaker->CancelFlag = 0;
  }
}

void ProgramSession::ComputeTodayActivity() {
  quillmere::ComputeTodayActivity(s, PresentUT(), p.ObsLat, p.ObsLong, storm.Modes, storm.Minutes,
                                  storm.DayActivity, today);
}

void ProgramSession::VisualAlert() {
  int16_t alrt = 0;
  std::string alertstr;
  CheckForActivity(s.T, storm.Modes, today.TodayActivity, alrt, alertstr);
  activityText_ = alrt ? alertstr : "";
  SetCaption("LBLQ", alrt ? "Possible Activity:  " + alertstr : "");
  view_.ShowAlert(activityText_);
}

void ProgramSession::AnnounceActivity() {
  if (activityText_ == announcedText_) return;
  announcedText_ = activityText_;
  if (p.AnnounceActivity && !activityText_.empty())
    speaker->SpeakThis("Possible Activity:  " + activityText_);
}

// SaveT keeps the instant the prediction window puts back when it closes; the fixed copies are
// what the display and the JIS record read while the time stands.
void ProgramSession::NewTime() {
  ComputeSiderealTime(s, p.ObsLong);
  p.FixedT = s.T;
  SaveT(s);
  ComputeInstant(s, p.ObsLat);
  SetFixedTime(p, s);
  MarkDayActivity(storm.Modes, storm.Minutes, storm.DayActivity);
  DisplayTimes();
  DisplayInfo();
}

void ProgramSession::ResumeRealTime() {
  p.RealTime = -1;
  s.T = PresentUT();
  ComputeInstant(s, p.ObsLat);  // sidereal time follows at the next tick
  DisplayTimes();
  DisplayInfo();
  SetCaption("LBLQ", "");
}

void ProgramSession::DisplayTimes() {
  view_.ShowInstant(BoxesInstant(p, s, platform.clock->LocalNow()));
  if (const auto lmst = LmstCaption(p.RealTime ? s.LMST : p.FixedLMST))
    SetCaption("LBLLMST", *lmst);
}

const char* ProgramSession::DateOrderCaption() const {
  const DateOrder* order = DateOrderOf(p.DFormat);
  return order ? order->caption : nullptr;  // none: the design's order stands
}

void ProgramSession::DisplayInfo() {
  quillmere::DisplayInfo(p, s, captions_);
  const Captions& c = captions_;
  const std::pair<const char*, const std::string*> all[] = {
      {"LblJupRA", &c.LblJupRA},   {"LblJupDEC", &c.LblJupDEC},   {"LBlCMIII", &c.LBlCMIII},
      {"LbLSGC", &c.LbLSGC},       {"LBLJupAlt", &c.LBLJupAlt},   {"LblJUPAZ", &c.LblJUPAZ},
      {"LBLJupHA", &c.LBLJupHA},   {"LbLJupRise", &c.LbLJupRise}, {"LbLJupSet", &c.LbLJupSet},
      {"LbLSunRA", &c.LbLSunRA},   {"LBLSunDec", &c.LBLSunDec},   {"LBLSunAlt", &c.LBLSunAlt},
      {"LbLSunAz", &c.LbLSunAz},   {"LBLSunHA", &c.LBLSunHA},     {"LbLSunRise", &c.LbLSunRise},
      {"LbLSunSet", &c.LbLSunSet},
  };
  for (const auto& [name, caption] : all) SetCaption(name, *caption);
}

void ProgramSession::FillObLabel() {
  SetCaption("LBLOB", ObserverCaption(p));
}

void ProgramSession::SetCaption(const std::string& name, const std::string& text) {
  shown.byName[name] = text;
  view_.ShowCaption(name, text);
}

std::string ProgramSession::JISRecord() {
  int16_t alrt = 0;
  std::string alertstr;
  CheckForActivity(s.T, storm.Modes, today.TodayActivity, alrt, alertstr);
  return ComposeJISRecord(s, shown("LBLLMST"), alrt, alertstr);
}

const ProgramValues& ProgramSession::programValues() {
  programValues_.AppTitle = p.AppTitle;
  programValues_.VersionText = p.VersionText;
  programValues_.ObsLat = p.ObsLat;
  programValues_.ObsLong = p.ObsLong;
  programValues_.DisplayWest = p.DisplayWest;
  programValues_.DFormat = p.DFormat;
  return programValues_;
}

}  // namespace quillmere
