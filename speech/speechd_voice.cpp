#include "speech/speechd_voice.h"

#include <libspeechd.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <csignal>
#include <cstdlib>
#include <iostream>
#include <map>
#include <sstream>

#include "speech/budget.h"
#include "speech/espeak_voice.h"
#include "speech/punctuation.h"
#include "speech/text_voice.h"
#include "speech/voice_choice.h"

namespace quillmere {

namespace {

constexpr int kProbeEveryMs = 400;  // how often a long wait asks whether the daemon is still there
constexpr std::size_t kKeptEvents = 512;

SPDConnection* AsConn(void* c) {
  return static_cast<SPDConnection*>(c);
}

// True when an executable of that name is on the PATH.
bool OnPath(const std::string& name) {
  const char* path = std::getenv("PATH");
  std::stringstream dirs(path ? path : "/usr/bin:/bin");
  std::string dir;
  while (std::getline(dirs, dir, ':')) {
    if (!dir.empty() && access((dir + "/" + name).c_str(), X_OK) == 0) return true;
  }
  return false;
}

}  // namespace

// The notifications arrive on the library's own thread, without a pointer of ours: each open
// connection is found by its client id.
struct SpeechdVoice::Events {
  std::mutex m;
  std::condition_variable cv;
  std::map<std::size_t, int> state;  // message id: 1 begun, 2 ended or cancelled

