#pragma once
// Which speech engine speaks: the order in which the engines are tried, the first that starts, and
// the sentence that tells the user, once, which engine speaks and why. Also the voices of the
// user's language, which are all that VT offers. Standard library only; the engines themselves are
// handed in, so tests use doubles.

#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "speech/voice.h"

namespace quillmere {

// The language of a locale name, lower case: "de" for "de_DE.UTF-8", "pt" for "pt_BR"; "en" for
// "C", "POSIX" or nothing, and for anything that is no language.
std::string LanguageOfLocale(const std::string& localeName);

// The user's language from the locale variables as the C library reads them for messages
// (LC_ALL, then LC_MESSAGES, then LANG; the first that is set and not empty).
std::string UserLanguage(const std::function<const char*(const char*)>& getenv);
std::string UserLanguage();

// The language to ask an engine for: the user's, and American English ("en-US") under the C
// locale, where an engine would otherwise pick a voice of no known language.
std::string EngineLanguage(const std::function<const char*(const char*)>& getenv);
std::string EngineLanguage();

// True when a voice's language tag ("en-US", "en_gb", "en") belongs to `language` ("en").
bool LanguageMatches(const std::string& voiceLanguage, const std::string& language);

// The names of the voices of `language`, from (name, language tag) pairs, in the given order and
// each name once.
std::vector<std::string> VoicesOfLanguage(
    const std::vector<std::pair<std::string, std::string>>& voices, const std::string& language);

// The engines to try for a SpeechEngine setting, best first; "text" is always last. An empty
// setting gives `platformOrder`; "text" (any case) gives "text" alone; a named engine comes first,
// followed by those of `platformOrder` that it is not.
std::vector<std::string> EngineOrder(const std::string& setting,
                                     const std::vector<std::string>& platformOrder);

// The engine's name as the user hears it: "speech-dispatcher", "espeak-ng", "the sapi engine".
std::string EngineWords(const std::string& engine);

// What starting one engine gave: a voice, or in plain words why there is none ("speech-dispatcher
// is not installed").
struct EngineStart {
  std::unique_ptr<Voice> voice;
  std::string why;
};
using EngineStarter = std::function<EngineStart(const std::string& engine)>;

struct VoiceChoice {
  std::unique_ptr<Voice> voice;
  std::string engine;  // as in EngineOrder; "text" for the text voice
  // Empty when the first engine of the order speaks; otherwise which engine speaks and why.
  std::string notice;
};

// Tries the engines of EngineOrder(setting, platformOrder) in turn with `start` and keeps the
// first voice. "text" is never handed to `start`: it is a TextVoice on `textOut`. Each failure is
// also written to standard error.
VoiceChoice ChooseVoice(const std::string& setting, const std::vector<std::string>& platformOrder,
                        const EngineStarter& start, std::ostream& textOut);

}  // namespace quillmere
