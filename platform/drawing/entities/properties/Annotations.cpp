// Dimensions, leaders and tolerances.

#include "platform/drawing/entities/OdDbDimension.h"
#include "platform/drawing/entities/OdDbLeader.h"
#include "platform/drawing/entities/PropertyTables.h"
#include "platform/drawing/entities/properties/Families.h"
#include "platform/drawing/entities/properties/Words.h"

namespace tv::dwg {
namespace {

using namespace properties;

constexpr PropertyChoice kLeaderPath[] = {{0, L"Straight"}, {1, L"Spline"}};
constexpr PropertyChoice kLeaderContent[] = {{0, L"None"}, {1, L"Block"}, {2, L"MText"}, {3, L"Tolerance"}};

Value dimensionMeasurement(OdDbObjectId id) {
    const auto dimension = id.open<OdDbDimension>();
    const auto value = dimension ? dimension->measurement() : std::nullopt;
    return value ? Value(*value) : Value();
}

constexpr EntityProperty kStyle = tag(L"DimStyle", kDimStyle, 3);
// What all dimensions have; they measure lengths or angles.
constexpr auto common(PropertyKind measured) {
    return list(kStyle, tag(L"TextOverride", kText, 1),
                fixed(computed(L"Measurement", measured, dimensionMeasurement, nullptr, 42)),
                xyz<L"TextPosition">(11), tag(L"TextRotation", kAngle, 53), fixed(flag(L"TextMoved", 70, 128)),
                fixed(tag(L"Block", kBlock, 2)));
}
constexpr auto kTwoPoints = list(in("", xyz<L"Point1">(13)), in("", xyz<L"Point2">(14)));
constexpr auto kDimension = list(common(kReal), xyz<L"Definition">(10), kTwoPoints,
                                 in("", tag(L"Rotation", kAngle, 50)), in("", tag(L"Oblique", kAngle, 52)));
constexpr auto kAngularDimension = list(common(kAngle), kTwoPoints, in("", xyz<L"Vertex">(15)));
constexpr auto kRadialDimension = list(common(kReal), xyz<L"Center">(10), in("", xyz<L"Chord">(15)),
                                       in("", tag(L"LeaderLength", kLength, 40)));

constexpr auto kTolerance =
    list(tag(L"Contents", kText, 1), kStyle, xyz<L"Position">(10), xyz<L"Direction">(11));
constexpr auto kLeader = list(kStyle, flag(L"Arrow", 71, 0, 1), choice(L"Type", 72, kLeaderPath),
                              fixed(tag(L"Vertices", kInteger, 76)));
constexpr auto kMLeader = list(computed(L"Contents", kText, got<OdDbMLeader, &OdDbMLeader::contents>,
                                        put<OdDbMLeader, OdString, &OdDbMLeader::setContents>, 304),
                               EntityProperty{.name = L"ContentType",
                                              .kind = kEnum,
                                              .groupCode = 172,
                                              .writable = false,
                                              .choices = kLeaderContent,
                                              .get = got<OdDbMLeader, &OdDbMLeader::contentType>});

constexpr int kOrder[] = {280, 2,  10, 20, 30, 11, 21, 31, 12, 22,  32,  70,  1,
                          71,  72, 41, 42, 73, 74, 75, 53, 51, 210, 220, 230, 3};
constexpr std::string_view kPart = "AcDbDimension";

} // namespace

std::span<const EntityKind> annotationKinds() {
    static const std::span<const EntityProperty> variables = dimensionVariables();
    static const EntityKind kKinds[] = {
        {L"3-Point Angular Dimension", "DIMENSION", kPart, kOrder, kAngularDimension, variables},
        {L"Aligned Dimension", "DIMENSION", kPart, kOrder, kDimension, variables},
        {L"Angular Dimension", "DIMENSION", kPart, kOrder, kAngularDimension, variables},
        {L"Arc Length Dimension", "ARC_DIMENSION", kPart, kOrder, kAngularDimension, variables},
        {L"Diametric Dimension", "DIMENSION", kPart, kOrder, kRadialDimension, variables},
        {L"Jogged Dimension", "LARGE_RADIAL_DIMENSION", kPart, kOrder, kRadialDimension, variables},
        {L"Leader", "LEADER", "AcDbLeader", {}, kLeader, variables},
        {L"Multileader", "MULTILEADER", "AcDbMLeader", {}, kMLeader},
        {L"Ordinate Dimension", "DIMENSION", kPart, kOrder, kDimension, variables},
        {L"Radial Dimension", "DIMENSION", kPart, kOrder, kRadialDimension, variables},
        {L"Rotated Dimension", "DIMENSION", kPart, kOrder, kDimension, variables},
        {L"Tolerance", "TOLERANCE", "AcDbFcf", {}, kTolerance, variables},
    };
    return kKinds;
}

} // namespace tv::dwg
