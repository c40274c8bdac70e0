#include "stormmodel/ui/report_options_dialog.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace quillmere {

formReportOptions::formReportOptions(ReportOptions& logic, double presentLocal, QWidget* parent)
    : QDialog(parent), logic_(logic), presentLocal_(presentLocal) {
  setObjectName("formReportOptions");
  setWindowTitle("Report Options");
  setModal(true);

  auto* grid = new QGridLayout(this);
  auto label = [&](const char* name, const char* caption) {
    auto* l = new QLabel(caption, this);
    l->setObjectName(name);
    return l;
  };
  auto box = [&](const char* name, std::string ReportOptions::*field, const char* toolTip,
                 const QString& accessibleName) {
    auto* b = new QLineEdit(this);
    b->setObjectName(name);
    b->setAccessibleName(accessibleName);
    b->setMaximumWidth(60);
    if (toolTip) b->setToolTip(toolTip);
    connect(b, &QLineEdit::textEdited, this,
            [this, field](const QString& text) { logic_.*field = text.toStdString(); });
    return b;
  };
  auto check = [&](const char* name, const char* caption, int16_t ReportOptions::*field,
                   const char* toolTip) {
    auto* c = new QCheckBox(caption, this);
    c->setObjectName(name);
    c->setToolTip(toolTip);
    connect(c, &QCheckBox::toggled, this, [this, field](bool on) { logic_.*field = on ? 1 : 0; });
    return c;
  };

  grid->addWidget(label("LBLDateFormat", "YYYY      MM     DD"), 0, 1, 1, 3);
  using Box = std::string ReportOptions::*;
  const char* const parts[3] = {"year", "month", "day"};
  const struct {
    const char *labelName, *caption, *names[3];
    Box fields[3];
    QLineEdit** boxes[3];
  } dates[] = {
      {"LBLstart",
       "Report Starts",
       {"txtSYear", "txtSMonth", "txtSDay"},
       {&ReportOptions::txtSYear, &ReportOptions::txtSMonth, &ReportOptions::txtSDay},
       {&txtSYear, &txtSMonth, &txtSDay}},
      {"Label5",
       "Report Ends",
       {"txtEYear", "txtEMonth", "txtEDay"},
       {&ReportOptions::txtEYear, &ReportOptions::txtEMonth, &ReportOptions::txtEDay},
       {&txtEYear, &txtEMonth, &txtEDay}},
  };
  for (int row = 1; const auto& d : dates) {
    grid->addWidget(label(d.labelName, d.caption), row, 0);
    for (int k = 0; k < 3; ++k) {
      *d.boxes[k] = box(d.names[k], d.fields[k], nullptr, QString(d.caption) + ", " + parts[k]);
      grid->addWidget(*d.boxes[k], row, k + 1);
    }
    ++row;
  }

  auto* minRow = new QHBoxLayout;
  minRow->addWidget(label("Label2", "Report events that are at least"));
  txtMin = box("txtMin", &ReportOptions::txtMin,
               "Minimum duration for an event before it is included in the report.",
               "Report events that are at least, minutes");
  minRow->addWidget(txtMin);
  minRow->addWidget(label("Label3", "mins."));
  minRow->addStretch();
  grid->addLayout(minRow, 3, 0, 1, 4);

  chkHA = check("chkHA", "Include Hour Angle", &ReportOptions::chkHA,
                "Include hour angle information.");
  chkIoOnly = check("chkIoOnly", "Io Related Events Only", &ReportOptions::chkIoOnly,
                    "Only include events that are Io influenced.");
  chkNoNONE = check("chkNoNONE", "Exclude NONE Entries", &ReportOptions::chkNoNONE,
                    "Do not include mode entries for which there is no activity.");
  chkHeader = check("chkHeader", "Include Report Header", &ReportOptions::chkHeader,
                    "Include header information relevant to the report.");
  int row = 4;
  for (QCheckBox* c : {chkHA, chkIoOnly, chkNoNONE, chkHeader}) grid->addWidget(c, row++, 0, 1, 4);

  QLabel* note = label("Label1",
                       "Note: Report will be restricted by altitude options set for Jupiter and "
                       "the Sun on the main prediction page.");
  note->setWordWrap(true);
  grid->addWidget(note, row++, 0, 1, 4);

  auto* buttons = new QHBoxLayout;
  auto* cmdOK = new QPushButton("OK", this);
  cmdOK->setObjectName("cmdOK");
  cmdOK->setDefault(true);
  auto* cmdCancel = new QPushButton("Cancel", this);
  cmdCancel->setObjectName("cmdCancel");
  connect(cmdOK, &QPushButton::clicked, this, [this] { cmdOK_Click(); });
  connect(cmdCancel, &QPushButton::clicked, this, [this] { cmdCancel_Click(); });
  buttons->addStretch();
  buttons->addWidget(cmdOK);
  buttons->addWidget(cmdCancel);
  grid->addLayout(buttons, row, 0, 1, 4);

  Form_Load();
}

void formReportOptions::Form_Load() {
  logic_.Form_Load(presentLocal_);
  ShowLogic();
}

void formReportOptions::ShowLogic() {
  const struct {
    QLineEdit* box;
    const std::string& text;
  } boxes[] = {{txtSYear, logic_.txtSYear},   {txtSMonth, logic_.txtSMonth},
               {txtSDay, logic_.txtSDay},     {txtEYear, logic_.txtEYear},
               {txtEMonth, logic_.txtEMonth}, {txtEDay, logic_.txtEDay},
               {txtMin, logic_.txtMin}};
  for (const auto& b : boxes) b.box->setText(QString::fromStdString(b.text));
  const struct {
    QCheckBox* box;
    int16_t value;
  } checks[] = {{chkHA, logic_.chkHA},
                {chkIoOnly, logic_.chkIoOnly},
                {chkNoNONE, logic_.chkNoNONE},
                {chkHeader, logic_.chkHeader}};
  for (const auto& c : checks) c.box->setChecked(c.value == 1);
}

void formReportOptions::cmdOK_Click() {
  const bool done = logic_.cmdOK_Click();
  ShowLogic();  // a negative minimum has been rewritten, whatever else failed
  if (done) accept();
}

// CancelReport stays true from the load, which tells the window not to start.
void formReportOptions::cmdCancel_Click() {
  logic_.cmdCancel_Click();
  reject();
}

}  // namespace quillmere
