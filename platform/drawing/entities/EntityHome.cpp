#include "platform/drawing/OdDbBlockTable.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/dxf/TagWriter.h"
#include "platform/drawing/entities/EntityAppender.h"
#include "platform/drawing/entities/OdDbBlockReference.h"
#include "platform/text/Unicode.h"

#include <unordered_set>

namespace tv::dwg {
namespace {

using enum OdDb::DxfVersion;

// Where a section of entities belongs: before the section of objects, else at the end.
RecordId makeEntitySection(OdDbDatabase& database) {
    RecordStore& store = database.store();
    RecordId before = store.section(Section::kObjects);
    RecordId last = RecordStore::kHead;
    if (before != kNoRecord) {
        last = store.prev(before);
    } else {
        for (RecordId id = store.next(RecordStore::kHead); id != kNoRecord; id = store.next(id)) {
            if (store.record(id).type == kTypeEof || store.record(id).type == kTypeTail) break;
            last = id;
        }
    }
    TagWriter begin(store.format());
    TagWriter end(store.format());
    const RecordId section = store.insertAfter(last, begin.name(0, "SECTION").name(2, "ENTITIES").take(),
                                               Section::kEntities, kNoRecord);
    if (section != kNoRecord)
        store.insertAfter(section, end.name(0, "ENDSEC").take(), Section::kEntities, kNoRecord);
    return section;
}

std::shared_ptr<OdDbBlockTableRecord> spaceRecord(OdDbDatabase& database, bool paper) {
    const auto table = database.getBlockTableId().open<OdDbBlockTable>();
    return table ? (paper ? table->getPaperSpaceId() : table->getModelSpaceId()).open<OdDbBlockTableRecord>()
                 : nullptr;
}

// A drawing of the oldest versions may have entities without handles.
bool carriesHandles(OdDbDatabase& database) {
    if (database.form() >= kR13) return true;
    const auto handling = database.headerVar(L"HANDLING");
    if (handling) return handling->asInteger() == 1;
    return database.store().highestHandle() != 0;
}

} // namespace

EntityHome EntityHome::block(OdDbObjectId block) {
    const auto record = block.open<OdDbBlockTableRecord>();
    if (!record) return {block.database(), block, false};
    const OdString name = record->getName();
    if (text::equalNoCase(name.view(), L"*Model_Space")) return modelSpace(*block.database());
    if (text::equalNoCase(name.view(), L"*Paper_Space")) return paperSpace(*block.database());
    return {block.database(), block, record->isLayout()};
}

Tavo::ErrorStatus checkHome(const EntityHome& home) {
    if (!home.database()) return Tavo::eKeyNotFound;
    if (!home.database()->store().writable()) return Tavo::eReadOnly;
    if (home.blockId().isNull()) return Tavo::eOk;
    const auto block = home.blockId().open<OdDbBlockTableRecord>();
    if (!block) return Tavo::eKeyNotFound;
    if (block->isFromExternalReference() || block->isXrefDependent()) return Tavo::eNotHandled;
    const OdDbObjectId begin = block->blockBeginId();
    return begin.isNull() || home.database()->store().endOfBlock(begin.record()) == kNoRecord
               ? Tavo::eKeyNotFound
               : Tavo::eOk;
}

HomePlace findPlace(const EntityHome& home) {
    HomePlace out;
    out.status = checkHome(home);
    if (out.status != Tavo::eOk) return out;
    OdDbDatabase& database = *home.database();
    RecordStore& store = database.store();
    out.paper = home.isPaper();
    out.handles = carriesHandles(database);
    auto record = home.blockId().open<OdDbBlockTableRecord>();
    if (record) {
        out.section = Section::kBlocks;
        out.owner = record->blockBeginId().record();
        out.last = store.prev(store.endOfBlock(out.owner));
    } else {
        RecordId section = store.section(Section::kEntities);
        if (section == kNoRecord) section = makeEntitySection(database);
        const RecordId end = section == kNoRecord ? kNoRecord : store.endOfSection(section);
        out.last = end == kNoRecord ? kNoRecord : store.prev(end);
        record = spaceRecord(database, out.paper);
    }
    if (out.last == kNoRecord) out.status = Tavo::eBadFile;
    if (record && database.form() >= kR13) out.ownerHandle = record->handle();
    return out;
}

bool holdsHome(const EntityHome& home, std::wstring_view block) {
    const auto own = home.blockId().open<OdDbBlockTableRecord>();
    const auto table = home.database()->getBlockTableId().open<OdDbBlockTable>();
    if (!own || !table) return false;
    const RecordId wanted = own->blockBeginId().record();
    std::vector<OdDbObjectId> open{table->getAt(block)};
    std::unordered_set<RecordId> seen;
    while (!open.empty()) {
        const auto record = open.back().open<OdDbBlockTableRecord>();
        open.pop_back();
        if (!record || !seen.insert(record->blockBeginId().record()).second) continue;
        if (record->blockBeginId().record() == wanted) return true;
        for (const OdDbObjectId id : record->entities())
            if (const auto insert = id.open<OdDbBlockReference>()) open.push_back(insert->blockTableRecordId());
    }
    return false;
}

} // namespace tv::dwg
