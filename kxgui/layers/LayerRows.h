#pragma once

#include "kxgui/controls/InPlaceCtrlModel.h"
#include "kxgui/layers/LayerCellItems.h"
#include "kxgui/layers/LayerNamePattern.h"
#include "platform/drawing/OdDbDatabaseReactor.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "platform/drawing/OdDbViewport.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kx::layers {

// What became of the rows when one layer changed.
struct LayerRowsChange {
    enum class Kind { none, changed, inserted, removed } kind = Kind::none;
    int row = -1;
};

// The layers of a drawing as the rows of a grid. A row is a record's number; what its cells hold is read from
// the record when it is asked for. Layers other programs hide are left out.
class KXGUI_EXPORT LayerRows : public CInPlaceCtrlModel, private OdDbDatabaseReactor {
  public:
    using Filter = std::function<bool(const T_LAYER_DATA&)>;

    // Other columns than the usual ones: `items` in the order of the list's columns.
    explicit LayerRows(std::vector<std::unique_ptr<CLayerCellItem>> items = layerItems());
    ~LayerRows() override;

    // The layers of that drawing, in the order of its table; null: no rows. A drawing that goes away leaves
    // none behind. All of these show at once what they ask for; the list is told by who called (see
    // CLayerListCtrl::UpdateRows).
    void setDatabase(OdDbDatabase* database);
    OdDbDatabase* database() const { return m_database; }
    // The viewport whose values the columns for it show; null: none.
    void setViewport(OdDbObjectId viewport);
    OdDbObjectId viewport() const { return m_viewport; }
    // Shows the layers it accepts; empty: all, and no record is read for it.
    void setFilter(Filter filter);
    // Shows those of them whose names fit (see LayerNamePattern).
    void setSearch(std::wstring_view text);
    // Makes the names ready for searching, which else the first search does: for a moment when nobody waits.
    void prepareSearch() const { foldNames(); }
    // Reads the table again: layers came, went or changed, or what the filter knows is another. Layers that only
    // changed stay in their places; when others are there, all are sorted anew.
    void refresh();
    // Back to the order of the table.
    void resetSort();
    int sortedColumn() const { return m_sortedBy.column; } // -1: in the table's order

    // One layer was added, changed or erased; for many at a time, refresh() costs less. The order stays as it
    // is: a layer that is new stands at the end, one that comes back where it was.
    LayerRowsChange layerChanged(OdDbObjectId layer);
    // Another layer is the current one, or the viewport freezes other layers.
    void currentChanged() { m_currentKnown = false, forgetRead(); }
    void viewportChanged();

    // The layer of a row as it is now; an empty record for no row.
    T_LAYER_DATA row(int row) const;
    OdDbObjectId layerAt(int row) const;
    // -1 for a layer that isn't shown.
    int rowOfLayer(OdDbObjectId layer) const;
    // All layers, shown or not.
    int tableCount() const { return m_alive; }
    // Bytes its containers hold.
    std::size_t memory() const;

    const CLayerCellItem* item(int column) const;
    // Takes a text for a cell, false when it is refused; null: none is taken.
    std::function<bool(int row, int column, const std::wstring& text)> onSetText;

    int rowCount() const override { return static_cast<int>(m_rows.size()); }
    tv::ui::ListCell cell(int row, int column) const override;
    std::wstring text(int row, int column) const override;
    bool sortable(int column) const override { return item(column) != nullptr; }
    // Rows that are equal keep their order.
    void sort(int column, bool ascending) override;
    int identity(int row) const override;
    int rowOf(int identity) const override;

    Editor editor(int row, int column) const override;
    std::vector<tv::ui::ListItem> choices(int row, int column) const override;
    InPlaceAnswer setValue(int row, int column, const std::wstring& text) override;
    std::uintptr_t rowKey(int row) const override;
    int rowOfKey(std::uintptr_t key) const override;

  private:
    // An entry is a layer's place in the table as it was read.
    enum Flag : std::uint8_t { kAlive = 1, kAccepted = 2, kFound = 4, kShown = 7 };
    struct SortedBy {
        int column = -1;
        bool ascending = true;
    };

    void objectModified(OdDbDatabase&, OdDbObjectId) override { forgetRead(); }
    void objectErased(OdDbDatabase&, OdDbObjectId) override { forgetRead(); }
    void headerSysVarChanged(OdDbDatabase&, std::wstring_view) override { currentChanged(); }
    void goodbye(OdDbDatabase&) override { setDatabase(nullptr); }

    OdDbObjectId layerOf(int entry) const;
    OdDbObjectId current() const;
    OdString nameOf(int entry) const;
    T_LAYER_DATA read(int entry) const;
    const T_LAYER_DATA& readOnce(int entry) const;
    void forgetRead() const { m_readEntry = -1; }
    bool validEntry(int entry) const { return entry >= 0 && entry < static_cast<int>(m_table.size()); }
    int entryOf(int row) const;
    int entryOfRecord(tv::dwg::RecordId record) const;
    int append(tv::dwg::RecordId record);

    void readTable();
    void readFrozen();
    void applyFilter();
    void applySearch(bool narrower);
    void findInNames();
    void applySort(SortedBy by);
    void showRows();
    bool set(int entry, Flag flag, bool on);
    bool accepts(int entry) const;
    std::string_view foldedName(int entry, std::string& scratch) const;
    void foldNames() const;
    const std::vector<int>& places() const;  // row of each entry, -1: not shown
    const std::vector<int>& natural() const; // shown entries in the table's order

    std::vector<std::unique_ptr<CLayerCellItem>> m_items;
    OdDbDatabase* m_database = nullptr;
    std::shared_ptr<OdDbLayerTable> m_layers;
    OdDbObjectId m_viewport;
    std::vector<tv::dwg::RecordId> m_frozen; // in the viewport, sorted
    Filter m_filter;
    LayerNamePattern m_search;
    SortedBy m_sortedBy, m_sortedBefore;

    std::vector<tv::dwg::RecordId> m_table; // by entry
    bool m_ascending = true;                // so that an entry is found by its record in no time
    std::vector<std::uint8_t> m_flags;      // by entry
    int m_alive = 0;
    std::vector<int> m_order; // all entries as they are sorted; empty: in the table's order
    std::vector<int> m_rows;  // the entries shown
    mutable std::vector<int> m_places, m_natural;

    // Names as they are searched, of all entries one after the other; empty: not yet known, or too long to
    // keep.
    mutable std::string m_names;
    mutable std::vector<std::uint32_t> m_nameEnds;
    mutable bool m_namesTooLong = false;
    // The row read last, as painting asks for one cell after the other.
    mutable T_LAYER_DATA m_read;
    mutable int m_readEntry = -1;
    mutable OdDbObjectId m_current;
    mutable bool m_currentKnown = false;
};

} // namespace kx::layers
