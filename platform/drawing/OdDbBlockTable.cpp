#include "platform/drawing/OdDbBlockTable.h"

#include "platform/drawing/NameReferences.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/VersionLimits.h"
#include "platform/drawing/dxf/BlockRecords.h"
#include "platform/drawing/dxf/NewRecord.h"
#include "platform/drawing/dxf/OwnTags.h"
#include "platform/drawing/dxf/RecordStore.h"
#include "platform/drawing/dxf/TableNames.h"
#include "platform/drawing/dxf/XDataTags.h"
#include "platform/text/Unicode.h"

#include <algorithm>
#include <cmath>

using namespace tv::dwg;
using OdDb::DxfVersion;

namespace {

constexpr int kXref = 4;
constexpr int kOverlay = 8;
constexpr int kResolved = 32;

bool isSpaceName(std::wstring_view name) {
    const std::wstring folded = tv::text::foldCase(name);
    return folded.starts_with(L"*model_space") || folded.starts_with(L"*paper_space");
}

// Drawings of R2000 and R2004 keep the units as the second number of a list of this name.
std::size_t findOldUnits(const RecordEditor& record) {
    const XDataTags data = findXData(record, L"ACAD");
    for (std::size_t i = data.begin; data.found() && i + 3 < data.end; ++i)
        if (record.code(i) == 1000 && tv::text::equalNoCase(record.text(i).view(), L"DesignCenter Data") &&
            record.code(i + 1) == 1002 && record.code(i + 2) == 1070 && record.code(i + 3) == 1070)
            return i + 3;
    return RecordEditor::npos;
}

// Sets the last of the record's own tags of that code, or inserts one behind the last of `behind`.
bool setOwn(RecordEditor& record, int code, const Value& value, std::initializer_list<int> behind) {
    const std::vector<std::size_t> own = ownTags(record);
    std::size_t place = own.back() + 1;
    std::size_t there = RecordEditor::npos;
    for (const std::size_t i : own) {
        if (record.code(i) == code) there = i;
        if (std::find(behind.begin(), behind.end(), record.code(i)) != behind.end()) place = i + 1;
    }
    return there != RecordEditor::npos ? record.set(there, value) : record.insert(place, code, value);
}

} // namespace

OdDbObjectId OdDbBlockTableRecord::blockBeginId() const {
    if (database()->store().record(objectId().record()).type == kTypeBlock) return objectId();
    const RecordId begin = database()->tableNames().findBlock(getName().view());
    return begin == kNoRecord ? OdDbObjectId() : OdDbObjectId(database(), begin);
}

int OdDbBlockTableRecord::blockFlags() const {
    const auto begin = blockBeginId();
    return begin.isNull() ? 0 : begin == objectId() ? integerAt(70) : begin.openObject()->integerAt(70);
}

Tavo::ErrorStatus OdDbBlockTableRecord::setAtBegin(int code, const Value& value,
                                                   std::initializer_list<int> behind) {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    const OdDbObjectId begin = blockBeginId();
    if (begin.isNull()) return Tavo::eKeyNotFound;
    RecordStore& store = database()->store();
    RecordEditor record(format(), store.text(begin.record()));
    if (!setOwn(record, code, value, behind)) return Tavo::eWrongType;
    if (record.edited()) store.replace(begin.record(), record.bytes());
    return Tavo::eOk;
}

Tavo::ErrorStatus OdDbBlockTableRecord::setBlockFlags(int clear, int set) {
    return setAtBegin(70, std::int64_t{(blockFlags() & ~clear) | set}, {2});
}

OdGePoint3d OdDbBlockTableRecord::origin() const {
    const OdDbObjectPtr begin = blockBeginId().openObject();
    return begin ? OdGePoint3d{begin->realAt(10), begin->realAt(20), begin->realAt(30)} : OdGePoint3d();
}

