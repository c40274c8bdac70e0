// quillmere: the talking program. It takes no arguments.

#include <QApplication>
#include <QDir>
#include <QStandardPaths>
#include <QTimer>
#include <iostream>

#include "folders/folders.h"
#include "mainwindow/form1.h"
#include "mainwindow/qt_platform.h"
#include "mainwindow/startup.h"
#include "speech/voice_starter.h"

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  using namespace quillmere;
  SystemClock clock;
  IniSettings settings;
  DialogMessageBoxes messages;
  Form1Platform platform;
  platform.clock = &clock;
  platform.settings = &settings;
  platform.messages = &messages;
  // The user's Quillmere folder is the working directory; the data files come from there when
  // the user put a copy there, else from the installed data folder, else from beside the program.
  FolderEnvironment folderEnv = FolderEnvironment::FromProcess();
#if defined(Q_OS_WIN) || defined(Q_OS_MACOS)
  folderEnv.platformDocuments =
      QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation).toStdString();
#endif
  const PreparedFolder folder = PrepareUserFolder(folderEnv);
  const std::string programFolder = QCoreApplication::applicationDirPath().toStdString();
  platform.programDirectory = folder.path;
  platform.dataFolders = {UserFolder(folderEnv),
                          {InstalledDataFolder(programFolder), programFolder}};
  platform.enterProgramDirectory = true;
  // The engine starts now, on a thread of its own, and is collected at its step of the start.
  VoiceStarter voice(ReadStartupSettings(settings, kAppTitle).SpeechEngine, std::cout);
  platform.createVoice = [&voice] { return voice.Take(); };
  platform.voiceNotice = [&voice] { return voice.Notice(); };
  Form1 form(platform);
  if (!folder.notice.empty()) form.AddStartupNotice(folder.notice);
  // Said after the answer to the command whose change could not be stored.
  settings.onSaveFailure = [&form](const std::string& notice) {
    QTimer::singleShot(0, &form, [&form, notice] { form.SpeakThis(notice); });
  };
  form.Form_Load();
  form.show();
  return app.exec();
}
