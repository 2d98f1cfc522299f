#include "platform/drawing/DimVariables.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbDimStyleTable.h"
#include "platform/drawing/dxf/HeaderSection.h"
#include "platform/drawing/dxf/RecordStore.h"
#include "platform/drawing/dxf/XDataTags.h"
#include "platform/text/Unicode.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tv::dwg {
namespace {

using enum OdDb::DxfVersion;
using enum DimVariable::Type;

constexpr double kEighth = std::numbers::pi / 4;
constexpr DimVariable kVariables[] = {
    {"DIMPOST", 3, kText, 0, ""},
    {"DIMAPOST", 4, kText, 0, ""},
    {"DIMSCALE", 40, kReal, 1, ""},
    {"DIMASZ", 41, kReal, 0.18, ""},
    {"DIMEXO", 42, kReal, 0.0625, ""},
    {"DIMDLI", 43, kReal, 0.38, ""},
    {"DIMEXE", 44, kReal, 0.18, ""},
    {"DIMRND", 45, kReal, 0, ""},
    {"DIMDLE", 46, kReal, 0, ""},
    {"DIMTP", 47, kReal, 0, ""},
    {"DIMTM", 48, kReal, 0, ""},
    {"DIMFXL", 49, kReal, 1, "", kR2007, kR2018, "ACAD_DSTYLE_DIMEXT_LENGTH", 378},
    {"DIMJOGANG", 50, kReal, kEighth, "", kR2007, kR2018, "ACAD_DSTYLE_DIMJOGGED_JOGANGLE_SYMBOL", 384},
    {"DIMTFILL", 69, kInteger, 0, "", kR2007, kR2018, "ACAD_DSTYLE_DIMTEXT_FILL", 376},
    {"DIMTFILLCLR", 70, kInteger, 0, "", kR2007},
    {"DIMTOL", 71, kInteger, 0, ""},
    {"DIMLIM", 72, kInteger, 0, ""},
    {"DIMTIH", 73, kInteger, 1, ""},
    {"DIMTOH", 74, kInteger, 1, ""},
    {"DIMSE1", 75, kInteger, 0, ""},
    {"DIMSE2", 76, kInteger, 0, ""},
    {"DIMTAD", 77, kInteger, 0, ""},
    {"DIMZIN", 78, kInteger, 0, ""},
    {"DIMAZIN", 79, kInteger, 0, "", kR2000},
    {"DIMARCSYM", 90, kInteger, 0, "", kR2007, kR2018, "ACAD_DSTYLE_DIMARC_LENGTH_SYMBOL", 379},
    {"DIMTXT", 140, kReal, 0.18, ""},
    {"DIMCEN", 141, kReal, 0.09, ""},
    {"DIMTSZ", 142, kReal, 0, ""},
    {"DIMALTF", 143, kReal, 25.4, ""},
    {"DIMLFAC", 144, kReal, 1, ""},
    {"DIMTVP", 145, kReal, 0, ""},
    {"DIMTFAC", 146, kReal, 1, ""},
    {"DIMGAP", 147, kReal, 0.09, ""},
    {"DIMALTRND", 148, kReal, 0, "", kR2000},
    {"DIMALT", 170, kInteger, 0, ""},
    {"DIMALTD", 171, kInteger, 2, ""},
    {"DIMTOFL", 172, kInteger, 0, ""},
    {"DIMSAH", 173, kInteger, 0, ""},
    {"DIMTIX", 174, kInteger, 0, ""},
    {"DIMSOXD", 175, kInteger, 0, ""},
    {"DIMCLRD", 176, kInteger, 0, ""},
    {"DIMCLRE", 177, kInteger, 0, ""},
    {"DIMCLRT", 178, kInteger, 0, ""},
    {"DIMADEC", 179, kInteger, 0, "", kR2000},
    {"DIMUNIT", 270, kInteger, 2, "", kR13, kR14},
    {"DIMDEC", 271, kInteger, 4, "", kR13},
    {"DIMTDEC", 272, kInteger, 4, "", kR13},
    {"DIMALTU", 273, kInteger, 2, "", kR13},
    {"DIMALTTD", 274, kInteger, 2, "", kR13},
    {"DIMAUNIT", 275, kInteger, 0, "", kR13},
    {"DIMFRAC", 276, kInteger, 0, "", kR2000},
    {"DIMLUNIT", 277, kInteger, 2, "", kR2000},
    {"DIMDSEP", 278, kInteger, '.', "", kR2000},
    {"DIMTMOVE", 279, kInteger, 0, "", kR2000},
    {"DIMJUST", 280, kInteger, 0, "", kR13},
    {"DIMSD1", 281, kInteger, 0, "", kR13},
    {"DIMSD2", 282, kInteger, 0, "", kR13},
    {"DIMTOLJ", 283, kInteger, 1, "", kR13},
    {"DIMTZIN", 284, kInteger, 0, "", kR13},
    {"DIMALTZ", 285, kInteger, 0, "", kR13},
    {"DIMALTTZ", 286, kInteger, 0, "", kR13},
    {"DIMFIT", 287, kInteger, 3, "", kR13, kR14},
    {"DIMUPT", 288, kInteger, 0, "", kR13},
    {"DIMATFIT", 289, kInteger, 3, "", kR2000},
    {"DIMFXLON", 290, kInteger, 0, "", kR2007, kR2018, "ACAD_DSTYLE_DIMEXT_ENABLED", 383},
    {"DIMTXTDIRECTION", 295, kInteger, 0, "", kR2010},
    {"DIMTXSTY", 340, kTextStyle, 0, "Standard", kR13},
    {"DIMLDRBLK", 341, kBlock, 0, "", kR2000},
    {"DIMBLK", 342, kBlock, 0, ""},
    {"DIMBLK1", 343, kBlock, 0, ""},
    {"DIMBLK2", 344, kBlock, 0, ""},
    {"DIMLTYPE", 345, kLinetype, 0, "", kR2007, kR2018, "ACAD_DSTYLE_DIM_LINETYPE", 380},
    {"DIMLTEX1", 346, kLinetype, 0, "", kR2007, kR2018, "ACAD_DSTYLE_DIM_EXT1_LINETYPE", 381},
    {"DIMLTEX2", 347, kLinetype, 0, "", kR2007, kR2018, "ACAD_DSTYLE_DIM_EXT2_LINETYPE", 382},
    {"DIMLWD", 371, kInteger, -2, "", kR2000},
    {"DIMLWE", 372, kInteger, -2, "", kR2000},
    // Kept nowhere but with an application: the height of jogs, the size of breaks, how text is aligned.
    {"DIMJAG", 388, kReal, 1.5, "", kUnknown, kUnknown, "ACAD_DSTYLE_DIMJAG", 388},
    {"DIMBREAK", 391, kReal, 0.125, "", kUnknown, kUnknown, "ACAD_DSTYLE_DIMBREAK", 391},
    {"DIMTALN", 392, kInteger, 0, "", kUnknown, kUnknown, "ACAD_DSTYLE_DIMTALN", 392},
};

// The arrows programs bring along. Their blocks are named with an underscore, header variables leave it out.
constexpr const wchar_t* kArrows[] = {
    L"CLOSEDFILLED", L"CLOSEDBLANK", L"CLOSED",     L"DOT",         L"ARCHTICK", L"OBLIQUE",  L"OPEN",
    L"ORIGIN",       L"ORIGIN2",     L"OPEN90",     L"OPEN30",      L"DOTSMALL", L"DOTBLANK", L"SMALL",
    L"BOXBLANK",     L"BOXFILLED",   L"DATUMBLANK", L"DATUMFILLED", L"INTEGRAL", L"NONE",
};

bool isArrow(std::wstring_view name) {
    return std::any_of(std::begin(kArrows), std::end(kArrows),
                       [&](const wchar_t* arrow) { return text::equalNoCase(name, arrow); });
}

std::size_t indexOf(const DimVariable& variable) { return static_cast<std::size_t>(&variable - kVariables); }

OdDbObjectId tableOf(const OdDbDatabase& database, const DimVariable& variable) {
    return variable.type == kTextStyle  ? database.getTextStyleTableId()
           : variable.type == kLinetype ? database.getLinetypeTableId()
                                        : database.getBlockTableId();
}

bool same(const Value& a, const Value& b) {
    const auto* x = std::get_if<OdString>(&a);
    const auto* y = std::get_if<OdString>(&b);
    if (x && y) return text::equalNoCase(x->view(), y->view());
    const auto number = [](const Value& v) {
        const auto* whole = std::get_if<std::int64_t>(&v);
        const auto* real = std::get_if<double>(&v);
        return whole ? std::optional(static_cast<double>(*whole)) : real ? std::optional(*real) : std::nullopt;
    };
    const auto m = number(a);
    const auto n = number(b);
    if (!m || !n) return a == b;
    return std::abs(*m - *n) <= 1e-9 * std::max({1.0, std::abs(*m), std::abs(*n)});
}

int overrideCode(const Value& value) {
    if (std::holds_alternative<std::int64_t>(value)) return 1070;
    if (std::holds_alternative<double>(value)) return 1040;
    return std::holds_alternative<OdDbHandle>(value) ? 1005 : 1000;
}

const DimVariable* byNumber(std::int64_t code) {
    // Arrow blocks by name have numbers of their own.
    if (code >= 5 && code <= 7) code += 342 - 5;
    for (const DimVariable& variable : kVariables)
        if (variable.code == code) return &variable;
    return nullptr;
}

// The list of overrides inside the ACAD data: what stands between its braces, as [begin, end).
struct List {
    std::size_t begin = RecordEditor::npos;
    std::size_t end = RecordEditor::npos;
    bool found() const { return begin != RecordEditor::npos; }
};

List findList(const RecordEditor& record) {
    const XDataTags data = findXData(record, L"ACAD");
    for (std::size_t i = data.begin; data.found() && i + 1 < data.end; ++i) {
        if (record.code(i) != 1000 || !text::equalNoCase(record.text(i).view(), L"DSTYLE")) continue;
        if (record.code(i + 1) != 1002 || record.text(i + 1) != L"{") continue;
        std::size_t end = i + 2;
        for (int depth = 0; end < data.end; ++end) {
            if (record.code(end) != 1002) continue;
            if (record.text(end) == L"{")
                ++depth;
            else if (depth-- == 0)
                break;
        }
        return {i + 2, end};
    }
    return {};
}

template <class Visit>
void forEachOverride(const RecordEditor& record, List list, Visit&& visit) {
    for (std::size_t i = list.begin; list.found() && i + 1 < list.end; i += 2) {
        if (record.code(i) != 1070) break;
        const Value number = record.value(i);
        const auto* code = std::get_if<std::int64_t>(&number);
        if (code && !visit(*code, i)) break;
    }
}

Tavo::ErrorStatus checkWritable(const OdDbObject& object) {
    if (object.isErased()) return Tavo::eWasErased;
    if (!object.isWriteEnabled()) return Tavo::eNotOpenForWrite;
    return object.database()->store().writable() ? Tavo::eOk : Tavo::eReadOnly;
}

// The value as the list holds it; nothing when it is of another type or names what isn't there.
Tavo::ErrorStatus forList(const OdDbDatabase& database, const DimVariable& variable, Value& value) {
    if (variable.type == kReal) {
        if (const auto* whole = std::get_if<std::int64_t>(&value)) value = static_cast<double>(*whole);
        const auto* real = std::get_if<double>(&value);
        return real && std::isfinite(*real) ? Tavo::eOk : Tavo::eWrongType;
    }
    if (variable.type == kInteger) {
        const auto* whole = std::get_if<std::int64_t>(&value);
        return whole && *whole >= INT16_MIN && *whole <= INT16_MAX ? Tavo::eOk : Tavo::eWrongType;
    }
    const auto* name = std::get_if<OdString>(&value);
    if (variable.type == kText) return name ? Tavo::eOk : Tavo::eWrongType;
    if (OdDbDimStyleTableRecord::namesBlocks(database) && variable.type == kBlock) {
        if (!name) value = dimReferenceName(database, variable, value);
        return std::holds_alternative<OdString>(value) ? Tavo::eOk : Tavo::eWrongType;
    }
    if (!name) return std::holds_alternative<OdDbHandle>(value) ? Tavo::eOk : Tavo::eWrongType;
    const auto handle = dimReference(database, variable, name->view());
    if (!handle) return Tavo::eKeyNotFound;
    value = *handle;
    return Tavo::eOk;
}

} // namespace

