#include "speech/voice_starter.h"

#include "speech/qt_voice.h"
#include "speech/text_voice.h"

#if defined(QUILLMERE_SPEECHD)
#include "speech/espeak_voice.h"
#include "speech/speechd_voice.h"
#endif

namespace quillmere {

std::vector<std::string> PlatformEngineOrder() {
#if defined(QUILLMERE_SPEECHD)
  return {"speechd", "espeak"};
#else
  return {DefaultSpeechEngine()};
#endif
}

namespace {

bool IsOwnEngine(const std::string& engine) {
#if defined(QUILLMERE_SPEECHD)
  return engine == "speechd" || engine == "espeak" || engine == "text";
#else
  return engine == "text";
#endif
}

}  // namespace

VoiceStarter::VoiceStarter(const std::string& SpeechEngine, std::ostream& textOut)
    : textOut_(textOut) {
  const std::vector<std::string> order = EngineOrder(SpeechEngine, PlatformEngineOrder());
  // A QtTextToSpeech engine is made here, on the thread that will use it; at most one is tried.
  for (const std::string& engine : order) {
    if (IsOwnEngine(engine)) continue;
    if (QtEngineInstalled(engine)) {
      qtEngine_ = engine;
      qtVoice_ = std::make_unique<QtVoice>(engine, textOut_);
      break;
    }
  }
  thread_ = std::thread([this, SpeechEngine] {
    choice_ = ChooseVoice(
        SpeechEngine, PlatformEngineOrder(),
        [this](const std::string& engine) -> EngineStart {
          EngineStart started;
#if defined(QUILLMERE_SPEECHD)
          if (engine == "speechd") {
            std::ostream& out = textOut_;
            started.voice = SpeechdVoice::Open(
                [&out]() -> std::unique_ptr<Voice> {
                  std::string why;
                  return EspeakVoice::Open(out, why);
                },
                out, started.why);
            return started;
          }
          if (engine == "espeak") {
            started.voice = EspeakVoice::Open(textOut_, started.why);
            return started;
          }
#endif
          if (engine != qtEngine_ || !qtVoice_) {
            started.why = EngineWords(engine) + " is not installed";
            return started;
          }
          if (qtVoice_->WaitReady(kVoiceReadyLimitMs)) {
            started.voice = std::move(qtVoice_);
            return started;
          }
          started.why = EngineWords(engine) + " is not working";
          qtVoice_.reset();
          return started;
        },
        textOut_);
  });
}

VoiceStarter::~VoiceStarter() {
  if (thread_.joinable()) thread_.join();
}

std::unique_ptr<Voice> VoiceStarter::Take() {
  if (thread_.joinable()) thread_.join();
  if (taken_ || !choice_.voice) return std::make_unique<TextVoice>(textOut_);
  taken_ = true;
  return std::move(choice_.voice);
}

std::unique_ptr<Voice> CreateVoice(const std::string& SpeechEngine, std::ostream& textOut) {
  return VoiceStarter(SpeechEngine, textOut).Take();
}

}  // namespace quillmere
