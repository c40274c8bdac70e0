#pragma once
// Small text helpers shared by the command line, the coordinate texts and the spoken readings.

#include <string>
#include <string_view>

namespace quillmere {

// `s` without the characters of `blanks` at either end.
inline std::string Trimmed(std::string_view s, std::string_view blanks = " ") {
  const size_t first = s.find_first_not_of(blanks);
  if (first == std::string_view::npos) return {};
  return std::string(s.substr(first, s.find_last_not_of(blanks) - first + 1));
}

// ASCII letters in upper case; other bytes stand as they are.
inline std::string UpperCase(std::string s) {
  for (char& c : s)
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  return s;
}

}  // namespace quillmere
