#include "platform/drawing/dxf/NewRecord.h"

#include "platform/drawing/DimVariables.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/dxf/BlockRecords.h"
#include "platform/drawing/dxf/OwnTags.h"
#include "platform/drawing/dxf/RecordStore.h"
#include "platform/drawing/dxf/TableNames.h"
#include "platform/drawing/dxf/TagWriter.h"
#include "platform/text/Unicode.h"

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

// In the order files have the tables.
const Kind kKinds[] = {
    {"VPORT",
     "AcDbViewportTableRecord",
     {{70, "0"},
      {10, "0.0"},
      {20, "0.0"},
      {11, "1.0"},
      {21, "1.0"},
      {12, "0.0"},
      {22, "0.0"},
      {13, "0.0"},
      {23, "0.0"},
      {14, "0.5"},
      {24, "0.5"},
      {15, "0.5"},
      {25, "0.5"},
      {16, "0.0"},
      {26, "0.0"},
      {36, "1.0"},
      {17, "0.0"},
      {27, "0.0"},
      {37, "0.0"},
      {40, "9.0"},
      {41, "1.5"},
      {42, "50.0"},
      {43, "0.0"},
      {44, "0.0"},
      {50, "0.0"},
      {51, "0.0"},
      {71, "0"},
      {72, "100"},
      {73, "1"},
      {74, "3"},
      {75, "0"},
      {76, "0"},
      {77, "0"},
      {78, "0"},
      {281, "0", kR2000},
      {65, "1", kR2000},
      {110, "0.0", kR2000},
      {120, "0.0", kR2000},
      {130, "0.0", kR2000},
      {111, "1.0", kR2000},
      {121, "0.0", kR2000},
      {131, "0.0", kR2000},
      {112, "0.0", kR2000},
      {122, "1.0", kR2000},
      {132, "0.0", kR2000},
      {79, "0", kR2000},
      {146, "0.0", kR2000}}},
    {"LTYPE", "AcDbLinetypeTableRecord", {{70, "0"}, {3, ""}, {72, "65"}, {73, "0"}, {40, "0.0"}}},
    {"LAYER", "AcDbLayerTableRecord", {{70, "0"}, {62, "7"}, {6, "Continuous"}, {370, "-3", kR2000}}},
    {"STYLE",
     "AcDbTextStyleTableRecord",
     {{70, "0"}, {40, "0.0"}, {41, "1.0"}, {50, "0.0"}, {71, "0"}, {42, "2.5"}, {3, "txt"}, {4, ""}}},
    {"VIEW",
     "AcDbViewTableRecord",
     {{70, "0"},
      {40, "9.0"},
      {10, "0.0"},
      {20, "0.0"},
      {41, "13.5"},
      {11, "0.0"},
      {21, "0.0"},
      {31, "1.0"},
      {12, "0.0"},
      {22, "0.0"},
      {32, "0.0"},
      {42, "50.0"},
      {43, "0.0"},
      {44, "0.0"},
      {50, "0.0"},
      {71, "0"},
      {281, "0", kR2000},
      {72, "0", kR2000}}},
    {"UCS",
     "AcDbUCSTableRecord",
     {{70, "0"},
      {10, "0.0"},
      {20, "0.0"},
      {30, "0.0"},
      {11, "1.0"},
      {21, "0.0"},
      {31, "0.0"},
      {12, "0.0"},
      {22, "1.0"},
      {32, "0.0"},
      {79, "0", kR2000},
      {146, "0.0", kR2000}}},
    {"APPID", "AcDbRegAppTableRecord", {{70, "0"}}},
    {"DIMSTYLE", "AcDbDimStyleTableRecord", {{70, "0"}}},
    {"BLOCK_RECORD",
     "AcDbBlockTableRecord",
     {{340, "0", kR2000}, {70, "0", kR2007}, {280, "1", kR2007}, {281, "0", kR2007}}},
};

const Kind* kindOf(std::string_view table) {
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
    // A seed that lies is corrected, also one below handles in use: what is free there may still be referred
    // to. Where the highest handle leaves no room, the first gap is taken.
    if ((handle == 0 || handle <= store.highestHandle()) && store.highestHandle() < last - 1)
        handle = store.highestHandle() + 1;
    if (handle == 0 || handle == last) handle = 1;
    while (store.findHandle(handle) != kNoRecord)
        ++handle;
    database.setHeaderVar(L"HANDSEED", {5, OdDbHandle(handle + 1)});
    return handle;
}

