#pragma once

#include "platform/Export.h"
#include "platform/drawing/Geometry.h"
#include "platform/drawing/OdDbEntity.h"

#include <string_view>

class KXPLATFORM_EXPORT OdDbDimension : public OdDbEntity {
  public:
    using OdDbEntity::OdDbEntity;

    enum Kind : std::uint8_t {
        kRotated,
        kAligned,
        kAngular, // between two lines
        kDiametric,
        kRadial,
        kAngular3Point,
        kOrdinate,
        kArcLength,
        kJogged, // a large radius
    };
    Kind dimensionKind() const;

    // What stands instead of the measurement: empty for the measurement alone, "<>" stands for it within a
    // text, one blank hides it.
    OdString dimensionText() const;
    Tavo::ErrorStatus setDimensionText(std::wstring_view text);
    // Drawing units or radians, as last computed by the program that wrote it; where the file lacks it, from
    // the definition points. Nothing when these don't say it.
    std::optional<double> measurement() const;
    // "STANDARD" when the entity names none.
    OdString dimensionStyleName() const;
    // eKeyNotFound for a style the drawing lacks.
    Tavo::ErrorStatus setDimensionStyle(std::wstring_view name);
    // The anonymous block that holds the lines and the text as drawn; empty when there is none.
    OdString dimBlockName() const;
    OdDbObjectId dimBlockId() const;
    OdGePoint3d textPosition() const { return {realAt(11), realAt(21), realAt(31)}; }
    // Whether the user put the text there.
    bool isTextMoved() const { return (integerAt(70) & 128) != 0; }
};
using OdDbDimensionPtr = std::shared_ptr<OdDbDimension>;
