// The whole program started from settings files made at random out of the stored values that
// hurt: beyond a field's range, no number at all, NaN and infinities, huge and broken lines.
// The sanitizer build runs it too, where any overflow stops the test.

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>

#include "settings_start.h"
#include "storm_test_support.h"

namespace quillmere {
namespace {

const char* const kKeys[][2] = {
    {"Settings", "DFormat"},           {"Settings", "Latitude"},
    {"Settings", "Longitude"},         {"Settings", "RunJIS"},
    {"Settings", "PushJIS"},           {"Settings", "JISIP"},
    {"Settings", "JISPort"},           {"Settings", "JISMin"},
    {"Settings", "ReportSunAltMax"},   {"Settings", "ReportJupAltMin"},
    {"Settings", "ReportIncludeHA"},   {"Settings", "ReportIoOnly"},
    {"Settings", "ReportNoNONE"},      {"Settings", "ReportHeader"},
    {"Settings", "ReportMinDuration"}, {"Startup", "UseGMT"},
    {"Startup", "DisplayWest"},        {"Startup", "AnnounceDelay"},
    {"Startup", "SpeechRate"},         {"Startup", "VoiceType"},
    {"Startup", "ModeFileName"},
};

// One value after another, between bars.
const std::string kValueList =
    "0|1|-1| 30|1e30|-1e30|3e38|-1e38|4e38|1e308|-1e308|1e400|-1e400|nan|inf|-inf|NaN|abc||True|"
    "false|99999|-32769|32767|-32768|40000|1.5|-0.5|1e-45|2.5e-324|0x10|12:30|-75:30|W|E|"
    "\"a, b\"|1,5|1e9|-90|90.0001|360|-360|1440|1441|127.0.0.1|::1|999.1.1.1|"
    "99999999999999999999999999|/nonexistent/UFMODES.JMF|%U|@Invalid()";

std::vector<std::string> Values() {
  std::vector<std::string> values(1);
  for (char c : kValueList) {
    if (c == '|')
      values.emplace_back();
    else
      values.back().push_back(c);
  }
  return values;
}

std::string RandomSettingsFile(std::mt19937& rng) {
  static const std::vector<std::string> kValues = Values();
  auto pick = [&rng](size_t n) { return std::uniform_int_distribution<size_t>(0, n - 1)(rng); };
  std::string ini;
  const char* section = "";
  const size_t lines = 1 + pick(30);
  for (size_t i = 0; i < lines; ++i) {
    const auto& key = kKeys[pick(std::size(kKeys))];
    if (section != key[0] || pick(8) == 0) {
      section = key[0];
      ini += std::string("[") + (pick(4) == 0 ? "settings" : section) + "]\n";
    }
    std::string value = kValues[pick(kValues.size())];
    switch (pick(12)) {
      case 0:
        value = std::string(1 + pick(70000), "x9.-e:"[pick(6)]);
        break;
      case 1:
        for (size_t k = pick(40); k > 0; --k) value += static_cast<char>(pick(256));
        break;
      case 2:
        value = " " + value + " ";
        break;
      default:
        break;
    }
    ini += std::string(key[1]) + "=" + value + (pick(10) == 0 ? "\r\n" : "\n");
  }
  return ini;
}

TEST(SettingsFile, AnyStoredValueStartsTicksAndAnswers) {
  const std::filesystem::path dir = testing::MakeUniqueDir("quillmere-settings-");
  testing::PutProgramFiles(dir);
  // QUILLMERE_SETTINGS_RUNS and QUILLMERE_SETTINGS_SEED let a longer hunt run by hand.
  const char* runs = std::getenv("QUILLMERE_SETTINGS_RUNS");
  const char* seed = std::getenv("QUILLMERE_SETTINGS_SEED");
  std::mt19937 rng(seed ? static_cast<unsigned>(std::atoll(seed)) : 20061225u);
  for (int run = 0, n = runs ? std::atoi(runs) : 25; run < n; ++run) {
    const std::string ini = RandomSettingsFile(rng);
    const auto said = testing::StartWithSettingsFile(dir, ini);
    ASSERT_FALSE(said.empty()) << ini.substr(0, 2000);
    EXPECT_EQ(said.front(), "Welcome to Quillmere Speech Edition. For Help Press F1.");
    EXPECT_EQ(said.back(), "Quillmere Speech Edition Closing.");
  }
  // The values that were found to overflow, each alone.
  for (const char* ini :
       {"[Settings]\nLongitude=1e30\n", "[Settings]\nLatitude=-1e38\nLongitude=3e38\n",
        "[Settings]\nLongitude=-1e30\nLatitude=1e30\n",
        "[Settings]\nLongitude=4e38\nLatitude=nan\nDFormat=1e9\n",
        "[Settings]\nJISPort=99999\nRunJIS=1\n", "[Startup]\nAnnounceDelay=1e308\n"}) {
    const auto said = testing::StartWithSettingsFile(dir, ini);
    ASSERT_FALSE(said.empty()) << ini;
    EXPECT_EQ(said.front(), "Welcome to Quillmere Speech Edition. For Help Press F1.") << ini;
    EXPECT_EQ(said.back(), "Quillmere Speech Edition Closing.") << ini;
  }
  std::filesystem::remove_all(dir);
}

}  // namespace
}  // namespace quillmere
