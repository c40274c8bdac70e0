#include "speech/espeak_voice.h"

#include <espeak-ng/espeak_ng.h>
#include <espeak-ng/speak_lib.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <iostream>

#include "speech/budget.h"
#include "speech/punctuation.h"
#include "speech/text_voice.h"
#include "speech/voice_choice.h"

namespace quillmere {

namespace {

// The library's default speed in words a minute, and the speed of a rate from -10 to 10: three
// times slower or faster at the ends, as SAPI's rate goes.
constexpr int kDefaultWpm = 175;
int WordsPerMinute(int rate) {
  const double wpm = kDefaultWpm * std::pow(3.0, rate / 10.0);
  return std::clamp(static_cast<int>(std::lround(wpm)), 80, 450);
}

std::mutex gLibraryMutex;  // the library is not thread-safe: one call at a time

// The language tags of a voice: a list of (priority byte, text, NUL), ended by a zero byte.
std::vector<std::string> Languages(const espeak_VOICE* v) {
  std::vector<std::string> tags;
  for (const char* p = v->languages; p && *p; p += std::char_traits<char>::length(p + 1) + 2) {
    tags.emplace_back(p + 1);
  }
  return tags;
}

struct ListedVoice {
  std::string name, language;
};

std::vector<ListedVoice> ListLibraryVoices() {
  std::vector<ListedVoice> list;
  std::lock_guard lock(gLibraryMutex);
  espeak_ng_InitializePath(nullptr);
  const espeak_VOICE** voices = espeak_ListVoices(nullptr);
  for (int i = 0; voices && voices[i]; ++i) {
    const espeak_VOICE* v = voices[i];
    for (const std::string& tag : Languages(v)) {
      list.push_back({v->name ? v->name : "", tag});
    }
  }
  return list;
}

}  // namespace

std::vector<std::pair<std::string, std::string>> EspeakVoiceList() {
  std::vector<std::pair<std::string, std::string>> list;
  for (const ListedVoice& v : ListLibraryVoices()) list.emplace_back(v.name, v.language);
  return list;
}

EspeakVoice::EspeakVoice(std::ostream& textOut) : textOut_(textOut) {}

std::unique_ptr<EspeakVoice> EspeakVoice::Open(std::ostream& textOut, std::string& why) {
  std::unique_ptr<EspeakVoice> voice(new EspeakVoice(textOut));
  const std::string language = UserLanguage();
  std::vector<std::pair<std::string, std::string>> pairs;
  std::vector<ListedVoice> listed = ListLibraryVoices();
  for (const ListedVoice& v : listed) pairs.emplace_back(v.name, v.language);
  voice->voices_ = VoicesOfLanguage(pairs, language);
  voice->worker_ = std::thread([v = voice.get()] { v->Run(); });
  std::unique_lock lock(voice->mutex_);
  voice->cv_.wait(lock, [&] { return voice->started_ != 0; });
  if (voice->started_ == 2) {
    lock.unlock();
    why = "espeak-ng could not start";
    return nullptr;  // the destructor ends the worker
  }
  return voice;
}

EspeakVoice::~EspeakVoice() {
  {
    std::lock_guard lock(mutex_);
    stopping_ = true;
  }
  cv_.notify_all();
  if (worker_.joinable()) worker_.join();
}

void EspeakVoice::Run() {
  int ok;
  {
    std::lock_guard lib(gLibraryMutex);
    ok = espeak_Initialize(AUDIO_OUTPUT_SYNCH_PLAYBACK, 0, nullptr, 0) > 0;
  }
  std::string description;
  if (ok) {
    std::lock_guard lib(gLibraryMutex);
    espeak_VOICE spec{};
    const std::string tag = EngineLanguage();
    spec.languages = tag.c_str();
    espeak_SetVoiceByProperties(&spec);
    if (const espeak_VOICE* v = espeak_GetCurrentVoice(); v && v->name) description = v->name;
    espeak_SetParameter(espeakPUNCTUATION, espeakPUNCT_NONE, 0);
  }
  {
    std::lock_guard lock(mutex_);
    started_ = ok ? 1 : 2;
    description_ = description.empty() ? "espeak-ng" : description;
  }
  cv_.notify_all();
  if (!ok) return;

  for (;;) {
    Job job;
    {
      std::unique_lock lock(mutex_);
      cv_.wait(lock, [&] { return stopping_ || !queue_.empty(); });
      if (queue_.empty()) break;  // stopping, with nothing left to say
      job = std::move(queue_.front());
      queue_.pop_front();
    }
    bool said = true;
    std::unique_lock lib(gLibraryMutex);  // a voice list asked for meanwhile waits
    if (job.kind == Job::Voice) {
      espeak_SetVoiceByName(voices_[job.value].c_str());
    } else if (job.kind == Job::Rate) {
      espeak_SetParameter(espeakRATE, WordsPerMinute(job.value), 0);
    } else {
      if (job.punctuation) espeak_SetParameter(espeakPUNCTUATION, espeakPUNCT_ALL, 0);
      said = espeak_Synth(job.text.c_str(), job.text.size() + 1, 0, POS_CHARACTER, 0,
                          espeakCHARS_UTF8, nullptr, nullptr) == EE_OK;
      if (job.punctuation) espeak_SetParameter(espeakPUNCTUATION, espeakPUNCT_NONE, 0);
    }
    lib.unlock();
    {
      std::lock_guard lock(mutex_);
      pendingMs_ -= job.budgetMs;
      if (job.done) *job.done = said ? 1 : 2;
    }
    cv_.notify_all();
    if (!said && !job.done) {
      std::cerr << "espeak-ng could not say a text; it is written as text." << std::endl;
      TextVoice(textOut_).Speak(job.text, SVSFDefault);
    }
  }
  std::lock_guard lib(gLibraryMutex);
  espeak_Terminate();
}

void EspeakVoice::Post(Job job) {
  {
    std::lock_guard lock(mutex_);
    pendingMs_ += job.budgetMs;
    queue_.push_back(std::move(job));
  }
  cv_.notify_all();
}

void EspeakVoice::Speak(const std::string& text, int flags) {
  Job job;
  job.punctuation = flags == SVSFNLPSpeakPunc;
  job.text = job.punctuation ? PronouncePunctuation(text) : text;
  if (IsBlankText(job.text)) return;
  job.budgetMs = SpeechBudgetMs(job.text, rate_);
  const bool sync = flags != SVSFlagsAsync;
  std::shared_ptr<int> done;
  long long limitMs = 0;
  if (sync) {
    done = job.done = std::make_shared<int>(0);
    std::lock_guard lock(mutex_);
    limitMs = pendingMs_ + job.budgetMs + 1000;
  }
  Post(std::move(job));
  if (!sync) return;
  std::unique_lock lock(mutex_);
  const bool finished =
      cv_.wait_for(lock, std::chrono::milliseconds(limitMs), [&] { return *done != 0; });
  const bool said = finished && *done == 1;
  lock.unlock();
  if (!finished) {
    std::cerr << "espeak-ng did not finish a text in time." << std::endl;
  } else if (!said) {
    std::cerr << "espeak-ng could not say a text; it is written as text." << std::endl;
    TextVoice(textOut_).Speak(text, flags);
  }
}

std::string EspeakVoice::GetDescription() {
  std::lock_guard lock(mutex_);
  return description_;
}

void EspeakVoice::SetVoice(int index) {
  if (index < 0 || index >= static_cast<int>(voices_.size())) return;
  {
    std::lock_guard lock(mutex_);
    description_ = voices_[index];
  }
  Job job;
  job.kind = Job::Voice;
  job.value = index;
  Post(std::move(job));
}

void EspeakVoice::SetRate(int rate) {
  rate_ = std::clamp(rate, -10, 10);
  Job job;
  job.kind = Job::Rate;
  job.value = rate_;
  Post(std::move(job));
}

}  // namespace quillmere
