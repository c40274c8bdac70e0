#include "mainwindow/platform.h"

namespace quillmere {

double DetectTimeZone(const TimeZoneInformation& zone) {
  long bias = 0;
  if (zone.result == 0 || zone.result == 1)
    bias = zone.Bias + zone.StandardBias;
  else if (zone.result == 2)
    bias = zone.Bias + zone.DaylightBias;
  return -(bias / 60.0);
}

}  // namespace quillmere
