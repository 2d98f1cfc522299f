#pragma once

#include "platform/Export.h"
#include "platform/drawing/Geometry.h"
#include "platform/drawing/OdDbEntity.h"

#include <memory>
#include <span>
#include <vector>

// A window of a sheet onto the model. Drawings before R2000 keep what it shows as extended data, and its frozen
// layers by name; reading and setting are the same for all.
class KXPLATFORM_EXPORT OdDbViewport : public OdDbEntity {
  public:
    using OdDbEntity::OdDbEntity;

    // 1 is the sheet itself; sheets that aren't the active one may say 0 or less for all.
    int number() const { return integerAt(69); }

    // On the sheet.
    OdGePoint3d centerPoint() const { return {realAt(10), realAt(20), realAt(30)}; }
    Tavo::ErrorStatus setCenterPoint(const OdGePoint3d& center);
    double width() const { return realAt(40); }
    double height() const { return realAt(41); }
    // eOutOfRange unless above 0.
    Tavo::ErrorStatus setWidth(double width);
    Tavo::ErrorStatus setHeight(double height);

    // Into the model. Direction and target are in world coordinates, the view's centre in the view's own.
    OdGePoint2d viewCenter() const;
    Tavo::ErrorStatus setViewCenter(OdGePoint2d center);
    double viewHeight() const;
    Tavo::ErrorStatus setViewHeight(double height);
    OdGeVector3d viewDirection() const;
    // eInvalidInput for a direction without length.
    Tavo::ErrorStatus setViewDirection(const OdGeVector3d& direction);
    OdGePoint3d viewTarget() const;
    Tavo::ErrorStatus setViewTarget(const OdGePoint3d& target);
    double twistAngle() const; // radians
    Tavo::ErrorStatus setTwistAngle(double radians);
    double lensLength() const; // millimetres
    Tavo::ErrorStatus setLensLength(double length);
    // Paper units by drawing units: height by view height, 0 when either is missing. Setting changes the view's
    // height, also of a locked viewport; eOutOfRange unless above 0.
    double customScale() const;
    Tavo::ErrorStatus setCustomScale(double scale);

    bool isOn() const;
    Tavo::ErrorStatus setOn(bool on);
    // eNotHandled for locking before R2000.
    bool isLocked() const { return (flags() & kLocked) != 0; }
    Tavo::ErrorStatus setLocked(bool locked);
    bool isPerspectiveOn() const { return (flags() & kPerspective) != 0; }
    bool isNonRectClipOn() const { return (flags() & kClipped) != 0; }
    // The entity that bounds it, null for the rectangle.
    OdDbObjectId nonRectClipEntityId() const { return idAt(340); }
    // The style sheet of its own, group code 1.
    OdString plotStyleSheet() const { return textAt(1); }

    // In file order, without those the drawing lacks. Who asks about many layers asks for all of them once.
    std::vector<OdDbObjectId> frozenLayers() const;
    bool isLayerFrozenInViewport(OdDbObjectId layer) const;
    // One change for all; those frozen or thawed already are left alone. eInvalidInput for what is no layer of
    // this drawing.
    Tavo::ErrorStatus freezeLayersInViewport(std::span<const OdDbObjectId> layers);
    Tavo::ErrorStatus thawLayersInViewport(std::span<const OdDbObjectId> layers);
    Tavo::ErrorStatus thawAllLayersInViewport();

  private:
    static constexpr int kPerspective = 0x1;
    static constexpr int kLocked = 0x4000;
    static constexpr int kClipped = 0x10000;
    static constexpr int kOff = 0x20000;

    int flags() const;
    Tavo::ErrorStatus setFrozen(const std::vector<OdDbObjectId>& layers);
};
using OdDbViewportPtr = std::shared_ptr<OdDbViewport>;

namespace tv::dwg {
// Without opening it.
KXPLATFORM_EXPORT bool isViewport(OdDbObjectId object);
} // namespace tv::dwg
