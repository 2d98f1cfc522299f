#pragma once

#include "platform/Export.h"
#include "platform/drawing/OdDbObjectId.h"
#include "platform/drawing/dxf/DxfFormat.h"
#include "platform/drawing/dxf/DxfTags.h"
#include "platform/drawing/dxf/HandleIndex.h"
#include "platform/drawing/dxf/TypeNames.h"
#include "platform/drawing/dxf/UndoLog.h"

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace tv::dwg {

enum class Section : std::uint8_t { kNone, kHeader, kClasses, kTables, kBlocks, kEntities, kObjects, kOther };

// What the index says about a record besides its type.
enum RecordFlag : std::uint8_t {
    kErased = 1,
    kPaperSpace = 2, // an entity of the ENTITIES section that lies in paper space
    kSubEntity = 4,  // VERTEX, ATTRIB, SEQEND: belongs to the main entity before it
    kStructure = 8,  // marks of sections and tables, what stands before the first and behind the last record
    kHeaderVariable = 16,
    kLayerInData = 32, // its extended data name a layer
};

// One record: from a group code 0 to the next, or a header variable from its group code 9 to the next. The
// records form a doubly linked list in file order; together they cover every byte of the file.
struct Record {
    std::uint64_t offset = 0; // into the bytes as read; meaningless for a record made later
    std::uint64_t handle = 0;
    std::uint32_t length = 0;
    RecordId owner = kNoRecord; // the TABLE or BLOCK record it stands in
    RecordId next = kNoRecord;
    RecordId prev = kNoRecord;
    std::uint32_t block = 0; // 1 + number of its own block of bytes; 0 while it stands as read
    TypeId type = 0;
    Section section = Section::kNone;
    std::uint8_t flags = 0;
};
static_assert(sizeof(Record) <= 40, "a drawing has millions of them");

// The bytes of a drawing as a list of records, the edits made to them and the undo of those.
class KXPLATFORM_EXPORT RecordStore {
  public:
    // Told after every change, also those of undo and redo.
    using Listener = std::function<void(ChangeKind, RecordId)>;

    explicit RecordStore(std::string bytes);

    const DxfFormat& format() const { return m_format; }
    DxfFormat& format() { return m_format; }
    std::string_view bytesAsRead() const { return m_bytes; }

    // Record 0 is what stands before the first record, often empty; it is never edited or removed.
    static constexpr RecordId kHead = 0;
    const Record& record(RecordId id) const { return m_records[id]; }
    std::size_t recordCount() const { return m_records.size(); }
    bool isErased(RecordId id) const { return (m_records[id].flags & kErased) != 0; }
    RecordId next(RecordId id) const { return m_records[id].next; }
    RecordId prev(RecordId id) const { return m_records[id].prev; }
    std::string_view text(RecordId id) const {
        const Record& r = m_records[id];
        return r.block ? std::string_view(*m_blocks[r.block - 1])
                       : std::string_view(m_bytes).substr(r.offset, r.length);
    }
    TagCursor tags(RecordId id) const { return TagCursor(m_format, text(id)); }
    // The record's type as the file names it ("LINE"), a header variable's is "HEADERVAR".
    std::string_view typeName(RecordId id) const;
    TypeNames& types() { return m_types; }
    const TypeNames& types() const { return m_types; }

    // First record in file order with that handle, or kNoRecord.
    RecordId findHandle(std::uint64_t handle) const;
    std::uint64_t highestHandle() const;

    // First SECTION record of that kind and the first TABLE record of that name, or kNoRecord.
    RecordId section(Section section) const;
    RecordId table(std::string_view name) const;
    // A file may have several tables of one name: the first of those a table is one of, and the one behind it.
    RecordId firstTableLike(RecordId table) const;
    RecordId nextTableLike(RecordId table) const;
    // The ENDSEC or ENDTAB that closes it, or the record the group ends before; kNoRecord at the file's end.
    RecordId endOfSection(RecordId section) const;
    RecordId endOfTable(RecordId table) const;
    // The ENDBLK that ends the definition a BLOCK record begins; kNoRecord when it lacks one.
    RecordId endOfBlock(RecordId begin) const;

    // The parts of the file in order, adjoining parts as one.
    template <class Sink>
    void forEachSpan(Sink&& sink) const {
        std::string_view run;
        for (RecordId id = kHead; id != kNoRecord; id = m_records[id].next) {
            const std::string_view part = text(id);
            if (part.empty()) continue;
            if (run.data() + run.size() == part.data() && !m_records[id].block && !run.empty()) {
                run = std::string_view(run.data(), run.size() + part.size());
            } else {
                if (!run.empty()) sink(run);
                run = part;
            }
        }
        if (!run.empty()) sink(run);
    }

    // --- edits; all refused (false, kNoRecord) unless writable ---
    // False while an undo is being replayed and for a store set to be read only.
    bool writable() const { return !m_replaying && !m_readOnly; }
    bool readOnly() const { return m_readOnly; }
    void setReadOnly(bool readOnly) { m_readOnly = readOnly; }
    // Gives the record other bytes; nothing happens when they are the same.
    bool replace(RecordId id, std::string bytes);
    // Type, handle and flags are taken from the bytes; section and owner from the arguments.
    RecordId insertAfter(RecordId after, std::string bytes, Section section, RecordId owner);
    bool remove(RecordId id);

    UndoLog& undoLog() { return m_undo; }
    const UndoLog& undoLog() const { return m_undo; }
    bool undo();
    // Ends the innermost undo record after taking its changes back.
    void cancelUndo();
    bool redo();
    bool replaying() const { return m_replaying; }
    void setListener(Listener listener) { m_listener = std::move(listener); }

    // --- for the readers that build the index ---
    std::vector<Record>& records() { return m_records; }
    void noteSection(Section section, RecordId id);
    void noteTable(std::string_view name, RecordId id);

  private:
    using Block = UndoLog::Block;

    void apply(const Change& change, bool forward);
    void takeBack(const std::vector<Change>& changes);
    void setBlock(RecordId id, const Block& block);
    void link(RecordId id, RecordId after);
    void unlink(RecordId id);
    void refresh(RecordId id);
    void notify(ChangeKind kind, RecordId id);
    void forgetStructure();
    void findStructure() const;
    void linkTables() const;

    std::string m_bytes;
    DxfFormat m_format;
    std::vector<Record> m_records;
    std::vector<Block> m_blocks; // of the records that don't stand as read, and which records those are
    std::vector<RecordId> m_blockOwners;
    TypeNames m_types;
    mutable HandleIndex m_handles;
    mutable std::vector<std::pair<Section, RecordId>> m_sections;
    mutable std::vector<std::pair<std::string, RecordId>> m_tables;
    mutable bool m_structureKnown = true;
    struct LikeTable {
        RecordId first;
        RecordId next;
    };
    mutable std::unordered_map<RecordId, LikeTable> m_likeTables; // of those that aren't alone with their name
    mutable bool m_tablesLinked = false;
    // The table whose end was asked for last, and its ENDTAB: adding ten thousand layers asks as often.
    mutable std::pair<RecordId, RecordId> m_tableEnd{kNoRecord, kNoRecord};
    mutable std::pair<RecordId, RecordId> m_blockEnd{kNoRecord, kNoRecord};
    // The same for the last section of each kind.
    using Ends = std::array<std::pair<RecordId, RecordId>, 8>;
    static constexpr Ends noEnds() {
        Ends out{};
        out.fill({kNoRecord, kNoRecord});
        return out;
    }
    mutable Ends m_sectionEnds = noEnds();
    UndoLog m_undo;
    bool m_replaying = false;
    bool m_readOnly = false;
    Listener m_listener;
};

} // namespace tv::dwg
