#include "platform/drawing/dxf/TableNames.h"

#include "platform/drawing/dxf/OwnTags.h"
#include "platform/text/Unicode.h"

namespace tv::dwg {

OdString tableRecordName(const RecordStore& store, RecordId id) {
    OwnTags own(store.format(), store.text(id));
    for (Tag tag; own.next(tag);)
        if (tag.code == 2) return textOf(store.format(), tag);
    return {};
}

RecordId TableNames::find(RecordId table, std::wstring_view name) {
    const auto [entry, fresh] = m_tables.try_emplace(table);
    Names& names = entry->second;
    if (fresh) {
        const RecordId end = m_store.endOfTable(table);
        for (RecordId id = m_store.next(table); id != end; id = m_store.next(id))
            names.emplace(text::foldCase(tableRecordName(m_store, id).view()), id);
    }
    const auto found = names.find(text::foldCase(name));
    return found == names.end() ? kNoRecord : found->second;
}

RecordId TableNames::findBlock(std::wstring_view name) {
    const auto [entry, fresh] = m_tables.try_emplace(kBlocks);
    Names& names = entry->second;
    const RecordId section = m_store.section(Section::kBlocks);
    if (fresh && section != kNoRecord) {
        const RecordId end = m_store.endOfSection(section);
        for (RecordId id = m_store.next(section); id != end; id = m_store.next(id))
            if (m_store.record(id).type == kTypeBlock)
                names.emplace(text::foldCase(tableRecordName(m_store, id).view()), id);
    }
    const auto found = names.find(text::foldCase(name));
    return found == names.end() ? kNoRecord : found->second;
}

void TableNames::recordChanged(ChangeKind kind, RecordId record) {
    const Record& r = m_store.record(record);
    if (r.section == Section::kBlocks && r.type != kTypeBlock) return;
    const auto entry = m_tables.find(r.section == Section::kBlocks ? kBlocks : r.owner);
    if (entry == m_tables.end()) return;
    // Most changes leave the name alone, and new records bring new names; then the names stay good, which
    // matters when ten thousand layers change.
    if (kind != ChangeKind::kRemoved) {
        const auto name = text::foldCase(tableRecordName(m_store, record).view());
        const auto named = entry->second.find(name);
        if (named != entry->second.end() && named->second == record) return;
        if (named == entry->second.end() && kind == ChangeKind::kInserted) {
            entry->second.emplace(name, record);
            return;
        }
    }
    m_tables.erase(entry);
}

} // namespace tv::dwg
