#include "stormmodel/forecast.h"

#include <cmath>

namespace quillmere {

std::vector<ForecastEvent> Forecast(const ModeTable& modes, const ForecastRequest& request) {
  std::vector<ForecastEvent> out;
  EphemerisState s;
  s.model = request.model;
  s.T = request.start;
  for (int k = 0; k < request.days; ++k) {
    const double day = request.start + k;
    const DayPrediction d =
        SearchDay(s, day, request.ObsLat, request.ObsLong, modes, request.limits);
    const MinuteTables& t = d.Minutes;
    for (const DayEvent& e : d.events) {
      ForecastEvent f;
      f.day = std::floor(day);
      f.mode = e.mode;
      f.name = modes.ModeName[e.mode];
      f.ioRelated = f.name.find("Io") != std::string::npos;
      f.begin = e.begin;
      f.end = e.end;
      // Table row r stands for the grid's clock minute r - 1.
      f.JupAltBegin = t.MinuteJupAlt[e.begin + 1];
      f.JupAltEnd = t.MinuteJupAlt[e.end + 1];
      f.SunAltBegin = t.MinuteSunAlt[e.begin + 1];
      f.SunAltEnd = t.MinuteSunAlt[e.end + 1];
      out.push_back(std::move(f));
    }
  }
  return out;
}

}  // namespace quillmere
