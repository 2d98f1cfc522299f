#include "kxgui/layers/LayerNameRules.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"
#include "platform/text/Unicode.h"

#include <algorithm>

namespace kx::layers {
namespace {

bool isControl(wchar_t c) { return c < 0x20 || (c >= 0x7F && c < 0xA0); }

LayerTextFault checkText(std::wstring_view text) {
    if (text.size() > kLongestLayerText) return LayerTextFault::tooLong;
    if (text.find_first_of(kNotInLayerTexts) != std::wstring_view::npos) return LayerTextFault::character;
    return std::ranges::any_of(text, isControl) ? LayerTextFault::character : LayerTextFault::none;
}

// One that looks the same; the table itself compares code points, letter case aside.
OdDbObjectId lookAlike(const OdDbLayerTable& table, std::wstring_view name) {
    if (const OdDbObjectId same = table.getAt(name); !same.isNull()) return same;
    const std::wstring folded = tv::text::foldComposed(name);
    if (std::ranges::all_of(folded, [](wchar_t c) { return c < 0x80; })) return {};
    for (OdDbObjectId id = table.first(); !id.isNull(); id = table.next(id))
        if (tv::text::foldComposed(table.nameOf(id).view()) == folded) return id;
    return {};
}

} // namespace

LayerTextFault checkLayerDescription(std::wstring_view text) { return checkText(text); }

LayerTextFault checkLayerName(const OdDbDatabase& database, std::wstring_view name, OdDbObjectId layer) {
    if (name.empty()) return LayerTextFault::empty;
    if (const LayerTextFault fault = checkText(name); fault != LayerTextFault::none) return fault;
    const auto table = database.layers();
    const OdDbObjectId there = table ? lookAlike(*table, name) : OdDbObjectId();
    return there.isNull() || there == layer ? LayerTextFault::none : LayerTextFault::taken;
}

bool mayRename(const T_LAYER_DATA& layer) {
    return !isLayerZero(layer.name.view()) && !isRegionView(layer.name.view()) && !layer.xref;
}

bool isLayerZero(std::wstring_view name) { return name == L"0"; }

// Tables find layers without regard to letter case.
bool isRegionView(std::wstring_view name) { return tv::text::equalNoCase(name, kRegionViewLayer); }

OdString newLayerName(const OdDbDatabase& database) {
    const OdString base = VORD_ResourceString("IDS_ZEL_MANAGED_UI_LAYER_12", L"도면층").c_str();
    const auto table = database.layers();
    if (!table) return base;
    for (int n = 1;; ++n) {
        const std::wstring name = tv::text::format(L"%ls%d", base, n);
        if (!table->has(name)) return OdString(name);
    }
}

} // namespace kx::layers