Tavo::ErrorStatus OdDbBlockTableRecord::setOrigin(const OdGePoint3d& origin) {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    if (!std::isfinite(origin.x + origin.y + origin.z)) return Tavo::eInvalidInput;
    const OdDbUndoScope step(*database(), L"BLOCK");
    if (const auto status = setAtBegin(10, origin.x, {70}); status != Tavo::eOk) return status;
    setAtBegin(20, origin.y, {10});
    return setAtBegin(30, origin.z, {20});
}

OdString OdDbBlockTableRecord::comments() const {
    const OdDbObjectPtr begin = blockBeginId().openObject();
    return begin ? begin->textAt(4) : OdString();
}

Tavo::ErrorStatus OdDbBlockTableRecord::setComments(std::wstring_view text) {
    if (text == comments().view()) return checkWrite();
    return setAtBegin(4, OdString(text), {1, 3});
}

OdString OdDbBlockTableRecord::pathName() const {
    const OdDbObjectPtr begin = blockBeginId().openObject();
    return begin ? begin->textAt(1) : OdString();
}

Tavo::ErrorStatus OdDbBlockTableRecord::setPathName(std::wstring_view path) {
    if (path == pathName().view()) return checkWrite();
    return setAtBegin(1, OdString(path), {3});
}

OdDbBlockTableRecord::XrefKind OdDbBlockTableRecord::xrefKind() const {
    const int flags = blockFlags();
    return flags & kOverlay ? XrefKind::kOverlaid : flags & kXref ? XrefKind::kAttached : XrefKind::kNone;
}

Tavo::ErrorStatus OdDbBlockTableRecord::setXrefKind(XrefKind kind) {
    if (kind == xrefKind()) return checkWrite();
    if (kind == XrefKind::kNone) return setBlockFlags(kXref | kOverlay | kResolved, 0);
    return setBlockFlags(kXref | kOverlay, kind == XrefKind::kOverlaid ? kXref | kOverlay : kXref);
}

Tavo::ErrorStatus OdDbBlockTableRecord::setIsXrefResolved(bool resolved) {
    return setBlockFlags(kResolved, resolved ? kResolved : 0);
}

bool OdDbBlockTableRecord::isBareDefinition() const {
    return database()->store().record(objectId().record()).type == kTypeBlock &&
           database()->form() >= DxfVersion::kR13;
}

std::shared_ptr<OdDbBlockTableRecord> OdDbBlockTableRecord::record(bool make) const {
    if (!isBareDefinition()) return nullptr;
    OdDbDatabase& drawing = *database();
    const RecordId table = drawing.store().table("BLOCK_RECORD");
    RecordId known = table == kNoRecord ? kNoRecord : drawing.tableNames().find(table, getName().view());
    if (known == kNoRecord && make) known = needBlockRecord(drawing, objectId().record());
    const auto opened = known == kNoRecord ? nullptr
                                           : OdDbObjectId(&drawing, known)
                                                 .open<OdDbBlockTableRecord>(isWriteEnabled() ? OdDb::kForWrite
                                                                                              : OdDb::kForRead);
    // Another definition of the name may be what the record is for.
    return opened && opened->blockBeginId() == objectId() ? opened : nullptr;
}

template <class Set>
Tavo::ErrorStatus OdDbBlockTableRecord::onRecord(Set&& set) {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    const OdDbUndoScope step(*database(), L"BLOCK");
    const auto kept = record(true);
    return kept ? set(*kept) : Tavo::eKeyNotFound;
}

bool OdDbBlockTableRecord::explodable() const {
    const auto kept = record();
    return (kept ? *kept : *this).integerAt(280, 1) != 0;
}

bool OdDbBlockTableRecord::blockScalingUniform() const {
    const auto kept = record();
    return (kept ? *kept : *this).integerAt(281) != 0;
}

bool OdDbBlockTableRecord::annotative() const {
    const auto kept = record();
    return kept ? kept->annotativeFlag() : annotativeFlag();
}

