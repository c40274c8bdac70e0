// The prediction window as a sighted helper meets it: clicked, typed at and looked at, under the
// offscreen platform, with a recording host in place of the main window.

#include "stormmodel/ui/form3.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPrinter>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <QTimer>
#include <cmath>

#include "accessible_test_support.h"
#include "storm_test_support.h"
#include "stormmodel/day_in_words.h"
#include "stormmodel/report_options.h"
#include "stormmodel/ui/report_options_dialog.h"
#include "textutil/date_time.h"

namespace quillmere {
namespace {

using testing::Nameless;
using testing::RecordingUi;
using testing::ScratchDir;

class RecordingHost : public Form3Host {
 public:
  void StopTimer() override { ++timerStops; }
  void FocusMainWindow() override { ++focusBacks; }
  void ShowForThisTime(double instant) override { shownInstants.push_back(instant); }
  bool ProgramClosing() override { return closing; }
  bool RealTime() override { return false; }
  double FixedT() override { return fixedT; }
  double TimeZone() override { return -5; }
  double PresentUT() override { return presentUT; }
  void SpeakThis(const std::string& text) override { spoken.push_back(text); }
  void SpeakCharacters(const std::string& text) override { spoken.push_back("spell:" + text); }
  std::string ReportDirectory() override { return directory; }

  int timerStops = 0, focusBacks = 0;
  std::vector<double> shownInstants;
  bool closing = false;
  double fixedT = *DateSerial(2006, 7, 5) + 0.5;
  double presentUT = *DateSerial(2007, 1, 31) + 0.25;
  std::vector<std::string> spoken;
  std::string directory;
};

class PredictionWindowTest : public ::testing::Test {
 protected:
  void SetUp() override {
    // A wide first mode, so that the chart has bars every day, and a second one inside it.
    LoadModeFile(dir.File("UFMODES.JMF", "Wide,0,300,0,360\r\nMid,100,200,0,360\r\n"), storm.Modes);
    program.ObsLat = 30;
    program.ObsLong = 80;
    host.directory = dir.Path();
    s.T = host.fixedT;
  }

  Form3& Load() {
    form = std::make_unique<Form3>(host, s, storm, program, settings);
    form->SetMessageSink([this](const std::string& text) { messages.push_back(text); });
    form->Form_Load();
    form->show();
    return *form;
  }

  template <typename W = QWidget>
  W* Child(const char* name) {
    W* w = form->findChild<W*>(name);
    EXPECT_NE(w, nullptr) << name;
    return w;
  }
  std::string Text(const char* name) { return Child<QLineEdit>(name)->text().toStdString(); }
  std::vector<std::string> Boxes() { return {Text("txtYear"), Text("txtMonth"), Text("txtDay")}; }
  void Click(const char* name) { QTest::mouseClick(Child<QPushButton>(name), Qt::LeftButton); }
  void Type(const char* box, const std::string& text) {
    QLineEdit* b = Child<QLineEdit>(box);
    b->clear();
    QTest::keyClicks(b, QString::fromStdString(text));
    form->core().*Field(box) = b->text().toStdString();  // clear() is no edit of the user's
  }
  static std::string PredictionWindow::*Field(const std::string& box) {
    if (box == "txtYear") return &PredictionWindow::txtYear;
    if (box == "txtMonth") return &PredictionWindow::txtMonth;
    if (box == "txtDay") return &PredictionWindow::txtDay;
    if (box == "txtJupAltMin") return &PredictionWindow::txtJupAltMin;
    return &PredictionWindow::txtSunAltMax;
  }

  // The grid as the widget shows it.
  std::vector<std::array<std::string, kGridColumns>> ShownGrid() {
    auto* grid = Child<QTableWidget>("Grid1");
    std::vector<std::array<std::string, kGridColumns>> cells(grid->rowCount());
    for (int r = 0; r < grid->rowCount(); ++r)
      for (int c = 0; c < kGridColumns; ++c)
        if (auto* item = grid->item(r, c)) cells[r][c] = item->text().toStdString();
    return cells;
  }

  // The same report written by the storm model alone, with nothing of the window.
  std::string CoreReport(double start, double end, const std::string& into) {
    EphemerisState s2;
    s2.T = host.fixedT;
    StormValues storm2;
    storm2.Modes = storm.Modes;
    storm2.ReportStart = start;
    storm2.ReportEnd = end;
    MemorySettings settings2;
    RecordingUi ui;
    PredictionWindow core(s2, storm2, program, settings2, ui);
    core.Form_Load(false, start);
    std::filesystem::create_directories(dir.Path(into));
    core.DoReport(dir.Path(into));
    return dir.Read(into + "/" + core.FFF);
  }

