// Any bytes through both readers: whatever opens must come back byte for byte, survive a few edits, and give
// its first bytes after undoing them.

#include "fuzz/Require.h"
#include "platform/drawing/EntityGeometry.h"
#include "platform/drawing/LayerOverrides.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbDictionary.h"
#include "platform/drawing/OdDbDimStyleTable.h"
#include "platform/drawing/OdDbEntity.h"
#include "platform/drawing/OdDbGroup.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "platform/drawing/OdDbLayout.h"
#include "platform/drawing/OdDbLinetypeTable.h"
#include "platform/drawing/OdDbTextStyleTable.h"
#include "platform/drawing/OdDbXrecord.h"
#include "platform/drawing/UsageData.h"
#include "platform/drawing/entities/EntityProperties.h"
#include "platform/drawing/entities/EntityTexts.h"
#include "platform/drawing/entities/Hyperlink.h"
#include "tests/drawing/RandomEdits.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace {

void look(OdDbDatabase& database) {
    for (const OdString& name : database.headerVarNames())
        database.headerVar(name.view());
    database.layoutIds();
    database.currentLayoutId();
    database.activeViewportId();
    for (std::size_t kind = 0; kind < tv::dwg::kNamedKinds; ++kind)
        database.usageData().generate(database, static_cast<tv::dwg::NamedKind>(kind));
    int left = 2000;
    for (OdDbObjectId id = database.firstObject(); !id.isNull() && left-- > 0; id = database.nextObject(id)) {
        const OdDbObjectPtr object = id.openObject();
        require(object != nullptr, "an object of the list can't be opened");
        object->isA();
        object->ownerId();
        object->xData();
        object->extensionDictionary();
        tv::dwg::geometryOf(id);
        tv::dwg::textFieldsOf(id);
        tv::dwg::hyperlinkOf(id);
        if (const auto entity = std::dynamic_pointer_cast<OdDbEntity>(object)) {
            entity->layerId();
            entity->linetypeId();
            entity->color();
            entity->plotStyleName();
            for (const tv::dwg::EntityProperty* property : tv::dwg::propertiesOf(tv::dwg::entityKindOf(id)))
                tv::dwg::propertyValue(id, *property);
        }
        if (const auto dictionary = std::dynamic_pointer_cast<OdDbDictionary>(object)) dictionary->entries();
        if (const auto xrecord = std::dynamic_pointer_cast<OdDbXrecord>(object)) xrecord->rbChain();
        if (const auto group = std::dynamic_pointer_cast<OdDbGroup>(object)) group->entities();
        if (const auto layout = std::dynamic_pointer_cast<OdDbLayout>(object)) layout->viewports();
        if (const auto linetype = std::dynamic_pointer_cast<OdDbLinetypeTableRecord>(object))
            linetype->pattern();
        if (const auto style = std::dynamic_pointer_cast<OdDbTextStyleTableRecord>(object)) style->font();
        if (const auto style = std::dynamic_pointer_cast<OdDbDimStyleTableRecord>(object))
            for (const auto& variable : OdDbDimStyleTableRecord::variables())
                style->variable(variable);
        if (const auto layer = std::dynamic_pointer_cast<OdDbLayerTableRecord>(object)) {
            layer->transparency();
            layer->description();
            layer->plotStyleName();
            tv::dwg::overridesOf(id);
        }
    }
}

// The last bytes of the input choose the edits.
void edit(OdDbDatabase& database, const std::string& bytes) {
    database.setReadOnly(false);
    constexpr std::size_t kChoices = 48;
    std::size_t at = bytes.size() > kChoices ? bytes.size() - kChoices : 0;
    const auto choose = [&](unsigned below) {
        return at < bytes.size() ? static_cast<unsigned char>(bytes[at++]) % below : 0;
    };
    database.setHeaderVar(L"LUNITS", tv::dwg::HeaderValue::integer(3));
    while (at < bytes.size())
        drawings::editAnything(database, choose);
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
    edit(database, bytes);
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
