#include "tavocad/scene/DrawingTables.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "platform/drawing/OdDbStyleTables.h"
#include "platform/drawing/dxf/OwnTags.h"
#include "platform/drawing/dxf/RecordStore.h"
#include "platform/text/Unicode.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace tv::scene {
namespace {

using namespace tv::dwg;

constexpr int foregroundIndex = 7;
constexpr std::int64_t mostLineweight = 211;

// One pass over the layer's tags: there may be ten thousands of them.
LayerState layerOf(const RecordStore& store, RecordId id, const DrawingTables& tables) {
    constexpr std::int64_t saysAlpha = 0x02000000; // beside the alpha in the lowest byte
    const DxfFormat& format = store.format();
    LayerState state;
    std::optional<int> index, rgb;
    bool transparency = false;
    OwnTagFilter filter;
    bool extended = false;
    TagCursor tags = store.tags(id);
    for (Tag tag; tags.next(tag);) {
        const auto integer = [&](std::int64_t otherwise) { return integerOf(format, tag).value_or(otherwise); };
        if (tag.code == 1001) {
            extended = true;
            transparency = trimmed(tag.value) == "AcCmTransparency";
        } else if (extended) {
            if (const std::int64_t value = integer(0); transparency && tag.code == 1071 && (value & saysAlpha))
                state.alpha = static_cast<std::uint8_t>(value & 0xFF);
            continue;
        }
        if (filter.ask(tag.code, tag.value) != OwnTagFilter::Answer::kOwn) continue;
        switch (tag.code) {
        case 2:
            if (state.name.empty()) state.name = textOf(format, tag).wstr();
            break;
        case 6:
            state.linetype = tables.linetype(textOf(format, tag).view());
            break;
        case 62: {
            const std::int64_t value = std::clamp<std::int64_t>(integer(foregroundIndex), -256, 256);
            state.on = value >= 0;
            index = static_cast<int>(value);
            break;
        }
        case 70:
            state.frozen = (integer(0) & 1) != 0;
            state.locked = (integer(0) & 4) != 0;
            break;
        case 290:
            state.plottable = integer(1) != 0;
            break;
        case 370:
            if (const std::int64_t weight = integer(-3); weight >= 0 && weight <= mostLineweight)
                state.lineweight = static_cast<std::int16_t>(weight);
            break;
        case 420:
            rgb = static_cast<int>(integer(0));
            break;
        default:
            break;
        }
    }
    if (index || rgb) {
        const OdCmColor color = OdCmColor::fromDxf(index, rgb);
        if (!color.isByLayer() && !color.isByBlock()) state.paint = paintOf(color);
    }
    return state;
}

} // namespace

Paint paintOf(const OdCmColor& color) {
    const Rgb rgb = color.rgb();
    return {std::uint32_t{rgb.red} << 16 | std::uint32_t{rgb.green} << 8 | rgb.blue,
            color.isByACI() && color.colorIndex() == foregroundIndex};
}

std::uint32_t DrawingTables::layer(std::wstring_view name, StyleTable& styles) {
    const auto [found, isNew] = layers.try_emplace(tv::text::foldCase(name), 0);
    if (isNew) {
        LayerState state;
        state.name = name;
        found->second = styles.addLayer(std::move(state));
    }
    return found->second;
}

std::uint32_t DrawingTables::linetype(std::wstring_view name) const {
    const auto found = linetypes.find(tv::text::foldCase(name));
    return found == linetypes.end() ? 0 : found->second;
}

DrawingTables readTables(const OdDbDatabase& database, StyleTable& styles) {
    DrawingTables tables;
    std::vector<Linetype> linetypes(1);
    if (const auto table = database.getLinetypeTableId().open<OdDbLinetypeTable>())
        table->forEach([&](OdDbObjectId id) {
            const auto record = id.open<OdDbLinetypeTableRecord>();
            if (!record) return;
            const std::wstring name = tv::text::foldCase(record->getName().view());
            if (!tables.linetypes.try_emplace(name, static_cast<std::uint32_t>(linetypes.size())).second)
                return;
            linetypes.push_back({record->getName().wstr(), record->dashes()});
        });
    double scale = 1;
    if (const auto variable = database.headerVar(L"LTSCALE"))
        if (const double value = variable->asReal().value_or(1); value > 0) scale = value;
    styles.setLinetypes(std::move(linetypes), scale);
    std::vector<LayerState> layers(1);
    layers[0].name = L"0";
    tables.layers[L"0"] = 0;
    if (const auto table = database.getLayerTableId().open<OdDbLayerTable>())
        table->forEach([&](OdDbObjectId id) {
            LayerState state = layerOf(database.store(), id.record(), tables);
            const std::wstring name = tv::text::foldCase(state.name);
            const auto [found, isNew] =
                tables.layers.try_emplace(name, static_cast<std::uint32_t>(layers.size()));
            if (name == L"0")
                layers[0] = std::move(state);
            else if (isNew)
                layers.push_back(std::move(state));
        });
    styles.setLayers(std::move(layers));
    return tables;
}

} // namespace tv::scene
