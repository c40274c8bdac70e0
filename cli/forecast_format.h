#pragma once
// A forecast's events as text for people, CSV and JSON for programs, and an iCalendar file
// (RFC 5545) for any calendar. Times are UT; `local` adds this machine's local time.

#include <string>
#include <vector>

#include "stormmodel/forecast.h"

namespace quillmere::cli {

// Days from 30 December 1899 to 1 January 1970.
inline constexpr double kUnixEpoch = 25569;

std::string ForecastText(const std::vector<ForecastEvent>& events, const ForecastRequest& r,
                         bool local);
std::string ForecastCsv(const std::vector<ForecastEvent>& events, bool local);
std::string ForecastJson(const std::vector<ForecastEvent>& events, const ForecastRequest& r,
                         bool local);
// `stamp` is the moment the file is made (DTSTAMP), as a date-time value in UT.
std::string ForecastIcs(const std::vector<ForecastEvent>& events, const ForecastRequest& r,
                        double stamp);

}  // namespace quillmere::cli
