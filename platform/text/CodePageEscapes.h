#pragma once

#include <string>
#include <string_view>

// Characters written as escapes in the texts of drawings; for the sources of this room.
namespace tv::text {

inline bool isCharacter(wchar_t c) { return (c >= 0 && c < 0xD800) || (c > 0xDFFF && c <= 0x10FFFF); }

// Whether the text has anything that may be an escape.
inline bool hasEscape(std::wstring_view text) {
    return text.find(L"\\U+") != std::wstring_view::npos || text.find(L"\\M+") != std::wstring_view::npos;
}

// Replaces \U+XXXX and \M+nXXXX; what only looks like one stays as it is.
std::wstring resolveEscapes(std::wstring_view text);

// Appends the character as one or two \U+XXXX.
void appendEscape(std::string& bytes, wchar_t character);

} // namespace tv::text
