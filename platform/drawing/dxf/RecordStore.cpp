#include "platform/drawing/dxf/RecordStore.h"

#include <string_view>
#include <unordered_map>
#include <utility>

namespace tv::dwg {
namespace {

// Holds a flag for a scope.
class Held {
  public:
    explicit Held(bool& flag) : m_flag(flag) { m_flag = true; }
    ~Held() { m_flag = false; }
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;

  private:
    bool& m_flag;
};

} // namespace

RecordStore::RecordStore(std::string bytes) : m_bytes(std::move(bytes)) {
    Record head;
    head.flags = kStructure;
    m_records.push_back(head);
}

std::string_view RecordStore::typeName(RecordId id) const {
    const Record& r = m_records[id];
    if (r.type != kTypeOther) return m_types.name(r.type);
    Tag tag;
    if (TagCursor cursor = tags(id); cursor.next(tag) && tag.code == 0) return trimmed(tag.value);
    return {};
}

RecordId RecordStore::findHandle(std::uint64_t handle) const {
    if (!m_handles.built()) m_handles.build(m_records, kHead);
    return m_handles.find(m_records, handle);
}

std::uint64_t RecordStore::highestHandle() const {
    if (!m_handles.built()) m_handles.build(m_records, kHead);
    return m_handles.highest();
}

void RecordStore::noteSection(Section section, RecordId id) { m_sections.emplace_back(section, id); }
void RecordStore::noteTable(std::string_view name, RecordId id) {
    m_tables.emplace_back(name, id);
    m_tablesLinked = false;
}

void RecordStore::forgetStructure() {
    m_structureKnown = false;
    m_sectionEnds = noEnds();
    m_sections.clear();
    m_tables.clear();
    m_tablesLinked = false;
}

// Only after a section or table mark was inserted or removed; then the marks are few steps apart in none but
// the smallest drawings, so the whole list is walked once.
void RecordStore::findStructure() const {
    if (m_structureKnown) return;
    m_structureKnown = true;
    for (RecordId id = kHead; id != kNoRecord; id = m_records[id].next) {
        const Record& r = m_records[id];
        if (r.type == kTypeSection) m_sections.emplace_back(r.section, id);
        if (r.type != kTypeTable) continue;
        TagCursor cursor = tags(id);
        for (Tag tag; cursor.next(tag);)
            if (tag.code == 2) {
                m_tables.emplace_back(trimmed(tag.value), id);
                break;
            }
    }
}

RecordId RecordStore::section(Section section) const {
    findStructure();
    for (const auto& [kind, id] : m_sections)
        if (kind == section) return id;
    return kNoRecord;
}

RecordId RecordStore::table(std::string_view name) const {
    findStructure();
    for (const auto& [known, id] : m_tables)
        if (known == name) return id;
    return kNoRecord;
}

void RecordStore::linkTables() const {
    findStructure();
    if (m_tablesLinked) return;
    m_tablesLinked = true;
    m_likeTables.clear();
    struct Ends {
        RecordId first;
        RecordId last;
    };
    std::unordered_map<std::string_view, Ends> known;
    for (const auto& [name, id] : m_tables) {
        const auto [there, fresh] = known.try_emplace(name, Ends{id, id});
        if (fresh) continue;
        Ends& ends = there->second;
        m_likeTables.try_emplace(ends.first, LikeTable{ends.first, id});
        m_likeTables[ends.last].next = id;
        m_likeTables[id] = {ends.first, kNoRecord};
        ends.last = id;
    }
}

RecordId RecordStore::firstTableLike(RecordId table) const {
    linkTables();
    const auto like = m_likeTables.find(table);
    return like == m_likeTables.end() ? table : like->second.first;
}

RecordId RecordStore::nextTableLike(RecordId table) const {
    linkTables();
    const auto like = m_likeTables.find(table);
    return like == m_likeTables.end() ? kNoRecord : like->second.next;
}

RecordId RecordStore::endOfSection(RecordId section) const {
    auto& known = m_sectionEnds[static_cast<std::size_t>(m_records[section].section)];
    if (known.first == section && !isErased(known.second)) return known.second;
    RecordId id = m_records[section].next;
    while (id != kNoRecord) {
        const TypeId type = m_records[id].type;
        if (type == kTypeEndSec || type == kTypeSection || type == kTypeEof || type == kTypeTail) break;
        id = m_records[id].next;
    }
    if (id != kNoRecord) known = {section, id};
    return id;
}

RecordId RecordStore::endOfTable(RecordId table) const {
    if (m_tableEnd.first == table && !isErased(m_tableEnd.second)) return m_tableEnd.second;
    RecordId id = m_records[table].next;
    while (id != kNoRecord && m_records[id].owner == table && m_records[id].type != kTypeEndTab)
        id = m_records[id].next;
    if (id != kNoRecord && m_records[id].owner == table) m_tableEnd = {table, id};
    return id;
}

RecordId RecordStore::endOfBlock(RecordId begin) const {
    if (m_blockEnd.first == begin && !isErased(m_blockEnd.second)) return m_blockEnd.second;
    RecordId id = m_records[begin].next;
    while (id != kNoRecord && m_records[id].owner == begin && m_records[id].type != kTypeEndBlk)
        id = m_records[id].next;
    if (id == kNoRecord || m_records[id].owner != begin) return kNoRecord;
    m_blockEnd = {begin, id};
    return id;
}

bool RecordStore::replace(RecordId id, std::string bytes) {
    if (!writable() || isErased(id) || id == kHead) return false;
    if (text(id) == bytes) return true;
    const Record& r = m_records[id];
    // Bytes that are the file's own again stand as read; a record made later has none there.
    const bool asRead = r.length != 0 && bytes == std::string_view(m_bytes).substr(r.offset, r.length);
    Change change{ChangeKind::kReplaced, id, kNoRecord, r.block ? m_blocks[r.block - 1] : nullptr,
                  asRead ? nullptr : std::make_shared<const std::string>(std::move(bytes))};
    apply(change, true);
    m_undo.push(std::move(change));
    notify(ChangeKind::kReplaced, id);
    return true;
}

RecordId RecordStore::insertAfter(RecordId after, std::string bytes, Section section, RecordId owner) {
    if (!writable() || isErased(after)) return kNoRecord;
    const auto id = static_cast<RecordId>(m_records.size());
    Record record;
    record.section = section;
    record.owner = owner;
    record.flags = kErased;
    m_records.push_back(record);
    setBlock(id, std::make_shared<const std::string>(std::move(bytes)));
    refresh(id);
    Change change{ChangeKind::kInserted, id, after, nullptr, nullptr};
    apply(change, true);
    m_undo.push(std::move(change));
    notify(ChangeKind::kInserted, id);
    return id;
}

bool RecordStore::remove(RecordId id) {
    if (!writable() || isErased(id) || id == kHead) return false;
    Change change{ChangeKind::kRemoved, id, m_records[id].prev, nullptr, nullptr};
    apply(change, true);
    m_undo.push(std::move(change));
    notify(ChangeKind::kRemoved, id);
    return true;
}

bool RecordStore::undo() {
    const UndoLog::Step* step = m_undo.nextUndo();
    if (!step || m_undo.recording() || m_replaying) return false;
    const Held held(m_replaying);
    m_undo.stepBack();
    takeBack(step->changes);
    return true;
}

void RecordStore::cancelUndo() {
    const Held held(m_replaying);
    takeBack(m_undo.cancel());
}

void RecordStore::takeBack(const std::vector<Change>& changes) {
    for (auto change = changes.rbegin(); change != changes.rend(); ++change) {
        apply(*change, false);
        notify(change->kind == ChangeKind::kReplaced   ? ChangeKind::kReplaced
               : change->kind == ChangeKind::kInserted ? ChangeKind::kRemoved
                                                       : ChangeKind::kInserted,
               change->record);
    }
}

bool RecordStore::redo() {
    const UndoLog::Step* step = m_undo.nextRedo();
    if (!step || m_undo.recording() || m_replaying) return false;
    const Held held(m_replaying);
    m_undo.stepForward();
    for (const Change& change : step->changes) {
        apply(change, true);
        notify(change.kind, change.record);
    }
    return true;
}

void RecordStore::apply(const Change& change, bool forward) {
    if (change.kind == ChangeKind::kReplaced) {
        setBlock(change.record, forward ? change.now : change.before);
        refresh(change.record);
        return;
    }
    if ((change.kind == ChangeKind::kInserted) == forward)
        link(change.record, change.after);
    else
        unlink(change.record);
}

void RecordStore::setBlock(RecordId id, const Block& block) {
    Record& r = m_records[id];
    if (r.block) {
        m_blocks[r.block - 1] = block;
        // A record made here always has bytes of its own; only one that was read goes back to standing as read.
        if (!block) {
            std::swap(m_blocks[r.block - 1], m_blocks.back());
            if (r.block != m_blocks.size()) {
                m_blockOwners[r.block - 1] = m_blockOwners.back();
                m_records[m_blockOwners[r.block - 1]].block = r.block;
            }
            m_blocks.pop_back();
            m_blockOwners.pop_back();
            r.block = 0;
        }
        return;
    }
    if (!block) return;
    m_blocks.push_back(block);
    m_blockOwners.push_back(id);
    r.block = static_cast<std::uint32_t>(m_blocks.size());
}

void RecordStore::link(RecordId id, RecordId after) {
    Record& r = m_records[id];
    r.prev = after;
    r.next = m_records[after].next;
    m_records[after].next = id;
    if (r.next != kNoRecord) m_records[r.next].prev = id;
    r.flags = static_cast<std::uint8_t>(r.flags & ~kErased);
    // Of several records with one handle the first in the file counts, and only a new look tells which that is.
    const RecordId known = m_handles.built() ? m_handles.find(m_records, r.handle) : kNoRecord;
    if (known == kNoRecord)
        m_handles.add(m_records, id);
    else if (known != id)
        m_handles.clear();
    if (r.type == kTypeEndSec) m_sectionEnds = noEnds();
    if (r.type == kTypeSection || r.type == kTypeTable) forgetStructure();
}

void RecordStore::unlink(RecordId id) {
    Record& r = m_records[id];
    m_records[r.prev].next = r.next;
    if (r.next != kNoRecord) m_records[r.next].prev = r.prev;
    r.flags |= kErased;
    if (m_handles.hasDuplicates()) m_handles.clear();
    if (r.type == kTypeSection || r.type == kTypeTable) forgetStructure();
}

// Type, handle and flags again from the record's bytes.
void RecordStore::refresh(RecordId id) {
    Record& r = m_records[id];
    if (r.type == kTypeTail) return;
    const TypeId oldType = r.type;
    const std::uint64_t oldHandle = r.handle;
    const auto kept = static_cast<std::uint8_t>(r.flags & kErased);
    r.handle = 0;
    r.flags = kept;
    TagCursor cursor = tags(id);
    bool first = true;
    for (Tag tag; cursor.next(tag); first = false) {
        if (first) {
            if (tag.code == 9) {
                r.type = kTypeHeaderVar;
                r.flags |= kHeaderVariable;
                break;
            }
            r.type = m_types.idOf(trimmed(tag.value));
            if (r.type == kTypeVertex || r.type == kTypeAttrib || r.type == kTypeSeqEnd) r.flags |= kSubEntity;
            if (r.type == kTypeSection || r.type == kTypeEndSec || r.type == kTypeTable ||
                r.type == kTypeEndTab || r.type == kTypeEof)
                r.flags |= kStructure;
        } else if (tag.code == (r.type == kTypeDimStyle ? 105 : 5) && r.handle == 0) {
            if (const auto handle = handleOf(m_format, tag)) r.handle = handle->value();
        } else if (tag.code == 67 && r.section == Section::kEntities) {
            if (integerOf(m_format, tag) == 1) r.flags |= kPaperSpace;
        } else if (tag.code == 1001) {
            while (cursor.next(tag))
                if (tag.code == 1003) r.flags |= kLayerInData;
            break;
        }
    }
    if (r.type != oldType && (oldType == kTypeSection || oldType == kTypeTable)) forgetStructure();
    // A record that isn't linked yet is in no index.
    if (r.handle != oldHandle && !kept) m_handles.clear();
}

void RecordStore::notify(ChangeKind kind, RecordId id) {
    if (m_listener) m_listener(kind, id);
}

} // namespace tv::dwg
