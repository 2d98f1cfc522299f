#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbDictionary.h"
#include "platform/drawing/OdDbEntity.h"
#include "platform/drawing/entities/Hyperlink.h"
#include "platform/drawing/entities/PropertyTables.h"
#include "platform/drawing/entities/TagAccess.h"
#include "platform/text/Unicode.h"

#include <array>
#include <cmath>

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

struct DimVar {
    const wchar_t* name;
    PropertyKind kind;
    int code;
    double otherwise;
};

constexpr DimVar kDimVars[] = {
    {L"DIMPOST", kText, 3, 0},         {L"DIMAPOST", kText, 4, 0},       {L"DIMSCALE", kReal, 40, 1},
    {L"DIMASZ", kLength, 41, 0.18},    {L"DIMEXO", kLength, 42, 0.0625}, {L"DIMDLI", kLength, 43, 0.38},
    {L"DIMEXE", kLength, 44, 0.18},    {L"DIMRND", kLength, 45, 0},      {L"DIMDLE", kLength, 46, 0},
    {L"DIMTP", kLength, 47, 0},        {L"DIMTM", kLength, 48, 0},       {L"DIMFXL", kLength, 49, 1},
    {L"DIMJOGANG", kAngle, 50, 45},    {L"DIMTFILL", kInteger, 69, 0},   {L"DIMTFILLCLR", kColor, 70, 0},
    {L"DIMTOL", kBoolean, 71, 0},      {L"DIMLIM", kBoolean, 72, 0},     {L"DIMTIH", kBoolean, 73, 1},
    {L"DIMTOH", kBoolean, 74, 1},      {L"DIMSE1", kBoolean, 75, 0},     {L"DIMSE2", kBoolean, 76, 0},
    {L"DIMTAD", kInteger, 77, 0},      {L"DIMZIN", kInteger, 78, 0},     {L"DIMAZIN", kInteger, 79, 0},
    {L"DIMARCSYM", kInteger, 90, 0},   {L"DIMTXT", kLength, 140, 0.18},  {L"DIMCEN", kLength, 141, 0.09},
    {L"DIMTSZ", kLength, 142, 0},      {L"DIMALTF", kReal, 143, 25.4},   {L"DIMLFAC", kReal, 144, 1},
    {L"DIMTVP", kReal, 145, 0},        {L"DIMTFAC", kReal, 146, 1},      {L"DIMGAP", kLength, 147, 0.09},
    {L"DIMALTRND", kLength, 148, 0},   {L"DIMALT", kBoolean, 170, 0},    {L"DIMALTD", kInteger, 171, 2},
    {L"DIMTOFL", kBoolean, 172, 0},    {L"DIMSAH", kBoolean, 173, 0},    {L"DIMTIX", kBoolean, 174, 0},
    {L"DIMSOXD", kBoolean, 175, 0},    {L"DIMCLRD", kColor, 176, 0},     {L"DIMCLRE", kColor, 177, 0},
    {L"DIMCLRT", kColor, 178, 0},      {L"DIMADEC", kInteger, 179, 0},   {L"DIMDEC", kInteger, 271, 4},
    {L"DIMTDEC", kInteger, 272, 4},    {L"DIMALTU", kInteger, 273, 2},   {L"DIMALTTD", kInteger, 274, 2},
    {L"DIMAUNIT", kInteger, 275, 0},   {L"DIMFRAC", kInteger, 276, 0},   {L"DIMLUNIT", kInteger, 277, 2},
    {L"DIMDSEP", kInteger, 278, 46},   {L"DIMTMOVE", kInteger, 279, 0},  {L"DIMJUST", kInteger, 280, 0},
    {L"DIMSD1", kBoolean, 281, 0},     {L"DIMSD2", kBoolean, 282, 0},    {L"DIMTOLJ", kInteger, 283, 1},
    {L"DIMTZIN", kInteger, 284, 0},    {L"DIMALTZ", kInteger, 285, 0},   {L"DIMALTTZ", kInteger, 286, 0},
    {L"DIMUPT", kBoolean, 288, 0},     {L"DIMATFIT", kInteger, 289, 3},  {L"DIMFXLON", kBoolean, 290, 0},
    {L"DIMTXSTY", kHandle, 340, 0},    {L"DIMLDRBLK", kHandle, 341, 0},  {L"DIMBLK", kHandle, 342, 0},
    {L"DIMBLK1", kHandle, 343, 0},     {L"DIMBLK2", kHandle, 344, 0},    {L"DIMLTYPE", kHandle, 345, 0},
    {L"DIMLTEX1", kHandle, 346, 0},    {L"DIMLTEX2", kHandle, 347, 0},   {L"DIMLWD", kLineWeight, 371, -2},
    {L"DIMLWE", kLineWeight, 372, -2},
};

constexpr auto kVariables = [] {
    std::array<EntityProperty, std::size(kDimVars)> out{};
    for (std::size_t i = 0; i < out.size(); ++i) {
        out[i].name = kDimVars[i].name;
        out[i].kind = kDimVars[i].kind;
        out[i].groupCode = kDimVars[i].code;
        out[i].otherwise = kDimVars[i].otherwise;
        out[i].variable = true;
    }
    return out;
}();

} // namespace

std::span<const EntityProperty> commonProperties() { return kCommon; }
std::span<const EntityProperty> dimensionVariables() { return kVariables; }

} // namespace tv::dwg
