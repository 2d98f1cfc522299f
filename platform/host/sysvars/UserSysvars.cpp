#include "platform/host/sysvars/SysvarInfo.h"

namespace tv::host {

namespace {

using enum SysvarHome;

constexpr SysvarInfo kUserSysvars[] = {
    // Which viewport is active: 0 none, 1 the sheet, 2 and up its viewports.
    integer(L"ACTIVEPV", 0, 0, 32767).at(kDrawing),
    color(L"BKGCOLOR", L"0,0,0").at(kProfile),
    // Bits: see TavoCommandActivity.
    integer(L"CMDACTIVE", 0, 0, 63).at(kSession).fixed(),
    // The index chosen last: 0 by block, 256 by layer.
    integer(L"COLORINDEX", 256, 0, 256).at(kSession),
    text(L"DCTCUST").at(kProfile),
    text(L"DCTMAIN").at(kProfile),
    integer(L"EXPERT", 0, 0, 5).at(kSession),
    text(L"FINDSTRINGS").at(kProfile),
    // Folders in which files of stroked fonts are looked for, parted by semicolons.
    text(L"FONTPATH").at(kProfile),
    // Lineweights are shown in: 0 inches, 1 millimetres.
    flag(L"LWUNITS", 1).at(kProfile),
    // Half the side of the square in which a click finds objects, pixels.
    integer(L"PICKBOX", 3, 0, 50).at(kProfile),
    flag(L"PICKFIRST", 1).at(kProfile),
    text(L"REPLACESTRINGS").at(kProfile),
    // Bits: 1 colour, 2 layer, 4 linetype, 8 linetype scale, 16 lineweight, 32 plot style, 64 object style, 128
    // name,
    // 256 objects of every type.
    integer(L"SELECTSIMILARMODE", 130, 0, 511).at(kProfile),
    // Objects light up under the pointer: the sum of 1 while idle and 2 while objects are asked for.
    integer(L"SELECTIONPREVIEW", 3, 0, 3).at(kProfile),
    // 0 ask, 1 hide, 2 delete, 3 export.
    integer(L"TABCLOSEMODE", 0, 0, 3).at(kProfile),
    // Folders in which the drawings that a drawing refers to are looked for, parted by semicolons.
    text(L"XREFPATH").at(kProfile),
};

} // namespace

std::span<const SysvarInfo> userSysvars() { return kUserSysvars; }

} // namespace tv::host
