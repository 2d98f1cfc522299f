#include "kxgui/frame/BaseAngle.h"

#include "kxgui/frame/UnitsSample.h"
#include "platform/host/units/AngleFormat.h"
#include "platform/text/Numbers.h"
#include "platform/text/OdString.h"

#include <array>
#include <cmath>
#include <numbers>

namespace kx::frame {
namespace {

using std::numbers::pi;
using tv::host::AngleUnits;

constexpr double fullTurn = 2.0 * pi;
constexpr std::array<double, 4> compassAngles{0.0, pi / 2.0, pi, 3.0 * pi / 2.0};

std::wstring trimmed(std::wstring_view text) { return OdString(text).trim().wstr(); }

// "12.5" without sign and exponent.
std::optional<double> plainNumber(std::wstring_view text) {
    if (text.empty() || text.find_first_not_of(L"0123456789.") != std::wstring_view::npos) return std::nullopt;
    return tv::text::parseReal(text);
}

bool isWhole(std::wstring_view text) { return text.find(L'.') == std::wstring_view::npos; }

std::optional<double> bearingDegrees(const std::wstring& text) {
    const wchar_t first = OdString(text.substr(0, 1)).makeUpper().getAt(0);
    if (first != L'N' && first != L'S') return std::nullopt;
    const auto radians = tv::host::parseAngle(text, static_cast<int>(AngleUnits::kSurveyor));
    if (!radians) return std::nullopt;
    return *radians * 180.0 / pi;
}

} // namespace

double compassAngle(Compass compass) {
    return compass == Compass::other ? 0.0 : compassAngles[static_cast<std::size_t>(compass)];
}

Compass compassOf(double radians) {
    for (std::size_t i = 0; i < compassAngles.size(); ++i)
        if (std::abs(radians - compassAngles[i]) < 1e-9) return static_cast<Compass>(i);
    return std::abs(radians - fullTurn) < 1e-9 ? Compass::east : Compass::other;
}

std::optional<Compass> compassOfLetter(std::wstring_view text, bool clockwise) {
    const OdString letter = OdString(text).trim().makeUpper();
    if (letter == L"E") return Compass::east;
    if (letter == L"W") return Compass::west;
    if (letter == L"N") return clockwise ? Compass::south : Compass::north;
    if (letter == L"S") return clockwise ? Compass::north : Compass::south;
    return std::nullopt;
}

double enteredToRadians(double value, int aunits) {
    const double degrees = aunits == static_cast<int>(AngleUnits::kGrads) ? value * 360.0 / 400.0 : value;
    return degrees * pi / 180.0;
}

double radiansToEntered(double radians, int aunits) {
    const double degrees = radians * 180.0 / pi;
    return aunits == static_cast<int>(AngleUnits::kGrads) ? degrees * 400.0 / 360.0 : degrees;
}

std::optional<double> GetAngleFromDegreeMinSec(std::wstring_view text) {
    std::wstring rest = trimmed(text);
    double sign = 1.0;
    if (!rest.empty() && (rest[0] == L'-' || rest[0] == L'+')) {
        sign = rest[0] == L'-' ? -1.0 : 1.0;
        rest.erase(0, 1);
    }
    struct Part {
        const wchar_t* marks;
        double perDegree;
        double limit; // minutes and seconds stay below 60
    };
    static constexpr std::array<Part, 3> parts{{{L"dD°", 1.0, maximumEntry}, {L"'", 60.0, 60.0}, {L"\"", 3600.0, 60.0}}};
    double degrees = 0.0;
    bool ended = false;
    for (const Part& part : parts) {
        if (rest.empty()) break;
        const auto mark = rest.find_first_of(part.marks);
        const std::wstring number = trimmed(std::wstring_view(rest).substr(0, mark));
        const auto value = plainNumber(number);
        // Decimals end the angle; so does a part without its mark.
        if (ended || !value || *value >= part.limit) return std::nullopt;
        ended = !isWhole(number) || mark == std::wstring::npos;
        degrees += *value / part.perDegree;
        rest = mark == std::wstring::npos ? std::wstring() : trimmed(std::wstring_view(rest).substr(mark + 1));
        if (rest.empty()) return sign * degrees;
    }
    return std::nullopt;
}

std::optional<double> angleEntry(std::wstring_view text, int aunits) {
    const std::wstring entry = trimmed(text);
    std::optional<double> value;
    if (aunits == static_cast<int>(AngleUnits::kGrads)) {
        const bool marked = !entry.empty() && (entry.back() == L'g' || entry.back() == L'G');
        value = tv::text::parseReal(std::wstring_view(entry).substr(0, entry.size() - (marked ? 1 : 0)));
    } else {
        value = tv::text::parseReal(std::wstring_view(entry));
        if (!value) value = GetAngleFromDegreeMinSec(entry);
        if (!value && aunits == static_cast<int>(AngleUnits::kSurveyor) && !entry.empty()) value = bearingDegrees(entry);
    }
    return value && std::abs(*value) <= maximumEntry ? value : std::nullopt;
}

double baseAngleOfEntry(double enteredRadians, bool clockwise) {
    double angle = enteredRadians;
    while (angle >= fullTurn) angle -= fullTurn;
    while (angle < 0.0) angle += fullTurn;
    return clockwise ? fullTurn - angle : angle;
}

double entryOfBaseAngle(double baseAngle, bool clockwise) {
    double angle = std::fmod(clockwise ? fullTurn - baseAngle : baseAngle, fullTurn);
    if (angle < 0.0) angle += fullTurn;
    return angle;
}

std::wstring entryText(double baseAngle, int aunits, int auprec, bool clockwise) {
    const double degrees = entryOfBaseAngle(baseAngle, clockwise) * 180.0 / pi;
    const bool sexagesimal = aunits == static_cast<int>(AngleUnits::kDegMinSec) || aunits == static_cast<int>(AngleUnits::kSurveyor);
    if (sexagesimal) return angleText(degrees, static_cast<int>(AngleUnits::kDegMinSec), auprec);
    if (aunits == static_cast<int>(AngleUnits::kGrads)) return angleText(degrees, aunits, auprec);
    return angleText(degrees, static_cast<int>(AngleUnits::kDegrees), auprec);
}

} // namespace kx::frame
