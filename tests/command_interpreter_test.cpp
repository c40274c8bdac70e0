// The command line of both modes without Qt: the whole program headless, a fixed clock, settings
// in memory and a recording voice. The words are the window's.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "fixed_platform.h"
#include "mainwindow/startup.h"
#include "speech/headless_prediction.h"
#include "speech/program_session.h"
#include "speech/recording_voice.h"
#include "storm_test_support.h"
#include "textutil/date_time.h"
#include "typed_sessions.h"

namespace quillmere::testing {
namespace {

// What a front end without a window does for the commands: no timer, no screen.
class Headless : public CommandHost, public ProgramView {
 public:
  explicit Headless(SessionPlatform platform) : session(std::move(platform), *this, *this) {}
  void SwitchToFixedTime() override {
    session.NewTime();
    session.DisplayTimes();
    session.DisplayInfo();
    session.VisualAlert();
  }
  void SwitchToRealTime() override { session.ResumeRealTime(); }
  void NewTime() override { session.NewTime(); }
  void FillObLabel() override { session.FillObLabel(); }
  void ClearCommandLine() override { ++cleared; }
  void FocusCommandLine() override {}
  void FocusMainWindow() override {}
  void Quit() override { ++quits; }
  void ShowMessage(const std::string& text) override {
    session.platform.messages->Show(session.p.AppTitle, text);
  }
  PredictionSession& Prediction() override {
    if (!prediction) {
      prediction = std::make_unique<HeadlessPrediction>(session, [] {});
      prediction->Form_Load();
    }
    return *prediction;
  }
  void ShowPrediction() override { Prediction(); }
  void ClosePrediction() override {
    if (prediction) prediction->Form_Unload();
    prediction.reset();
  }
  void ShowCaption(const std::string&, const std::string&) override {}

  ProgramSession session;
  std::unique_ptr<HeadlessPrediction> prediction;
  int cleared = 0, quits = 0;
};

class Interpreter : public ::testing::Test {
 protected:
  void SetUp() override {
    PutProgramFiles(dir.Path());
    std::ofstream(dir.Path("SpkHlp.txt")) << "Normal help.\nFirst help line.\n";
    settings.SaveSetting(kAppTitle, "Settings", "Latitude", " 30");
    settings.SaveSetting(kAppTitle, "Settings", "Longitude", " 80");
    program =
        std::make_unique<Headless>(SessionPlatform{&clock, &settings, &messages, dir.Path(), {}});
    ProgramSession& s = program->session;
    s.LoadHelpAndZone();
    auto v = std::make_unique<RecordingVoice>(std::vector<std::string>{"Alpha", "Beta"}, 2);
    voice = v.get();
    s.StartVoice(std::move(v), [] {});
    s.LoadStateAndModes();
    s.FillObLabel();
    s.Welcome();
    s.Tick();
  }
  // The last thing said for a line entered.
  std::string Said(const std::string& line) {
    voice->calls.clear();
    program->session.commands->Enter(line);
    return voice->calls.empty() ? "(nothing)" : voice->calls.back().text;
  }

  ScratchDir dir;
  FixedClock clock;
  MemorySettings settings;
  RecordedMessages messages;
  RecordingVoice* voice = nullptr;
  std::unique_ptr<Headless> program;
};

TEST_F(Interpreter, NormalModeRepliesAsTheWindowGivesThem) {
  for (const Reply& step : kNormalReplies) EXPECT_EQ(Said(step.typed), step.said) << step.typed;
  EXPECT_EQ(program->session.p.ObsLat, 45.5f);
  EXPECT_EQ(settings.GetSetting(kAppTitle, "Startup", "AnnounceDelay", ""), "10");
  EXPECT_EQ(program->cleared, static_cast<int>(std::size(kNormalReplies)));
  program->session.commands->Enter("q");
  EXPECT_EQ(program->quits, 1);
}

TEST_F(Interpreter, PredictionModeWithoutAWindow) {
  for (const Reply& step : kPredictionReplies) EXPECT_EQ(Said(step.typed), step.said) << step.typed;
  EXPECT_TRUE(std::filesystem::exists(dir.Path("20060705JP.TXT")));
  EXPECT_EQ(program->prediction, nullptr);
}

TEST_F(Interpreter, ReadingDaysStopsAtEscAndReturnsToTheFirstDay) {
  for (const char* typed : {"p", "t", "07/05/2006", "d", "2"}) Said(typed);
  voice->calls.clear();
  program->session.commands->Enter("r");
  const auto texts = voice->Texts();
  ASSERT_GE(texts.size(), 3u);
  EXPECT_EQ(texts.front(), " Predictions for 07/05/2006 .");
  EXPECT_EQ(texts[1], "Mode Io-A");
  EXPECT_NE(std::find(texts.begin(), texts.end(), " Predictions for 07/06/2006 ."), texts.end());
  EXPECT_EQ(program->prediction->core().txtDay, "5");
  program->session.commands->Escape();
  EXPECT_EQ(Said("r"), "Prediction Reed canceled.");
}

TEST_F(Interpreter, KeysReadBackAndWalkTheHelpOfTheMode) {
  voice->calls.clear();
  program->session.commands->ReadBack("j`e.");
  EXPECT_EQ(voice->Texts(), (std::vector<std::string>{"j", "e", "."}));
  EXPECT_EQ(CommandInterpreter::WithoutAccents("j`e.`"), "je.");
  voice->calls.clear();
  program->session.commands->F1();
  EXPECT_EQ(voice->Texts(), (std::vector<std::string>{"Normal help.", "First help line."}));
  Said("p");
  voice->calls.clear();
  program->session.commands->F1();
  EXPECT_EQ(voice->Texts(), (std::vector<std::string>{"Prediction help."}));
}

}  // namespace
}  // namespace quillmere::testing
