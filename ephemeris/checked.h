#pragma once
// The ephemeris's one rule for failing arithmetic: the step is skipped and its target keeps
// what it held. A step fails when its result is not a finite number of the target's width.

#include <cmath>
#include <cstdint>
#include <limits>

namespace quillmere::checked {

inline void Store(double& target, double value) {
  if (std::isfinite(value)) target = value;
}

// Rounds to the nearest 32-bit float, as every store into a 32-bit field does.
inline void Store(float& target, double value) {
  if (std::isfinite(value) && std::fabs(value) <= std::numeric_limits<float>::max())
    target = static_cast<float>(value);
}

// A 16-bit store of a whole value.
inline void Store(int16_t& target, double value) {
  if (value >= -32768.0 && value <= 32767.0) target = static_cast<int16_t>(value);
}

// num / den, or nothing when the division fails: a zero divisor or a result out of range.
// Needed wherever a quotient feeds a function that would make a failed one finite again.
inline bool Divide(double num, double den, double& quotient) {
  if (den == 0) return false;
  const double q = num / den;
  if (!std::isfinite(q)) return false;
  quotient = q;
  return true;
}

// Repeated folds (while value > limit, subtract step; or while value < limit, add step) round
// on each pass, so they are kept as loops. A value too far out for the loop to end in a
// sensible number of passes counts as a failed step.
inline constexpr int kMaxFoldPasses = 1 << 20;

// A pass moves a value by less than twice the step, rounding included: a value further out than
// twice the step times the passes fails without running them (a stored longitude of 1e30 would
// otherwise cost a million passes on every minute of a day's tables).
inline bool BeyondPasses(double distance, double step) {
  return distance > 2 * step * kMaxFoldPasses;
}

template <typename Real>
void FoldDown(Real& target, double limit, double step) {
  Real v = target;
  if (BeyondPasses(v - limit, step)) return;
  for (int pass = 0; v > limit; ++pass) {
    if (pass == kMaxFoldPasses || !std::isfinite(v)) return;
    v = static_cast<Real>(v - step);
  }
  target = v;
}

template <typename Real>
void FoldUp(Real& target, double limit, double step) {
  Real v = target;
  if (BeyondPasses(limit - v, step)) return;
  for (int pass = 0; v < limit; ++pass) {
    if (pass == kMaxFoldPasses || !std::isfinite(v)) return;
    v = static_cast<Real>(v + step);
  }
  target = v;
}

}  // namespace quillmere::checked
