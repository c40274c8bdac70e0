// quillmere: the talking program. It takes no arguments.

#include <QApplication>
#include <QDir>
#include <iostream>

#include "mainwindow/form1.h"
#include "mainwindow/qt_platform.h"
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
  platform.programDirectory = QCoreApplication::applicationDirPath().toStdString();
  platform.enterProgramDirectory = true;
  // The engine starts now, on a thread of its own, and is collected at its step of the start.
  VoiceStarter voice(
      settings.GetSetting("Quillmere Speaking Edition", "Startup", "SpeechEngine", ""), std::cout);
  platform.createVoice = [&voice] { return voice.Take(); };
  platform.voiceNotice = [&voice] { return voice.Notice(); };
  Form1 form(platform);
  form.Form_Load();
  form.show();
  return app.exec();
}
