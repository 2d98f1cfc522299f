#include "kxgui/layers/LayerFilterTree.h"

#include "kxgui/layers/LayerRecord.h"
#include "platform/drawing/ExternalReferences.h"
#include "platform/drawing/LayerOverrides.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "platform/drawing/OdDbViewport.h"
#include "platform/drawing/dxf/RecordStore.h"
#include "platform/text/Collation.h"
#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"
#include "platform/text/Unicode.h"

#include <algorithm>
#include <map>
#include <unordered_map>
#include <unordered_set>

using tv::dwg::LayerFilter;

namespace kx::layers {
namespace {

bool inUse(const T_LAYER_DATA& layer) {
    const auto record = layer.id.open<OdDbLayerTableRecord>();
    return record && record->isInUse();
}

// The reference a layer comes from: "plan" of "plan|Walls", "plan|detail" of "plan|detail|Walls".
std::wstring_view referenceOf(std::wstring_view layer) {
    const auto bar = layer.rfind(L'|');
    return bar == std::wstring_view::npos ? std::wstring_view() : layer.substr(0, bar);
}

void addSentence(std::wstring& to, std::wstring_view sentence) {
    if (sentence.empty()) return;
    if (!to.empty()) to += L'\n';
    to += sentence;
}

} // namespace

struct LayerFilterTree::Test {
    Kind kind;
    LayerFilterExpression expression;
    std::unordered_set<OdDbObjectId> layers;
    std::wstring reference; // folded

