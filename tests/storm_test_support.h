#pragma once
// Helpers shared by the storm model's tests: a scratch directory, files in it, a recording UI.

#include <stdlib.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "stormmodel/mode_table.h"
#include "stormmodel/storm_ui.h"

namespace quillmere::testing {

// A folder of its own, made by the system under a name no other process can have, so tests
// run side by side never share or delete each other's files.
inline std::filesystem::path MakeUniqueDir(const std::string& prefix) {
#ifdef _WIN32
  // No mkdtemp here; create_directory says whether this call made the folder, so a name that
  // another process took first is passed over.
  std::random_device random;
  for (;;) {
    const auto path = std::filesystem::temp_directory_path() / (prefix + std::to_string(random()));
    if (std::filesystem::create_directory(path)) return path;
  }
#else
  std::string pattern = (std::filesystem::temp_directory_path() / (prefix + "XXXXXX")).string();
  if (!::mkdtemp(pattern.data()))
    throw std::filesystem::filesystem_error("mkdtemp", pattern,
                                            std::error_code(errno, std::generic_category()));
  return pattern;
#endif
}

class ScratchDir {
 public:
  ScratchDir() : path_(MakeUniqueDir("quillmere-test-")) {}
  ~ScratchDir() {
    std::error_code ec;
    std::filesystem::remove_all(path_, ec);
  }
  ScratchDir(const ScratchDir&) = delete;
  ScratchDir& operator=(const ScratchDir&) = delete;

  std::string File(const std::string& name, const std::string& bytes) const {
    const auto p = path_ / name;
    std::ofstream(p, std::ios::binary) << bytes;
    return p.string();
  }
  std::string Read(const std::string& name) const {
    std::ifstream in(path_ / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  }
  std::string Path(const std::string& name = "") const { return (path_ / name).string(); }

 private:
  std::filesystem::path path_;
};

// The mode table that a mode file of this text gives.
inline ModeTable ModesFrom(const std::string& modeFile) {
  ScratchDir dir;
  ModeTable modes;
  LoadModeFile(dir.File("m.JMF", modeFile), modes);
  return modes;
}

// Records what the model asks of the windows and the voice; `onYield` stands in for events that
// run while a report yields.
class RecordingUi : public StormUi {
 public:
  void ShowMessage(const std::string& text) override { messages.push_back(text); }
  void SpeakThis(const std::string& text) override { spoken.push_back(text); }
  void SpeakCharacters(const std::string& text) override { spoken.push_back("spell:" + text); }
  void Yield() override {
    ++yields;
    if (onYield) onYield();
  }
  void ShowReportOptions() override {
    if (onReportOptions) onReportOptions();
  }

  std::vector<std::string> messages;
  std::vector<std::string> spoken;
  int yields = 0;
  std::function<void()> onYield;
  std::function<void()> onReportOptions;
};

}  // namespace quillmere::testing
