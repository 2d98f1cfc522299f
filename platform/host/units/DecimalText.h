#pragma once

#include <string>

namespace tv::host {

// How zeros of decimals are dropped.
struct ZeroSuppression {
    bool leading = false;  // 0.5 becomes .5; a lone zero stays
    bool trailing = false; // 12.5000 becomes 12.5, 12.0000 becomes 12
};

// `value` (finite, not negative) with `precision` decimals. The number a person sees is what is rounded: its
// shortest decimal form that reads back the same, halves away from zero (1.005 with two decimals is 1.01).
std::string decimalText(double value, int precision, ZeroSuppression zeros = {});

// The same as mantissa and exponent: 1.5500E+01.
std::string scientificText(double value, int precision, ZeroSuppression zeros = {});

// `value` rounded as decimalText rounds it.
double roundedDecimal(double value, int precision);

// "inf", "-inf" or "nan".
std::wstring notFiniteText(double value);

// ASCII only.
inline std::wstring widen(const std::string& ascii) { return {ascii.begin(), ascii.end()}; }

} // namespace tv::host
