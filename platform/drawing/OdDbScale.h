#pragma once

#include "platform/Export.h"
#include "platform/drawing/OdDbObject.h"

#include <memory>
#include <string_view>
#include <vector>

// A scale of the drawing's list: so many paper units are so many drawing units. Its place in the list is its
// entry in the dictionary of scales ("A0", "A1", ...).
class KXPLATFORM_EXPORT OdDbScale : public OdDbObject {
  public:
    using OdDbObject::OdDbObject;

    OdString scaleName() const { return textAt(300); }
    Tavo::ErrorStatus setScaleName(std::wstring_view name);
    double paperUnits() const { return realAt(140, 1); }
    double drawingUnits() const { return realAt(141, 1); }
    // eOutOfRange unless both are above 0, eNotHandled for the unit scale.
    Tavo::ErrorStatus setUnits(double paper, double drawing);
    // Paper by drawing units, 1 where the file's values make no scale.
    double scale() const;
    bool isUnitScale() const { return integerAt(290) != 0; }
    // Made for the time being, as scales that came with an external reference are.
    bool isTemporary() const { return (integerAt(70) & 1) != 0; }
};
using OdDbScalePtr = std::shared_ptr<OdDbScale>;

namespace tv::dwg {
// The list's scales in its order.
KXPLATFORM_EXPORT std::vector<OdDbObjectId> scalesOf(const OdDbDatabase& database);
// At the list's end. A null id for an empty name, a name a scale has, units that aren't above 0 and drawings
// before R2000.
KXPLATFORM_EXPORT OdDbObjectId addScale(OdDbDatabase& database, std::wstring_view name, double paper,
                                        double drawing);
KXPLATFORM_EXPORT Tavo::ErrorStatus removeScale(OdDbObjectId scale);
} // namespace tv::dwg
