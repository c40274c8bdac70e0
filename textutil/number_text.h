#pragma once
// The program's number text: what a value looks like when shown, spoken, stored or written.

#include <cmath>
#include <concepts>
#include <string>
#include <string_view>

namespace quillmere {

// Floor: Int(-0.5) is -1.
inline double Int(double x) {
  return std::floor(x);
}
// Toward zero: Fix(-0.5) is 0.
inline double Fix(double x) {
  return std::trunc(x);
}
// To the nearest whole number, halves to the even neighbour (2.5 gives 2, 3.5 gives 4).
double RoundHalfEven(double x);

// Shortest decimal text with one leading blank when not negative and no zero before the point:
// " 15", "-5", " .45". A 64-bit value keeps at most 15 significant digits, a 32-bit one 7;
// very large or small values take the exponent form " 1.5E-05".
std::string NumberText(double value);
std::string NumberText(float value);
template <std::integral I>
std::string NumberText(I value) {
  return NumberText(static_cast<double>(value));
}

// Numeric Format patterns: "00", "000", "00.0", "000.0", "000.00" (at least that many digits
// before the point, exactly that many after it), "##" (digits alone, nothing for zero) and "#0".
// The value's decimal text of 15 significant digits (7 for a 32-bit value) is rounded half away
// from zero, so 47.85f (held as 47.84999847) gives "047.9" by "000.0". A negative value keeps
// its minus sign even when it rounds to zero: -0.04 by "00.0" gives "-00.0".
std::string Format(double value, std::string_view pattern);
std::string Format(float value, std::string_view pattern);
template <std::integral I>
std::string Format(I value, std::string_view pattern) {
  return Format(static_cast<double>(value), pattern);
}

// The longest numeric prefix after leading blanks: one sign, digits, a point, digits and an
// optional exponent (E or D). No number gives 0; a number beyond the 64-bit range gives an
// infinity, for the caller to treat as an overflow.
double Val(std::string_view text);

// What the number parser reads as a whole: optional sign, digits, optional point, optional
// exponent. Blanks around it are allowed.
bool IsNumeric(const std::string& text);

}  // namespace quillmere
