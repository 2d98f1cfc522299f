#include "platform/drawing/dxf/ObjectFactory.h"

#include "platform/drawing/OdDbBlockTable.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbDictionary.h"
#include "platform/drawing/OdDbEntity.h"
#include "platform/drawing/OdDbGroup.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "platform/drawing/OdDbLayout.h"
#include "platform/drawing/OdDbPlaceHolder.h"
#include "platform/drawing/OdDbPlotSettings.h"
#include "platform/drawing/OdDbScale.h"
#include "platform/drawing/OdDbStyleTables.h"
#include "platform/drawing/OdDbViewport.h"
#include "platform/drawing/OdDbXrecord.h"
#include "platform/drawing/dxf/RecordStore.h"
#include "platform/drawing/entities/OdDbBlockReference.h"
#include "platform/drawing/entities/OdDbDimension.h"
#include "platform/drawing/entities/OdDbHatch.h"
#include "platform/drawing/entities/OdDbLeader.h"
#include "platform/drawing/entities/OdDbMText.h"
#include "platform/drawing/entities/OdDbRasterImage.h"
#include "platform/drawing/entities/OdDbTable.h"
#include "platform/drawing/entities/OdDbText.h"

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
    {"UCS", make<OdDbUCSTable>, make<OdDbUCSTableRecord>},
};

struct TypeClass {
    std::string_view type;
    Make make;
};
constexpr TypeClass kEntities[] = {
    {"TEXT", make<OdDbText>},
    {"MTEXT", make<OdDbMText>},
    {"ATTRIB", make<OdDbAttribute>},
    {"ATTDEF", make<OdDbAttributeDefinition>},
    {"INSERT", make<OdDbBlockReference>},
    {"DIMENSION", make<OdDbDimension>},
    {"ARC_DIMENSION", make<OdDbDimension>},
    {"LARGE_RADIAL_DIMENSION", make<OdDbDimension>},
    {"LEADER", make<OdDbLeader>},
    {"MULTILEADER", make<OdDbMLeader>},
    {"MLEADER", make<OdDbMLeader>},
    {"ACAD_TABLE", make<OdDbTable>},
    {"HATCH", make<OdDbHatch>},
    {"IMAGE", make<OdDbRasterImage>},
    {"VIEWPORT", make<OdDbViewport>},
    {"WIPEOUT", make<OdDbRasterImage>},
};

OdDbObjectPtr makeEntity(const RecordStore& store, OdDbObjectId id, OdDb::OpenMode mode) {
    const std::string_view type = store.typeName(id.record());
    for (const TypeClass& known : kEntities)
        if (known.type == type) return known.make(id, mode);
    return make<OdDbEntity>(id, mode);
}

constexpr TypeClass kObjects[] = {
    {"DICTIONARY", make<OdDbDictionary>},
    {"ACDBDICTIONARYWDFLT", make<OdDbDictionaryWithDefault>},
    {"ACDBPLACEHOLDER", make<OdDbPlaceHolder>},
    {"GROUP", make<OdDbGroup>},
    {"LAYOUT", make<OdDbLayout>},
    {"PLOTSETTINGS", make<OdDbPlotSettings>},
    {"SCALE", make<OdDbScale>},
    {"XRECORD", make<OdDbXrecord>},
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
        return makeEntity(store, id, mode);
    case Section::kEntities:
        if (!(record.flags & kStructure)) return makeEntity(store, id, mode);
        break;
    case Section::kObjects: {
        const std::string_view type = store.typeName(id.record());
        for (const TypeClass& known : kObjects)
            if (known.type == type) return known.make(id, mode);
        break;
    }
    default:
        break;
    }
    return make<OdDbObject>(id, mode);
}

} // namespace tv::dwg
