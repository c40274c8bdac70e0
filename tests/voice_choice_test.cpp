// The choice of the speech engine at start, with test doubles for the engines: the order in which
// they are tried, the fallback to the next, the sentence that says which one speaks and why, and
// the voices of the user's language that VT offers.

#include "speech/voice_choice.h"

#include <gtest/gtest.h>

#include <map>
#include <sstream>

#include "speech/recording_voice.h"
#include "speech/text_voice.h"

namespace quillmere {
namespace {

using Order = std::vector<std::string>;
const Order kLinux{"speechd", "espeak"};

TEST(EngineOrder, BestFirstAndTextLast) {
  const struct {
    const char* setting;
    Order platform;
    Order order;
  } cases[] = {
      {"", kLinux, {"speechd", "espeak", "text"}},
      {"speechd", kLinux, {"speechd", "espeak", "text"}},
      {"espeak", kLinux, {"espeak", "speechd", "text"}},
      {"ESpeak", kLinux, {"espeak", "speechd", "text"}},
      {"text", kLinux, {"text"}},
      {"Text", kLinux, {"text"}},
      {"flite", kLinux, {"flite", "speechd", "espeak", "text"}},
      {"", {"sapi"}, {"sapi", "text"}},
      {"flite", {"sapi"}, {"flite", "sapi", "text"}},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(EngineOrder(c.setting, c.platform), c.order) << '"' << c.setting << '"';
  }
}

// Engines that start or fail as told, and remember in which order they were asked.
struct FakeEngines {
  std::map<std::string, std::string> failures;  // engine: why it fails
  std::vector<std::string> asked;
  EngineStarter Starter() {
    return [this](const std::string& engine) {
      asked.push_back(engine);
      EngineStart s;
      if (auto it = failures.find(engine); it != failures.end()) {
        s.why = it->second;
      } else {
        s.voice = std::make_unique<RecordingVoice>(std::vector<std::string>{engine + " voice"});
      }
      return s;
    };
  }
};

TEST(ChooseVoice, TheFirstEngineThatStartsSpeaksAndOnlyAFallbackIsAnnounced) {
  std::ostringstream out;
  const struct {
    const char* setting;
    std::map<std::string, std::string> failures;
    Order asked;
    const char* engine;
    const char* notice;
  } cases[] = {
      {"", {}, {"speechd"}, "speechd", ""},
      {"",
       {{"speechd", "speech-dispatcher is not installed"}},
       {"speechd", "espeak"},
       "espeak",
       "The voice you hear is espeak-ng, because speech-dispatcher is not installed."},
      {"",
       {{"speechd", "speech-dispatcher could not be reached"},
        {"espeak", "espeak-ng could not start"}},
       {"speechd", "espeak"},
       "text",
       "Speech is written as text, because speech-dispatcher could not be reached, and espeak-ng "
       "could not start."},
      {"espeak", {}, {"espeak"}, "espeak", ""},
      {"espeak",
       {{"espeak", "espeak-ng could not start"}},
       {"espeak", "speechd"},
       "speechd",
       "The voice you hear is speech-dispatcher, because espeak-ng could not start."},
      {"flite",
       {{"flite", "the flite engine is not installed"}},
       {"flite", "speechd"},
       "speechd",
       "The voice you hear is speech-dispatcher, because the flite engine is not installed."},
      {"text", {}, {}, "text", ""},
  };
  for (const auto& c : cases) {
    FakeEngines engines;
    engines.failures = c.failures;
    VoiceChoice choice = ChooseVoice(c.setting, kLinux, engines.Starter(), out);
    SCOPED_TRACE(std::string("setting \"") + c.setting + "\"");
    EXPECT_EQ(engines.asked, c.asked);
    EXPECT_EQ(choice.engine, c.engine);
    EXPECT_EQ(choice.notice, c.notice);
    ASSERT_TRUE(choice.voice);
    if (choice.engine == "text") {
      EXPECT_EQ(choice.voice->GetDescription(), TextVoice::kName);
      choice.voice->Speak("Welcome.", SVSFDefault);  // written to the given stream
    } else {
      EXPECT_EQ(choice.voice->GetDescription(), choice.engine + " voice");
    }
  }
  EXPECT_EQ(out.str(), "Welcome.\nWelcome.\n");  // the two cases that speak as text
}

TEST(UserLanguage, FromTheLocaleVariablesEnglishUnderC) {
  const struct {
    std::map<std::string, std::string> env;
    const char* language;
    const char* engineLanguage;
  } cases[] = {
      {{}, "en", "en-US"},
      {{{"LANG", "C"}}, "en", "en-US"},
      {{{"LANG", "C.UTF-8"}}, "en", "en-US"},
      {{{"LANG", "POSIX"}}, "en", "en-US"},
      {{{"LANG", "de_DE.UTF-8"}}, "de", "de"},
      {{{"LANG", "de_DE.UTF-8"}, {"LC_MESSAGES", "fr_FR"}}, "fr", "fr"},
      {{{"LANG", "de_DE.UTF-8"}, {"LC_ALL", "C"}}, "en", "en-US"},
      {{{"LANG", "de_DE.UTF-8"}, {"LC_ALL", ""}}, "de", "de"},
      {{{"LANG", "en_GB.UTF-8"}}, "en", "en"},
      {{{"LANG", "pt_BR@euro"}}, "pt", "pt"},
  };
  for (const auto& c : cases) {
    const auto getenv = [&](const char* name) -> const char* {
      auto it = c.env.find(name);
      return it == c.env.end() ? nullptr : it->second.c_str();
    };
    EXPECT_EQ(UserLanguage(getenv), c.language) << c.language;
    EXPECT_EQ(EngineLanguage(getenv), c.engineLanguage) << c.language;
  }
}

TEST(VoicesOfLanguage, OnlyTheUsersLanguageEachOnceInTheEnginesOrder) {
  const std::vector<std::pair<std::string, std::string>> voices = {
      {"Afrikaans", "af"},
      {"English (Great Britain)", "en-gb"},
      {"English (Received Pronunciation)", "en-gb-x-rp"},
      {"English (Received Pronunciation)", "en"},  // a second language of the same voice
      {"Esperanto", "eo"},
      {"English (America)", "en-US"},
      {"Greek", "el"},
      {"English_(Caribbean)", "EN_029"},
  };
  EXPECT_EQ(VoicesOfLanguage(voices, "en"),
            (std::vector<std::string>{"English (Great Britain)", "English (Received Pronunciation)",
                                      "English (America)", "English_(Caribbean)"}));
  EXPECT_EQ(VoicesOfLanguage(voices, "e"), std::vector<std::string>{});
  EXPECT_EQ(VoicesOfLanguage(voices, "el"), std::vector<std::string>{"Greek"});
  EXPECT_EQ(VoicesOfLanguage(voices, "xx"), std::vector<std::string>{});
  EXPECT_TRUE(LanguageMatches("en-US", "en"));
  EXPECT_FALSE(LanguageMatches("eng", "en"));
}

}  // namespace
}  // namespace quillmere
