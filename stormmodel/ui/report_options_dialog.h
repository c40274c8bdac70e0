#pragma once
// The report options dialog: the period and contents of a report, asked for before the window's
// own report. The checks and the stored settings are the core's; this is their face.

#include <QDialog>

#include "stormmodel/report_options.h"

class QCheckBox;
class QLineEdit;

namespace quillmere {

class formReportOptions : public QDialog {
 public:
  // `presentLocal` stands in when the prediction window holds no date.
  formReportOptions(ReportOptions& logic, double presentLocal, QWidget* parent = nullptr);

  void Form_Load();
  void cmdOK_Click();
  void cmdCancel_Click();

 private:
  void ShowLogic();

  ReportOptions& logic_;
  double presentLocal_;
  QLineEdit *txtSYear = nullptr, *txtSMonth = nullptr, *txtSDay = nullptr;
  QLineEdit *txtEYear = nullptr, *txtEMonth = nullptr, *txtEDay = nullptr;
  QLineEdit* txtMin = nullptr;
  QCheckBox *chkHA = nullptr, *chkIoOnly = nullptr, *chkNoNONE = nullptr, *chkHeader = nullptr;
};

}  // namespace quillmere
