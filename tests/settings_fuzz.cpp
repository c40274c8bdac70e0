// libFuzzer target for the settings file: any bytes as the program's settings, then its start-up,
// ticks across midnight and a few commands, as the randomized test SettingsFile does.

#include <QApplication>
#include <cstdint>
#include <cstdlib>

#include "settings_start.h"
#include "storm_test_support.h"

namespace {

std::filesystem::path& Dir() {
  static std::filesystem::path dir = [] {
    auto d = quillmere::testing::MakeUniqueDir("quillmere-settings-fuzz-");
    quillmere::testing::PutProgramFiles(d);
    return d;
  }();
  return dir;
}

}  // namespace

// The font library keeps a little of what Qt asks of it in places the leak checker cannot see.
extern "C" const char* __lsan_default_suppressions() {
  return "leak:libfontconfig.so\n";
}

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  // Lives as long as the process: destroyed among the exit handlers it would outlive Qt's own.
  static QApplication* const app = new QApplication(*argc, *argv);
  (void)app;
  // Once before the inputs: what Qt and the font library set up at first use and keep for the
  // life of the process would otherwise count as a leak of the first input.
  quillmere::testing::StartWithSettingsFile(Dir(), "");
  std::atexit([] {
    std::error_code ec;
    std::filesystem::remove_all(Dir(), ec);
  });
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const auto said = quillmere::testing::StartWithSettingsFile(
      Dir(), std::string(reinterpret_cast<const char*>(data), size));
  if (said.empty() || said.back() != "Quillmere Speech Edition Closing.") std::abort();
  return 0;
}
