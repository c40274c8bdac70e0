// The main window as a user meets it: started with a fixed clock, a recording voice and an empty
// store, typed at with key events, heard through what the voice was given.

#include <QAccessible>
#include <QLabel>

#include "accessible_test_support.h"
#include "ephemeris/precise.h"
#include "form1_test_support.h"
#include "mainwindow/display.h"
#include "mainwindow/entry.h"
#include "typed_sessions.h"

namespace quillmere {
namespace {

using Call = RecordingVoice::Call;

class MainWindow : public testing::Form1Test {
 protected:
  std::string Said(const std::string& line) {
    const auto calls = Type(line);
    return calls.empty() ? "<nothing>" : calls.back().text;
  }
};

TEST_F(MainWindow, SaysWhichEngineSpeaksOnceAfterTheWelcome) {
  voiceNotice = "The voice you hear is espeak-ng, because speech-dispatcher is not installed.";
  Start();
  EXPECT_EQ(voice->calls, (std::vector<Call>{{testing::kWelcome, 0}, {voiceNotice, 0}}));
  voice->calls.clear();
  Tick(1);
  EXPECT_EQ(Said("VR"), "Speech Rate  2");
}

TEST_F(MainWindow, StartsTicksAndCloses) {
  std::filesystem::create_directories(dir / "empty");
  Form1& f = Start(dir / "empty");  // no mode file, no help
  EXPECT_EQ(messages.shown,
            std::vector<std::string>{"FILE ERROR!|Error  53 Occurred Loading " +
                                     (dir / "empty").string() + "/UFMODES.JMF.\r\nFile Not Found"});
  // What the boxes and the standard error stream would have told is said after the welcome.
  const std::string empty = (dir / "empty").string();
  EXPECT_EQ(voice->Texts(), (std::vector<std::string>{
                                testing::kWelcome,
                                "Speech help file " + empty + "/SpkHlp.txt not found.",
                                "Predict help file " + empty + "/PredictHlp.txt not found.",
                                "Error  53 Occurred Loading " + empty + "/UFMODES.JMF.",
                                "File Not Found",
                            }));
  f.show();
  EXPECT_EQ(f.windowTitle().toStdString(), "Quillmere Speech Edition.  1.0.1");
  EXPECT_EQ(f.Caption("LBLOB"), "Lat : 30:00:00.0\r\nLong: 80:00:00.0 W");
  EXPECT_EQ(f.Caption("LBLJupAlt"), "EL: -69.2");
  EXPECT_EQ(f.Caption("LblJUPAZ"), "AZ: 320.3");
  EXPECT_EQ(f.Caption("LBLSunAlt"), "EL: 20.0");
  EXPECT_EQ(f.Caption("LblJupRA"), "RA: 14:27");
  EXPECT_EQ(f.Caption("LblJupDEC"), "DEC: -13:22");
  EXPECT_EQ(f.Caption("LBlCMIII"), "CML:  203.74");
  EXPECT_EQ(f.Caption("LbLSGC"), "Io Phase: 007.00");
  EXPECT_EQ(f.Caption("LbLSunRise"), "Rise: 10:23");
  EXPECT_EQ(f.Caption("LbLSunSet"), "Set: 00:16");
  EXPECT_EQ(f.Caption("LBLLMST"), " LMST: 01:33:22");
  EXPECT_EQ(f.findChild<QLineEdit*>("txtY")->text(), "2006");
  EXPECT_EQ(f.findChild<QLineEdit*>("txtH")->text(), "12");
  voice->calls.clear();
  f.close();
  EXPECT_EQ(voice->Texts(), std::vector<std::string>{"Quillmere Speech Edition Closing."});
}

TEST_F(MainWindow, ReadingsMenusAndEntries) {
  Start();
  for (const auto& step : testing::kNormalReplies) {
    const auto calls = Type(step.typed);
    ASSERT_FALSE(calls.empty()) << step.typed;
    EXPECT_EQ(calls.back().text, step.said) << step.typed;
    EXPECT_EQ(form->input()->text(), "") << step.typed;
  }
}

TEST_F(MainWindow, TwoStepEntriesChangeAndStore) {
  Start();
  EXPECT_EQ(Said("lat"), "Latitude 30 degrees 00 minutes 00.0 seconds ");
  EXPECT_EQ(Said("je"), "Jupiter  elevation  -69.2");  // a reading between the two steps
  const auto calls = Type("45:30");
  EXPECT_EQ(calls, (std::vector<Call>{{"Latitude changed to 45 degrees 30 minutes ", 1}}));
  EXPECT_EQ(form->state().ObsLat, 45.5f);
  EXPECT_EQ(form->Caption("LBLOB"), "Lat : 45:30:00.0\r\nLong: 80:00:00.0 W");
  EXPECT_EQ(settings.writes, std::vector<std::string>{"Settings/Latitude= 45.5"});

  EXPECT_EQ(Said("lng"), "Longitude 80 degrees 00 minutes 00.0 seconds ");
  EXPECT_EQ(Said("-75:30"), "Longitude changed to 75 degrees 30 minutes ");
  EXPECT_EQ(form->state().ObsLong, 284.5f);

  const struct {
    const char *first, *value, *said;
  } entries[] = {
      {"AD", "10", "Announce Delay changed to 10minutes."},
      {"VR", "11", "11"},  // out of range: echoed, nothing changes
      {"VR", "-2.5", "Speech Rate changed to -2.5"},
      {"TZ", "-5", "Time Zone changed to -5"},
      {"VT", "1", "Speech Voice changed to Beta"},
      {"LAT", "91", "91"},
      {"LONG", "5", "5 not recognized."},  // LONG reads but takes no value
  };
  for (const auto& e : entries) {
    Type(e.first);
    EXPECT_EQ(Said(e.value), e.said) << e.first << " " << e.value;
    EXPECT_EQ(form->state().PendingCommand, "") << e.first;
  }
  EXPECT_EQ(voice->Rate(), -2);  // halves to even
  EXPECT_EQ(form->state().TimeZone, -5);
  EXPECT_EQ(form->state().AnnounceDelay, 10);
  EXPECT_EQ(Said("tz"), "Time Zone -5");
  EXPECT_EQ(Said("ad"), "Announce Delay. 10 minutes.");
  EXPECT_EQ(Said("vt"), "Speech Type Beta. available voices are  0  Alpha.  1  Beta. ");
}

TEST_F(MainWindow, FixedAndRealTime) {
  Start();
  EXPECT_EQ(Said("t"), "Real Time Mode.  Current Time 07/05/2006 12:00:00");
  EXPECT_EQ(Said("ft"), "Fixed Time Mode.  Current Time 07/05/2006 12:00:00");
  EXPECT_FALSE(form->Timer1().isActive());
  EXPECT_EQ(form->Caption("LBlCMIII"), "CMIII:  203.74");
  EXPECT_EQ(form->Caption("LbLSGC"), "Io SGC: 007.00");
  const auto calls = Type("13:00:00");  // a time alone keeps the date
  EXPECT_EQ(calls, (std::vector<Call>{{"New Fixed Time. 07/05/2006 13:00:00", 1}}));
  EXPECT_EQ(Said("ft"), "Fixed Time Mode.  Current Time 07/05/2006 13:00:00");
  EXPECT_EQ(Said("12/25/2010 06:30:00"), "New Fixed Time. 12/25/2010 06:30:00");
  Type("ft");
  EXPECT_EQ(Said("99"),
            "12/25/2010  99 was not understood as a date or a time. The time stays as it was.");
  EXPECT_EQ(Said("t"), "Fixed Time Mode.  Current Time 12/25/2010 06:30:00");
  clock.now += 1.0 / 24;
  EXPECT_EQ(Said("rt"), "Real Time Mode.  Current Time 07/05/2006 13:00:00");
  EXPECT_TRUE(form->Timer1().isActive());
}

TEST_F(MainWindow, EscSilencesRepliesUntilASummaryEnds) {
  Start();
  QTest::keyClick(form->input(), Qt::Key_Escape);
  EXPECT_EQ(form->speaker().CancelFlag, -1);
  EXPECT_EQ(Type("je"), (std::vector<Call>{}));
  // Silent, then the flag is lowered and the empty reply goes out.
  EXPECT_EQ(Type("s*"), (std::vector<Call>{{"", 0}}));
  EXPECT_EQ(Said("je"), "Jupiter  elevation  -69.2");
}

TEST_F(MainWindow, Summaries) {
  Start();
  const auto sun = Type("s*");
  EXPECT_EQ(sun, (std::vector<Call>{{"Sun  elevation  20.0", 0},
                                    {"Sun  azimuth  074.4", 0},
                                    {"Sun  hour angle  -05 hours and 17 minutes.", 0},
                                    {"Sun  Right Ascension  06 hours and 51 minutes.", 0},
                                    {"Sun  Declination  22 degrees and 56 minutes.", 0},
                                    {"Sun Rise: 10:23 Set: 00:16", 0},
                                    {"", 0}}));
  const auto jup = Type("*");
  ASSERT_EQ(jup.size(), 10u);
  EXPECT_EQ(jup[0].text, "Jupiter  azimuth  320.3");
  EXPECT_EQ(jup[1].text, "Jupiter  elevation  -69.2");
  EXPECT_EQ(jup[5].text, "Jupiter Rise: 19:27  Set: 06:24");
  EXPECT_EQ(jup[6].text, "Jupiter Possible Activity:  Non-A   ");
  EXPECT_EQ(jup[7].text, "Io Phase: 007.00");
  EXPECT_EQ(jup[8].text, " System three longitude   203.74");
}

TEST_F(MainWindow, TimedAnnouncementSaysSunThenJupiter) {
  Form1& f = Start();
  Type("as");
  Type("aj");
  voice->calls.clear();
  f.Timer1_Timer();
  EXPECT_EQ(voice->calls.size(), 0u);  // no delay set
  Type("ad");
  Type("1");
  voice->calls.clear();
  f.Timer1_Timer();
  ASSERT_EQ(voice->calls.size(), 15u);
  EXPECT_EQ(voice->calls[0].text, "Sun  elevation  20.0");
  EXPECT_EQ(voice->calls[6].text, "Jupiter  azimuth  320.3");
  voice->calls.clear();
  clock.now += 30.0 / 86400;
  f.Timer1_Timer();
  EXPECT_EQ(voice->calls.size(), 0u);  // not a minute yet
}

TEST_F(MainWindow, GraveAccentReadsTheLineBack) {
  Start();
  QTest::keyClicks(form->input(), "je.");
  voice->calls.clear();
  QTest::keyClicks(form->input(), "`");
  EXPECT_EQ(voice->calls, (std::vector<Call>{{"j", 64}, {"e", 64}, {".", 64}}));
  EXPECT_EQ(form->input()->text(), "je.");
}

TEST_F(MainWindow, VersionAndPredictionModeByKeyboard) {
  Start();
  Type("ver");
  EXPECT_EQ(voice->Texts(),
            (std::vector<std::string>{"Version ", "1", "dot", "0", "dot", "1", ""}));
  // In prediction mode, with the prediction window loaded, from the first line until the last.
  for (const auto& step : testing::kPredictionReplies) {
    EXPECT_EQ(Said(step.typed), step.said) << step.typed;
    const bool last = &step == std::end(testing::kPredictionReplies) - 1;
    EXPECT_EQ(form->state().PredictMode, last ? 0 : -1) << step.typed;
    EXPECT_EQ(form->Form3Loaded(), !last) << step.typed;
  }
  EXPECT_TRUE(std::filesystem::exists(dir / "20060705JP.TXT"));
}

TEST_F(MainWindow, AReadingOrReportPastTheLastDateIsRefusedWithOneMessage) {
  Start();
  const struct {
    const char *date, *days;
  } cases[] = {{"12/25/9999", "12"}, {"07/05/2006", "1e308"}, {"07/05/2006", "1e400"}};
  for (const auto& c : cases) {
    for (const char* typed : {"p", "t", c.date, "d", c.days}) Type(typed);
    for (const char* command : {"sr", "r"}) {
      messages.shown.clear();
      EXPECT_EQ(Said(command), "Date Out of Range.") << c.date << " " << c.days << " " << command;
      EXPECT_EQ(voice->Texts().size(), 1u) << command;
      EXPECT_EQ(messages.shown,
                std::vector<std::string>{std::string(testing::kApp) + "|Date Out of Range."});
    }
  }
  EXPECT_FALSE(std::filesystem::exists(dir / "99991225JP.TXT"));
  EXPECT_FALSE(std::filesystem::exists(dir / "20060705JP.TXT"));
  // Seven days from 12/25/9999 can be read, but their report would end a day later.
  for (const char* typed : {"t", "12/25/9999", "d", "7"}) Type(typed);
  EXPECT_EQ(Said("sr"), "Date Out of Range.");
  // Six days read from 12/25/9999 end on the last date there is: no refusal.
  for (const char* typed : {"t", "12/25/9999", "d", "6"}) Type(typed);
  messages.shown.clear();
  EXPECT_EQ(Said("r"), "");
  EXPECT_EQ(messages.shown, std::vector<std::string>{});
}

TEST_F(MainWindow, ReadingDaysAloud) {
  Start();
  for (const char* typed : {"p", "t", "07/05/2006", "d", "2"}) Type(typed);
  const auto texts = [this] {
    std::vector<std::string> t;
    for (const Call& c : Type("r")) t.push_back(c.text);
    return t;
  }();
  ASSERT_GE(texts.size(), 3u);
  EXPECT_EQ(texts.front(), " Predictions for 07/05/2006 .");
  EXPECT_EQ(texts[1], "Mode Io-A");
  const auto second = std::find(texts.begin(), texts.end(), " Predictions for 07/06/2006 .");
  EXPECT_NE(second, texts.end());
  EXPECT_EQ(texts.back(), "");  // the reading itself was the answer
  // The window is back on the first day.
  EXPECT_EQ(form->GetForm3().core().txtDay, "5");

  for (const char* typed : {"i", "d", "1"}) Type(typed);
  const auto io = Type("r");
  ASSERT_FALSE(io.empty());
  EXPECT_EQ(io.front().text, "'I' 'O' related  Predictions for 07/05/2006 .");
  for (const Call& c : io) EXPECT_NE(c.text, "Mode Non-A");
}

TEST_F(MainWindow, UsersOwnCopiesWinAndAStoredModeFileWinsOverAll) {
  const auto user = dir / "user", installed = dir / "installed";
  std::filesystem::create_directories(user);
  std::filesystem::create_directories(installed);
  std::ofstream(installed / "UFMODES.JMF") << "Installed,200,270,195,265\r\n";
  std::ofstream(installed / "SpkHlp.txt") << "Installed help.\n";
  std::ofstream(installed / "PredictHlp.txt") << "Installed prediction help.\n";
  std::ofstream(user / "UFMODES.JMF") << "Mine,0,359,0,360\r\n";
  std::ofstream(user / "PredictHlp.txt") << "My prediction help.\n";
  dataFolders = {user.string(), {installed.string()}};
  Start();
  EXPECT_EQ(form->state().ModeFileName, (user / "UFMODES.JMF").string());
  EXPECT_EQ(form->modes().ModeName[1], "Mine");
  voice->calls.clear();
  QTest::keyClick(form->input(), Qt::Key_F1);
  EXPECT_EQ(voice->Texts(), std::vector<std::string>{"Installed help."});
  Type("p");
  voice->calls.clear();
  QTest::keyClick(form->input(), Qt::Key_F1);
  EXPECT_EQ(voice->Texts(), std::vector<std::string>{"My prediction help."});
  EXPECT_TRUE(messages.shown.empty());

  std::ofstream(dir / "other.JMF") << "Stored,1,2,3,4\r\n";
  settings.SaveSetting(testing::kApp, "Startup", "ModeFileName", (dir / "other.JMF").string());
  form.reset();
  Start();
  EXPECT_EQ(form->modes().ModeName[1], "Stored");
}

TEST_F(MainWindow, StartupNoticeFollowsTheWelcome) {
  const std::string notice = "Reports are written in your home folder.";
  beforeLoad = [&](Form1& f) { f.AddStartupNotice(notice); };
  Start();
  EXPECT_EQ(voice->Texts(), (std::vector<std::string>{testing::kWelcome, notice}));
}

// The alert heard: each new set of modes in force is said once, through SpeakThis, when the
// setting asks for it. A third region starts while the second stands, then both end.
TEST_F(MainWindow, ActivityAlertIsSaidOncePerNewSetOfModes) {
  std::ofstream(dir / "UFMODES.JMF")
      << "Io-A,200,270,195,265\r\nNon-A,200,260,0,360\r\nLate,230,300,0,360\r\n";
  settings.SaveSetting(testing::kApp, "Startup", "AnnounceActivity", "1");
  Start();  // 12:00 UT: CML 203.74 lies in Non-A
  EXPECT_EQ(voice->calls,
            (std::vector<Call>{{testing::kWelcome, 0}, {"Possible Activity:  Non-A   ", 0}}));
  std::vector<std::string> said;
  const auto tickMinutes = [&](int minutes) {
    for (int i = 0; i < minutes; ++i) {
      voice->calls.clear();
      Tick(60);
      for (const Call& c : voice->calls) said.push_back(c.text);
    }
  };
  tickMinutes(180);  // to 15:00, past the end of every region
  EXPECT_EQ(said, (std::vector<std::string>{"Possible Activity:  Late   Non-A   ",
                                            "Possible Activity:  Late   "}));
  // The clock set back: the same set that stood before is new again after a time without one.
  said.clear();
  clock.now -= 3.0 / 24;
  tickMinutes(1);
  EXPECT_EQ(said, std::vector<std::string>{"Possible Activity:  Non-A   "});
  // The same set standing second after second is not said again, nor on entering fixed time.
  voice->calls.clear();
  for (int i = 0; i < 5; ++i) Tick(1);
  EXPECT_EQ(voice->calls, std::vector<Call>{});
  Type("ft");
  EXPECT_EQ(voice->Texts(),
            std::vector<std::string>{"Fixed Time Mode.  Current Time 07/05/2006 12:01:05"});
}

// The stored ephemeris acts from the first tick on; a word it does not know reads as classic.
TEST_F(MainWindow, StoredEphemerisChoosesTheModel) {
  std::map<std::string, std::string> cml;
  for (const char* stored : {"classic", "precise", "Precise", "sky"}) {
    settings.SaveSetting(testing::kApp, "Settings", "Ephemeris", stored);
    cml[stored] = Start().Caption("LBlCMIII");
    EXPECT_EQ(form->ephemeris().model, std::string(stored) == "precise" && PreciseEphemerisBuilt()
                                           ? EphemerisModel::Precise
                                           : EphemerisModel::Classic)
        << stored;
  }
  EXPECT_EQ(cml["Precise"], cml["classic"]);
  EXPECT_EQ(cml["sky"], cml["classic"]);
  if (PreciseEphemerisBuilt()) {
    EXPECT_NE(cml["precise"], cml["classic"]);
  }
}

TEST_F(MainWindow, ActivityAlertIsSilentUnlessTurnedOn) {
  const double noon = clock.now;
  for (const char* setting : {"", "0", "yes", " 1", "True"}) {
    if (*setting) settings.SaveSetting(testing::kApp, "Startup", "AnnounceActivity", setting);
    clock.now = noon;
    Start();
    EXPECT_EQ(form->Caption("LBLQ"), "Possible Activity:  Non-A   ") << setting;
    for (int i = 0; i < 120; ++i) Tick(60);  // Non-A ends meanwhile
    for (const std::string& text : voice->Texts())
      EXPECT_EQ(text.find("Possible"), std::string::npos) << "setting '" << setting << "'";
  }
}

TEST_F(MainWindow, ControlsAreNamedForScreenReaders) {
  Form1& f = Start();
  f.show();
  QAccessibleInterface* window = QAccessible::queryAccessibleInterface(&f);
  ASSERT_NE(window, nullptr);
  EXPECT_EQ(window->role(), QAccessible::Window);
  EXPECT_EQ(window->text(QAccessible::Name), "Quillmere Speech Edition.  1.0.1");
  EXPECT_EQ(testing::Nameless(window), std::vector<std::string>{});
  for (const char* name : {"Year", "Month", "Day", "Hour", "Minutes", "Seconds"}) {
    const std::string box = std::string("txt") + (name[0] == 'M' && name[1] == 'i' ? 'N' : name[0]);
    QAccessibleInterface* a =
        QAccessible::queryAccessibleInterface(f.findChild<QLineEdit*>(box.c_str()));
    ASSERT_NE(a, nullptr) << box;
    EXPECT_EQ(a->text(QAccessible::Name), name) << box;
    EXPECT_EQ(a->text(QAccessible::Description), name) << box;
  }
  // A value label is read by its caption: no fixed name, the tool tip as its description.
  for (QLabel* label : f.findChildren<QLabel*>()) {
    if (label->objectName() == "PicJupIcon") continue;
    EXPECT_TRUE(label->accessibleName().isEmpty()) << label->objectName().toStdString();
  }
  QAccessibleInterface* el =
      QAccessible::queryAccessibleInterface(f.findChild<QLabel*>("LBLJupAlt"));
  EXPECT_EQ(el->text(QAccessible::Name), "EL: -69.2");
  EXPECT_EQ(el->text(QAccessible::Description), "Jupiter Elevation");
  // The alert label stands hidden while it has nothing to say.
  auto* alert = f.findChild<QLabel*>("LBLQ");
  EXPECT_FALSE(alert->isHidden());
  clock.now += 2.0 / 24;  // past Non-A
  f.Timer1_Timer();
  EXPECT_EQ(f.Caption("LBLQ"), "");
  EXPECT_TRUE(alert->isHidden());
}

// A stored place far out of range still shows (the start, the ticks and the new day from such
// values are the settings file test's). 1e30 west puts sidereal time beyond any clock: the label
// keeps what it had.
TEST_F(MainWindow, StoredPlacesFarOutOfRangeStillShow) {
  const std::map<std::string, std::string> cases[] = {
      {{"Longitude", "1e30"}},
      {{"Latitude", "-1e38"}, {"Longitude", "3e38"}},
      {{"Longitude", "-1e30"}, {"Latitude", "1e30"}},
      {{"Longitude", "4e38"}, {"Latitude", "nan"}, {"DFormat", "1e9"}},
  };
  for (const auto& values : cases) {
    Store(values);
    EXPECT_FALSE(Start().Caption("LBLOB").empty()) << values.begin()->second;
  }
  Store({{"Latitude", " 30"}, {"Longitude", "1e30"}});
  Start();
  EXPECT_EQ(form->Caption("LBLLMST"), "");
  EXPECT_EQ(Said("lmst"), "");
}

TEST(Display, Captions) {
  const struct {
    float hours;
    std::optional<std::string> caption;
  } lmst[] = {
      {23.9999f, " LMST: 23:59:59"},
      {0, " LMST: 00:00:00"},
      {25.5f, " LMST: 01:30:00"},  // a western longitude below 0 leaves it above 24
      {32767.5f, " LMST: 07:30:00"},
      {-0.5f, " LMST: 23:30:00"},
      {32768, std::nullopt},
      {-32769, std::nullopt},
      {-6.6666e28f, std::nullopt},
      {std::numeric_limits<float>::infinity(), std::nullopt},
      {std::numeric_limits<float>::quiet_NaN(), std::nullopt},
  };
  for (const auto& c : lmst) EXPECT_EQ(LmstCaption(c.hours), c.caption) << c.hours;
  ProgramState p;
  p.DisplayWest = "W";
  EXPECT_EQ(ObserverCaption(p), "Lat : 0:00:00.0\r\nLong: 0:00:00.0 W");
  p.DisplayWest = "E";
  p.ObsLong = 350;
  EXPECT_EQ(ObserverCaption(p), "Lat : 0:00:00.0\r\nLong: 10:00:00.0 E");

  EphemerisState s;
  Captions c;
  s.JupRA = 23.5;
  s.LMST = 0.5f;
  s.SunRA = 0.5;
  s.SunRise = 3;
  p.UseGMT = 0;
  p.TimeZone = -5;
  DisplayInfo(p, s, c);
  EXPECT_EQ(c.LBLJupHA, "HA: 01:00");  // -23 folds up
  EXPECT_EQ(c.LBLSunHA, "HA: 00:00");
  EXPECT_EQ(c.LbLSunRise, "Rise: 22:00");
  s.LMST = 23.5f;
  s.JupRA = 0.5;
  s.JupAlt = -5.25;
  DisplayInfo(p, s, c);
  EXPECT_EQ(c.LBLJupHA, "HA: 23:00");  // no fold from above
  EXPECT_EQ(c.LBLJupAlt, "EL: -05.3");
}

TEST(Entry, ValuesAndCommands) {
  for (const char* value :
       {"45", "-5.5", "35:12:06", "07/04/2006", "12:30:00", "1E3", "07/04/2006 12:30:00", "+.5"})
    EXPECT_TRUE(IsValueEntry(value)) << value;
  for (const char* command : {"JE", "E", "", "LAT", "J*", "REAL TIME", "1E", "12:30X"})
    EXPECT_FALSE(IsValueEntry(command)) << command;
  EXPECT_EQ(ParseDateTimeEntry("07/04/2006  12:30:15"),
            *DateSerial(2006, 7, 4) + TimeSerial(12, 30, 15));
  EXPECT_FALSE(ParseDateTimeEntry("02/30/2006"));
  EXPECT_FALSE(ParseDateTimeEntry("25:00"));
  const std::array<const char*, 3> menus[] = {{"A", "", "JA"}, {"A", "S", "SA"}, {"A", "LAT", "JA"},
                                              {"I", "", "I"},  {"I", "J", "JI"}, {"C", "S", "C"},
                                              {"*", "S", "S*"}};
  for (const auto& [letter, menu, command] : menus)
    EXPECT_EQ(WithMenuLetter(letter, menu), command) << letter << " in " << menu;
}

}  // namespace
}  // namespace quillmere