  ScratchDir dir;
  EphemerisState s;
  StormValues storm;
  ProgramValues program;
  MemorySettings settings;
  RecordingHost host;
  std::vector<std::string> messages;
  std::unique_ptr<Form3> form;
};

TEST_F(PredictionWindowTest, LoadShowsTheDayOfFixedTimeTheCoreGridAndTheCaptions) {
  Load();
  EXPECT_EQ(form->windowTitle(), "Jupiter Radio Noise Storm Predictions");
  EXPECT_EQ(host.timerStops, 1);
  EXPECT_EQ(Boxes(), (std::vector<std::string>{" 2006", " 7", " 5"}));
  EXPECT_EQ(Text("txtJupAltMin"), "0");
  EXPECT_EQ(form->core().Grid1.Rows(), 3);
  EXPECT_EQ(ShownGrid(), form->core().Grid1.cells);
  EXPECT_EQ(ShownGrid()[0][2], " End");
  EXPECT_EQ(ShownGrid()[2][0], "Mid");
  // Two modes: their keys carry the names; the next three are hidden; the last one never is.
  const std::vector<std::pair<std::string, bool>> keys = {
      {"Wide", true}, {"Mid", true}, {"", false}, {"", false}, {"", false}, {"", true}};
  for (int m = 0; m < 6; ++m) {
    auto* key = Child<QLabel>(("LBLMode" + std::to_string(m)).c_str());
    EXPECT_EQ(key->text().toStdString(), keys[m].first) << m;
    EXPECT_EQ(key->isVisible(), keys[m].second) << m;
  }
  EXPECT_FALSE(Child<QPushButton>("CmdCancelReport")->isVisible());
  EXPECT_FALSE(Child<QLabel>("LBLWait")->isVisible());
  const std::vector<std::pair<const char*, const char*>> captions = {
      {"LBLDate", "GMT Date:"},
      {"cmdNow", "now"},
      {"CmdPredict", "Predict Events"},
      {"CmdNextDay", "Next Day"},
      {"CmdPrevious", "Previous Day"},
      {"Label6", "Exclude times when Sun altitude is above:"},
      {"Label9", "Exclude times when Jupiter altitude is below:"},
      {"Label7", "GMT"},
      {"Label2", "LOCAL"},
      {"Label3", "Blue background indicates Jupiter is below the horizon."},
      {"Label4", "Sun Visiblity"},
      {"CmdReport", "Report"},
      {"CmdCancelReport", "Cancel  Report"},
      {"CmdPredictPrint", "Print"},
      {"CmdExit", "Exit"},
      {"LblPrintTitle", "Jupiter Radio Noise Storm Prediction"},
  };
  for (const auto& [name, caption] : captions) {
    QWidget* w = Child(name);
    const QString text = qobject_cast<QLabel*>(w) ? qobject_cast<QLabel*>(w)->text()
                                                  : qobject_cast<QPushButton*>(w)->text();
    EXPECT_EQ(text.toStdString(), caption) << name;
  }
  EXPECT_EQ(form->palette().color(QPalette::Window), QColor(192, 192, 192));
  EXPECT_EQ(Child<QLabel>("LBLMode5")->palette().color(QPalette::Window), QColor(255, 128, 0));
}

TEST_F(PredictionWindowTest, DayButtonsStepAcrossMonthAndYearEnds) {
  const struct {
    int y, m, d;
    const char* button;
    std::vector<std::string> boxes;
  } cases[] = {
      {2006, 7, 31, "CmdNextDay", {" 2006", " 8", " 1"}},
      {2006, 1, 1, "CmdPrevious", {" 2005", " 12", " 31"}},
      {2004, 3, 1, "CmdPrevious", {" 2004", " 2", " 29"}},
      {2006, 7, 5, "CmdPredict", {"2006", "7", "5"}},
      // Day 32 of July rolls over; the boxes keep what was typed until the next step.
      {2006, 7, 32, "CmdNextDay", {" 2006", " 8", " 2"}},
  };
  Load();
  for (const auto& c : cases) {
    Type("txtYear", std::to_string(c.y));
    Type("txtMonth", std::to_string(c.m));
    Type("txtDay", std::to_string(c.d));
    Click(c.button);
    EXPECT_EQ(Boxes(), c.boxes) << c.button << " from " << c.y << "-" << c.m << "-" << c.d;
    EXPECT_EQ(ShownGrid(), form->core().Grid1.cells);
  }
  EXPECT_TRUE(messages.empty());
}

TEST_F(PredictionWindowTest, AYearBefore1900IsRefusedAndTheDayStays) {
  Load();
  const double before = form->core().PredictTime;
  Type("txtYear", "1899");
  Click("CmdPredict");
  EXPECT_EQ(messages, (std::vector<std::string>{"Dates Prior to 1900 are not permitted."}));
  EXPECT_EQ(form->core().PredictTime, before);
  EXPECT_EQ(Text("txtYear"), "1899");
}

TEST_F(PredictionWindowTest, LimitBoxesFeedTheSearchAndAreBoundedAfterIt) {
  Load();
  Type("txtJupAltMin", "100");
  Click("CmdPredict");
  EXPECT_EQ(settings.GetSetting(program.AppTitle, "Settings", "ReportJupAltMin", ""), " 100");
  EXPECT_EQ(Text("txtJupAltMin"), "90");
}

TEST_F(PredictionWindowTest, TypedReportWritesTheCoreBytesAndSpeaksItsProgress) {
  const double start = *DateSerial(2006, 7, 5);
  const std::string expected = CoreReport(start, start + 3, "core");
  Load();
  storm.ReportStart = start;
  storm.ReportEnd = start + 3;
  form->DoReport();
  EXPECT_EQ(form->core().FFF, "20060705JP.TXT");
  EXPECT_EQ(dir.Read("20060705JP.TXT"), expected);
  ASSERT_NE(expected.find("< Year 2006   Month 7   Day 8 >"), std::string::npos);
  EXPECT_EQ(host.spoken, (std::vector<std::string>{"Please Wait While report is Generated.",
                                                   "Report Generation Finished. File ",
                                                   "spell:20060705JP.TXT"}));
  // The window stands on the last day written, and the cancel button is gone.
  EXPECT_EQ(Boxes(), (std::vector<std::string>{" 2006", " 7", " 8"}));
  EXPECT_EQ(ShownGrid(), form->core().Grid1.cells);
  EXPECT_FALSE(Child("CmdCancelReport")->isVisible());
}

TEST_F(PredictionWindowTest, CancelStopsTheReportAtTheNextDay) {
  const double start = *DateSerial(2006, 7, 5);
  // The first day of the same report, and nothing after it: not even the trailer.
  std::string oneDay = CoreReport(start, start + 30, "core");
  oneDay.resize(oneDay.find("< Year 2006   Month 7   Day 6 >"));

  Load();
  storm.ReportStart = start;
  storm.ReportEnd = start + 30;
  bool visibleWhileRunning = false;
  // The click comes in at the report's first yield, as a user's would.
  QTimer::singleShot(0, form.get(), [&] {
    visibleWhileRunning = Child("CmdCancelReport")->isVisible();
    Click("CmdCancelReport");
  });
  form->DoReport();
  EXPECT_TRUE(visibleWhileRunning);
  EXPECT_EQ(dir.Read("20060705JP.TXT"), oneDay);
  EXPECT_EQ(messages, (std::vector<std::string>{"Report 20060705JP.TXT Canceled by User."}));
  EXPECT_EQ(host.spoken.back(), "Report Generation Canceled.");
  EXPECT_EQ(Boxes(), (std::vector<std::string>{" 2006", " 7", " 5"}));
  EXPECT_FALSE(Child("CmdCancelReport")->isVisible());
}

TEST_F(PredictionWindowTest, ExitDuringAReportLeavesAfterItsStop) {
  Load();
  storm.ReportStart = *DateSerial(2006, 7, 5);
  storm.ReportEnd = storm.ReportStart + 30;
  QTimer::singleShot(0, form.get(), [&] { Click("CmdExit"); });
  form->DoReport();
  EXPECT_EQ(messages, (std::vector<std::string>{"Report 20060705JP.TXT Canceled by User."}));
  EXPECT_FALSE(form->isVisible());
  EXPECT_TRUE(form->Unloaded());
  EXPECT_EQ(host.focusBacks, 1);
}

// The dialog is modal: the test answers it from inside its event loop, first with Cancel.
TEST_F(PredictionWindowTest, ReportButtonAsksForThePeriodFirst) {
  const double start = *DateSerial(2006, 7, 30);
  const std::string expected = CoreReport(start, start + 3, "core");
  Load();
  QTimer::singleShot(0, form.get(), [&] {
    auto* dialog = QApplication::activeModalWidget();
    ASSERT_NE(dialog, nullptr);
    QTest::mouseClick(dialog->findChild<QPushButton*>("cmdCancel"), Qt::LeftButton);
  });
  Click("CmdReport");
  EXPECT_FALSE(std::filesystem::exists(dir.Path("20060705JP.TXT")));
  EXPECT_TRUE(form->core().CancelReport);

  Type("txtDay", "30");
  QTimer::singleShot(0, form.get(), [&] {
    auto* dialog = dynamic_cast<formReportOptions*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->findChild<QLineEdit*>("txtSDay")->text(), "30");
    EXPECT_EQ(dialog->findChild<QLineEdit*>("txtEMonth")->text(), "08");
    QLineEdit* end = dialog->findChild<QLineEdit*>("txtEDay");
    end->clear();
    QTest::keyClicks(end, "02");
    QTest::mouseClick(dialog->findChild<QPushButton*>("cmdOK"), Qt::LeftButton);
  });
  Click("CmdReport");
  EXPECT_EQ(dir.Read("20060730JP.TXT"), expected);
  EXPECT_TRUE(host.spoken.empty());  // the window's road speaks nothing
}

// The dialog's boxes, each wired to its own check, and stored once all pass.
TEST_F(PredictionWindowTest, ReportDialogChecksEachBoxInOrderThenStores) {
  const struct {
    const char* box;
    const char* text;
    const char* message;
  } cases[] = {
      {"txtSYear", "1899", "Invalid Start Year"},
      {"txtEYear", "3001", "Invalid End Year"},
      {"txtEMonth", "13", "Invalid End Month"},
      {"txtSMonth", "0", "Invalid Start Month"},
      {"txtEDay", "32", "Invalid End Day"},
      {"txtSDay", "x", "Invalid Start Day"},
      {"txtEYear", "2005", "You entered a which occurs ending date before the start date."},
  };
  Load();
  for (const auto& c : cases) {
    RecordingUi ui;
    ReportOptions logic(form->core(), storm, program, settings, ui);
    formReportOptions dialog(logic, 0);
    QLineEdit* box = dialog.findChild<QLineEdit*>(c.box);
    box->clear();
    QTest::keyClicks(box, c.text);
    settings.writes.clear();
    dialog.cmdOK_Click();
    EXPECT_EQ(ui.messages, std::vector<std::string>{c.message}) << c.box;
    EXPECT_NE(dialog.result(), QDialog::Accepted) << c.box;
    EXPECT_TRUE(settings.writes.empty()) << c.box;
  }
  // Boxes that pass are stored.
  RecordingUi ui;
  ReportOptions logic(form->core(), storm, program, settings, ui);
  formReportOptions dialog(logic, 0);
  EXPECT_TRUE(dialog.findChild<QCheckBox*>("chkHeader")->isChecked());
  for (const char* name : {"chkHA", "chkIoOnly"})
    QTest::mouseClick(dialog.findChild<QCheckBox*>(name), Qt::LeftButton);
  QTest::mouseClick(dialog.findChild<QCheckBox*>("chkHeader"), Qt::LeftButton);
  QLineEdit* min = dialog.findChild<QLineEdit*>("txtMin");
  min->clear();
  QTest::keyClicks(min, "-5");
  settings.writes.clear();
  dialog.cmdOK_Click();
  EXPECT_EQ(dialog.result(), QDialog::Accepted);
  EXPECT_EQ(min->text(), "0");
  EXPECT_EQ(settings.writes,
            (std::vector<std::string>{"Settings/ReportMinDuration=0", "Settings/ReportHeader= 0",
                                      "Settings/ReportIncludeHA= 1", "Settings/ReportIoOnly= 1",
                                      "Settings/ReportNoNONE= 0"}));
  EXPECT_EQ(storm.ReportStart, *DateSerial(2006, 7, 5));
  EXPECT_EQ(storm.ReportEnd, *DateSerial(2006, 8, 1));
  EXPECT_FALSE(form->core().CancelReport);
}

// The chart at the pixel: what a minute shows, read back from the widget as a helper sees it.
class ChartPixels : public PredictionWindowTest {
 protected:
  QImage Chart() { return Child("Picture1")->grab().toImage(); }
  // The pixel at minute `minute` (its middle) and height y of the chart's 9.5 units.
  QColor At(const QImage& image, double minute, double y) {
    return image.pixelColor(static_cast<int>(minute * image.width() / 1440),
                            static_cast<int>(y * image.height() / 9.5));
  }
  // A minute whose predicate holds for it and its neighbours, clear of the 20-minute lines.
  int FindMinute(const std::function<bool(int)>& holds) {
    for (int i = 10; i < 1420; ++i)
      if (i % 20 >= 5 && i % 20 <= 15 && holds(i - 1) && holds(i) && holds(i + 1)) return i;
    return 0;
  }
};

TEST_F(ChartPixels, BackgroundBarsAndBandsShowTheDay) {
  Load();
  const QImage image = Chart();
  const MinuteTables& t = storm.Minutes;
  const ActivityTable& marks = storm.DayActivity;

  const int below = FindMinute([&](int i) { return t.MinuteJupAlt[i] < 0; });
  ASSERT_GT(below, 0);
  // Row 6 has no mode on it with two modes loaded: only the background shows.
  EXPECT_EQ(At(image, below - 0.5, 7), QColor(0, 0, 255));

  const int above = FindMinute(
      [&](int i) { return t.MinuteJupAlt[i] >= 0 && t.MinuteJupAlt[i] == t.MinuteJupAlt[i - 1]; });
  ASSERT_GT(above, 0);
  const int a = t.MinuteJupAlt[above];
  EXPECT_EQ(At(image, above - 0.5, 7), QColor(255, static_cast<int>(std::lround(0.6 * a + 200)),
                                              static_cast<int>(std::lround(2.8 * a))));

  // A bar stands two minutes right of its minute; mode 2 covers the lower half unit of mode 1.
  const int wide = FindMinute([&](int i) { return marks(1, i) != 0 && marks(2, i) == 0; });
  ASSERT_GT(wide, 0);
  EXPECT_EQ(At(image, wide + 1.5, 2.0), QColor(255, 255, 0));
  EXPECT_EQ(At(image, wide + 1.5, 2.75), QColor(255, 255, 0));
  const int both = FindMinute([&](int i) { return marks(1, i) != 0 && marks(2, i) != 0; });
  ASSERT_GT(both, 0);
  EXPECT_EQ(At(image, both + 1.5, 2.0), QColor(255, 255, 0));
  EXPECT_EQ(At(image, both + 1.5, 2.75), QColor(255, 0, 255));
  EXPECT_EQ(At(image, both + 1.5, 3.5), QColor(255, 0, 255));

  // The last minute of a run of mode 1 colours the place two minutes to its right, and the
  // place of the minute after the run stays clear.
  auto clear = [&](int i) { return marks(1, i) == 0 && marks(2, i) == 0; };
  int last = 0;
  for (int i = 10; i < 1420 && !last; ++i)
    if (marks(1, i) != 0 && marks(2, i) == 0 && clear(i + 1) && clear(i + 2) && clear(i + 3) &&
        i % 20 >= 3 && i % 20 <= 14)
      last = i;
  ASSERT_GT(last, 0);
  EXPECT_EQ(At(image, last + 1.5, 2.0), QColor(255, 255, 0));
  EXPECT_NE(At(image, last + 2.5, 2.0), QColor(255, 255, 0));

  // The bands, away from their numbers.
  EXPECT_EQ(image.pixelColor(2, static_cast<int>(1.3 * image.height() / 9.5)), QColor(0, 128, 0));
  EXPECT_EQ(image.pixelColor(2, static_cast<int>(9.4 * image.height() / 9.5)),
            QColor(128, 128, 128));

  const QImage sun = Child("PicSunAlt")->grab().toImage();
  const int night = FindMinute([&](int i) { return t.MinuteSunAlt[i] < 0; });
  ASSERT_GT(night, 0);
  EXPECT_EQ(sun.pixelColor(static_cast<int>((night - 0.5) * sun.width() / 1440), sun.height() / 2),
            QColor(0, 0, 0));
}

TEST_F(ChartPixels, NextDayDrawsAndDescribesTheNewDay) {
  Load();
  const QImage first = Chart();
  const std::string words = Child("Picture1")->accessibleDescription().toStdString();
  EXPECT_EQ(words, ChartInWords(form->core().Grid1, storm.Minutes));
  EXPECT_EQ(words.rfind("Wide from ", 0), 0u) << words;
  EXPECT_EQ(Child("PicSunAlt")->accessibleDescription().toStdString(), SunInWords(storm.Minutes));
  Click("CmdNextDay");
  EXPECT_NE(Chart(), first);
  const std::string next = Child("Picture1")->accessibleDescription().toStdString();
  EXPECT_EQ(next, ChartInWords(form->core().Grid1, storm.Minutes));
  EXPECT_NE(next, words);
  form->core().txtDay = " 5";
  form->CmdPredict_Click();
  EXPECT_EQ(Chart(), first);
}

TEST_F(PredictionWindowTest, MouseReadOutNamesTheMinuteUnderIt) {
  Load();
  QWidget* chart = Child("Picture1");
  const QPointF middle(chart->width() / 2.0, 10);
  QMouseEvent move(QEvent::MouseMove, middle, chart->mapToGlobal(middle), Qt::NoButton,
                   Qt::NoButton, Qt::NoModifier);
  QCoreApplication::sendEvent(chart, &move);
  EXPECT_EQ(Child<QLabel>("LBLTime")->text(), "GMT: 12:00");
  const int alt = storm.Minutes.MinuteJupAlt[720];
  char expected[32];
  std::snprintf(expected, sizeof expected, "Jup Alt %s%02d deg.", alt < 0 ? "-" : "",
                std::abs(alt));
  EXPECT_EQ(Child<QLabel>("LBLJupAlt")->text().toStdString(), expected);
}

TEST_F(PredictionWindowTest, RightClickOnTheChartPicksAnInstantForTheMainWindow) {
  Load();
  QWidget* chart = Child("Picture1");
  QTest::mouseClick(chart, Qt::RightButton, Qt::NoModifier, QPoint(chart->width() / 2, 10));
  EXPECT_DOUBLE_EQ(form->core().PredictTime, *DateSerial(2006, 7, 5) + 0.5);
  EXPECT_TRUE(form->windowTitle().startsWith("Quillmere Pro Predictions  "));
  EXPECT_TRUE(form->windowTitle().endsWith(" UT"));
  auto* menu = Child<QMenu>("mnuOtherScreens");
  EXPECT_TRUE(menu->isVisible());
  menu->actions().front()->trigger();
  EXPECT_EQ(host.shownInstants, std::vector<double>{*DateSerial(2006, 7, 5) + 0.5});
  menu->hide();
}

TEST_F(PredictionWindowTest, RightClickInTheGridOffersTheMenuOnTimesOnly) {
  Load();
  Type("txtJupAltMin", "-90");
  Type("txtSunAltMax", "90");
  Click("CmdPredict");
  auto* grid = Child<QTableWidget>("Grid1");
  auto* menu = Child<QMenu>("mnuGridActions");
  auto rightClick = [&](int row, int col) {
    menu->hide();
    QTest::mouseClick(grid->viewport(), Qt::RightButton, Qt::NoModifier,
                      grid->visualItemRect(grid->item(row, col)).center());
  };
  // Every cell: a time offers the menu; "NONE", an empty cell and the fixed cells do not.
  int times = 0, others = 0;
  for (int row = 0; row < grid->rowCount(); ++row) {
    for (int col = 0; col < kGridColumns; ++col) {
      rightClick(row, col);
      const bool time = grid->item(row, col)->text().contains(':');
      EXPECT_EQ(menu->isVisible(), time) << row << "," << col;
      ++(time ? times : others);
    }
  }
  EXPECT_GT(times, 0);
  rightClick(1, 2);
  EXPECT_EQ(form->windowTitle(), " 2     1");
  menu->hide();
  QTest::mouseClick(grid->viewport(), Qt::LeftButton, Qt::NoModifier,
                    grid->visualItemRect(grid->item(1, 1)).center());
  menu->actions().front()->trigger();
  EXPECT_EQ(form->windowTitle(), grid->item(1, 1)->text());
}

TEST_F(PredictionWindowTest, UnloadPutsTBackUnlessTheProgramCloses) {
  for (bool closing : {false, true}) {
    s.T = host.fixedT;
    Load();
    s.T = host.fixedT + 1;  // a tick in between
    host.closing = closing;
    form->Form_Unload();
    form->Form_Unload();
    EXPECT_EQ(s.T, closing ? host.fixedT + 1 : host.fixedT) << closing;
    EXPECT_TRUE(form->Unloaded());
  }
}

TEST_F(PredictionWindowTest, PrintedPageCopiesTheGridUnderTheDateOfT) {
  Load();
  Click("CmdNextDay");  // the grid moves on, the title keeps the date of T
  const auto page = form->PredictionPage([](int size) { return size / 50.0; }, 0.1);
  ASSERT_GE(page.size(), 6u);
  EXPECT_EQ(page[0].text, "JUPITER EVENT PREDICTIONS    2006/07/05    GMT");
  EXPECT_EQ(page[0].fontSize, 18);
  EXPECT_DOUBLE_EQ(page[0].x, 1);
  EXPECT_DOUBLE_EQ(page[0].y, 0.5);
  EXPECT_EQ(page[2].text, "Exclude times when Jupiter is below 0 deg.");
  EXPECT_DOUBLE_EQ(page[2].x, 0.9);
  EXPECT_EQ(page[4].text, "Quillmere Pro Software Version 1.0.1");
  // The header row: "Begin" at print column 20, " End" at 30, on the line after a blank one.
  EXPECT_EQ(page[5].text, "Begin");
  EXPECT_DOUBLE_EQ(page[5].x, 1.9);
  EXPECT_DOUBLE_EQ(page[5].y, page[4].y + 2 * 0.2);
  EXPECT_EQ(page[6].text, " End");
  EXPECT_DOUBLE_EQ(page[6].x, 2.9);
  const auto name =
      std::find_if(page.begin(), page.end(), [](const auto& t) { return t.text == "Mid"; });
  ASSERT_NE(name, page.end());
  EXPECT_DOUBLE_EQ(name->x, 0.9);

  QPrinter printer;
  printer.setOutputFormat(QPrinter::PdfFormat);
  printer.setOutputFileName(QString::fromStdString(dir.Path("page.pdf")));
  form->PrintPage(printer);
  EXPECT_EQ(dir.Read("page.pdf").substr(0, 4), "%PDF");
}

TEST_F(PredictionWindowTest, EveryControlIsNamedAndTheGridHasHeaders) {
  Load();
  QAccessibleInterface* window = QAccessible::queryAccessibleInterface(form.get());
  EXPECT_EQ(window->role(), QAccessible::Window);
  EXPECT_EQ(window->text(QAccessible::Name), "Jupiter Radio Noise Storm Predictions");
  EXPECT_EQ(Nameless(window), std::vector<std::string>{});
  // Two modes: the sixth key shows its colour without a mode and says so.
  EXPECT_EQ(QAccessible::queryAccessibleInterface(Child("LBLMode1"))->text(QAccessible::Name),
            "Mid");
  EXPECT_EQ(Child("LBLMode1")->accessibleDescription(), "Its bars on the chart are magenta.");
  EXPECT_EQ(Child("LBLMode5")->accessibleName(), "Mode 6: none");
  EXPECT_EQ(QAccessible::queryAccessibleInterface(Child("Picture1"))->role(), QAccessible::Chart);

  RecordingUi ui;
  ReportOptions logic(form->core(), storm, program, settings, ui);
  formReportOptions dialog(logic, host.presentUT);
  dialog.show();
  QAccessibleInterface* options = QAccessible::queryAccessibleInterface(&dialog);
  EXPECT_EQ(options->role(), QAccessible::Dialog);
  EXPECT_EQ(Nameless(options), std::vector<std::string>{});
  EXPECT_EQ(dialog.findChild<QLineEdit*>("txtEMonth")->accessibleName(), "Report Ends, month");

  // The grid names its cells by headers a screen reader reads; the cells keep the grid's texts.
  auto* grid = Child<QTableWidget>("Grid1");
  QAccessibleTableInterface* table = QAccessible::queryAccessibleInterface(grid)->tableInterface();
  ASSERT_NE(table, nullptr);
  const std::vector<std::string> columns = {"Mode", "Begin", " End", "Begin",
                                            " End", "Begin", " End"};
  for (int c = 0; c < kGridColumns; ++c)
    EXPECT_EQ(table->columnDescription(c).toStdString(), columns[c]) << c;
  EXPECT_EQ(table->rowDescription(1), "Wide");
  EXPECT_EQ(table->rowDescription(2), "Mid");
  EXPECT_EQ(table->cellAt(0, 1)->text(QAccessible::Name), "Begin");
  EXPECT_EQ(ShownGrid(), form->core().Grid1.cells);  // row 0 included
}

// The date boxes stand in the date order, and Tab walks each control once, the grid included,
// in the order of the date boxes on the screen.
TEST_F(PredictionWindowTest, DateOrderPlacesTheBoxesAndTabWalksThem) {
  const struct {
    int16_t DFormat;
    const char* caption;
    std::vector<std::string> boxes;
  } orders[] = {{0, "YYYY  MM  DD", {"txtYear", "txtMonth", "txtDay"}},
                {1, "MM  DD  YYYY", {"txtMonth", "txtDay", "txtYear"}},
                {2, "DD  MM  YYYY", {"txtDay", "txtMonth", "txtYear"}}};
  for (const auto& order : orders) {
    program.DFormat = order.DFormat;
    Load();
    EXPECT_EQ(Child<QLabel>("LBLDateFormat")->text(), order.caption);
    EXPECT_LT(Child(order.boxes[0].c_str())->x(), Child(order.boxes[1].c_str())->x())
        << order.caption;
    EXPECT_LT(Child(order.boxes[1].c_str())->x(), Child(order.boxes[2].c_str())->x())
        << order.caption;
    std::vector<std::string> expected = order.boxes;
    for (const char* name : {"cmdNow", "CmdPredict", "CmdPrevious", "CmdNextDay", "txtJupAltMin",
                             "txtSunAltMax", "Grid1", "CmdReport", "CmdPredictPrint", "CmdExit"})
      expected.push_back(name);
    expected.push_back(order.boxes[0]);
    Child(order.boxes[0].c_str())->setFocus();
    std::vector<std::string> walked = {order.boxes[0]};
    for (std::size_t i = 1; i < expected.size(); ++i) {
      QTest::keyClick(form->focusWidget(), Qt::Key_Tab);
      walked.push_back(form->focusWidget()->objectName().toStdString());
    }
    EXPECT_EQ(walked, expected) << order.DFormat;
    QTest::keyClick(form->focusWidget(), Qt::Key_Backtab);
    EXPECT_EQ(form->focusWidget(), Child("CmdExit"));
    EXPECT_EQ(host.focusBacks, 0);  // Tab is no character for the command line
  }
}

TEST_F(PredictionWindowTest, TheGridIsOneStopWithArrowsInside) {
  Load();
  auto* grid = Child<QTableWidget>("Grid1");
  form->activateWindow();  // focus events come to an active window only
  ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
  Child("txtSunAltMax")->setFocus();
  QTest::keyClick(form->focusWidget(), Qt::Key_Tab);
  EXPECT_EQ(form->focusWidget(), grid);
  EXPECT_EQ(grid->currentRow(), 1);  // the first time of the first mode, not the corner
  EXPECT_EQ(grid->currentColumn(), 1);
  QTest::keyClick(grid, Qt::Key_Right);
  QTest::keyClick(grid, Qt::Key_Down);
  EXPECT_EQ(grid->currentRow(), 2);
  EXPECT_EQ(grid->currentColumn(), 2);
  QTest::keyClick(grid, Qt::Key_Tab, Qt::ControlModifier);  // Ctrl+Tab leaves it as well
  EXPECT_EQ(form->focusWidget(), Child("CmdReport"));
  // A key no control wants goes to the command line of the main window, a letter in the grid too.
  QTest::keyClick(Child("txtYear"), Qt::Key_7);
  EXPECT_EQ(host.focusBacks, 0);
  QTest::keyClick(Child("CmdPredict"), Qt::Key_J);
  EXPECT_EQ(host.focusBacks, 1);
  grid->setFocus();
  QTest::keyClick(grid, Qt::Key_J);
  EXPECT_EQ(host.focusBacks, 2);
}

TEST_F(PredictionWindowTest, ButtonsWorkFromTheKeyboard) {
  Load();
  QTest::keyClick(Child("CmdNextDay"), Qt::Key_Space);
  EXPECT_EQ(Boxes(), (std::vector<std::string>{" 2006", " 7", " 6"}));
  QTest::keyClick(Child("CmdPrevious"), Qt::Key_Return);
  QTest::keyClick(Child("CmdPrevious"), Qt::Key_Enter);
  EXPECT_EQ(Boxes(), (std::vector<std::string>{" 2006", " 7", " 4"}));
  QTest::keyClick(Child("cmdNow"), Qt::Key_Space);  // the present day, and Predict is next
  EXPECT_EQ(Boxes(), (std::vector<std::string>{" 2007", " 1", " 31"}));
  EXPECT_EQ(form->focusWidget(), Child("CmdPredict"));
  EXPECT_EQ(host.focusBacks, 0);
  QTest::keyClick(Child("CmdExit"), Qt::Key_Space);
  EXPECT_FALSE(form->isVisible());
  EXPECT_TRUE(form->Unloaded());
  EXPECT_EQ(host.focusBacks, 1);
}

}  // namespace
}  // namespace quillmere
