#include "platform/drawing/entities/OdDbRasterImage.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/dxf/OwnTags.h"
#include "platform/drawing/dxf/RecordStore.h"
#include "platform/drawing/entities/TagAccess.h"

#include <cmath>

using namespace tv::dwg;

OdString OdDbRasterImage::sourceFileName() const {
    const OdDbObjectPtr definition = imageDefId().openObject();
    return definition && definition->isA() == L"IMAGEDEF" ? definition->textAt(1) : OdString();
}

Tavo::ErrorStatus OdDbRasterImage::setSourceFileName(std::wstring_view path) {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    const OdDbObjectPtr definition = imageDefId().openObject(OdDb::kForWrite);
    if (!definition || definition->isA() != L"IMAGEDEF") return Tavo::eKeyNotFound;
    return writeTag(*definition, {"AcDbRasterImageDef", 1}, OdString(path), std::initializer_list<int>{90});
}

// Pixels times the vector of one pixel.
double OdDbRasterImage::width() const {
    return OdGeVector3d{realAt(11), realAt(21), realAt(31)}.length() * realAt(13);
}

double OdDbRasterImage::height() const {
    return OdGeVector3d{realAt(12), realAt(22), realAt(32)}.length() * realAt(23);
}

double OdDbRasterImage::rotation() const { return std::atan2(realAt(21), realAt(11)); }

std::vector<OdGePoint2d> OdDbRasterImage::clipBoundary() const {
    std::vector<OdGePoint2d> out;
    OwnTags own(format(), database()->store().text(objectId().record()));
    for (Tag tag; own.next(tag);) {
        if (tag.code == 14) out.push_back({realOf(format(), tag).value_or(0), 0});
        if (tag.code == 24 && !out.empty()) out.back().y = realOf(format(), tag).value_or(0);
    }
    return out;
}

Tavo::ErrorStatus OdDbRasterImage::setPercent(int code, int percent) {
    if (percent < 0 || percent > 100) return Tavo::eOutOfRange;
    static constexpr int kOrder[] = {340, 70, 280, 281, 282, 283};
    const std::string_view subclass = isA() == L"WIPEOUT" ? "AcDbWipeout" : "AcDbRasterImage";
    return writeTag(*this, {subclass, code}, std::int64_t{percent}, kOrder);
}
