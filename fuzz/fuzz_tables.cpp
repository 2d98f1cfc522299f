// Any tables: every record's values are asked for and set, records are added and renamed, references carried
// along. Undoing all of it must give the first bytes.

#include "fuzz/Require.h"
#include "platform/drawing/DimVariables.h"
#include "platform/drawing/NameReferences.h"
#include "platform/drawing/OdDbBlockTable.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "platform/drawing/OdDbStyleTables.h"
#include "platform/drawing/UsageData.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace {

using namespace tv::dwg;

template <class Record, class Work>
void with(OdDbObjectId id, Work&& work) {
    if (const auto record = id.open<Record>(OdDb::kForWrite)) work(*record);
}

void change(OdDbObjectId id) {
    with<OdDbLayerTableRecord>(id, [](OdDbLayerTableRecord& r) {
        r.setTransparency(OdCmTransparency::byPercent(r.transparency().percent() ^ 7));
        r.setDescription(r.description().wstr() + L"x");
        r.setBookColor(OdCmColor::byRgb(1, 2, 3), L"A$B");
        r.setPlotStyleName(L"Normal");
    });
    with<OdDbLinetypeTableRecord>(id, [](OdDbLinetypeTableRecord& r) {
        auto pattern = r.pattern();
        pattern.resize(pattern.size() % 5 + 1);
        pattern.back().length += 1;
        r.setPattern(pattern);
        r.setIsScaledToFit(!r.isScaledToFit());
    });
    with<OdDbTextStyleTableRecord>(id, [](OdDbTextStyleTableRecord& r) {
        auto font = r.font();
        font.bold = !font.bold;
        font.typeface += L"y";
        r.setFont(font);
        r.setAnnotative(!r.annotative());
        r.setIsUpsideDown(!r.isUpsideDown());
    });
    with<OdDbDimStyleTableRecord>(id, [](OdDbDimStyleTableRecord& r) {
        for (const DimVariable& variable : dimVariables())
            r.setVariable(variable, variable.defaultValue());
        r.copyFrom(r);
        r.removeVariable(L"DIMFXL");
    });
    with<OdDbBlockTableRecord>(id, [](OdDbBlockTableRecord& r) {
        r.setPathName(L"a");
        r.setXrefKind(OdDbBlockTableRecord::XrefKind::kOverlaid);
        r.setBlockInsertUnits(4);
        r.setOrigin({1, 2, 3});
        r.setComments(L"c");
    });
    with<OdDbAbstractViewTableRecord>(id, [](OdDbAbstractViewTableRecord& r) {
        r.setHeight(r.height() + 1);
        r.setWidth(r.width() + 1);
        r.setViewTwist(r.viewTwist() + 1);
        r.setUcs(r.ucs());
    });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    const auto opened = OdDbDatabase::openBytes(bytes, "fuzz.dxf");
    if (!opened.database) return 0;
    OdDbDatabase& database = *opened.database;
    database.setReadOnly(false);
    std::vector<OdDbObjectId> records;
    std::vector<OdDbObjectId> dimensions;
    for (OdDbObjectId id = database.firstObject(); !id.isNull() && records.size() < 60;
         id = database.nextObject(id)) {
        if (id.open<OdDbSymbolTableRecord>())
            records.push_back(id);
        else if (!dimOverrides(*id.openObject()).empty())
            dimensions.push_back(id);
    }
    for (std::size_t kind = 0; kind < kNamedKinds; ++kind)
        database.usageData().generate(database, static_cast<NamedKind>(kind));
    dimDifferences(dimStyleDataOfDrawing(database), DimStyleData());
    for (const OdDbObjectId id : dimensions) {
        const auto object = id.openObject(OdDb::kForWrite);
        effectiveDimVariable(*object, L"DIMTXSTY");
        setDimOverride(*object, L"DIMASZ", 2.5);
        removeDimOverride(*object, L"DIMEXE");
        removeDimOverrides(*object);
    }
    for (const OdDbObjectId id : records) {
        change(id);
        if (id.isErased()) continue;
        const auto record = id.open<OdDbSymbolTableRecord>(OdDb::kForWrite);
        const OdString name = record->getName();
        const auto status = record->setName(L"fresh name");
        if (status == Tavo::eOk) {
            require(record->getName() == L"fresh name", "a renamed record has another name");
            record->setName(name.view());
        }
        retargetReferences(id, records.front());
    }
    for (const wchar_t* table : {L"LAYER", L"BLOCK_RECORD", L"DIMSTYLE", L"VPORT", L"VIEW", L"UCS", L"STYLE"})
        if (const auto opensTable = database.getTableId(table, true).open<OdDbSymbolTable>(OdDb::kForWrite)) {
            const OdDbObjectId added = opensTable->add(L"fuzzed");
            change(added);
            if (const auto record = added.open<OdDbSymbolTableRecord>(OdDb::kForWrite)) {
                record->isInUse();
                record->erase();
            }
        }
    const std::string edited = database.bytes();
    while (database.undo()) {
    }
    require(database.bytes() == bytes, "bytes differ after undoing everything");
    while (database.redo()) {
    }
    require(database.bytes() == edited, "bytes differ after redoing everything");
    return 0;
}
