#pragma once

#include "platform/Export.h"
#include "platform/drawing/OdDbEntity.h"

#include <string_view>

// A filled or hatched area. Angles are radians.
class KXPLATFORM_EXPORT OdDbHatch : public OdDbEntity {
  public:
    using OdDbEntity::OdDbEntity;

    enum PatternType : std::uint8_t { kUserDefined = 0, kPreDefined = 1, kCustomDefined = 2 };
    enum Style : std::uint8_t { kNormal = 0, kOuter = 1, kIgnore = 2 };

    OdString patternName() const { return textAt(2); }
    PatternType patternType() const;
    Style hatchStyle() const;
    bool isSolidFill() const { return integerAt(70) == 1; }
    bool isAssociative() const { return integerAt(71) == 1; }
    bool isDouble() const { return integerAt(77) == 1; }
    double patternAngle() const;
    double patternScale() const { return realAt(41, 1); }
    int loopCount() const { return integerAt(91); }
    double elevation() const { return realAt(30); }
    // These turn and scale the pattern's lines that stand in the record, too. A solid fill has none:
    // eNotHandled. The scale must be above 0.
    Tavo::ErrorStatus setPatternAngle(double radians);
    Tavo::ErrorStatus setPatternScale(double scale);

    bool isGradient() const { return integerAt(450) == 1; }
    OdString gradientName() const { return textAt(470); }
    double gradientAngle() const { return realAt(460); }
    double gradientShift() const { return realAt(461); }
    bool isGradientOneColor() const { return integerAt(452) == 1; }

  private:
    Tavo::ErrorStatus transformPattern(double turn, double factor);
};
using OdDbHatchPtr = std::shared_ptr<OdDbHatch>;
