#include "platform/drawing/OdDbDimStyleTable.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/VersionLimits.h"
#include "platform/drawing/dxf/OwnTags.h"
#include "platform/drawing/dxf/RecordStore.h"
#include "platform/drawing/dxf/TableNames.h"
#include "platform/drawing/dxf/XDataTags.h"
#include "platform/text/Unicode.h"

#include <algorithm>
#include <numbers>

using namespace tv::dwg;
using OdDb::DxfVersion;

namespace {

using Variable = OdDbDimStyleTableRecord::Variable;

// Group code 70 is the record's flags the first time it occurs and DIMTFILLCLR the second.
constexpr int kFillColor = 70;
// Holds an angle, in degrees.
constexpr int kJogAngle = 50;
constexpr double kDegree = std::numbers::pi / 180;

// The group code of an arrow block's name in the older versions.
int nameCode(const Variable& variable) {
    return variable.code >= 342 && variable.code <= 344 ? variable.code - 342 + 5 : 0;
}

std::wstring applicationOf(const Variable& variable) {
    const std::string_view name = variable.application;
    return std::wstring(name.begin(), name.end());
}

std::size_t findOwn(const RecordEditor& record, int code) {
    int skip = code == kFillColor;
    for (const std::size_t i : ownTags(record))
        if (record.code(i) == code && skip-- == 0) return i;
    return RecordEditor::npos;
}

// The value's place in the application's data: behind the number that announces it.
std::size_t findKept(const RecordEditor& record, const Variable& variable) {
    const XDataTags data = findXData(record, applicationOf(variable));
    for (std::size_t i = data.begin; data.found() && i + 1 < data.end; ++i)
        if (record.code(i) == 1070 && record.value(i) == Value(std::int64_t{variable.applicationCode}))
            return i + 1;
    return RecordEditor::npos;
}

int keptCode(const Variable& variable) {
    return variable.isReference() ? 1005 : variable.type == Variable::kReal ? 1040 : 1070;
}

// Whether styles of that version have a tag of their own for the variable.
bool hasTag(DxfVersion version, const Variable& variable) {
    if (variable.first == DxfVersion::kUnknown) return false;
    return version >= variable.first && version <= variable.last;
}

} // namespace

bool OdDbDimStyleTableRecord::namesBlocks(const OdDbDatabase& database) {
    return database.form() < DxfVersion::kR2000;
}

std::optional<Value> OdDbDimStyleTableRecord::variable(std::wstring_view name) const {
    const Variable* known = dimVariable(name);
    return known ? variable(*known) : std::nullopt;
}

std::optional<Value> OdDbDimStyleTableRecord::variable(const Variable& variable) const {
    const int byName = nameCode(variable);
    OwnTags own(format(), database()->store().text(objectId().record()));
    int skip = variable.code == kFillColor;
    std::optional<Value> named;
    for (Tag tag; own.next(tag);) {
        if (byName && tag.code == byName) named = textOf(format(), tag);
        if (tag.code != variable.code || variable.first == DxfVersion::kUnknown || skip-- > 0) continue;
        Value value = valueOf(format(), tag);
        if (auto* degrees = std::get_if<double>(&value); degrees && variable.code == kJogAngle)
            *degrees *= kDegree;
        return value;
    }
    if (named || !variable.application) return named;
    for (OdResBufPtr b = xData(applicationOf(variable)); b && b->next(); b = b->next())
        if (b->restype() == OdResBuf::kDxfXdInteger16 && b->getInt32() == variable.applicationCode)
            return b->next()->value();
    return std::nullopt;
}

Tavo::ErrorStatus OdDbDimStyleTableRecord::setVariable(std::wstring_view name, const Value& value) {
    const Variable* known = dimVariable(name);
    return known ? setVariable(*known, value) : Tavo::eKeyNotFound;
}