Value DimVariable::defaultValue() const {
    if (type == kInteger) return static_cast<std::int64_t>(number);
    if (type == kReal) return number;
    const std::string_view ascii = text;
    return OdString(std::wstring(ascii.begin(), ascii.end()));
}

std::span<const DimVariable> dimVariables() { return kVariables; }

const DimVariable* dimVariable(std::wstring_view name) {
    const std::string plain = plainVariableName(name);
    for (const DimVariable& variable : kVariables)
        if (plain == variable.name) return &variable;
    return nullptr;
}

Value dimReferenceName(const OdDbDatabase& database, const DimVariable& variable, const Value& value) {
    if (!variable.isReference()) return value;
    OdString name;
    if (const auto* text = std::get_if<OdString>(&value)) name = *text;
    if (const auto* handle = std::get_if<OdDbHandle>(&value); handle && !handle->isNull())
        if (const auto record = database.getOdDbObjectId(*handle).open<OdDbSymbolTableRecord>())
            name = record->getName();
    const std::wstring_view view = name.view();
    if (variable.type == kBlock && view.starts_with(L'_') && isArrow(view.substr(1)))
        return OdString(view.substr(1));
    if (variable.type == kBlock && view == L".") return OdString();
    if (variable.type == kLinetype && text::equalNoCase(view, L"ByBlock")) return OdString();
    return name;
}

