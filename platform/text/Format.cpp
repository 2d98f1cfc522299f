#include "platform/text/Format.h"

namespace tv::text::detail {

std::wstring vformat(std::wstring_view format, fmt::basic_format_args<fmt::wprintf_context> args) {
    try {
        return fmt::vsprintf(fmt::basic_string_view<wchar_t>(format.data(), format.size()), args);
    } catch (const fmt::format_error&) {
        return std::wstring(format);
    }
}

} // namespace tv::text::detail
