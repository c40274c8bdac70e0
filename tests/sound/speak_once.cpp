// Says one sentence through the platform's engine, synchronously, and tells how long the start and
// the sentence took. Exit status 0 only if the engine itself spoke; 3 if it was replaced by the
// text voice. The main thread never runs an event loop: the engine must do without one there.
//
//   speak_once [--engine NAME] [TEXT]

#include <QCoreApplication>
#include <chrono>
#include <cstring>
#include <iostream>
#include <string>

#include "speech/qt_voice.h"

int main(int argc, char** argv) {
  QCoreApplication app(argc, argv);
  std::string engine;
  std::string text = "Jupiter  elevation  23.4. Jupiter  Right Ascension  12 hours and 34 minutes.";
  for (int i = 1; i < argc; ++i) {
    if (std::strcmp(argv[i], "--engine") == 0 && i + 1 < argc) {
      engine = argv[++i];
    } else {
      text = argv[i];
    }
  }

  using Clock = std::chrono::steady_clock;
  const auto ms = [](Clock::duration d) {
    return std::chrono::duration_cast<std::chrono::milliseconds>(d).count();
  };
  const auto t0 = Clock::now();
  auto voice = quillmere::CreateVoice(engine, std::cout);
  const auto t1 = Clock::now();
  auto* qt = dynamic_cast<quillmere::QtVoice*>(voice.get());
  std::cerr << "CreateVoice: " << ms(t1 - t0) << " ms, "
            << (qt ? "engine voice \"" + qt->GetDescription() + "\", " +
                         std::to_string(qt->GetVoices().size()) + " voices"
                   : std::string("text voice"))
            << std::endl;
  if (!qt) return 3;

  voice->Speak(text, quillmere::SVSFDefault);
  const auto t2 = Clock::now();
  std::cerr << "Speak: " << ms(t2 - t1) << " ms" << std::endl;
  return qt->SpeaksAsText() ? 3 : 0;
}
