#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "speech/help.h"
#include "speech/punctuation.h"
#include "speech/recording_voice.h"
#include "speech/speaker.h"
#include "speech/text_voice.h"
#include "storm_test_support.h"

namespace quillmere {
namespace {

using Call = RecordingVoice::Call;
using testing::ScratchDir;

// A text handed in and the text that should come out.
struct TextCase {
  const char* in;
  const char* out;
};

TEST(RewriteCaption, TurnsCaptionsIntoWords) {
  const TextCase cases[] = {
      {"Jupiter RA: 12:34", "Jupiter  Right Ascension  12 hours and 34 minutes."},
      {"Sun DEC: -12:05", "Sun  Declination  -12 degrees and 05 minutes."},
      {"Jupiter HA: -03:21", "Jupiter  hour angle  -03 hours and 21 minutes."},
      {"Jupiter AZ: 123.4", "Jupiter  azimuth  123.4"},
      {"Sun EL: 12.3", "Sun  elevation  12.3"},
      {"CML:  215.37", " System three longitude   215.37"},
      {" LMST: 12:34:56", " Local Mean Sidereal Time  12:34:56"},
      // Every colon of an hours text goes, not only the first.
      {"Sun RA: 12:34:56", "Sun  Right Ascension  12 hours and 34 hours and 56 minutes."},
      // Only the first matching sexagesimal row acts: its colons are gone for the next.
      {"RA: 1:2 DEC: 3:4", " Right Ascension  1 hours and 2 DEC hours and  3 hours and 4 minutes."},
      // Texts that match no row.
      {"Jupiter Rise: 06:12  Set: 17:40", "Jupiter Rise: 06:12  Set: 17:40"},
      {"Io Phase: 123.45", "Io Phase: 123.45"},
      {"CMIII:  215.37", "CMIII:  215.37"},
      {"Io SGC:  98.10", "Io SGC:  98.10"},
      {"ra: 12:34", "ra: 12:34"},
      {"", ""},
      // A reply that repeats the user's words is left alone; the guard is case-sensitive.
      {"az: not recognized. You are in Normal Mode.",
       "az: not recognized. You are in Normal Mode."},
      {"RA: 1:2 not recognized.", "RA: 1:2 not recognized."},
      {"AZ: Recognized", " azimuth  Recognized"},
  };
  for (const auto& c : cases) EXPECT_EQ(RewriteCaption(c.in), c.out) << c.in;
}

TEST(CvtLngSpoken, RewritesInPlaceAndReturns) {
  const TextCase cases[] = {
      {"35:12:06.0", "35 degrees 12 minutes 06.0 seconds "},
      {"35:12", "35 degrees 12 minutes "},
      {"35.5", "35.5"},
      {"12:34:56:7", "12 degrees 34 minutes 567 seconds "},
      {"-5:30", "-5 degrees 30 minutes "},
      {":", " degrees  minutes "},
  };
  for (const auto& c : cases) {
    std::string t = c.in;
    EXPECT_EQ(cvtLngSpoken(t), c.out) << c.in;
    EXPECT_EQ(t, c.out) << c.in;
  }
}

struct SpeakerFixture : ::testing::Test {
  RecordingVoice voice;
  std::vector<std::string> seenAtYield;  // the caption as it stood at each yield
  std::string caption;
  std::function<void(int)> onYield = [](int) {};
  Speaker speaker{voice, [this] {
                    seenAtYield.push_back(caption);
                    onYield(static_cast<int>(seenAtYield.size()));
                  }};
};

TEST_F(SpeakerFixture, SpeakCaptionYieldsRewritesYieldsThenSpeaks) {
  caption = "Sun EL: 12.3";
  speaker.SpeakCaption(caption);
  EXPECT_EQ(seenAtYield, (std::vector<std::string>{"Sun EL: 12.3", "Sun  elevation  12.3"}));
  EXPECT_EQ(caption, "Sun  elevation  12.3");
  caption = "";  // nothing is still spoken
  speaker.SpeakCaption(caption);
  EXPECT_EQ(voice.calls,
            (std::vector<Call>{{"Sun  elevation  12.3", SVSFDefault}, {"", SVSFDefault}}));
}

TEST_F(SpeakerFixture, CancelFlagSilencesCaptionsButNotTheRest) {
  speaker.CancelFlag = -1;
  caption = "Jupiter AZ: 123.4";
  speaker.SpeakCaption(caption);
  EXPECT_EQ(caption, "Jupiter  azimuth  123.4");  // still rewritten for the caller
  speaker.SpeakThis("Report written.");
  speaker.SpeakCharacters("J.");
  EXPECT_EQ(voice.calls, (std::vector<Call>{{"Report written.", 0}, {"J", 0}, {"dot", 0}}));
  EXPECT_EQ(speaker.CancelFlag, -1);
}

TEST_F(SpeakerFixture, EscDuringEitherYieldSilencesTheCaption) {
  for (int at : {1, 2}) {
    voice.calls.clear();
    seenAtYield.clear();
    speaker.CancelFlag = 0;
    onYield = [&](int n) {
      if (n == at) speaker.CancelFlag = -1;
    };
    caption = "Sun EL: 1";
    speaker.SpeakCaption(caption);
    EXPECT_TRUE(voice.calls.empty()) << "Esc at yield " << at;
  }
}

TEST_F(SpeakerFixture, SpeakCharactersOneCallEach) {
  const struct {
    const char* in;
    std::vector<std::string> said;
  } cases[] = {
      {"1.2.3", {"1", "dot", "2", "dot", "3"}},
      {"", {}},
      {"V 1", {"V", " ", "1"}},
      {"\xC3\xA9.", {"\xC3\xA9", "dot"}},  // a letter of two bytes stays whole
  };
  for (const auto& c : cases) {
    voice.calls.clear();
    speaker.SpeakCharacters(c.in);
    EXPECT_EQ(voice.Texts(), c.said) << c.in;
    for (const auto& call : voice.calls) EXPECT_EQ(call.flags, SVSFDefault);
  }
}

TEST(PronouncePunctuation, NamesMarksKeepsLettersAndDigits) {
  const TextCase cases[] = {{".", "dot"},
                            {"a", "a"},
                            {" ", "space"},
                            {"7", "7"},
                            {":", "colon"},
                            {"-5.5", "minus 5 dot 5"},
                            {"35:12", "35 colon 12"},
                            {"", ""}};
  for (const auto& c : cases) EXPECT_EQ(PronouncePunctuation(c.in), c.out) << c.in;
}

TEST(TextVoice, OneLinePerUtteranceOneVoiceAndARate) {
  std::ostringstream out;
  TextVoice voice(out);
  Speaker speaker(voice, [] {});
  voice.Speak("Welcome.", SVSFDefault);
  voice.Speak("45", SVSFlagsAsync);
  voice.Speak("", SVSFDefault);  // no sound, no line
  voice.Speak("two\nlines\r\n", SVSFDefault);
  speaker.SpeakCharacters("1.0");
  voice.Speak(",", SVSFNLPSpeakPunc);
  EXPECT_EQ(out.str(), "Welcome.\n45\ntwo lines  \n1\ndot\n0\n,\n");
  EXPECT_EQ(voice.GetVoices(), std::vector<std::string>{"Text"});
  EXPECT_EQ(voice.GetDescription(), "Text");
  voice.SetRate(-4);
  EXPECT_EQ(voice.Rate(), -4);
}

// --- the spoken help

TEST(LoadHelpLines, TakesLinesLongerThanTwoThatAreNoComments) {
  ScratchDir dir;
  const std::string path = dir.File("SpkHlp.txt",
                                    "\xEF\xBB\xBFWelcome.\r\n"
                                    "ab\n"
                                    "abc\n"
                                    "\n"
                                    "\\\\ a note for the editor\n"
                                    "\\ single backslash\n"
                                    "   \n"
                                    "  indented line\r\n"
                                    "xy\r\n"
                                    "\xC3\xA9t\n"  // two characters in three bytes
                                    "last line without end");
  EXPECT_EQ(LoadHelpLines(path),
            (std::vector<std::string>{"Welcome.", "abc", "\\ single backslash", "   ",
                                      "  indented line", "last line without end", "", ""}));
}

TEST(LoadHelpLines, MissingEmptyAndOverlongFiles) {
  ScratchDir dir;
  EXPECT_EQ(LoadHelpLines(dir.Path("nothing.txt")), std::vector<std::string>(1001));
  EXPECT_EQ(LoadHelpLines(dir.Path()), std::vector<std::string>(1001));  // a directory
  EXPECT_FALSE(FileExists(dir.Path()));
  EXPECT_EQ(LoadHelpLines(dir.File("e.txt", "ab\n\\\\ note\n")), std::vector<std::string>(2));

  std::string many;
  for (int i = 0; i < 1200; ++i) many += "line " + std::to_string(i) + "\n";
  const auto lines = LoadHelpLines(dir.File("many.txt", many));
  ASSERT_EQ(lines.size(), 1003u);
  EXPECT_EQ(lines[1000], "line 1000");
  EXPECT_EQ(lines[1001], "");
  EXPECT_TRUE(FileExists(dir.Path("many.txt")));
}

TEST(LoadHelpLines, LongLinesAreCutAtSixtyFourKilobytesAndAFileAtFourMegabytes) {
  ScratchDir dir;
  const std::size_t cut = 1 << 16;
  // A line just at the room, one beyond it (cut, and the next line still found), one whose cut
  // falls inside a two-byte character (the half character goes), one without any line end.
  const std::string exact(cut, 'a');
  const std::string longer = std::string(cut + 10, 'b');
  const std::string split = std::string(cut - 1, 'c') + "\xC3\xA9" + "tail";
  const auto lines =
      LoadHelpLines(dir.File("long.txt", exact + "\r\n" + longer + "\nnext line\n" + split + "\n" +
                                             std::string(3 * cut, 'd')));
  ASSERT_EQ(lines.size(), 7u);
  EXPECT_EQ(lines[0], exact);
  EXPECT_EQ(lines[1], std::string(cut, 'b'));
  EXPECT_EQ(lines[2], "next line");
  EXPECT_EQ(lines[3], std::string(cut - 1, 'c'));
  EXPECT_EQ(lines[4], std::string(cut, 'd'));

  // 100 lines of 64 KB: reading stops once 4 MB are taken.
  std::string big;
  for (int i = 0; i < 100; ++i) big += std::string(cut, static_cast<char>('A' + i % 26)) + "\n";
  const auto taken = LoadHelpLines(dir.File("big.txt", big));
  EXPECT_EQ(taken.size(), 64u + 2);
  EXPECT_EQ(taken[63], std::string(cut, static_cast<char>('A' + 63 % 26)));
}

struct HelpFixture : ::testing::Test {
  RecordingVoice voice;
  std::function<void()> onYield = [] {};
  int yields = 0;
  Speaker speaker{voice, [this] {
                    ++yields;
                    onYield();
                  }};
  HelpWalk walk;

