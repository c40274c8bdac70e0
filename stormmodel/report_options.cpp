#include "stormmodel/report_options.h"

#include <utility>

#include "stormmodel/settings_sections.h"
#include "textutil/date_time.h"
#include "textutil/number_text.h"

namespace quillmere {
namespace {

int MonthOf(double value) {
  const auto f = SplitDateTime(value);
  return f ? f->month : 0;
}

}  // namespace

void ReportOptions::Form_Load(double presentLocal) {
  double d = SplitDateTime(form3_.PredictTime) ? form3_.PredictTime : presentLocal;
  txtSYear = FormatDateTime(d, "YYYY");
  txtSMonth = FormatDateTime(d, "MM");
  txtSDay = FormatDateTime(d, "DD");
  // The proposed end is the first day of the next month.
  const int month = MonthOf(d);
  if (month != 0)
    while (MonthOf(d) == month) d += 1;
  txtEYear = FormatDateTime(d, "YYYY");
  txtEMonth = FormatDateTime(d, "MM");
  txtEDay = FormatDateTime(d, "DD");

  const ReportSettings stored = ReadProgramSettings(settings_, program_.AppTitle).report;
  chkIoOnly = stored.ReportIoOnly;
  chkNoNONE = stored.ReportNoNONE;
  chkHeader = stored.ReportHeader;
  for (auto [box, flag] :
       {std::pair{chkIoOnly, &storm_.ReportIoOnly}, std::pair{chkNoNONE, &storm_.ReportNoNONE},
        std::pair{chkHeader, &storm_.ReportHeader}})
    *flag = box == 1 ? -1 : 0;
  form3_.CancelReport = true;
  chkHA = storm_.ReportIncludeHA ? 1 : 0;
  txtMin = stored.ReportMinDuration;
  storm_.ReportMinDuration = SingleOf(Val(txtMin));
}

bool ReportOptions::cmdOK_Click() {
  const double sy = Val(txtSYear), sm = Val(txtSMonth), sd = Val(txtSDay);
  const double ey = Val(txtEYear), em = Val(txtEMonth), ed = Val(txtEDay);
  const struct {
    bool bad;
    const char* message;
  } checks[] = {
      {sy < 1900 || sy > 3000, "Invalid Start Year"}, {ey < 1900 || ey > 3000, "Invalid End Year"},
      {em < 1 || em > 12, "Invalid End Month"},       {sm < 1 || sm > 12, "Invalid Start Month"},
      {ed < 1 || ed > 31, "Invalid End Day"},         {sd < 1 || sd > 31, "Invalid Start Day"},
  };
  for (const auto& c : checks) {
    if (c.bad) {
      ui_.ShowMessage(c.message);
      return false;
    }
  }
  if (Val(txtMin) < 0)
    txtMin.assign(1, '0');  // assigning the literal trips a false -Wrestrict in GCC 12

  // The checks above keep every number well inside 16 bits and the calendar.
  auto date = [](double y, double m, double d) {
    return *DateSerial(static_cast<long long>(RoundHalfEven(y)),
                       static_cast<long long>(RoundHalfEven(m)),
                       static_cast<long long>(RoundHalfEven(d)));
  };
  storm_.ReportStart = date(sy, sm, sd);
  storm_.ReportEnd = date(ey, em, ed);
  if (storm_.ReportStart > storm_.ReportEnd) {
    ui_.ShowMessage("You entered a which occurs ending date before the start date.");
    return false;
  }
  form3_.CancelReport = false;
  storm_.ReportIncludeHA = chkHA == 1 ? -1 : 0;
  storm_.ReportIoOnly = chkIoOnly == 1 ? -1 : 0;
  storm_.ReportNoNONE = chkNoNONE == 1 ? -1 : 0;
  storm_.ReportHeader = chkHeader == 1 ? -1 : 0;
  storm_.ReportMinDuration = SingleOf(Val(txtMin));

  SaveReportOptions(settings_, program_.AppTitle, txtMin, chkHeader, chkHA, chkIoOnly, chkNoNONE);
  return true;
}

}  // namespace quillmere
