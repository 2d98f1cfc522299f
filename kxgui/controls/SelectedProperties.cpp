#include "kxgui/controls/SelectedProperties.h"

#include "platform/drawing/OdDbEntity.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "platform/drawing/OdResBuf.h"
#include "platform/drawing/entities/EntityProperties.h"
#include "platform/host/TavoInterfaces.h"
#include "platform/host/TavoSelection.h"
#include "platform/host/TavoSysvarManager.h"
#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"
#include "platform/text/Unicode.h"

#include <algorithm>
#include <unordered_map>

namespace kx::controls {
namespace {

using tv::dwg::EntityKind;
using tv::dwg::EntityProperty;
using tv::dwg::Value;

struct Names {
    const wchar_t* property; // of entities
    const wchar_t* variable; // of new objects
};

Names namesOf(Property property) {
    switch (property) {
    case Property::layer:
        return {L"Layer", L"CLAYER"};
    case Property::color:
        return {L"Color", L"CECOLOR"};
    case Property::linetype:
        return {L"Linetype", L"CELTYPE"};
    case Property::lineWeight:
        return {L"Lineweight", L"CELWEIGHT"};
    case Property::plotStyle:
        return {L"PlotStyle", L"CPLOTSTYLE"};
    case Property::textStyle:
        return {L"TextStyle", L"TEXTSTYLE"};
    case Property::dimStyle:
        return {L"DimStyle", L"DIMSTYLE"};
    case Property::textHeight:
        break;
    }
    return {L"Height", L"TEXTSIZE"};
}

constexpr std::int64_t trueColor = std::int64_t{OdCmColor::kByColor} << 24;

// An entity's property of that meaning, looked up once for each kind of entity.
class PropertyFinder {
  public:
    explicit PropertyFinder(Property property) : m_property(property), m_name(namesOf(property).property) {}

    // Null for entities without it.
    const EntityProperty* of(OdDbObjectId object) {
        const EntityKind& kind = tv::dwg::entityKindOf(object);
        const auto [at, isNew] = m_found.try_emplace(&kind, nullptr);
        if (isNew) at->second = lookUp(kind);
        return at->second;
    }

  private:
    const EntityProperty* lookUp(const EntityKind& kind) const {
        // Pictures have a height, too; only texts have one beside a style.
        if (m_property == Property::textHeight && !tv::dwg::findProperty(kind, L"TextStyle")) return nullptr;
        return tv::dwg::findProperty(kind, m_name);
    }

    Property m_property;
    const wchar_t* m_name;
    std::unordered_map<const EntityKind*, const EntityProperty*> m_found;
};

// Whether layers are locked, asked once for each.
class LockedLayers {
  public:
    bool hasOne(OdDbObjectId object) {
        const auto entity = object.open<OdDbEntity>();
        if (!entity) return false;
        const auto [at, isNew] = m_locked.try_emplace(std::wstring(entity->layer().view()), false);
        if (isNew) {
            const auto layer = entity->layerId().open<OdDbLayerTableRecord>();
            at->second = layer && layer->isLocked();
        }
        return at->second;
    }

