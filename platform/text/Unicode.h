#pragma once

#include "platform/Export.h"

#include <string>
#include <string_view>

namespace tv::text {

// UTF-8 at the file edges. Ill-formed bytes become U+FFFD one by one; use isUtf8 to ask first.
KXPLATFORM_EXPORT std::wstring fromUtf8(std::string_view bytes);
KXPLATFORM_EXPORT std::string toUtf8(std::wstring_view text);
KXPLATFORM_EXPORT bool isUtf8(std::string_view bytes);

// Full Unicode case mapping, the same in every locale.
KXPLATFORM_EXPORT std::wstring toUpper(std::wstring_view text);
KXPLATFORM_EXPORT std::wstring toLower(std::wstring_view text);
// Comparison without regard to case (Unicode case folding, no locale): negative, 0 or positive.
KXPLATFORM_EXPORT int compareNoCase(std::wstring_view a, std::wstring_view b);
inline bool equalNoCase(std::wstring_view a, std::wstring_view b) { return compareNoCase(a, b) == 0; }
// The folded form, for use as a key in a map that ignores case.
KXPLATFORM_EXPORT std::wstring foldCase(std::wstring_view text);
// The same with letters and their combining marks composed (normalization form C), so that texts that look
// alike but for letter case are equal.
KXPLATFORM_EXPORT std::wstring foldComposed(std::wstring_view text);

} // namespace tv::text
