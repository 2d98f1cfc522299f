#pragma once

#include "platform/Export.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// Colours as system variables pass them on: 32 bits, the method in the top byte.
namespace tv::host {

inline constexpr std::int64_t kColorByLayer = 0xC0000000;
inline constexpr std::int64_t kColorByBlock = 0xC1000000;
inline constexpr std::int64_t kColorRgb = 0xC2000000;   // 0xC2RRGGBB
inline constexpr std::int64_t kColorIndex = 0xC3000000; // 0xC30000II, 1 to 255

// The encoding of a colour index: 0 by block, 256 by layer, 1 to 255. Nothing for any other number.
KXPLATFORM_EXPORT std::optional<std::int64_t> colorOfIndex(std::int64_t index);
// The other way round; nothing for a true colour.
KXPLATFORM_EXPORT std::optional<int> indexOfColor(std::int64_t color);

// The encoding of whatever number stands for a colour: an index, or an encoding (also as a negative 32-bit
// number).
std::optional<std::int64_t> colorOfNumber(std::int64_t number);

// "BYLAYER", "BYBLOCK", an index, a name of the first seven colours, "R,G,B" or "RGB:R,G,B"; letter case is
// free.
KXPLATFORM_EXPORT std::optional<std::int64_t> colorOfText(std::wstring_view text);
// "BYLAYER", "BYBLOCK", "1" to "255" or "R,G,B".
KXPLATFORM_EXPORT std::wstring textOfColor(std::int64_t color);

} // namespace tv::host
