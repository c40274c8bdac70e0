#include "speech/text_voice.h"

namespace quillmere {

void TextVoice::Speak(const std::string& text, int) {
  if (text.empty()) return;
  std::string line = text;
  for (char& c : line) {
    if (c == '\n' || c == '\r') c = ' ';
  }
  out_ << line << '\n';
  out_.flush();
}

}  // namespace quillmere
