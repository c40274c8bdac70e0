// The real settings store: what it keeps, and what the user hears when the file cannot be written.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "mainwindow/qt_platform.h"
#include "storm_test_support.h"

namespace quillmere {
namespace {
namespace fs = std::filesystem;

const char* const kApp = "Quillmere Speaking Edition";

class IniSettingsTest : public ::testing::Test {
 protected:
  void SetUp() override {
    // A folder no other test process can have: ctest runs them side by side.
    dir = testing::MakeUniqueDir("quillmere-settings-test-");
  }
  void TearDown() override {
    std::error_code ec;
    fs::remove_all(dir, ec);
  }
  fs::path dir;
  std::vector<std::string> heard;
};

TEST_F(IniSettingsTest, KeptAcrossStartsWithoutAWord) {
  {
    IniSettings settings((dir / "config").string());
    settings.onSaveFailure = [this](const std::string& notice) { heard.push_back(notice); };
    settings.SaveSetting(kApp, "Settings", "Latitude", " 41.5");
    settings.SaveSetting(kApp, "startup", "AnnounceDelay", "5");
  }
  IniSettings next((dir / "config").string());
  EXPECT_EQ(next.GetSetting(kApp, "SETTINGS", "Latitude", "0"), " 41.5");
  EXPECT_EQ(next.GetSetting(kApp, "Startup", "AnnounceDelay", "0"), "5");
  EXPECT_TRUE(fs::exists(next.FileName(kApp)));
  EXPECT_TRUE(heard.empty());
}

TEST_F(IniSettingsTest, UnwritableFileToldOnceAndChangesLastThisRun) {
  // A file where the settings folder should be: it cannot be made, even by root.
  std::ofstream(dir / "blocked") << "not a folder";
  const std::string folder = (dir / "blocked/Quillmere").string();
  IniSettings settings(folder);
  settings.onSaveFailure = [this](const std::string& notice) { heard.push_back(notice); };

  settings.SaveSetting(kApp, "Settings", "Latitude", " 41.5");
  settings.SaveSetting(kApp, "Settings", "Longitude", " 75.5");
  settings.SaveSetting(kApp, "Settings", "Latitude", " 42");
  ASSERT_EQ(heard.size(), 1u);
  EXPECT_EQ(heard[0],
            "Settings cannot be saved, so changes last only until the program closes. The "
            "settings file is " +
                folder + "/Quillmere Speaking Edition.ini.");
  EXPECT_EQ(settings.GetSetting(kApp, "settings", "Latitude", "0"), " 42");
  EXPECT_EQ(settings.GetSetting(kApp, "Settings", "Longitude", "0"), " 75.5");
  EXPECT_EQ(settings.GetSetting(kApp, "Startup", "AnnounceDelay", "0"), "0");

  // Once the folder can be made, the next change is stored, and the earlier ones with it; the
  // user was told once only.
  fs::remove(dir / "blocked");
  settings.SaveSetting(kApp, "Startup", "AnnounceDelay", "5");
  IniSettings next(folder);
  EXPECT_EQ(next.GetSetting(kApp, "Startup", "AnnounceDelay", "0"), "5");
  EXPECT_EQ(next.GetSetting(kApp, "Settings", "Latitude", "0"), " 42");
  EXPECT_EQ(next.GetSetting(kApp, "Settings", "Longitude", "0"), " 75.5");
  EXPECT_EQ(heard.size(), 1u);
  // Sections keep the case they were written with.
  std::ifstream file(next.FileName(kApp));
  const std::string text((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
  EXPECT_NE(text.find("[Settings]"), std::string::npos) << text;
  EXPECT_EQ(text.find("[settings]"), std::string::npos) << text;
}

}  // namespace
}  // namespace quillmere
