#pragma once
// quillmere-cli predict, report and forecast: a day's prediction grid, the typed report's file
// and the events of a period.

#include <string>

#include "cli/args.h"
#include "ephemeris/ephemeris_state.h"
#include "stormmodel/mode_table.h"

namespace quillmere::cli {

extern const char* const kPredictUsage;
extern const char* const kReportUsage;

extern const char* const kForecastUsage;

int Predict(const Args& args);
int Report(const Args& args);
int ForecastCommand(const Args& args);

// The text of a limit as the window's box would hold it; UsageError if it is no number.
std::string NumberArgument(const Args& args, const std::string& option, const char* fallback);
// A UT day of 1900 or later.
double DayArgument(const Args& args, const std::string& option);
// The ephemeris of --ephemeris: classic (the default) or precise; UsageError for anything else,
// or for precise where this build lacks it.
EphemerisModel EphemerisArgument(const Args& args);
// The mode file of --modes, or the one beside the tool; false (its message printed) when it fails.
bool LoadModes(const Args& args, ModeTable& modes);

}  // namespace quillmere::cli
