// Filled areas.

#include "platform/drawing/entities/OdDbHatch.h"
#include "platform/drawing/entities/properties/Families.h"
#include "platform/drawing/entities/properties/Words.h"

namespace tv::dwg {
namespace {

using namespace properties;

constexpr PropertyChoice kPatternType[] = {{0, L"User defined"}, {1, L"Predefined"}, {2, L"Custom"}};
constexpr PropertyChoice kIslands[] = {{0, L"Normal"}, {1, L"Outer"}, {2, L"Ignore"}};

constexpr EntityProperty kPatternName = fixed(tag(L"PatternName", kText, 2));
constexpr auto kHatch =
    list(kPatternName, fixed(flag(L"Solid", 70, 1)), fixed(flag(L"Associative", 71, 1)),
         fixed(choice(L"PatternType", 76, kPatternType, 1)),
         computed(L"PatternAngle", kAngle, got<OdDbHatch, &OdDbHatch::patternAngle>,
                  put<OdDbHatch, double, &OdDbHatch::setPatternAngle>, 52),
         computed(L"PatternScale", kReal, got<OdDbHatch, &OdDbHatch::patternScale>,
                  put<OdDbHatch, double, &OdDbHatch::setPatternScale>, 41),
         fixed(flag(L"Double", 77, 1)), choice(L"Islands", 75, kIslands), fixed(tag(L"Loops", kInteger, 91)),
         tag(L"Elevation", kLength, 30), fixed(flag(L"Gradient", 450, 1)),
         fixed(tag(L"GradientName", kText, 470)), fixed(radians(L"GradientAngle", 460)));
constexpr auto kMPolygon = list(kPatternName, fixed(flag(L"Solid", 71, 1)), tag(L"Elevation", kLength, 30));

constexpr EntityKind kKinds[] = {
    {L"Hatch", "HATCH", "AcDbHatch", {}, kHatch},
    {L"MPolygon", "MPOLYGON", "AcDbMPolygon", {}, kMPolygon},
};

} // namespace

std::span<const EntityKind> fillKinds() { return kKinds; }

} // namespace tv::dwg
