#pragma once
// How long one text may take an engine to say: the limit of every synchronous wait.

#include <algorithm>
#include <string>

namespace quillmere {

// espeak at the default rate says about fifteen characters a second, at rate -10 less than half.
inline long long SpeechBudgetMs(const std::string& text, int rate) {
  std::size_t chars = 0;
  for (unsigned char c : text) chars += (c & 0xC0) != 0x80;
  const double slower = 1.0 + 0.15 * std::max(0, -rate);
  const double ms = 4000.0 + 150.0 * slower * static_cast<double>(chars);
  return static_cast<long long>(std::min(ms, 3600000.0));  // an hour
}

// True when the text holds nothing but blanks and line ends: no engine makes a sound of it.
inline bool IsBlankText(const std::string& text) {
  return text.find_first_not_of(" \t\r\n") == std::string::npos;
}

}  // namespace quillmere
