// quillmere-term: the talking program on a terminal. No argument is needed.

#include <termios.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QSocketNotifier>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <iostream>

#include "folders/folders.h"
#include "mainwindow/qt_platform.h"
#include "mainwindow/startup.h"
#include "speech/voice_starter.h"
#include "term/terminal.h"

namespace {

const char kHelp[] =
    "Usage: quillmere-term [--voice ENGINE]\n"
    "\n"
    "Quillmere Speaking Edition on a terminal: the same program as the window, for console\n"
    "screen readers, braille displays and remote shells. It shows the positions of Jupiter and\n"
    "the Sun, gives the storm alert and predicts Jupiter's radio storms; every command of the\n"
    "window is typed here, and every reply is said the same way.\n"
    "\n"
    "What the program says is written to standard output, one line per utterance, for the\n"
    "terminal's screen reader or braille display. Messages go to standard error.\n"
    "\n"
    "Options:\n"
    "  --voice ENGINE  speak with ENGINE instead (speechd, espeak, or text); without it the\n"
    "                  setting [Startup] SpeechEngine chooses, and when that is empty, text\n"
    "  --help          this text\n"
    "\n"
    "Keys on a terminal: Enter enters the line, F1 says the help of the mode, Esc stops a\n"
    "reading, the grave accent (`) reads back what has been typed; Backspace and Ctrl-U edit\n"
    "the line, Ctrl-D on an empty line or Q closes the program.\n"
    "When standard input is no terminal (a script, a pipe), each line is an entry, a line\n"
    "\\F1 stands for F1 and a line \\ESC for Esc; the end of the input closes the program.\n";

termios savedTerminal;
bool rawMode = false;

void RestoreTerminal() {
  if (rawMode) tcsetattr(STDIN_FILENO, TCSANOW, &savedTerminal);
  rawMode = false;
}

extern "C" void OnSignal(int signal) {
  RestoreTerminal();
  std::signal(signal, SIG_DFL);
  std::raise(signal);
}

// Keys one at a time and without echo: the line is echoed as it is edited, and F1, Esc and the
// grave accent act at once. Signals still come from Ctrl-C.
bool EnterRawMode() {
  if (!isatty(STDIN_FILENO) || tcgetattr(STDIN_FILENO, &savedTerminal) != 0) return false;
  termios raw = savedTerminal;
  raw.c_lflag &= ~static_cast<tcflag_t>(ICANON | ECHO);
  raw.c_iflag &= ~static_cast<tcflag_t>(ICRNL | IXON);
  raw.c_cc[VMIN] = 1;
  raw.c_cc[VTIME] = 0;
  if (tcsetattr(STDIN_FILENO, TCSANOW, &raw) != 0) return false;
  rawMode = true;
  std::atexit(RestoreTerminal);
  for (int s : {SIGINT, SIGTERM, SIGHUP, SIGQUIT}) std::signal(s, OnSignal);
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  using namespace quillmere;
  std::string voiceOption;
  bool voiceGiven = false;
  for (int i = 1; i < argc; ++i) {
    const std::string arg = argv[i];
    if (arg == "--help" || arg == "-h") {
      std::cout << kHelp;
      return 0;
    }
    if (arg == "--voice" && i + 1 < argc) {
      voiceOption = argv[++i];
      voiceGiven = true;
    } else if (arg.rfind("--voice=", 0) == 0) {
      voiceOption = arg.substr(8);
      voiceGiven = true;
    } else {
      std::cerr << "quillmere-term: unknown argument \"" << arg
                << "\". Try quillmere-term --help.\n";
      return 2;
    }
  }

  QCoreApplication app(argc, argv);
  SystemClock clock;
  IniSettings settings;
  struct ErrorMessages : MessageBoxes {
    void Show(const std::string& title, const std::string& text) override {
      std::cerr << title << ": " << text << std::endl;
    }
  } messages;
  FolderEnvironment folderEnv = FolderEnvironment::FromProcess();
  const PreparedFolder folder = PrepareUserFolder(folderEnv);
  const std::string programFolder = QCoreApplication::applicationDirPath().toStdString();
  SessionPlatform platform{
      &clock,
      &settings,
      &messages,
      folder.path,
      {UserFolder(folderEnv), {InstalledDataFolder(programFolder), programFolder}}};
  // Relative paths in the settings start from the user's Quillmere folder, as in the window.
  if (!folder.path.empty() && chdir(folder.path.c_str()) != 0)
    std::cerr << "quillmere-term: cannot enter " << folder.path << ": " << std::strerror(errno)
              << "\n";

  // The terminal's own screen reader says the text voice's lines; an engine only when asked.
  const std::string setting = ReadStartupSettings(settings, kAppTitle).SpeechEngine;
  const std::string engine = voiceGiven ? voiceOption : (setting.empty() ? "text" : setting);
  VoiceStarter voice(engine, std::cout);

  const bool keys = EnterRawMode();
  Terminal terminal(platform, keys);
  settings.onSaveFailure = [&terminal](const std::string& notice) {
    QTimer::singleShot(0, [&terminal, notice] { terminal.session().speaker->SpeakThis(notice); });
  };
  std::vector<std::string> notices;
  if (!folder.notice.empty()) notices.push_back(folder.notice);
  std::unique_ptr<Voice> v = voice.Take();
  terminal.Load(std::move(v), voice.Notice(), notices);

  QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
  QObject::connect(&input, &QSocketNotifier::activated, [&] {
    char buffer[512];
    const ssize_t n = read(STDIN_FILENO, buffer, sizeof buffer);
    if (n > 0) return terminal.Input(buffer, static_cast<size_t>(n));
    if (n < 0 && errno == EINTR) return;
    input.setEnabled(false);
    terminal.EndOfInput();
  });
  const int code = app.exec();
  terminal.Unload();
  RestoreTerminal();
  return code;
}
