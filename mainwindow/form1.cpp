#include "mainwindow/form1.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QVBoxLayout>
#include <algorithm>
#include <cctype>
#include <cstdio>

#include "ephemeris/precise.h"
#include "mainwindow/entry.h"
#include "mainwindow/startup.h"
#include "stormmodel/ui/accessible.h"
#include "textutil/date_time.h"
#include "textutil/latlng.h"
#include "textutil/number_text.h"
#include "textutil/text.h"

namespace quillmere {
namespace {

QPixmap JupiterIcon() {
  QPixmap pixmap(32, 32);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(QColor(222, 184, 135));
  painter.setPen(Qt::NoPen);
  painter.drawEllipse(2, 2, 28, 28);
  painter.setBrush(QColor(160, 82, 45));
  painter.drawRect(4, 11, 24, 3);
  painter.drawRect(4, 18, 24, 3);
  return pixmap;
}

}  // namespace

Form1::Form1(Form1Platform platform, QWidget* parent)
    : QWidget(parent),
      platform_(std::move(platform)),
      session_({platform_.clock, platform_.settings, platform_.messages, platform_.programDirectory,
                platform_.dataFolders},
               *this, *this) {
  SetAccessibleRole(this, QAccessible::Window);  // a frame named by its caption
  setObjectName("Form1");
  BuildControls();
  timer1_.setObjectName("Timer1");
  connect(&timer1_, &QTimer::timeout, this, [this] { Timer1_Timer(); });
}

Form1::~Form1() = default;

QLabel* Form1::AddLabel(const char* name, const char* caption, const char* toolTip) {
  auto* label = new QLabel(QString::fromUtf8(caption), this);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  // The tool tip becomes the description a screen reader offers; no accessible name is set, so
  // the reader reads the caption, which is the value.
  if (*toolTip) label->setToolTip(toolTip);
  if (!*caption) WriteValue(label, "");  // hidden until it has something to say
  session_.shown.byName[name] = caption;
  labels_[name] = label;
  return label;
}

QLineEdit* Form1::AddBox(const char* name, const char* toolTip) {
  auto* box = new QLineEdit(this);
  box->setObjectName(name);
  box->setReadOnly(true);
  box->setFocusPolicy(Qt::NoFocus);
  box->setMaximumWidth(name[3] == 'Y' ? 56 : 36);
  if (*toolTip) {
    box->setToolTip(toolTip);
    box->setAccessibleName(toolTip);
  }
  box->installEventFilter(this);
  return box;
}

void Form1::BuildControls() {
  txtIn = new QLineEdit(this);
  txtIn->setObjectName("txtIn");
  txtIn->setToolTip("Command line");
  txtIn->setAccessibleName("Command line");
  txtIn->installEventFilter(this);
  installEventFilter(this);

  txtY = AddBox("txtY", "Year");
  txtM = AddBox("txtM", "Month");
  txtD = AddBox("txtD", "Day");
  txtH = AddBox("txtH", "Hour");
  txtN = AddBox("txtN", "Minutes");
  txtS = AddBox("txtS", "Seconds");
  LBLDate = AddLabel("LBLDate", "Date", "");
  LBLDateFormat = AddLabel("LBLDateFormat", "YYYY  MM  DD", "");
  Label5 = AddLabel("Label5", "Time", "");
  Label6 = AddLabel("Label6", "HH  MM  SS", "");
  LBLLMST = AddLabel("LBLLMST", "", "");
  LBLOB = AddLabel("LBLOB", "", "");
  LBLQ = AddLabel("LBLQ", "", "");
  PicJupIcon = new QLabel(this);
  PicJupIcon->setObjectName("PicJupIcon");
  PicJupIcon->setPixmap(JupiterIcon());
  PicJupIcon->setToolTip("Possible activity");
  PicJupIcon->setAccessibleName("Jupiter icon");
  PicJupIcon->hide();

  QLabel* Label1 = AddLabel("Label1", "Jupiter", "Jupiter Coordinates");
  QLabel* Label4 = AddLabel("Label4", "Sun", "Sun Coordinates");
  LblJupRA = AddLabel("LblJupRA", "JUP RA:", "Jupiter Right Ascension");
  LblJupDEC = AddLabel("LblJupDEC", "JUP DEC:", "Jupiter Declination");
  LBlCMIII = AddLabel("LBlCMIII", "CMIII:", "Jupiter Cental Meridian");
  LbLSGC = AddLabel("LbLSGC", "Io Phase:", "Jupiter I O Phase");
  LBLJupAlt = AddLabel("LBLJupAlt", "JUP ALT:", "Jupiter Elevation");
  LblJUPAZ = AddLabel("LblJUPAZ", "JUP AZ:", "Jupiter Azimuth");
  LBLJupHA = AddLabel("LBLJupHA", "JUP HA:", "Jupiter Hour Angle");
  LbLJupRise = AddLabel("LbLJupRise", "Jup Rise:", "Jupiter Rise");
  LbLJupSet = AddLabel("LbLJupSet", "Jup Set:", "Jupiter Set");
  LbLSunRA = AddLabel("LbLSunRA", "SUN RA:", "Sun Right Ascension");
  LBLSunDec = AddLabel("LBLSunDec", "SUN DEC:", "Sun Declination");
  LBLSunAlt = AddLabel("LBLSunAlt", "SUN ALT:", "Sun Elevation");
  LbLSunAz = AddLabel("LbLSunAz", "SUN AZ:", "Sun Azimuth");
  LBLSunHA = AddLabel("LBLSunHA", "SUN HA:", "Sun Hour Angle");
  LbLSunRise = AddLabel("LbLSunRise", "Sun Rise:", "Sun Rise");
  LbLSunSet = AddLabel("LbLSunSet", "Sun Set:", "Sun Set");

  auto* top = new QVBoxLayout(this);
  top->addWidget(txtIn);

  auto* times = new QGridLayout;
  dateRow_ = new QHBoxLayout;
  dateRow_->addWidget(LBLDate);
  dateRow_->addWidget(txtY);
  dateRow_->addWidget(txtM);
  dateRow_->addWidget(txtD);
  dateRow_->addWidget(LBLDateFormat);
  dateRow_->addStretch();
  auto* timeRow = new QHBoxLayout;
  timeRow->addWidget(Label5);
  timeRow->addWidget(txtH);
  timeRow->addWidget(txtN);
  timeRow->addWidget(txtS);
  timeRow->addWidget(Label6);
  timeRow->addStretch();
  times->addLayout(dateRow_, 0, 0);
  times->addLayout(timeRow, 1, 0);
  times->addWidget(LBLLMST, 2, 0);
  times->addWidget(LBLOB, 0, 1, 3, 1);
  top->addLayout(times);

  auto* alert = new QHBoxLayout;
  alert->addWidget(PicJupIcon);
  alert->addWidget(LBLQ, 1);
  top->addLayout(alert);

  auto* bodies = new QGridLayout;
  QLabel* jupiter[] = {Label1,   LblJupRA, LblJupDEC, LBLJupAlt,  LblJUPAZ,
                       LBLJupHA, LBlCMIII, LbLSGC,    LbLJupRise, LbLJupSet};
  QLabel* sun[] = {Label4,   LbLSunRA, LBLSunDec,  LBLSunAlt,
                   LbLSunAz, LBLSunHA, LbLSunRise, LbLSunSet};
  int row = 0;
  for (QLabel* l : jupiter) bodies->addWidget(l, row++, 0);
  row = 0;
  for (QLabel* l : sun) bodies->addWidget(l, row++, 1);
  top->addLayout(bodies);
  top->addStretch();

  // The keyboard user starts on the command line.
  setFocusProxy(txtIn);
  resize(520, 420);
}

// The screen shows line ends. Written only when it changes, so that a screen reader hears of
// changes alone.
void Form1::ShowCaption(const std::string& name, const std::string& caption) {
  QLabel* label = labels_.at(name);
  const QString text = QString::fromStdString(caption);
  if (label->property("caption").toString() == text && label->property("caption").isValid()) return;
  label->setProperty("caption", text);
  WriteValue(label, QString(text).replace("\r\n", "\n"));
}

void Form1::ShowInstant(double t) {
  const std::pair<QLineEdit*, const char*> boxes[] = {{txtY, "yyyy"}, {txtM, "mm"}, {txtD, "dd"},
                                                      {txtH, "hh"},   {txtN, "nn"}, {txtS, "ss"}};
  for (const auto& [box, pattern] : boxes)
    WriteText(box, QString::fromStdString(FormatDateTime(t, pattern)));
}

// The label is cleared and set in one write, so a standing alert is not sent again each second.
void Form1::ShowAlert(const std::string& alertstr) {
  PicJupIcon->setVisible(!alertstr.empty());
  if (alertstr.empty())
    DisplayCaption();
  else if (isMinimized())
    setWindowTitle(QString::fromStdString(alertstr));
}

// ---------------------------------------------------------------------------------------------
// Start-up and shut-down

void Form1::Form_Load() {
  if (platform_.enterProgramDirectory)
    QDir::setCurrent(QString::fromStdString(platform_.programDirectory));
  session_.LoadHelpAndZone();
  std::unique_ptr<Voice> voice = platform_.createVoice();
  if (platform_.voiceNotice) {
    if (std::string notice = platform_.voiceNotice(); !notice.empty()) AddStartupNotice(notice);
  }
  session_.StartVoice(std::move(voice), [] { QCoreApplication::processEvents(); });
  session_.LoadStateAndModes();

  // The info server. Start-up goes on without it if it cannot listen; the user hears why after
  // the welcome.
  jis_.LoadJISSettings(*platform_.settings, p_.AppTitle);
  for (std::string& notice : JisSettingNotices(jis_.settings)) AddStartupNotice(std::move(notice));
  if (jis_.settings.RunJIS) jis_.StartJIS();

  timer1_.setInterval(1000);
  timer1_.start();
  ArrangeDateBoxes();
  FillObLabel();
  p_.VersionBanner = MakeVersionBanner(kVersionMajor, kVersionMinor, kVersionRevision);

  // The welcome, before the window is shown; the focus follows with the window.
  if (!jis_.StartFailure().empty()) AddStartupNotice(jis_.StartFailure());
  session_.Welcome();
  txtIn->setFocus();
}

void Form1::AddStartupNotice(std::string text) {
  session_.AddStartupNotice(std::move(text));
}

void Form1::Form_Unload() {
  if (unloaded_) return;
  unloaded_ = true;
  p_.ProgramClosing = -1;
  timer1_.stop();
  UnloadForm3();
  session_.SayClosing();
}

void Form1::closeEvent(QCloseEvent* event) {
  Form_Unload();
  event->accept();
}

void Form1::EnableTimerIfRealTime() {
  if (p_.RealTime && session_.voice && !unloaded_) timer1_.start();
}

void Form1::changeEvent(QEvent* event) {
  if (event->type() == QEvent::ActivationChange && isActiveWindow()) EnableTimerIfRealTime();
  QWidget::changeEvent(event);
}

void Form1::focusInEvent(QFocusEvent* event) {
  EnableTimerIfRealTime();
  txtIn->setFocus();
  QWidget::focusInEvent(event);
}

void Form1::resizeEvent(QResizeEvent* event) {
  DisplayCaption();
  QWidget::resizeEvent(event);
}

void Form1::showEvent(QShowEvent* event) {
  DisplayCaption();
  QWidget::showEvent(event);
}

void Form1::DisplayCaption() {
  setWindowTitle(QString::fromStdString(p_.VersionBanner));
}

// ---------------------------------------------------------------------------------------------
// Time keeping

double Form1::PresentUT() {
  return session_.PresentUT();
}

void Form1::Timer1_Timer() {
  timer1_.stop();  // ticks never overlap
  session_.Tick();
  if (jis_.settings.PushJIS &&
      platform_.clock->LocalNow() > p_.LastJISSend + jis_.settings.JISMin / 1440.0)
    jis_.SendJISInfo();
  if (!unloaded_) timer1_.start();
}

void Form1::SwitchToFixedTime() {
  timer1_.stop();
  session_.NewTime();
  session_.DisplayTimes();
  session_.DisplayInfo();
  DisplayCaption();
  session_.VisualAlert();
  update();
}

void Form1::NewTime() {
  session_.NewTime();
}

void Form1::SwitchToRealTime() {
  session_.ResumeRealTime();
  timer1_.start();
  update();
}

void Form1::ArrangeDateBoxes() {
  const DateOrder* order = DateOrderOf(p_.DFormat);
  if (!order) return;  // the design's order stands
  QLineEdit* const boxes[3] = {txtY, txtM, txtD};
  for (int f : order->fields) dateRow_->removeWidget(boxes[f]);
  for (int i = 0; i < 3; ++i) dateRow_->insertWidget(1 + i, boxes[order->fields[i]]);
  session_.SetCaption("LBLDateFormat", order->caption);
}

void Form1::FillObLabel() {
  session_.FillObLabel();
}

// ---------------------------------------------------------------------------------------------
// The prediction window

// Loaded at the first use of any of its members; its own Exit unloads it, and the next use
// loads it again.
Form3& Form1::GetForm3() {
  if (form3_ && form3_->Unloaded() && !form3_->core().ReportRunning) form3_.reset();
  if (!form3_) {
    form3_ =
        std::make_unique<Form3>(*this, s_, storm_, session_.programValues(), *platform_.settings);
    form3_->SetMessageSink(
        [this](const std::string& text) { platform_.messages->Show(p_.AppTitle, text); });
    form3_->Form_Load();
  }
  return *form3_;
}

void Form1::UnloadForm3() {
  if (!form3_) return;
  if (!form3_->Unloaded()) form3_->Form_Unload();
  form3_->hide();
  // A report still running stops at its next day; the window goes when it has.
  if (form3_->core().ReportRunning) {
    form3_->core().CancelReport = true;
    return;
  }
  form3_.reset();
}

void Form1::StopTimer() {
  timer1_.stop();
}

void Form1::FocusMainWindow() {
  activateWindow();
  raise();
  txtIn->setFocus();
}

void Form1::ShowForThisTime(double instant) {
  p_.RealTime = 0;
  s_.T = instant;
  SwitchToFixedTime();
}

void Form1::SpeakThis(const std::string& text) {
  session_.speaker->SpeakThis(text);
}
void Form1::SpeakCharacters(const std::string& text) {
  session_.speaker->SpeakCharacters(text);
}

}  // namespace quillmere