bool OdDbBlockTableRecord::paperOrientation() const {
    const auto kept = record();
    return kept ? kept->paperOrientationFlag() : paperOrientationFlag();
}

int OdDbBlockTableRecord::blockInsertUnits() const {
    if (const auto kept = record()) return kept->blockInsertUnits();
    if (database()->store().record(objectId().record()).type == kTypeBlock) return 0;
    if (find(70)) return integerAt(70);
    const RecordEditor record(format(), database()->store().text(objectId().record()));
    const std::size_t i = findOldUnits(record);
    if (i == RecordEditor::npos) return 0;
    const Value units = record.value(i);
    const auto* whole = std::get_if<std::int64_t>(&units);
    return whole ? static_cast<int>(*whole) : 0;
}

Tavo::ErrorStatus OdDbBlockTableRecord::setBlockInsertUnits(int units) {
    if (units < 0 || units > 24) return Tavo::eOutOfRange;
    if (database()->form() < DxfVersion::kR2000) return Tavo::eNotHandled;
    if (units == blockInsertUnits()) return checkWrite();
    if (isBareDefinition()) return onRecord([&](auto& kept) { return kept.setBlockInsertUnits(units); });
    if (database()->form() >= DxfVersion::kR2007) return setAt(70, std::int64_t{units}, {340, 2});
    return editXData(L"ACAD", [&](RecordEditor& record) {
        if (const std::size_t i = findOldUnits(record); i != RecordEditor::npos)
            return record.set(i, std::int64_t{units});
        std::size_t place = needXData(record, L"ACAD").end;
        return record.insert(place++, 1000, OdString(L"DesignCenter Data")) &&
               record.insert(place++, 1002, OdString(L"{")) && record.insert(place++, 1070, std::int64_t{1}) &&
               record.insert(place++, 1070, std::int64_t{units}) && record.insert(place, 1002, OdString(L"}"));
    });
}

Tavo::ErrorStatus OdDbBlockTableRecord::setModern(int code, int value, std::initializer_list<int> behind) {
    if (const auto status = database()->require(OdDb::Feature::kBlockSettings); status != Tavo::eOk)
        return status;
    if (isBareDefinition()) return onRecord([&](auto& kept) { return kept.setModern(code, value, behind); });
    return setAt(code, std::int64_t{value}, behind);
}

Tavo::ErrorStatus OdDbBlockTableRecord::setAnnotative(bool annotative) {
    if (annotative == this->annotative()) return checkWrite();
    if (isBareDefinition()) return onRecord([&](auto& kept) { return kept.setAnnotativeFlag(annotative); });
    return setAnnotativeFlag(annotative);
}

Tavo::ErrorStatus OdDbBlockTableRecord::setPaperOrientation(bool matches) {
    if (matches == paperOrientation()) return checkWrite();
    if (isBareDefinition()) return onRecord([&](auto& kept) { return kept.setPaperOrientationFlag(matches); });
    return setPaperOrientationFlag(matches);
}

Tavo::ErrorStatus OdDbBlockTableRecord::setExplodable(bool explodable) {
    return explodable == this->explodable() ? checkWrite() : setModern(280, explodable, {70, 340, 2});
}

Tavo::ErrorStatus OdDbBlockTableRecord::setBlockScalingUniform(bool uniform) {
    return uniform == blockScalingUniform() ? checkWrite() : setModern(281, uniform, {280, 70, 340, 2});
}

bool OdDbBlockTableRecord::isLayout() const { return isSpaceName(getName().view()); }

