#include "platform/host/units/LengthFormat.h"

#include "platform/host/units/DecimalText.h"
#include "platform/host/units/InputScanner.h"

#include <algorithm>
#include <cmath>

namespace tv::host {

namespace {

constexpr double kInchesPerFoot = 12;

// A length cut to multiples of 1/denominator: whole + numerator/denominator, the fraction in lowest terms.
struct Fraction {
    double whole = 0;
    double numerator = 0;
    double denominator = 1;
    bool isZero() const { return whole == 0 && numerator == 0; }
};

// Powers of two and whole numbers are exact in a double, so nothing here loses a digit.
Fraction toFraction(double value, int precision) {
    const double parts = std::ldexp(1.0, precision);
    const double scaled = value * parts;
    if (!std::isfinite(scaled)) return {value, 0, 1};
    const double rounded = std::round(scaled);
    Fraction f{std::floor(rounded / parts), std::fmod(rounded, parts), parts};
    while (f.numerator != 0 && std::fmod(f.numerator, 2) == 0) {
        f.numerator /= 2;
        f.denominator /= 2;
    }
    return f;
}

std::string fractionText(const Fraction& f, bool hideZeroWhole, const LengthOptions& options) {
    if (f.numerator == 0) return decimalText(f.whole, 0);
    const std::string part = decimalText(f.numerator, 0) + "/" + decimalText(f.denominator, 0);
    if (f.whole == 0 && hideZeroWhole) return part;
    return decimalText(f.whole, 0) + (options.unitmode == 1 ? "-" : " ") + part;
}

ZeroSuppression zerosOf(const LengthOptions& options) {
    return {(options.dimzin & 4) != 0, (options.dimzin & 8) != 0};
}

// Puts feet and inches together; `inches` makes their text, told whether a zero in front of a fraction may go.
template <class InchText>
std::string feetAndInches(double feet, bool zeroInches, const LengthOptions& options, InchText inches) {
    const int rule = options.dimzin & 3;
    const bool keepZeroFeet = rule == 1 || rule == 2;
    const bool keepZeroInches = rule == 1 || rule == 3;
    if (feet == 0 && !keepZeroFeet) return inches(true) + "\"";
    const std::string front = decimalText(feet, 0) + "'";
    if (zeroInches && !keepZeroInches) return front;
    return front + (options.unitmode == 1 ? "" : "-") + inches(false) + "\"";
}

std::string engineeringText(double value, int precision, const LengthOptions& options) {
    const double rounded = roundedDecimal(value, precision);
    double feet = std::floor(rounded / kInchesPerFoot);
    double inches = roundedDecimal(std::fmod(rounded, kInchesPerFoot), precision);
    if (inches >= kInchesPerFoot) {
        inches = 0;
        ++feet;
    }
    return feetAndInches(feet, inches == 0, options,
                         [&](bool) { return decimalText(inches, precision, zerosOf(options)); });
}

std::string architecturalText(double value, int precision, const LengthOptions& options) {
    Fraction inches = toFraction(value, precision);
    const double feet = std::floor(inches.whole / kInchesPerFoot);
    inches.whole = std::fmod(inches.whole, kInchesPerFoot);
    return feetAndInches(feet, inches.isZero(), options,
                         [&](bool hideZero) { return fractionText(inches, hideZero, options); });
}

// A number, a fraction or a whole number with a fraction behind a blank or a hyphen.
std::optional<double> quantity(InputScanner& in) {
    const auto start = in.mark();
    if (auto whole = in.digits()) {
        const auto afterWhole = in.mark();
        double value = 0;
        double numerator = *whole;
        const bool blank = in.peek() == ' ' || in.peek() == '\t';
        in.skipBlanks();
        const bool apart = in.take('-') || (blank && !in.atEnd());
        if (apart) {
            if (auto next = in.digits()) {
                value = *whole;
                numerator = *next;
            }
        }
        in.skipBlanks();
        if (in.take('/')) {
            const auto denominator = in.digits();
            if (!denominator || *denominator == 0) return std::nullopt;
            return value + numerator / *denominator;
        }
        in.back(afterWhole);
    }
    in.back(start);
    return in.number();
}

} // namespace

std::wstring formatLength(double value, int lunits, int precision, const LengthOptions& options) {
    if (!std::isfinite(value)) return notFiniteText(value);
    precision = std::clamp(precision, 0, kMaxPrecision);
    const double size = std::fabs(value);
    std::string text;
    switch (static_cast<LengthUnits>(lunits)) {
    case LengthUnits::kScientific:
        text = scientificText(size, precision, zerosOf(options));
        break;
    case LengthUnits::kEngineering:
        text = engineeringText(size, precision, options);
        break;
    case LengthUnits::kArchitectural:
        text = architecturalText(size, precision, options);
        break;
    case LengthUnits::kFractional:
        text = fractionText(toFraction(size, precision), true, options);
        break;
    case LengthUnits::kDecimal:
    default:
        text = decimalText(size, precision, zerosOf(options));
        break;
    }
    const bool shownAsZero = text.find_first_of("123456789") == std::string::npos;
    if (value < 0 && !shownAsZero) text.insert(text.begin(), '-');
    return widen(text);
}

std::optional<double> parseLength(std::wstring_view text, int lunits) {
    const bool marks = lunits == static_cast<int>(LengthUnits::kEngineering) ||
                       lunits == static_cast<int>(LengthUnits::kArchitectural);
    InputScanner in(text);
    const double sign = in.sign();
    auto first = quantity(in);
    if (!first) return std::nullopt;
    in.skipBlanks();
    double value = *first;
    if (marks && in.take('\'')) {
        value *= kInchesPerFoot;
        const bool hyphen = in.take('-');
        if (!in.atEnd() || hyphen) {
            const auto inches = quantity(in);
            if (!inches || *first != std::floor(*first)) return std::nullopt;
            value += *inches;
            in.skipBlanks();
            in.take('"');
        }
    } else if (marks) {
        in.take('"');
    }
    if (!in.atEnd() || !std::isfinite(value)) return std::nullopt;
    return sign * value;
}

} // namespace tv::host