std::optional<OdDbHandle> dimReference(const OdDbDatabase& database, const DimVariable& variable,
                                       std::wstring_view name) {
    if (name.empty() || (variable.type == kBlock && name == L".")) return OdDbHandle();
    const auto table = tableOf(database, variable).open<OdDbSymbolTable>();
    if (!table) return std::nullopt;
    OdDbObjectId record = table->getAt(name);
    if (record.isNull() && variable.type == kBlock) record = table->getAt(L"_" + std::wstring(name));
    if (record.isNull() || record.handle().isNull()) return std::nullopt;
    return record.handle();
}

Value DimStyleData::value(std::wstring_view name) const {
    const DimVariable* variable = dimVariable(name);
    return variable && indexOf(*variable) < values.size() ? values[indexOf(*variable)] : Value();
}

DimStyleData dimStyleData(const OdDbDimStyleTableRecord& style) {
    DimStyleData data;
    for (const DimVariable& variable : kVariables) {
        const auto value = style.variable(variable);
        data.values.push_back(value ? dimReferenceName(*style.database(), variable, *value)
                                    : variable.defaultValue());
    }
    return data;
}

DimStyleData dimStyleDataOfDrawing(const OdDbDatabase& database) {
    DimStyleData data;
    const auto current = database.headerVar(L"DIMSTYLE");
    const auto table = database.getDimStyleTableId().open<OdDbSymbolTable>();
    const auto style = table && current && current->asText()
                           ? table->getAt(current->asText()->view()).open<OdDbDimStyleTableRecord>()
                           : nullptr;
    if (style) data = dimStyleData(*style);
    for (const DimVariable& variable : kVariables) {
        if (!style) data.values.push_back(variable.defaultValue());
        const std::string_view name = variable.name;
        const auto value = database.headerVar(std::wstring(name.begin(), name.end()));
        if (value && value->value.index() != 0)
            data.values[indexOf(variable)] = dimReferenceName(database, variable, value->value);
    }
    return data;
}

