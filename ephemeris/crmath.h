#pragma once
// sin, cos, tan and atan, correctly rounded and the same to the last bit on every platform.
//
// The C libraries round these functions differently: glibc, Microsoft's and Wine's runtime each
// miss the nearest double in a few calls of a thousand, each in other calls, so the same
// ephemeris built on two platforms gives other last bits, which can move a displayed digit or a
// minute mark. These are computed in double-double arithmetic (about 100 bits) from the basic
// operations alone, which IEEE 754 fixes bit for bit, and rounded once at the end: the result is
// the double nearest to the true value unless that value lies within about 2^-90 of a midpoint
// between two doubles, and whatever it is, it is the same everywhere.
//
// Arguments of sin, cos and tan are reduced exactly for |x| < 2^20; beyond that (no date of the
// program comes near) the C library's function answers. Not-a-number and infinities too.

namespace quillmere::crmath {

double sin(double x);
double cos(double x);
// Both at once, for the price of little more than one: the same results as sin and cos.
void sincos(double x, double& sinX, double& cosX);
double tan(double x);
double atan(double x);

}  // namespace quillmere::crmath
