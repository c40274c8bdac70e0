#include "speech/speaker.h"

#include <utility>

namespace quillmere {

namespace {

void ReplaceAll(std::string& s, const std::string& from, const std::string& to) {
  for (std::size_t p = s.find(from); p != std::string::npos; p = s.find(from, p + to.size())) {
    s.replace(p, from.size(), to);
  }
}

bool Holds(const std::string& s, const std::string& part) {
  return s.find(part) != std::string::npos;
}

// Bytes of the UTF-8 character that starts at s[i]; a stray byte counts as one character.
std::size_t CharLength(const std::string& s, std::size_t i) {
  std::size_t n = 1;
  while (i + n < s.size() && (static_cast<unsigned char>(s[i + n]) & 0xC0) == 0x80) ++n;
  return n;
}

}  // namespace

Speaker::Speaker(Voice& voice, std::function<void()> yield)
    : voice_(voice), yield_(std::move(yield)) {
  if (!yield_) yield_ = [] {};
}

void Speaker::SpeakThis(const std::string& M) {
  voice_.Speak(M, SVSFDefault);
}

void Speaker::SpeakCharacters(const std::string& M) {
  for (std::size_t i = 0; i < M.size();) {
    const std::size_t n = CharLength(M, i);
    const std::string c = M.substr(i, n);
    voice_.Speak(c == "." ? std::string("dot") : c, SVSFDefault);
    i += n;
  }
}

void Speaker::SpeakCaption(std::string& T) {
  yield_();
  T = RewriteCaption(std::move(T));
  yield_();
  if (!CancelFlag) voice_.Speak(T, SVSFDefault);
}

std::string RewriteCaption(std::string T) {
  // A reply that repeats what the user typed is never rewritten.
  if (Holds(T, "recognized")) return T;

  ReplaceAll(T, "AZ:", " azimuth ");
  ReplaceAll(T, "EL:", " elevation ");
  // The hour and degree captions hold a single value with one colon, so every colon left after
  // the label is the one between the whole units and the minutes.
  const struct {
    const char* label;
    const char* words;
    const char* unit;
  } sexagesimal[] = {
      {"RA:", " Right Ascension ", " hours and "},
      {"DEC:", " Declination ", " degrees and "},
      {"HA:", " hour angle ", " hours and "},
  };
  for (const auto& row : sexagesimal) {
    if (!Holds(T, row.label)) continue;
    ReplaceAll(T, row.label, row.words);
    ReplaceAll(T, ":", row.unit);
    T += " minutes.";
  }
  ReplaceAll(T, "CML:", " System three longitude ");
  ReplaceAll(T, "LMST:", "Local Mean Sidereal Time ");
  return T;
}

std::string cvtLngSpoken(std::string& T) {
  std::size_t p = T.find(':');
  if (p == std::string::npos) return T;
  T = T.substr(0, p) + " degrees " + T.substr(p + 1);
  p = T.find(':');
  if (p != std::string::npos) {
    T = T.substr(0, p) + " minutes " + T.substr(p + 1);
    ReplaceAll(T, ":", "");
    T += " seconds ";
  } else {
    T += " minutes ";
  }
  return T;
}

}  // namespace quillmere
