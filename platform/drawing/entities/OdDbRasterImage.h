#pragma once

#include "platform/Export.h"
#include "platform/drawing/Geometry.h"
#include "platform/drawing/OdDbEntity.h"

#include <string_view>
#include <vector>

// An image, and the wipeout that is stored like one.
class KXPLATFORM_EXPORT OdDbRasterImage : public OdDbEntity {
  public:
    using OdDbEntity::OdDbEntity;

    OdDbObjectId imageDefId() const { return idAt(340); }
    // As the definition has it; empty for a wipeout and where the definition is missing.
    OdString sourceFileName() const;
    // Of the definition, so of every image made from it. eKeyNotFound where it is missing.
    Tavo::ErrorStatus setSourceFileName(std::wstring_view path);
    OdGePoint3d position() const { return {realAt(10), realAt(20), realAt(30)}; }
    OdGePoint2d sizeInPixels() const { return {realAt(13), realAt(23)}; }
    // Of the whole image, in drawing units.
    double width() const;
    double height() const;
    // Radians, of its lower edge.
    double rotation() const;

    bool isShown() const { return (integerAt(70) & 1) != 0; }
    bool isTransparent() const { return (integerAt(70) & 8) != 0; }
    bool isClipped() const { return integerAt(280) != 0; }
    // In pixels; of a rectangle two opposite corners.
    std::vector<OdGePoint2d> clipBoundary() const;
    // 0 to 100.
    int brightness() const { return integerAt(281, 50); }
    int contrast() const { return integerAt(282, 50); }
    int fade() const { return integerAt(283, 0); }
    Tavo::ErrorStatus setBrightness(int percent) { return setPercent(281, percent); }
    Tavo::ErrorStatus setContrast(int percent) { return setPercent(282, percent); }
    Tavo::ErrorStatus setFade(int percent) { return setPercent(283, percent); }

  private:
    Tavo::ErrorStatus setPercent(int code, int percent);
};
using OdDbRasterImagePtr = std::shared_ptr<OdDbRasterImage>;
