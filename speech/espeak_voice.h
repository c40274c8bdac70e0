#pragma once
// espeak-ng through its library, with the library's own sound output: the voice when
// speech-dispatcher is missing or cannot be reached. Linux only.
//
// All calls of the library happen on one thread of the voice's own, which says the queued texts one
// after the other. A synchronous Speak waits for its own text with a time limit in proportion to
// the texts ahead of it; a text that the library cannot say is written to the text output instead.

#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <ostream>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "speech/voice.h"

namespace quillmere {

// Every voice of the espeak-ng library as (name, language tag), in the library's order.
std::vector<std::pair<std::string, std::string>> EspeakVoiceList();

class EspeakVoice : public Voice {
 public:
  // Starts the library. Null when it cannot start; then `why` says so in plain words.
  static std::unique_ptr<EspeakVoice> Open(std::ostream& textOut, std::string& why);
  ~EspeakVoice() override;
  EspeakVoice(const EspeakVoice&) = delete;
  EspeakVoice& operator=(const EspeakVoice&) = delete;

  void Speak(const std::string& text, int flags) override;
  // The voices of the user's language, each once, in the library's order.
  std::vector<std::string> GetVoices() override { return voices_; }
  std::string GetDescription() override;
  void SetVoice(int index) override;
  int Rate() override { return rate_; }
  void SetRate(int rate) override;

 private:
  struct Job {
    enum Kind { Say, Voice, Rate } kind = Say;
    std::string text;
    bool punctuation = false;
    int value = 0;
    long long budgetMs = 0;
    std::shared_ptr<int> done;  // 0 waiting, 1 said, 2 not said; guarded by mutex_
  };

  explicit EspeakVoice(std::ostream& textOut);
  void Run();
  void Post(Job job);

  std::ostream& textOut_;
  std::thread worker_;
  std::mutex mutex_;
  std::condition_variable cv_;
  std::deque<Job> queue_;
  bool stopping_ = false;
  int started_ = 0;  // 0 starting, 1 started, 2 failed; guarded by mutex_
  long long pendingMs_ = 0;
  std::vector<std::string> voices_;
  std::string description_;
  int rate_ = 0;
};

}  // namespace quillmere
