#pragma once

#include "platform/drawing/dxf/RecordStore.h"
#include "platform/text/OdString.h"

#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace tv::dwg {

// The value of the first group code 2, decoded.
OdString tableRecordName(const RecordStore& store, RecordId id);

// Record by name in each table, ignoring case, tables of one name as one table; built per table when first
// asked and kept when its records change. Of several records with one name the first counts.
class TableNames {
  public:
    explicit TableNames(const RecordStore& store) : m_store(store) {}
    RecordId find(RecordId table, std::wstring_view name);
    // The BLOCK record of that name, also in drawings with a table of block records.
    RecordId findBlock(std::wstring_view name);
    // Any record of the sections of tables or blocks was added, removed or changed.
    void recordChanged(ChangeKind kind, RecordId record);
    void clear() { m_tables.clear(); }

  private:
    struct Names {
        std::unordered_map<std::wstring, RecordId> records;
        bool duplicates = false; // so that taking a name away may uncover another record
        std::unordered_map<RecordId, const std::wstring*> nameOf; // of those found by name
        void add(std::wstring name, RecordId id);
        void remove(std::unordered_map<std::wstring, RecordId>::iterator named);
        RecordId find(const DxfFormat& format, std::wstring_view name) const;
    };
    static constexpr RecordId kBlocks = kNoRecord; // stands for the table that BLOCK records form
    const RecordStore& m_store;
    std::unordered_map<RecordId, Names> m_tables;
};

} // namespace tv::dwg
