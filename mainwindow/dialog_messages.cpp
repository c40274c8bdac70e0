// The message box of the window; the rest of qt_platform needs no widgets.

#include <QMessageBox>

#include "mainwindow/qt_platform.h"

namespace quillmere {

void DialogMessageBoxes::Show(const std::string& title, const std::string& text) {
  QMessageBox::warning(parent_, QString::fromStdString(title), QString::fromStdString(text));
}

}  // namespace quillmere
