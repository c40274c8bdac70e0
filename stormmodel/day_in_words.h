#pragma once
// A predicted day said in words, for whoever cannot see the chart: the events of the grid, the
// hours of Jupiter above the horizon and of the Sun up, all in UT.

#include <string>

#include "ephemeris/ephemeris.h"
#include "stormmodel/prediction.h"

namespace quillmere {

// "Io-B from 20:27 to 21:17 UT." for each mode with events, in the grid's order; "No predicted
// events." when no mode has any.
std::string EventsInWords(const PredictionGrid& grid);

// "Jupiter above the horizon from 04:57 to 17:30 UT.", or "... all day.", or "Jupiter below the
// horizon all day.", from the minute table of Jupiter's altitude.
std::string JupiterInWords(const MinuteTables& tables);

// "Sun up from 11:50 to 21:24 UT.", "Sun up all day." or "Sun down all day."
std::string SunInWords(const MinuteTables& tables);

// The day chart: the events, then Jupiter, then the Sun.
std::string ChartInWords(const PredictionGrid& grid, const MinuteTables& tables);

}  // namespace quillmere
