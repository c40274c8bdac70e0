#include "term/terminal.h"

#include <QCoreApplication>
#include <iostream>

#include "mainwindow/startup.h"

namespace quillmere {

Terminal::Terminal(SessionPlatform platform, bool keys)
    : session_(std::move(platform), *this, *this),
      jis_([this] { return session_.JISRecord(); },
           [this] { return session_.platform.clock->LocalNow(); }, session_.p.LastJISSend),
      keys_(keys) {
  QObject::connect(&timer_, &QTimer::timeout, [this] { Tick(); });
}

Terminal::~Terminal() = default;

void Terminal::Load(std::unique_ptr<Voice> voice, const std::string& voiceNotice,
                    const std::vector<std::string>& notices) {
  for (const std::string& notice : notices) session_.AddStartupNotice(notice);
  session_.LoadHelpAndZone();
  if (!voiceNotice.empty()) session_.AddStartupNotice(voiceNotice);
  session_.StartVoice(std::move(voice), [] { QCoreApplication::processEvents(); });
  session_.LoadStateAndModes();
  jis_.LoadJISSettings(*session_.platform.settings, session_.p.AppTitle);
  for (std::string& notice : JisSettingNotices(jis_.settings))
    session_.AddStartupNotice(std::move(notice));
  if (jis_.settings.RunJIS) jis_.StartJIS();
  timer_.setInterval(1000);
  timer_.start();
  session_.SetCaption("LBLDateFormat",
                      session_.DateOrderCaption() ? session_.DateOrderCaption() : "YYYY  MM  DD");
  session_.FillObLabel();
  session_.p.VersionBanner = MakeVersionBanner(kVersionMajor, kVersionMinor, kVersionRevision);
  if (!jis_.StartFailure().empty()) session_.AddStartupNotice(jis_.StartFailure());
  session_.Welcome();
  Tick();
}

void Terminal::Unload() {
  if (unloaded_) return;
  unloaded_ = true;
  session_.p.ProgramClosing = -1;
  timer_.stop();
  ClosePrediction();
  session_.SayClosing();
}

void Terminal::Tick() {
  timer_.stop();  // ticks never overlap
  session_.Tick();
  const JISSettings& js = jis_.settings;
  if (js.PushJIS &&
      session_.platform.clock->LocalNow() > session_.p.LastJISSend + js.JISMin / 1440.0)
    jis_.SendJISInfo();
  if (!unloaded_) timer_.start();
}

void Terminal::SwitchToFixedTime() {
  timer_.stop();
  session_.NewTime();
  session_.DisplayTimes();
  session_.DisplayInfo();
  session_.VisualAlert();
}

void Terminal::SwitchToRealTime() {
  session_.ResumeRealTime();
  if (!unloaded_) timer_.start();
}

void Terminal::ClearCommandLine() {
  line_.clear();
}

void Terminal::Quit() {
  Unload();
  QCoreApplication::exit(0);
}

// A message box of the window is a line on standard error here, apart from what the voice says.
void Terminal::ShowMessage(const std::string& text) {
  std::string shown;
  for (const std::string& line : MessageLines(text)) shown += (shown.empty() ? "" : " ") + line;
  std::cerr << session_.p.AppTitle << ": " << shown << std::endl;
}

// Loaded at its first use, and anew after N closed it.
PredictionSession& Terminal::Prediction() {
  if (!prediction_) {
    prediction_ = std::make_unique<HeadlessPrediction>(session_, [this] { timer_.stop(); });
    prediction_->Form_Load();
  }
  return *prediction_;
}

void Terminal::ClosePrediction() {
  if (!prediction_) return;
  prediction_->Form_Unload();
  // A report still running stops at its next day; the session goes when it has.
  if (prediction_->core().ReportRunning) {
    prediction_->core().CancelReport = true;
    return;
  }
  prediction_.reset();
}

void Terminal::Echo(const std::string& text) {
  if (keys_) std::cerr << text << std::flush;
}

void Terminal::Enter() {
  Echo("\r\n");
  const std::string line = line_;
  session_.commands->Enter(line);
  line_.clear();
}

void Terminal::Key(char c) {
  CommandInterpreter& commands = *session_.commands;
  if (c == '\r' || c == '\n') {
    Enter();
  } else if (c == '`') {
    commands.ReadBack(line_);
  } else if (c == 0x7f || c == '\b') {
    if (line_.empty()) return;
    line_.pop_back();
    Echo("\b \b");
  } else if (c == 0x15) {  // Ctrl-U
    for (size_t i = 0; i < line_.size(); ++i) Echo("\b \b");
    line_.clear();
  } else if (c == 0x04) {  // Ctrl-D on an empty line ends the input
    if (line_.empty()) EndOfInput();
  } else if (static_cast<unsigned char>(c) >= 0x20) {
    line_ += c;
    Echo(std::string(1, c));
  }
}

void Terminal::PipedLine(const std::string& raw) {
  std::string text = raw;
  if (!text.empty() && text.back() == '\r') text.pop_back();
  if (text == kPipedF1) return session_.commands->F1();
  if (text == kPipedEsc) return session_.commands->Escape();
  for (char c : text) Key(c);
  Enter();
}

void Terminal::Input(const char* bytes, size_t n) {
  // A reading lets events run between its utterances, and so this again. Then only Esc acts at
  // once, as in the window; the rest waits for the command under way to end.
  if (busy_) {
    for (size_t i = 0; i < n; ++i) {
      const bool alone = i + 1 == n || (bytes[i + 1] != '[' && bytes[i + 1] != 'O');
      if (keys_ && bytes[i] == 0x1b && alone)
        session_.commands->Escape();
      else
        pending_ += bytes[i];
    }
    return;
  }
  pending_.append(bytes, n);
  busy_ = true;
  TakeInput();
  busy_ = false;
  if (endPending_) EndOfInput();
}

void Terminal::TakeInput() {
  if (!keys_) {
    for (size_t end; !unloaded_ && (end = pending_.find('\n')) != std::string::npos;) {
      const std::string line = pending_.substr(0, end);
      pending_.erase(0, end + 1);
      PipedLine(line);
    }
    return;
  }
  // Key sequences: ESC alone is Esc; ESC O P, ESC [ 1 1 ~ and ESC [ [ A are F1; other sequences
  // (arrows, other function keys) are passed over. A sequence cut at the end of what was read
  // waits for the rest.
  size_t at = 0;
  while (at < pending_.size() && !unloaded_) {
    const char c = pending_[at];
    if (c != 0x1b) {
      Key(c);
      ++at;
      continue;
    }
    if (at + 1 == pending_.size()) {
      session_.commands->Escape();
      ++at;
      continue;
    }
    const char kind = pending_[at + 1];
    if (kind != '[' && kind != 'O') {
      session_.commands->Escape();
      ++at;
      continue;
    }
    size_t end = at + 2;
    if (kind == '[' && end < pending_.size() && pending_[end] == '[') ++end;  // the console's F1
    while (end < pending_.size() && !(pending_[end] >= 0x40 && pending_[end] <= 0x7e)) ++end;
    if (end >= pending_.size()) break;  // the rest of the sequence is still to come
    const std::string sequence = pending_.substr(at + 1, end - at);
    if (sequence == "OP" || sequence == "[11~" || sequence == "[[A") session_.commands->F1();
    at = end + 1;
  }
  pending_.erase(0, at);
}

void Terminal::EndOfInput() {
  if (unloaded_) return;
  if (busy_) {
    endPending_ = true;  // after the command under way
    return;
  }
  busy_ = true;
  if (!keys_ && !pending_.empty()) {
    const std::string line = pending_;
    pending_.clear();
    PipedLine(line);
  }
  busy_ = false;
  if (!unloaded_) Quit();
}

}  // namespace quillmere
