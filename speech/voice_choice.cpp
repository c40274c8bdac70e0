#include "speech/voice_choice.h"

#include <cstdlib>
#include <iostream>

#include "speech/text_voice.h"

namespace quillmere {

namespace {

std::string Lower(std::string s) {
  for (char& c : s) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return s;
}

bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

}  // namespace

std::string LanguageOfLocale(const std::string& localeName) {
  std::string language;
  for (char c : localeName) {
    if (!IsLetter(c)) break;
    language += c;
  }
  language = Lower(language);
  if (language.size() < 2 || language.size() > 3 || language == "c") return "en";
  return language;
}

std::string UserLanguage(const std::function<const char*(const char*)>& getenv) {
  for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const char* value = getenv(name);
    if (value != nullptr && *value != '\0') return LanguageOfLocale(value);
  }
  return "en";
}

std::string UserLanguage() {
  return UserLanguage([](const char* name) { return std::getenv(name); });
}

std::string EngineLanguage(const std::function<const char*(const char*)>& getenv) {
  for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const char* value = getenv(name);
    if (value == nullptr || *value == '\0') continue;
    const std::string v = value;
    if (v == "C" || v == "POSIX" || v.rfind("C.", 0) == 0) break;
    return LanguageOfLocale(v);
  }
  return "en-US";
}

std::string EngineLanguage() {
  return EngineLanguage([](const char* name) { return std::getenv(name); });
}

bool LanguageMatches(const std::string& voiceLanguage, const std::string& language) {
  const std::string tag = Lower(voiceLanguage);
  const std::string want = Lower(language);
  if (tag.compare(0, want.size(), want) != 0) return false;
  return tag.size() == want.size() || tag[want.size()] == '-' || tag[want.size()] == '_';
}

std::vector<std::string> VoicesOfLanguage(
    const std::vector<std::pair<std::string, std::string>>& voices, const std::string& language) {
  std::vector<std::string> names;
  for (const auto& [name, tag] : voices) {
    if (!LanguageMatches(tag, language)) continue;
    bool seen = false;
    for (const std::string& n : names) seen = seen || n == name;
    if (!seen) names.push_back(name);
  }
  return names;
}

std::vector<std::string> EngineOrder(const std::string& setting,
                                     const std::vector<std::string>& platformOrder) {
  const std::string named = Lower(setting);
  std::vector<std::string> order;
  if (named != "text") {
    if (!named.empty()) order.push_back(named);
    for (const std::string& e : platformOrder) {
      if (e != named) order.push_back(e);
    }
  }
  order.push_back("text");
  return order;
}

std::string EngineWords(const std::string& engine) {
  if (engine == "speechd") return "speech-dispatcher";
  if (engine == "espeak") return "espeak-ng";
  if (engine == "text") return "text on standard output";
  return "the " + engine + " engine";
}

VoiceChoice ChooseVoice(const std::string& setting, const std::vector<std::string>& platformOrder,
                        const EngineStarter& start, std::ostream& textOut) {
  const std::vector<std::string> order = EngineOrder(setting, platformOrder);
  std::string reasons;
  VoiceChoice choice;
  for (const std::string& engine : order) {
    if (engine == "text") {
      choice.voice = std::make_unique<TextVoice>(textOut);
    } else {
      EngineStart started = start(engine);
      if (!started.voice) {
        std::string why =
            started.why.empty() ? EngineWords(engine) + " did not start" : started.why;
        std::cerr << "Speech: " << why << "." << std::endl;
        reasons += (reasons.empty() ? "" : ", and ") + why;
        continue;
      }
      choice.voice = std::move(started.voice);
    }
    choice.engine = engine;
    break;
  }
  if (choice.engine != order.front()) {
    choice.notice =
        choice.engine == "text"
            ? "Speech is written as text, because " + reasons + "."
            : "The voice you hear is " + EngineWords(choice.engine) + ", because " + reasons + ".";
  }
  return choice;
}

}  // namespace quillmere
