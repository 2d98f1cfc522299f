// Any bytes through both readers: whatever opens must come back byte for byte, survive a few edits, and give
// its first bytes after undoing them.

#include "platform/drawing/EntityGeometry.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbDictionary.h"
#include "platform/drawing/OdDbEntity.h"
#include "platform/drawing/OdDbLayerTable.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

void require(bool good, const char* what) {
    if (good) return;
    std::fprintf(stderr, "broken: %s\n", what);
    std::abort();
}

void look(OdDbDatabase& database) {
    for (const OdString& name : database.headerVarNames())
        database.headerVar(name.view());
    int left = 2000;
    for (OdDbObjectId id = database.firstObject(); !id.isNull() && left-- > 0; id = database.nextObject(id)) {
        const OdDbObjectPtr object = id.openObject();
        require(object != nullptr, "an object of the list can't be opened");
        object->isA();
        object->ownerId();
        object->xData();
        object->extensionDictionary();
        tv::dwg::geometryOf(id);
        if (const auto entity = std::dynamic_pointer_cast<OdDbEntity>(object)) {
            entity->layerId();
            entity->linetypeId();
            entity->color();
        }
        if (const auto dictionary = std::dynamic_pointer_cast<OdDbDictionary>(object)) dictionary->entries();
    }
}

void edit(OdDbDatabase& database) {
    database.setHeaderVar(L"LUNITS", tv::dwg::HeaderValue::integer(3));
    database.setHeaderVar(L"INSBASE", tv::dwg::HeaderValue::point(OdGePoint3d{1, 2, 3}));
    database.setHeaderVar(L"ACADVER", tv::dwg::HeaderValue::text(L"AC1015"));
    if (const auto layers = database.layers(OdDb::kForWrite)) {
        layers->add(L"added");
        if (const auto layer = layers->first().open<OdDbLayerTableRecord>(OdDb::kForWrite)) {
            layer->setColor(OdCmColor::byIndex(30));
            layer->setName(L"renamed \u00e9");
        }
    }
    OdDbObjectId first;
    for (const OdDbObjectId id : database.modelSpace()) {
        first = id;
        break;
    }
    if (const auto entity = first.open<OdDbEntity>(OdDb::kForWrite)) {
        entity->setColor(OdCmColor::byIndex(1));
        entity->setVisible(false);
        entity->erase();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    const auto opened = OdDbDatabase::openBytes(bytes, "fuzz.dxf");
    if (!opened.database) {
        require(!opened.problems.empty(), "nothing opened and nobody said why");
        return 0;
    }
    OdDbDatabase& database = *opened.database;
    require(database.bytes() == bytes, "unedited bytes differ");
    look(database);
    edit(database);
    const std::string edited = database.bytes();
    look(database);
    while (database.undo()) {
    }
    require(database.bytes() == bytes, "bytes differ after undoing everything");
    while (database.redo()) {
    }
    require(database.bytes() == edited, "bytes differ after redoing everything");
    return 0;
}
