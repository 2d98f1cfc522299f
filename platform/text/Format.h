#pragma once

#include "platform/Export.h"

#include <fmt/printf.h>
#include <fmt/xchar.h>

#include <string>
#include <string_view>
#include <type_traits>

namespace tv::text {

namespace detail {
KXPLATFORM_EXPORT std::wstring vformat(std::wstring_view format,
                                       fmt::basic_format_args<fmt::wprintf_context> args);

// What a printf argument is passed as: any text as a view of it, everything else by value.
template <class T>
auto printable(const T& value) {
    if constexpr (std::is_convertible_v<const T&, const wchar_t*> && !std::is_arithmetic_v<T>)
        return std::wstring_view(static_cast<const wchar_t*>(value));
    else if constexpr (std::is_convertible_v<const T&, std::wstring_view>)
        return std::wstring_view(value);
    else
        return value;
}
} // namespace detail

// Fills a printf-style format: %d %u %x %s %c %f %e %g with flags, width and precision, and %%. Length
// modifiers
// ("%lg", "%ls") are accepted and change nothing. Never depends on the process locale and never throws: a
// format that does not fit its arguments gives the format itself, so that a faulty translation still shows as
// text.
template <class... Args>
std::wstring format(std::wstring_view pattern, const Args&... args) {
    auto store = [&](const auto&... values) {
        return detail::vformat(pattern, fmt::make_format_args<fmt::wprintf_context>(values...));
    };
    return store(detail::printable(args)...);
}

} // namespace tv::text