namespace {

// The last record of the section, which a new one is put behind.
RecordId lastOf(const RecordStore& store, RecordId section) {
    const RecordId end = store.endOfSection(section);
    if (end != kNoRecord) return store.prev(end);
    RecordId last = section;
    while (store.next(last) != kNoRecord)
        last = store.next(last);
    return last;
}

// What a new layer, linetype apart, has in common with layer 0: its plot style and material.
std::string sharedTags(const RecordStore& store, OdDbDatabase& database, RecordId table) {
    std::string bytes;
    const RecordId zero = database.tableNames().find(table, L"0");
    if (zero == kNoRecord) return bytes;
    OwnTags own(store.format(), store.text(zero));
    for (Tag tag; own.next(tag);)
        if (tag.code == 390 || tag.code == 347) bytes += tagBytes(store.format(), tag.code, trimmed(tag.value));
    return bytes;
}

// The name as the file's own table spells it.
std::string spelled(OdDbDatabase& database, const char* table, std::wstring_view name, std::string_view usual) {
    const RecordStore& store = database.store();
    const RecordId id = store.table(table);
    const RecordId record = id == kNoRecord ? kNoRecord : database.tableNames().find(id, name);
    return std::string(record == kNoRecord ? usual : rawAt(store, record, 2));
}

// R12 writes every variable, with arrow blocks as names; later versions leave defaults out.
std::string dimStyleTags(OdDbDatabase& database) {
    const DxfFormat& format = database.store().format();
    TagWriter writer(format);
    if (format.form < kR13) {
        for (const int code : {3, 4, 5, 6, 7})
            writer.name(code, "");
        for (const DimVariable& variable : dimVariables())
            if (variable.first == kR10 && variable.type != DimVariable::kText && !variable.isReference())
                writer.tag(variable.code, variable.defaultValue());
    } else if (const DimVariable* style = dimVariable(L"DIMTXSTY")) {
        if (const auto handle = dimReference(database, *style, L"Standard"); handle && !handle->isNull())
            writer.tag(340, *handle);
    }
    return writer.take();
}

// Begins an entity of the BLOCKS section that belongs to the definition itself.
void blockEntity(TagWriter& writer, const DxfFormat& format, const char* type, OdDbHandle handle,
                 OdDbHandle owner, const char* subclass, bool paper) {
    const bool modern = format.form >= kR13;
    writer.name(0, type);
    if (!handle.isNull()) writer.name(5, handle.ascii());
    if (!owner.isNull() && format.form >= kR2000) writer.name(330, owner.ascii());
    if (modern) writer.name(100, "AcDbEntity");
    if (paper && modern) writer.tag(67, 1);
    writer.name(8, "0");
    if (modern) writer.name(100, subclass);
}

} // namespace

RecordId needSection(OdDbDatabase& database, Section section) {
    RecordStore& store = database.store();
    if (const RecordId there = store.section(section); there != kNoRecord) return there;
    const bool tables = section == Section::kTables;
    if ((!tables && section != Section::kBlocks) || !store.writable()) return kNoRecord;
    // Behind the nearest section that usually comes before it.
    RecordId after = RecordStore::kHead;
    for (const Section before : {Section::kHeader, Section::kClasses, Section::kTables})
        if (const RecordId id = store.section(before); id != kNoRecord && before != section) {
            const RecordId end = store.endOfSection(id);
            after = end != kNoRecord && store.record(end).type == kTypeEndSec ? end : lastOf(store, id);
        }
    const DxfFormat& format = store.format();
    const OdDbUndoScope step(database, L"SECTION");
    const RecordId id = store.insertAfter(
        after, tagBytes(format, 0, "SECTION") + tagBytes(format, 2, tables ? "TABLES" : "BLOCKS"), section,
        kNoRecord);
    store.insertAfter(id, tagBytes(format, 0, "ENDSEC"), section, kNoRecord);
    return id;
}

RecordId needTable(OdDbDatabase& database, std::string_view name) {
    RecordStore& store = database.store();
    if (const RecordId there = store.table(name); there != kNoRecord) return there;
    const Kind* kind = kindOf(name);
    const DxfFormat& format = store.format();
    const bool modern = format.form >= kR13;
    if (!kind || !store.writable() || (!modern && name == "BLOCK_RECORD")) return kNoRecord;
    const OdDbUndoScope step(database, std::wstring(name.begin(), name.end()));
    const RecordId section = needSection(database, Section::kTables);
    RecordId after = section;
    for (const Kind* before = kind; before-- != kKinds && after == section;)
        if (const RecordId table = store.table(before->type); table != kNoRecord) {
            const RecordId end = store.endOfTable(table);
            after = end == kNoRecord ? table : store.record(end).type == kTypeEndTab ? end : store.prev(end);
        }
    TagWriter writer(format);
    writer.name(0, "TABLE").name(2, name);
    if (modern)
        if (const OdDbHandle handle = takeHandle(database); !handle.isNull()) {
            writer.name(5, handle.ascii());
            if (format.form >= kR2000) writer.name(330, "0");
        }
    if (modern) writer.name(100, "AcDbSymbolTable");
    writer.tag(70, 1);
    if (format.form >= kR2000 && name == "DIMSTYLE") writer.name(100, "AcDbDimStyleTable").tag(71, 0);
    const RecordId table = store.insertAfter(after, writer.take(), Section::kTables, kNoRecord);
    store.insertAfter(table, tagBytes(format, 0, "ENDTAB"), Section::kTables, table);
    if (name == "BLOCK_RECORD") recordDefinitions(database, table);
    return table;
}