Tavo::ErrorStatus OdDbDimStyleTableRecord::setVariable(const Variable& variable, const Value& given) {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    // A variable the version doesn't know may still be changed where the style has it.
    const bool own =
        hasTag(database()->form(), variable) || (variable.code != kFillColor && find(variable.code));
    if (!own && (!variable.application || namesBlocks(*database()))) {
        database()->require(OdDb::Feature::kDimVariables);
        return Tavo::eNotHandled;
    }
    Value value = given;
    const bool names = nameCode(variable) != 0 && namesBlocks(*database());
    if (variable.isReference() && !names) {
        if (const auto* name = std::get_if<OdString>(&value)) {
            const auto handle = dimReference(*database(), variable, name->view());
            if (!handle) return Tavo::eKeyNotFound;
            value = *handle;
        }
        if (!std::holds_alternative<OdDbHandle>(value)) return Tavo::eWrongType;
    } else if (names && std::holds_alternative<OdDbHandle>(value)) {
        value = dimReferenceName(*database(), variable, value);
    }
    if (own) {
        if (auto* radians = std::get_if<double>(&value); radians && variable.code == kJogAngle) {
            if (this->variable(variable) == given) return Tavo::eOk;
            *radians /= kDegree;
        }
        return edit([&](RecordEditor& record) {
            const int code = names ? nameCode(variable) : variable.code;
            if (const std::size_t i = findOwn(record, code); i != RecordEditor::npos)
                return record.set(i, value);
            return record.insert(ownTags(record).back() + 1, code, value);
        });
    }
    const std::wstring application = applicationOf(variable);
    if (const auto* whole = std::get_if<std::int64_t>(&value); whole && variable.type == Variable::kReal)
        value = static_cast<double>(*whole);
    return editXData(application, [&](RecordEditor& record) {
        if (const std::size_t i = findKept(record, variable); i != RecordEditor::npos)
            return record.set(i, value);
        const std::size_t end = needXData(record, application).end;
        return record.insert(end, 1070, std::int64_t{variable.applicationCode}) &&
               record.insert(end + 1, keptCode(variable), value);
    });
}

Tavo::ErrorStatus OdDbDimStyleTableRecord::removeVariable(std::wstring_view name) {
    const Variable* variable = dimVariable(name);
    if (!variable) return Tavo::eKeyNotFound;
    return edit([&](RecordEditor& record) {
        for (const int code : {variable->code, nameCode(*variable)})
            if (const std::size_t i = code ? findOwn(record, code) : RecordEditor::npos;
                i != RecordEditor::npos)
                record.erase(i);
        if (variable->application && findKept(record, *variable) != RecordEditor::npos)
            eraseXData(record, applicationOf(*variable));
        return true;
    });
}

Tavo::ErrorStatus OdDbDimStyleTableRecord::copyFrom(const OdDbDimStyleTableRecord& other) {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    const OdDbUndoScope step(*database(), L"DIMSTYLE");
    const auto status = setDimStyleData(*this, dimStyleData(other));
    setAnnotative(other.annotative());
    return status;
}

Tavo::ErrorStatus OdDbDimStyleTableRecord::setName(std::wstring_view name) {
    const OdString old = getName();
    if (old.isEmpty() || checkWrite() != Tavo::eOk || old.view() == name)
        return OdDbSymbolTableRecord::setName(name);
    const OdDbUndoScope step(*database(), L"RENAME");
    if (const auto status = OdDbSymbolTableRecord::setName(name); status != Tavo::eOk) return status;
    const RecordId table = database()->store().record(objectId().record()).owner;
    if (table == kNoRecord) return Tavo::eOk;
    for (const wchar_t* kind : {L"$0", L"$2", L"$3", L"$4", L"$6", L"$7"}) {
        const RecordId id = database()->tableNames().find(table, old.wstr() + kind);
        if (id == kNoRecord) continue;
        const OdDbObjectId child(database(), id);
        if (const auto record = child.open<OdDbDimStyleTableRecord>(OdDb::kForWrite))
            record->OdDbSymbolTableRecord::setName(std::wstring(name) + kind);
    }
    return Tavo::eOk;
}
