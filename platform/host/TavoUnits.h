#pragma once

#include "platform/host/units/AngleFormat.h"
#include "platform/host/units/LengthFormat.h"
#include "platform/text/OdString.h"
#include "platform/text/Problem.h"

#include <vector>

// How numbers look in this program. The default follows tv::host::formatLength and its relatives and the unit
// list.
class TavoUnits {
  public:
    virtual ~TavoUnits() = default;

    virtual OdString formatLinear(double value, int lunits, int luprec,
                                  const tv::host::LengthOptions& options) const = 0;
    // eInvalidInput leaves `value` untouched.
    virtual Tavo::ErrorStatus unformatLinear(const OdString& text, int lunits, double& value) const = 0;
    // Radians; the angle is shown as it is (no base angle, no direction) unless the options say so.
    virtual OdString formatAngle(double radians, int aunits, int auprec,
                                 const tv::host::AngleOptions& options) const = 0;
    virtual Tavo::ErrorStatus unformatAngle(const OdString& text, int aunits, double& radians) const = 0;
    // Whether the text reads as a length in the given unit type.
    virtual bool isNumber(const OdString& text, int lunits) const = 0;
};
