// The report file: one search per day of the period, the grid copied into 8-bit text with
// CR LF line ends.

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>

#include "stormmodel/prediction.h"
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

class ReportFile {
 public:
  explicit ReportFile(const std::string& path) : f_(std::fopen(path.c_str(), "wb")) {
    if (!f_) error_ = errno;
  }
  ~ReportFile() { Close(); }
  ReportFile(const ReportFile&) = delete;
  ReportFile& operator=(const ReportFile&) = delete;

  bool Write(const std::string& text) {
    if (f_ && std::fwrite(text.data(), 1, text.size(), f_) != text.size()) error_ = errno;
    return error_ == 0;
  }
  bool Close() {
    if (f_ && std::fclose(f_) != 0 && error_ == 0) error_ = errno;
    f_ = nullptr;
    return error_ == 0;
  }
  int error() const { return error_; }

 private:
  std::FILE* f_;
  int error_ = 0;
};

}  // namespace

std::string FormatDate(double value, int16_t DFormat, std::string& DateOrderText) {
  switch (DFormat) {
    case 0:
      DateOrderText = "YYYY  MM  DD";
      return FormatDateTime(value, "YYYY/MM/DD");
    case 1:
      DateOrderText = "MM  DD YYYY";
      return FormatDateTime(value, "MM/DD/YYYY");
    case 2:
      DateOrderText = "DD  MM  YYYY";
      return FormatDateTime(value, "DD/MM/YYYY");
    default:
      return "";
  }
}

std::string ReferenceCoordinates(const ProgramValues& program) {
  const std::string longitude = program.DisplayWest == "W"
                                    ? LongToText(program.ObsLong)
                                    : LongToText(static_cast<float>(360 - program.ObsLong));
  return "Reference Coordinates:  Longitude " + longitude + " " + program.DisplayWest +
         "     Latitude " + LatToText(program.ObsLat);
}

std::string ReportFileName(double ReportStart) {
  return FormatDateTime(ReportStart, "yyyymmdd") + "JP.TXT";
}

void PredictionWindow::CmdReport_Click(const std::string& directory) {
  const auto y = BoxInt16(txtYear), m = BoxInt16(txtMonth), d = BoxInt16(txtDay);
  if (y && m && d)
    if (const auto date = DateSerial(*y, *m, *d)) PredictTime = *date;
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

void PredictionWindow::Report(bool typed, const std::string& directory) {
  // Every day of the period must be a date, or the loop would show one message per day and
  // write a header without its end date: refused before anything is written.
  const double span = storm_.ReportEnd - storm_.ReportStart;
  const double lastDay = storm_.ReportStart + (span > 0 ? Int(span) : 0);
  if (!SplitDateTime(storm_.ReportStart) || !std::isfinite(span) || !SplitDateTime(lastDay)) {
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
    ui_.SpeakThis("There was an error trying to save " + FFF + "  " + std::strerror(file.error()));
    ReportRunning = 0;
    file.Close();
    finish();
  };
  if (file.error()) return failed();

  if (typed || storm_.ReportHeader) {
    const std::string first =
        FormatDate(storm_.ReportStart, program_.DFormat, storm_.DateOrderText);
    const std::string last = FormatDate(storm_.ReportEnd, program_.DFormat, storm_.DateOrderText);
    const std::string header =
        std::string("JUPITER EVENT PREDICTIONS") + kCrLf + kCrLf + "Report Period  (GMT) " + first +
        "  to  " + last + "    ( " + ReplaceAll(storm_.DateOrderText, "  ", "/") + " )" + kCrLf +
        ReferenceCoordinates(program_) + kCrLf + "Exclude times when Jupiter is below " +
        txtJupAltMin + " deg." + kCrLf + "Exclude times when Sun is above " + txtSunAltMax +
        " deg." + kCrLf + "Include only events that last at least " +
        NumberText(storm_.ReportMinDuration) + " minutes." + kCrLf +
        "Quillmere Pro Software Version " + program_.VersionText +
        // Only a report of the precise ephemeris says so; the classic line stays as it was.
        (s_.model == EphemerisModel::Precise ? " (precise ephemeris)" : "") + kCrLf + kCrLf;
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

    std::string day = "< Year " + Trim(txtYear) + "   Month " + Trim(txtMonth) + "   Day " +
                      Trim(txtDay) + " >" + kCrLf + kCrLf;
    const int rows = std::min(UsableModes(storm_.Modes), Grid1.Rows() - 1);
    for (int r = 0; r <= rows; ++r) {
      std::string rowText, haText;
      for (int c = 0; c < kGridColumns; ++c) {
        const std::string& G = Grid1.TextMatrix(r, c);
        std::string cell = " " + G;
        std::string entry;
        if (r > 0 && storm_.ReportIncludeHA && !G.empty()) {
          if (c == 0)
            entry = " Hr Ang    ";
          else if (!Trim(G).empty() && !Contains(cell, "NONE"))
            entry = PadRight(Format(storm_.Minutes.MinuteJupHA[TableRow(G)], "00.0"), 10);
          else
            entry = std::string(10, ' ');
        }
        cell = PadRight(cell, 10);
        if (Contains(cell, "NONE")) cell += kCrLf;
        rowText += cell;
        haText += entry;
      }
      ui_.Yield();

      if (storm_.ReportIoOnly && Contains(rowText, "Begin")) rowText = rowText.substr(0, 30);
      if (storm_.ReportIoOnly && !Contains(rowText, "Io") && !Contains(rowText, "Begin") &&
          !Contains(rowText, "Month"))
        continue;
      if (Contains(rowText, "NONE") && storm_.ReportNoNONE) continue;
      day += rowText + kCrLf;
      if (r > 0 && !Contains(rowText, "NONE") && storm_.ReportIncludeHA && Trim(haText) != "Hr Ang")
        day += haText + kCrLf + kCrLf;
    }
    day += std::string(31, '_') + kCrLf;
    if (Contains(day, ":") && !file.Write(day + kCrLf)) return failed();

    PredictTime += 1;
    if (PredictTime > storm_.ReportEnd) break;
  }

  if (!cancelled && !file.Write(std::string("End of Report") + kCrLf + kCrLf)) return failed();
  CmdCancelReportVisible = false;
  ReportRunning = 0;
  if (!file.Close()) return failed();
  finish();
}

}  // namespace quillmere
