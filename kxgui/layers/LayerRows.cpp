#include "kxgui/layers/LayerRows.h"

#include "kxgui/layers/LayerRecord.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "platform/drawing/dxf/RecordStore.h"
#include "platform/text/ResourceString.h"

#include <algorithm>
#include <numeric>

using tv::dwg::RecordId;
using Kind = kx::layers::LayerRowsChange::Kind;

namespace kx::layers {
namespace {

constexpr std::size_t longestKept = 32; // bytes of a name, on average

// Other programs keep such layers for themselves. Most records need no reading to tell: they hold no asterisk,
// and nothing that stands for one.
bool hidden(const OdDbLayerTable& table, OdDbObjectId layer) {
    const std::string_view bytes = layer.database()->store().text(layer.record());
    const bool maybe = bytes.find('*') != bytes.npos || bytes.find('\\') != bytes.npos;
    return maybe && table.nameOf(layer).view().starts_with(L'*');
}

} // namespace

LayerRows::LayerRows(std::vector<std::unique_ptr<CLayerCellItem>> items) : m_items(std::move(items)) {}

LayerRows::~LayerRows() {
    if (m_database) m_database->removeReactor(this);
}

// --- what is shown -------------------------------------------------------------------------------------------

void LayerRows::setDatabase(OdDbDatabase* database) {
    if (m_database) m_database->removeReactor(this);
    m_database = database;
    if (m_database) m_database->addReactor(this);
    m_viewport = {};
    m_order = {}; // of other layers
    refresh();
}

void LayerRows::setViewport(OdDbObjectId viewport) {
    m_viewport = viewport.database() == m_database ? viewport : OdDbObjectId();
    viewportChanged();
}

void LayerRows::viewportChanged() {
    readFrozen();
    forgetRead();
}

void LayerRows::setFilter(Filter filter) {
    m_filter = std::move(filter);
    applyFilter();
    showRows();
}

void LayerRows::setSearch(std::wstring_view text) {
    LayerNamePattern search(text);
    const bool narrower = search.narrows(m_search);
    m_search = std::move(search);
    applySearch(narrower);
    showRows();
}

void LayerRows::refresh() {
    m_currentKnown = false;
    forgetRead();
    readFrozen();
    const std::vector<RecordId> known = std::move(m_table);
    readTable();
    applyFilter();
    applySearch(false);
    if (m_order.empty() || m_table != known) {
        const SortedBy before = m_sortedBefore, now = m_sortedBy;
        m_order.clear();
        if (before.column >= 0) applySort(before);
        if (now.column >= 0) applySort(now);
    }
    showRows();
}

void LayerRows::resetSort() {
    m_sortedBy = m_sortedBefore = {};
    m_order = {};
    showRows();
}

void LayerRows::sort(int column, bool ascending) {
    if (!sortable(column)) return;
    if (m_sortedBy.column != column) m_sortedBefore = m_sortedBy;
    m_sortedBy = {column, ascending};
    applySort(m_sortedBy);
    showRows();
}

void LayerRows::readTable() {
    m_table = {};
    m_names = {};
    m_nameEnds = {};
    m_namesTooLong = false;
    m_ascending = true;
    m_layers = m_database ? m_database->layers() : nullptr;
    if (m_layers)
        m_layers->forEach([&](OdDbObjectId id) {
            if (hidden(*m_layers, id)) return;
            m_ascending = m_ascending && (m_table.empty() || m_table.back() < id.record());
            m_table.push_back(id.record());
        });
    m_table.shrink_to_fit();
    m_flags.assign(m_table.size(), kShown);
    m_alive = static_cast<int>(m_table.size());
}

void LayerRows::readFrozen() {
    m_frozen.clear();
    const auto viewport = m_viewport.open<OdDbViewport>();
    if (!viewport) return;
    for (const OdDbObjectId& layer : viewport->frozenLayers())
        m_frozen.push_back(layer.record());
    std::ranges::sort(m_frozen);
}

bool LayerRows::set(int entry, Flag flag, bool on) {
    std::uint8_t& flags = m_flags[static_cast<std::size_t>(entry)];
    flags = static_cast<std::uint8_t>(on ? flags | flag : flags & ~flag);
    return on;
}

bool LayerRows::accepts(int entry) const { return !m_filter || m_filter(read(entry)); }

void LayerRows::applyFilter() {
    for (int entry = 0; entry < static_cast<int>(m_table.size()); ++entry)
        if (m_flags[static_cast<std::size_t>(entry)] & kAlive) set(entry, kAccepted, accepts(entry));
}

void LayerRows::applySearch(bool narrower) {
    if (!m_search.all()) foldNames();
    if (!narrower && !m_search.plain().empty() && m_nameEnds.size() == m_table.size()) return findInNames();
    std::string scratch;
    for (int entry = 0; entry < static_cast<int>(m_table.size()); ++entry) {
        const std::uint8_t flags = m_flags[static_cast<std::size_t>(entry)];
        if (!(flags & kAlive) || (narrower && !(flags & kFound))) continue;
        set(entry, kFound, m_search.all() || m_search.fits(foldedName(entry, scratch)));
    }
}

// One search through all names as if they were one text.
void LayerRows::findInNames() {
    const std::string_view wanted = m_search.plain();
    for (std::uint8_t& flags : m_flags)
        flags = static_cast<std::uint8_t>(flags & ~kFound);
    std::size_t entry = 0;
    for (std::size_t at = m_names.find(wanted); at != std::string::npos;) {
        while (m_nameEnds[entry] <= at)
            ++entry;
        const bool within =
            at + wanted.size() <= m_nameEnds[entry]; // else the end of one and the start of the next
        if (within && (m_flags[entry] & kAlive)) m_flags[entry] |= kFound;
        at = m_names.find(wanted, within ? m_nameEnds[entry] : at + 1);
    }
}

void LayerRows::showRows() {
    m_places.clear();
    m_natural.clear();
    m_rows.clear();
    const auto shown = [this](int entry) { return m_flags[static_cast<std::size_t>(entry)] == kShown; };
    m_rows.reserve(static_cast<std::size_t>(std::ranges::count(m_flags, std::uint8_t{kShown})));
    if (m_order.empty()) {
        for (int entry = 0; entry < static_cast<int>(m_table.size()); ++entry)
            if (shown(entry)) m_rows.push_back(entry);
    } else {
        std::ranges::copy_if(m_order, std::back_inserter(m_rows), shown);
    }
}

void LayerRows::applySort(SortedBy by) {
    const CLayerCellItem* what = item(by.column);
    if (!what) return;
    if (m_order.empty()) {
        m_order.resize(m_table.size());
        std::iota(m_order.begin(), m_order.end(), 0);
    }
    const tv::text::Collator collator(kLayerCollation);
    if (what->column() == LayerColumn::name && dynamic_cast<const CLayerNameItem*>(what)) {
        tv::text::sortByText(m_order, by.ascending, collator,
                             [this](int entry) { return nameOf(entry).wstr(); });
        return;
    }
    std::vector<LayerVariant> values(m_table.size());
    bool texts = true;
    for (std::size_t entry = 0; entry < m_table.size(); ++entry) {
        if (m_flags[entry] & kAlive) values[entry] = what->value(read(static_cast<int>(entry)));
        texts = texts && std::holds_alternative<std::wstring>(values[entry]);
    }
    const auto valueOf = [&](int entry) -> const LayerVariant& {
        return values[static_cast<std::size_t>(entry)];
    };
    if (texts) {
        tv::text::sortByText(m_order, by.ascending, collator,
                             [&](int entry) { return std::get<std::wstring>(valueOf(entry)); });
        return;
    }
    // Values of different types are not compared; so that there is an order at all, each type stands by itself.
    const auto before = [&](int a, int b) {
        const LayerVariant &one = valueOf(a), &other = valueOf(b);
        return one.index() != other.index() ? one.index() < other.index()
                                            : CompareItems(one, other, collator) < 0;
    };
    if (by.ascending)
        std::ranges::stable_sort(m_order, before);
    else
        std::ranges::stable_sort(m_order, [&](int a, int b) { return before(b, a); });
}

// --- one layer -----------------------------------------------------------------------------------------------

int LayerRows::append(RecordId record) {
    const int entry = static_cast<int>(m_table.size());
    m_ascending = m_ascending && (m_table.empty() || m_table.back() < record);
    m_table.push_back(record);
    m_flags.push_back(0);
    if (!m_order.empty()) m_order.push_back(entry);
    return entry;
}

LayerRowsChange LayerRows::layerChanged(OdDbObjectId layer) {
    forgetRead();
    if (!m_database || layer.isNull() || layer.database() != m_database) return {};
    if (!m_layers) m_layers = m_database->layers();
    const auto record = layer.open<OdDbLayerTableRecord>();
    const bool there = record && m_layers && !hidden(*m_layers, layer);
    int entry = entryOfRecord(layer.record());
    if (entry < 0 && !there) return {};
    if (entry < 0) entry = append(layer.record());
    const std::uint8_t flags = m_flags[static_cast<std::size_t>(entry)];
    const int row = flags == kShown ? places()[static_cast<std::size_t>(entry)] : -1;

    m_alive += int{there} - int{(flags & kAlive) != 0};
    set(entry, kAlive, there);
    if (there) {
        // Its name may be another one; the names are read again when somebody searches.
        m_names = {};
        m_nameEnds = {};
        set(entry, kAccepted, accepts(entry));
        set(entry, kFound, m_search.all() || m_search.fits(LayerNamePattern::foldName(nameOf(entry).view())));
    }
    const bool shown = m_flags[static_cast<std::size_t>(entry)] == kShown;
    if (shown == (row >= 0)) return {shown ? Kind::changed : Kind::none, row};
    showRows();
    return shown ? LayerRowsChange{Kind::inserted, places()[static_cast<std::size_t>(entry)]}
                 : LayerRowsChange{Kind::removed, row};
}

// --- reading -------------------------------------------------------------------------------------------------

OdDbObjectId LayerRows::layerOf(int entry) const {
    return validEntry(entry) ? OdDbObjectId(m_database, m_table[static_cast<std::size_t>(entry)])
                             : OdDbObjectId();
}

OdDbObjectId LayerRows::current() const {
    if (!m_currentKnown) m_current = m_database ? currentLayer(*m_database) : OdDbObjectId();
    m_currentKnown = true;
    return m_current;
}

OdString LayerRows::nameOf(int entry) const {
    const OdDbObjectId layer = layerOf(entry);
    return layer.isErased() || !m_layers ? OdString() : m_layers->nameOf(layer);
}

T_LAYER_DATA LayerRows::read(int entry) const {
    const OdDbObjectId layer = layerOf(entry);
    if (layer.isNull()) return {};
    T_LAYER_DATA out = readLayer(layer, current());
    if (m_viewport.isNull()) return out;
    out.vpFrozen = std::ranges::binary_search(m_frozen, layer.record());
    out.vp = tv::dwg::overridesOf(layer, m_viewport);
    return out;
}

const T_LAYER_DATA& LayerRows::readOnce(int entry) const {
    if (m_readEntry != entry) m_read = read(entry);
    m_readEntry = entry;
    return m_read;
}

int LayerRows::entryOf(int row) const {
    return row >= 0 && row < rowCount() ? m_rows[static_cast<std::size_t>(row)] : -1;
}

int LayerRows::entryOfRecord(RecordId record) const {
    const auto found =
        m_ascending ? std::ranges::lower_bound(m_table, record) : std::ranges::find(m_table, record);
    return found != m_table.end() && *found == record ? static_cast<int>(found - m_table.begin()) : -1;
}

T_LAYER_DATA LayerRows::row(int row) const { return read(entryOf(row)); }
OdDbObjectId LayerRows::layerAt(int row) const { return layerOf(entryOf(row)); }

int LayerRows::rowOfLayer(OdDbObjectId layer) const {
    if (layer.isNull() || layer.database() != m_database) return -1;
    const int entry = entryOfRecord(layer.record());
    if (entry < 0) return -1;
    if (m_order.empty() && m_places.empty()) { // in the table's order a look for one needs no places of all
        const auto at = std::ranges::lower_bound(m_rows, entry);
        return at != m_rows.end() && *at == entry ? static_cast<int>(at - m_rows.begin()) : -1;
    }
    return places()[static_cast<std::size_t>(entry)];
}

const std::vector<int>& LayerRows::places() const {
    if (m_places.size() != m_table.size()) {
        m_places.assign(m_table.size(), -1);
        for (int row = 0; row < rowCount(); ++row)
            m_places[static_cast<std::size_t>(m_rows[static_cast<std::size_t>(row)])] = row;
    }
    return m_places;
}

const std::vector<int>& LayerRows::natural() const {
    if (m_natural.size() != m_rows.size()) {
        m_natural = m_rows;
        std::ranges::sort(m_natural);
    }
    return m_natural;
}

int LayerRows::identity(int row) const {
    if (m_order.empty() || entryOf(row) < 0) return row;
    return static_cast<int>(std::ranges::lower_bound(natural(), entryOf(row)) - natural().begin());
}

int LayerRows::rowOf(int identity) const {
    if (m_order.empty() || identity < 0 || identity >= rowCount()) return identity;
    return places()[static_cast<std::size_t>(natural()[static_cast<std::size_t>(identity)])];
}

std::uintptr_t LayerRows::rowKey(int row) const {
    const int entry = entryOf(row);
    return entry < 0 ? 0 : std::uintptr_t{m_table[static_cast<std::size_t>(entry)]} + 1;
}

int LayerRows::rowOfKey(std::uintptr_t key) const {
    return key == 0 ? -1 : rowOfLayer({m_database, static_cast<RecordId>(key - 1)});
}

// --- names ---------------------------------------------------------------------------------------------------

void LayerRows::foldNames() const {
    if (m_namesTooLong || m_nameEnds.size() == m_table.size()) return;
    m_names.clear();
    m_nameEnds.clear();
    m_nameEnds.reserve(m_table.size());
    const std::size_t room = longestKept * m_table.size() + 4096;
    for (int entry = 0; entry < static_cast<int>(m_table.size()); ++entry) {
        m_names += LayerNamePattern::foldName(nameOf(entry).view());
        m_nameEnds.push_back(static_cast<std::uint32_t>(m_names.size()));
        if (m_names.size() <= room) continue;
        m_namesTooLong = true;
        m_names = {};
        m_nameEnds = {};
        return;
    }
    m_names.shrink_to_fit();
}

std::string_view LayerRows::foldedName(int entry, std::string& scratch) const {
    const auto at = static_cast<std::size_t>(entry);
    if (m_nameEnds.size() != m_table.size()) {
        scratch = LayerNamePattern::foldName(nameOf(entry).view());
        return scratch;
    }
    const std::uint32_t begin = at == 0 ? 0 : m_nameEnds[at - 1];
    return std::string_view(m_names).substr(begin, m_nameEnds[at] - begin);
}

std::size_t LayerRows::memory() const {
    const auto of = [](const auto& container) { return container.capacity() * sizeof(*container.data()); };
    return of(m_frozen) + of(m_table) + of(m_flags) + of(m_order) + of(m_rows) + of(m_places) + of(m_natural) +
           of(m_names) + of(m_nameEnds);
}

// --- cells ---------------------------------------------------------------------------------------------------

const CLayerCellItem* LayerRows::item(int column) const {
    return column >= 0 && column < static_cast<int>(m_items.size())
               ? m_items[static_cast<std::size_t>(column)].get()
               : nullptr;
}

tv::ui::ListCell LayerRows::cell(int row, int column) const {
    const CLayerCellItem* what = item(column);
    return what && entryOf(row) >= 0 ? what->cell(readOnce(entryOf(row))) : tv::ui::ListCell{};
}

std::wstring LayerRows::text(int row, int column) const {
    const CLayerCellItem* what = item(column);
    if (!what || entryOf(row) < 0) return {};
    // Those who go through many rows ask for names.
    return what->column() == LayerColumn::name ? nameOf(entryOf(row)).wstr()
                                               : what->text(readOnce(entryOf(row)));
}

CInPlaceCtrlModel::Editor LayerRows::editor(int row, int column) const {
    const CLayerCellItem* what = item(column);
    return what && entryOf(row) >= 0 ? what->editor(readOnce(entryOf(row))) : Editor::none;
}

std::vector<tv::ui::ListItem> LayerRows::choices(int row, int column) const {
    const CLayerCellItem* what = item(column);
    return what && entryOf(row) >= 0 ? what->choices(readOnce(entryOf(row))) : std::vector<tv::ui::ListItem>();
}

InPlaceAnswer LayerRows::setValue(int row, int column, const std::wstring& text) {
    if (onSetText && entryOf(row) >= 0 && onSetText(row, column, text)) return {};
    return {VORD_ResourceString("IDS_TAVO_UI_TEXT_REFUSED", L"입력한 값을 받아들일 수 없습니다.").c_str(), {}};
}

} // namespace kx::layers
