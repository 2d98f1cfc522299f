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

void TableNames::Names::add(std::wstring name, RecordId id) {
    const auto [named, fresh] = records.emplace(std::move(name), id);
    duplicates |= !fresh;
    if (fresh) nameOf[id] = &named->first;
}

void TableNames::Names::remove(std::unordered_map<std::wstring, RecordId>::iterator named) {
    nameOf.erase(named->second);
    records.erase(named);
}

RecordId TableNames::Names::find(const DxfFormat& format, std::wstring_view name) const {
    const auto found = records.find(text::foldCase(nameAsRead(format, name).view()));
    return found == records.end() ? kNoRecord : found->second;
}

RecordId TableNames::find(RecordId table, std::wstring_view name) {
    table = m_store.firstTableLike(table);
    const auto [entry, fresh] = m_tables.try_emplace(table);
    Names& names = entry->second;
    for (; fresh && table != kNoRecord; table = m_store.nextTableLike(table)) {
        const RecordId end = m_store.endOfTable(table);
        for (RecordId id = m_store.next(table); id != end; id = m_store.next(id))
            names.add(text::foldCase(tableRecordName(m_store, id).view()), id);
    }
    return names.find(m_store.format(), name);
}

RecordId TableNames::findBlock(std::wstring_view name) {
    const auto [entry, fresh] = m_tables.try_emplace(kBlocks);
    Names& names = entry->second;
    const RecordId section = m_store.section(Section::kBlocks);
    if (fresh && section != kNoRecord) {
        const RecordId end = m_store.endOfSection(section);
        for (RecordId id = m_store.next(section); id != end; id = m_store.next(id))
            if (m_store.record(id).type == kTypeBlock)
                names.add(text::foldCase(tableRecordName(m_store, id).view()), id);
    }
    return names.find(m_store.format(), name);
}

void TableNames::recordChanged(ChangeKind kind, RecordId record) {
    const Record& r = m_store.record(record);
    if (r.type == kTypeTable) m_tables.clear();
    if (r.section == Section::kBlocks ? r.type != kTypeBlock : r.owner == kNoRecord) return;
    const auto entry = m_tables.find(r.section == Section::kBlocks ? kBlocks : m_store.firstTableLike(r.owner));
    if (entry == m_tables.end()) return;
    // Most changes leave the name alone, and new records bring new names; then the others stay good, which
    // matters when ten thousand layers change.
    Names& names = entry->second;
    const std::wstring name = text::foldCase(tableRecordName(m_store, record).view());
    const auto named = names.records.find(name);
    const bool isNamed = named != names.records.end() && named->second == record;
    if (kind == ChangeKind::kReplaced && isNamed) return;
    if (kind == ChangeKind::kInserted && named == names.records.end()) {
        names.add(name, record);
        return;
    }
    if (kind == ChangeKind::kRemoved && isNamed && !names.duplicates) {
        names.remove(named);
        return;
    }
    // A renamed record takes its one name along, which matters when ten thousand are renamed.
    const auto before = names.nameOf.find(record);
    if (kind == ChangeKind::kReplaced && !names.duplicates && named == names.records.end() &&
        before != names.nameOf.end()) {
        names.remove(names.records.find(*before->second));
        names.add(name, record);
        return;
    }
    m_tables.erase(entry);
}

} // namespace tv::dwg
