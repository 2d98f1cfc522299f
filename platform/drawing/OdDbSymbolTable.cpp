#include "platform/drawing/OdDbSymbolTable.h"

#include "platform/drawing/NameReferences.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/UsageData.h"
#include "platform/drawing/VersionLimits.h"
#include "platform/drawing/dxf/NewRecord.h"
#include "platform/drawing/dxf/OwnTags.h"
#include "platform/drawing/dxf/RecordStore.h"
#include "platform/drawing/dxf/TableNames.h"
#include "platform/drawing/dxf/XDataTags.h"
#include "platform/text/Unicode.h"

#include <algorithm>

using namespace tv::dwg;

namespace {

constexpr const wchar_t* kAnnotative = L"AcadAnnotative";
constexpr const wchar_t* kPaperOrientation = L"AcadAnnoPO";

// The position of the n-th whole number of an application's data; npos when it has fewer.
std::size_t integerAtIn(const RecordEditor& record, XDataTags data, int n) {
    for (std::size_t i = data.begin; data.found() && i < data.end; ++i)
        if (record.code(i) == 1070 && n-- == 0) return i;
    return RecordEditor::npos;
}

// Says once that names are too long for the drawing's version.
Tavo::ErrorStatus refuse(OdDbDatabase& database, Tavo::ErrorStatus status) {
    if (status == Tavo::eNotHandled) database.require(OdDb::Feature::kLongNames);
    return status;
}

} // namespace

Tavo::ErrorStatus tv::dwg::checkTableName(const DxfFormat& format, std::wstring_view name) {
    if (name.empty()) return Tavo::eInvalidInput;
    if (std::any_of(name.begin(), name.end(), [](wchar_t c) { return c < L' ' || c == 0x7F; }))
        return Tavo::eInvalidInput;
    const std::size_t most = format.form < OdDb::DxfVersion::kR2000 ? 31 : 255;
    return name.size() > most ? Tavo::eNotHandled : Tavo::eOk;
}

OdString OdDbSymbolTableRecord::getName() const { return textAt(2); }

Tavo::ErrorStatus OdDbSymbolTableRecord::checkName(std::wstring_view given) const {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    const OdString stored = nameAsRead(format(), given);
    const std::wstring_view name = stored.view();
    if (const auto status = checkTableName(format(), name); status != Tavo::eOk)
        return refuse(*database(), status);
    const RecordId table = database()->store().record(objectId().record()).owner;
    if (table == kNoRecord) return Tavo::eOk;
    const RecordId known = database()->tableNames().find(table, name);
    return known != kNoRecord && known != objectId().record() ? Tavo::eDuplicate : Tavo::eOk;
}

bool OdDbSymbolTableRecord::keepsName() const {
    const RecordStore& store = database()->store();
    if (store.record(objectId().record()).section != Section::kTables) return false;
    const std::string_view type = store.typeName(objectId().record());
    const OdString name = getName();
    const auto is = [&](const wchar_t* fixed) { return tv::text::equalNoCase(name.view(), fixed); };
    return type == "LAYER" ? is(L"0")
                           : type == "LTYPE" && (is(L"ByLayer") || is(L"ByBlock") || is(L"Continuous"));
}

Tavo::ErrorStatus OdDbSymbolTableRecord::erase() {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    return keepsName() ? Tavo::eInvalidInput : OdDbObject::erase();
}

Tavo::ErrorStatus OdDbSymbolTableRecord::setName(std::wstring_view given) {
    if (const auto status = checkName(given); status != Tavo::eOk) return status;
    const OdString stored = nameAsRead(format(), given);
    const std::wstring_view name = stored.view();
    const OdString old = getName();
    if (old.view() != name && keepsName()) return Tavo::eInvalidInput;
    if (old.view() == name) return Tavo::eOk;
    const OdDbUndoScope step(*database(), L"RENAME");
    if (const auto status = setAt(2, OdString(name), {100}); status != Tavo::eOk) return status;
    if (const auto kind = namedKindOf(objectId()); kind && !old.isEmpty())
        retargetReferences(*database(), *kind, old.view(), name);
    return Tavo::eOk;
}

bool OdDbSymbolTableRecord::isInUse() const { return database()->usageData().inUse(objectId()); }

Tavo::ErrorStatus OdDbSymbolTableRecord::setFlag(int bit, bool on) {
    const int now = flags();
    return setAt(70, std::int64_t{on ? now | bit : now & ~bit}, {2});
}