Tavo::ErrorStatus OdDbBlockTableRecord::setName(std::wstring_view given) {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    if (const auto kept = record()) return kept->setName(given);
    const OdString stored = nameAsRead(format(), given);
    const std::wstring_view name = stored.view();
    if (isLayout() && getName().view() != name) return Tavo::eNotHandled;
    if (isSpaceName(name) && !isLayout()) return Tavo::eInvalidInput;
    const OdDbObjectId begin = blockBeginId();
    const RecordId known = database()->tableNames().findBlock(name);
    if (known != kNoRecord && known != begin.record()) return Tavo::eDuplicate;
    if (const auto blocks = database()->getBlockTableId().open<OdDbBlockTable>())
        if (const OdDbObjectId other = blocks->getAt(name);
            !other.isNull() && other != objectId() && other != begin)
            return Tavo::eDuplicate;
    const bool reference = isFromExternalReference();
    const OdString old = getName();
    if (const auto status = checkName(name); status != Tavo::eOk) return status;
    const OdDbUndoScope step(*database(), L"RENAME");
    if (reference)
        if (const auto status = renameDependents(*database(), old.view(), name); status != Tavo::eOk)
            return status;
    if (const auto status = OdDbSymbolTableRecord::setName(name); status != Tavo::eOk) return status;
    if (begin.isNull()) return Tavo::eOk;
    // The definition says its name twice.
    RecordStore& store = database()->store();
    RecordEditor record(format(), store.text(begin.record()));
    bool named = false;
    for (const std::size_t i : ownTags(record)) {
        if (record.code(i) != 2 && record.code(i) != 3) continue;
        named |= record.code(i) == 2;
        record.set(i, OdString(name));
    }
    if (!named && !setOwn(record, 2, OdString(name), {8, 100})) return Tavo::eWrongType;
    if (record.edited()) store.replace(begin.record(), record.bytes());
    return Tavo::eOk;
}

Tavo::ErrorStatus OdDbBlockTableRecord::erase() {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    if (isLayout()) return Tavo::eNotHandled;
    if (const auto kept = record()) return kept->erase();
    const OdDbUndoScope step(*database(), L"ERASE");
    RecordStore& store = database()->store();
    const OdDbObjectId begin = blockBeginId();
    if (!begin.isNull()) {
        for (RecordId id = store.next(begin.record());
             id != kNoRecord && store.record(id).owner == begin.record();) {
            const RecordId following = store.next(id);
            store.remove(id);
            id = following;
        }
        store.remove(begin.record());
    }
    if (begin != objectId()) store.remove(objectId().record());
    return Tavo::eOk;
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
        if (const OdDbObjectId record = OdDbSymbolTable::getAt(name); !record.isNull()) return record;
    const RecordId id = database()->tableNames().findBlock(name);
    return id == kNoRecord ? OdDbObjectId() : OdDbObjectId(database(), id);
}

OdDbObjectId OdDbBlockTable::next(OdDbObjectId record) const {
    const RecordStore& store = database()->store();
    const RecordId table = objectId().record();
    const bool recorded = store.record(table).type != kTypeSection;
    RecordId id = record.record();
    if (recorded && store.record(id).type != kTypeBlock) {
        if (const OdDbObjectId next = OdDbSymbolTable::next(record); !next.isNull()) return next;
        id = store.section(Section::kBlocks);
        if (id == kNoRecord) return {};
    }
    for (id = store.next(id); id != kNoRecord; id = store.next(id)) {
        const Record& r = store.record(id);
        if (r.section != Section::kBlocks) break;
        if (r.type != kTypeBlock) continue;
        if (!recorded || database()->tableNames().find(table, tableRecordName(store, id).view()) == kNoRecord)
            return {database(), id};
    }
    return {};
}

OdDbObjectId OdDbBlockTable::add(std::wstring_view given) {
    if (checkWrite() != Tavo::eOk) return {};
    const OdString stored = nameAsRead(format(), given);
    const auto status = checkTableName(format(), stored.view());
    if (status == Tavo::eNotHandled) database()->require(OdDb::Feature::kLongNames);
    if (status != Tavo::eOk || has(stored.view())) return {};
    return addBlock(*database(), objectId().record(), stored.view());
}
