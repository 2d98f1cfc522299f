#include "platform/drawing/entities/EntityProperties.h"

#include "platform/drawing/DimVariables.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbEntity.h"
#include "platform/drawing/OdDbSymbolTable.h"
#include "platform/drawing/entities/PropertyTables.h"
#include "platform/drawing/entities/TagAccess.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tv::dwg {
namespace {

constexpr double kDegree = std::numbers::pi / 180;

bool isReal(PropertyKind kind) { return kind >= PropertyKind::kReal && kind <= PropertyKind::kCoordinate; }

bool isName(PropertyKind kind) {
    return kind == PropertyKind::kText || (kind >= PropertyKind::kLayer && kind <= PropertyKind::kPlotStyle);
}

std::optional<double> numberIn(const Value& value) {
    if (const auto* real = std::get_if<double>(&value)) return *real;
    if (const auto* whole = std::get_if<std::int64_t>(&value)) return static_cast<double>(*whole);
    return std::nullopt;
}

// What a tag's value is as the property's.
Value toProperty(const EntityProperty& property, const Value& raw) {
    if (property.kind == PropertyKind::kHandle) return raw;
    if (isName(property.kind)) return std::holds_alternative<OdString>(raw) ? raw : Value(OdString());
    const std::optional<double> number = numberIn(raw);
    if (isReal(property.kind)) {
        const bool degrees = property.kind == PropertyKind::kAngle && !property.fileRadians;
        const double value = number.value_or(property.otherwise);
        return degrees ? value * kDegree : value;
    }
    const auto* whole = std::get_if<std::int64_t>(&raw);
    std::int64_t value = whole ? *whole : static_cast<std::int64_t>(property.otherwise);
    if (property.mask != 0) value &= property.mask;
    if (property.kind == PropertyKind::kBoolean) value = value != 0;
    return value;
}

// The other way; monostate for a value that doesn't fit.
Value toTag(const EntityProperty& property, const Value& value, const Value& old) {
    if (property.kind == PropertyKind::kHandle)
        return std::holds_alternative<OdDbHandle>(value) ? value : Value();
    if (isName(property.kind)) return std::holds_alternative<OdString>(value) ? value : Value();
    if (isReal(property.kind)) {
        const std::optional<double> number = numberIn(value);
        if (!number || !std::isfinite(*number)) return {};
        const bool degrees = property.kind == PropertyKind::kAngle && !property.fileRadians;
        return degrees ? *number / kDegree : *number;
    }
    const auto* whole = std::get_if<std::int64_t>(&value);
    if (!whole) return {};
    if (property.mask == 0) return *whole;
    const auto* before = std::get_if<std::int64_t>(&old);
    const std::int64_t rest =
        (before ? *before : static_cast<std::int64_t>(property.otherwise)) & ~property.mask;
    const std::int64_t bits = property.kind == PropertyKind::kBoolean ? (*whole ? property.mask : 0) : *whole;
    return rest | (bits & property.mask);
}

bool inRange(const EntityProperty& property, const Value& value) {
    const auto* whole = std::get_if<std::int64_t>(&value);
    if (property.kind == PropertyKind::kBoolean) return !whole || *whole == 0 || *whole == 1;
    if (property.kind != PropertyKind::kEnum || !whole) return true;
    return std::any_of(property.choices.begin(), property.choices.end(),
                       [&](const PropertyChoice& choice) { return choice.value == *whole; });
}

bool isKnownName(OdDbDatabase& database, PropertyKind kind, const Value& value) {
    const auto* name = std::get_if<OdString>(&value);
    if (!name) return true;
    OdDbObjectId table;
    if (kind == PropertyKind::kTextStyle)
        table = database.getTextStyleTableId();
    else if (kind == PropertyKind::kDimStyle)
        table = database.getDimStyleTableId();
    else
        return true;
    const auto opened = table.open<OdDbSymbolTable>();
    return opened && opened->has(name->view());
}

TagSource sourceOf(const EntityKind& kind, const EntityProperty& property) {
    return {property.subclass ? std::string_view(property.subclass) : kind.subclass, property.groupCode};
}

} // namespace

OdResBuf::ValueType EntityProperty::valueClass() const {
    if (kind == PropertyKind::kText) return OdResBuf::kRtString;
    return kind == PropertyKind::kInteger || isReal(kind) ? OdResBuf::kRtDouble : OdResBuf::kRtNone;
}

OdString entityKindName(OdDbObjectId entity) {
    const EntityKind& kind = entityKindOf(entity);
    if (!kind.type.empty() || entity.isErased()) return OdString(kind.name);
    return entity.openObject()->isA();
}

std::vector<const EntityProperty*> propertiesOf(const EntityKind& kind) {
    std::vector<const EntityProperty*> out;
    for (const auto& part : {commonProperties(), kind.properties, kind.more})
        for (const EntityProperty& property : part)
            out.push_back(&property);
    return out;
}

std::vector<const EntityProperty*> propertiesOfAll(std::span<const EntityKind* const> kinds) {
    std::vector<const EntityProperty*> out;
    if (kinds.empty()) {
        for (const EntityProperty& property : commonProperties())
            out.push_back(&property);
        return out;
    }
    out = propertiesOf(*kinds.front());
    for (const EntityKind* kind : kinds.subspan(1))
        std::erase_if(out, [&](const EntityProperty* property) {
            const EntityProperty* other = findProperty(*kind, property->name);
            return !other || other->kind != property->kind;
        });
    return out;
}

const EntityProperty* findProperty(const EntityKind& kind, std::wstring_view name) {
    for (const auto& part : {commonProperties(), kind.properties, kind.more})
        for (const EntityProperty& property : part)
            if (name == property.name) return &property;
    return nullptr;
}

Value propertyValue(OdDbObjectId entity, const EntityProperty& property) {
    const OdDbObjectPtr object = entity.openObject();
    if (!object) return {};
    const EntityKind& kind = entityKindOf(entity);
    const EntityProperty* own = findProperty(kind, property.name);
    if (!own) return {};
    if (own->get) return own->get(entity);
    if (own->variable) return toProperty(*own, effectiveDimVariable(*object, own->name));
    return toProperty(*own, tagValue(*object, sourceOf(kind, *own)));
}

Tavo::ErrorStatus setPropertyValue(OdDbObjectId entity, const EntityProperty& property, const Value& value) {
    const OdDbObjectPtr object = entity.openObject(OdDb::kForWrite);
    if (!object) return Tavo::eWasErased;
    const EntityKind& kind = entityKindOf(entity);
    const EntityProperty* own = findProperty(kind, property.name);
    if (!own) return Tavo::eKeyNotFound;
    if (!own->writable) return Tavo::eReadOnly;
    if (const auto status = checkWritable(*object); status != Tavo::eOk) return status;
    if (!inRange(*own, value)) return Tavo::eOutOfRange;
    if (!own->variable && !isKnownName(*entity.database(), own->kind, value)) return Tavo::eKeyNotFound;
    if (own->set) return propertyValue(entity, *own) == value ? Tavo::eOk : own->set(entity, value);
    const TagSource source = sourceOf(kind, *own);
    const Value old = own->variable ? Value() : tagValue(*object, source);
    const Value raw = toTag(*own, value, old);
    if (std::holds_alternative<std::monostate>(raw)) return Tavo::eWrongType;
    if (propertyValue(entity, *own) == toProperty(*own, raw)) return Tavo::eOk;
    if (own->variable) return setDimOverride(*object, own->name, raw);
    return writeTag(*object, source, raw, kind.order);
}

} // namespace tv::dwg
