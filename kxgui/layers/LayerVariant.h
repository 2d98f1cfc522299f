#pragma once

#include "kxgui/Export.h"
#include "platform/text/Collation.h"

#include <cstdint>
#include <string>
#include <variant>

namespace kx::layers {

// A moment in days since the calendar the drawing's dates count from began.
struct LayerDate {
    double days = 0;
    friend bool operator==(const LayerDate&, const LayerDate&) = default;
};

// The value of a cell, which is what rows are sorted by. Empty: the cell holds none.
using LayerVariant = std::variant<std::monostate, std::int16_t, std::uint16_t, std::int32_t, std::uint32_t,
                                  std::int64_t, std::uint64_t, float, double, LayerDate, bool, std::wstring>;

// How layer texts compare: as the current language does, runs of digits as numbers, letter case counting.
inline constexpr tv::text::CollationOptions kLayerCollation{.digitsAsNumbers = true};

// Negative, 0 or positive. Values of two different types are not compared (0). Numbers and dates compare by
// their size, false comes before true, an empty text before all others.
KXGUI_EXPORT int CompareItems(const LayerVariant& a, const LayerVariant& b, const tv::text::Collator& collator);

} // namespace kx::layers
