// The command line of the main window: its keys go to the interpreter, which does the rest.

#include <QKeyEvent>

#include "mainwindow/form1.h"

namespace quillmere {

bool Form1::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress && watched == txtIn) {
    auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
      txtIn_KeyPress(CommandInterpreter::kEnter);
      return true;
    }
    // and the accent goes in the line
    if (key->text() == "`") txtIn_KeyPress(CommandInterpreter::kGraveAccent);
  } else if (event->type() == QEvent::KeyRelease) {
    auto* key = static_cast<QKeyEvent*>(event);
    if (key->isAutoRepeat()) return false;
    if (watched == txtIn) txtIn_KeyUp();
    if (key->key() == Qt::Key_Escape) Form_KeyUp(CommandInterpreter::kEscape);
    if (key->key() == Qt::Key_F1) Form_KeyUp(CommandInterpreter::kF1);
  }
  return QWidget::eventFilter(watched, event);
}

void Form1::txtIn_KeyPress(int KeyAscii) {
  const std::string line = txtIn->text().toStdString();
  if (KeyAscii == CommandInterpreter::kGraveAccent) {
    txtIn->setText(QString::fromStdString(CommandInterpreter::WithoutAccents(line)));
    session_.commands->ReadBack(line);
  } else if (KeyAscii == CommandInterpreter::kEnter) {
    session_.commands->Enter(line);
  }
}

void Form1::txtIn_KeyUp() {
  if (!txtIn->text().contains('`')) return;
  txtIn->setText(txtIn->text().remove('`'));
  txtIn->end(false);
}

void Form1::Form_KeyUp(int KeyCode) {
  if (KeyCode == CommandInterpreter::kEscape) session_.commands->Escape();
  if (KeyCode == CommandInterpreter::kF1) session_.commands->F1();
}

void Form1::ClearCommandLine() {
  txtIn->clear();
}

void Form1::ShowMessage(const std::string& text) {
  platform_.messages->Show(p_.AppTitle, text);
}

}  // namespace quillmere
