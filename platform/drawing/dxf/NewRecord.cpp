#include "platform/drawing/dxf/NewRecord.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/dxf/OwnTags.h"
#include "platform/drawing/dxf/RecordStore.h"

#include <limits>

namespace tv::dwg {
namespace {

struct Usual {
    int code;
    const char* value;
    OdDb::DxfVersion first = OdDb::DxfVersion::kUnknown;
};

struct Kind {
    const char* type;
    const char* subclass;
    std::initializer_list<Usual> tags;
};

using enum OdDb::DxfVersion;

const Kind* kindOf(std::string_view table) {
    static const Kind kKinds[] = {
        {"LAYER", "AcDbLayerTableRecord", {{70, "0"}, {62, "7"}, {6, "Continuous"}, {370, "-3", kR2000}}},
        {"LTYPE", "AcDbLinetypeTableRecord", {{70, "0"}, {3, ""}, {72, "65"}, {73, "0"}, {40, "0.0"}}},
        {"STYLE",
         "AcDbTextStyleTableRecord",
         {{70, "0"}, {40, "0.0"}, {41, "1.0"}, {50, "0.0"}, {71, "0"}, {42, "2.5"}, {3, "txt"}, {4, ""}}},
        {"DIMSTYLE", "AcDbDimStyleTableRecord", {{70, "0"}}},
        {"APPID", "AcDbRegAppTableRecord", {{70, "0"}}},
    };
    for (const Kind& kind : kKinds)
        if (table == kind.type) return &kind;
    return nullptr;
}

std::string_view rawAt(const RecordStore& store, RecordId id, int code) {
    OwnTags own(store.format(), store.text(id));
    for (Tag tag; own.next(tag);)
        if (tag.code == code) return trimmed(tag.value);
    return {};
}

bool hasTag(const RecordStore& store, RecordId id, int code) {
    OwnTags own(store.format(), store.text(id));
    for (Tag tag; own.next(tag);)
        if (tag.code == code) return true;
    return false;
}

// The number as the group code wants it, out of its text.
std::string usualTag(const DxfFormat& format, const Usual& usual) {
    Tag tag;
    tag.code = usual.code;
    tag.value = usual.value;
    const DxfFormat plain; // of a text file, so that the text can be read
    const auto raw = rawValue(format, usual.code, valueOf(plain, tag));
    return tagBytes(format, usual.code, raw.value_or(usual.value));
}

} // namespace

OdDbHandle takeHandle(OdDbDatabase& database) {
    RecordStore& store = database.store();
    const auto seed = database.headerVar(L"HANDSEED");
    const auto* named = seed ? std::get_if<OdDbHandle>(&seed->value) : nullptr;
    if (!named && store.highestHandle() == 0) return {};
    std::uint64_t handle = named ? named->value() : 0;
    const std::uint64_t last = std::numeric_limits<std::uint64_t>::max();
    // A seed that lies is corrected; where the highest handle leaves no room, the first gap is taken.
    if ((handle == 0 || store.findHandle(handle) != kNoRecord) && store.highestHandle() < last - 1)
        handle = store.highestHandle() + 1;
    if (handle == 0 || handle == last) handle = 1;
    while (store.findHandle(handle) != kNoRecord)
        ++handle;
    database.setHeaderVar(L"HANDSEED", {5, OdDbHandle(handle + 1)});
    return handle;
}

OdDbObjectId addTableRecord(OdDbDatabase& database, RecordId table, std::wstring_view name) {
    RecordStore& store = database.store();
    const std::string_view tableName = rawAt(store, table, 2);
    const Kind* kind = kindOf(tableName);
    if (!kind || !store.writable()) return {};
    const DxfFormat& format = store.format();

    const std::wstring stepName(tableName.begin(), tableName.end());
    const OdDbUndoScope step(database, stepName);
    // A neighbour shows whether this file's records have handles, owners and subclasses.
    const RecordId end = store.endOfTable(table);
    const RecordId last = end == kNoRecord ? table : store.prev(end);
    const bool subclasses = hasTag(store, table, 100) || (last != table && hasTag(store, last, 100));
    std::string bytes = tagBytes(format, 0, kind->type);
    const bool handles = subclasses || store.record(table).handle != 0 || store.record(last).handle != 0;
    if (handles)
        if (const OdDbHandle handle = takeHandle(database); !handle.isNull())
            bytes += tagBytes(format, std::string_view(kind->type) == "DIMSTYLE" ? 105 : 5, handle.ascii());
    if (subclasses) {
        if (store.record(table).handle != 0 && format.version >= kR2000)
            bytes += tagBytes(format, 330, OdDbHandle(store.record(table).handle).ascii());
        bytes += tagBytes(format, 100, "AcDbSymbolTableRecord");
        bytes += tagBytes(format, 100, kind->subclass);
    }
    bytes += tagBytes(format, 2, encodeText(format, name));
    for (const Usual& usual : kind->tags)
        if (format.version >= usual.first) bytes += usualTag(format, usual);
    const RecordId id = store.insertAfter(last, std::move(bytes), Section::kTables, table);
    return id == kNoRecord ? OdDbObjectId() : OdDbObjectId(&database, id);
}

} // namespace tv::dwg
