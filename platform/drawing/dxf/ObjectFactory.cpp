#include "platform/drawing/dxf/ObjectFactory.h"

#include "platform/drawing/OdDbBlockTable.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbDictionary.h"
#include "platform/drawing/OdDbEntity.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "platform/drawing/OdDbStyleTables.h"
#include "platform/drawing/dxf/RecordStore.h"

#include <string_view>

namespace tv::dwg {
namespace {

using Make = OdDbObjectPtr (*)(OdDbObjectId, OdDb::OpenMode);

template <class T>
OdDbObjectPtr make(OdDbObjectId id, OdDb::OpenMode mode) {
    return std::make_shared<T>(id, mode);
}

struct TableClasses {
    std::string_view name; // of the table and of the type of its records
    Make table;
    Make record;
};
constexpr TableClasses kTables[] = {
    {"LAYER", make<OdDbLayerTable>, make<OdDbLayerTableRecord>},
    {"LTYPE", make<OdDbLinetypeTable>, make<OdDbLinetypeTableRecord>},
    {"STYLE", make<OdDbTextStyleTable>, make<OdDbTextStyleTableRecord>},
    {"DIMSTYLE", make<OdDbDimStyleTable>, make<OdDbDimStyleTableRecord>},
    {"BLOCK_RECORD", make<OdDbBlockTable>, make<OdDbBlockTableRecord>},
    {"APPID", make<OdDbRegAppTable>, make<OdDbRegAppTableRecord>},
    {"VIEW", make<OdDbViewTable>, make<OdDbViewTableRecord>},
    {"VPORT", make<OdDbViewportTable>, make<OdDbViewportTableRecord>},
};

OdDbObjectPtr makeTableObject(const RecordStore& store, const Record& record, OdDbObjectId id,
                              OdDb::OpenMode mode) {
    const bool table = record.type == kTypeTable;
    std::string_view name = store.typeName(id.record());
    if (table) {
        TagCursor cursor = store.tags(id.record());
        for (Tag tag; cursor.next(tag);)
            if (tag.code == 2) {
                name = trimmed(tag.value);
                break;
            }
    }
    for (const TableClasses& known : kTables)
        if (known.name == name) return (table ? known.table : known.record)(id, mode);
    return table ? make<OdDbSymbolTable>(id, mode) : make<OdDbSymbolTableRecord>(id, mode);
}

} // namespace

OdDbObjectPtr makeObject(OdDbObjectId id, OdDb::OpenMode mode) {
    const RecordStore& store = id.database()->store();
    const Record& record = store.record(id.record());
    switch (record.section) {
    case Section::kTables:
        if (record.type == kTypeTable || record.owner != kNoRecord)
            return makeTableObject(store, record, id, mode);
        break;
    case Section::kBlocks:
        if (record.type == kTypeSection) return make<OdDbBlockTable>(id, mode);
        if (record.type == kTypeBlock) return make<OdDbBlockTableRecord>(id, mode);
        return make<OdDbEntity>(id, mode);
    case Section::kEntities:
        if (!(record.flags & kStructure)) return make<OdDbEntity>(id, mode);
        break;
    case Section::kObjects: {
        const std::string_view type = store.typeName(id.record());
        if (type == "DICTIONARY" || type == "ACDBDICTIONARYWDFLT") return make<OdDbDictionary>(id, mode);
        break;
    }
    default:
        break;
    }
    return make<OdDbObject>(id, mode);
}

} // namespace tv::dwg
