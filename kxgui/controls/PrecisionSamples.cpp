#include "kxgui/controls/PrecisionSamples.h"

#include "platform/host/units/AngleFormat.h"
#include "platform/host/units/LengthFormat.h"
#include "platform/text/Format.h"

namespace kx::controls {
namespace {

using tv::host::AngleUnits;
using tv::host::LengthUnits;

// As a view of one long zero, since the lists ask for all of them each time a dialog opens.
std::wstring_view decimals(int count) {
    static constexpr std::wstring_view longest = L"0.00000000";
    return longest.substr(0, count > 0 ? static_cast<std::size_t>(count) + 2 : 1);
}

std::wstring joined(std::wstring_view before, std::wstring_view number, std::wstring_view after) {
    std::wstring text;
    text.reserve(before.size() + number.size() + after.size());
    return text.append(before).append(number).append(after);
}

std::wstring fraction(int precision) {
    return precision > 0 ? tv::text::format(L"0 1/%d", 1 << precision) : L"0";
}

// Of degrees, minutes and seconds: 0 degrees, 1 minutes, 2 seconds, from 3 on one decimal of the seconds more
// each.
int sexagesimalStep(int precision) {
    return precision <= 0 ? 0 : precision <= 2 ? 1 : precision <= 4 ? 2 : precision - 2;
}

std::wstring sexagesimal(int precision) {
    const int step = sexagesimalStep(precision);
    if (step == 0) return L"0d";
    if (step == 1) return L"0d00'";
    std::wstring text = L"0d00'00";
    if (step > 2) text += L'.' + std::wstring(static_cast<std::size_t>(step - 2), L'0');
    return text + L'"';
}

bool isSexagesimal(int aunits) {
    return aunits == static_cast<int>(AngleUnits::kDegMinSec) ||
           aunits == static_cast<int>(AngleUnits::kSurveyor);
}

} // namespace

std::wstring lengthPrecisionSample(int lunits, int precision) {
    switch (static_cast<LengthUnits>(lunits)) {
    case LengthUnits::kScientific:
        return joined({}, decimals(precision), L"E+01");
    case LengthUnits::kEngineering:
        return joined(L"0'-", decimals(precision), L"\"");
    case LengthUnits::kArchitectural:
        return L"0'-" + fraction(precision) + L'"';
    case LengthUnits::kFractional:
        return fraction(precision);
    case LengthUnits::kDecimal:
        break;
    }
    return std::wstring(decimals(precision));
}

std::vector<int> anglePrecisions(int aunits) {
    if (isSexagesimal(aunits)) return {0, 1, 3, 5, 6, 7, 8};
    return {0, 1, 2, 3, 4, 5, 6, 7, 8};
}

bool sameAnglePrecision(int aunits, int a, int b) {
    return isSexagesimal(aunits) ? sexagesimalStep(a) == sexagesimalStep(b) : a == b;
}

std::wstring anglePrecisionSample(int aunits, int precision) {
    switch (static_cast<AngleUnits>(aunits)) {
    case AngleUnits::kDegMinSec:
        return sexagesimal(precision);
    case AngleUnits::kGrads:
        return joined({}, decimals(precision), L"g");
    case AngleUnits::kRadians:
        return joined({}, decimals(precision), L"r");
    case AngleUnits::kSurveyor:
        return L"N " + sexagesimal(precision) + L" E";
    case AngleUnits::kDegrees:
        break;
    }
    return std::wstring(decimals(precision));
}

} // namespace kx::controls
