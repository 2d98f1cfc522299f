#pragma once

#include "kxgui/Export.h"

#include <string>

// The sample texts of the units dialog.
namespace kx::frame {

// The point (1.5, 2.00390625, 0), coordinate by coordinate in the length type and precision, joined by commas.
KXGUI_EXPORT std::wstring lengthSample(int lunits, int luprec);

// What 45 degrees, as drawn, measures from the base angle: degrees, one full turn added to negative ones.
KXGUI_EXPORT double sampleAngle(double baseAngleRadians, bool clockwise);

// An angle given in degrees in the angle type, rounded to the precision and without trailing zeros: "45",
// "50g", "0.7854r", "45d", "45d0'", "45d0'0\"", "N 45d E".
KXGUI_EXPORT std::wstring angleText(double degrees, int aunits, int auprec);

// A polar coordinate, "3<45,0": its lengths in the length type, its angle the sample angle.
KXGUI_EXPORT std::wstring angleSample(double baseAngleRadians, bool clockwise, int lunits, int luprec,
                                      int aunits, int auprec);

} // namespace kx::frame
