#include "platform/host/sysvars/SysvarInfo.h"

#include <numbers>

namespace tv::host {

namespace {

using enum SysvarRecord;

constexpr std::int16_t kSplineKinds[] = {5, 6};     // quadratic, cubic
constexpr std::int16_t kSurfaceKinds[] = {5, 6, 8}; // quadratic, cubic, Bezier
constexpr int kNoColor = 257;                       // the colour index that means "the object's own"
constexpr double kRightAngle = std::numbers::pi / 2;

constexpr SysvarInfo kSurfaceSysvars[] = {
    integer(L"3DDWFPREC", 2, 1, 6),
    flag(L"CAMERADISPLAY", 0),
    real(L"CAMERAHEIGHT", 0),
    record(L"CMATERIAL", kHandle, L"").fixed(),
    integer(L"CSHADOW", 0, 0, 3),
    flag(L"DISPSILH", 0),
    record(L"DRAGVS", kHandle, L"").fixed(),
    integer(L"HALOGAP", 0, 0, 255),
    color(L"INTERFERECOLOR", L"1"),
    record(L"INTERFEREOBJVS", kHandle, L"").fixed(),
    record(L"INTERFEREVPVS", kHandle, L"").fixed(),
    integer(L"INTERSECTIONCOLOR", kNoColor, 0, kNoColor),
    flag(L"INTERSECTIONDISPLAY", 0),
    real(L"LATITUDE", 37.795).in(-90, 90),
    positive(L"LENSLENGTH", 50),
    flag(L"LIGHTGLYPHDISPLAY", 1),
    angle(L"LOFTANG1", kRightAngle),
    angle(L"LOFTANG2", kRightAngle),
    notNegative(L"LOFTMAG1", 0),
    notNegative(L"LOFTMAG2", 0),
    integer(L"LOFTNORMALS", 1, 0, 6),
    integer(L"LOFTPARAM", 7, 0, 15),
    real(L"LONGITUDE", -122.394).in(-180, 180),
    real(L"NORTHDIRECTION", 0),
    integer(L"OBSCOLOR", kNoColor, 0, kNoColor),
    integer(L"OBSLTYPE", 0, 0, 11),
    notNegative(L"PSOLHEIGHT", 4),
    notNegative(L"PSOLWIDTH", 0.25),
    flag(L"REALWORLDSCALE", 1),
    integer(L"SHADEDGE", 3, 0, 3),
    integer(L"SHADEDIF", 70, 0, 100),
    real(L"SHADOWPLANELOCATION", 0),
    integer(L"SHOWHIST", 1, 0, 2),
    flag(L"SOLIDHIST", 1),
    flag(L"SPLFRAME", 0),
    integer(L"SPLINESEGS", 8),
    integer(L"SPLINETYPE", 6).oneOf(kSplineKinds),
    positive(L"STEPSIZE", 6),
    positive(L"STEPSPERSEC", 2),
    integer(L"SURFTAB1", 6, 2, 32766),
    integer(L"SURFTAB2", 6, 2, 32766),
    integer(L"SURFTYPE", 6).oneOf(kSurfaceKinds),
    integer(L"SURFU", 6, 0, 200),
    integer(L"SURFV", 6, 0, 200),
    flag(L"TILEMODELIGHTSYNCH", 1),
    integer(L"TIMEZONE", -8000, -12000, 13000),
};

} // namespace

std::span<const SysvarInfo> surfaceSysvars() { return kSurfaceSysvars; }

} // namespace tv::host
