#pragma once
// The choice of the voice at start. On Linux: speech-dispatcher through libspeechd, then espeak-ng
// through its library, then the text voice. On Windows and macOS: the platform's engine through
// QtTextToSpeech, then the text voice. The setting [Startup] SpeechEngine names the engine to try
// first ("speechd", "espeak", "text", or one of QtTextToSpeech's engines); empty means the best
// that works.
//
// The engines start on a thread of their own from the moment the starter is made, so that the
// start overlaps the rest of the program's start; Take hands the voice over.

#include <memory>
#include <ostream>
#include <string>
#include <thread>
#include <vector>

#include "speech/voice.h"
#include "speech/voice_choice.h"

namespace quillmere {

// The engines tried when the setting names none, best first ("text" comes after them).
std::vector<std::string> PlatformEngineOrder();

class QtVoice;

class VoiceStarter {
 public:
  // A QCoreApplication must exist when a QtTextToSpeech engine is among the engines to try.
  VoiceStarter(const std::string& SpeechEngine, std::ostream& textOut);
  ~VoiceStarter();
  VoiceStarter(const VoiceStarter&) = delete;
  VoiceStarter& operator=(const VoiceStarter&) = delete;

  // Waits for the choice and hands the voice over (once; later calls give a text voice).
  std::unique_ptr<Voice> Take();
  // After Take: the engine that speaks ("speechd", "espeak", "text", or a Qt engine's name).
  const std::string& Engine() const { return choice_.engine; }
  // After Take: which engine speaks and why, when it is not the first one tried; else empty.
  const std::string& Notice() const { return choice_.notice; }

 private:
  std::ostream& textOut_;
  // The first QtTextToSpeech engine of the order that is installed, made at once on this thread.
  std::string qtEngine_;
  std::unique_ptr<QtVoice> qtVoice_;
  std::thread thread_;
  VoiceChoice choice_;
  bool taken_ = false;
};

// VoiceStarter and Take in one.
std::unique_ptr<Voice> CreateVoice(const std::string& SpeechEngine, std::ostream& textOut);

}  // namespace quillmere
