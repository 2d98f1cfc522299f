#pragma once

#include "platform/Export.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// Numbers as texts, with a decimal point in every language and locale.
namespace tv::text {

// The whole text must be one decimal number; blanks around it and a plus sign are accepted, thousands
// separators, "inf", "nan" and numbers beyond the range of the type are not.
KXPLATFORM_EXPORT std::optional<double> parseReal(std::wstring_view text);
KXPLATFORM_EXPORT std::optional<double> parseReal(std::string_view text);
KXPLATFORM_EXPORT std::optional<std::int64_t> parseInt(std::wstring_view text);
KXPLATFORM_EXPORT std::optional<std::int64_t> parseInt(std::string_view text);

// With `precision` digits (0 to 100) behind the point, rounded half to even on the exact binary value; never
// "-0".
KXPLATFORM_EXPORT std::wstring printReal(double value, int precision);
// The shortest text that gives exactly this value when parsed.
KXPLATFORM_EXPORT std::wstring printReal(double value);
KXPLATFORM_EXPORT std::wstring printInt(std::int64_t value);

} // namespace tv::text
