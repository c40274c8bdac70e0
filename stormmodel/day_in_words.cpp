#include "stormmodel/day_in_words.h"

#include <array>
#include <utility>
#include <vector>

namespace quillmere {
namespace {

// "from A to B and from C to D", the spans given as start and end clock texts.
std::string Spans(const std::vector<std::pair<std::string, std::string>>& spans) {
  std::string text;
  for (const auto& [from, to] : spans) {
    if (!text.empty()) text += " and ";
    text += "from " + from + " to " + to;
  }
  return text;
}

// The minutes at or above the horizon as spans. Row i of a minute table is the clock minute
// i - 1, so a span ends at the clock minute of its first row below the horizon ("24:00" when it
// lasts to the end of the day).
std::string AboveInWords(const std::array<int16_t, kMinuteRows>& altitude, const char* body,
                         const char* up, const char* down) {
  std::vector<std::pair<std::string, std::string>> spans;
  int rows = 0;
  for (int i = 1; i <= kDayMinutes;) {
    if (altitude[i] < 0) {
      ++i;
      continue;
    }
    const int start = i;
    while (i <= kDayMinutes && altitude[i] >= 0) ++i;
    rows += i - start;
    spans.emplace_back(MinutesToClock(start - 1), MinutesToClock(i - 1));
  }
  const std::string name = body;
  if (rows == kDayMinutes) return name + " " + up + " all day.";
  if (rows == 0) return name + " " + down + " all day.";
  return name + " " + up + " " + Spans(spans) + " UT.";
}

}  // namespace

std::string EventsInWords(const PredictionGrid& grid) {
  std::string text;
  for (int r = 1; r < grid.Rows(); ++r) {
    std::vector<std::pair<std::string, std::string>> spans;
    for (int c = 1; c + 1 < kGridColumns; c += 2) {
      const std::string& begin = grid.TextMatrix(r, c);
      if (begin.empty() || begin == "NONE") break;
      spans.emplace_back(begin, grid.TextMatrix(r, c + 1));
    }
    if (spans.empty()) continue;
    if (!text.empty()) text += " ";
    text += grid.TextMatrix(r, 0) + " " + Spans(spans) + " UT.";
  }
  return text.empty() ? "No predicted events." : text;
}

std::string JupiterInWords(const MinuteTables& tables) {
  return AboveInWords(tables.MinuteJupAlt, "Jupiter", "above the horizon", "below the horizon");
}

std::string SunInWords(const MinuteTables& tables) {
  return AboveInWords(tables.MinuteSunAlt, "Sun", "up", "down");
}

std::string ChartInWords(const PredictionGrid& grid, const MinuteTables& tables) {
  return EventsInWords(grid) + " " + JupiterInWords(tables) + " " + SunInWords(tables);
}

}  // namespace quillmere