  // The F1 key: a step with NewRun 0, then steps while they say more is to come.
  int F1() {
    int steps = 1;
    for (bool more = walk.Step(speaker, 0); more; more = walk.Step(speaker)) ++steps;
    return steps;
  }
};

TEST_F(HelpFixture, WalkSaysEveryLineInOrderAndSkipsBlankOnes) {
  walk.lines = {"Type J E for elevation.", "   ", "Press Escape to stop.", "", ""};
  walk.index = 3;  // left over from an earlier walk
  EXPECT_EQ(F1(), 5);
  EXPECT_EQ(voice.calls, (std::vector<Call>{{"Type J E for elevation.", SVSFDefault},
                                            {"Press Escape to stop.", SVSFDefault}}));
  EXPECT_EQ(yields, 5);
  EXPECT_EQ(walk.index, 1);  // past the end the index goes to 1, not 0
}

TEST_F(HelpFixture, EscStopsBetweenLinesAndTheNextF1StartsAtTheTop) {
  walk.lines = {"One.", "Two.", "Three.", "", ""};
  voice.onSpeak = [&](const std::string& text, int) {
    if (text == "One.") speaker.CancelFlag = -1;
  };
  EXPECT_EQ(F1(), 2);
  EXPECT_EQ(voice.Texts(), std::vector<std::string>{"One."});
  EXPECT_EQ(speaker.CancelFlag, 0);  // lowered by the step that found it
  EXPECT_EQ(walk.index, 1);          // left where it was

  voice.onSpeak = nullptr;
  voice.calls.clear();
  F1();
  EXPECT_EQ(voice.Texts(), (std::vector<std::string>{"One.", "Two.", "Three."}));
}

TEST_F(HelpFixture, EscDuringTheLastLineIsStillSeenAndLoweredAndNewRunSetsTheIndex) {
  walk.lines = {"Only line.", "", ""};
  voice.onSpeak = [&](const std::string&, int) { speaker.CancelFlag = -1; };
  EXPECT_EQ(F1(), 2);
  EXPECT_EQ(speaker.CancelFlag, 0);

  voice.onSpeak = nullptr;
  voice.calls.clear();
  walk.lines = {"One.", "Two.", "Three.", "", ""};
  EXPECT_TRUE(walk.Step(speaker, 2));
  EXPECT_EQ(voice.Texts(), std::vector<std::string>{"Three."});
  EXPECT_EQ(walk.index, 3);
}

TEST_F(HelpFixture, MissingOrEmptyListsSaySilentlyNothing) {
  walk.lines = std::vector<std::string>(1001);  // a missing file
  EXPECT_EQ(F1(), 1001);
  EXPECT_TRUE(voice.calls.empty());

  for (std::size_t size : {0u, 1u}) {
    walk.lines = std::vector<std::string>(size, "Never said.");
    yields = 0;
    EXPECT_FALSE(walk.Step(speaker, 0));
    EXPECT_EQ(yields, 0);
  }
  EXPECT_TRUE(voice.calls.empty());
}

TEST_F(HelpFixture, AWalkInsideAWalkSharesTheIndex) {
  walk.lines = {"One.", "Two.", "Three.", "", ""};
  bool nested = false;
  onYield = [&] {
    if (nested) return;
    nested = true;  // F1 pressed again while "One." is said
    F1();
  };
  F1();
  // The inner walk says all three and leaves the index at 1; the outer one goes on from there.
  EXPECT_EQ(voice.Texts(), (std::vector<std::string>{"One.", "One.", "Two.", "Three.", "Three."}));
}

}  // namespace
}  // namespace quillmere