std::vector<const DimVariable*> dimDifferences(const DimStyleData& a, const DimStyleData& b) {
    std::vector<const DimVariable*> out;
    for (std::size_t i = 0; i < std::min({a.values.size(), b.values.size(), std::size(kVariables)}); ++i)
        if (!same(a.values[i], b.values[i])) out.push_back(&kVariables[i]);
    return out;
}

Tavo::ErrorStatus setDimStyleData(OdDbDimStyleTableRecord& style, const DimStyleData& data) {
    if (const auto status = checkWritable(style); status != Tavo::eOk) return status;
    const OdDbUndoScope step(*style.database(), L"DIMSTYLE");
    Tavo::ErrorStatus result = Tavo::eOk;
    for (const DimVariable* variable : dimDifferences(dimStyleData(style), data))
        if (const auto status = style.setVariable(*variable, data.values[indexOf(*variable)]);
            status != Tavo::eOk && result == Tavo::eOk)
            result = status;
    return result;
}

std::vector<DimOverride> dimOverrides(const OdDbObject& object) {
    std::vector<DimOverride> out;
    const RecordEditor record(object.format(), object.database()->store().text(object.objectId().record()));
    forEachOverride(record, findList(record), [&](std::int64_t code, std::size_t i) {
        if (const DimVariable* variable = byNumber(code)) out.emplace_back(variable, record.value(i + 1));
        return true;
    });
    return out;
}

std::optional<Value> dimOverride(const OdDbObject& object, std::wstring_view name) {
    const DimVariable* wanted = dimVariable(name);
    for (const auto& [variable, value] : dimOverrides(object))
        if (variable == wanted) return value;
    return std::nullopt;
}

