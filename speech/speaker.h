#pragma once
// The spoken-output operations of the main window: every word the user hears goes through here.

#include <cstdint>
#include <functional>
#include <string>

#include "speech/voice.h"

namespace quillmere {

class Speaker {
 public:
  // `yield` lets pending keyboard and timer events run (the main window's event loop).
  Speaker(Voice& voice, std::function<void()> yield);

  Voice& voice() { return voice_; }

  // Says M, synchronously; does not look at CancelFlag.
  void SpeakThis(const std::string& M);
  // Says M one character at a time, "dot" for a point; does not look at CancelFlag.
  void SpeakCharacters(const std::string& M);
  // Rewrites T for the ear in place, then says it unless CancelFlag is raised.
  void SpeakCaption(std::string& T);
  void Yield() { yield_(); }

  // Raised by Esc; read between utterances only.
  int16_t CancelFlag = 0;

 private:
  Voice& voice_;
  std::function<void()> yield_;
};

// The caption rewriting table, applied row by row ("RA: 12:34" becomes
// " Right Ascension  12 hours and 34 minutes."). A text holding "recognized" passes unchanged.
std::string RewriteCaption(std::string T);

// "35:12:06.0" becomes "35 degrees 12 minutes 06.0 seconds ", in place and as the result.
std::string cvtLngSpoken(std::string& T);

}  // namespace quillmere
