#pragma once

#include "kxgui/Export.h"
#include "platform/drawing/OdDb.h"

#include <string>
#include <vector>

// Lineweights as a person reads them.
namespace kx::frame {

// What is offered in front of the widths: nothing, the default, or ByLayer, ByBlock and the default.
enum class LineWeightOffer { widths, withDefault, withAll };

// Those words, then the widths in rising order.
KXGUI_EXPORT std::vector<OdDb::LineWeight> lineWeights(LineWeightOffer offer);

// "0.25 mm" or, in inches, 0.010"; the words of the language for the three that are no width.
KXGUI_EXPORT std::wstring lineWeightText(OdDb::LineWeight weight, bool inches);

// The width; 0 for the three that are none.
KXGUI_EXPORT double millimetresOf(OdDb::LineWeight weight);

// What the user's settings say (LWUNITS: 0 inches, 1 millimetres); millimetres when they say nothing.
KXGUI_EXPORT bool lineWeightsInInches();

} // namespace kx::frame
