// The same typed sessions through the window (offscreen) and through quillmere-term driven by a
// pipe: the same words, in the same order.

#include "typed_sessions.h"

#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
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

// Keys on a pseudo-terminal: the line is edited with Backspace and Ctrl-U, the grave accent reads
// it back, F1 walks the help, and Enter enters what stands.
TEST_F(TypedSessions, KeysActOnATerminal) {
  InTerminal({});  // the data files and settings in place
  int master = -1, slave = -1;
  ASSERT_EQ(openpty(&master, &slave, nullptr, nullptr, nullptr), 0);
  int out[2];
  ASSERT_EQ(pipe(out), 0);
  const std::string home = (dir / "home").string(), config = (dir / "config").string();
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    dup2(slave, 0);
    dup2(out[1], 1);
    const int null = open("/dev/null", O_WRONLY);
    dup2(null, 2);
    setenv("HOME", home.c_str(), 1);
    setenv("XDG_CONFIG_HOME", config.c_str(), 1);
    setenv("TZ", "UTC", 1);
    unsetenv("XDG_DOCUMENTS_DIR");
    execl(QUILLMERE_TERM, QUILLMERE_TERM, static_cast<char*>(nullptr));
    _exit(127);
  }
  close(slave);
  close(out[1]);
  const std::string keys =
      "lax\x7ft\r"     // Backspace
      "junk\x15lng\r"  // Ctrl-U
      "zz`\r"          // the grave accent reads back, and the line stays
      "\x1bOP"         // F1 as xterm sends it
      "\x1b[11~"       // and as the VT terminals do
      "x\x1b\x15je\r"  // Esc: the reading that follows is not said
      "q\r";           // Esc alone takes nothing from the line
  std::string said;
  char buffer[4096];
  bool typed = false;
  for (;;) {
    // Keys typed before the program takes them one by one would meet the terminal's own line
    // editing; the welcome comes after that switch.
    if (!typed && said.find(kWelcome) != std::string::npos) {
      ASSERT_EQ(write(master, keys.data(), keys.size()), static_cast<ssize_t>(keys.size()));
      typed = true;
    }
    pollfd p{out[0], POLLIN, 0};
    if (poll(&p, 1, 10000) <= 0) break;  // a program that hangs fails below
    const ssize_t n = read(out[0], buffer, sizeof buffer);
    if (n <= 0) break;
    said.append(buffer, static_cast<size_t>(n));
  }
  kill(child, SIGTERM);
  int status = 0;
  waitpid(child, &status, 0);
  close(out[0]);
  close(master);
  const size_t from = said.find("Latitude 30");
  ASSERT_NE(from, std::string::npos) << said;
  EXPECT_EQ(said.substr(from),
            "Latitude 30 degrees 00 minutes 00.0 seconds \n"
            "Longitude 80 degrees 00 minutes 00.0 seconds \n"
            "z\nz\n"
            "zz not recognized. You are in Normal Mode.\n"
            "Normal help.\n"
            "Normal help.\n"
            "Quillmere Speech Edition Closing.\n");
}

}  // namespace
}  // namespace quillmere::testing
