#pragma once
// The platform's speech engine through QtTextToSpeech, and the choice of a voice at start.
//
// The engine lives on a thread of its own. A synchronous Speak blocks the calling thread on a
// semaphore until the engine has finished the text, without running an event loop there, so no
// timer, key or socket handler can run inside it; every wait has a time limit in proportion to the
// text. An engine that keeps failing is replaced by the text voice, so the program never goes mute.
// A QCoreApplication (or QApplication) must exist before a QtVoice is made.

#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "speech/voice.h"

namespace quillmere {

class TextVoice;

class QtVoice : public Voice {
 public:
  // Starts the engine's thread and returns at once; the engine is built over there. `engine` is
  // one of QTextToSpeech::availableEngines(), or empty for Qt's own choice. Speech goes to
  // `fallbackOut` as text if the engine fails later.
  QtVoice(const std::string& engine, std::ostream& fallbackOut);
  ~QtVoice() override;
  QtVoice(const QtVoice&) = delete;
  QtVoice& operator=(const QtVoice&) = delete;

  // Waits at most `limitMs` for the engine to be built and Ready. False if it is missing, in
  // error or late; then Error() says why in plain words.
  bool WaitReady(int limitMs);
  const std::string& Error() const { return error_; }
  // True once the engine has failed and the text voice speaks instead.
  bool SpeaksAsText() const { return textVoice_ != nullptr; }

  void Speak(const std::string& text, int flags) override;
  std::vector<std::string> GetVoices() override { return voiceNames_; }
  std::string GetDescription() override { return description_; }
  void SetVoice(int index) override;
  int Rate() override { return rate_; }
  void SetRate(int rate) override;

  struct Engine;  // the thread's side

 private:
  void FallBack(const std::string& why);

  std::shared_ptr<Engine> engine_;
  std::ostream& fallbackOut_;
  std::unique_ptr<TextVoice> textVoice_;
  bool ready_ = false;
  std::string error_;
  std::vector<std::string> voiceNames_;
  std::string description_;
  int rate_ = 0;
  int timeouts_ = 0;  // synchronous waits in a row that ran out of time
};

// Whether QTextToSpeech offers the engine of that name here.
bool QtEngineInstalled(const std::string& engine);

// The engine used when the setting names none: "sapi" on Windows, "darwin" (or "macos") on macOS,
// "speechd" elsewhere.
std::string DefaultSpeechEngine();

// How long the start of a voice may take before the text voice is used instead. speech-dispatcher
// needs about two seconds to list its voices.
inline constexpr int kVoiceReadyLimitMs = 8000;

}  // namespace quillmere
