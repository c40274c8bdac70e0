#pragma once
// The day chart of the prediction window and the Sun bar beneath it, painted from the minute
// tables and the activity marks of the last search.

#include <QColor>
#include <QImage>
#include <QPainter>
#include <QWidget>
#include <array>
#include <functional>

#include "ephemeris/ephemeris.h"
#include "stormmodel/activity.h"

namespace quillmere {

// The colours of the chart's key and of its bars, mode 1 first.
inline const std::array<QColor, kActivityModes> kModeColours = {
    QColor(255, 255, 0), QColor(255, 0, 255), QColor(255, 0, 0),
    QColor(0, 255, 255), QColor(0, 255, 0),   QColor(255, 128, 0)};

// A user scale over a surface of w by h pixels: x runs from `left` to `right`, y from `top` to
// `bottom` (either way round). Positions round to the nearest pixel, so boxes that share an
// edge in the scale share it on the surface too.
struct ChartScale {
  double left, top, right, bottom;
  int w, h;

  int X(double x) const;
  int Y(double y) const;
  // The pixels of a filled box between two corners; empty when it covers no whole pixel.
  QRect Box(double x1, double y1, double x2, double y2) const;
};

// The colour of an altitude a in whole degrees: amber at the horizon to near white at the
// zenith; below the horizon `below`.
QColor AltitudeColour(int a, QColor below);

// Jupiter's altitude minute by minute, in the scale of 1440 minutes.
void DrawChartBackground(QPainter& p, QSize size, const MinuteTables& t);
// The 20-minute and hourly lines, in the scale of the 86400 seconds of the day.
void DrawTimeLines(QPainter& p, QSize size);
// One bar per marked minute and mode, two minutes to the right of the minute's place; a
// higher-numbered mode covers the lower half unit of the one above it.
void DrawModeBars(QPainter& p, QSize size, const ActivityTable& marks);
// The GMT band on top and the local band at the bottom, each with its centred hour numbers.
void DrawHourBands(QPainter& p, QSize size, double TimeZone);
// The Sun's altitude minute by minute; black below the horizon.
void DrawSunAltitude(QPainter& p, QSize size, const MinuteTables& t);

// A picture box: shows an image drawn elsewhere and hands its mouse events on.
class PictureBox : public QWidget {
  Q_OBJECT  // a class name of its own, for its accessible role

 public:
  using QWidget::QWidget;

  QImage image;
  std::function<void(QMouseEvent*)> onMouseMove, onMousePress;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
};

}  // namespace quillmere
