// The report file: one search per day of the period, the grid copied into 8-bit text with
// CR LF line ends.

#include "stormmodel/report.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>

#include "stormmodel/day_search.h"
#include "stormmodel/settings_sections.h"
#include "textutil/date_time.h"
#include "textutil/latlng.h"
#include "textutil/number_text.h"

namespace quillmere {
namespace {

const char* const kCrLf = "\r\n";

std::string Trim(const std::string& s) {
  const size_t a = s.find_first_not_of(' ');
  if (a == std::string::npos) return "";
  return s.substr(a, s.find_last_not_of(' ') - a + 1);
}

std::string PadRight(std::string s, size_t width) {
  if (s.size() < width) s.append(width - s.size(), ' ');
  return s;
}

bool Contains(const std::string& s, const char* part) {
  return s.find(part) != std::string::npos;
}

std::string ReplaceAll(std::string s, const std::string& from, const std::string& to) {
  for (size_t at = s.find(from); at != std::string::npos; at = s.find(from, at + to.size()))
    s.replace(at, from.size(), to);
  return s;
}

// Row of the minute tables for a cell's clock text "hh:nn".
int TableRow(const std::string& clock) {
  auto mid = [&](size_t start, size_t length) {
    return start < clock.size() ? clock.substr(start, length) : std::string();
  };
  const double k = 60 * Val(mid(0, 2)) + Val(mid(3, 2)) + 1;
  return k >= 0 && k < kMinuteRows ? static_cast<int>(k) : 0;
}

// Every day of the period must be a date, or the loop would write a header without its end date.
bool PeriodIsDates(double start, double end) {
  const double span = end - start;
  const double lastDay = start + (span > 0 ? Int(span) : 0);
  return SplitDateTime(start) && std::isfinite(span) && SplitDateTime(lastDay);
}

}  // namespace

std::string FormatDate(double value, int16_t DFormat, std::string& DateOrderText) {
  const DateOrder* order = DateOrderOf(DFormat);
  if (!order) return "";
  DateOrderText = order->reportOrder;
  return FormatDateTime(value, order->pattern);
}

std::string ReferenceCoordinates(const ProgramValues& program) {
  return "Reference Coordinates:  Longitude " +
         ShownLongitude(program.ObsLong, program.DisplayWest) + " " + program.DisplayWest +
         "     Latitude " + LatToText(program.ObsLat);
}

std::string ReportFileName(double ReportStart) {
  return FormatDateTime(ReportStart, "yyyymmdd") + "JP.TXT";
}

void PredictionWindow::CmdReport_Click(const std::string& directory) {
  if (const auto date = ReadDateBoxes(txtYear, txtMonth, txtDay).date) PredictTime = *date;
  ui_.ShowReportOptions();
  if (CancelReport) {
    ReportRunning = 0;
    return;
  }
  Report(false, directory);
}

void PredictionWindow::DoReport(const std::string& directory) {
  Report(true, directory);
}

ReportFile::ReportFile(const std::string& path) : f_(std::fopen(path.c_str(), "wb")) {
  if (!f_) error_ = errno;
}

bool ReportFile::Write(const std::string& text) {
  if (f_ && std::fwrite(text.data(), 1, text.size(), f_) != text.size()) error_ = errno;
  return error_ == 0;
}

bool ReportFile::Close() {
  if (f_ && std::fclose(f_) != 0 && error_ == 0) error_ = errno;
  f_ = nullptr;
  return error_ == 0;
}

std::string ReportHeader(const ReportHeading& h, std::string& DateOrderText) {
  const std::string first = FormatDate(h.start, h.DFormat, DateOrderText);
  const std::string last = FormatDate(h.end, h.DFormat, DateOrderText);
  return std::string("JUPITER EVENT PREDICTIONS") + kCrLf + kCrLf + "Report Period  (GMT) " +
         first + "  to  " + last + "    ( " + ReplaceAll(DateOrderText, "  ", "/") + " )" + kCrLf +
         h.referenceCoordinates + kCrLf + "Exclude times when Jupiter is below " + h.JupAltMin +
         " deg." + kCrLf + "Exclude times when Sun is above " + h.SunAltMax + " deg." + kCrLf +
         "Include only events that last at least " + NumberText(h.MinDuration) + " minutes." +
         kCrLf + "Quillmere Pro Software Version " + h.VersionText +
         // Only a report of the precise ephemeris says so; the classic line stays as it was.
         (h.model == EphemerisModel::Precise ? " (precise ephemeris)" : "") + kCrLf + kCrLf;
}

std::string ReportDay(double dayValue, const PredictionGrid& grid, int rows,
                      const MinuteTables& minutes, const ReportChoices& choices,
                      const std::function<void()>& afterRow) {
  const auto date = SplitDateTime(dayValue);
  std::string day = "< Year " + std::to_string(date->year) + "   Month " +
                    std::to_string(date->month) + "   Day " + std::to_string(date->day) + " >" +
                    kCrLf + kCrLf;
  for (int r = 0; r <= rows; ++r) {
    std::string rowText, haText;
    for (int c = 0; c < kGridColumns; ++c) {
      const std::string& G = grid.TextMatrix(r, c);
      std::string cell = " " + G;
      std::string entry;
      if (r > 0 && choices.IncludeHA && !G.empty()) {
        if (c == 0)
          entry = " Hr Ang    ";
        else if (!Trim(G).empty() && !Contains(cell, "NONE"))
          entry = PadRight(Format(minutes.MinuteJupHA[TableRow(G)], "00.0"), 10);
        else
          entry = std::string(10, ' ');
      }
      cell = PadRight(cell, 10);
      if (Contains(cell, "NONE")) cell += kCrLf;
      rowText += cell;
      haText += entry;
    }
    if (afterRow) afterRow();

    if (choices.IoOnly && Contains(rowText, "Begin")) rowText = rowText.substr(0, 30);
    if (choices.IoOnly && !Contains(rowText, "Io") && !Contains(rowText, "Begin") &&
        !Contains(rowText, "Month"))
      continue;
    if (Contains(rowText, "NONE") && choices.NoNONE) continue;
    day += rowText + kCrLf;
    if (r > 0 && !Contains(rowText, "NONE") && choices.IncludeHA && Trim(haText) != "Hr Ang")
      day += haText + kCrLf + kCrLf;
  }
  return day + std::string(31, '_') + kCrLf;
}

ReportOutcome WriteReport(const ModeTable& modes, const ReportRequest& r,
                          const std::string& directory) {
  ReportOutcome outcome{ReportFileName(r.start), ""};
  if (!PeriodIsDates(r.start, r.end)) {
    outcome.error = kDateOutOfRange;
    return outcome;
  }
  ProgramValues place;
  place.ObsLat = r.ObsLat;
  place.ObsLong = r.ObsLong;
  place.DisplayWest = r.DisplayWest;
  ReportFile file((std::filesystem::path(directory) / outcome.file).string());
  std::string DateOrderText;
  const ReportHeading heading{r.start,
                              r.end,
                              r.DFormat,
                              ReferenceCoordinates(place),
                              PlainNumber(r.JupAltMin),
                              PlainNumber(r.SunAltMax),
                              r.MinDuration,
                              r.VersionText,
                              r.model};
  bool written = file.Write(ReportHeader(heading, DateOrderText));

  EphemerisState s;
  s.model = r.model;
  s.T = r.start;
  SearchLimits limits{r.JupAltMin, r.SunAltMax, r.MinDuration};
  const int rows = UsableModes(modes);
  for (double day = r.start; written; day += 1) {
    // The window's search reads each limit from the number text of its box and writes it back
    // the same way; for a limit of at most seven digits that changes nothing.
    limits.JupAltMin = StoredLimit(limits.JupAltMin);
    limits.SunAltMax = StoredLimit(limits.SunAltMax);
    const DayPrediction d = SearchDay(s, day, r.ObsLat, r.ObsLong, modes, limits);
    limits.JupAltMin = StoredLimit(limits.JupAltMin);
    limits.SunAltMax = StoredLimit(limits.SunAltMax);
    const std::string text =
        ReportDay(day, GridOf(modes, d.DayActivity), rows, d.Minutes, r.choices);
    if (Contains(text, ":")) written = file.Write(text + kCrLf);
    if (day + 1 > r.end) break;
  }
  if (written) file.Write(kEndOfReport);
  if (!file.Close()) outcome.error = ReportSaveError(outcome.file, file.error());
  return outcome;
}

std::string ReportSaveError(const std::string& file, int error) {
  return "There was an error trying to save " + file + "  " + std::strerror(error);
}

void PredictionWindow::Report(bool typed, const std::string& directory) {
  // Every day of the period must be a date, or the loop would show one message per day and
  // write a header without its end date: refused before anything is written.
  if (!PeriodIsDates(storm_.ReportStart, storm_.ReportEnd)) {
    ui_.ShowMessage(kDateOutOfRange);
    if (typed) ui_.SpeakThis(kDateOutOfRange);
    return;
  }
  ReportRunning = -1;
  CmdCancelReportVisible = true;
  PredictTime = storm_.ReportStart;
  FFF = ReportFileName(PredictTime);
  if (typed) ui_.SpeakThis("Please Wait While report is Generated.");

  ReportFile file((std::filesystem::path(directory) / FFF).string());
  auto finish = [&] {
    if (!typed) return;
    if (!CancelReport) {
      ui_.SpeakThis("Report Generation Finished. File ");
      ui_.SpeakCharacters(FFF);
    } else {
      ui_.SpeakThis("Report Generation Canceled.");
    }
  };
  auto failed = [&] {
    ui_.SpeakThis(ReportSaveError(FFF, file.error()));
    ReportRunning = 0;
    file.Close();
    finish();
  };
  if (file.error()) return failed();

  if (typed || storm_.ReportHeader) {
    const ReportHeading heading{storm_.ReportStart,
                                storm_.ReportEnd,
                                program_.DFormat,
                                ReferenceCoordinates(program_),
                                txtJupAltMin,
                                txtSunAltMax,
                                storm_.ReportMinDuration,
                                program_.VersionText,
                                s_.model};
    const std::string header = ReportHeader(heading, storm_.DateOrderText);
    if (!file.Write(header)) return failed();
  }

  bool cancelled = false;
  for (;;) {
    if (CancelReport) {
      ui_.ShowMessage("Report " + FFF + " Canceled by User.");
      file.Close();
      ReportRunning = 0;
      cancelled = true;
      break;
    }
    WriteDateBoxes();
    DoPredictions();

    const int rows = std::min(UsableModes(storm_.Modes), Grid1.Rows() - 1);
    const std::string day =
        ReportDay(PredictTime, Grid1, rows, storm_.Minutes,
                  {storm_.ReportIncludeHA, storm_.ReportIoOnly, storm_.ReportNoNONE},
                  [this] { ui_.Yield(); });
    if (Contains(day, ":") && !file.Write(day + kCrLf)) return failed();

    PredictTime += 1;
    if (PredictTime > storm_.ReportEnd) break;
  }

  if (!cancelled && !file.Write(kEndOfReport)) return failed();
  CmdCancelReportVisible = false;
  ReportRunning = 0;
  if (!file.Close()) return failed();
  finish();
}

}  // namespace quillmere
