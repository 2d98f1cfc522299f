// Any text as the expression of a layer filter: what is understood says the same in its usual form, the cells
// of the editor hold all of it, and what is not keeps its text and selects nothing.

#include "fuzz/Require.h"
#include "kxgui/layers/LayerFilterExpression.h"
#include "platform/text/Unicode.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

using namespace kx::layers;

namespace {

std::vector<T_LAYER_DATA> someLayers(std::wstring_view text) {
    std::vector<T_LAYER_DATA> layers(4);
    layers[1].name = text.substr(0, 255);
    layers[1].color = OdCmColor::byRgb(255, 0, 1);
    layers[1].on = false;
    layers[2].name = L"plan|Walls";
    layers[2].xref = layers[2].frozen = layers[2].vpFrozen = true;
    layers[2].lineWeight = OdDb::kLnWt018;
    layers[2].transparency = 30;
    layers[3].name = L"A1";
    layers[3].description = layers[3].plotStyle = L"b";
    layers[3].locked = layers[3].newVpFrozen = true;
    layers[3].vp.lineWeight = OdDb::kLnWt020;
    return layers;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::wstring text = tv::text::fromUtf8(
        std::string_view(reinterpret_cast<const char*>(data), std::min<std::size_t>(size, 20000)));
    const LayerFilterExpression read(text);
    require(read.text() == text, "an expression has another text");
    require(read.understood() || read.rows().empty(), "rows of what isn't understood");

    const bool has = !read.rows().empty();
    const LayerFilterExpression printed(filterText(read.rows()));
    const bool same =
        has && printed.understood() && filterText(read.rows()).size() <= LayerFilterExpression::kLongest;
    if (has && filterText(read.rows()).size() <= LayerFilterExpression::kLongest)
        require(printed.understood() && filterText(printed.rows()) == filterText(read.rows()),
                "the usual form isn't understood as what it says");
    for (const T_LAYER_DATA& layer : someLayers(text))
        for (const bool used : {false, true}) {
            require(read.understood() || !read.fits(layer, used), "what isn't understood selects something");
            const bool everything =
                std::ranges::any_of(read.rows(), [](const FilterRow& row) { return row.empty(); });
            if (same && !everything)
                require(read.fits(layer, used) == printed.fits(layer, used),
                        "the usual form says something else");
        }
    for (const FilterRow& row : read.rows()) {
        FilterRow again;
        for (int i = 0; i < kFilterProperties; ++i) {
            const auto property = static_cast<FilterProperty>(i);
            const std::wstring cell = filterCellText(row, property);
            if (cell.size() > LayerFilterExpression::kLongest) return 0;
            require(setFilterCell(again, property, cell), "a cell doesn't take back its own text");
            require(filterCellText(again, property) == cell || cell == L"*", "a cell shows something else");
        }
    }
    FilterRow row;
    for (int i = 0; i < kFilterProperties; ++i)
        if (setFilterCell(row, static_cast<FilterProperty>(i), text.substr(0, 200)))
            filterCellText(row, static_cast<FilterProperty>(i));
    return 0;
}
