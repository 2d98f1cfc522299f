#include "tavocad/scene/DrawingTables.h"

#include "platform/drawing/OdCmTransparency.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "platform/drawing/OdDbStyleTables.h"
#include "platform/drawing/OdDbTextStyleTable.h"
#include "platform/drawing/dxf/OwnTags.h"
#include "platform/drawing/dxf/RecordStore.h"
#include "platform/text/Unicode.h"

#include "tavocad/scene/Box.h"

#include <algorithm>
#include <cmath>
#include <cstring>
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

Linetype linetypeOf(const OdDbDatabase& database, const OdDbLinetypeTableRecord& record) {
    Linetype linetype;
    linetype.name = record.getName().wstr();
    double way = 0;
    for (const OdDbLinetypeTableRecord::Element& element : record.pattern()) {
        linetype.dashes.push_back(element.length);
        way += std::abs(element.length);
        if (element.kind == OdDbLinetypeTableRecord::Element::kPlain) continue;
        LineMark mark{way, element.scale, element.rotation, element.absoluteRotation, element.offset, {}};
        if (element.kind == OdDbLinetypeTableRecord::Element::kText) {
            mark.letters = element.text.wstr();
            const auto style = database.getOdDbObjectId(element.style).open<OdDbTextStyleTableRecord>();
            if (style && style->textSize() > 0) mark.height *= style->textSize();
        }
        if (mark.height > 0 && isSomewhere(mark.height) && isSomewhere(mark.offset) &&
            std::isfinite(mark.rotation))
            linetype.marks.push_back(std::move(mark));
    }
    return linetype;
}

// Eight bytes at a time.
std::uint32_t hashOf(std::string_view name) {
    std::uint64_t hash = name.size();
    auto mix = [&hash](std::uint64_t word) {
        hash = (hash ^ word) * 0x9E3779B97F4A7C15;
        hash ^= hash >> 32;
    };
    for (; name.size() >= 8; name.remove_prefix(8)) {
        std::uint64_t word = 0;
        std::memcpy(&word, name.data(), 8);
        mix(word);
    }
    std::uint64_t word = 0;
    for (const char c : name)
        word = word << 8 | static_cast<unsigned char>(c);
    mix(word);
    return static_cast<std::uint32_t>(hash);
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
        state.recorded = false;
        found->second = styles.addLayer(std::move(state));
    }
    return found->second;
}

std::uint32_t DrawingTables::linetype(std::wstring_view name) const {
    const auto found = linetypes.find(tv::text::foldCase(name));
    return found == linetypes.end() ? 0 : found->second;
}

ByWhom linetypeBy(const EntityHead& head) {
    auto says = [name = trimmed(head.linetype)](std::string_view word) {
        return std::equal(name.begin(), name.end(), word.begin(), word.end(),
                          [](char a, char b) { return (a >= 'a' && a <= 'z' ? a - 'a' + 'A' : a) == b; });
    };
    if (head.linetype.empty() || says("BYLAYER")) return ByWhom::layer;
    return says("BYBLOCK") ? ByWhom::block : ByWhom::itself;
}

