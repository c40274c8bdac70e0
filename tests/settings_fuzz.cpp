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

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  static QApplication app(*argc, *argv);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const auto said = quillmere::testing::StartWithSettingsFile(
      Dir(), std::string(reinterpret_cast<const char*>(data), size));
  if (said.empty() || said.back() != "Quillmere Speech Edition Closing.") std::abort();
  return 0;
}
