#include "platform/host/sysvars/SysvarInfo.h"

#include <numbers>

namespace tv::host {

namespace {

using enum SysvarHome;
using enum SysvarRecord;

constexpr double kDegree = std::numbers::pi / 180;
constexpr int kZeroRules = 15; // feet and inches rule plus two bits for decimals

constexpr SysvarInfo kDimensionSysvars[] = {
    integer(L"DIMADEC", 0, -1, 8),
    flag(L"DIMALT", 0),
    integer(L"DIMALTD", 2, 0, 8),
    positive(L"DIMALTF", 25.4),
    positive(L"DIMALTMZF", 100).at(kDrawing),
    text(L"DIMALTMZS").at(kDrawing),
    notNegative(L"DIMALTRND", 0),
    integer(L"DIMALTTD", 2, 0, 8),
    integer(L"DIMALTTZ", 0, 0, kZeroRules),
    integer(L"DIMALTU", 2, 1, 8),
    integer(L"DIMALTZ", 0, 0, kZeroRules),
    text(L"DIMAPOST"),
    integer(L"DIMARCSYM", 0, 0, 2),
    flag(L"DIMASO", 1),
    integer(L"DIMASSOC", 2, 0, 2),
    notNegative(L"DIMASZ", 0.18),
    integer(L"DIMATFIT", 3, 0, 3),
    integer(L"DIMAUNIT", 0, 0, 4),
    integer(L"DIMAZIN", 0, 0, 3),
    record(L"DIMBLK", kArrowBlock, L""),
    record(L"DIMBLK1", kArrowBlock, L""),
    record(L"DIMBLK2", kArrowBlock, L""),
    real(L"DIMCEN", 0.09),
    color(L"DIMCLRD", L"BYBLOCK"),
    color(L"DIMCLRE", L"BYBLOCK"),
    color(L"DIMCLRT", L"BYBLOCK"),
    integer(L"DIMDEC", 4, 0, 8),
    notNegative(L"DIMDLE", 0),
    notNegative(L"DIMDLI", 0.38),
    integer(L"DIMDSEP", '.', 0, 255), // a character code
    notNegative(L"DIMEXE", 0.18),
    notNegative(L"DIMEXO", 0.0625),
    integer(L"DIMFIT", 3, 0, 5),
    integer(L"DIMFRAC", 0, 0, 2),
    notNegative(L"DIMFXL", 1),
    flag(L"DIMFXLON", 0),
    real(L"DIMGAP", 0.09), // negative draws a box around the text
    angle(L"DIMJOGANG", 45 * kDegree).in(5 * kDegree, 90 * kDegree),
    integer(L"DIMJUST", 0, 0, 4),
    record(L"DIMLDRBLK", kArrowBlock, L""),
    real(L"DIMLFAC", 1), // negative applies in paper space only
    flag(L"DIMLIM", 0),
    record(L"DIMLTEX1", kLinetype, L""),
    record(L"DIMLTEX2", kLinetype, L""),
    record(L"DIMLTYPE", kLinetype, L""),
    integer(L"DIMLUNIT", 2, 1, 6),
    integer(L"DIMLWD", -2).oneOf(kLineWeightValues),
    integer(L"DIMLWE", -2).oneOf(kLineWeightValues),
    positive(L"DIMMZF", 100).at(kDrawing),
    text(L"DIMMZS").at(kDrawing),
    text(L"DIMPOST"),
    notNegative(L"DIMRND", 0),
    flag(L"DIMSAH", 0),
    notNegative(L"DIMSCALE", 1),
    flag(L"DIMSD1", 0),
    flag(L"DIMSD2", 0),
    flag(L"DIMSE1", 0),
    flag(L"DIMSE2", 0),
    flag(L"DIMSHO", 1),
    flag(L"DIMSOXD", 0),
    record(L"DIMSTYLE", kDimStyle, L"STANDARD"),
    integer(L"DIMTAD", 0, 0, 4),
    integer(L"DIMTALN", 0).at(kCurrentDimStyle),
    integer(L"DIMTDEC", 4, 0, 8),
    positive(L"DIMTFAC", 1),
    integer(L"DIMTFILL", 0, 0, 2),
    color(L"DIMTFILLCLR", L"BYBLOCK"),
    flag(L"DIMTIH", 1),
    flag(L"DIMTIX", 0),
    real(L"DIMTM", 0),
    integer(L"DIMTMOVE", 0, 0, 2),
    flag(L"DIMTOFL", 0),
    flag(L"DIMTOH", 1),
    flag(L"DIMTOL", 0),
    integer(L"DIMTOLJ", 1, 0, 2),
    real(L"DIMTP", 0),
    notNegative(L"DIMTSZ", 0),
    real(L"DIMTVP", 0),
    record(L"DIMTXSTY", kTextStyle, L"STANDARD"),
    positive(L"DIMTXT", 0.18),
    flag(L"DIMTXTDIRECTION", 0),
    integer(L"DIMTZIN", 0, 0, kZeroRules),
    integer(L"DIMUNIT", 2, 1, 8),
    flag(L"DIMUPT", 0),
    integer(L"DIMZIN", 0, 0, kZeroRules),
};

} // namespace

std::span<const SysvarInfo> dimensionSysvars() { return kDimensionSysvars; }

} // namespace tv::host
