// Any bytes through what hangs below a drawing's dictionaries: objects, layouts, viewports, layer states,
// filters and overrides are read, made and changed; undoing gives the first bytes back, and what was written
// reads again.

#include "fuzz/Require.h"
#include "platform/drawing/LayerFilters.h"
#include "platform/drawing/LayerOverrides.h"
#include "platform/drawing/LayerStates.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbDictionary.h"
#include "platform/drawing/OdDbEntity.h"
#include "platform/drawing/OdDbGroup.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "platform/drawing/OdDbLayout.h"
#include "platform/drawing/OdDbScale.h"
#include "platform/drawing/OdDbViewport.h"
#include "platform/drawing/OdDbXrecord.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace {

using namespace tv::dwg;

// The first objects of the drawing; hostile ones may have millions.
std::vector<OdDbObjectId> someObjects(OdDbDatabase& database) {
    std::vector<OdDbObjectId> out;
    for (OdDbObjectId id = database.firstObject(); !id.isNull() && out.size() < 300;
         id = database.nextObject(id))
        out.push_back(id);
    return out;
}

void lookAt(OdDbViewport& view) {
    view.customScale();
    view.viewTarget();
    view.viewDirection();
    view.twistAngle();
    view.frozenLayers();
    view.isLocked();
}

void look(OdDbDatabase& database) {
    for (const OdDbObjectId id : someObjects(database)) {
        const OdDbObjectPtr object = id.openObject();
        if (const auto view = std::dynamic_pointer_cast<OdDbViewport>(object)) lookAt(*view);
        if (const auto record = std::dynamic_pointer_cast<OdDbXrecord>(object)) record->rbChain();
        if (const auto group = std::dynamic_pointer_cast<OdDbGroup>(object)) group->entities();
        if (const auto layer = std::dynamic_pointer_cast<OdDbLayerTableRecord>(object)) overridesOf(id);
        if (const auto layout = std::dynamic_pointer_cast<OdDbLayout>(object)) {
            layout->viewports();
            layout->getPlotPaperMargins();
            layout->isModelLayout();
        }
        if (const auto dictionary = std::dynamic_pointer_cast<OdDbDictionary>(object))
            for (auto walk = dictionary->newIterator(); !walk->done(); walk->next())
                dictionary->nameAt(walk->objectId());
    }
    database.layoutIds();
    database.currentLayoutId();
    database.activeViewportId();
    layerFilters(database);
    for (const OdString& name : layerStateNames(database))
        readLayerState(database, name.view());
    scalesOf(database);
}

void editObjects(OdDbDatabase& database) {
    OdDbObjectId layer;
    if (const auto layers = database.layers()) layer = layers->first();
    for (const OdDbObjectId id : someObjects(database)) {
        const OdDbObjectPtr object = id.openObject(OdDb::kForWrite);
        if (!object) continue;
        if (const auto view = std::dynamic_pointer_cast<OdDbViewport>(object)) {
            view->setCustomScale(0.5);
            view->setLocked(true);
            view->freezeLayersInViewport(std::vector{layer});
            if (!layer.isNull()) overrideColor(layer, id, OdCmColor::byRgb(1, 2, 3));
            removeViewportOverrides(id);
            overrideTransparency(layer, id, OdCmTransparency::byPercent(50));
        }
        if (const auto record = std::dynamic_pointer_cast<OdDbXrecord>(object))
            record->setFromRbChain(record->rbChain().get());
        if (const auto layout = std::dynamic_pointer_cast<OdDbLayout>(object)) {
            layout->setPlotFlag(OdDbPlotSettings::kPlotCentered, true);
            layout->setLayoutName(L"renamed");
            layout->setStdScaleType(5);
            database.setCurrentLayout(id);
        }
        if (const auto dictionary = std::dynamic_pointer_cast<OdDbDictionary>(object)) {
            dictionary->setTreatElementsAsHard(true);
            if (const auto entries = dictionary->entries(); entries.size() > 1) {
                dictionary->setName(entries[0].name.view(), L"other name");
                dictionary->eraseEntry(entries[1].name.view());
            }
        }
    }
}

void make(OdDbDatabase& database) {
    const OdResBufPtr chain = OdResBuf::newRb(1, OdString(L"text"));
    chain->append(OdResBuf::newRb(10, OdGePoint3d{1, 2, 3}));
    chain->append(OdResBuf::newRb(310, Binary(300, 7)));
    addXrecord(database.getNamedDictionaryId(L"FUZZ", true), L"record", chain.get());
    database.getPlotStyleNameDictionaryId(true);
    addPlotSettings(database, L"setup", false);
    addScale(database, L"1:77", 1, 77);
    LayerState state = currentLayerState(database);
    state.name = L"state";
    writeLayerState(database, state);
    restoreLayerState(database, state, {kLayerEverything, true, true});
    LayerFilter filter;
    filter.name = L"filter";
    filter.expression = L"NAME==\"0\"";
    LayerFilter group = filter;
    group.kind = LayerFilter::kGroup;
    group.nested = {filter};
    addLayerFilter(database, group);
    for (LayerFilter& known : layerFilters(database))
        changeLayerFilter(known);
    for (const OdDbObjectId id : database.modelSpace()) {
        const OdDbObjectPtr entity = id.openObject(OdDb::kForWrite);
        entity->createExtensionDictionary();
        if (const auto made = addGroup(database, L"group").open<OdDbGroup>(OdDb::kForWrite)) {
            made->append(std::vector{id});
            made->erase();
        }
        const OdResBufPtr data = OdResBuf::newRb(1001, OdString(L"FUZZ"));
        data->append(OdResBuf::newRb(1004, Binary(200, 1)));
        entity->setXData(data.get());
        entity->releaseExtensionDictionary();
        break;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    const auto opened = OdDbDatabase::openBytes(bytes, "fuzz.dxf");
    if (!opened.database) return 0;
    OdDbDatabase& database = *opened.database;
    database.setReadOnly(false);
    look(database);
    make(database);
    editObjects(database);
    const std::string edited = database.bytes();
    look(database);
    // What is written is as whole as what was read.
    if (!database.damaged()) {
        const auto again = OdDbDatabase::openBytes(edited, "again.dxf");
        require(again.database && !again.database->damaged(), "what was written reads as damaged");
        look(*again.database);
    }
    while (database.undo()) {
    }
    require(database.bytes() == bytes, "bytes differ after undoing everything");
    while (database.redo()) {
    }
    require(database.bytes() == edited, "bytes differ after redoing everything");
    return 0;
}
