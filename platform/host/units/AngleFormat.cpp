#include "platform/host/units/AngleFormat.h"

#include "platform/host/units/DecimalText.h"
#include "platform/host/units/InputScanner.h"
#include "platform/host/units/LengthFormat.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tv::host {

namespace {

constexpr double kFullDegrees = 360;
constexpr double kFullGrads = 400;
constexpr double kPi = std::numbers::pi;

double turned(double value, double full) {
    const double rest = std::fmod(value, full);
    return rest < 0 ? rest + full : rest;
}

ZeroSuppression zerosOf(const AngleOptions& options) {
    return {(options.dimzin & 1) != 0, (options.dimzin & 2) != 0};
}

// How fine an angle in degrees, minutes and seconds is shown: the smallest step is 1/perDegree of a degree.
struct Steps {
    double perDegree;
    int secondDecimals;
};

Steps stepsOf(int precision) {
    if (precision == 0) return {1, 0};
    if (precision <= 2) return {60, 0};
    const int decimals = std::max(0, precision - 4);
    return {3600 * std::pow(10.0, decimals), decimals};
}

// `steps` whole steps as 45d30'15.25". Working in whole steps is what makes 59'60" the next degree.
std::string degMinSecText(double steps, int precision, const AngleOptions& options) {
    const Steps unit = stepsOf(precision);
    const double degrees = std::floor(steps / unit.perDegree);
    std::string text = decimalText(degrees, 0) + "d";
    if (precision == 0) return text;
    const double rest = std::fmod(steps, unit.perDegree);
    const double perMinute = unit.perDegree / 60;
    text += decimalText(std::floor(rest / perMinute), 0) + "'";
    if (precision <= 2) return text;
    const double seconds = std::fmod(rest, perMinute) / std::pow(10.0, unit.secondDecimals);
    return text + decimalText(seconds, unit.secondDecimals, zerosOf(options)) + "\"";
}

std::string bearingText(double degrees, int precision, const AngleOptions& options) {
    const Steps unit = stepsOf(precision);
    const double quarter = 90 * unit.perDegree;
    const double steps = std::fmod(std::round(turned(degrees, kFullDegrees) * unit.perDegree), 4 * quarter);
    const int quadrant = static_cast<int>(steps / quarter);
    const double past = std::fmod(steps, quarter); // steps beyond the axis the quadrant starts with
    if (past == 0) return std::string(1, "ENWS"[quadrant]);
    const bool fromEnd = quadrant == 0 || quadrant == 2; // the quadrants that end at north or south
    const std::string angle = degMinSecText(fromEnd ? quarter - past : past, precision, options);
    const std::string blank = options.unitmode == 1 ? "" : " ";
    return (quadrant < 2 ? "N" : "S") + blank + angle + blank + (quadrant == 0 || quadrant == 3 ? "E" : "W");
}

// A signed or wrapped value with its mark behind it.
std::string plainText(double value, double full, int precision, const AngleOptions& options) {
    double size = std::fabs(value);
    if (options.normalize && full > 0 && roundedDecimal(size, precision) >= full) size = 0;
    return decimalText(size, precision, zerosOf(options));
}

std::optional<double> degMinSec(InputScanner& in, double degrees) {
    double value = degrees;
    double part = degrees;
    double scale = 1;
    for (const char mark : {'\'', '"'}) {
        if (in.atEnd() || in.peek() < '.' || in.peek() > '9') break;
        if (part != std::floor(part)) return std::nullopt; // decimals in front of a finer part
        const auto next = in.number(std::chars_format::fixed);
        if (!next || *next >= 60) return std::nullopt;
        in.skipBlanks();
        part = *next;
        scale *= 60;
        value += part / scale;
        if (!in.take(mark)) break;
    }
    return value;
}

// The part of a bearing behind N or S; degrees counter-clockwise from east.
std::optional<double> bearing(InputScanner& in, bool north) {
    if (in.atEnd()) return north ? 90.0 : 270.0;
    double past = 0;
    const auto degrees = in.number(std::chars_format::fixed);
    if (!degrees) return std::nullopt;
    in.skipBlanks();
    if (in.take('d')) {
        const auto whole = degMinSec(in, *degrees);
        if (!whole) return std::nullopt;
        past = *whole;
    } else {
        past = *degrees;
    }
    if (past > 90) return std::nullopt;
    const bool east = in.take('e');
    if (!east && !in.take('w')) return std::nullopt;
    if (north) return east ? 90 - past : 90 + past;
    return east ? 270 + past : 270 - past;
}

double toRadians(double degrees) { return degrees * kPi / 180; }

} // namespace

std::wstring formatAngle(double radians, int aunits, int precision, const AngleOptions& options) {
    if (!std::isfinite(radians)) return notFiniteText(radians);
    precision = std::clamp(precision, 0, kMaxPrecision);
    const auto units = static_cast<AngleUnits>(aunits);
    if (units == AngleUnits::kSurveyor) return widen(bearingText(radians * 180 / kPi, precision, options));

    double shown = radians - options.angbase;
    if (options.clockwise) shown = -shown;
    if (options.normalize) shown = turned(shown, 2 * kPi);
    std::string text;
    switch (units) {
    case AngleUnits::kDegMinSec: {
        const double perDegree = stepsOf(precision).perDegree;
        double steps = std::round(std::fabs(shown) * 180 / kPi * perDegree);
        if (options.normalize) steps = std::fmod(steps, kFullDegrees * perDegree);
        text = degMinSecText(steps, precision, options);
        break;
    }
    case AngleUnits::kGrads:
        text = plainText(shown * 200 / kPi, kFullGrads, precision, options) + "g";
        break;
    case AngleUnits::kRadians:
        text = plainText(shown, 0, precision, options) + "r";
        break;
    default:
        text = plainText(shown * 180 / kPi, kFullDegrees, precision, options);
        break;
    }
    const bool shownAsZero = text.find_first_of("123456789") == std::string::npos;
    if (shown < 0 && !shownAsZero) text.insert(text.begin(), '-');
    return widen(text);
}

std::optional<double> parseAngle(std::wstring_view text, int aunits, const AngleOptions& options) {
    InputScanner in(text);
    std::optional<double> absolute; // degrees, for directions that follow neither base angle nor direction
    if (in.take('n'))
        absolute = bearing(in, true);
    else if (in.take('s'))
        absolute = bearing(in, false);
    else if (in.take('e'))
        absolute = 0;
    else if (in.take('w'))
        absolute = 180;
    else {
        const double sign = in.sign();
        const auto number = in.number();
        if (!number) return std::nullopt;
        in.skipBlanks();
        double radians = 0;
        if (in.take('g')) {
            radians = *number * kPi / 200;
        } else if (in.take('r')) {
            radians = *number;
        } else if (in.take('d')) {
            const auto degrees = degMinSec(in, *number);
            if (!degrees) return std::nullopt;
            radians = toRadians(*degrees);
        } else if (aunits == static_cast<int>(AngleUnits::kGrads)) {
            radians = *number * kPi / 200;
        } else if (aunits == static_cast<int>(AngleUnits::kRadians)) {
            radians = *number;
        } else {
            radians = toRadians(*number);
        }
        if (!in.atEnd() || !std::isfinite(radians)) return std::nullopt;
        return options.angbase + (options.clockwise ? -sign : sign) * radians;
    }
    if (!absolute || !in.atEnd()) return std::nullopt;
    return toRadians(*absolute);
}

} // namespace tv::host
