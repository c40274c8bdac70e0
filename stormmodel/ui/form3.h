#pragma once
// The prediction window: the day chart, the grid and the buttons over the prediction core. The
// core (PredictionWindow) holds the boxes' text, the grid and the report state; this window
// shows them, and a widget edited by hand writes straight into the core, so a typed command and
// a mouse click do the same work on the same data.

#include <QWidget>
#include <array>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "stormmodel/prediction.h"
#include "stormmodel/settings_store.h"

class QAction;
class QGridLayout;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QMenu;
class QPainter;
class QPrinter;
class QPushButton;
class QTableWidget;

namespace quillmere {

// What the prediction window needs of the main window.
class Form3Host {
 public:
  virtual ~Form3Host() = default;
  virtual void StopTimer() = 0;                      // Form_Load step 1
  virtual void FocusMainWindow() = 0;                // Form_KeyPress, CmdExit_Click
  virtual void ShowForThisTime(double instant) = 0;  // UpdateOtherViews
  virtual bool ProgramClosing() = 0;
  virtual bool RealTime() = 0;
  virtual double FixedT() = 0;
  virtual double TimeZone() = 0;   // the local band of the chart
  virtual double PresentUT() = 0;  // cmdNow
  virtual void SpeakThis(const std::string& text) = 0;
  virtual void SpeakCharacters(const std::string& text) = 0;
  // The folder where reports are written: the program's directory.
  virtual std::string ReportDirectory() = 0;
};

class PictureBox;

// One line of the printed page: where it starts on the paper, in inches from the top left of
// the printable area, and how it looks.
struct PrintedText {
  double x = 0;
  double y = 0;
  int fontSize = 10;
  std::string text;
};

class Form3 : public QWidget, public PredictionSession, private StormUi {
  Q_OBJECT  // a class name of its own, for its accessible role

 public:
  Form3(Form3Host& host, EphemerisState& s, StormValues& storm, const ProgramValues& program,
        SettingsStore& settings, QWidget* parent = nullptr);
  ~Form3() override;

  // The boxes, Grid1, PredictTime, FFF, CancelReport live here.
  PredictionWindow& core() override;

  void Form_Load();
  // The handlers: each runs the core's and then shows its result.
  void CmdPredict_Click() override;
  void CmdNextDay_Click() override;
  void CmdPrevious_Click();
  void cmdNow_Click();
  void CmdReport_Click();
  void DoReport() override;
  void CmdCancelReport_Click();
  void CmdExit_Click();
  // Puts T back unless the program is closing; the caller deletes the window after it.
  void Form_Unload();

  // Shows the core's boxes, grid and chart again after the core was changed directly.
  void Refresh() override;

  // Prints the day in the grid; where no printer is installed, offers a PDF file instead.
  void CmdPredictPrint_Click();
  // The printed page of the day in the grid; `lineHeight` gives a line's height in inches at a
  // font size, as the printer measures it.
  std::vector<PrintedText> PredictionPage(const std::function<double(int)>& lineHeight,
                                          double columnWidth);
  // Lays the page out on a printer that is set up already, and ends the document.
  void PrintPage(QPrinter& printer);

  // True once Form_Unload has run: the owner makes a new window for the next use.
  bool Unloaded() const { return unloaded_; }
  // Where the window's messages go instead of a modal box (the main window's own message
  // boxes, or a test's record). Empty: a modal box.
  void SetMessageSink(std::function<void(const std::string&)> sink) {
    messageSink_ = std::move(sink);
  }

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  // What the core asks of the window.
  void ShowMessage(const std::string& text) override;
  void SpeakThis(const std::string& text) override;
  void SpeakCharacters(const std::string& text) override;
  void Yield() override;
  void ShowReportOptions() override;
  void DayPredicted() override;

  void BuildControls();
  void ArrangeDateBoxes();
  // Tab walks the date boxes, the day buttons, the limit boxes, the grid, then the report, page
  // and window buttons.
  void SetTabOrder();
  // A character key pressed here goes back to the main window's command line.
  void Form_KeyPress(QKeyEvent* event);
  void DescribeChart();
  void ClearChart();
  void DrawChart();
  void HourBar(QPainter& p);
  void SunAltBar();
  void ShowCore();
  void ShowGrid();
  void AfterReport();
  void Picture1_MouseMove(QMouseEvent* event);
  void Picture1_MouseDown(QMouseEvent* event);
  void Grid1_MouseEvent(QMouseEvent* event);
  void mnuShowForThisTime_Click();
  void mnuAddToPlanner_Click();
  void UpdateOtherViews();
  // Runs a handler of the core and shows its result.
  void Run(const std::function<void()>& handler);
  bool eventFilter(QObject* watched, QEvent* event) override;

  Form3Host& host_;
  EphemerisState& s_;
  StormValues& storm_;
  const ProgramValues& program_;
  SettingsStore& settings_;
  PredictionWindow core_;
  // The day the chart shows: a refresh draws it again, whoever has refilled the tables since.
  struct DrawnDay {
    MinuteTables minutes;
    ActivityTable marks;
  };
  std::unique_ptr<DrawnDay> drawn_;
  bool unloaded_ = false;
  bool exitAfterReport_ = false;
  std::function<void(const std::string&)> messageSink_;

  QLabel *LBLDate = nullptr, *LBLDateFormat = nullptr;
  QLineEdit *txtYear = nullptr, *txtMonth = nullptr, *txtDay = nullptr;
  QLineEdit *txtJupAltMin = nullptr, *txtSunAltMax = nullptr;
  QPushButton *cmdNow = nullptr, *CmdPredict = nullptr, *CmdNextDay = nullptr,
              *CmdPrevious = nullptr;
  QPushButton *CmdReport = nullptr, *CmdCancelReport = nullptr, *CmdPredictPrint = nullptr,
              *CmdExit = nullptr;
  PictureBox *Picture1 = nullptr, *PicSunAlt = nullptr;
  std::array<QLabel*, kActivityModes> LBLMode{};
  QLabel *LBLTime = nullptr, *LBLJupAlt = nullptr, *LBLJupHA = nullptr, *LBLSunAlt = nullptr;
  QLabel* LBLWait = nullptr;
  QTableWidget* Grid1 = nullptr;
  QMenu *mnuOtherScreens = nullptr, *mnuGridActions = nullptr;
  QAction *mnuShowForThisTime = nullptr, *mnuAddToPlanner = nullptr;
  QHBoxLayout* dateBoxes_ = nullptr;
};

}  // namespace quillmere