Tavo::ErrorStatus OdDbSymbolTableRecord::edit(const std::function<bool(RecordEditor&)>& change) {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    RecordStore& store = database()->store();
    RecordEditor record(format(), store.text(objectId().record()));
    if (!change(record)) return Tavo::eWrongType;
    if (record.edited()) store.replace(objectId().record(), record.bytes());
    return Tavo::eOk;
}

Tavo::ErrorStatus OdDbSymbolTableRecord::editXData(std::wstring_view app,
                                                   const std::function<bool(RecordEditor&)>& change) {
    if (const auto status = database()->require(OdDb::Feature::kExtendedData); status != Tavo::eOk)
        return status;
    const OdDbUndoScope step(*database(), app);
    const bool there = xData(app) != nullptr;
    const auto status = edit(change);
    if (status == Tavo::eOk && !there && xData(app)) database()->newRegApp(app);
    return status;
}

// The data are a version number and a switch, in braces.
bool OdDbSymbolTableRecord::annotativeFlag() const {
    int last = 0;
    int count = 0;
    for (OdResBufPtr b = xData(kAnnotative); b; b = b->next())
        if (b->restype() == OdResBuf::kDxfXdInteger16 && ++count == 2) last = b->getInt16();
    return last != 0;
}

Tavo::ErrorStatus OdDbSymbolTableRecord::setAnnotativeFlag(bool annotative) {
    if (annotative == annotativeFlag()) return checkWrite();
    if (annotative)
        if (const auto status = database()->require(OdDb::Feature::kAnnotativeScales); status != Tavo::eOk)
            return status;
    return editXData(kAnnotative, [&](RecordEditor& record) {
        if (const std::size_t i = integerAtIn(record, findXData(record, kAnnotative), 1);
            i != RecordEditor::npos)
            return record.set(i, std::int64_t{annotative});
        eraseXData(record, kAnnotative);
        std::size_t place = needXData(record, kAnnotative).end;
        return record.insert(place++, 1000, OdString(L"AnnotativeData")) &&
               record.insert(place++, 1002, OdString(L"{")) && record.insert(place++, 1070, std::int64_t{1}) &&
               record.insert(place++, 1070, std::int64_t{annotative}) &&
               record.insert(place, 1002, OdString(L"}"));
    });
}

bool OdDbSymbolTableRecord::paperOrientationFlag() const {
    for (OdResBufPtr b = xData(kPaperOrientation); b; b = b->next())
        if (b->restype() == OdResBuf::kDxfXdInteger16) return b->getInt16() != 0;
    return false;
}

Tavo::ErrorStatus OdDbSymbolTableRecord::setPaperOrientationFlag(bool matches) {
    if (matches == paperOrientationFlag()) return checkWrite();
    return editXData(kPaperOrientation, [&](RecordEditor& record) {
        const XDataTags data = needXData(record, kPaperOrientation);
        const std::size_t i = integerAtIn(record, data, 0);
        return i == RecordEditor::npos ? record.insert(data.begin + 1, 1070, std::int64_t{matches})
                                       : record.set(i, std::int64_t{matches});
    });
}

OdDbObjectId OdDbSymbolTable::getAt(std::wstring_view name) const {
    const RecordId id = database()->tableNames().find(objectId().record(), name);
    return id == kNoRecord ? OdDbObjectId() : OdDbObjectId(database(), id);
}

OdDbObjectId OdDbSymbolTable::first() const { return next(objectId()); }

OdDbObjectId OdDbSymbolTable::next(OdDbObjectId record) const {
    const RecordStore& store = database()->store();
    RecordId table = record == objectId() ? record.record() : store.record(record.record()).owner;
    RecordId id = store.next(record.record());
    while (id == kNoRecord || store.record(id).owner != table || store.record(id).type == kTypeEndTab) {
        table = store.nextTableLike(table);
        if (table == kNoRecord) return {};
        id = store.next(table);
    }
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

OdDbObjectId OdDbSymbolTable::add(std::wstring_view given) {
    const OdString stored = nameAsRead(format(), given);
    const std::wstring_view name = stored.view();
    if (checkWrite() != Tavo::eOk || has(name)) return {};
    if (refuse(*database(), checkTableName(format(), name)) != Tavo::eOk) return {};
    return addTableRecord(*database(), objectId().record(), name);
}
