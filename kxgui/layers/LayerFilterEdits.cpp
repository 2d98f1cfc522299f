#include "kxgui/layers/LayerFilterEdits.h"

#include "kxgui/layers/LayerNameRules.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"
#include "platform/text/Unicode.h"

#include <algorithm>
#include <functional>
#include <unordered_set>

using tv::dwg::LayerFilter;
using Kind = kx::layers::LayerFilterTree::Kind;
using Node = kx::layers::LayerFilterTree::Node;

namespace kx::layers {
namespace {

constexpr const wchar_t* kStep = L"_LAYER";
constexpr std::size_t kLongestName = 255;

std::wstring_view trimmed(std::wstring_view text) {
    while (!text.empty() && text.front() == L' ')
        text.remove_prefix(1);
    while (!text.empty() && text.back() == L' ')
        text.remove_suffix(1);
    return text;
}

std::wstring firstFreeName(const LayerFilterTree& tree, std::wstring_view base) {
    std::unordered_set<std::wstring> taken;
    for (const Node& node : tree.nodes())
        taken.insert(tv::text::foldCase(node.name));
    for (int n = 1;; ++n) {
        std::wstring name = std::wstring(base) + std::to_wstring(n);
        if (!taken.contains(tv::text::foldCase(name))) return name;
    }
}

FilterAnswer refused(std::wstring sentence) { return {std::move(sentence), {}}; }

std::wstring readOnlySentence() {
    return VORD_ResourceString("IDS_TAVO_LAYERFILTER_READ_ONLY",
                               L"도면이 읽기 전용이라 도면층 필터를 바꿀 수 없습니다.")
        .c_str();
}

std::wstring notChangedSentence() {
    return VORD_ResourceString("IDS_TAVO_LAYERFILTER_NOT_CHANGED", L"도면층 필터를 바꾸지 못했습니다.").c_str();
}

// What the drawing keeps of the filter, with those nested in it; without a record when it is gone.
LayerFilter filterOf(const OdDbDatabase& database, OdDbObjectId record) {
    const std::function<const LayerFilter*(const std::vector<LayerFilter>&)> find =
        [&](const std::vector<LayerFilter>& filters) -> const LayerFilter* {
        for (const LayerFilter& filter : filters) {
            if (filter.record == record) return &filter;
            if (const LayerFilter* const nested = find(filter.nested)) return nested;
        }
        return nullptr;
    };
    const auto all = tv::dwg::layerFilters(database);
    const LayerFilter* const found = record.isNull() ? nullptr : find(all);
    return found ? *found : LayerFilter();
}

// Runs `change` as one step, which leaves nothing behind when it answers anything but eOk.
FilterAnswer inOneStep(OdDbDatabase& database, OdDbObjectId record,
                       const std::function<Tavo::ErrorStatus()>& change) {
    if (database.isReadOnly()) return refused(readOnlySentence());
    OdDbUndoScope step(database, kStep);
    if (change() == Tavo::eOk) return {{}, record};
    step.cancel();
    return refused(notChangedSentence());
}

OdDbObjectId recordOfParent(const LayerFilterTree& tree, int parent) {
    return tree.valid(parent) && tree.node(parent).own() ? tree.node(parent).record : OdDbObjectId();
}

FilterAnswer addFilter(OdDbDatabase& database, const LayerFilterTree& tree, int parent, Kind kind,
                       LayerFilter filter) {
    parent = parentForNew(tree, kind, parent);
    if (std::wstring why = ValidateFilterChange(database, tree, kind, parent, -1, filter.name.view());
        !why.empty())
        return refused(std::move(why));
    OdDbObjectId made;
    FilterAnswer answer = inOneStep(database, {}, [&] {
        made = tv::dwg::addLayerFilter(database, filter, recordOfParent(tree, parent));
        return made.isNull() ? Tavo::eInvalidInput : Tavo::eOk;
    });
    answer.record = answer ? made : OdDbObjectId();
    return answer;
}

// Hands the filter's data to `edit` and stores them; the older filter beside it gets its name when it keeps its
// conditions, and goes when it would say something else from now on.
FilterAnswer changeFilter(OdDbDatabase& database, const Node& node, std::wstring_view name,
                          const std::function<void(LayerFilter&)>& edit) {
    LayerFilter filter = filterOf(database, node.record);
    if (filter.record.isNull()) return refused(notChangedSentence());
    const LayerFilter before = filter;
    filter.name = trimmed(name);
    edit(filter);
    const bool sameConditions = filter.expression == before.expression && filter.layers == before.layers;
    if (filter.name == before.name && sameConditions) return {{}, node.record};
    return inOneStep(database, node.record, [&] {
        if (const auto status = tv::dwg::changeLayerFilter(filter); status != Tavo::eOk) return status;
        if (node.twin.isNull()) return Tavo::eOk;
        if (!sameConditions) return tv::dwg::removeLayerFilter(node.twin);
        LayerFilter twin = filterOf(database, node.twin);
        twin.name = filter.name;
        return tv::dwg::changeLayerFilter(twin);
    });
}

std::wstring notAGroup() {
    return VORD_ResourceString("IDS_TAVO_LAYERFILTER_NO_GROUP",
                               L"그룹 필터에만 도면층을 추가하거나 바꿔 넣을 수 있습니다.")
        .c_str();
}

} // namespace

std::wstring newPropertyFilterName(const LayerFilterTree& tree) {
    return firstFreeName(tree, VORD_ResourceString("IDS_ZEL_MANAGED_UI_LAYERFILTER_4", L"특성 필터"));
}

std::wstring newGroupFilterName(const LayerFilterTree& tree) {
    return firstFreeName(tree, VORD_ResourceString("IDS_ZEL_MANAGED_UI_LAYERFILTER_5", L"그룹 필터"));
}

int parentForNew(const LayerFilterTree& tree, Kind kind, int at) {
    if (!tree.valid(at)) return 0;
    const Kind above = tree.node(at).kind;
    if (above == Kind::group) return at;
    return above == Kind::property && kind != Kind::group ? at : 0;
}

std::wstring ValidateFilterChange(const OdDbDatabase& database, const LayerFilterTree& tree, Kind kind,
                                  int parent, int node, std::wstring_view name) {
    const bool isNew = node < 0;
    if (database.isReadOnly()) return readOnlySentence();
    if (isNew && kind != Kind::old && !database.canHold(OdDb::Feature::kLayerFilters))
        return VORD_ResourceString("IDS_TAVO_LAYERFILTER_OLD_DRAWING",
                                   L"이 도면의 버전은 도면층 필터를 담을 수 없습니다.")
            .c_str();
    int above = 0;
    for (int at = parent; tree.valid(at) && tree.node(at).own(); at = tree.node(at).parent)
        ++above;
    if (isNew && above > tv::dwg::kDeepestLayerFilter)
        return VORD_ResourceString("IDS_TAVO_LAYERFILTER_TOO_DEEP",
                                   L"이보다 더 깊은 단계에는 도면층 필터를 만들 수 없습니다.")
            .c_str();
    if (!isNew && (!tree.valid(node) || !tree.node(node).own()))
        return tv::text::format(
            VORD_ResourceString("IDS_TAVO_LAYERFILTER_FIXED", L"도면층 필터 \"%s\"은(는) 바꿀 수 없습니다."),
            tree.node(node).text);
    if (trimmed(name).empty())
        return VORD_ResourceString("IDS_TAVO_LAYERFILTER_NO_NAME", L"도면층 필터의 이름을 입력하십시오.")
            .c_str();
    if (name.size() > kLongestName)
        return tv::text::format(
            VORD_ResourceString("IDS_TAVO_LAYERFILTER_LONG_NAME", L"도면층 필터의 이름은 %d자까지입니다."),
            static_cast<int>(kLongestName));
    if (std::ranges::any_of(
            name, [](wchar_t c) { return c < L' ' || kNotInLayerTexts.find(c) != std::wstring_view::npos; }))
        return tv::text::format(VORD_ResourceString("IDS_TAVO_LAYERFILTER_BAD_NAME",
                                                    L"필터 이름에 유효하지 않은 문자가 있습니다.\n\n다음 "
                                                    L"문자는 도면층 필터의 이름에 쓸 수 없습니다.\n\t%s"),
                                std::wstring(kNotInLayerTexts));
    // The names of the fixed ones, as they are shown and as files and scripts say them.
    for (const Node& fixed : tree.nodes())
        if (fixed.kind <= Kind::xrefs && (tv::text::equalNoCase(fixed.name, trimmed(name)) ||
                                          tv::text::equalNoCase(fixed.text, trimmed(name))))
            return tv::text::format(
                VORD_ResourceString("IDS_TAVO_LAYERFILTER_RESERVED",
                                    L"\"%s\"은(는) 고정된 필터의 이름입니다. 다른 이름을 입력하십시오."),
                std::wstring(name));
    for (const int sibling : tree.node(parent).children)
        if (sibling != node && tree.node(sibling).own() &&
            tv::text::equalNoCase(trimmed(tree.node(sibling).name), trimmed(name)))
            return tv::text::format(
                VORD_ResourceString("IDS_TAVO_LAYERFILTER_TAKEN", L"\"%s\" 필터가 이미 있습니다."),
                std::wstring(name));
    return {};
}

FilterAnswer addPropertyFilter(OdDbDatabase& database, const LayerFilterTree& tree, int parent,
                               std::wstring_view name, std::wstring_view expression) {
    LayerFilter filter;
    filter.name = trimmed(name);
    filter.expression = expression;
    return addFilter(database, tree, parent, Kind::property, std::move(filter));
}

FilterAnswer addGroupFilter(OdDbDatabase& database, const LayerFilterTree& tree, int parent,
                            std::wstring_view name, std::span<const OdDbObjectId> layers) {
    LayerFilter filter;
    filter.kind = LayerFilter::kGroup;
    filter.name = trimmed(name);
    filter.layers.assign(layers.begin(), layers.end());
    return addFilter(database, tree, parent, Kind::group, std::move(filter));
}

FilterAnswer renameFilter(OdDbDatabase& database, const LayerFilterTree& tree, int node,
                          std::wstring_view name) {
    const Node& one = tree.node(node);
    if (std::wstring why = ValidateFilterChange(database, tree, one.kind, one.parent, node, name); !why.empty())
        return refused(std::move(why));
    return changeFilter(database, one, name, [](LayerFilter&) {});
}

FilterAnswer changePropertyFilter(OdDbDatabase& database, const LayerFilterTree& tree, int node,
                                  std::wstring_view name, std::wstring_view expression) {
    const Node& one = tree.node(node);
    if (std::wstring why = ValidateFilterChange(database, tree, one.kind, one.parent, node, name); !why.empty())
        return refused(std::move(why));
    if (one.kind != Kind::property) return refused(notChangedSentence());
    return changeFilter(database, one, name, [&](LayerFilter& filter) { filter.expression = expression; });
}

FilterAnswer deleteFilter(OdDbDatabase& database, const LayerFilterTree& tree, int node) {
    const Node& one = tree.node(node);
    if (!tree.valid(node) || !one.own())
        return refused(tv::text::format(VORD_ResourceString("IDS_CAD_GUI_LAYER_CANNOT_DELETE_FILTER",
                                                            L"도면층 필터 \"%s\" 은(는) 삭제할 수 없습니다."),
                                        one.text));
    return inOneStep(database, one.record, [&] {
        const auto status = tv::dwg::removeLayerFilter(one.record);
        return status == Tavo::eOk && !one.twin.isNull() ? tv::dwg::removeLayerFilter(one.twin) : status;
    });
}

FilterAnswer convertToGroup(OdDbDatabase& database, const LayerFilterTree& tree, int node,
                            OdDbObjectId viewport) {
    const Node& one = tree.node(node);
    if (!tree.valid(node) || (one.kind != Kind::property && one.kind != Kind::old))
        return refused(VORD_ResourceString("IDS_TAVO_LAYERFILTER_NO_PROPERTIES",
                                           L"특성 필터만 그룹 필터로 바꿀 수 있습니다.")
                           .c_str());
    if (!database.canHold(OdDb::Feature::kLayerFilters))
        return refused(ValidateFilterChange(database, tree, Kind::group, one.parent, -1, one.name));
    LayerFilter group = filterOf(database, one.record);
    group.kind = LayerFilter::kGroup;
    group.record = {};
    group.layers = tree.layersOf(node, viewport);
    OdDbObjectId made;
    FilterAnswer answer = inOneStep(database, {}, [&] {
        made = tv::dwg::addLayerFilter(database, group, recordOfParent(tree, one.parent));
        if (made.isNull()) return Tavo::eInvalidInput;
        const auto status = tv::dwg::removeLayerFilter(one.record);
        return status == Tavo::eOk && !one.twin.isNull() ? tv::dwg::removeLayerFilter(one.twin) : status;
    });
    answer.record = answer ? made : OdDbObjectId();
    return answer;
}

FilterAnswer addLayers(OdDbDatabase& database, const LayerFilterTree& tree, int node,
                       std::span<const OdDbObjectId> layers) {
    if (!tree.valid(node) || tree.node(node).kind != Kind::group) return refused(notAGroup());
    return inOneStep(database, tree.node(node).record, [&] {
        for (int at = node; tree.valid(at) && tree.node(at).kind == Kind::group; at = tree.node(at).parent) {
            const FilterAnswer answer =
                changeFilter(database, tree.node(at), tree.node(at).name, [&](LayerFilter& filter) {
                    std::unordered_set<OdDbObjectId> known(filter.layers.begin(), filter.layers.end());
                    for (const OdDbObjectId layer : layers)
                        if (known.insert(layer).second) filter.layers.push_back(layer);
                });
            if (!answer) return Tavo::eInvalidInput;
        }
        return Tavo::eOk;
    });
}

FilterAnswer substituteLayers(OdDbDatabase& database, const LayerFilterTree& tree, int node,
                              std::span<const OdDbObjectId> layers) {
    if (!tree.valid(node) || tree.node(node).kind != Kind::group) return refused(notAGroup());
    return inOneStep(database, tree.node(node).record, [&] {
        const FilterAnswer own =
            changeFilter(database, tree.node(node), tree.node(node).name,
                         [&](LayerFilter& filter) { filter.layers.assign(layers.begin(), layers.end()); });
        return own && addLayers(database, tree, node, layers) ? Tavo::eOk : Tavo::eInvalidInput;
    });
}

FilterAnswer removeLayers(OdDbDatabase& database, const LayerFilterTree& tree, int node,
                          std::span<const OdDbObjectId> layers) {
    if (!tree.valid(node) || tree.node(node).kind != Kind::group) return refused(notAGroup());
    const std::unordered_set<OdDbObjectId> gone(layers.begin(), layers.end());
    return changeFilter(database, tree.node(node), tree.node(node).name, [&](LayerFilter& filter) {
        std::erase_if(filter.layers, [&](OdDbObjectId layer) { return gone.contains(layer); });
    });
}

} // namespace kx::layers
