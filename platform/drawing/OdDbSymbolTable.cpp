#include "platform/drawing/OdDbSymbolTable.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/dxf/NewRecord.h"
#include "platform/drawing/dxf/RecordStore.h"
#include "platform/drawing/dxf/TableNames.h"
#include "platform/text/Unicode.h"

using namespace tv::dwg;

OdString OdDbSymbolTableRecord::getName() const { return textAt(2); }

Tavo::ErrorStatus OdDbSymbolTableRecord::setName(std::wstring_view name) {
    if (name.empty()) return Tavo::eInvalidInput;
    const RecordId table = database()->store().record(objectId().record()).owner;
    if (table != kNoRecord) {
        const RecordId known = database()->tableNames().find(table, name);
        if (known != kNoRecord && known != objectId().record()) return Tavo::eDuplicate;
    }
    return setAt(2, OdString(name), {100});
}

Tavo::ErrorStatus OdDbSymbolTableRecord::setFlag(int bit, bool on) {
    const int now = flags();
    return setAt(70, std::int64_t{on ? now | bit : now & ~bit}, {2});
}

OdDbObjectId OdDbSymbolTable::getAt(std::wstring_view name) const {
    const RecordId id = database()->tableNames().find(objectId().record(), name);
    return id == kNoRecord ? OdDbObjectId() : OdDbObjectId(database(), id);
}

OdDbObjectId OdDbSymbolTable::first() const { return next(objectId()); }

OdDbObjectId OdDbSymbolTable::next(OdDbObjectId record) const {
    const RecordStore& store = database()->store();
    const RecordId id = store.next(record.record());
    if (id == kNoRecord || store.record(id).owner != objectId().record() ||
        store.record(id).type == kTypeEndTab)
        return {};
    return {database(), id};
}

std::size_t OdDbSymbolTable::size() const {
    std::size_t count = 0;
    forEach([&](OdDbObjectId) { ++count; });
    return count;
}

OdString OdDbSymbolTable::nameOf(OdDbObjectId record) const {
    return tableRecordName(database()->store(), record.record());
}

OdDbObjectId OdDbSymbolTable::add(std::wstring_view name) {
    if (checkWrite() != Tavo::eOk || name.empty() || has(name)) return {};
    return addTableRecord(*database(), objectId().record(), name);
}
