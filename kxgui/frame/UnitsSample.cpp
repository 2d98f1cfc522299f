#include "kxgui/frame/UnitsSample.h"

#include "platform/host/units/AngleFormat.h"
#include "platform/host/units/LengthFormat.h"
#include "platform/text/Format.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace kx::frame {
namespace {

using tv::host::AngleUnits;

double rounded(double value, int decimals) {
    const double scale = std::pow(10.0, std::clamp(decimals, 0, tv::host::kMaxPrecision));
    return std::round(value * scale) / scale;
}

// Degrees, minutes and seconds as far as the precision shows them, with what rounds up carried.
std::wstring sexagesimal(double degrees, int precision) {
    if (precision <= 0) return tv::text::format(L"%lgd", std::round(degrees));
    if (precision <= 2) {
        const double minutes = std::round(degrees * 60.0);
        return tv::text::format(L"%dd%lg'", static_cast<int>(minutes / 60.0), std::fmod(minutes, 60.0));
    }
    static constexpr std::array<const wchar_t*, 5> formats{L"%dd%d'%.0f\"", L"%dd%d'%.1f\"", L"%dd%d'%.2f\"",
                                                           L"%dd%d'%.3f\"", L"%dd%d'%.4f\""};
    const int decimals = std::clamp(precision - 4, 0, 4);
    const double seconds = rounded(degrees * 3600.0, decimals);
    const int whole = static_cast<int>(seconds / 3600.0);
    const int minutes = static_cast<int>((seconds - whole * 3600.0) / 60.0);
    return tv::text::format(formats[static_cast<std::size_t>(decimals)], whole, minutes,
                            seconds - whole * 3600.0 - minutes * 60.0);
}

// From north or south towards east or west; what shows as on an axis is its letter alone.
std::wstring bearing(double degrees, int precision) {
    const double turn = std::fmod(std::fmod(degrees, 360.0) + 360.0, 360.0);
    const bool north = turn <= 180.0, east = turn < 90.0 || turn > 270.0;
    const double fromEast = turn <= 90.0 ? turn : turn <= 180.0 ? 180.0 - turn : turn <= 270.0 ? turn - 180.0 : 360.0 - turn;
    const std::wstring zero = sexagesimal(0.0, precision);
    if (sexagesimal(fromEast, precision) == zero) return east ? L"E" : L"W";
    if (sexagesimal(90.0 - fromEast, precision) == zero) return north ? L"N" : L"S";
    return tv::text::format(L"%s %s %s", north ? L"N" : L"S", sexagesimal(90.0 - fromEast, precision), east ? L"E" : L"W");
}

} // namespace

std::wstring lengthSample(int lunits, int luprec) {
    std::wstring text;
    for (const double coordinate : {1.5, 2.00390625, 0.0}) {
        if (!text.empty()) text += L',';
        text += tv::host::formatLength(coordinate, lunits, luprec);
    }
    return text;
}

double sampleAngle(double baseAngleRadians, bool clockwise) {
    const double d = baseAngleRadians * 180.0 / std::numbers::pi;
    const double angle = clockwise ? d - 45.0 : 45.0 - d;
    return angle < 0.0 ? angle + 360.0 : angle;
}

std::wstring angleText(double degrees, int aunits, int auprec) {
    switch (static_cast<AngleUnits>(aunits)) {
    case AngleUnits::kDegMinSec: return sexagesimal(degrees, auprec);
    case AngleUnits::kGrads: return tv::text::format(L"%lgg", rounded(degrees * 400.0 / 360.0, auprec));
    case AngleUnits::kRadians: return tv::text::format(L"%lgr", rounded(degrees * std::numbers::pi / 180.0, auprec));
    case AngleUnits::kSurveyor: return bearing(degrees, auprec);
    case AngleUnits::kDegrees: break;
    }
    return tv::text::format(L"%lg", rounded(degrees, auprec));
}

std::wstring angleSample(double baseAngleRadians, bool clockwise, int lunits, int luprec, int aunits, int auprec) {
    return tv::text::format(L"%s<%s,%s", tv::host::formatLength(3.0, lunits, luprec),
                            angleText(sampleAngle(baseAngleRadians, clockwise), aunits, auprec),
                            tv::host::formatLength(0.0, lunits, luprec));
}

} // namespace kx::frame
