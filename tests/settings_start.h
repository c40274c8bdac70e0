#pragma once
// The whole program started from a settings file of any bytes, ticked across a day and asked a
// few things: the harness of the settings fuzz target and of its randomized test. Whatever the
// file holds, nothing may overflow, hang or crash; a value out of range gives the program's text
// for it or a refusal.

#include <QApplication>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "fixed_platform.h"
#include "mainwindow/form1.h"
#include "mainwindow/qt_platform.h"
#include "speech/recording_voice.h"
#include "textutil/date_time.h"

namespace quillmere::testing {

// `ini` becomes the settings file of the program in `dir`. Returns what was said.
inline std::vector<std::string> StartWithSettingsFile(const std::filesystem::path& dir,
                                                      const std::string& ini) {
  const std::filesystem::path store = dir / "settings";
  std::filesystem::create_directories(store);
  std::ofstream(store / "Quillmere Speaking Edition.ini", std::ios::binary | std::ios::trunc)
      << ini;
  IniSettings settings(store.string());
  // Two seconds before midnight, five hours west of Greenwich.
  FixedClock clock;
  clock.now = *DateSerial(2006, 7, 5) + TimeSerial(23, 59, 58);
  clock.zone = {1, 300, 0, -60};
  RecordedMessages messages;
  RecordingVoice* voice = nullptr;
  Form1Platform platform;
  platform.clock = &clock;
  platform.settings = &settings;
  platform.messages = &messages;
  platform.programDirectory = dir.string();
  platform.createVoice = [&voice] {
    auto v = std::make_unique<RecordingVoice>(std::vector<std::string>{"Alpha"}, 2);
    voice = v.get();
    return v;
  };
  Form1 form(platform);
  form.Form_Load();
  // Ticks across midnight, so the day's activity marks are made twice.
  for (int i = 0; i < 4; ++i) {
    form.Timer1_Timer();
    clock.now += 1.0 / 86400;
  }
  for (const char* line : {"je", "lmst", "j*", "s*", "m", "t", "fix", "t", "rt", "p", "r", "n"}) {
    form.input()->setText(line);
    form.txtIn_KeyPress(13);
  }
  form.Form_Unload();
  return voice ? voice->Texts() : std::vector<std::string>{};
}

}  // namespace quillmere::testing
