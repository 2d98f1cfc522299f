#include "platform/drawing/dxf/NewObject.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbDictionary.h"
#include "platform/drawing/dxf/NewRecord.h"
#include "platform/drawing/dxf/RecordStore.h"

namespace tv::dwg {
namespace {

using enum OdDb::DxfVersion;

// From R2000 on; before, as the root does, which programs of those days write either way.
bool namesOwners(const OdDbDatabase& database) {
    if (database.form() >= kR2000) return true;
    const OdDbObjectPtr root = database.getNamedObjectsDictionaryId().openObject();
    return root && root->find(330);
}

// The handle's tag and, where the version has it, the owner's; the owner as reactor in between.
void writeHead(TagWriter& tags, const OdDbDatabase& database, std::string_view type, OdDbHandle handle,
               OdDbHandle owner, bool reactor) {
    tags.name(0, type).name(5, handle.ascii());
    if (reactor && !owner.isNull()) tags.name(102, "{ACAD_REACTORS").name(330, owner.ascii()).name(102, "}");
    if (namesOwners(database)) tags.name(330, owner.ascii());
}

void writeDictionaryTags(TagWriter& tags, const DxfFormat& format, bool hard) {
    tags.name(100, "AcDbDictionary");
    if (format.form < kR2000) return;
    if (hard) tags.tag(280, 1);
    tags.tag(281, 1);
}

// The record new sections go behind: the last one before the end mark.
RecordId beforeEndMark(const RecordStore& store) {
    RecordId id = store.section(Section::kEntities);
    if (id == kNoRecord) id = RecordStore::kHead;
    while (id != kNoRecord && store.record(id).type != kTypeEof)
        id = store.next(id);
    return id == kNoRecord ? id : store.prev(id);
}

struct ClassRecord {
    const char* type;
    const char* name;
    const char* application;
    int proxyFlags;
};
constexpr ClassRecord kClasses[] = {
    {"ACDBDICTIONARYWDFLT", "AcDbDictionaryWithDefault", "ObjectDBX Classes", 0},
    {"ACDBPLACEHOLDER", "AcDbPlaceHolder", "ObjectDBX Classes", 0},
    {"DICTIONARYVAR", "AcDbDictionaryVar", "ObjectDBX Classes", 0},
    {"LAYOUT", "AcDbLayout", "ObjectDBX Classes", 0},
    {"PLOTSETTINGS", "AcDbPlotSettings", "ObjectDBX Classes", 0},
    {"SCALE", "AcDbScale", "ObjectDBX Classes", 1153},
};

} // namespace

Tavo::ErrorStatus ensureObjects(OdDbDatabase& database) {
    RecordStore& store = database.store();
    const DxfFormat& format = store.format();
    if (const auto status = database.require(OdDb::Feature::kDictionaries); status != Tavo::eOk) return status;
    if (!store.writable()) return Tavo::eReadOnly;
    if (!database.getNamedObjectsDictionaryId().isNull()) return Tavo::eOk;
    RecordId section = store.section(Section::kObjects);
    const RecordId last = section == kNoRecord ? beforeEndMark(store) : section;
    if (last == kNoRecord) return Tavo::eNotHandled;
    const OdDbUndoScope step(database, L"DICTIONARY");
    const OdDbHandle handle = takeHandle(database);
    if (handle.isNull()) return Tavo::eNotHandled;
    if (section == kNoRecord) {
        section = store.insertAfter(last, TagWriter(format).name(0, "SECTION").name(2, "OBJECTS").take(),
                                    Section::kObjects, kNoRecord);
        store.insertAfter(section, TagWriter(format).name(0, "ENDSEC").take(), Section::kObjects, kNoRecord);
    }
    TagWriter root(format);
    writeHead(root, database, "DICTIONARY", handle, {}, false);
    writeDictionaryTags(root, format, false);
    store.insertAfter(section, root.take(), Section::kObjects, kNoRecord);
    return Tavo::eOk;
}

void ensureClass(OdDbDatabase& database, std::string_view type) {
    RecordStore& store = database.store();
    const RecordId section = store.section(Section::kClasses);
    if (section == kNoRecord) return;
    for (const ClassRecord& known : kClasses) {
        if (type != known.type) continue;
        RecordId last = section;
        for (RecordId id = store.next(section);
             id != kNoRecord && store.record(id).section == Section::kClasses &&
             store.record(id).type != kTypeEndSec;
             id = store.next(id)) {
            TagCursor cursor = store.tags(id);
            for (Tag tag; cursor.next(tag);)
                if (tag.code == 1 && trimmed(tag.value) == type) return;
            last = id;
        }
        const DxfFormat& format = store.format();
        TagWriter tags(format);
        tags.name(0, "CLASS").name(1, known.type).name(2, known.name).name(3, known.application);
        tags.tag(90, known.proxyFlags);
        if (format.form >= kR2004) tags.tag(91, 1);
        tags.tag(280, 0).tag(281, 0);
        store.insertAfter(last, tags.take(), Section::kClasses, kNoRecord);
        return;
    }
}

NewObject::NewObject(OdDbDatabase& database, std::string_view type, OdDbHandle owner, bool reactor)
    : m_database(database), m_tags(database.store().format()), m_status(ensureObjects(database)) {
    if (m_status != Tavo::eOk) return;
    m_handle = takeHandle(database);
    if (m_handle.isNull()) {
        m_status = Tavo::eNotHandled;
        return;
    }
    ensureClass(database, type);
    writeHead(m_tags, database, type, m_handle, owner, reactor);
}

OdDbObjectId NewObject::add(OdDbObjectId near) {
    RecordStore& store = m_database.store();
    if (m_status != Tavo::eOk || !m_tags.good() || !store.writable()) return {};
    RecordId after = near.record();
    if (near.isErased() || store.record(after).section != Section::kObjects) {
        const RecordId section = store.section(Section::kObjects);
        const RecordId end = store.endOfSection(section);
        after = end == kNoRecord ? section : store.prev(end);
    }
    const RecordId id = store.insertAfter(after, m_tags.take(), Section::kObjects, kNoRecord);
    return id == kNoRecord ? OdDbObjectId() : OdDbObjectId(&m_database, id);
}

OdDbObjectId addDictionary(OdDbDatabase& database, OdDbObjectId owner, bool hard, bool reactor) {
    NewObject made(database, "DICTIONARY", owner.handle(), reactor);
    writeDictionaryTags(made.tags(), database.store().format(), hard);
    return made.add(owner);
}

OdDbObjectId addDictionaryAt(OdDbObjectId owner, std::wstring_view name, bool hard) {
    const auto names = owner.open<OdDbDictionary>(OdDb::kForWrite);
    if (!names || name.empty() || names->has(name)) return {};
    const OdDbUndoScope step(*owner.database(), L"DICTIONARY");
    const OdDbObjectId made = addDictionary(*owner.database(), owner, hard);
    if (!made.isNull()) names->setAt(name, made);
    return made;
}

} // namespace tv::dwg