  private:
    std::unordered_map<std::wstring, bool> m_locked;
};

// An entity that names no style has the standard one.
Value withStandardStyle(Property property, Value value) {
    const auto* name = std::get_if<OdString>(&value);
    const bool isStyle = property == Property::textStyle || property == Property::dimStyle;
    return isStyle && name && name->isEmpty() ? Value(OdString(L"Standard")) : value;
}

bool isAlive(OdDbObjectId object) { return !object.isNull() && !object.isErased(); }

Tavo::ErrorStatus writeCurrent(TavoSysvarManager& manager, const OdDbDatabasePtr& database, Property property,
                               const Value& value) {
    const OdString name = namesOf(property).variable;
    if (property == Property::color) return manager.setVar(name, colorOfValue(value), database);
    if (const auto* text = std::get_if<OdString>(&value)) return manager.setText(name, *text, database);
    if (const auto* real = std::get_if<double>(&value))
        return manager.setVar(name, OdResBuf(OdResBuf::kRtDouble, *real), database);
    if (const auto* whole = std::get_if<std::int64_t>(&value))
        return manager.setVar(name, OdResBuf(OdResBuf::kRtInt32, *whole), database);
    return Tavo::eWrongType;
}

tv::Problem changeCurrent(const OdDbDatabasePtr& database, Property property, const Value& value,
                          std::wstring_view undoName) {
    auto* manager = getSysvarManagerInterface(getTavoInterfaces());
    if (!manager) return {Tavo::eNotHandled, {}, {}, 0};
    const OdDbUndoScope undo(*database, undoName);
    const auto status = writeCurrent(*manager, database, property, value);
    if (status == Tavo::eOk) return {};
    tv::Problem problem = manager->lastProblem();
    problem.status = status;
    return problem;
}

} // namespace

Value colorValue(const OdCmColor& color) {
    if (const auto rgb = color.dxf420()) return trueColor | *rgb;
    return std::int64_t{color.colorIndex()};
}

OdCmColor colorOfValue(const Value& value) {
    const auto* number = std::get_if<std::int64_t>(&value);
    if (!number) return {};
    if ((*number & ~std::int64_t{0xFFFFFF}) == trueColor)
        return OdCmColor::fromDxf(std::nullopt, static_cast<int>(*number & 0xFFFFFF));
    return *number >= 0 && *number <= 256 ? OdCmColor::byIndex(static_cast<int>(*number)) : OdCmColor();
}

Value nameValue(std::wstring_view name) {
    Value value;
    value.emplace<OdString>(name);
    return value;
}

bool sameValue(const Value& a, const Value& b) {
    const auto* textA = std::get_if<OdString>(&a);
    const auto* textB = std::get_if<OdString>(&b);
    return textA && textB ? tv::text::equalNoCase(textA->view(), textB->view()) : a == b;
}

std::wstring variesText() { return VORD_ResourceString("IDS_TAVO_COBX_VARIES", L"*다양함*").c_str(); }

std::vector<OdDbObjectId> pickedObjects(const OdDbDatabase& database) {
    TavoInterfaces* host = getTavoInterfaces();
    const TavoSelection* selection = host ? host->selection() : nullptr;
    if (!selection || selection->current().database() != &database) return {};
    int pickFirst = 1;
    tvedGetVar(L"PICKFIRST", pickFirst, nullptr);
    return pickFirst ? selection->ids() : std::vector<OdDbObjectId>();
}

CommonValue commonValue(const std::vector<OdDbObjectId>& objects, Property property) {
    PropertyFinder finder(property);
    CommonValue common;
    for (const OdDbObjectId object : objects) {
        const EntityProperty* own = isAlive(object) ? finder.of(object) : nullptr;
        if (!own) continue;
        Value value = withStandardStyle(property, tv::dwg::propertyValue(object, *own));
        if (!common.known) {
            common.known = true;
            common.value = std::move(value);
        } else if (!sameValue(common.value, value)) {
            common.varies = true;
            break;
        }
    }
    return common;
}

bool anyHasProperty(const std::vector<OdDbObjectId>& objects, Property property) {
    PropertyFinder finder(property);
    return std::any_of(objects.begin(), objects.end(),
                       [&](OdDbObjectId object) { return isAlive(object) && finder.of(object); });
}

CommonValue currentValue(const OdDbDatabasePtr& database, Property property) {
    const auto* manager = getSysvarManagerInterface(getTavoInterfaces());
    CommonValue current;
    if (!manager || !database) return current;
    const OdString name = namesOf(property).variable;
    if (property == Property::color) {
        OdCmColor color;
        current.known = manager->getVar(name, color, database) == Tavo::eOk;
        current.value = colorValue(color);
    } else {
        OdResBuf buffer;
        current.known = manager->getVar(name, buffer, database) == Tavo::eOk;
        current.value = buffer.value();
    }
    return current;
}

CommonValue shownValue(const OdDbDatabasePtr& database, Property property) {
    if (!database) return {};
    const CommonValue common = commonValue(pickedObjects(*database), property);
    return common.known ? common : currentValue(database, property);
}

tv::Problem changeObjects(const std::vector<OdDbObjectId>& objects, Property property, const Value& value,
                          std::wstring_view undoName) {
    OdDbDatabase* database = nullptr;
    for (const OdDbObjectId object : objects)
        if (!database && isAlive(object)) database = object.database();
    if (!database) return {};
    PropertyFinder finder(property);
    LockedLayers locked;
    int lockedCount = 0, refusedCount = 0;
    auto refusal = Tavo::eOk;
    const OdDbUndoScope undo(*database, undoName);
    for (const OdDbObjectId object : objects) {
        const EntityProperty* own = isAlive(object) ? finder.of(object) : nullptr;
        if (!own) continue;
        if (locked.hasOne(object)) {
            ++lockedCount;
        } else if (const auto status = tv::dwg::setPropertyValue(object, *own, value); status != Tavo::eOk) {
            ++refusedCount;
            refusal = status;
        }
    }
    if (refusedCount > 0)
        return {refusal,
                tv::text::format(VORD_ResourceString("IDS_TAVO_COBX_REFUSED",
                                                     L"객체 %d개는 바꿀 수 없어 그대로 두었습니다."),
                                 refusedCount + lockedCount),
                {},
                0};
    if (lockedCount > 0)
        return {Tavo::eReadOnly,
                tv::text::format(VORD_ResourceString("IDS_TAVO_COBX_LOCKED",
                                                     L"객체 %d개는 잠긴 도면층에 있어 바꾸지 않았습니다."),
                                 lockedCount),
                {},
                0};
    return {};
}

tv::Problem changeProperty(const OdDbDatabasePtr& database, Property property, const Value& value,
                           std::wstring_view undoName) {
    if (!database) return {Tavo::eNoDatabase, {}, {}, 0};
    const std::vector<OdDbObjectId> picked = pickedObjects(*database);
    return anyHasProperty(picked, property) ? changeObjects(picked, property, value, undoName)
                                            : changeCurrent(database, property, value, undoName);
}

} // namespace kx::controls
