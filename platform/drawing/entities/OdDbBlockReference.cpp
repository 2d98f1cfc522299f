#include "platform/drawing/entities/OdDbBlockReference.h"

#include "platform/drawing/OdDbBlockTable.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/dxf/RecordStore.h"
#include "platform/drawing/entities/OdDbText.h"
#include "platform/drawing/entities/TagAccess.h"
#include "platform/text/Unicode.h"

#include <numbers>

using namespace tv::dwg;

OdDbObjectId OdDbBlockReference::blockTableRecordId() const {
    const auto table = database()->getBlockTableId().open<OdDbBlockTable>();
    return table ? table->getAt(blockName().view()) : OdDbObjectId();
}

// An anonymous block's record names the dynamic block's record in its extended data.
OdDbObjectId OdDbBlockReference::effectiveBlockId() const {
    const OdDbObjectId block = blockTableRecordId();
    const OdDbObjectPtr record = block.openObject();
    if (!record) return block;
    for (OdResBufPtr data = record->xData(L"AcDbBlockRepBTag"); data; data = data->next())
        if (data->restype() == OdResBuf::kDxfXdHandle)
            if (const OdDbObjectId origin = database()->getOdDbObjectId(data->getHandle());
                origin.open<OdDbBlockTableRecord>())
                return origin;
    return block;
}

OdString OdDbBlockReference::effectiveName() const {
    const auto block = effectiveBlockId().open<OdDbBlockTableRecord>();
    return block ? block->getName() : blockName();
}

bool OdDbBlockReference::isExternalReference() const {
    const auto block = blockTableRecordId().open<OdDbBlockTableRecord>();
    return block && block->isFromExternalReference();
}

Tavo::ErrorStatus OdDbBlockReference::setBlock(std::wstring_view name) {
    const auto table = database()->getBlockTableId().open<OdDbBlockTable>();
    const auto block = table ? table->getAt(name).open<OdDbBlockTableRecord>() : nullptr;
    if (!block) return Tavo::eKeyNotFound;
    const RecordId around = database()->store().record(objectId().record()).owner;
    if (around != kNoRecord && block->blockBeginId().record() == around) return Tavo::eInvalidInput;
    return writeTag(*this, {{}, 2}, OdString(name));
}

double OdDbBlockReference::rotation() const { return realAt(50) * std::numbers::pi / 180; }

std::vector<OdDbObjectId> OdDbBlockReference::attributes() const {
    std::vector<OdDbObjectId> out;
    for (const OdDbObjectId id : subEntities(objectId()))
        if (database()->store().record(id.record()).type == kTypeAttrib) out.push_back(id);
    return out;
}

OdDbObjectId OdDbBlockReference::attribute(std::wstring_view tag) const {
    for (const OdDbObjectId id : attributes())
        if (const auto attribute = id.open<OdDbAttribute>();
            attribute && tv::text::equalNoCase(attribute->tag().view(), tag))
            return id;
    return {};
}
