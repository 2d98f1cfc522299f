#pragma once

#include "kxgui/Export.h"

#include <string>
#include <vector>

// What the entries of the precision lists show.
namespace kx::controls {

// Zero in the length type: "0.00", "0'-0.00\"", "0.00E+01"; for fractions the finest one: "0 1/4", "0'-0 1/4\"".
KXGUI_EXPORT std::wstring lengthPrecisionSample(int lunits, int precision);

// The precisions that differ in what they show for an angle type, ascending.
KXGUI_EXPORT std::vector<int> anglePrecisions(int aunits);
// Whether two precisions show an angle alike: for degrees, minutes and seconds 1 and 2 are minutes, 3 and 4 seconds.
KXGUI_EXPORT bool sameAnglePrecision(int aunits, int a, int b);
// Zero in the angle type: "0.00", "0d00'00.0\"", "0.00g", "0.00r", "N 0d00' E".
KXGUI_EXPORT std::wstring anglePrecisionSample(int aunits, int precision);

} // namespace kx::controls