  void Note(std::size_t msg, int s) {
    {
      std::lock_guard lock(m);
      int& st = state[msg];
      st = std::max(st, s);
      while (state.size() > kKeptEvents) state.erase(state.begin());
    }
    cv.notify_all();
  }
};

namespace {

std::mutex gRegistryMutex;
std::map<std::size_t, std::shared_ptr<SpeechdVoice::Events>> gRegistry;

void OnEvent(std::size_t msg, std::size_t client, SPDNotificationType type) {
  std::shared_ptr<SpeechdVoice::Events> events;
  {
    std::lock_guard lock(gRegistryMutex);
    auto it = gRegistry.find(client);
    if (it == gRegistry.end()) return;
    events = it->second;
  }
  events->Note(msg, type == SPD_EVENT_BEGIN ? 1 : 2);
}

}  // namespace

SpeechdVoice::SpeechdVoice(FallbackMaker makeFallback, std::ostream& textOut)
    : makeFallback_(std::move(makeFallback)), textOut_(textOut), language_(EngineLanguage()) {}

std::unique_ptr<SpeechdVoice> SpeechdVoice::Open(FallbackMaker makeFallback, std::ostream& textOut,
                                                 std::string& why) {
  // A write to a connection that the daemon has just closed must fail, not end the program.
  std::signal(SIGPIPE, SIG_IGN);
  std::unique_ptr<SpeechdVoice> voice(new SpeechdVoice(std::move(makeFallback), textOut));
  SpeechdVoice* v = voice.get();
  if (v->Connect(false, nullptr)) {
    const int rate = spd_get_voice_rate(AsConn(v->connection_));
    v->rate_ = std::clamp((rate >= 0 ? rate + 5 : rate - 5) / 10, -10, 10);
    char* module = spd_get_output_module(AsConn(v->connection_));
    v->listModule_ = module ? module : "";
    std::free(module);
  } else if (!OnPath("speech-dispatcher")) {
    why = "speech-dispatcher is not installed";
    return nullptr;
  } else {
    // The daemon is not running. Starting it takes seconds (it lists every voice of every
    // language), so it starts on a thread while espeak-ng, the synthesizer behind Debian's
    // speech-dispatcher, says the first texts directly.
    v->Fallback();
    if (v->fallbackIsText_) {
      if (!v->Connect(true, &why)) return nullptr;
    } else {
      v->listModule_ = "espeak-ng";
      v->spawning_ = true;
      v->spawner_ = std::thread([v] {
        std::shared_ptr<Events> events;
        void* c = OpenConnection(true, v->language_, events, nullptr);
        std::lock_guard lock(v->spawnMutex_);
        v->spawned_ = c;
        v->spawnedEvents_ = std::move(events);
        v->spawnDone_ = true;
      });
    }
  }
  v->lister_ = std::thread([v] { v->ListVoices(); });
  return voice;
}

SpeechdVoice::~SpeechdVoice() {
  if (lister_.joinable()) lister_.join();
  if (spawner_.joinable()) spawner_.join();
  TakeSpawned();
  Disconnect();
}

void* SpeechdVoice::OpenConnection(bool autospawn, const std::string& language,
                                   std::shared_ptr<Events>& events, std::string* why) {
  char* error = nullptr;
  SPDConnection* c =
      spd_open2("quillmere", "main", nullptr, SPD_MODE_THREADED, nullptr, autospawn, &error);
  if (c == nullptr) {
    if (why) {
      *why = OnPath("speech-dispatcher") ? "speech-dispatcher could not be reached"
                                         : "speech-dispatcher is not installed";
    }
    if (autospawn) {
      std::cerr << "speech-dispatcher: " << (error ? error : "no connection") << std::endl;
    }
    std::free(error);
    return nullptr;
  }
  std::free(error);
  c->callback_begin = OnEvent;
  c->callback_end = OnEvent;
  c->callback_cancel = OnEvent;
  events = std::make_shared<Events>();
  {
    std::lock_guard lock(gRegistryMutex);
    gRegistry[static_cast<std::size_t>(spd_get_client_id(c))] = events;
  }
  spd_set_notification_on(c, SPD_BEGIN);
  spd_set_notification_on(c, SPD_END);
  spd_set_notification_on(c, SPD_CANCEL);
  spd_set_punctuation(c, SPD_PUNCT_NONE);
  spd_set_language(c, language.c_str());
  return c;
}

bool SpeechdVoice::Connect(bool autospawn, std::string* why) {
  std::shared_ptr<Events> events;
  void* c = OpenConnection(autospawn, language_, events, why);
  if (!c) return false;
  Adopt(c, std::move(events));
  return true;
}

void SpeechdVoice::Adopt(void* c, std::shared_ptr<Events> events) {
  if (!voiceName_.empty()) spd_set_synthesis_voice(AsConn(c), voiceName_.c_str());
  if (rateSet_) spd_set_voice_rate(AsConn(c), rate_ * 10);
  connection_ = c;
  events_ = std::move(events);
}

// The connection that the spawning thread made, once it is there.
void SpeechdVoice::TakeSpawned() {
  if (!spawning_) return;
  void* c = nullptr;
  std::shared_ptr<Events> events;
  {
    std::lock_guard lock(spawnMutex_);
    if (!spawnDone_) return;
    c = spawned_;
    events = std::move(spawnedEvents_);
    spawned_ = nullptr;
  }
  spawning_ = false;
  if (spawner_.joinable()) spawner_.join();
  if (c) {
    Adopt(c, std::move(events));
  } else {
    spawnFailed_ = true;
    // Said once, after the text under way, in the voice that speaks instead.
    notice_ = "The voice you hear is " +
              std::string(fallbackIsText_ ? "text on standard output" : "espeak-ng") +
              ", because speech-dispatcher could not be started.";
  }
}

void SpeechdVoice::Disconnect() {
  if (!connection_) return;
  {
    std::lock_guard lock(gRegistryMutex);
    for (auto it = gRegistry.begin(); it != gRegistry.end();) {
      it = it->second == events_ ? gRegistry.erase(it) : std::next(it);
    }
  }
  spd_close(AsConn(connection_));
  connection_ = nullptr;
  pending_.clear();
}

std::vector<SpeechdVoice::Pending> SpeechdVoice::Orphans() {
  std::vector<Pending> never;
  if (!events_) return never;
  std::lock_guard lock(events_->m);
  for (const Pending& p : pending_) {
    if (!events_->state.count(static_cast<std::size_t>(p.id))) never.push_back(p);
  }
  return never;
}

bool SpeechdVoice::Alive() {
  if (!connection_) return false;
  char* reply = nullptr;
  const int r = spd_execute_command_with_reply(AsConn(connection_), "GET RATE", &reply);
  std::free(reply);
  return r == 0;
}

void SpeechdVoice::ListVoices() {
  std::vector<std::pair<std::string, std::string>> all;
  if (listModule_ == "espeak-ng" || listModule_ == "espeak-ng-mbrola") {
    // The daemon lists every variant of every language (over 13 000 voices, some seconds); its
    // espeak-ng module names the voices as the library does, so the library lists them at once.
    all = EspeakVoiceList();
  } else {
    SPDConnection* c =
        spd_open2("quillmere", "voices", nullptr, SPD_MODE_SINGLE, nullptr, 0, nullptr);
    if (c) {
      SPDVoice** list = spd_list_synthesis_voices(c);
      for (int i = 0; list && list[i]; ++i) {
        all.emplace_back(list[i]->name ? list[i]->name : "",
                         list[i]->language ? list[i]->language : "");
      }
      if (list) free_spd_voices(list);
      spd_close(c);
    }
  }
  const std::string language = LanguageOfLocale(language_);
  std::vector<std::string> names = VoicesOfLanguage(all, language);
  std::string description;
  for (const auto& [name, tag] : all) {
    std::string a = tag, b = language_;
    std::transform(a.begin(), a.end(), a.begin(), ::tolower);
    std::transform(b.begin(), b.end(), b.begin(), ::tolower);
    if (a == b) {
      description = name;
      break;
    }
  }
  if (description.empty() && !names.empty()) description = names.front();
  std::lock_guard lock(voicesMutex_);
  voices_ = std::move(names);
  if (description_.empty()) description_ = description.empty() ? "speech-dispatcher" : description;
  listed_ = true;
}

std::vector<std::string> SpeechdVoice::GetVoices() {
  if (lister_.joinable()) lister_.join();
  std::lock_guard lock(voicesMutex_);
  return voices_;
}

std::string SpeechdVoice::GetDescription() {
  if (lister_.joinable()) lister_.join();
  std::lock_guard lock(voicesMutex_);
  return description_;
}

void SpeechdVoice::SetVoice(int index) {
  if (lister_.joinable()) lister_.join();
  std::lock_guard lock(voicesMutex_);
  if (index < 0 || index >= static_cast<int>(voices_.size())) return;
  voiceName_ = voices_[index];
  description_ = voiceName_;
  if (connection_) spd_set_synthesis_voice(AsConn(connection_), voiceName_.c_str());
}

void SpeechdVoice::SetRate(int rate) {
  rate_ = std::clamp(rate, -10, 10);
  rateSet_ = true;
  if (connection_) spd_set_voice_rate(AsConn(connection_), rate_ * 10);
  if (fallback_) fallback_->SetRate(rate_);
}

Voice& SpeechdVoice::Fallback() {
  if (!fallback_) {
    if (lister_.joinable() && lister_.get_id() != std::this_thread::get_id()) lister_.join();
    if (makeFallback_) fallback_ = makeFallback_();
    if (!fallback_) {
      fallback_ = std::make_unique<TextVoice>(textOut_);
      fallbackIsText_ = true;
    }
    fallback_->SetRate(rate_);
  }
  return *fallback_;
}

SpeechdVoice::Outcome SpeechdVoice::WaitFor(int id, long long limitMs, bool& begun) {
  using Clock = std::chrono::steady_clock;
  const auto deadline = Clock::now() + std::chrono::milliseconds(limitMs);
  const auto msg = static_cast<std::size_t>(id);
  std::unique_lock lock(events_->m);
  for (;;) {
    const auto slice = std::min(deadline, Clock::now() + std::chrono::milliseconds(kProbeEveryMs));
    events_->cv.wait_until(lock, slice, [&] {
      auto it = events_->state.find(msg);
      return it != events_->state.end() && it->second == 2;
    });
    auto it = events_->state.find(msg);
    begun = it != events_->state.end();
    if (begun && it->second == 2) {
      events_->state.erase(it);
      return Outcome::Ended;
    }
    if (Clock::now() >= deadline) return Outcome::TimedOut;
    lock.unlock();
    const bool alive = Alive();
    lock.lock();
    if (!alive) {
      it = events_->state.find(msg);
      begun = it != events_->state.end();
      return it != events_->state.end() && it->second == 2 ? Outcome::Ended : Outcome::Lost;
    }
  }
}

void SpeechdVoice::Speak(const std::string& text, int flags) {
  const bool punctuation = flags == SVSFNLPSpeakPunc;
  const std::string said = punctuation ? PronouncePunctuation(text) : text;
  if (IsBlankText(said)) return;  // no engine makes a sound of it, and no notification comes
  const bool sync = flags != SVSFlagsAsync;
  const long long budget = SpeechBudgetMs(said, rate_);

  TakeSpawned();
  // Asynchronous texts that a lost daemon never began: said again, ahead of this one.
  std::vector<Pending> orphans;
  const auto lose = [&] {
    std::vector<Pending> lost = Orphans();
    orphans.insert(orphans.end(), lost.begin(), lost.end());
    Disconnect();
  };
  for (int attempt = 0; attempt < 2 && !spawning_; ++attempt) {
    if (!connection_) {
      // After a failed start of the daemon, only a daemon started by someone else is taken up.
      if (!Connect(!spawnFailed_, nullptr)) break;
      ++reconnects_;
    }
    while (!orphans.empty()) {
      const int again = spd_say(AsConn(connection_), SPD_MESSAGE, orphans.front().text.c_str());
      if (again < 0) break;
      pending_.push_back({again, orphans.front().budget, orphans.front().text});
      orphans.erase(orphans.begin());
    }
    if (punctuation) spd_set_punctuation(AsConn(connection_), SPD_PUNCT_ALL);
    const int id = spd_say(AsConn(connection_), SPD_MESSAGE, said.c_str());
    if (punctuation && id >= 0) spd_set_punctuation(AsConn(connection_), SPD_PUNCT_NONE);
    if (id < 0) {  // the daemon has gone: a new connection, and the text again
      std::cerr << "speech-dispatcher: the connection was lost; opening a new one." << std::endl;
      lose();
      continue;
    }

    // What is still queued ahead of this text counts towards its time limit.
    long long ahead = 0;
    {
      std::lock_guard lock(events_->m);
      std::erase_if(pending_, [&](const Pending& p) {
        auto it = events_->state.find(static_cast<std::size_t>(p.id));
        return it != events_->state.end() && it->second == 2;
      });
    }
    for (const Pending& p : pending_) ahead += p.budget;
    if (!sync) {
      pending_.push_back({id, budget, said});
      return;
    }
    bool begun = false;
    switch (WaitFor(id, ahead + budget + 1000, begun)) {
      case Outcome::Ended:
        pending_.clear();
        return;
      case Outcome::TimedOut:
        std::cerr << "speech-dispatcher did not finish a text in time." << std::endl;
        if (begun) return;
        attempt = 2;  // the daemon is there but silent: the fallback says it
        break;
      case Outcome::Lost:
        std::cerr << "speech-dispatcher: the connection was lost while speaking." << std::endl;
        lose();
        if (begun) return;  // all that was queued before it had begun too
        break;
    }
  }
  for (const Pending& p : orphans) Fallback().Speak(p.text, SVSFlagsAsync);
  Fallback().Speak(text, flags);
  if (!notice_.empty()) {
    const std::string notice = std::move(notice_);
    notice_.clear();
    Fallback().Speak(notice, SVSFDefault);
  }
}

}  // namespace quillmere
