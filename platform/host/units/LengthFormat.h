#pragma once

#include "platform/Export.h"

#include <optional>
#include <string>
#include <string_view>

namespace tv::host {

// The values of LUNITS.
enum class LengthUnits : int {
    kScientific = 1,
    kDecimal = 2,
    kEngineering = 3,
    kArchitectural = 4,
    kFractional = 5
};

inline constexpr int kMaxPrecision = 8; // of LUPREC and AUPREC

// How zeros are dropped: the values of DIMZIN.
struct LengthOptions {
    // Units: the sum of one feet-and-inches rule and the decimal bits.
    //   0 drops zero feet and exactly zero inches, 1 keeps both, 2 keeps zero feet and drops zero inches,
    //   3 drops zero feet and keeps zero inches; +4 drops leading zeros of decimals (0.5 is .5),
    //   +8 drops trailing zeros of decimals (12.5000 is 12.5).
    int dimzin = 1;
    // The values of UNITMODE: 0 shows feet, inches and fractions as they are read (1'-3 1/2"), 1 as they can be
    // typed (1'3-1/2").
    int unitmode = 0;
};

// Shows a length given in drawing units (inches for engineering and architectural).
//   scientific     1.5500E+01      mantissa with `precision` decimals, exponent of at least two digits
//   decimal        15.5000         `precision` decimals
//   engineering    1'-3.5000"      whole feet, inches with `precision` decimals
//   architectural  1'-3 1/2"       whole feet, inches to the nearest 1/2^precision, the fraction in lowest
//   terms fractional     15 1/2          whole units, the fraction to the nearest 1/2^precision in lowest terms
// A value that rounds up carries (11.9999" is 1'-0"); ties go away from zero. The sign stands once, in front;
// what rounds to zero has none. Numbers that are not finite give "inf", "-inf" and "nan". `lunits` outside 1..5
// counts as decimal, `precision` is brought into 0..8.
KXPLATFORM_EXPORT std::wstring formatLength(double value, int lunits, int precision,
                                            const LengthOptions& options = {});

// Reads a length as a CAD user types it: 15.5, .5, 1.55e1, 3/4, 15 1/2, 15-1/2, and where the unit type is
// engineering or architectural also feet and inches: 1'-3 1/2", 1'3-1/2, 1'3.5, 1', 3.5". A number without
// marks is in drawing units (inches there); feet count 12. A sign stands in front of the whole, blanks around
// the parts are free. Nothing when the text is no such thing, is followed by anything else, divides by zero or
// overflows.
KXPLATFORM_EXPORT std::optional<double> parseLength(std::wstring_view text, int lunits);

} // namespace tv::host