    bool fits(const T_LAYER_DATA& layer) const {
        switch (kind) {
        case Kind::all:
            return true;
        case Kind::used:
            return inUse(layer);
        case Kind::xrefs:
            return layer.xref;
        case Kind::xref: {
            if (!layer.xref) return false;
            const std::wstring own = tv::text::foldCase(referenceOf(layer.name.view()));
            return own.starts_with(reference) &&
                   (own.size() == reference.size() || own[reference.size()] == L'|');
        }
        case Kind::group:
            return layers.contains(layer.id);
        case Kind::property:
        case Kind::old:
            break;
        }
        return expression.fits(layer, expression.asksForUsage() && inUse(layer));
    }
};

LayerFilterExpression expressionOf(const LayerFilter::Patterns& patterns) {
    FilterRow row;
    const auto add = [&row](FilterProperty property, const OdString& pattern) {
        if (!pattern.isEmpty() && pattern != L"*") row.push_back({property, true, pattern.wstr()});
    };
    add(FilterProperty::name, patterns.name);
    add(FilterProperty::color, patterns.color);
    add(FilterProperty::linetype, patterns.linetype);
    add(FilterProperty::lineWeight, patterns.lineWeight);
    add(FilterProperty::plotStyle, patterns.plotStyle);
    if (patterns.states == 0) return LayerFilterExpression({row});
    return LayerFilterExpression::unreadable(
        filterText({row}),
        VORD_ResourceString("IDS_TAVO_LAYERFILTER_OLD_STATES",
                            L"예전 형식의 필터가 묻는 도면층 상태를 알 수 없어 도면층을 표시하지 않습니다.")
            .c_str());
}

int LayerFilterTree::add(int parent, Node node) {
    const int number = static_cast<int>(m_nodes.size());
    node.parent = parent;
    m_nodes.push_back(std::move(node));
    if (parent >= 0) m_nodes[static_cast<std::size_t>(parent)].children.push_back(number);
    return number;
}

void LayerFilterTree::clear() {
    m_database = nullptr;
    m_ready = nullptr;
    m_nodes.clear();
    Node all;
    all.key = L"all";
    all.name = L"All";
    all.text = VORD_ResourceString("IDS_ZEL_MANAGED_UI_LAYERFILTER_1", L"모두").c_str();
    add(-1, std::move(all));
}

void LayerFilterTree::read(OdDbDatabase& database, const std::vector<std::filesystem::path>& xrefFolders) {
    clear();
    m_database = &database;
    Node used;
    used.kind = Kind::used;
    used.key = L"used";
    used.name = L"All Used Layers";
    used.text = VORD_ResourceString("IDS_ZEL_MANAGED_UI_LAYERFILTER_2", L"사용된 모든 도면층").c_str();
    add(0, std::move(used));

    // Programs that write the newer kind keep an older filter of the same name beside it. It is the same one.
    std::map<std::wstring, int> newer;
    const auto addFilter = [&](const LayerFilter& filter, int parent, const auto& self) -> void {
        Node node;
        node.name = node.text = filter.name.wstr();
        node.record = filter.record;
        node.key = keyOf(filter.record);
        switch (filter.kind) {
        case LayerFilter::kGroup:
            node.kind = Kind::group;
            node.layers = filter.layers;
            node.missingLayers = filter.missingLayers;
            if (filter.missingLayers > 0)
                node.hint =
                    tv::text::format(VORD_ResourceString("IDS_TAVO_LAYERFILTER_MISSING",
                                                         L"이 그룹의 도면층 가운데 %d개가 도면에 없습니다."),
                                     filter.missingLayers);
            break;
        case LayerFilter::kProperties:
            node.kind = Kind::property;
            node.expression = LayerFilterExpression(filter.expression.view());
            break;
        case LayerFilter::kOld:
            node.kind = Kind::old;
            node.expression = expressionOf(filter.patterns);
            break;
        }
        if (node.kind != Kind::group) node.hint = node.expression.text();
        if (!node.expression.understood()) {
            node.faulty = true;
            addSentence(node.hint, node.expression.problem());
        }
        const std::wstring folded = tv::text::foldCase(node.name);
        const int number = add(parent, std::move(node));
        if (parent == 0 && filter.kind != LayerFilter::kOld) newer.emplace(folded, number);
        for (const LayerFilter& nested : filter.nested)
            self(nested, number, self);
    };
    for (const LayerFilter& filter : tv::dwg::layerFilters(database)) {
        const auto same =
            filter.kind == LayerFilter::kOld ? newer.find(tv::text::foldCase(filter.name.view())) : newer.end();
        if (same != newer.end())
            m_nodes[static_cast<std::size_t>(same->second)].twin = filter.record;
        else
            addFilter(filter, 0, addFilter);
    }
    addXrefs(database, xrefFolders);
}

void LayerFilterTree::addXrefs(OdDbDatabase& database, const std::vector<std::filesystem::path>& folders) {
    const tv::text::Collator collator({.digitsAsNumbers = true, .ignoreCase = true});
    std::map<std::wstring, tv::dwg::ExternalReference, tv::text::Collator> references(collator);
    for (tv::dwg::ExternalReference& reference : tv::dwg::ExternalReferences(database, folders).list())
        references.emplace(reference.name.wstr(), std::move(reference));
    // A drawing may keep layers of references it no longer has, and of those in its references.
    tv::dwg::ExternalReference unknown;
    unknown.status = tv::dwg::XrefStatus::kResolved;
    std::wstring last;
    if (const auto table = database.layers())
        table->forEach([&](OdDbObjectId id) {
            // Reading a name costs more than looking for the mark in it.
            const std::string_view bytes = database.store().text(id.record());
            if (bytes.find('|') == bytes.npos && bytes.find('\\') == bytes.npos) return;
            const OdString name = table->nameOf(id);
            const std::wstring_view own = referenceOf(name.view());
            if (own.empty() || own == last) return;
            last = own;
            const auto record = id.open<OdDbLayerTableRecord>();
            if (record && record->isDependent())
                references.emplace(last, unknown);
            else
                last.clear();
        });
    if (references.empty()) return;

    Node top;
    top.kind = Kind::xrefs;
    top.key = L"xrefs";
    top.name = L"Xref";
    top.text = VORD_ResourceString("IDS_TAVO_LAYERFILTER_XREFS", L"외부 참조").c_str();
    const int xrefs = add(0, std::move(top));
    std::unordered_map<std::wstring, int> known; // by folded name
    for (const auto& [name, reference] : references) {
        int parent = xrefs;
        for (std::size_t end = 0; end != std::wstring::npos;) {
            const std::size_t begin = end == 0 ? 0 : end + 1;
            end = name.find(L'|', begin);
            const std::wstring path = name.substr(0, end);
            const auto [place, isNew] = known.try_emplace(tv::text::foldCase(path), 0);
            if (isNew) {
                Node node;
                node.kind = Kind::xref;
                node.key = L"xref:" + place->first;
                node.name = path;
                node.text = path.substr(begin);
                if (end == std::wstring::npos) {
                    node.faulty = reference.status != tv::dwg::XrefStatus::kResolved;
                    node.hint = node.faulty ? reference.problem.sentence : reference.path.wstr();
                    if (node.faulty)
                        node.text = tv::text::format(
                            VORD_ResourceString("IDS_TAVO_LAYERFILTER_XREF_MISSING", L"%s (찾을 수 없음)"),
                            node.text);
                }
                place->second = add(parent, std::move(node));
            }
            parent = place->second;
        }
    }
}

std::wstring LayerFilterTree::keyOf(OdDbObjectId record) {
    return record.isNull() ? std::wstring() : L"#" + std::to_wstring(record.record());
}

int LayerFilterTree::find(std::wstring_view key) const {
    const auto found = std::ranges::find(m_nodes, key, &Node::key);
    return found == m_nodes.end() ? -1 : static_cast<int>(found - m_nodes.begin());
}

int LayerFilterTree::find(OdDbObjectId record) const { return record.isNull() ? -1 : find(keyOf(record)); }

// --- what a node shows ---------------------------------------------------------------------------------------

std::vector<int> LayerFilterTree::chainOf(int number) const {
    std::vector<int> chain;
    for (int at = number; valid(at) && node(at).kind != Kind::all; at = node(at).parent) {
        chain.push_back(at);
        if (node(at).kind != Kind::property) break;
    }
    return chain;
}

bool LayerFilterTree::asksForUsage(int number) const {
    return std::ranges::any_of(chainOf(number), [this](int at) {
        return node(at).kind == Kind::used || node(at).expression.asksForUsage();
    });
}

bool LayerFilterTree::asksForViewport(int number) const {
    return std::ranges::any_of(chainOf(number),
                               [this](int at) { return node(at).expression.asksForViewport(); });
}

bool LayerFilterTree::asksForCurrent(int number) const {
    return std::ranges::any_of(chainOf(number),
                               [this](int at) { return node(at).expression.asksForCurrent(); });
}

LayerFilterTree::Matcher LayerFilterTree::make(int number) const {
    std::vector<Test> tests;
    for (const int at : chainOf(number)) {
        const Node& one = node(at);
        tests.push_back({one.kind, one.expression, {one.layers.begin(), one.layers.end()}, {}});
        if (one.kind == Kind::xref) tests.back().reference = tv::text::foldCase(one.name);
    }
    if (tests.empty()) return [](const T_LAYER_DATA&) { return true; };
    // Copies of it are made freely; what it knows is shared.
    return [shared = std::make_shared<const std::vector<Test>>(std::move(tests))](const T_LAYER_DATA& layer) {
        return std::ranges::all_of(*shared, [&layer](const Test& test) { return test.fits(layer); });
    };
}

LayerFilterTree::Matcher LayerFilterTree::matcher(int number) const {
    if (m_database && asksForUsage(number))
        if (const auto table = m_database->layers()) table->generateUsageData();
    return make(number);
}

bool LayerFilterTree::accepts(int number, const T_LAYER_DATA& layer) const {
    if (!m_ready || m_readyNode != number) {
        m_ready = make(number);
        m_readyNode = number;
    }
    return m_ready(layer);
}

std::vector<T_LAYER_DATA> LayerFilterTree::rows(int number, OdDbObjectId viewport) const {
    std::vector<T_LAYER_DATA> out;
    const auto table = m_database ? m_database->layers() : nullptr;
    if (!table) return out;
    std::unordered_set<OdDbObjectId> frozen;
    tv::dwg::LayerOverrideMap overrides;
    if (!viewport.isNull() && asksForViewport(number)) {
        overrides = tv::dwg::overridesInViewport(*m_database, viewport);
        if (const auto opened = viewport.open<OdDbViewport>())
            for (const OdDbObjectId layer : opened->frozenLayers())
                frozen.insert(layer);
    }
    const OdDbObjectId current = currentLayer(*m_database);
    table->forEach([&](OdDbObjectId id) {
        if (table->nameOf(id).view().starts_with(L'*')) return; // other programs' own
        T_LAYER_DATA row = readLayer(id, current);
        row.vpFrozen = frozen.contains(id);
        if (const auto found = overrides.find(id); found != overrides.end()) row.vp = found->second;
        out.push_back(std::move(row));
    });
    return out;
}

std::vector<OdDbObjectId> LayerFilterTree::layersOf(int number, OdDbObjectId viewport) const {
    std::vector<OdDbObjectId> out;
    const Matcher fits = matcher(number);
    for (const T_LAYER_DATA& row : rows(number, viewport))
        if (fits(row)) out.push_back(row.id);
    return out;
}

std::vector<OdDbObjectId> LayerFilterTree::layersToIsolate(int number, OdDbObjectId viewport) const {
    std::vector<OdDbObjectId> out;
    const Matcher fits = matcher(number);
    for (const T_LAYER_DATA& row : rows(number, viewport))
        if (!row.current && !row.frozen && !fits(row)) out.push_back(row.id);
    return out;
}

} // namespace kx::layers
