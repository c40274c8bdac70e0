#pragma once
// The main window as the program starts it, for the window's and the info server's tests: a
// fixed clock, settings in memory, recorded message boxes and a recording voice with two voices.

#include <gtest/gtest.h>

#include <QTest>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <memory>

#include "fixed_platform.h"
#include "mainwindow/form1.h"
#include "speech/recording_voice.h"
#include "storm_test_support.h"

namespace quillmere::testing {

inline const char* const kApp = "Quillmere Speaking Edition";
inline const char* const kWelcome = "Welcome to Quillmere Speech Edition. For Help Press F1.";

// 30 N, 80 W, and a mode file of two modes beside the program.
class Form1Test : public ::testing::Test {
 protected:
  void SetUp() override {
    dir = MakeUniqueDir("quillmere-form1-");
    PutProgramFiles(dir);
    Store({{"Latitude", " 30"}, {"Longitude", " 80"}});
    settings.writes.clear();
  }
  void TearDown() override {
    form.reset();
    std::filesystem::remove_all(dir);
  }
  void Store(const std::map<std::string, std::string>& values) {
    for (const auto& [key, value] : values) settings.SaveSetting(kApp, "Settings", key, value);
  }

  // Starts the window as the program does, and runs one tick.
  Form1& Start(const std::filesystem::path& programDirectory = {}) {
    Form1Platform platform;
    platform.clock = &clock;
    platform.settings = &settings;
    platform.messages = &messages;
    platform.programDirectory = (programDirectory.empty() ? dir : programDirectory).string();
    platform.dataFolders = dataFolders;
    platform.createVoice = [this] {
      auto v = std::make_unique<RecordingVoice>(std::vector<std::string>{"Alpha", "Beta"}, 2);
      voice = v.get();
      return v;
    };
    platform.voiceNotice = [this] { return voiceNotice; };
    form = std::make_unique<Form1>(platform);
    if (beforeLoad) beforeLoad(*form);
    form->Form_Load();
    form->Timer1_Timer();
    return *form;
  }
  // What the voice's start says after the welcome (which engine speaks and why); empty: nothing.
  std::string voiceNotice;
  std::function<void(Form1&)> beforeLoad;  // what a front end does between making and loading
  void Tick(int seconds) {
    clock.now += seconds / 86400.0;
    form->Timer1_Timer();
  }
  // Types a line and Enter; returns what was said meanwhile.
  std::vector<RecordingVoice::Call> Type(const std::string& line) {
    voice->calls.clear();
    QTest::keyClicks(form->input(), QString::fromStdString(line));
    QTest::keyClick(form->input(), Qt::Key_Return);
    return voice->calls;
  }

  std::filesystem::path dir;
  DataFolders dataFolders;  // none: the data files lie in the program's directory
  FixedClock clock;
  MemorySettings settings;
  RecordedMessages messages;
  RecordingVoice* voice = nullptr;
  std::unique_ptr<Form1> form;
};

}  // namespace quillmere::testing
