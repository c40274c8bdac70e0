// The same typed sessions through the window (offscreen) and through quillmere-term driven by a
// pipe: the same words, in the same order.

#include "typed_sessions.h"

#include <cstdio>
#include <ctime>

#include "form1_test_support.h"

namespace quillmere::testing {
namespace {

constexpr char kStart[] = "ZZSTART";

class TypedSessions : public Form1Test {
 protected:
  // What the window says for the session, after the line kStart.
  std::vector<std::string> InWindow(const std::vector<std::string>& lines) {
    settings = MemorySettings{};  // each session starts from the stored place, as the terminal's
    Store({{"Latitude", " 30"}, {"Longitude", " 80"}});
    Start();
    Type(kStart);
    std::vector<std::string> said;
    for (const std::string& line : lines) {
      voice->calls.clear();
      if (line == "\\F1")
        QTest::keyClick(form->input(), Qt::Key_F1);
      else if (line == "\\ESC")
        QTest::keyClick(form->input(), Qt::Key_Escape);
      else
        Type(line);
      for (const std::string& text : voice->Texts())
        if (!text.empty()) said.push_back(text);  // the text voice writes nothing for them
    }
    form.reset();
    return said;
  }

  // What quillmere-term writes for the session, after its answer to kStart and before its
  // closing words. Its data files and settings are the window's.
  std::vector<std::string> InTerminal(const std::vector<std::string>& lines) {
    const auto home = dir / "home", config = dir / "config";
    const auto user = home / "Documents" / "Quillmere";
    std::filesystem::create_directories(user);
    std::filesystem::create_directories(config / "Quillmere");
    for (const char* name : {"UFMODES.JMF", "SpkHlp.txt", "PredictHlp.txt"})
      std::filesystem::copy_file(dir / name, user / name,
                                 std::filesystem::copy_options::overwrite_existing);
    std::ofstream(config / "Quillmere" / (std::string(kApp) + ".ini"))
        << "[Settings]\nLatitude=30\nLongitude=80\n";
    {
      std::ofstream input(dir / "input.txt");
      input << kStart << "\n";
      for (const std::string& line : lines) input << line << "\n";
    }
    const std::string command = "cd '" + dir.string() + "' && env -u XDG_DOCUMENTS_DIR HOME='" +
                                home.string() + "' XDG_CONFIG_HOME='" + config.string() +
                                "' TZ=UTC '" QUILLMERE_TERM "' < input.txt 2>/dev/null";
    FILE* out = popen(command.c_str(), "r");
    std::vector<std::string> said;
    bool started = false;
    char buffer[4096];
    while (out && std::fgets(buffer, sizeof buffer, out)) {
      std::string line = buffer;
      if (!line.empty() && line.back() == '\n') line.pop_back();
      if (started) said.push_back(line);
      if (line == std::string(kStart) + " not recognized. You are in Normal Mode.") started = true;
    }
    EXPECT_EQ(out ? pclose(out) : -1, 0);
    if (!said.empty() && said.back() == "Quillmere Speech Edition Closing.") said.pop_back();
    return said;
  }
};

// The present's date in the replies of each, as "MM/DD/YYYY".
std::vector<std::string> WithoutToday(std::vector<std::string> said, const std::string& today) {
  for (std::string& text : said)
    for (size_t at; (at = text.find(today)) != std::string::npos;) text.replace(at, 10, "TODAY");
  return said;
}

TEST_F(TypedSessions, TheWindowAndTheTerminalSayTheSameWords) {
  const std::time_t now = std::time(nullptr);
  char today[16];
  std::strftime(today, sizeof today, "%m/%d/%Y", std::gmtime(&now));
  for (const auto& lines : kTypedSessions) {
    const auto window = WithoutToday(InWindow(lines), "07/05/2006");
    const auto terminal = WithoutToday(InTerminal(lines), today);
    ASSERT_FALSE(window.empty());
    EXPECT_EQ(window, terminal) << lines.front() << " ... " << lines.back();
  }
}

}  // namespace
}  // namespace quillmere::testing
