#include "platform/drawing/DimVariables.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbDictionary.h"
#include "platform/drawing/OdDbEntity.h"
#include "platform/drawing/entities/Hyperlink.h"
#include "platform/drawing/entities/PropertyTables.h"
#include "platform/drawing/entities/TagAccess.h"
#include "platform/text/Unicode.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace tv::dwg {
namespace {

using enum PropertyKind;
using EntityPtr = std::shared_ptr<OdDbEntity>;

template <class Get>
Value read(OdDbObjectId id, Get&& get) {
    const EntityPtr entity = id.open<OdDbEntity>();
    return entity ? get(*entity) : Value();
}

// The value as a T for `set`; eWrongType when it is something else.
template <class T, class Set>
Tavo::ErrorStatus write(OdDbObjectId id, const Value& value, Set&& set) {
    const EntityPtr entity = id.open<OdDbEntity>(OdDb::kForWrite);
    const T* typed = std::get_if<T>(&value);
    return entity && typed ? set(*entity, *typed) : Tavo::eWrongType;
}

constexpr std::int64_t kTrueColor = std::int64_t{OdCmColor::kByColor} << 24;

Value color(OdDbObjectId id) {
    return read(id, [](const OdDbEntity& entity) -> Value {
        const OdCmColor color = entity.color();
        if (const auto rgb = color.dxf420()) return kTrueColor | *rgb;
        return std::int64_t{color.colorIndex()};
    });
}

Tavo::ErrorStatus setColor(OdDbObjectId id, const Value& value) {
    return write<std::int64_t>(id, value, [](OdDbEntity& entity, std::int64_t number) {
        if ((number & ~std::int64_t{0xFFFFFF}) == kTrueColor)
            return entity.setColor(OdCmColor::fromDxf(std::nullopt, static_cast<int>(number & 0xFFFFFF)));
        if (number < 0 || number > 256) return Tavo::eOutOfRange;
        return entity.setColor(OdCmColor::byIndex(static_cast<int>(number)));
    });
}

Value plotStyle(OdDbObjectId id) {
    return read(id, [](const OdDbEntity& entity) -> Value {
        switch (entity.plotStyleNameType()) {
        case OdDb::kPlotStyleNameByBlock:
            return OdString(L"ByBlock");
        case OdDb::kPlotStyleNameIsDictDefault:
            return OdString(L"Default");
        case OdDb::kPlotStyleNameById:
            return entity.plotStyleName();
        case OdDb::kPlotStyleNameByLayer:
            break;
        }
        return OdString(L"ByLayer");
    });
}

Tavo::ErrorStatus setPlotStyle(OdDbObjectId id, const Value& value) {
    return write<OdString>(id, value, [](OdDbEntity& entity, const OdString& name) {
        if (text::equalNoCase(name, L"ByLayer")) return entity.setPlotStyleName(OdDb::kPlotStyleNameByLayer);
        if (text::equalNoCase(name, L"ByBlock")) return entity.setPlotStyleName(OdDb::kPlotStyleNameByBlock);
        if (text::equalNoCase(name, L"Default"))
            return entity.setPlotStyleName(OdDb::kPlotStyleNameIsDictDefault);
        const auto root = entity.database()->getNamedObjectsDictionaryId().open<OdDbDictionary>();
        const auto styles = root ? root->getAt(L"ACAD_PLOTSTYLENAME").open<OdDbDictionary>() : nullptr;
        const OdDbObjectId style = styles ? styles->getAt(name) : OdDbObjectId();
        if (style.isNull()) return Tavo::eKeyNotFound;
        return entity.setPlotStyleName(OdDb::kPlotStyleNameById, style);
    });
}

Value transparency(OdDbObjectId id) {
    return read(id, [](const OdDbEntity& entity) -> Value {
        const OdCmTransparency value = entity.transparency();
        return std::int64_t{value.isByLayer() ? -1 : value.isByBlock() ? -2 : value.percent()};
    });
}

// Users' programs go up to 90 percent; files may say more, so that more is taken, too.
Tavo::ErrorStatus setTransparency(OdDbObjectId id, const Value& value) {
    return write<std::int64_t>(id, value, [](OdDbEntity& entity, std::int64_t percent) {
        if (percent < -2 || percent > 100) return Tavo::eOutOfRange;
        return entity.setTransparency(percent == -1   ? OdCmTransparency()
                                      : percent == -2 ? OdCmTransparency::byBlock()
                                                      : OdCmTransparency::byPercent(static_cast<int>(percent)));
    });
}

template <OdString Hyperlink::*Member>
Value link(OdDbObjectId id) {
    const auto found = hyperlinkOf(id);
    return found ? (*found).*Member : OdString();
}

template <OdString Hyperlink::*Member>
Tavo::ErrorStatus setLink(OdDbObjectId id, const Value& value) {
    const auto* text = std::get_if<OdString>(&value);
    if (!text) return Tavo::eWrongType;
    const auto found = hyperlinkOf(id);
    if (!found && text->isEmpty()) return Tavo::eOk;
    Hyperlink changed = found.value_or(Hyperlink());
    changed.*Member = *text;
    return changed == Hyperlink() ? removeHyperlink(id) : setHyperlink(id, changed);
}

constexpr PropertyChoice kShadows[] = {{OdDb::kShadowsCastAndReceive, L"Casts and Receives"},
                                       {OdDb::kShadowsCast, L"Casts"},
                                       {OdDb::kShadowsReceive, L"Receives"},
                                       {OdDb::kShadowsIgnore, L"Ignores"}};

constexpr EntityProperty kCommon[] = {
    {.name = L"Color", .kind = kColor, .groupCode = 62, .get = color, .set = setColor},
    {.name = L"Layer",
     .kind = kLayer,
     .groupCode = 8,
     .get = [](OdDbObjectId id) { return read(id, [](const OdDbEntity& e) -> Value { return e.layer(); }); },
     .set =
         [](OdDbObjectId id, const Value& value) {
             return write<OdString>(id, value, [](OdDbEntity& e, const OdString& v) { return e.setLayer(v); });
         }},
    {.name = L"Linetype",
     .kind = kLinetype,
     .groupCode = 6,
     .get = [](OdDbObjectId id) { return read(id, [](const OdDbEntity& e) -> Value { return e.linetype(); }); },
     .set =
         [](OdDbObjectId id, const Value& value) {
             return write<OdString>(id, value,
                                    [](OdDbEntity& e, const OdString& v) { return e.setLinetype(v); });
         }},
    {.name = L"LinetypeScale",
     .kind = kReal,
     .groupCode = 48,
     .get =
         [](OdDbObjectId id) {
             return read(id, [](const OdDbEntity& e) -> Value { return e.linetypeScale(); });
         },
     .set =
         [](OdDbObjectId id, const Value& value) {
             return write<double>(id, value, [](OdDbEntity& e, double v) {
                 return v > 0 && std::isfinite(v) ? e.setLinetypeScale(v) : Tavo::eOutOfRange;
             });
         }},
    {.name = L"PlotStyle", .kind = kPlotStyle, .groupCode = 390, .get = plotStyle, .set = setPlotStyle},
    {.name = L"Lineweight",
     .kind = kLineWeight,
     .groupCode = 370,
     .get =
         [](OdDbObjectId id) {
             return read(id, [](const OdDbEntity& e) -> Value { return std::int64_t{e.lineWeight()}; });
         },
     .set =
         [](OdDbObjectId id, const Value& value) {
             return write<std::int64_t>(id, value, [](OdDbEntity& e, std::int64_t v) {
                 if (v < -3 || v > 211) return Tavo::eOutOfRange;
                 return e.setLineWeight(static_cast<OdDb::LineWeight>(v));
             });
         }},
    {.name = L"Transparency",
     .kind = kTransparency,
     .groupCode = 440,
     .get = transparency,
     .set = setTransparency},
    {.name = L"Hyperlink",
     .kind = kText,
     .groupCode = 1000,
     .get = link<&Hyperlink::url>,
     .set = setLink<&Hyperlink::url>},
    {.name = L"HyperlinkDescription",
     .kind = kText,
     .groupCode = 1000,
     .get = link<&Hyperlink::description>,
     .set = setLink<&Hyperlink::description>},
    {.name = L"Visible",
     .kind = kBoolean,
     .groupCode = 60,
     .get =
         [](OdDbObjectId id) {
             return read(id, [](const OdDbEntity& e) -> Value { return std::int64_t{e.isVisible()}; });
         },
     .set =
         [](OdDbObjectId id, const Value& value) {
             return write<std::int64_t>(id, value,
                                        [](OdDbEntity& e, std::int64_t v) { return e.setVisible(v != 0); });
         }},
    {.name = L"ShadowDisplay",
     .kind = kEnum,
     .groupCode = 284,
     .choices = kShadows,
     .get =
         [](OdDbObjectId id) {
             return read(id, [](const OdDbEntity& e) -> Value { return std::int64_t{e.shadowMode()}; });
         },
     .set =
         [](OdDbObjectId id, const Value& value) {
             return write<std::int64_t>(id, value, [](OdDbEntity& e, std::int64_t v) {
                 return e.setShadowMode(static_cast<OdDb::ShadowFlags>(v));
             });
         }},
    {.name = L"Material",
     .kind = kHandle,
     .groupCode = 347,
     .get =
         [](OdDbObjectId id) {
             return read(id, [](const OdDbEntity& e) -> Value { return e.materialId().handle(); });
         },
     .set =
         [](OdDbObjectId id, const Value& value) {
             return write<OdDbHandle>(id, value, [](OdDbEntity& e, OdDbHandle v) {
                 const OdDbObjectId material = v.isNull() ? OdDbObjectId() : e.database()->getOdDbObjectId(v);
                 return material.isNull() != v.isNull() ? Tavo::eKeyNotFound : e.setMaterial(material);
             });
         }},
};

PropertyKind kindOf(const DimVariable& variable) {
    using namespace std::string_view_literals;
    const auto among = [&](std::initializer_list<std::string_view> names) {
        return std::find(names.begin(), names.end(), variable.name) != names.end();
    };
    switch (variable.type) {
    case DimVariable::kText:
        return kText;
    case DimVariable::kTextStyle:
        return kTextStyle;
    case DimVariable::kBlock:
        return kBlock;
    case DimVariable::kLinetype:
        return kLinetype;
    case DimVariable::kReal:
        if (among({"DIMJOGANG"sv})) return kAngle;
        return among({"DIMSCALE"sv, "DIMALTF"sv, "DIMLFAC"sv, "DIMTVP"sv, "DIMTFAC"sv}) ? kReal : kLength;
    case DimVariable::kInteger:
        break;
    }
    if (among({"DIMCLRD"sv, "DIMCLRE"sv, "DIMCLRT"sv, "DIMTFILLCLR"sv})) return kColor;
    if (among({"DIMLWD"sv, "DIMLWE"sv})) return kLineWeight;
    return among({"DIMTOL"sv, "DIMLIM"sv, "DIMTIH"sv, "DIMTOH"sv, "DIMSE1"sv, "DIMSE2"sv, "DIMALT"sv,
                  "DIMTOFL"sv, "DIMSAH"sv, "DIMTIX"sv, "DIMSOXD"sv, "DIMSD1"sv, "DIMSD2"sv, "DIMUPT"sv,
                  "DIMFXLON"sv, "DIMTXTDIRECTION"sv})
               ? kBoolean
               : kInteger;
}

struct Variables {
    std::vector<std::wstring> names;
    std::vector<EntityProperty> properties;

    Variables() {
        names.reserve(dimVariables().size());
        for (const DimVariable& variable : dimVariables()) {
            const std::string_view name = variable.name;
            names.emplace_back(name.begin(), name.end());
            EntityProperty property;
            property.name = names.back().c_str();
            property.kind = kindOf(variable);
            property.groupCode = variable.code;
            property.fileRadians = true;
            property.variable = true;
            properties.push_back(property);
        }
    }
};

} // namespace

std::span<const EntityProperty> commonProperties() { return kCommon; }
std::span<const EntityProperty> dimensionVariables() {
    static const Variables variables;
    return variables.properties;
}

} // namespace tv::dwg
