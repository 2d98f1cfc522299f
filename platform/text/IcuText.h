#pragma once

#include <unicode/unistr.h>

#include <string>
#include <string_view>

// Wide text to ICU's and back, for the sources of this room.
namespace tv::text {

static_assert(sizeof(wchar_t) == 4, "wide text holds one code point per wchar_t");

inline icu::UnicodeString toIcu(std::wstring_view text) {
    return icu::UnicodeString::fromUTF32(reinterpret_cast<const UChar32*>(text.data()),
                                         static_cast<int32_t>(text.size()));
}

inline std::wstring fromIcu(const icu::UnicodeString& text) {
    std::wstring out(static_cast<std::size_t>(text.countChar32()), L'\0');
    UErrorCode status = U_ZERO_ERROR;
    text.toUTF32(reinterpret_cast<UChar32*>(out.data()), static_cast<int32_t>(out.size()), status);
    return out;
}

} // namespace tv::text
