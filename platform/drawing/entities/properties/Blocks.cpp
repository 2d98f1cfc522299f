// What shows something that stands elsewhere: inserts, tables, viewports, images, underlays.

#include "platform/drawing/entities/OdDbBlockReference.h"
#include "platform/drawing/entities/OdDbRasterImage.h"
#include "platform/drawing/entities/OdDbTable.h"
#include "platform/drawing/entities/properties/Families.h"
#include "platform/drawing/entities/properties/Words.h"

namespace tv::dwg {
namespace {

using namespace properties;

constexpr auto kInsert =
    list(computed(L"Name", kBlock, got<OdDbBlockReference, &OdDbBlockReference::effectiveName>,
                  put<OdDbBlockReference, OdString, &OdDbBlockReference::setBlock>, 2),
         xyz<L"Position">(10), tag(L"ScaleX", kReal, 41, 1), tag(L"ScaleY", kReal, 42, 1),
         tag(L"ScaleZ", kReal, 43, 1), tag(L"Rotation", kAngle, 50));
constexpr auto kArray = list(tag(L"Columns", kInteger, 70, 1), tag(L"Rows", kInteger, 71, 1),
                             tag(L"ColumnSpacing", kLength, 44), tag(L"RowSpacing", kLength, 45));

constexpr auto kTable = list(computed(L"Rows", kInteger, got<OdDbTable, &OdDbTable::numRows>),
                             computed(L"Columns", kInteger, got<OdDbTable, &OdDbTable::numColumns>),
                             in("AcDbTable", fixed(tag(L"TableStyle", kHandle, 342))), xyz<L"Position">(10));

using Image = OdDbRasterImage;
constexpr EntityProperty kShown = flag(L"Shown", 70, 1);
constexpr EntityProperty kClipped = fixed(flag(L"Clipped", 280, 1));
constexpr EntityProperty kWidth = computed(L"Width", kLength, got<Image, &Image::width>);
constexpr EntityProperty kHeight = computed(L"Height", kLength, got<Image, &Image::height>);
constexpr auto kImage =
    list(computed(L"Path", kText, got<Image, &Image::sourceFileName>,
                  put<Image, OdString, &Image::setSourceFileName>),
         tag(L"Brightness", kInteger, 281, 50), tag(L"Contrast", kInteger, 282, 50),
         tag(L"Fade", kInteger, 283), kShown, flag(L"Transparent", 70, 8), kClipped, kWidth, kHeight,
         computed(L"Rotation", kAngle, got<Image, &Image::rotation>), xyz<L"Position">(10));
constexpr auto kWipeout = list(kShown, kClipped, kWidth, kHeight);
constexpr auto kUnderlay =
    list(xyz<L"Position">(10), tag(L"ScaleX", kReal, 41, 1), tag(L"ScaleY", kReal, 42, 1),
         tag(L"ScaleZ", kReal, 43, 1), tag(L"Rotation", kAngle, 50), flag(L"Shown", 280, 2), kClipped,
         flag(L"Monochrome", 280, 4), tag(L"Contrast", kInteger, 281, 100), tag(L"Fade", kInteger, 282));

constexpr auto kViewport =
    list(xyz<L"Center">(10), tag(L"Width", kLength, 40), tag(L"Height", kLength, 41),
         tag(L"ViewHeight", kLength, 45), x(L"ViewCenterX", 12), x(L"ViewCenterY", 22),
         tag(L"TwistAngle", kAngle, 51), tag(L"LensLength", kReal, 42, 50), flag(L"Locked", 90, 0x4000),
         flag(L"Off", 90, 0x20000), fixed(tag(L"Number", kInteger, 69)));

constexpr int kInsertOrder[] = {66, 2, 10, 20, 30, 41, 42, 43, 50, 70, 71, 44, 45};
constexpr int kImageOrder[] = {90, 10, 20, 30, 11, 21, 31, 12, 22, 32, 13, 23, 340, 70, 280, 281, 282, 283};
constexpr int kUnderlayOrder[] = {340, 10, 20, 30, 41, 42, 43, 50, 210, 220, 230, 280, 281, 282};

constexpr EntityKind kKinds[] = {
    {L"Block Reference", "INSERT", {}, kInsertOrder, kInsert},
    {L"DGN Underlay", "DGNUNDERLAY", "AcDbUnderlayReference", kUnderlayOrder, kUnderlay},
    {L"DWF Underlay", "DWFUNDERLAY", "AcDbUnderlayReference", kUnderlayOrder, kUnderlay},
    {L"MInsert Block", "INSERT", {}, kInsertOrder, kInsert, kArray},
    {L"OLE Frame", "OLE2FRAME", {}, {}, {}},
    {L"PDF Underlay", "PDFUNDERLAY", "AcDbUnderlayReference", kUnderlayOrder, kUnderlay},
    {L"Raster Image", "IMAGE", "AcDbRasterImage", kImageOrder, kImage},
    {L"Table", "ACAD_TABLE", "AcDbBlockReference", {}, kTable},
    {L"Viewport", "VIEWPORT", "AcDbViewport", {}, kViewport},
    {L"Wipeout", "WIPEOUT", "AcDbWipeout", kImageOrder, kWipeout},
};

} // namespace

std::span<const EntityKind> blockKinds() { return kKinds; }

} // namespace tv::dwg
