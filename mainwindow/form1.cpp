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
#include "stormmodel/ui/accessible.h"
#include "textutil/date_time.h"
#include "textutil/latlng.h"
#include "textutil/number_text.h"
#include "textutil/text.h"

namespace quillmere {
namespace {

constexpr int kVersionMajor = 1, kVersionMinor = 0, kVersionRevision = 1;

// A stored text read as a 16-bit boolean: "True" / "False" in any case, or a number.
int16_t StoredBoolean(const std::string& text) {
  std::string lower = text;
  std::transform(lower.begin(), lower.end(), lower.begin(), ::tolower);
  if (lower == "true") return -1;
  if (lower == "false") return 0;
  const double v = Val(text);
  return std::isfinite(v) && v != 0 && (IsNumeric(text)) ? -1 : 0;
}

// A stored number read into a 32-bit field; a value the field cannot hold reads as 0.
float StoredSingle(const std::string& text) {
  const double v = Val(text);
  return std::fabs(v) <= 3.4028234663852886e38 ? static_cast<float>(v) : 0.0f;
}

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
    : QWidget(parent), platform_(std::move(platform)) {
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
  shown_.byName[name] = caption;
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

// The exact caption is kept for whoever reads it back; the screen shows line ends. Written only
// when it changes, so that a screen reader hears of changes alone.
void Form1::SetCaption(QLabel* label, const std::string& caption) {
  std::string& kept = shown_.byName[label->objectName().toStdString()];
  if (kept == caption && label->property("caption").isValid()) return;
  kept = caption;
  label->setProperty("caption", QString::fromStdString(caption));
  WriteValue(label, QString::fromStdString(caption).replace("\r\n", "\n"));
}

// ---------------------------------------------------------------------------------------------
// Start-up and shut-down

void Form1::LoadSettings() {
  SettingsStore& st = *platform_.settings;
  const std::string& app = p_.AppTitle;
  const double dformat = RoundHalfEven(Val(st.GetSetting(app, "Settings", "DFormat", "0")));
  p_.DFormat = dformat >= -32768 && dformat <= 32767 ? static_cast<int16_t>(dformat) : 0;
  p_.ModeFileName = st.GetSetting(app, "Startup", "ModeFileName", DataFile("UFMODES.JMF"));
  p_.UseGMT = StoredBoolean(st.GetSetting(app, "Startup", "UseGMT", "True"));
  p_.DisplayWest = st.GetSetting(app, "Startup", "DisplayWest", "W");
  const double delay = Val(st.GetSetting(app, "Startup", "AnnounceDelay", "0"));
  p_.AnnounceDelay = std::isfinite(delay) ? delay : 0;
  p_.AnnounceActivity = st.GetSetting(app, "Startup", "AnnounceActivity", "0") == "1" ? -1 : 0;
}

std::string Form1::DataFile(const std::string& name) const {
  const DataFolders& folders = platform_.dataFolders;
  if (folders.user.empty() && folders.program.empty())
    return platform_.programDirectory + "/" + name;
  return FindDataFile(folders, name);
}

void Form1::Form_Load() {
  // 1, 2: title and the program's directory.
  p_.AppTitle = "Quillmere Speaking Edition";
  if (platform_.enterProgramDirectory)
    QDir::setCurrent(QString::fromStdString(platform_.programDirectory));

  // 3: the help files. Before the voice exists a missing one can only be noted; it is said
  // after the welcome, or F1 would be silent without a word of why.
  const auto loadHelp = [this](const char* name, const char* what) {
    const std::string path = DataFile(name);
    if (!FileExists(path))
      AddStartupNotice(std::string(what) + " help file " + path + " not found.");
    return LoadHelpLines(path);
  };
  std::vector<std::string> help = loadHelp("SpkHlp.txt", "Speech");
  std::vector<std::string> predictHelp = loadHelp("PredictHlp.txt", "Predict");

  // 4: the time zone.
  p_.DetectedTZ = DetectTimeZone(platform_.clock->GetTimeZoneInformation());

  // 5: the voice and the list of voices.
  voice_ = platform_.createVoice();
  if (platform_.voiceNotice) {
    if (std::string notice = platform_.voiceNotice(); !notice.empty()) AddStartupNotice(notice);
  }
  speaker_ = std::make_unique<Speaker>(*voice_, [] { QCoreApplication::processEvents(); });
  commands_ = std::make_unique<CommandInterpreter>(p_, s_, storm_, *platform_.settings, *speaker_,
                                                   shown_, *this);
  commands_->help.lines = std::move(help);
  commands_->predictHelp.lines = std::move(predictHelp);
  p_.VoiceNames = voice_->GetVoices();

  // 6 to 8.
  p_.VersionText = std::to_string(kVersionMajor) + "." + std::to_string(kVersionMinor) + "." +
                   std::to_string(kVersionRevision);
  LoadSettings();
  p_.RealTime = -1;

  // 9: the mode file; its message holds up the start until it is closed.
  // The box is not seen by everyone: its lines are said after the welcome as well.
  const ModeFileResult loaded = LoadModeFile(p_.ModeFileName, storm_.Modes);
  for (const auto& message : {loaded.error, loaded.notice}) {
    if (!message) continue;
    platform_.messages->Show(message->title, message->text);
    for (size_t at = 0; at <= message->text.size();) {
      const size_t end = std::min(message->text.find("\r\n", at), message->text.size());
      if (end > at) AddStartupNotice(message->text.substr(at, end - at));
      at = end + 2;
    }
  }

  // 10 to 13: the observer and the instant.
  p_.ObsLat =
      StoredSingle(platform_.settings->GetSetting(p_.AppTitle, "Settings", "Latitude", "0"));
  p_.ObsLong =
      StoredSingle(platform_.settings->GetSetting(p_.AppTitle, "Settings", "Longitude", "0"));
  // The ephemeris is chosen once, before the first sidereal time: classic unless asked otherwise.
  s_.model = EphemerisModelSetting(
      platform_.settings->GetSetting(p_.AppTitle, "Settings", "Ephemeris", "classic"));
  p_.TimeZone = p_.DetectedTZ;
  s_.T = PresentUT();
  ComputeSiderealTime(s_, p_.ObsLong);

  // 14: the day's activity marks.
  if (storm_.Modes.ModesLoaded) ComputeTodayActivity();

  // 15, 16: the info server. Start-up goes on without it if it cannot listen; the user hears
  // why after the welcome.
  jis_.LoadJISSettings(*platform_.settings, p_.AppTitle);
  // A switch that reads as 0 for want of a number would keep the service quiet without a word.
  const struct {
    const char* key;
    const std::string& text;
    const char* meaning;
  } switches[] = {
      {"RunJIS", jis_.settings.RunJISText, "so the info server does not start."},
      {"PushJIS", jis_.settings.PushJISText, "so no records are pushed."},
  };
  for (const auto& sw : switches) {
    const double v = IsNumeric(sw.text) ? RoundHalfEven(Val(sw.text)) : NAN;
    if (!(v >= -32768 && v <= 32767))
      AddStartupNotice(std::string("The stored ") + sw.key + " \"" + sw.text +
                       "\" is not a number from -32768 to 32767, " + sw.meaning);
  }
  // With pushing on, a period that is no number of minutes pushes on every tick.
  if (jis_.settings.PushJIS) {
    const std::string& text = jis_.settings.JISMinText;
    const double v = IsNumeric(text) ? RoundHalfEven(Val(text)) : NAN;
    if (!(v >= 0 && v <= 32767))
      AddStartupNotice("The stored JISMin \"" + text +
                       "\" is not a number of minutes from 0 to 32767, so records are pushed "
                       "every second.");
  }
  if (jis_.settings.RunJIS) jis_.StartJIS();

  // 17 to 20.
  timer1_.setInterval(1000);
  timer1_.start();
  ArrangeDateBoxes();
  FillObLabel();
  p_.VersionBanner = MakeVersionBanner(kVersionMajor, kVersionMinor, kVersionRevision);

  // 21, 22: the welcome, before the window is shown; the focus follows with the window.
  voice_->Speak("Welcome to Quillmere Speech Edition. For Help Press F1.", SVSFDefault);
  if (!jis_.StartFailure().empty()) AddStartupNotice(jis_.StartFailure());
  for (const std::string& notice : startupNotices_) voice_->Speak(notice, SVSFDefault);
  startupNotices_.clear();
  txtIn->setFocus();
}

void Form1::AddStartupNotice(std::string text) {
  startupNotices_.push_back(std::move(text));
}

void Form1::Form_Unload() {
  if (unloaded_) return;
  unloaded_ = true;
  p_.ProgramClosing = -1;
  timer1_.stop();
  UnloadForm3();
  if (voice_) voice_->Speak("Quillmere Speech Edition Closing.", SVSFDefault);
}

void Form1::closeEvent(QCloseEvent* event) {
  Form_Unload();
  event->accept();
}

void Form1::EnableTimerIfRealTime() {
  if (p_.RealTime && voice_ && !unloaded_) timer1_.start();
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
  return platform_.clock->LocalNow() - p_.TimeZone / 24;
}

void Form1::Timer1_Timer() {
  timer1_.stop();  // ticks never overlap
  s_.T = PresentUT();
  if (const auto f = SplitDateTime(s_.T);
      f && f->minute != p_.LastMinute && storm_.Modes.ModesLoaded) {
    if (!today_.ActivityDay || *today_.ActivityDay != f->day) ComputeTodayActivity();
    p_.LastMinute = f->minute;
  }
  VisualAlert();
  AnnounceActivity();
  ComputeSiderealTime(s_, p_.ObsLong);
  DisplayTimes();
  ComputeInstant(s_, p_.ObsLat);
  DisplayInfo();
  if (p_.AnnounceDelay > 0 &&
      platform_.clock->LocalNow() > p_.LastAnnounce + p_.AnnounceDelay / 1440) {
    if (p_.AnnounceSun) commands_->SpeakSunAll();
    if (p_.AnnounceJupiter) commands_->SpeakJupAll();
    p_.LastAnnounce = platform_.clock->LocalNow();
    speaker_->CancelFlag = 0;
  }
  if (jis_.settings.PushJIS &&
      platform_.clock->LocalNow() > p_.LastJISSend + jis_.settings.JISMin / 1440.0)
    jis_.SendJISInfo();
  if (!unloaded_) timer1_.start();
}

void Form1::ComputeTodayActivity() {
  quillmere::ComputeTodayActivity(s_, PresentUT(), p_.ObsLat, p_.ObsLong, storm_.Modes,
                                  storm_.Minutes, storm_.DayActivity, today_);
}

// The label is cleared and set in one write, so a standing alert is not sent again each second.
void Form1::VisualAlert() {
  int16_t alrt = 0;
  std::string alertstr;
  CheckForActivity(s_.T, storm_.Modes, today_.TodayActivity, alrt, alertstr);
  activityText_ = alrt ? alertstr : "";
  if (alrt) {
    SetCaption(LBLQ, "Possible Activity:  " + alertstr);
    if (isMinimized()) setWindowTitle(QString::fromStdString(alertstr));
    PicJupIcon->show();
  } else {
    SetCaption(LBLQ, "");
    PicJupIcon->hide();
    DisplayCaption();
  }
}

void Form1::AnnounceActivity() {
  if (activityText_ == announcedText_) return;
  announcedText_ = activityText_;
  if (p_.AnnounceActivity && !activityText_.empty())
    speaker_->SpeakThis("Possible Activity:  " + activityText_);
}

void Form1::SwitchToFixedTime() {
  timer1_.stop();
  NewTime();
  DisplayTimes();
  DisplayInfo();
  DisplayCaption();
  VisualAlert();
  update();
}

void Form1::NewTime() {
  ComputeSiderealTime(s_, p_.ObsLong);
  p_.FixedT = s_.T;
  SaveT(s_);
  ComputeInstant(s_, p_.ObsLat);
  SetFixedTime(p_, s_);
  MarkDayActivity(storm_.Modes, storm_.Minutes, storm_.DayActivity);
  DisplayTimes();
  DisplayInfo();
}

void Form1::SwitchToRealTime() {
  p_.RealTime = -1;
  s_.T = PresentUT();
  ComputeInstant(s_, p_.ObsLat);  // sidereal time follows at the next tick
  DisplayTimes();
  DisplayInfo();
  SetCaption(LBLQ, "");
  timer1_.start();
  update();
}

void Form1::DisplayTimes() {
  const double t = BoxesInstant(p_, s_, platform_.clock->LocalNow());
  const std::pair<QLineEdit*, const char*> boxes[] = {{txtY, "yyyy"}, {txtM, "mm"}, {txtD, "dd"},
                                                      {txtH, "hh"},   {txtN, "nn"}, {txtS, "ss"}};
  for (const auto& [box, pattern] : boxes)
    WriteText(box, QString::fromStdString(FormatDateTime(t, pattern)));
  if (const auto lmst = LmstCaption(p_.RealTime ? s_.LMST : p_.FixedLMST))
    SetCaption(LBLLMST, *lmst);
}

void Form1::ArrangeDateBoxes() {
  QLineEdit* order[3];
  const char* caption = nullptr;
  switch (p_.DFormat) {
    case 0:
      order[0] = txtY, order[1] = txtM, order[2] = txtD, caption = "YYYY  MM  DD";
      break;
    case 1:
      order[0] = txtM, order[1] = txtD, order[2] = txtY, caption = "MM  DD  YYYY";
      break;
    case 2:
      order[0] = txtD, order[1] = txtM, order[2] = txtY, caption = "DD  MM  YYYY";
      break;
    default:
      return;  // the design's order stands
  }
  for (QLineEdit* box : order) dateRow_->removeWidget(box);
  for (int i = 0; i < 3; ++i) dateRow_->insertWidget(1 + i, order[i]);
  SetCaption(LBLDateFormat, caption);
}

void Form1::DisplayInfo() {
  quillmere::DisplayInfo(p_, s_, captions_);
  const Captions& c = captions_;
  const std::pair<QLabel*, const std::string*> all[] = {
      {LblJupRA, &c.LblJupRA},   {LblJupDEC, &c.LblJupDEC},   {LBlCMIII, &c.LBlCMIII},
      {LbLSGC, &c.LbLSGC},       {LBLJupAlt, &c.LBLJupAlt},   {LblJUPAZ, &c.LblJUPAZ},
      {LBLJupHA, &c.LBLJupHA},   {LbLJupRise, &c.LbLJupRise}, {LbLJupSet, &c.LbLJupSet},
      {LbLSunRA, &c.LbLSunRA},   {LBLSunDec, &c.LBLSunDec},   {LBLSunAlt, &c.LBLSunAlt},
      {LbLSunAz, &c.LbLSunAz},   {LBLSunHA, &c.LBLSunHA},     {LbLSunRise, &c.LbLSunRise},
      {LbLSunSet, &c.LbLSunSet},
  };
  for (const auto& [label, caption] : all) SetCaption(label, *caption);
}

void Form1::FillObLabel() {
  SetCaption(LBLOB, ObserverCaption(p_));
}

std::string Form1::JISRecord() {
  int16_t alrt = 0;
  std::string alertstr;
  CheckForActivity(s_.T, storm_.Modes, today_.TodayActivity, alrt, alertstr);
  return ComposeJISRecord(s_, Caption("LBLLMST"), alrt, alertstr);
}

// ---------------------------------------------------------------------------------------------
// The prediction window

const ProgramValues& Form1::programValues() {
  programValues_.AppTitle = p_.AppTitle;
  programValues_.VersionText = p_.VersionText;
  programValues_.ObsLat = p_.ObsLat;
  programValues_.ObsLong = p_.ObsLong;
  programValues_.DisplayWest = p_.DisplayWest;
  programValues_.DFormat = p_.DFormat;
  return programValues_;
}

// Loaded at the first use of any of its members; its own Exit unloads it, and the next use
// loads it again.
Form3& Form1::GetForm3() {
  if (form3_ && form3_->Unloaded() && !form3_->core().ReportRunning) form3_.reset();
  if (!form3_) {
    form3_ = std::make_unique<Form3>(*this, s_, storm_, programValues(), *platform_.settings);
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
  speaker_->SpeakThis(text);
}
void Form1::SpeakCharacters(const std::string& text) {
  speaker_->SpeakCharacters(text);
}

}  // namespace quillmere
