// Says texts through the voice the program would choose, synchronously, and tells how long the
// start and each text took. Exit status 0 only if the named engine (or, without --engine, the
// platform's first) was chosen; 3 if another engine or the text voice speaks instead. The main
// thread never runs an event loop: the engines must do without one there.
//
//   speak_once [--engine NAME] [--pause-after-first SECONDS] [TEXT...]
//
// With --pause-after-first, it waits that long after the first text (a test kills and restarts
// the daemon then) and says "ready" on standard error when the pause begins.

#include <QCoreApplication>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <string>
#include <thread>
#include <vector>

#include "speech/voice_starter.h"

int main(int argc, char** argv) {
  QCoreApplication app(argc, argv);
  std::string engine;
  double pause = 0;
  std::vector<std::string> texts;
  for (int i = 1; i < argc; ++i) {
    if (std::strcmp(argv[i], "--engine") == 0 && i + 1 < argc) {
      engine = argv[++i];
    } else if (std::strcmp(argv[i], "--pause-after-first") == 0 && i + 1 < argc) {
      pause = std::atof(argv[++i]);
    } else {
      texts.emplace_back(argv[i]);
    }
  }
  if (texts.empty()) {
    texts.emplace_back(
        "Jupiter  elevation  23.4. Jupiter  Right Ascension  12 hours and 34 minutes.");
  }

  using Clock = std::chrono::steady_clock;
  const auto ms = [](Clock::duration d) {
    return std::chrono::duration_cast<std::chrono::milliseconds>(d).count();
  };
  const auto t0 = Clock::now();
  quillmere::VoiceStarter starter(engine, std::cout);
  auto voice = starter.Take();
  const auto t1 = Clock::now();
  std::cerr << "Voice: " << ms(t1 - t0) << " ms, engine " << starter.Engine() << ", voice \""
            << voice->GetDescription() << "\", " << voice->GetVoices().size()
            << " voices of the user's language" << std::endl;
  if (!starter.Notice().empty()) std::cerr << "Notice: " << starter.Notice() << std::endl;
  const std::string wanted = engine.empty() ? quillmere::PlatformEngineOrder().front() : engine;

  for (std::size_t i = 0; i < texts.size(); ++i) {
    const auto a = Clock::now();
    voice->Speak(texts[i], quillmere::SVSFDefault);
    std::cerr << "Speak " << i + 1 << ": " << ms(Clock::now() - a) << " ms" << std::endl;
    if (i == 0 && pause > 0) {
      std::cerr << "ready" << std::endl;
      std::this_thread::sleep_for(std::chrono::milliseconds(static_cast<long long>(pause * 1000)));
    }
  }
  return starter.Engine() == wanted ? 0 : 3;
}
