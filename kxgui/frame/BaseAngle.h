#pragma once

#include "kxgui/Export.h"

#include <optional>
#include <string>
#include <string_view>

// The base angle of a drawing as the direction dialog shows and takes it. Angles are radians counter-clockwise
// from east unless a name says otherwise.
namespace kx::frame {

enum class Compass : int { east, north, west, south, other };

// East 0, north pi/2, west pi, south 3 pi/2; 0 for `other`.
KXGUI_EXPORT double compassAngle(Compass compass);
// The compass direction a base angle is, `other` when it is none (to a billionth of a radian).
KXGUI_EXPORT Compass compassOf(double radians);

// A single letter typed as a surveyor's angle: E, N, W, S, also in lower case and between blanks. While angles
// grow clockwise N is south and S is north, as the letters are entered in the drawing's own sense of rotation.
// Nothing when the text is anything else.
KXGUI_EXPORT std::optional<Compass> compassOfLetter(std::wstring_view text, bool clockwise);

// A number entered in the angle type, as radians: grads count 400 to the turn; for every other type, radians
// and surveyor's units included, the number is taken as degrees.
KXGUI_EXPORT double enteredToRadians(double value, int aunits);
// The number that enteredToRadians takes back to `radians`.
KXGUI_EXPORT double radiansToEntered(double radians, int aunits);

// "45d30'15.5\"": degrees with optional minutes and seconds, only the last part with decimals, a sign in front;
// a plain number is degrees. Answers degrees; nothing when the text is no such thing.
KXGUI_EXPORT std::optional<double> GetAngleFromDegreeMinSec(std::wstring_view text);

// The number an entry stands for, in what enteredToRadians takes for the angle type. Nothing when the text is
// no angle, is not finite or goes beyond maximumEntry.
KXGUI_EXPORT std::optional<double> angleEntry(std::wstring_view text, int aunits);
inline bool IsvalidValue(std::wstring_view text, int aunits) { return angleEntry(text, aunits).has_value(); }
constexpr double maximumEntry = 1.0e6; // beyond it a turn can't be told from rounding any more

// The base angle an entered angle makes: full turns taken off (a negative one is brought up to 0 and more), and
// measured clockwise when angles grow clockwise.
KXGUI_EXPORT double baseAngleOfEntry(double enteredRadians, bool clockwise);
// The entered angle that makes this base angle: 0 <= angle < 2 pi.
KXGUI_EXPORT double entryOfBaseAngle(double baseAngle, bool clockwise);

// How the entry field shows a base angle: to the precision, in a form that the angle type takes back.
KXGUI_EXPORT std::wstring entryText(double baseAngle, int aunits, int auprec, bool clockwise);

} // namespace kx::frame
