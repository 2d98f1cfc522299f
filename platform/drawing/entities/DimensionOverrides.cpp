#include "platform/drawing/entities/DimensionOverrides.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbEntity.h"
#include "platform/drawing/OdDbStyleTables.h"
#include "platform/drawing/dxf/RecordEditor.h"
#include "platform/drawing/dxf/RecordStore.h"
#include "platform/text/Unicode.h"

namespace tv::dwg {
namespace {

constexpr std::size_t kNone = RecordEditor::npos;

// Where the group stands: 1000 DSTYLE, braces, and in them pairs of a code (1070) and its value.
struct Group {
    std::size_t application = kNone; // its 1001
    std::size_t end = kNone;         // behind the application's last tag
    std::size_t title = kNone;       // the 1000
    std::size_t close = kNone;       // the closing brace
};

Group groupIn(const RecordEditor& record) {
    Group out;
    for (std::size_t i = 0; i < record.size() && out.application == kNone; ++i)
        if (record.code(i) == 1001 && text::equalNoCase(record.text(i).view(), L"ACAD")) out.application = i;
    if (out.application == kNone) return out;
    for (out.end = out.application + 1; out.end < record.size() && record.code(out.end) != 1001; ++out.end) {
        const std::size_t i = out.end;
        if (out.title == kNone && record.code(i) == 1000 && trimmed(record.raw(i)) == "DSTYLE") out.title = i;
        if (out.title != kNone && out.close == kNone && record.code(i) == 1002 && trimmed(record.raw(i)) == "}")
            out.close = i;
    }
    return out;
}

// The tag with the code's value, kNone when the group has none.
std::size_t valueOfCode(const RecordEditor& record, const Group& group, int code) {
    if (group.close == kNone) return kNone;
    for (std::size_t i = group.title + 2; i + 1 < group.close; i += 2)
        if (record.code(i) == 1070 && record.value(i) == Value(std::int64_t{code})) return i + 1;
    return kNone;
}

int extendedCode(int code) {
    switch (valueKind(code)) {
    case ValueKind::kReal:
    case ValueKind::kPoint:
        return 1040;
    case ValueKind::kHandle: // 5 is an arrow's block by name, as old files have it
        return code == 5 ? 1000 : 1005;
    case ValueKind::kText:
        return 1000;
    case ValueKind::kInt32:
        return 1071;
    default:
        return 1070;
    }
}

Tavo::ErrorStatus writable(OdDbObjectId id) {
    if (id.isErased()) return Tavo::eWasErased;
    if (!id.open<OdDbEntity>()) return Tavo::eWrongType;
    return id.database()->store().writable() ? Tavo::eOk : Tavo::eReadOnly;
}

} // namespace

std::optional<Value> dimensionOverride(OdDbObjectId entity, int code) {
    if (entity.isErased()) return std::nullopt;
    const RecordStore& store = entity.database()->store();
    const RecordEditor record(store.format(), store.text(entity.record()));
    const std::size_t at = valueOfCode(record, groupIn(record), code);
    return at == kNone ? std::nullopt : std::optional(record.value(at));
}

Tavo::ErrorStatus setDimensionOverride(OdDbObjectId entity, int code, const Value& value) {
    if (const auto status = writable(entity); status != Tavo::eOk) return status;
    RecordStore& store = entity.database()->store();
    RecordEditor record(store.format(), store.text(entity.record()));
    Group group = groupIn(record);
    const std::size_t at = valueOfCode(record, group, code);
    if (at != kNone) {
        if (!record.set(at, value)) return Tavo::eWrongType;
    } else {
        bool good = true;
        if (group.close == kNone) {
            std::size_t place = group.end;
            if (group.application == kNone) {
                place = record.size();
                good = record.insert(place++, 1001, OdString(L"ACAD"));
            }
            good = good && record.insert(place, 1000, OdString(L"DSTYLE")) &&
                   record.insert(place + 1, 1002, OdString(L"{")) &&
                   record.insert(place + 2, 1002, OdString(L"}"));
            group = {};
            group.close = place + 2;
        }
        good = good && record.insert(group.close, 1070, Value(std::int64_t{code})) &&
               record.insert(group.close + 1, extendedCode(code), value);
        if (!good) return Tavo::eWrongType;
    }
    if (record.edited()) store.replace(entity.record(), record.bytes());
    return Tavo::eOk;
}

Tavo::ErrorStatus removeDimensionOverride(OdDbObjectId entity, int code) {
    if (const auto status = writable(entity); status != Tavo::eOk) return status;
    RecordStore& store = entity.database()->store();
    RecordEditor record(store.format(), store.text(entity.record()));
    const Group group = groupIn(record);
    const std::size_t at = valueOfCode(record, group, code);
    if (at == kNone) return Tavo::eOk;
    record.erase(at);
    record.erase(at - 1);
    store.replace(entity.record(), record.bytes());
    return Tavo::eOk;
}

std::optional<Value> effectiveDimensionVariable(OdDbObjectId entity, int code) {
    if (auto value = dimensionOverride(entity, code)) return value;
    const OdDbObjectPtr object = entity.openObject();
    const auto table = object ? entity.database()->getDimStyleTableId().open<OdDbSymbolTable>() : nullptr;
    if (!table) return std::nullopt;
    const OdString name = object->textAt(3);
    const auto style = table->getAt(name.isEmpty() ? std::wstring_view(L"STANDARD") : name.view())
                           .open<OdDbDimStyleTableRecord>();
    if (!style) return std::nullopt;
    for (const auto& variable : OdDbDimStyleTableRecord::variables())
        if (variable.code == code) {
            const std::string_view known = variable.name;
            return style->variable(std::wstring(known.begin(), known.end()));
        }
    return std::nullopt;
}

} // namespace tv::dwg
