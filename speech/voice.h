#pragma once
// What the program needs of a speech engine. One voice lives as long as the main window.

#include <string>
#include <vector>

namespace quillmere {

// Flags of Speak.
inline constexpr int SVSFDefault = 0;        // synchronous: returns when the text has been said
inline constexpr int SVSFlagsAsync = 1;      // returns at once; queues behind what is being said
inline constexpr int SVSFNLPSpeakPunc = 64;  // synchronous, punctuation pronounced

class Voice {
 public:
  virtual ~Voice() = default;
  virtual void Speak(const std::string& text, int flags) = 0;
  // The descriptions of the installed voices, in the engine's order (index 0 first).
  virtual std::vector<std::string> GetVoices() = 0;
  // The description of the current voice.
  virtual std::string GetDescription() = 0;
  // Makes voice `index` of GetVoices the voice of all later speech.
  virtual void SetVoice(int index) = 0;
  virtual int Rate() = 0;
  // -10 to 10.
  virtual void SetRate(int rate) = 0;
};

}  // namespace quillmere