OdDbObjectId addTableRecord(OdDbDatabase& database, RecordId table, std::wstring_view name) {
    return addTableRecord(database, table, encodeText(database.store().format(), name), {});
}

OdDbObjectId addTableRecord(OdDbDatabase& database, RecordId table, std::string_view spelledName,
                            OdDbHandle handle) {
    RecordStore& store = database.store();
    const std::string_view tableName = rawAt(store, table, 2);
    const Kind* kind = kindOf(tableName);
    if (!kind || !store.writable()) return {};
    const DxfFormat& format = store.format();

    const std::wstring stepName(tableName.begin(), tableName.end());
    const OdDbUndoScope step(database, stepName);
    // A neighbour shows whether this file's records have handles and, where its version doesn't say it,
    // subclasses.
    const RecordId end = store.endOfTable(table);
    const RecordId last = end == kNoRecord ? table : store.prev(end);
    const bool subclasses = format.version == kUnknown ? format.form >= kR13
                                                       : hasTag(store, table, 100) || hasTag(store, last, 100);
    std::string bytes = tagBytes(format, 0, kind->type);
    const bool handles = subclasses || store.record(table).handle != 0 || store.record(last).handle != 0;
    if (handle.isNull() && handles) handle = takeHandle(database);
    if (!handle.isNull())
        bytes += tagBytes(format, std::string_view(kind->type) == "DIMSTYLE" ? 105 : 5, handle.ascii());
    if (subclasses) {
        if (store.record(table).handle != 0 && format.form >= kR2000)
            bytes += tagBytes(format, 330, OdDbHandle(store.record(table).handle).ascii());
        bytes += tagBytes(format, 100, "AcDbSymbolTableRecord");
        bytes += tagBytes(format, 100, kind->subclass);
    }
    bytes += tagBytes(format, 2, spelledName);
    for (const Usual& usual : kind->tags) {
        if (format.form < usual.first) continue;
        bytes += tableName == "LAYER" && usual.code == 6
                     ? tagBytes(format, 6, spelled(database, "LTYPE", L"Continuous", usual.value))
                     : usualTag(format, usual);
    }
    if (tableName == "LAYER") bytes += sharedTags(store, database, table);
    if (tableName == "DIMSTYLE") bytes += dimStyleTags(database);
    const RecordId id = store.insertAfter(last, std::move(bytes), Section::kTables, table);
    return id == kNoRecord ? OdDbObjectId() : OdDbObjectId(&database, id);
}

OdDbObjectId addBlock(OdDbDatabase& database, RecordId table, std::wstring_view name) {
    RecordStore& store = database.store();
    if (!store.writable()) return {};
    const DxfFormat& format = store.format();
    const OdDbUndoScope step(database, L"BLOCK");
    if (const RecordId made = needTable(database, "BLOCK_RECORD"); made != kNoRecord) table = made;
    const bool recorded = store.record(table).type == kTypeTable;
    const OdDbObjectId record = recorded ? addTableRecord(database, table, name) : OdDbObjectId();
    if (recorded && record.isNull()) return {};
    const OdDbHandle owner = record.handle();
    const RecordId section = needSection(database, Section::kBlocks);
    const bool paper = text::foldCase(name).starts_with(L"*paper_space");

    TagWriter begin(format);
    blockEntity(begin, format, "BLOCK", takeHandle(database), owner, "AcDbBlockBegin", paper);
    begin.tag(2, name).tag(70, name.front() == L'*' && !paper ? 1 : 0).point(10, {}).tag(3, name).name(1, "");
    const RecordId block = store.insertAfter(lastOf(store, section), begin.take(), Section::kBlocks, kNoRecord);
    TagWriter end(format);
    blockEntity(end, format, "ENDBLK", takeHandle(database), owner, "AcDbBlockEnd", paper);
    store.insertAfter(block, end.take(), Section::kBlocks, block);
    return recorded ? record : OdDbObjectId(&database, block);
}

} // namespace tv::dwg
