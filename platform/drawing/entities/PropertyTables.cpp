#include "platform/drawing/entities/PropertyTables.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/dxf/RecordStore.h"
#include "platform/drawing/entities/OdDbDimension.h"
#include "platform/drawing/entities/properties/Families.h"

#include <algorithm>
#include <string_view>

namespace tv::dwg {
namespace {

// In the order of their names, the unknown kind last.
const std::vector<EntityKind>& kinds() {
    static const std::vector<EntityKind> kKinds = [] {
        std::vector<EntityKind> out;
        for (const auto family : {curveKinds, faceKinds, textKinds, blockKinds, fillKinds, annotationKinds})
            out.insert(out.end(), family().begin(), family().end());
        std::sort(out.begin(), out.end(),
                  [](const EntityKind& a, const EntityKind& b) { return std::wstring_view(a.name) < b.name; });
        out.push_back({L"Other", {}, {}, {}, {}});
        return out;
    }();
    return kKinds;
}

const wchar_t* dimensionName(OdDbObjectId id) {
    const auto dimension = id.open<OdDbDimension>();
    switch (dimension ? dimension->dimensionKind() : OdDbDimension::kRotated) {
    case OdDbDimension::kAligned:
        return L"Aligned Dimension";
    case OdDbDimension::kAngular:
        return L"Angular Dimension";
    case OdDbDimension::kDiametric:
        return L"Diametric Dimension";
    case OdDbDimension::kRadial:
        return L"Radial Dimension";
    case OdDbDimension::kAngular3Point:
        return L"3-Point Angular Dimension";
    case OdDbDimension::kOrdinate:
        return L"Ordinate Dimension";
    case OdDbDimension::kArcLength:
        return L"Arc Length Dimension";
    case OdDbDimension::kJogged:
        return L"Jogged Dimension";
    case OdDbDimension::kRotated:
        break;
    }
    return L"Rotated Dimension";
}

const wchar_t* polylineName(OdDbObjectId id) {
    const int flags = id.openObject()->integerAt(70);
    if (flags & 64) return L"Polyface Mesh";
    if (flags & 16) return L"Polygon Mesh";
    return flags & 8 ? L"3D Polyline" : L"2D Polyline";
}

} // namespace

std::span<const EntityKind> entityKinds() { return std::span(kinds()).first(kinds().size() - 1); }

const EntityKind& entityKindOf(OdDbObjectId entity) {
    const EntityKind& other = kinds().back();
    if (entity.isErased()) return other;
    std::string_view type = entity.database()->store().typeName(entity.record());
    if (type == "MLEADER") type = "MULTILEADER";
    if (type.ends_with("SURFACE")) type = "SURFACE";
    const wchar_t* name = nullptr;
    if (type == "DIMENSION")
        name = dimensionName(entity);
    else if (type == "POLYLINE")
        name = polylineName(entity);
    else if (type == "INSERT")
        name = entity.openObject()->integerAt(70, 1) > 1 || entity.openObject()->integerAt(71, 1) > 1
                   ? L"MInsert Block"
                   : L"Block Reference";
    for (const EntityKind& kind : entityKinds())
        if (kind.type == type && (!name || std::wstring_view(kind.name) == name)) return kind;
    return other;
}

} // namespace tv::dwg
