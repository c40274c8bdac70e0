#pragma once
// A voice that writes instead of speaking: each utterance one line, for a terminal's screen reader,
// a script, or a machine without a speech engine.

#include <ostream>
#include <string>
#include <vector>

#include "speech/voice.h"

namespace quillmere {

class TextVoice : public Voice {
 public:
  explicit TextVoice(std::ostream& out) : out_(out) {}

  // One line per call, flushed at once; line breaks inside the text become blanks. An empty text
  // gives no sound from a real engine and writes nothing here either.
  void Speak(const std::string& text, int flags) override;
  std::vector<std::string> GetVoices() override { return {kName}; }
  std::string GetDescription() override { return kName; }
  void SetVoice(int) override {}
  int Rate() override { return rate_; }
  void SetRate(int rate) override { rate_ = rate; }

  static constexpr const char* kName = "Text";

 private:
  std::ostream& out_;
  int rate_ = 0;
};

}  // namespace quillmere
