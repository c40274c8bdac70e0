#pragma once
// The machine as the program's tests give it, without Qt: a clock standing on 2006-07-05 12:00
// local time in a zone of UT, recorded message boxes, and the program's data files.

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "mainwindow/platform.h"
#include "textutil/date_time.h"

namespace quillmere::testing {

class FixedClock : public Clock {
 public:
  double now = *DateSerial(2006, 7, 5) + TimeSerial(12, 0, 0);
  TimeZoneInformation zone{1, 0, 0, 0};
  double LocalNow() override { return now; }
  TimeZoneInformation GetTimeZoneInformation() override { return zone; }
};

class RecordedMessages : public MessageBoxes {
 public:
  void Show(const std::string& title, const std::string& text) override {
    shown.push_back(title + "|" + text);
  }
  std::vector<std::string> shown;
};

// Two modes and both help files, made in `dir`.
inline void PutProgramFiles(const std::filesystem::path& dir) {
  std::ofstream(dir / "UFMODES.JMF") << "Io-A,200,270,195,265\r\nNon-A,200,260,0,360\r\n";
  std::ofstream(dir / "SpkHlp.txt") << "Normal help.\n";
  std::ofstream(dir / "PredictHlp.txt") << "Prediction help.\n";
}

}  // namespace quillmere::testing
