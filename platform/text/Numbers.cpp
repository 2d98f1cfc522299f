#include "platform/text/Numbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <system_error>

namespace tv::text {
namespace {

bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

template <class Number>
std::optional<Number> parse(std::string_view text) {
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
    Number value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    if constexpr (std::is_floating_point_v<Number>)
        if (!std::isfinite(value)) return std::nullopt;
    return value;
}

template <class Number>
std::optional<Number> parseWide(std::wstring_view text) {
    std::string ascii;
    ascii.reserve(text.size());
    for (const wchar_t c : text) {
        if (c <= 0 || c >= 0x80) return std::nullopt;
        ascii.push_back(static_cast<char>(c));
    }
    return parse<Number>(ascii);
}

template <class... How>
std::wstring print(How... how) {
    char buffer[512]; // the largest number has 309 digits before the point
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, how...);
    return std::wstring(buffer, result.ptr);
}

} // namespace

std::optional<double> parseReal(std::wstring_view text) { return parseWide<double>(text); }
std::optional<double> parseReal(std::string_view text) { return parse<double>(text); }
std::optional<std::int64_t> parseInt(std::wstring_view text) { return parseWide<std::int64_t>(text); }
std::optional<std::int64_t> parseInt(std::string_view text) { return parse<std::int64_t>(text); }

std::wstring printReal(double value, int precision) {
    std::wstring text = print(value, std::chars_format::fixed, std::clamp(precision, 0, 100));
    if (text.starts_with(L'-') && text.find_first_not_of(L"-0.") == std::wstring::npos) text.erase(0, 1);
    return text;
}

std::wstring printReal(double value) { return print(value == 0 ? 0.0 : value); }

std::wstring printInt(std::int64_t value) { return print(value); }

} // namespace tv::text
