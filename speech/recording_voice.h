#pragma once
// A voice for tests: keeps every call of Speak with its text and flag, in order.

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "speech/voice.h"

namespace quillmere {

class RecordingVoice : public Voice {
 public:
  struct Call {
    std::string text;
    int flags = 0;
    bool operator==(const Call&) const = default;
  };

  explicit RecordingVoice(std::vector<std::string> voices = {"Test Voice"}, int rate = 0)
      : voices_(std::move(voices)), rate_(rate) {}

  void Speak(const std::string& text, int flags) override {
    calls.push_back({text, flags});
    if (onSpeak) onSpeak(text, flags);
  }
  std::vector<std::string> GetVoices() override { return voices_; }
  std::string GetDescription() override {
    return current_ >= 0 && current_ < static_cast<int>(voices_.size()) ? voices_[current_] : "";
  }
  void SetVoice(int index) override {
    if (index >= 0 && index < static_cast<int>(voices_.size())) current_ = index;
  }
  int Rate() override { return rate_; }
  void SetRate(int rate) override { rate_ = rate; }

  int CurrentVoice() const { return current_; }
  // The texts alone, in order.
  std::vector<std::string> Texts() const {
    std::vector<std::string> texts;
    for (const auto& c : calls) texts.push_back(c.text);
    return texts;
  }

  std::vector<Call> calls;
  // Runs inside each Speak, after the call is kept: stands in for a key pressed while speaking.
  std::function<void(const std::string&, int)> onSpeak;

 private:
  std::vector<std::string> voices_;
  int current_ = 0;
  int rate_ = 0;
};

}  // namespace quillmere
