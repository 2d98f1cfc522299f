#include "platform/host/sysvars/SysvarInfo.h"

namespace tv::host {

namespace {

using enum SysvarHome;
using enum SysvarRecord;

constexpr SysvarInfo kGeneralSysvars[] = {
    // units
    angle(L"ANGBASE", 0),
    flag(L"ANGDIR", 0),
    integer(L"AUNITS", 0, 0, 4),
    integer(L"AUPREC", 0, 0, 8),
    integer(L"INSUNITS", 0, 0, 24),
    integer(L"LUNITS", 2, 1, 5),
    integer(L"LUPREC", 4, 0, 8),
    flag(L"MEASUREMENT", 0),
    flag(L"UNITMODE", 0),

    // what new objects get
    color(L"CECOLOR", L"BYLAYER"),
    positive(L"CELTSCALE", 1),
    record(L"CELTYPE", kLinetype, L"BYLAYER"),
    integer(L"CELWEIGHT", -1).oneOf(kLineWeightValues),
    record(L"CEPSNID", kHandle, L"").fixed(),
    integer(L"CEPSNTYPE", 0, 0, 3).fixed(), // written through CPLOTSTYLE
    notNegative(L"CHAMFERA", 0),
    notNegative(L"CHAMFERB", 0),
    notNegative(L"CHAMFERC", 0),
    real(L"CHAMFERD", 0), // degrees, as the file has it
    record(L"CLAYER", kLayer, L"0"),
    integer(L"CMLJUST", 0, 0, 2),
    real(L"CMLSCALE", 1),
    text(L"CMLSTYLE", L"STANDARD"),
    text(L"CPLOTSTYLE", L"ByColor").at(kComputed),
    real(L"ELEVATION", 0),
    notNegative(L"FILLETRAD", 0),
    real(L"PELEVATION", 0),
    flag(L"PLINEGEN", 0),
    notNegative(L"PLINEWID", 0),
    positive(L"SKETCHINC", 0.1),
    integer(L"SKPOLY", 0, 0, 2),
    positive(L"TEXTSIZE", 0.2),
    record(L"TEXTSTYLE", kTextStyle, L"STANDARD"),
    real(L"THICKNESS", 0),
    notNegative(L"TRACEWID", 0.05),

    // limits and extents
    point3d(L"EXTMAX", -1e20, -1e20, -1e20).fixed(),
    point3d(L"EXTMIN", 1e20, 1e20, 1e20).fixed(),
    point3d(L"INSBASE", 0, 0, 0),
    flag(L"LIMCHECK", 0),
    point2d(L"LIMMAX", 12, 9),
    point2d(L"LIMMIN", 0, 0),
    point3d(L"PEXTMAX", -1e20, -1e20, -1e20).fixed(),
    point3d(L"PEXTMIN", 1e20, 1e20, 1e20).fixed(),
    point3d(L"PINSBASE", 0, 0, 0),
    flag(L"PLIMCHECK", 0),
    point2d(L"PLIMMAX", 12, 9),
    point2d(L"PLIMMIN", 0, 0),

    // what is shown and how
    integer(L"ATTMODE", 1, 0, 2),
    integer(L"DGNFRAME", 0, 0, 2),
    integer(L"DWFFRAME", 2, 0, 2),
    integer(L"ENDCAPS", 0, 0, 3),
    flag(L"FILLMODE", 1),
    integer(L"HIDETEXT", 1, 0, 1),
    integer(L"JOINSTYLE", 0, 0, 3),
    positive(L"LTSCALE", 1),
    flag(L"LWDISPLAY", 0),
    integer(L"MAXACTVP", 64, 2, 64),
    flag(L"MIRRTEXT", 0),
    flag(L"ORTHOMODE", 0),
    integer(L"PDMODE", 0, 0, 100),
    real(L"PDSIZE", 0),
    flag(L"PROXYGRAPHICS", 1),
    flag(L"PSLTSCALE", 1),
    notNegative(L"PSVPSCALE", 0),
    flag(L"QTEXTMODE", 0),
    flag(L"REGENMODE", 1),
    integer(L"SORTENTS", 127, 0, 127),
    flag(L"TILEMODE", 1),
    integer(L"TREEDEPTH", 3020),
    flag(L"VISRETAIN", 1),
    flag(L"WORLDVIEW", 1),
    integer(L"XCLIPFRAME", 2, 0, 2),
    flag(L"XEDIT", 1),

    // kept in the header by old versions, with the user or the open drawing by newer ones
    flag(L"ATTDIA", 1).at(kHeaderOrProfile),
    flag(L"ATTREQ", 1).at(kHeaderOrProfile),
    flag(L"BLIPMODE", 0).at(kHeaderOrProfile),
    integer(L"COORDS", 1, 0, 2).at(kHeaderOrProfile),
    integer(L"DRAGMODE", 2, 0, 2).at(kHeaderOrProfile),
    integer(L"DELOBJ", 1, -3, 3).at(kHeaderOrProfile),
    integer(L"PICKSTYLE", 1, 0, 3).at(kHeaderOrProfile),
    integer(L"OSMODE", 37, 0, 32767).at(kHeaderOrProfile),
    integer(L"AXISMODE", 0, 0, 1).at(kHeaderOrDrawing),
    point2d(L"AXISUNIT", 0, 0).at(kHeaderOrDrawing),
    flag(L"FASTZOOM", 1).at(kHeaderOrDrawing),
    flag(L"FLATLAND", 0).at(kHeaderOrDrawing).fixed(),
    flag(L"GRIDMODE", 0).at(kHeaderOrDrawing),
    point2d(L"GRIDUNIT", 0.5, 0.5).at(kHeaderOrDrawing),
    angle(L"SNAPANG", 0).at(kHeaderOrDrawing),
    point2d(L"SNAPBASE", 0, 0).at(kHeaderOrDrawing),
    integer(L"SNAPISOPAIR", 0, 0, 2).at(kHeaderOrDrawing),
    flag(L"SNAPMODE", 0).at(kHeaderOrDrawing),
    flag(L"SNAPSTYL", 0).at(kHeaderOrDrawing),
    flag(L"SNAPSTYLE", 0).at(kHeaderOrDrawing), // the same, as some programs spell it
    point2d(L"SNAPUNIT", 0.5, 0.5).at(kHeaderOrDrawing),
    point2d(L"VIEWCTR", 0, 0).at(kHeaderOrDrawing).fixed(),
    point3d(L"VIEWDIR", 0, 0, 1).at(kHeaderOrDrawing).fixed(),
    positive(L"VIEWSIZE", 9).at(kHeaderOrDrawing).fixed(),

    // the file itself
    longInteger(L"ACADMAINTVER", 0).fixed(),
    text(L"ACADVER").fixed(),
    text(L"DWGCODEPAGE", L"ANSI_1252").fixed(),
    flag(L"EXTNAMES", 1),
    text(L"FINGERPRINTGUID").fixed(),
    flag(L"HANDLING", 1).fixed(),
    record(L"HANDSEED", kHandle, L"0").fixed(),
    text(L"HYPERLINKBASE"),
    integer(L"INDEXCTL", 0, 0, 3),
    text(L"LASTSAVEDBY").fixed(),
    text(L"MENU", L".").fixed(),
    flag(L"OLESTARTUP", 0),
    text(L"PROJECTNAME"),
    flag(L"PSTYLEMODE", 1).fixed(), // 1 by colour, 0 named; chosen when the drawing is made
    longInteger(L"REQUIREDVERSIONS", 0).fixed(),
    text(L"STYLESHEET"),
    real(L"TDCREATE", 0).fixed(), // dates are Julian days, spans days
    real(L"TDINDWG", 0).fixed(),
    real(L"TDUCREATE", 0).fixed(),
    real(L"TDUPDATE", 0).fixed(),
    real(L"TDUSRTIMER", 0).fixed(),
    real(L"TDUUPDATE", 0).fixed(),
    flag(L"USRTIMER", 1),
    text(L"VERSIONGUID").fixed(),

    // for the user's own purposes
    integer(L"USERI1", 0),
    integer(L"USERI2", 0),
    integer(L"USERI3", 0),
    integer(L"USERI4", 0),
    integer(L"USERI5", 0),
    real(L"USERR1", 0),
    real(L"USERR2", 0),
    real(L"USERR3", 0),
    real(L"USERR4", 0),
    real(L"USERR5", 0),
};

} // namespace

std::span<const SysvarInfo> generalSysvars() { return kGeneralSysvars; }

} // namespace tv::host
