// Faces, meshes and solids.

#include "platform/drawing/entities/properties/Families.h"
#include "platform/drawing/entities/properties/Words.h"

namespace tv::dwg {
namespace {

using namespace properties;

constexpr auto kCorners =
    list(xyz<L"Corner1">(10), xyz<L"Corner2">(11), xyz<L"Corner3">(12), xyz<L"Corner4">(13));
constexpr auto kSolid = list(kCorners, tag(L"Thickness", kLength, 39));
constexpr auto kFace = list(kCorners, flag(L"Edge1Invisible", 70, 1), flag(L"Edge2Invisible", 70, 2),
                            flag(L"Edge3Invisible", 70, 4), flag(L"Edge4Invisible", 70, 8));
constexpr auto kMesh =
    list(fixed(tag(L"MVertices", kInteger, 71)), fixed(tag(L"NVertices", kInteger, 72)),
         flag(L"MClosed", 70, 1), flag(L"NClosed", 70, 32), fixed(choice(L"Smoothing", 75, kSmoothing)));
constexpr auto kPolyface = list(fixed(tag(L"Vertices", kInteger, 71)), fixed(tag(L"Faces", kInteger, 72)));

constexpr EntityKind kKinds[] = {
    {L"3D Face", "3DFACE", "AcDbFace", kPlaneOrder, kFace},
    {L"3D Solid", "3DSOLID", {}, {}, {}},
    {L"Body", "BODY", {}, {}, {}},
    {L"Light", "LIGHT", {}, {}, {}},
    {L"Mesh", "MESH", {}, {}, {}},
    {L"Polyface Mesh", "POLYLINE", "AcDbPolyFaceMesh", kPolylineOrder, kPolyface},
    {L"Polygon Mesh", "POLYLINE", "AcDbPolygonMesh", kPolylineOrder, kMesh},
    {L"Region", "REGION", {}, {}, {}},
    {L"Section Plane", "SECTIONOBJECT", {}, {}, {}},
    {L"Solid", "SOLID", "AcDbTrace", kPlaneOrder, kSolid},
    {L"Surface", "SURFACE", {}, {}, {}},
    {L"Trace", "TRACE", "AcDbTrace", kPlaneOrder, kSolid},
};

} // namespace

std::span<const EntityKind> faceKinds() { return kKinds; }

} // namespace tv::dwg
