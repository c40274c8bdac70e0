// The printed page of the day in the grid.

#include <QCoreApplication>
#include <QFileDialog>
#include <QFontMetricsF>
#include <QMessageBox>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <filesystem>

#include "stormmodel/ui/form3.h"
#include "textutil/date_time.h"

namespace quillmere {

std::vector<PrintedText> Form3::PredictionPage(const std::function<double(int)>& lineHeight,
                                               double columnWidth) {
  std::vector<PrintedText> page;
  // Print columns count from 1 at the left edge of the page.
  auto column = [columnWidth](int n) { return (n - 1) * columnWidth; };
  double y = 0.5;
  // The date is that of T, the program's own time, not necessarily the day in the grid.
  page.push_back({1, y, 18,
                  "JUPITER EVENT PREDICTIONS    " +
                      FormatDate(s_.T, program_.DFormat, storm_.DateOrderText) + "    GMT"});
  y += 2 * lineHeight(18);
  for (const std::string& line :
       {ReferenceCoordinates(program_),
        "Exclude times when Jupiter is below " + core_.txtJupAltMin + " deg.",
        "Exclude times when Sun is above " + core_.txtSunAltMax + " deg.",
        "Quillmere Pro Software Version " + program_.VersionText}) {
    page.push_back({column(10), y, 10, line});
    y += lineHeight(10);
  }
  y += lineHeight(10);
  for (const auto& row : core_.Grid1.cells) {
    for (int c = 0; c < kGridColumns; ++c)
      if (!row[c].empty()) page.push_back({column(10 * (c + 1)), y, 10, row[c]});
    y += lineHeight(10);
  }
  return page;
}

void Form3::PrintPage(QPrinter& printer) {
  QPainter p;
  if (!p.begin(&printer)) return;  // a failing printer gets no word, as every step below
  const double dpi = printer.resolution();
  auto font = [&](int size) {
    QFont f = p.font();
    f.setBold(false);
    f.setPointSize(size);
    return f;
  };
  auto lineHeight = [&](int size) { return QFontMetricsF(font(size), &printer).height() / dpi; };
  const double columnWidth = QFontMetricsF(font(10), &printer).averageCharWidth() / dpi;
  for (const PrintedText& t : PredictionPage(lineHeight, columnWidth)) {
    p.setFont(font(t.fontSize));
    const double ascent = QFontMetricsF(p.font(), &printer).ascent();
    p.drawText(QPointF(t.x * dpi, t.y * dpi + ascent), QString::fromStdString(t.text));
  }
  p.end();
}

void Form3::CmdPredictPrint_Click() {
  QPrinter printer(QPrinter::HighResolution);
  if (QPrinterInfo::availablePrinters().isEmpty()) {
    // Without a printer the page can still go into a PDF file, and the user is told where.
    if (QMessageBox::question(this, QString::fromStdString(program_.AppTitle),
                              "No printer is installed. Print the page to a PDF file instead?") !=
        QMessageBox::Yes)
      return;
    const std::string proposed = (std::filesystem::path(host_.ReportDirectory()) /
                                  (FormatDateTime(core_.PredictTime, "yyyymmdd") + "JP.pdf"))
                                     .string();
    const QString file = QFileDialog::getSaveFileName(
        this, "Print to PDF File", QString::fromStdString(proposed), "PDF files (*.pdf)");
    if (file.isEmpty()) return;
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(file);
    QCoreApplication::processEvents();
    PrintPage(printer);
    ShowMessage("The page was printed to the file " + file.toStdString() + " .");
    return;
  }
  QPrintDialog dialog(&printer, this);
  dialog.setObjectName("CmDialog1");
  if (dialog.exec() != QDialog::Accepted) return;  // cancelled: nothing is printed
  QCoreApplication::processEvents();
  PrintPage(printer);
}

}  // namespace quillmere
