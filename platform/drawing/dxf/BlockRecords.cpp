#include "platform/drawing/dxf/BlockRecords.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbLayout.h"
#include "platform/drawing/dxf/NewRecord.h"
#include "platform/drawing/dxf/OwnTags.h"
#include "platform/drawing/dxf/RecordEditor.h"
#include "platform/drawing/dxf/RecordStore.h"
#include "platform/drawing/dxf/Subclass.h"
#include "platform/drawing/dxf/TableNames.h"
#include "platform/text/Unicode.h"

#include <string>
#include <unordered_map>

namespace tv::dwg {
namespace {

using enum OdDb::DxfVersion;

// The first own tag of that code before the second subclass mark, where all entities have the same.
std::optional<Tag> commonTag(const RecordStore& store, RecordId id, int code) {
    OwnTags own(store.format(), store.text(id));
    int marks = 0;
    for (Tag tag; own.next(tag);) {
        if (tag.code == 100 && ++marks == 2) break;
        if (tag.code == code) return tag;
    }
    return std::nullopt;
}

class Recording {
  public:
    Recording(OdDbDatabase& database, RecordId table)
        : m_database(database), m_store(database.store()), m_table(table) {
        for (const OdDbObjectId id : database.layoutIds()) {
            const OdDbObjectPtr layout = id.openObject();
            const auto tag = findIn(*layout, "AcDbLayout", 330);
            const auto handle = tag ? handleOf(m_store.format(), *tag) : std::nullopt;
            if (!handle || m_store.findHandle(handle->value()) != kNoRecord) continue;
            m_layouts.emplace(handle->value(), id.handle());
            if ((integerIn(*layout, "AcDbPlotSettings", 70) & OdDbPlotSettings::kModelType) != 0)
                m_modelHandle = *handle;
        }
    }

    // The new record; kNoRecord for a definition that can't have one.
    RecordId add(RecordId definition) {
        const auto name = firstTag(definition, 2);
        if (!name || trimmed(name->value).empty()) return kNoRecord;
        const OdString known = textOf(m_store.format(), *name);
        if (m_database.tableNames().find(m_table, known.view()) != kNoRecord) return kNoRecord;
        OdDbHandle handle = missing(commonTag(m_store, definition, 330));
        if (handle.isNull() && text::equalNoCase(known.view(), L"*Model_Space") &&
            m_store.findHandle(m_modelHandle.value()) == kNoRecord)
            handle = m_modelHandle;
        const std::string raw(name->value);
        const OdDbObjectId made = addTableRecord(m_database, m_table, raw, handle);
        if (made.isNull()) return kNoRecord;
        if (const auto layout = m_layouts.find(made.handle().value()); layout != m_layouts.end())
            setLayout(made.record(), layout->second);
        if (m_store.format().form >= kR2000 && !made.handle().isNull()) setOwners(definition, made.handle());
        return made.record();
    }

    // The entities outside the definitions, which lie in one space or the other.
    void setOwnersOfSpaces() {
        const RecordId section = m_store.section(Section::kEntities);
        if (section == kNoRecord || m_store.format().form < kR2000) return;
        TableNames& names = m_database.tableNames();
        const RecordId spaces[] = {names.find(m_table, L"*Model_Space"), names.find(m_table, L"*Paper_Space")};
        for (RecordId id = m_store.next(section); id != kNoRecord; id = m_store.next(id)) {
            const Record& record = m_store.record(id);
            if (record.section != Section::kEntities || (record.flags & kStructure)) break;
            const RecordId space = spaces[(record.flags & kPaperSpace) != 0];
            if ((record.flags & kSubEntity) || space == kNoRecord) continue;
            const auto owner = commonTag(m_store, id, 330);
            if (!missing(owner).isNull()) setOwner(id, m_store.record(space).handle, false);
        }
    }

  private:
    std::optional<Tag> firstTag(RecordId id, int code) const {
        OwnTags own(m_store.format(), m_store.text(id));
        for (Tag tag; own.next(tag);)
            if (tag.code == code) return tag;
        return std::nullopt;
    }

    // The handle a tag names, when nothing has it.
    OdDbHandle missing(const std::optional<Tag>& tag) const {
        const auto handle = tag ? handleOf(m_store.format(), *tag) : std::nullopt;
        return handle && m_store.findHandle(handle->value()) == kNoRecord ? *handle : OdDbHandle();
    }

    // Entities that name no owner go on doing so; the definition's begin and end get one.
    void setOwners(RecordId definition, OdDbHandle owner) {
        setOwner(definition, owner, true);
        for (RecordId id = m_store.next(definition); id != kNoRecord && m_store.record(id).owner == definition;
             id = m_store.next(id))
            if (!(m_store.record(id).flags & kSubEntity))
                setOwner(id, owner, m_store.record(id).type == kTypeEndBlk);
    }

    void setOwner(RecordId id, OdDbHandle owner, bool add) {
        const auto now = commonTag(m_store, id, 330);
        if (now ? handleOf(m_store.format(), *now) == owner : !add) return;
        RecordEditor record(m_store.format(), m_store.text(id));
        std::size_t place = RecordEditor::npos;
        for (const std::size_t i : ownTags(record)) {
            if (now && record.code(i) == 330) {
                record.set(i, owner);
                break;
            }
            if (record.code(i) == 5 || record.code(i) == 0) place = i + 1;
            if (record.code(i) != 100) continue;
            // Groups that tie it to others stand before the owner.
            place = i;
            break;
        }
        if (!now) record.insert(place, 330, owner);
        if (record.edited()) m_store.replace(id, record.bytes());
    }

    void setLayout(RecordId id, OdDbHandle layout) {
        RecordEditor record(m_store.format(), m_store.text(id));
        if (const std::size_t i = record.find(340); i != RecordEditor::npos) record.set(i, layout);
        if (record.edited()) m_store.replace(id, record.bytes());
    }

    OdDbDatabase& m_database;
    RecordStore& m_store;
    RecordId m_table;
    std::unordered_map<std::uint64_t, OdDbHandle> m_layouts; // by the handle of the record they lack
    OdDbHandle m_modelHandle;                                // the one the model's layout lacks
};

} // namespace

void recordDefinitions(OdDbDatabase& database, RecordId table) {
    RecordStore& store = database.store();
    const RecordId section = store.section(Section::kBlocks);
    if (section == kNoRecord) return;
    const OdDbUndoScope step(database, L"BLOCK_RECORD");
    Recording recording(database, table);
    const RecordId end = store.endOfSection(section);
    for (RecordId id = store.next(section); id != kNoRecord && id != end; id = store.next(id))
        if (store.record(id).type == kTypeBlock) recording.add(id);
    recording.setOwnersOfSpaces();
}

RecordId needBlockRecord(OdDbDatabase& database, RecordId definition) {
    RecordStore& store = database.store();
    const OdString name = tableRecordName(store, definition);
    if (store.format().form < kR13 || database.tableNames().findBlock(name.view()) != definition)
        return kNoRecord;
    const OdDbUndoScope step(database, L"BLOCK_RECORD");
    const RecordId table = needTable(database, "BLOCK_RECORD");
    if (table == kNoRecord) return kNoRecord;
    const RecordId known = database.tableNames().find(table, name.view());
    return known != kNoRecord ? known : Recording(database, table).add(definition);
}

} // namespace tv::dwg
