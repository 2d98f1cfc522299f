#include "platform/host/sysvars/SysvarInfo.h"

namespace tv::host {

namespace {

using enum SysvarRecord;

// The coordinate systems are set by their own commands; here they are only read.
constexpr SysvarInfo kUcsSysvars[] = {
    record(L"PUCSBASE", kUcs, L"").fixed(),     record(L"PUCSNAME", kUcs, L"").fixed(),
    point3d(L"PUCSORG", 0, 0, 0).fixed(),       point3d(L"PUCSORGBACK", 0, 0, 0).fixed(),
    point3d(L"PUCSORGBOTTOM", 0, 0, 0).fixed(), point3d(L"PUCSORGFRONT", 0, 0, 0).fixed(),
    point3d(L"PUCSORGLEFT", 0, 0, 0).fixed(),   point3d(L"PUCSORGRIGHT", 0, 0, 0).fixed(),
    point3d(L"PUCSORGTOP", 0, 0, 0).fixed(),    record(L"PUCSORTHOREF", kUcs, L"").fixed(),
    integer(L"PUCSORTHOVIEW", 0, 0, 6).fixed(), point3d(L"PUCSXDIR", 1, 0, 0).fixed(),
    point3d(L"PUCSYDIR", 0, 1, 0).fixed(),      record(L"UCSBASE", kUcs, L"").fixed(),
    record(L"UCSNAME", kUcs, L"").fixed(),      point3d(L"UCSORG", 0, 0, 0).fixed(),
    point3d(L"UCSORGBACK", 0, 0, 0).fixed(),    point3d(L"UCSORGBOTTOM", 0, 0, 0).fixed(),
    point3d(L"UCSORGFRONT", 0, 0, 0).fixed(),   point3d(L"UCSORGLEFT", 0, 0, 0).fixed(),
    point3d(L"UCSORGRIGHT", 0, 0, 0).fixed(),   point3d(L"UCSORGTOP", 0, 0, 0).fixed(),
    record(L"UCSORTHOREF", kUcs, L"").fixed(),  integer(L"UCSORTHOVIEW", 0, 0, 6).fixed(),
    point3d(L"UCSXDIR", 1, 0, 0).fixed(),       point3d(L"UCSYDIR", 0, 1, 0).fixed(),
};

} // namespace

std::span<const SysvarInfo> ucsSysvars() { return kUcsSysvars; }

} // namespace tv::host
