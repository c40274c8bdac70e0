#include "stormmodel/ui/day_chart.h"

#include <QFontMetricsF>
#include <QMouseEvent>
#include <algorithm>
#include <cmath>

#include "textutil/number_text.h"

namespace quillmere {
namespace {

const QColor kTwentyMinutes(192, 192, 192);
const QColor kHours(128, 0, 0);
const QColor kGmtBand(0, 128, 0);
const QColor kLocalBand(128, 128, 128);

// The scale of the background and the Sun bar: one unit per minute, y from 1 at the top to 0.
ChartScale MinuteScale(QSize size) {
  return {0, 1, 1440, 0, size.width(), size.height()};
}

// The scale of everything else: the seconds of the GMT day, y from 0 at the top to 9.5.
ChartScale SecondScale(QSize size) {
  return {0, 0, 86400, 9.5, size.width(), size.height()};
}

void FillBox(QPainter& p, const QRect& box, const QColor& colour) {
  if (!box.isEmpty()) p.fillRect(box, colour);
}

// Text centred on x by its measured width, its top at y.
void CentredText(QPainter& p, const ChartScale& scale, double x, double y, const QString& text) {
  const QFontMetricsF metrics(p.font(), p.device());
  const double left = scale.X(x) - metrics.horizontalAdvance(text) / 2;
  p.drawText(QPointF(left, scale.Y(y) + metrics.ascent()), text);
}

}  // namespace

int ChartScale::X(double x) const {
  return static_cast<int>(std::lround((x - left) / (right - left) * w));
}

int ChartScale::Y(double y) const {
  return static_cast<int>(std::lround((y - top) / (bottom - top) * h));
}

QRect ChartScale::Box(double x1, double y1, double x2, double y2) const {
  const int xa = std::min(X(x1), X(x2)), xb = std::max(X(x1), X(x2));
  const int ya = std::min(Y(y1), Y(y2)), yb = std::max(Y(y1), Y(y2));
  return QRect(xa, ya, xb - xa, yb - ya);
}

QColor AltitudeColour(int a, QColor below) {
  if (a < 0) return below;
  auto channel = [](double v) { return std::clamp(static_cast<int>(std::lround(v)), 0, 255); };
  return QColor(255, channel(0.6 * a + 200), channel(2.8 * a));
}

void DrawChartBackground(QPainter& p, QSize size, const MinuteTables& t) {
  const ChartScale scale = MinuteScale(size);
  for (int i = 1; i <= kDayMinutes; ++i)
    FillBox(p, scale.Box(i - 1, 1, i, 0), AltitudeColour(t.MinuteJupAlt[i], QColor(0, 0, 255)));
}

void DrawTimeLines(QPainter& p, QSize size) {
  const ChartScale scale = SecondScale(size);
  auto lines = [&](int count, int step, const QColor& colour) {
    p.setPen(colour);
    for (int i = 1; i <= count; ++i)
      p.drawLine(scale.X(step * i), scale.Y(1), scale.X(step * i), scale.Y(8));
  };
  lines(72, 1200, kTwentyMinutes);
  lines(23, 3600, kHours);
}

void DrawModeBars(QPainter& p, QSize size, const ActivityTable& marks) {
  const ChartScale scale = SecondScale(size);
  for (int i = 1; i <= kDayMinutes; ++i)
    for (int m = 1; m <= kActivityModes; ++m)
      if (marks(m, i) != 0)
        FillBox(p, scale.Box(60.0 * (i + 1), m + 0.5, 60.0 * (i + 2), m + 2), kModeColours[m - 1]);
}

void DrawHourBands(QPainter& p, QSize size, double TimeZone) {
  const ChartScale scale = SecondScale(size);
  FillBox(p, scale.Box(0, 0, 86400, 1.5), kGmtBand);
  FillBox(p, scale.Box(0, 8, 86400, 9.5), kLocalBand);
  p.setPen(Qt::black);
  QFont font = p.font();
  font.setPointSize(10);
  p.setFont(font);
  for (int i = 1; i <= 23; ++i) {
    CentredText(p, scale, 3600.0 * i, 0.05, QString::fromStdString(NumberText(i)));
    double L = i + TimeZone;
    if (L < 0) L += 24;
    if (L > 23) L -= 24;
    CentredText(p, scale, 3600.0 * i, 8.05, QString::fromStdString(NumberText(L)));
  }
}

void DrawSunAltitude(QPainter& p, QSize size, const MinuteTables& t) {
  const ChartScale scale = MinuteScale(size);
  for (int i = 1; i <= kDayMinutes; ++i)
    FillBox(p, scale.Box(i - 1, 1, i, 0), AltitudeColour(t.MinuteSunAlt[i], QColor(0, 0, 0)));
}

void PictureBox::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.fillRect(rect(), Qt::white);
  p.drawImage(0, 0, image);
}

void PictureBox::mouseMoveEvent(QMouseEvent* event) {
  if (onMouseMove) onMouseMove(event);
}

void PictureBox::mousePressEvent(QMouseEvent* event) {
  if (onMousePress) onMousePress(event);
}

}  // namespace quillmere
