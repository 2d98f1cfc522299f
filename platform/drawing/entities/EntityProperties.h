#pragma once

#include "platform/Export.h"
#include "platform/drawing/OdResBuf.h"
#include "platform/drawing/Value.h"
#include "platform/text/Problem.h"

#include <span>
#include <string_view>
#include <vector>

// The properties of entities by name, kind by kind: what a list of properties shows and a search by properties
// asks for. Names are the same in every language; dialogs have their own words for them.
namespace tv::dwg {

enum class PropertyKind : std::uint8_t {
    kText,
    kInteger,
    kReal,
    kLength,     // drawing units
    kArea,       // drawing units squared
    kAngle,      // radians
    kCoordinate, // drawing units; name and axis stand in the property's name
    kBoolean,    // 0 or 1
    kEnum,       // one of the choices
    kColor,      // 0 by block, 1..255, 256 by layer; a true colour is 0xC2RRGGBB
    kLayer,      // names from here on ...
    kLinetype,
    kTextStyle,
    kDimStyle,
    kBlock,
    kPlotStyle,    // ... to here; also "ByLayer", "ByBlock" and "Default"
    kLineWeight,   // OdDb::LineWeight
    kTransparency, // percent, -1 by layer, -2 by block
    kHandle,       // another object
};

struct PropertyChoice {
    int value;
    const wchar_t* name;
};

struct EntityProperty {
    const wchar_t* name = nullptr;
    PropertyKind kind = PropertyKind::kText;
    int groupCode = 0; // of the tag it stands in; 0 for what is computed from several
    bool writable = true;
    std::span<const PropertyChoice> choices{};
    double otherwise = 0;           // what a missing tag means
    int mask = 0;                   // the bits of the tag that count; 0 for all
    bool fileRadians = false;       // of angles: the file has radians, not degrees
    const char* subclass = nullptr; // other than the kind's own; "" for anywhere
    bool variable = false;          // a dimension variable: override, else style, else default
    Value (*get)(OdDbObjectId) = nullptr;
    Tavo::ErrorStatus (*set)(OdDbObjectId, const Value&) = nullptr;

    // The class of values a search compares by: kRtDouble for numbers, kRtString for texts, kRtNone for what is
    // chosen from a list.
    KXPLATFORM_EXPORT OdResBuf::ValueType valueClass() const;
};

struct EntityKind {
    const wchar_t* name;                        // "Rotated Dimension"
    std::string_view type;                      // the record's: "DIMENSION"; empty for kinds nobody knows
    std::string_view subclass;                  // where its own tags stand
    std::span<const int> order;                 // of its own tags in files
    std::span<const EntityProperty> properties; // besides those all entities have
    std::span<const EntityProperty> more{};
};

// Every kind that has a name here, in the order of their names.
KXPLATFORM_EXPORT std::span<const EntityKind> entityKinds();
// Never fails: an entity of another kind is of the kind with an empty type.
KXPLATFORM_EXPORT const EntityKind& entityKindOf(OdDbObjectId entity);
// What to call it: the kind's name, of unknown kinds the record's type.
KXPLATFORM_EXPORT OdString entityKindName(OdDbObjectId entity);

// Of the kind, those of all entities first.
KXPLATFORM_EXPORT std::vector<const EntityProperty*> propertiesOf(const EntityKind& kind);
// What all these kinds have, by name and kind of value; the common properties for no kinds.
KXPLATFORM_EXPORT std::vector<const EntityProperty*> propertiesOfAll(std::span<const EntityKind* const> kinds);
// Null when the kind has none of that name.
KXPLATFORM_EXPORT const EntityProperty* findProperty(const EntityKind& kind, std::wstring_view name);

// The value of the entity's property of that name. std::monostate when its kind has none, or the file no value
// and no default.
KXPLATFORM_EXPORT Value propertyValue(OdDbObjectId entity, const EntityProperty& property);
// eKeyNotFound when the entity has no such property, or the name given isn't in the drawing; eReadOnly for one
// that can't be set; eWrongType and eOutOfRange for a value that doesn't fit.
KXPLATFORM_EXPORT Tavo::ErrorStatus setPropertyValue(OdDbObjectId entity, const EntityProperty& property,
                                                     const Value& value);

} // namespace tv::dwg
