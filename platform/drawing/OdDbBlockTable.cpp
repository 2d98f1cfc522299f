#include "platform/drawing/OdDbBlockTable.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/dxf/RecordStore.h"
#include "platform/drawing/dxf/TableNames.h"
#include "platform/text/Unicode.h"

using namespace tv::dwg;

OdDbObjectId OdDbBlockTableRecord::blockBeginId() const {
    if (database()->store().record(objectId().record()).type == kTypeBlock) return objectId();
    const RecordId begin = database()->tableNames().findBlock(getName().view());
    return begin == kNoRecord ? OdDbObjectId() : OdDbObjectId(database(), begin);
}

int OdDbBlockTableRecord::blockFlags() const {
    const auto begin = blockBeginId();
    return begin.isNull() ? 0 : begin == objectId() ? integerAt(70) : begin.openObject()->integerAt(70);
}

OdGePoint3d OdDbBlockTableRecord::origin() const {
    const OdDbObjectPtr begin = blockBeginId().openObject();
    return begin ? OdGePoint3d{begin->realAt(10), begin->realAt(20), begin->realAt(30)} : OdGePoint3d();
}

OdString OdDbBlockTableRecord::pathName() const {
    const OdDbObjectPtr begin = blockBeginId().openObject();
    return begin ? begin->textAt(1) : OdString();
}

bool OdDbBlockTableRecord::isLayout() const {
    const std::wstring name = tv::text::foldCase(getName().view());
    return name.starts_with(L"*model_space") || name.starts_with(L"*paper_space");
}

OdDbEntityRange OdDbBlockTableRecord::entities() const {
    const OdString name = getName();
    if (tv::text::equalNoCase(name.view(), L"*Model_Space")) return database()->modelSpace();
    if (tv::text::equalNoCase(name.view(), L"*Paper_Space")) return database()->paperSpace();
    const OdDbObjectId begin = blockBeginId();
    return begin.isNull() ? OdDbEntityRange()
                          : OdDbEntityRange(*database(), begin.record(), OdDbEntityRange::kBlock);
}

OdDbObjectId OdDbBlockTable::getAt(std::wstring_view name) const {
    if (database()->store().record(objectId().record()).type != kTypeSection)
        return OdDbSymbolTable::getAt(name);
    const RecordId id = database()->tableNames().findBlock(name);
    return id == kNoRecord ? OdDbObjectId() : OdDbObjectId(database(), id);
}

OdDbObjectId OdDbBlockTable::next(OdDbObjectId record) const {
    const RecordStore& store = database()->store();
    if (store.record(objectId().record()).type != kTypeSection) return OdDbSymbolTable::next(record);
    for (RecordId id = store.next(record.record()); id != kNoRecord; id = store.next(id)) {
        const Record& r = store.record(id);
        if (r.section != Section::kBlocks) break;
        if (r.type == kTypeBlock) return {database(), id};
    }
    return {};
}
