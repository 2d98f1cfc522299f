#include "platform/host/units/DecimalText.h"

#include <array>
#include <charconv>
#include <cmath>

namespace tv::host {

namespace {

// The longest shortest form: 5e-324 in fixed notation.
using Buffer = std::array<char, 400>;

std::string shortest(double value, std::chars_format format) {
    Buffer buffer;
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, format).ptr;
    return {buffer.data(), end};
}

// Keeps `precision` digits after the point of a plain decimal text; halves away from zero. May gain a digit in
// front.
std::string roundText(std::string text, int precision) {
    auto point = text.find('.');
    if (point == std::string::npos) {
        point = text.size();
        text += '.';
    }
    const std::size_t keep = point + 1 + static_cast<std::size_t>(precision);
    if (text.size() <= keep) {
        text.append(keep - text.size(), '0');
    } else {
        const bool up = text[keep] >= '5';
        text.resize(keep);
        bool carry = up;
        for (auto i = text.size(); carry && i-- > 0;) {
            if (text[i] == '.') continue;
            carry = text[i] == '9';
            text[i] = carry ? '0' : static_cast<char>(text[i] + 1);
        }
        if (carry) text.insert(text.begin(), '1');
    }
    if (text.back() == '.') text.pop_back();
    return text;
}

std::string suppress(std::string text, ZeroSuppression zeros) {
    if (zeros.trailing && text.find('.') != std::string::npos) {
        text.erase(text.find_last_not_of('0') + 1);
        if (text.back() == '.') text.pop_back();
    }
    if (zeros.leading && text.starts_with("0.")) text.erase(0, 1);
    return text;
}

} // namespace

std::string decimalText(double value, int precision, ZeroSuppression zeros) {
    return suppress(roundText(shortest(value, std::chars_format::fixed), precision), zeros);
}

std::string scientificText(double value, int precision, ZeroSuppression zeros) {
    const std::string text = shortest(value, std::chars_format::scientific);
    const auto e = text.find('e');
    std::string mantissa = roundText(text.substr(0, e), precision);
    int exponent = 0;
    const char* digits = text.data() + e + 1 + (text[e + 1] == '+' ? 1 : 0);
    std::from_chars(digits, text.data() + text.size(), exponent);
    if (mantissa.starts_with("10")) { // 9.99 rounded up
        mantissa = roundText("1", precision);
        ++exponent;
    }
    const std::string size = std::to_string(std::abs(exponent));
    return suppress(mantissa, {false, zeros.trailing}) + (exponent < 0 ? "E-" : "E+") +
           (size.size() < 2 ? "0" : "") + size;
}

double roundedDecimal(double value, int precision) {
    const std::string text = decimalText(value, precision);
    double rounded = value;
    std::from_chars(text.data(), text.data() + text.size(), rounded);
    return rounded;
}

std::wstring notFiniteText(double value) {
    if (std::isnan(value)) return L"nan";
    return value < 0 ? L"-inf" : L"inf";
}

} // namespace tv::host
