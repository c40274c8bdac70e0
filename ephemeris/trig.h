#pragma once
// The trigonometric functions the ephemeris calls: the C library's by default, or, when built
// with QUILLMERE_CRMATH, the correctly rounded ones of crmath.h, which give the same digits on
// every platform. Square roots need no choice: IEEE 754 rounds them exactly everywhere.

#include <cmath>

#include "ephemeris/crmath.h"

namespace quillmere::trig {

#if QUILLMERE_CRMATH
using crmath::atan;
using crmath::cos;
using crmath::sin;
using crmath::sincos;
using crmath::tan;
#else
inline double sin(double x) {
  return std::sin(x);
}
inline double cos(double x) {
  return std::cos(x);
}
inline double tan(double x) {
  return std::tan(x);
}
inline double atan(double x) {
  return std::atan(x);
}
inline void sincos(double x, double& sinX, double& cosX) {
  sinX = std::sin(x);
  cosX = std::cos(x);
}
#endif

}  // namespace quillmere::trig