Tavo::ErrorStatus setDimOverride(OdDbObject& object, std::wstring_view name, const Value& given) {
    if (const auto status = checkWritable(object); status != Tavo::eOk) return status;
    const DimVariable* variable = dimVariable(name);
    if (!variable || variable->applicationCode == variable->code) return Tavo::eKeyNotFound;
    OdDbDatabase& database = *object.database();
    Value value = given;
    if (const auto status = forList(database, *variable, value); status != Tavo::eOk) return status;
    RecordStore& store = database.store();
    RecordEditor record(object.format(), store.text(object.objectId().record()));
    List list = findList(record);
    const bool fresh = !findXData(record, L"ACAD").found();
    if (!list.found()) {
        std::size_t place = needXData(record, L"ACAD").end;
        if (!record.insert(place++, 1000, OdString(L"DSTYLE")) ||
            !record.insert(place++, 1002, OdString(L"{")) || !record.insert(place, 1002, OdString(L"}")))
            return Tavo::eWrongType;
        list = {place, place};
    }
    std::size_t place = list.end;
    bool there = false;
    forEachOverride(record, list, [&](std::int64_t code, std::size_t i) {
        there = byNumber(code) == variable;
        if (there) place = i;
        return !there;
    });
    const int code = overrideCode(value);
    if (there && record.code(place + 1) == code) {
        if (!record.set(place + 1, value)) return Tavo::eWrongType;
    } else {
        if (there) record.erase(place + 1), record.erase(place);
        const bool byName = variable->type == kBlock && code == 1000;
        const int number = byName ? variable->code - 342 + 5 : variable->code;
        if (!record.insert(place, 1070, std::int64_t{number}) || !record.insert(place + 1, code, value))
            return Tavo::eWrongType;
    }
    if (!record.edited()) return Tavo::eOk;
    const OdDbUndoScope step(database, L"DIMOVERRIDE");
    if (fresh) database.newRegApp(L"ACAD");
    store.replace(object.objectId().record(), record.bytes());
    return Tavo::eOk;
}

Tavo::ErrorStatus removeDimOverride(OdDbObject& object, std::wstring_view name) {
    if (const auto status = checkWritable(object); status != Tavo::eOk) return status;
    const DimVariable* wanted = dimVariable(name);
    if (!wanted) return Tavo::eKeyNotFound;
    if (const auto all = dimOverrides(object); all.size() == 1 && all.front().first == wanted)
        return removeDimOverrides(object);
    RecordStore& store = object.database()->store();
    RecordEditor record(object.format(), store.text(object.objectId().record()));
    std::size_t place = RecordEditor::npos;
    forEachOverride(record, findList(record), [&](std::int64_t code, std::size_t i) {
        if (byNumber(code) == wanted) place = i;
        return place == RecordEditor::npos;
    });
    if (place == RecordEditor::npos) return Tavo::eOk;
    record.erase(place + 1);
    record.erase(place);
    store.replace(object.objectId().record(), record.bytes());
    return Tavo::eOk;
}

Tavo::ErrorStatus removeDimOverrides(OdDbObject& object) {
    if (const auto status = checkWritable(object); status != Tavo::eOk) return status;
    RecordStore& store = object.database()->store();
    RecordEditor record(object.format(), store.text(object.objectId().record()));
    const List list = findList(record);
    if (!list.found()) return Tavo::eOk;
    // The name and the braces too, and the application's data when nothing else is left.
    const std::size_t stop =
        list.end < record.size() && record.code(list.end) == 1002 ? list.end + 1 : list.end;
    for (std::size_t i = stop; i-- > list.begin - 2;)
        record.erase(i);
    if (const XDataTags data = findXData(record, L"ACAD"); data.end - data.begin == 1)
        eraseXData(record, L"ACAD");
    store.replace(object.objectId().record(), record.bytes());
    return Tavo::eOk;
}

OdDbObjectId dimStyleOf(const OdDbObject& object) {
    const OdString name = object.textAt(3);
    const auto table = object.database()->getDimStyleTableId().open<OdDbSymbolTable>();
    return table ? table->getAt(name.isEmpty() ? std::wstring_view(L"Standard") : name.view()) : OdDbObjectId();
}

Value effectiveDimVariable(const OdDbObject& object, std::wstring_view name) {
    const DimVariable* variable = dimVariable(name);
    if (!variable) return {};
    std::optional<Value> value = dimOverride(object, name);
    if (!value)
        if (const auto style = dimStyleOf(object).open<OdDbDimStyleTableRecord>())
            value = style->variable(*variable);
    return value ? dimReferenceName(*object.database(), *variable, *value) : variable->defaultValue();
}

} // namespace tv::dwg
