#pragma once
// The horizon conversion split in two: what depends on the observer and the body's place, and
// what depends on the sidereal time. The minute tables keep the first for a whole day.

#include "ephemeris/ephemeris.h"

namespace quillmere::horizon {

struct Sky {
  double cosPhi = 0;
  double sinPhi = 0;
  double sinDelta = 0;
  double cosDelta = 0;
  double rightAscension = 0;
};

Sky MakeSky(double latitude, double rightAscension, double declination);
Horizon AtSiderealTime(const Sky& sky, double siderealTime);
// The altitude alone, the same number as AtSiderealTime's, at half its cost.
double AltitudeAtSiderealTime(const Sky& sky, double siderealTime);

}  // namespace quillmere::horizon
