#include "platform/drawing/entities/OdDbDimension.h"

#include "platform/drawing/OdDbBlockTable.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/dxf/RecordStore.h"
#include "platform/drawing/entities/TagAccess.h"

using namespace tv::dwg;

namespace {
constexpr std::string_view kSubclass = "AcDbDimension";
constexpr int kOrder[] = {280, 2,  10, 20, 30, 11, 21, 31, 12, 22, 32,  70,  1,   71,
                          72,  41, 42, 73, 74, 75, 52, 53, 54, 51, 210, 220, 230, 3};
} // namespace

OdDbDimension::Kind OdDbDimension::dimensionKind() const {
    const std::string_view type = database()->store().typeName(objectId().record());
    if (type == "ARC_DIMENSION") return kArcLength;
    if (type == "LARGE_RADIAL_DIMENSION") return kJogged;
    switch (integerAt(70) & 7) {
    case 1:
        return kAligned;
    case 2:
        return kAngular;
    case 3:
        return kDiametric;
    case 4:
        return kRadial;
    case 5:
        return kAngular3Point;
    case 6:
        return kOrdinate;
    default:
        return kRotated;
    }
}

OdString OdDbDimension::dimensionText() const {
    const auto tag = findTag(*this, {kSubclass, 1});
    return tag ? textOf(format(), *tag) : OdString();
}

Tavo::ErrorStatus OdDbDimension::setDimensionText(std::wstring_view text) {
    if (text == dimensionText().view()) return checkWrite();
    return writeTag(*this, {kSubclass, 1}, OdString(text), kOrder);
}

std::optional<double> OdDbDimension::measurement() const {
    const auto tag = findTag(*this, {kSubclass, 42});
    return tag ? realOf(format(), *tag) : std::nullopt;
}

OdString OdDbDimension::dimensionStyleName() const {
    const auto tag = findTag(*this, {kSubclass, 3});
    const OdString name = tag ? textOf(format(), *tag) : OdString();
    return name.isEmpty() ? OdString(L"STANDARD") : name;
}

Tavo::ErrorStatus OdDbDimension::setDimensionStyle(std::wstring_view name) {
    const auto table = database()->getDimStyleTableId().open<OdDbSymbolTable>();
    if (!table || !table->has(name)) return Tavo::eKeyNotFound;
    return writeTag(*this, {kSubclass, 3}, OdString(name), kOrder);
}

OdString OdDbDimension::dimBlockName() const {
    const auto tag = findTag(*this, {kSubclass, 2});
    return tag ? textOf(format(), *tag) : OdString();
}

OdDbObjectId OdDbDimension::dimBlockId() const {
    const auto table = database()->getBlockTableId().open<OdDbBlockTable>();
    return table ? table->getAt(dimBlockName().view()) : OdDbObjectId();
}
