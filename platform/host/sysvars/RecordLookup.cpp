#include "platform/host/sysvars/RecordLookup.h"

#include "platform/drawing/OdDbSymbolTable.h"
#include "platform/text/Unicode.h"

namespace tv::host {

namespace {

OdDbObjectId tableOf(const OdDbDatabase& database, SysvarRecord record) {
    switch (record) {
    case SysvarRecord::kLayer:
        return database.getLayerTableId();
    case SysvarRecord::kLinetype:
        return database.getLinetypeTableId();
    case SysvarRecord::kTextStyle:
        return database.getTextStyleTableId();
    case SysvarRecord::kDimStyle:
        return database.getDimStyleTableId();
    case SysvarRecord::kArrowBlock:
        return database.getBlockTableId();
    case SysvarRecord::kUcs:
        return database.getUcsTableId();
    default:
        return {};
    }
}

} // namespace

OdDbObjectId findRecord(const OdDbDatabase& database, SysvarRecord record, std::wstring_view name) {
    if (record == SysvarRecord::kHandle) {
        const auto handle = OdDbHandle::fromText(name);
        return handle && !handle->isNull() ? database.getOdDbObjectId(*handle) : OdDbObjectId();
    }
    const auto table = tableOf(database, record).open<OdDbSymbolTable>();
    if (!table || name.empty()) return {};
    OdDbObjectId found = table->getAt(name);
    if (found.isNull() && record == SysvarRecord::kArrowBlock && name.front() != L'_')
        found = table->getAt(L"_" + std::wstring(name));
    return found;
}

std::optional<OdString> nameOfRecord(SysvarRecord record, const OdDbObjectId& id) {
    if (id.isErased()) return std::nullopt;
    if (record == SysvarRecord::kHandle) return OdString(id.handle().text());
    const auto object = id.open<OdDbSymbolTableRecord>();
    if (!object) return std::nullopt;
    // Of this table, not of another one with a record of that name.
    const OdString name = object->getName();
    const auto table = tableOf(*id.database(), record).open<OdDbSymbolTable>();
    if (!table || table->getAt(name.view()) != id) return std::nullopt;
    return name;
}

std::vector<OdString> recordNames(const OdDbDatabase& database, SysvarRecord kind) {
    std::vector<OdString> names;
    const auto table = tableOf(database, kind).open<OdDbSymbolTable>();
    if (!table) return names;
    table->forEach([&](OdDbObjectId id) {
        const auto record = id.open<OdDbSymbolTableRecord>();
        if (!record || record->isDependent()) return;
        const OdString name = record->getName();
        if (!name.isEmpty() && name.view().front() != L'*') names.push_back(name);
    });
    return names;
}

bool isFreeName(const SysvarInfo& info, std::wstring_view name) {
    const bool optional = std::wstring_view(info.initial.text).empty(); // the variable may name nothing
    if (name.empty() || name == L".") return optional;
    if (info.record != SysvarRecord::kLinetype) return false;
    return text::equalNoCase(name, L"BYLAYER") || text::equalNoCase(name, L"BYBLOCK");
}

} // namespace tv::host
