#pragma once
// speech-dispatcher through its own client library (libspeechd, SSIP), Linux only.
//
// One connection, opened when the voice is made (the daemon is started if need be). Every text is
// sent with the priority "message": such messages queue behind each other and behind those of other
// clients of the same priority (a screen reader), and nothing of another client is ever stopped or
// cancelled by this voice. A synchronous Speak returns at the end notification of its own message,
// or when the time limit in proportion to the texts ahead of it has run out. A lost connection (the
// daemon ended or restarted) is noticed at the next text, which opens a new one and is said there;
// a text that speech-dispatcher cannot say goes to the fallback voice (espeak-ng, then text), so
// nothing is ever dropped without trace.

#include <functional>
#include <memory>
#include <mutex>
#include <ostream>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "speech/voice.h"

namespace quillmere {

class SpeechdVoice : public Voice {
 public:
  using FallbackMaker = std::function<std::unique_ptr<Voice>()>;

  // Opens the connection. Null when speech-dispatcher is not installed or cannot be reached; then
  // `why` says so in plain words. `makeFallback` is called at the first text that cannot be said
  // here; when it gives nothing, such texts are written to `textOut`.
  static std::unique_ptr<SpeechdVoice> Open(FallbackMaker makeFallback, std::ostream& textOut,
                                            std::string& why);
  ~SpeechdVoice() override;
  SpeechdVoice(const SpeechdVoice&) = delete;
  SpeechdVoice& operator=(const SpeechdVoice&) = delete;

  void Speak(const std::string& text, int flags) override;
  // The voices of the user's language, each once, in the engine's order.
  std::vector<std::string> GetVoices() override;
  std::string GetDescription() override;
  void SetVoice(int index) override;
  int Rate() override { return rate_; }
  void SetRate(int rate) override;

  // How often the connection was opened again after it was lost.
  int Reconnects() const { return reconnects_; }

  struct Events;  // notifications of the library's thread

 private:
  SpeechdVoice(FallbackMaker makeFallback, std::ostream& textOut);
  // A connection set up for this voice (notifications, punctuation, language), or null.
  static void* OpenConnection(bool autospawn, const std::string& language,
                              std::shared_ptr<Events>& events, std::string* why);
  bool Connect(bool autospawn, std::string* why);
  void Adopt(void* connection, std::shared_ptr<Events> events);
  void TakeSpawned();
  void Disconnect();
  bool Alive();
  void ListVoices();
  Voice& Fallback();

  enum class Outcome { Ended, Lost, TimedOut };
  Outcome WaitFor(int id, long long limitMs, bool& begun);

  FallbackMaker makeFallback_;
  std::ostream& textOut_;
  std::unique_ptr<Voice> fallback_;
  bool fallbackIsText_ = false;
  void* connection_ = nullptr;  // the library's SPDConnection, a type it names only by typedef
  std::shared_ptr<Events> events_;
  std::string language_;  // as told to the daemon: "en-US", "de"
  int rate_ = 0;
  bool rateSet_ = false;
  std::string voiceName_;  // chosen by SetVoice; empty for the daemon's own choice
  int reconnects_ = 0;
  // Asynchronous texts not known to have ended: message id, time limit, the text as sent.
  struct Pending {
    int id;
    long long budget;
    std::string text;
  };
  std::vector<Pending> pending_;
  // Those of pending_ that never began, to be said again when the connection was lost.
  std::vector<Pending> Orphans();

  // The daemon being started by a thread of ours; until it answers, the fallback speaks.
  std::thread spawner_;
  bool spawning_ = false;
  bool spawnFailed_ = false;
  std::mutex spawnMutex_;
  bool spawnDone_ = false;
  void* spawned_ = nullptr;
  std::shared_ptr<Events> spawnedEvents_;
  std::string notice_;  // why the fallback speaks, when the daemon could not be started

  // The voices are listed on a thread of their own, so that the first word does not wait.
  std::thread lister_;
  std::mutex voicesMutex_;
  bool listed_ = false;
  std::vector<std::string> voices_;
  std::string description_;
  std::string listModule_;
};

}  // namespace quillmere