StyleSource sourceOf(const EntityHead& head, std::uint32_t layer, std::uint32_t linetype,
                     const StyleSource& insert) {
    StyleSource style;
    style.layer = layer;
    style.gate = insert.gate;
    const OdCmColor color = OdCmColor::fromDxf(head.color, head.rgb);
    if (color.isByLayer()) {
        style.paintLayer = layer;
    } else if (color.isByBlock()) {
        style.paint = insert.paint;
        style.paintLayer = insert.paintLayer;
    } else {
        style.paint = paintOf(color);
    }
    style.linetypeScale = head.linetypeScale;
    switch (linetypeBy(head)) {
    case ByWhom::layer:
        style.linetypeLayer = layer;
        break;
    case ByWhom::block:
        style.linetype = insert.linetype;
        style.linetypeLayer = insert.linetypeLayer;
        break;
    case ByWhom::itself:
        style.linetype = linetype;
    }
    if (head.lineweight == OdDb::kLnWtByLayer) {
        style.lineweightLayer = layer;
    } else if (head.lineweight == OdDb::kLnWtByBlock) {
        style.lineweight = insert.lineweight;
        style.lineweightLayer = insert.lineweightLayer;
    } else if (head.lineweight >= 0 && head.lineweight <= mostLineweight) {
        style.lineweight = static_cast<std::int16_t>(head.lineweight);
    }
    const OdCmTransparency transparency = OdCmTransparency::fromDxf(head.transparency);
    if (transparency.isByLayer()) {
        style.alphaLayer = layer;
    } else if (transparency.isByBlock()) {
        style.alpha = insert.alpha;
        style.alphaLayer = insert.alphaLayer;
    } else {
        style.alpha = transparency.alpha();
    }
    return style;
}

RawNames::RawNames(const OdDbDatabase& database, const DrawingTables& tables) {
    const RecordStore& store = database.store();
    auto read = [&](OdDbObjectId table, const auto& known, Names& names) {
        if (const auto records = table.open<OdDbSymbolTable>())
            records->forEach([&](OdDbObjectId id) {
                TagCursor tags = store.tags(id.record());
                for (Tag tag; tags.next(tag);)
                    if (tag.code == 2) {
                        const auto found = known.find(tv::text::foldCase(textOf(store.format(), tag).view()));
                        if (found != known.end()) names.add(tag.value, found->second);
                        break;
                    }
            });
    };
    read(database.getLayerTableId(), tables.layers, m_layers);
    read(database.getLinetypeTableId(), tables.linetypes, m_linetypes);
    m_layers.add("0", 0);
    m_layers.add("", 0); // an entity that names none
}

std::size_t RawNames::Names::slotOf(std::string_view name, std::uint32_t hash) const {
    for (std::size_t slot = hash & (slots.size() - 1);; slot = (slot + 1) & (slots.size() - 1)) {
        if (slots[slot].name == none) return slot;
        if (slots[slot].hash != hash) continue;
        const Name& known = names[slots[slot].name];
        if (std::string_view(letters).substr(known.first, known.length) == name) return slot;
    }
}

std::uint32_t RawNames::Names::find(std::string_view name) const {
    const std::uint32_t known = slots[slotOf(name, hashOf(name))].name;
    return known == none ? none : names[known].number;
}

void RawNames::Names::add(std::string_view name, std::uint32_t number) {
    if (find(name) != none) return;
    const auto index = static_cast<std::uint32_t>(names.size());
    names.push_back(
        {static_cast<std::uint32_t>(letters.size()), static_cast<std::uint32_t>(name.size()), number});
    letters += name;
    if (names.size() * 2 > slots.size()) {
        std::vector<Slot> old(slots.size() * 2);
        old.swap(slots);
        for (const Slot& slot : old) {
            if (slot.name == none) continue;
            const Name& moved = names[slot.name];
            slots[slotOf(std::string_view(letters).substr(moved.first, moved.length), slot.hash)] = slot;
        }
    }
    const std::uint32_t hash = hashOf(name);
    slots[slotOf(name, hash)] = {hash, index};
}

std::uint32_t RawNames::layer(std::string_view raw) const { return m_layers.find(raw); }
std::uint32_t RawNames::linetype(std::string_view raw) const { return m_linetypes.find(raw); }

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
            linetypes.push_back(linetypeOf(database, *record));
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

DrawingTables tablesOf(const StyleTable& styles) {
    DrawingTables tables;
    for (std::uint32_t i = 0; i < styles.layers().size(); ++i)
        tables.layers.try_emplace(tv::text::foldCase(styles.layers()[i].name), i);
    for (std::uint32_t i = 1; i < styles.linetypes().size(); ++i)
        tables.linetypes.try_emplace(tv::text::foldCase(styles.linetypes()[i].name), i);
    return tables;
}

} // namespace tv::scene
