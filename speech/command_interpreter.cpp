// The command line of both modes: keys, values and commands.

#include "speech/command_interpreter.h"

#include <algorithm>
#include <cmath>

#include "mainwindow/entry.h"
#include "textutil/date_time.h"
#include "textutil/latlng.h"
#include "textutil/number_text.h"
#include "textutil/text.h"

namespace quillmere {

namespace {

bool InRange(double v, double low, double high) {
  return v >= low && v <= high;
}

// A reading or a report that would step past the last date (or whose length is no number of
// days) is refused before its first day, or it would end in one message per day and a file
// without an end date.
bool LastDayIsADate(double D0, double days) {
  return std::isfinite(days) && SplitDateTime(D0 + Int(days)).has_value();
}

}  // namespace

CommandInterpreter::CommandInterpreter(ProgramState& p, EphemerisState& s, StormValues& storm,
                                       SettingsStore& settings, Speaker& speaker,
                                       const ShownCaptions& captions, CommandHost& host)
    : p_(p),
      s_(s),
      storm_(storm),
      settings_(settings),
      speaker_(speaker),
      caption_(captions),
      host_(host) {}

void CommandInterpreter::Say(const std::string& text, int flags) {
  speaker_.voice().Speak(text, flags);
}

void CommandInterpreter::Enter(const std::string& line) {
  const std::string S = NormalizeEntry(line);
  if (IsValueEntry(S))
    DoValue(S);
  else if (p_.PredictMode)
    DoPredictCommand(S, line);
  else
    DoNormalCommand(WithMenuLetter(S, p_.PendingCommand), line);
}

std::string CommandInterpreter::WithoutAccents(std::string line) {
  line.erase(std::remove(line.begin(), line.end(), '`'), line.end());
  return line;
}

void CommandInterpreter::ReadBack(const std::string& line) {
  for (char c : WithoutAccents(line)) Say(std::string(1, c), SVSFNLPSpeakPunc);
}

void CommandInterpreter::Escape() {
  speaker_.CancelFlag = -1;
}

void CommandInterpreter::F1() {
  HelpWalk& walk = p_.PredictMode ? predictHelp : help;
  if (walk.Step(speaker_, 0))
    while (walk.Step(speaker_)) {
    }
}

// Spoken summaries: captions read back.

void CommandInterpreter::SpeakSunAll() {
  const ShownCaptions& c = caption_;
  const std::string lines[] = {
      "Sun " + c("LBLSunAlt"), "Sun " + c("LbLSunAz"),
      "Sun " + c("LBLSunHA"),  "Sun " + c("LbLSunRA"),
      "Sun " + c("LBLSunDec"), "Sun " + c("LbLSunRise") + " " + c("LbLSunSet"),
  };
  for (std::string text : lines) speaker_.SpeakCaption(text);
}

void CommandInterpreter::SpeakJupAll() {
  const ShownCaptions& c = caption_;
  const std::string lines[] = {
      "Jupiter " + c("LblJUPAZ"),
      "Jupiter " + c("LBLJupAlt"),
      "Jupiter " + c("LBLJupHA"),
      "Jupiter " + c("LblJupRA"),
      "Jupiter " + c("LblJupDEC"),
      "Jupiter " + c("LbLJupRise") + "  " + c("LbLJupSet"),
      "Jupiter " + c("LBLQ"),
      c("LbLSGC"),
      c("LBlCMIII"),
  };
  for (std::string text : lines) speaker_.SpeakCaption(text);
}

// Reads the grid the prediction session holds: the heading, then each mode's cells with their
// words. Esc is seen between modes.
void CommandInterpreter::SpeakPrediction(double pDay) {
  std::string heading = " Predictions for " + FormatDateTime(pDay, "MM/DD/YYYY") + " .";
  if (p_.IORelatedOnly) heading = "'I' 'O' related " + heading;
  Say(heading, SVSFDefault);
  const PredictionGrid& grid = host_.Prediction().core().Grid1;
  for (int r = 1; r < grid.Rows() && !speaker_.CancelFlag; ++r) {
    if (p_.IORelatedOnly) {
      if (UpperCase(grid.TextMatrix(r, 0)).find("IO") == std::string::npos) continue;
    }
    for (int c = 0; c < kGridColumns; ++c) {
      speaker_.Yield();
      const char* word = c == 0 ? "Mode " : (c % 2 == 1 ? "Begins " : "Ends ");
      const std::string text = grid.TextMatrix(r, c);
      if (text.empty()) continue;
      speaker_.Yield();
      Say(text.find("NONE") != std::string::npos ? text : word + text, SVSFDefault);
    }
  }
}

std::string CommandInterpreter::TimeModeText() const {
  return FormatDateTime(s_.T, "MM/DD/YYYY HH:nn:ss");
}

void CommandInterpreter::DoNormalCommand(const std::string& C, const std::string& line) {
  auto is = [&C](std::initializer_list<const char*> names) {
    for (const char* n : names)
      if (C == n) return true;
    return false;
  };
  auto wait = [this, &C] { p_.PendingCommand = C; };
  std::string reply;
  bool quit = false;

  // Readings of one value: a prefix and the caption of a label, or of two joined.
  struct Reading {
    std::initializer_list<const char*> names;
    const char* prefix;
    const char* label;
    const char* join;  // between the label and a second one, when there is one
    const char* second;
  };
  static const Reading kReadings[] = {
      {{"JE"}, "Jupiter ", "LBLJupAlt", "", nullptr},
      {{"SE"}, "Sun ", "LBLSunAlt", "", nullptr},
      {{"JA"}, "Jupiter ", "LblJUPAZ", "", nullptr},
      {{"SA"}, "Sun ", "LbLSunAz", "", nullptr},
      {{"JH", "JHA"}, "Jupiter ", "LBLJupHA", "", nullptr},
      {{"SH", "SHA"}, "Sun ", "LBLSunHA", "", nullptr},
      {{"JRA"}, "Jupiter ", "LblJupRA", "", nullptr},
      {{"SRA"}, "Sun ", "LbLSunRA", "", nullptr},
      {{"JD"}, "Jupiter ", "LblJupDEC", "", nullptr},
      {{"SD"}, "Sun ", "LBLSunDec", "", nullptr},
      {{"JRS"}, "Jupiter ", "LbLJupRise", "  ", "LbLJupSet"},
      {{"SRS"}, "Sun ", "LbLSunRise", " ", "LbLSunSet"},
      {{"JI"}, "", "LbLSGC", "", nullptr},
      {{"S3", "JC"}, "", "LBlCMIII", "", nullptr},
      {{"LMST", "LS", "LST", "ST"}, "", "LBLLMST", "", nullptr},
      {{"M", "JS", "MODE"}, "Jupiter ", "LBLQ", "", nullptr},
  };
  const Reading* reading = nullptr;
  for (const Reading& r : kReadings)
    if (is(r.names)) reading = &r;

  if (reading) {
    reply = reading->prefix + caption_(reading->label);
    if (reading->second) reply += reading->join + caption_(reading->second);
  } else if (is({"J*"})) {
    SpeakJupAll();
    speaker_.CancelFlag = 0;
  } else if (is({"S*"})) {
    SpeakSunAll();
    speaker_.CancelFlag = 0;
  } else if (is({"J"})) {
    p_.PendingCommand = "J";
    reply = "Jupiter Menu";
  } else if (is({"S"})) {
    p_.PendingCommand = "S";
    reply = "Sun Menu";
  } else if (is({"VER"})) {
    Say("Version ", SVSFDefault);
    speaker_.SpeakCharacters(p_.VersionText);
  } else if (is({"P"})) {
    reply = "Prediction Moded Entered.  Press F1 for Prediction Mode Help.";
    p_.PredictMode = -1;
    host_.SwitchToFixedTime();
    host_.ShowPrediction();
    host_.FocusMainWindow();
  } else if (is({"T"})) {
    reply = std::string(p_.RealTime ? "Real Time Mode. " : "Fixed Time Mode. ") + " Current Time " +
            TimeModeText();
  } else if (is({"FT", "FIX", "FIXED"})) {
    wait();
    reply = "Fixed Time Mode.  Current Time " + TimeModeText();
    p_.RealTime = 0;
    host_.SwitchToFixedTime();
  } else if (is({"RT", "REAL", "REALTIME", "REAL TIME"})) {
    wait();
    host_.SwitchToRealTime();
    reply = "Real Time Mode.  Current Time " + TimeModeText();
  } else if (is({"AS"})) {
    p_.AnnounceSun = -1;
    reply = "Announce Sun ON.";
  } else if (is({"NAS"})) {
    p_.AnnounceSun = 0;
    reply = "Announce Sun OFF.";
  } else if (is({"AJ"})) {
    p_.AnnounceJupiter = -1;
    reply = "Announce Jupiter ON.";
  } else if (is({"NAJ"})) {
    p_.AnnounceJupiter = 0;
    reply = "Announce Jupiter OFF.";
  } else if (is({"Q"})) {
    quit = true;
  } else if (is({"LAT", "LT"})) {
    wait();
    std::string text = LatToText(p_.ObsLat);
    reply = "Latitude " + cvtLngSpoken(text);
  } else if (is({"LNG", "LG", "LONG"})) {
    wait();
    std::string text = LongToText(p_.ObsLong);
    reply = "Longitude " + cvtLngSpoken(text);
  } else if (is({"TZ", "TIME ZONE"})) {
    wait();
    reply = "Time Zone " + NumberText(p_.TimeZone);
  } else if (is({"AD"})) {
    wait();
    reply = "Announce Delay." + NumberText(p_.AnnounceDelay) + " minutes.";
  } else if (is({"VR"})) {
    wait();
    reply = "Speech Rate " + NumberText(speaker_.voice().Rate());
  } else if (is({"VT"})) {
    wait();
    reply = "Speech Type " + speaker_.voice().GetDescription();
    if (p_.VoiceNames.empty()) {
      reply += ". No voices are installed.";
    } else {
      reply += ". available voices are ";
      for (size_t i = 0; i < p_.VoiceNames.size(); ++i)
        reply += NumberText(i) + "  " + p_.VoiceNames[i] + ". ";
    }
  } else {
    reply = line + " not recognized. You are in Normal Mode.";
  }

  if (quit) {
    host_.ClearCommandLine();
    host_.Quit();
    return;
  }
  speaker_.SpeakCaption(reply);
  host_.ClearCommandLine();
}

void CommandInterpreter::DoPredictCommand(const std::string& C, const std::string& line) {
  if (p_.PredictDuration < 1) p_.PredictDuration = 1;
  std::string reply;
  const auto needDate = [this, &reply]() -> std::optional<double> {
    const auto d0 = StartDate();
    if (!d0) reply = "The date in the prediction window is not a date the program can use.";
    return d0;
  };
  if (C == "N") {
    p_.PredictMode = 0;
    host_.ClosePrediction();
    reply = "Normal Mode Resumed. ";
  } else if (C == "P") {
    reply = "You are in prediction mode.";
  } else if (C == "I") {
    p_.IORelatedOnly = -1;
    reply = "'I' 'O' related storms only will be predicted.";
  } else if (C == "NI") {
    p_.IORelatedOnly = 0;
    reply = "All storms will be predicted.";
  } else if (C == "T") {
    if (const auto d0 = needDate()) {
      p_.PendingCommand = "T";
      host_.FocusMainWindow();
      reply = "Prediction Start Date " + FormatDateTime(*d0, "MM/DD/YYYY");
    }
  } else if (C == "D") {
    p_.PendingCommand = "D";
    reply = "Prediction Duration in Days is " + NumberText(p_.PredictDuration);
  } else if (C == "NXT") {
    if (const auto d0 = needDate()) {
      PutDateInBoxes(*d0 + 1);
      host_.Prediction().CmdPredict_Click();
      reply = "Prediction Start Date is Now. " + FormatDateTime(*d0 + 1, "MM/DD/YYYY");
    }
  } else if (C == "F" || C == "FN") {
    const std::string& FFF = host_.Prediction().core().FFF;
    reply = FFF.empty() ? "No prediction report has been saved yet."
                        : "Last Saved Prediction Report was " + FFF + " .";
  } else if (C == "R") {
    if (needDate()) reply = ReadDays();
  } else if (C == "SR") {
    if (needDate()) reply = SaveReport();
  } else {
    reply = line + " not recognized. You are in Predict Mode. Type N for normal mode.";
  }
  speaker_.SpeakCaption(reply);
  host_.ClearCommandLine();
  host_.FocusCommandLine();
}

std::optional<double> CommandInterpreter::StartDate() {
  const PredictionWindow& w = host_.Prediction().core();
  return ReadDateBoxes(w.txtYear, w.txtMonth, w.txtDay).date;
}

// Day, month and year go into the boxes as plain numbers, in that order.
void CommandInterpreter::PutDateInBoxes(double day) {
  const auto f = SplitDateTime(day);
  if (!f) return;
  PredictionWindow& w = host_.Prediction().core();
  w.txtDay = std::to_string(f->day);
  w.txtMonth = std::to_string(f->month);
  w.txtYear = std::to_string(f->year);
  host_.Prediction().Refresh();
}

std::string CommandInterpreter::ReadDays() {
  const double D0 = *StartDate();
  if (!LastDayIsADate(D0, p_.PredictDuration - 1)) {
    host_.ShowMessage(kDateOutOfRange);
    return kDateOutOfRange;
  }
  storm_.ReportStart = D0;
  storm_.ReportEnd = D0 + p_.PredictDuration;
  const double E = D0 + p_.PredictDuration - 1;
  for (double d = D0; !speaker_.CancelFlag && d <= E;) {
    SpeakPrediction(d);
    d = d + 1;
    if (d <= E) host_.Prediction().CmdNextDay_Click();
  }
  // The window returns to the first day, so the next R starts from the same date.
  PutDateInBoxes(D0);
  host_.Prediction().CmdPredict_Click();
  if (!speaker_.CancelFlag) return "";
  speaker_.CancelFlag = 0;
  return "Prediction Reed canceled.";
}

std::string CommandInterpreter::SaveReport() {
  const double D0 = *StartDate();
  if (!LastDayIsADate(D0, p_.PredictDuration)) {
    host_.ShowMessage(kDateOutOfRange);
    return kDateOutOfRange;
  }
  storm_.ReportStart = D0;
  storm_.ReportEnd = D0 + p_.PredictDuration;
  host_.Prediction().DoReport();
  if (!speaker_.CancelFlag) return "Saved Report " + host_.Prediction().core().FFF;
  speaker_.CancelFlag = 0;
  return "Prediction Reed canceled.";
}

// The two values that only prediction mode takes. False when S is for another row.
bool CommandInterpreter::DoPredictValue(const std::string& S, std::string& reply) {
  if (!p_.PredictMode) return false;
  if (p_.PendingCommand == "T") {
    const auto date = ParseDateTimeEntry(S);
    if (!date) {
      reply = S + " was not understood as a date. The prediction date stays as it was.";
      return true;
    }
    PutDateInBoxes(*date);
    reply = "Prediction Start Date. " + FormatDateTime(*date, "MM/DD/YYYY");
    host_.Prediction().CmdPredict_Click();
    host_.FocusMainWindow();
    return true;
  }
  if (p_.PendingCommand == "D") {
    p_.PredictDuration = Val(S);
    reply = "Prediction Duration changed to " + NumberText(p_.PredictDuration) + "days.";
    return true;
  }
  return false;
}

void CommandInterpreter::DoValue(std::string S) {
  const std::string waiting = p_.PendingCommand;
  SettingsStore& store = settings_;
  std::string reply = S;  // out of range: the user hears the entry back
  if (DoPredictValue(S, reply)) {
  } else if (waiting == "LAT" || waiting == "LT") {
    const float v = TextToLat(S);
    reply = S;
    if (InRange(v, -90, 90)) {
      p_.ObsLat = v;
      host_.FillObLabel();
      reply = "Latitude changed to " + cvtLngSpoken(S);
      SaveLatitude(store, p_.AppTitle, p_.ObsLat);
    }
  } else if (waiting == "LNG" || waiting == "LG") {
    const float v = TextToLong(S);
    reply = S;
    if (InRange(v, -360, 360)) {
      p_.ObsLong = v;
      host_.FillObLabel();
      reply = "Longitude changed to " + cvtLngSpoken(S);
      SaveLongitude(store, p_.AppTitle, p_.ObsLong);
    }
  } else if (waiting == "TZ") {
    const double v = Val(S);
    if (InRange(v, -24, 24)) {
      p_.TimeZone = v;
      reply = "Time Zone changed to " + S;
    }
  } else if (waiting == "AD") {
    const double v = Val(S);
    if (InRange(v, 0, 1440)) {
      p_.AnnounceDelay = v;
      reply = "Announce Delay changed to " + S + "minutes.";
      SaveAnnounceDelay(store, p_.AppTitle, S);
    }
  } else if (waiting == "VR") {
    const double v = Val(S);
    if (InRange(v, -10, 10)) {
      speaker_.voice().SetRate(static_cast<int>(RoundHalfEven(v)));
      reply = "Speech Rate changed to " + S;
      SaveSpeechRate(store, p_.AppTitle, S);
    }
  } else if (waiting == "VT") {
    const double v = Val(S);
    if (p_.VoiceNames.empty()) {
      reply = "No voices are installed.";
    } else if (InRange(v, 0, static_cast<double>(p_.VoiceNames.size() - 1))) {
      speaker_.voice().SetVoice(static_cast<int>(RoundHalfEven(v)));
      reply = "Speech Voice changed to " + speaker_.voice().GetDescription();
      SaveVoiceType(store, p_.AppTitle, S);
    }
  } else if (waiting == "FT") {
    // A time alone keeps the date of T.
    if (S.find('/') == std::string::npos) S = FormatDateTime(s_.T, "MM/DD/YYYY") + "  " + S;
    if (const auto t = ParseDateTimeEntry(S)) {
      s_.T = *t;
      host_.NewTime();
      reply = "New Fixed Time. " + FormatDateTime(p_.FixedT, "MM/DD/YYYY HH:nn:ss");
    } else {
      reply = S + " was not understood as a date or a time. The time stays as it was.";
    }
  } else {
    reply = S + " not recognized.";
  }
  Say(reply, SVSFlagsAsync);
  host_.ClearCommandLine();
  p_.PendingCommand.clear();
}

}  // namespace quillmere
