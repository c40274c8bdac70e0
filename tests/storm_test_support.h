#pragma once
// Helpers shared by the storm model's tests: a scratch directory, files in it, a recording UI.

#ifdef _WIN32
#include <process.h>
#define getpid _getpid
#else
#include <unistd.h>
#endif

#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include "stormmodel/storm_ui.h"

namespace quillmere::testing {

class ScratchDir {
 public:
  ScratchDir() {
    path_ = std::filesystem::temp_directory_path() /
            ("quillmere-test-" + std::to_string(::getpid()) + "-" + std::to_string(next_++));
    std::filesystem::remove_all(path_);
    std::filesystem::create_directories(path_);
  }
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
  static inline int next_ = 0;
  std::filesystem::path path_;
};

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
