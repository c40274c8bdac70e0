#pragma once
// quillmere-cli predict and report: a day's prediction grid and the typed report's file.

#include "cli/args.h"

namespace quillmere::cli {

extern const char* const kPredictUsage;
extern const char* const kReportUsage;

int Predict(const Args& args);
int Report(const Args& args);

}  // namespace quillmere::cli
