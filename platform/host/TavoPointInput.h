#pragma once

#include "platform/host/DrawingTypes.h"
#include "platform/text/OdString.h"
#include "platform/text/Problem.h"

// Points picked in the drawing window (or supplied by whatever stands in for it).
class TavoPointInput {
  public:
    virtual ~TavoPointInput() = default;

    // Waits for a point in world coordinates, drawing units. `base` (may be null) is where a rubber band
    // starts. eCancelled when the user gave up; `point` is untouched then.
    virtual Tavo::ErrorStatus getPoint(const OdString& prompt, const OdGePoint3d* base, OdGePoint3d& point) = 0;
};
