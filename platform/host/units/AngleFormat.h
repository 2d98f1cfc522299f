#pragma once

#include "platform/Export.h"

#include <optional>
#include <string>
#include <string_view>

namespace tv::host {

// The values of AUNITS.
enum class AngleUnits : int { kDegrees = 0, kDegMinSec = 1, kGrads = 2, kRadians = 3, kSurveyor = 4 };

struct AngleOptions {
    double angbase = 0;     // direction of angle zero, radians counter-clockwise from east (ANGBASE)
    bool clockwise = false; // angles grow clockwise (ANGDIR 1)
    bool normalize = false; // show within one full turn: 0 <= angle < 360 degrees
    int dimzin = 0;         // +1 drops leading zeros, +2 trailing zeros of the decimals: the values of DIMAZIN
    int unitmode = 0;       // 1 shows bearings as they can be typed, without blanks (the values of UNITMODE)
};

// Shows an angle given in radians, counter-clockwise from east.
//   degrees          45.5000          `precision` decimals
//   deg/min/sec      45d30'15.25"     precision 0: 45d; 1-2: 45d30'; 3-4: 45d30'15"; 5-8: precision-4 decimals
//   of seconds grads            50.0000g radians          0.7854r surveyor's       N 45d0'0" E      from north
//   or south towards east or west, the angle as deg/min/sec; exactly on an
//                                     axis only the letter: E, N, W, S
// With a base angle or clockwise direction what is shown is the angle as the user measures it; bearings are
// absolute directions and follow neither. Seconds and minutes that round up carry (59'60" is the next degree).
// The sign stands in front; what rounds to zero has none. `aunits` outside 0..4 counts as degrees.
KXPLATFORM_EXPORT std::wstring formatAngle(double radians, int aunits, int precision,
                                           const AngleOptions& options = {});

// Reads an angle as a CAD user types it and answers radians counter-clockwise from east: 45, 45d,
// 45d30'15", 45.5d, 45d30 (minutes), 50g, 0.785r, N45d30'E, N 45 E, N, W. A number without a mark is in the
// unit type given (degrees for deg/min/sec and surveyor's). Letters in either case, blanks between the parts
// are free, a sign stands in front. Nothing when the text is no such thing, minutes or seconds reach 60, only
// the last part may have decimals and another has, a bearing exceeds 90 degrees, or anything follows. The base
// angle and the direction of the options are applied the other way round than by formatAngle.
KXPLATFORM_EXPORT std::optional<double> parseAngle(std::wstring_view text, int aunits,
                                                   const AngleOptions& options = {});

} // namespace tv::host
