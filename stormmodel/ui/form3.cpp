#include "stormmodel/ui/form3.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDateTime>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QMenu>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "stormmodel/day_in_words.h"
#include "stormmodel/report_options.h"
#include "stormmodel/ui/accessible.h"
#include "stormmodel/ui/day_chart.h"
#include "stormmodel/ui/report_options_dialog.h"
#include "textutil/date_time.h"
#include "textutil/number_text.h"

namespace quillmere {
namespace {

const QColor kFormGrey(192, 192, 192);
constexpr int kChartWidth = 960;
constexpr int kChartHeight = 320;

void Paint(QWidget* w, const QColor& colour) {
  QPalette palette = w->palette();
  palette.setColor(QPalette::Window, colour);
  w->setPalette(palette);
  w->setAutoFillBackground(true);
}

void ShowText(QLineEdit* box, const std::string& text) {
  WriteText(box, QString::fromStdString(text));
}

// The colours of the chart's key in words, mode 1 first.
const char* const kModeColourNames[kActivityModes] = {"yellow", "magenta", "red",
                                                      "cyan",   "green",   "orange"};

// A date-time value in the system's short date and time form.
QString ShortDateTime(double value) {
  const auto f = SplitDateTime(value);
  if (!f) return {};
  const QDateTime dt(QDate(f->year, f->month, f->day), QTime(f->hour, f->minute, f->second));
  return QLocale::system().toString(dt, QLocale::ShortFormat);
}

}  // namespace

Form3::Form3(Form3Host& host, EphemerisState& s, StormValues& storm, const ProgramValues& program,
             SettingsStore& settings, QWidget* parent)
    : QWidget(parent),
      host_(host),
      s_(s),
      storm_(storm),
      program_(program),
      settings_(settings),
      core_(s, storm, program, settings, *this) {
  BuildControls();
}

Form3::~Form3() = default;

PredictionWindow& Form3::core() {
  return core_;
}

void Form3::BuildControls() {
  // The role first: the first accessibility event of a widget fixes its interface.
  SetAccessibleRole(this, QAccessible::Window);
  setObjectName("Form3");
  setWindowTitle("Jupiter Radio Noise Storm Predictions");
  Paint(this, kFormGrey);

  auto label = [this](const char* name, const char* caption) {
    auto* l = new QLabel(caption, this);
    l->setObjectName(name);
    return l;
  };
  auto box = [this](const char* name, std::string PredictionWindow::*field, int width,
                    const char* accessibleName) {
    auto* b = new QLineEdit(this);
    b->setObjectName(name);
    b->setAccessibleName(accessibleName);
    b->setFixedWidth(width);
    connect(b, &QLineEdit::textEdited, this,
            [this, field](const QString& text) { core_.*field = text.toStdString(); });
    return b;
  };
  auto button = [this](const char* name, const char* caption, void (Form3::*handler)()) {
    auto* b = new QPushButton(caption, this);
    b->setObjectName(name);
    b->setAutoDefault(true);  // Enter presses the button that has the focus, as Space does
    connect(b, &QPushButton::clicked, this, [this, handler] { (this->*handler)(); });
    return b;
  };

  auto* root = new QVBoxLayout(this);

  // The date, its boxes in the order of the date format, and the day buttons.
  auto* top = new QHBoxLayout;
  auto* date = new QGridLayout;
  LBLDate = label("LBLDate", "GMT Date:");
  LBLDateFormat = label("LBLDateFormat", "YYYY   MM   DD");
  txtYear = box("txtYear", &PredictionWindow::txtYear, 56, "GMT year");
  txtMonth = box("txtMonth", &PredictionWindow::txtMonth, 40, "GMT month");
  txtDay = box("txtDay", &PredictionWindow::txtDay, 40, "GMT day");
  dateBoxes_ = new QHBoxLayout;
  dateBoxes_->setSpacing(3);  // 50 twips
  for (QLineEdit* b : {txtYear, txtMonth, txtDay}) dateBoxes_->addWidget(b);
  date->addWidget(LBLDateFormat, 0, 1);
  date->addWidget(LBLDate, 1, 0);
  date->addLayout(dateBoxes_, 1, 1);
  top->addLayout(date);
  cmdNow = button("cmdNow", "now", &Form3::cmdNow_Click);
  CmdPredict = button("CmdPredict", "Predict Events", &Form3::CmdPredict_Click);
  CmdPrevious = button("CmdPrevious", "Previous Day", &Form3::CmdPrevious_Click);
  CmdNextDay = button("CmdNextDay", "Next Day", &Form3::CmdNextDay_Click);
  for (QPushButton* b : {cmdNow, CmdPredict, CmdPrevious, CmdNextDay})
    top->addWidget(b, 0, Qt::AlignBottom);
  top->addStretch();
  root->addLayout(top);

  // The altitude limits.
  auto* limits = new QHBoxLayout;
  limits->addWidget(label("Label9", "Exclude times when Jupiter altitude is below:"));
  txtJupAltMin = box("txtJupAltMin", &PredictionWindow::txtJupAltMin, 48,
                     "Exclude times when Jupiter altitude is below, degrees");
  limits->addWidget(txtJupAltMin);
  limits->addWidget(label("Label10", "deg."));
  limits->addSpacing(24);
  limits->addWidget(label("Label6", "Exclude times when Sun altitude is above:"));
  txtSunAltMax = box("txtSunAltMax", &PredictionWindow::txtSunAltMax, 48,
                     "Exclude times when Sun altitude is above, degrees");
  limits->addWidget(txtSunAltMax);
  limits->addWidget(label("Label8", "deg."));
  limits->addStretch();
  root->addLayout(limits);

  // The chart with its band names, its key and the Sun bar.
  auto* chart = new QGridLayout;
  chart->setHorizontalSpacing(6);
  chart->setVerticalSpacing(2);
  // The band names stand level with their bands, each 1.5 of the chart's 9.5 units high.
  auto* bands = new QVBoxLayout;
  bands->setSpacing(0);
  for (QLabel* band : {label("Label7", "GMT"), label("Label2", "LOCAL")}) {
    band->setFixedHeight(kChartHeight * 3 / 19);
    band->setAlignment(Qt::AlignVCenter | Qt::AlignRight);
    bands->addWidget(band);
    if (bands->count() == 1) bands->addStretch();
  }
  chart->addLayout(bands, 0, 0);
  Picture1 = new PictureBox(this);
  SetAccessibleRole(Picture1, QAccessible::Chart);
  Picture1->setObjectName("Picture1");
  Picture1->setAccessibleName("Day chart");
  Picture1->setFixedSize(kChartWidth, kChartHeight);
  Picture1->setMouseTracking(true);
  Picture1->onMouseMove = [this](QMouseEvent* e) { Picture1_MouseMove(e); };
  Picture1->onMousePress = [this](QMouseEvent* e) { Picture1_MouseDown(e); };
  chart->addWidget(Picture1, 0, 1);
  auto* key = new QVBoxLayout;
  key->addStretch();
  for (int m = 0; m < kActivityModes; ++m) {
    LBLMode[m] = label(("LBLMode" + std::to_string(m)).c_str(), "");
    LBLMode[m]->setMinimumWidth(110);
    LBLMode[m]->setIndent(6);
    LBLMode[m]->setFixedHeight(kChartHeight / 10);
    Paint(LBLMode[m], kModeColours[m]);
    LBLMode[m]->setAccessibleDescription(QString("Its bars on the chart are ") +
                                         kModeColourNames[m] + ".");
    key->addWidget(LBLMode[m]);
  }
  key->addStretch();
  chart->addLayout(key, 0, 2);
  chart->addWidget(label("Label4", "Sun Visiblity"), 1, 0);
  PicSunAlt = new PictureBox(this);
  SetAccessibleRole(PicSunAlt, QAccessible::Chart);
  PicSunAlt->setObjectName("PicSunAlt");
  PicSunAlt->setAccessibleName("Sun visibility");
  PicSunAlt->setFixedSize(kChartWidth, 14);
  chart->addWidget(PicSunAlt, 1, 1);
  chart->addWidget(label("Label3", "Blue background indicates Jupiter is below the horizon."), 2,
                   1);
  root->addLayout(chart);

  // The mouse read-out.
  auto* readout = new QHBoxLayout;
  LBLTime = label("LBLTime", "");
  LBLJupAlt = label("LBLJupAlt", "");
  LBLJupHA = label("LBLJupHA", "");
  LBLSunAlt = label("LBLSunAlt", "");
  LBLWait = label("LBLWait", "Calculating Please Wait....");
  for (QLabel* l : {LBLTime, LBLJupAlt, LBLJupHA, LBLSunAlt}) {
    l->setMinimumWidth(110);
    WriteValue(l, "");  // nothing to read until the mouse is over the chart
    readout->addWidget(l);
  }
  readout->addWidget(LBLWait);
  readout->addStretch();
  root->addLayout(readout);

  // The grid and the buttons of the report, the page and the window.
  auto* bottom = new QHBoxLayout;
  Grid1 = new QTableWidget(7, kGridColumns, this);
  Grid1->setObjectName("Grid1");
  Grid1->setAccessibleName("Predicted events");
  Grid1->horizontalHeader()->hide();
  Grid1->verticalHeader()->hide();
  Grid1->setEditTriggers(QAbstractItemView::NoEditTriggers);
  // Tab leaves the grid; the arrow keys move inside it.
  Grid1->setTabKeyNavigation(false);
  Grid1->installEventFilter(this);
  Grid1->setSelectionMode(QAbstractItemView::SingleSelection);
  Grid1->setColumnWidth(0, 120);
  for (int c = 1; c < kGridColumns; ++c) Grid1->setColumnWidth(c, 70);
  for (int r = 0; r < 7; ++r) Grid1->setRowHeight(r, 24);
  Grid1->setFixedSize(120 + 6 * 70 + 4, 7 * 24 + 4);
  Grid1->viewport()->installEventFilter(this);
  bottom->addWidget(Grid1);
  auto* buttons = new QGridLayout;
  CmdReport = button("CmdReport", "Report", &Form3::CmdReport_Click);
  CmdCancelReport = button("CmdCancelReport", "Cancel  Report", &Form3::CmdCancelReport_Click);
  CmdCancelReport->setToolTip("Stop the Report in Progress.");
  CmdCancelReport->hide();
  CmdPredictPrint = button("CmdPredictPrint", "Print", &Form3::CmdPredictPrint_Click);
  CmdExit = button("CmdExit", "Exit", &Form3::CmdExit_Click);
  buttons->addWidget(CmdReport, 0, 0);
  buttons->addWidget(CmdCancelReport, 1, 0);
  buttons->addWidget(CmdPredictPrint, 0, 1);
  buttons->addWidget(CmdExit, 1, 1);
  bottom->addLayout(buttons);
  bottom->addStretch();
  QLabel* title = label("LblPrintTitle", "Jupiter Radio Noise Storm Prediction");
  title->hide();
  root->addLayout(bottom);

  mnuOtherScreens = new QMenu("OtherScreens", this);
  mnuOtherScreens->setObjectName("mnuOtherScreens");
  mnuShowForThisTime = mnuOtherScreens->addAction("Show Available Views for this time.");
  mnuShowForThisTime->setObjectName("mnuShowForThisTime");
  connect(mnuShowForThisTime, &QAction::triggered, this, [this] { mnuShowForThisTime_Click(); });
  mnuGridActions = new QMenu("grid actions", this);
  mnuGridActions->setObjectName("mnuGridActions");
  mnuAddToPlanner = mnuGridActions->addAction("Add Selected Event to Planner");
  mnuAddToPlanner->setObjectName("mnuAddToPlanner");
  connect(mnuAddToPlanner, &QAction::triggered, this, [this] { mnuAddToPlanner_Click(); });
}

void Form3::Form_Load() {
  unloaded_ = false;
  host_.StopTimer();
  for (int m = 0; m < kActivityModes - 1; ++m) LBLMode[m]->hide();
  for (int m = 1; m <= UsableModes(storm_.Modes); ++m) LBLMode[m - 1]->show();
  ArrangeDateBoxes();
  LBLWait->hide();
  ClearChart();
  core_.Form_Load(host_.RealTime(), host_.FixedT());
  ShowCore();
}

void Form3::ArrangeDateBoxes() {
  const DateOrder* order = DateOrderOf(program_.DFormat);
  if (!order) return;
  LBLDateFormat->setText(order->caption);
  QLineEdit* const boxes[3] = {txtYear, txtMonth, txtDay};
  for (int f : order->fields) dateBoxes_->removeWidget(boxes[f]);
  for (int f : order->fields) dateBoxes_->addWidget(boxes[f]);
  SetTabOrder();
}

void Form3::SetTabOrder() {
  QWidget* const dateBoxes[3] = {txtYear, txtMonth, txtDay};
  const DateOrder* dateOrder = DateOrderOf(program_.DFormat);
  const DateOrder& shown = dateOrder ? *dateOrder : *DateOrderOf(0);
  QWidget* const boxes[3] = {dateBoxes[shown.fields[0]], dateBoxes[shown.fields[1]],
                             dateBoxes[shown.fields[2]]};
  QWidget* const order[] = {boxes[0],    boxes[1],        boxes[2],        cmdNow,       CmdPredict,
                            CmdPrevious, CmdNextDay,      txtJupAltMin,    txtSunAltMax, Grid1,
                            CmdReport,   CmdCancelReport, CmdPredictPrint, CmdExit};
  for (std::size_t i = 1; i < std::size(order); ++i) setTabOrder(order[i - 1], order[i]);
}

void Form3::Run(const std::function<void()>& handler) {
  handler();
  ShowCore();
}

void Form3::CmdPredict_Click() {
  Run([this] { core_.CmdPredict_Click(); });
}

void Form3::CmdNextDay_Click() {
  ClearChart();
  Run([this] { core_.CmdNextDay_Click(); });
}

void Form3::CmdPrevious_Click() {
  ClearChart();
  Run([this] { core_.CmdPrevious_Click(); });
}

void Form3::cmdNow_Click() {
  CmdPredict->setFocus();
  Run([this] { core_.cmdNow_Click(host_.PresentUT()); });
}

void Form3::CmdReport_Click() {
  Run([this] { core_.CmdReport_Click(host_.ReportDirectory()); });
  AfterReport();
}

void Form3::DoReport() {
  Run([this] { core_.DoReport(host_.ReportDirectory()); });
  AfterReport();
}

// An exit asked for while the report ran has waited for the report's stop.
void Form3::AfterReport() {
  if (!exitAfterReport_) return;
  exitAfterReport_ = false;
  CmdExit_Click();
}

void Form3::CmdCancelReport_Click() {
  core_.CancelReport = true;
}

void Form3::CmdExit_Click() {
  // The report still runs in a handler below this one; it stops at its next day and the
  // window leaves after it.
  if (core_.ReportRunning) {
    core_.CancelReport = true;
    exitAfterReport_ = true;
    return;
  }
  hide();
  host_.FocusMainWindow();
  Form_Unload();
}

void Form3::Form_Unload() {
  if (unloaded_) return;  // a second restore would bring back a T saved by someone else
  unloaded_ = true;
  if (!host_.ProgramClosing()) RestoreT(s_);
}

void Form3::closeEvent(QCloseEvent* event) {
  if (core_.ReportRunning) {
    core_.CancelReport = true;
    exitAfterReport_ = true;
    event->ignore();
    return;
  }
  Form_Unload();
  event->accept();
}

void Form3::keyPressEvent(QKeyEvent* event) {
  Form_KeyPress(event);
}

// A key that no control here wants belongs to the command line of the main window. Tab is no
// character but the road between the controls; with Ctrl it leaves a control that keeps Tab.
void Form3::Form_KeyPress(QKeyEvent* event) {
  if (event->key() == Qt::Key_Tab || event->key() == Qt::Key_Backtab) {
    const bool back = event->key() == Qt::Key_Backtab || (event->modifiers() & Qt::ShiftModifier);
    focusNextPrevChild(!back);
    event->accept();
    return;
  }
  if (event->text().isEmpty()) return QWidget::keyPressEvent(event);
  host_.FocusMainWindow();
  event->accept();
}

void Form3::Refresh() {
  ShowCore();
  DrawChart();
}

void Form3::ShowCore() {
  ShowText(txtYear, core_.txtYear);
  ShowText(txtMonth, core_.txtMonth);
  ShowText(txtDay, core_.txtDay);
  ShowText(txtJupAltMin, core_.txtJupAltMin);
  ShowText(txtSunAltMax, core_.txtSunAltMax);
  for (int m = 0; m < kActivityModes; ++m) {
    const QString name = QString::fromStdString(core_.LBLMode[m]);
    if (LBLMode[m]->text() != name) LBLMode[m]->setText(name);
    // A key without a mode still shows its colour; it is named for what it is.
    const QString accessibleName = name.isEmpty() ? QString("Mode %1: none").arg(m + 1) : "";
    if (LBLMode[m]->accessibleName() != accessibleName)
      LBLMode[m]->setAccessibleName(accessibleName);
  }
  CmdCancelReport->setVisible(core_.CmdCancelReportVisible);
  ShowGrid();
}

namespace {

void SetHeader(QTableWidget* grid, Qt::Orientation orientation, int section, const QString& text) {
  QTableWidgetItem* item = orientation == Qt::Horizontal ? grid->horizontalHeaderItem(section)
                                                         : grid->verticalHeaderItem(section);
  if (item && item->text() == text) return;
  if (orientation == Qt::Horizontal)
    grid->setHorizontalHeaderItem(section, new QTableWidgetItem(text));
  else
    grid->setVerticalHeaderItem(section, new QTableWidgetItem(text));
}

}  // namespace

void Form3::ShowGrid() {
  const PredictionGrid& grid = core_.Grid1;
  Grid1->setRowCount(grid.Rows());
  for (int r = 0; r < grid.Rows(); ++r) {
    for (int c = 0; c < kGridColumns; ++c) {
      QTableWidgetItem* item = Grid1->item(r, c);
      if (!item) {
        item = new QTableWidgetItem;
        // The header row and the names column are fixed: shaded and not selectable.
        if (r == 0 || c == 0) {
          item->setFlags(Qt::ItemIsEnabled);
          item->setBackground(kFormGrey);
        } else {
          item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
        }
        Grid1->setItem(r, c, item);
      }
      const QString text = QString::fromStdString(grid.TextMatrix(r, c));
      if (item->text() != text) item->setText(text);
    }
  }
  // The hidden headers are what a screen reader names a cell by: the Begin and End of the
  // header row over the columns, the mode names beside the rows. The cells stay as they are.
  for (int c = 0; c < kGridColumns; ++c) {
    const QString text = c == 0 ? "Mode" : QString::fromStdString(grid.TextMatrix(0, c));
    SetHeader(Grid1, Qt::Horizontal, c, text);
  }
  for (int r = 0; r < grid.Rows(); ++r)
    SetHeader(Grid1, Qt::Vertical, r, QString::fromStdString(grid.TextMatrix(r, 0)));
}

void Form3::ClearChart() {
  drawn_.reset();
  Picture1->image = QImage();
  Picture1->update();
  DescribeChart();
}

// The chart and the Sun bar in words, made anew with each day drawn.
void Form3::DescribeChart() {
  QString chart, sun;
  if (drawn_) {
    chart = QString::fromStdString(ChartInWords(core_.Grid1, drawn_->minutes));
    sun = QString::fromStdString(SunInWords(drawn_->minutes));
  }
  if (Picture1->accessibleDescription() != chart) Picture1->setAccessibleDescription(chart);
  if (PicSunAlt->accessibleDescription() != sun) PicSunAlt->setAccessibleDescription(sun);
}

void Form3::DayPredicted() {
  drawn_ = std::make_unique<DrawnDay>(DrawnDay{storm_.Minutes, storm_.DayActivity});
  Refresh();
  DescribeChart();
}

void Form3::DrawChart() {
  if (!drawn_) return;
  QImage image(Picture1->size(), QImage::Format_RGB32);
  image.fill(Qt::white);
  {
    QPainter p(&image);
    DrawChartBackground(p, image.size(), drawn_->minutes);
    DrawTimeLines(p, image.size());
    DrawModeBars(p, image.size(), drawn_->marks);
    HourBar(p);
  }
  Picture1->image = image;
  Picture1->update();
}

void Form3::HourBar(QPainter& p) {
  DrawHourBands(p, Picture1->size(), host_.TimeZone());
  SunAltBar();
}

// The limit boxes are written anew by the core's own HourBar; here is the bar itself.
void Form3::SunAltBar() {
  QImage image(PicSunAlt->size(), QImage::Format_RGB32);
  image.fill(Qt::white);
  {
    QPainter p(&image);
    DrawSunAltitude(p, image.size(), drawn_->minutes);
  }
  PicSunAlt->image = image;
  PicSunAlt->update();
}

void Form3::Picture1_MouseMove(QMouseEvent* event) {
  const double X = event->position().x() * 86400 / Picture1->width();
  const int k = std::clamp(static_cast<int>(RoundHalfEven(X / 60)), 0, kDayMinutes);
  const MinuteTables& t = storm_.Minutes;
  WriteValue(LBLTime, QString::fromStdString("GMT: " + FormatDateTime(X / 86400, "hh:nn")));
  WriteValue(LBLJupAlt,
             QString::fromStdString("Jup Alt " + Format(t.MinuteJupAlt[k], "00") + " deg."));
  WriteValue(LBLJupHA, QString::fromStdString("Jup HA " + Format(t.MinuteJupHA[k], "00.0")));
  WriteValue(LBLSunAlt,
             QString::fromStdString("Sun Alt " + Format(t.MinuteSunAlt[k], "00") + " deg"));
}

void Form3::Picture1_MouseDown(QMouseEvent* event) {
  if (event->button() != Qt::RightButton || !(core_.PredictTime > 0)) return;
  const double X = event->position().x() * 86400 / Picture1->width();
  core_.PredictTime = Int(core_.PredictTime) + X / 86400;
  setWindowTitle("Quillmere Pro Predictions  " + ShortDateTime(core_.PredictTime) + " UT");
  mnuOtherScreens->popup(event->globalPosition().toPoint());
}

void Form3::mnuShowForThisTime_Click() {
  UpdateOtherViews();
}

// The main window takes the instant clicked on the chart as its fixed time.
void Form3::UpdateOtherViews() {
  host_.ShowForThisTime(core_.PredictTime);
}

bool Form3::eventFilter(QObject* watched, QEvent* event) {
  if (watched == Grid1->viewport() && event->type() == QEvent::MouseButtonRelease)
    Grid1_MouseEvent(static_cast<QMouseEvent*>(event));
  // Coming in by the keyboard, the grid starts at the first time of the first mode rather than
  // at the empty corner.
  if (watched == Grid1 && event->type() == QEvent::FocusIn && !Grid1->currentIndex().isValid() &&
      Grid1->rowCount() > 1 && static_cast<QFocusEvent*>(event)->reason() != Qt::MouseFocusReason)
    Grid1->selectionModel()->setCurrentIndex(Grid1->model()->index(1, 1),
                                             QItemSelectionModel::NoUpdate);
  // The grid would take a letter as a search among its cells; like every other key that no
  // control here needs, it belongs to the command line.
  if (watched == Grid1 && event->type() == QEvent::KeyPress) {
    auto* key = static_cast<QKeyEvent*>(event);
    const QString text = key->text();
    if (!text.isEmpty() && text[0].isPrint() && text[0] != ' ' &&
        !(key->modifiers() & (Qt::ControlModifier | Qt::AltModifier))) {
      Form_KeyPress(key);
      return true;
    }
  }
  return QWidget::eventFilter(watched, event);
}

// On the release, when the press has moved the selection to the cell under the mouse.
void Form3::Grid1_MouseEvent(QMouseEvent* event) {
  const int row = Grid1->currentRow(), col = Grid1->currentColumn();
  setWindowTitle(QString::fromStdString(NumberText(col) + "    " + NumberText(row)));
  if (event->button() != Qt::RightButton || row < 1 || col < 1) return;
  const QTableWidgetItem* item = Grid1->item(row, col);
  if (!item || item->text().isEmpty() || item->text() == "NONE") return;
  mnuGridActions->popup(event->globalPosition().toPoint());
}

void Form3::mnuAddToPlanner_Click() {
  const int row = Grid1->currentRow(), col = Grid1->currentColumn();
  if (row < 1 || col < 1) return;
  if (const QTableWidgetItem* item = Grid1->item(row, col)) setWindowTitle(item->text());
}

void Form3::ShowMessage(const std::string& text) {
  if (messageSink_) return messageSink_(text);
  QWidget* parent = QApplication::activeModalWidget();
  QMessageBox box(QMessageBox::NoIcon, QString::fromStdString(program_.AppTitle),
                  QString::fromStdString(text), QMessageBox::Ok, parent ? parent : this);
  box.exec();
}

void Form3::SpeakThis(const std::string& text) {
  host_.SpeakThis(text);
}

void Form3::SpeakCharacters(const std::string& text) {
  host_.SpeakCharacters(text);
}

void Form3::Yield() {
  QCoreApplication::processEvents();
}

void Form3::ShowReportOptions() {
  ReportOptions logic(core_, storm_, program_, settings_, *this);
  formReportOptions dialog(logic, host_.PresentUT() + host_.TimeZone() / 24, this);
  dialog.exec();
}

}  // namespace quillmere
