#include "platform/drawing/entities/OdDbHatch.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/dxf/OwnTags.h"
#include "platform/drawing/dxf/RecordEditor.h"
#include "platform/drawing/dxf/RecordStore.h"

#include <cmath>
#include <numbers>

using namespace tv::dwg;

namespace {
double degrees(double radians) { return radians * 180 / std::numbers::pi; }
} // namespace

OdDbHatch::PatternType OdDbHatch::patternType() const {
    const int type = integerAt(76, kPreDefined);
    return type >= 0 && type <= 2 ? static_cast<PatternType>(type) : kPreDefined;
}

OdDbHatch::Style OdDbHatch::hatchStyle() const {
    const int style = integerAt(75);
    return style >= 0 && style <= 2 ? static_cast<Style>(style) : kNormal;
}

double OdDbHatch::patternAngle() const { return realAt(52) * std::numbers::pi / 180; }

Tavo::ErrorStatus OdDbHatch::setPatternAngle(double radians) {
    if (!std::isfinite(radians)) return Tavo::eOutOfRange;
    if (isSolidFill() || !find(52)) return Tavo::eNotHandled;
    if (radians == patternAngle()) return checkWrite();
    return transformPattern(radians - patternAngle(), 1);
}

Tavo::ErrorStatus OdDbHatch::setPatternScale(double scale) {
    const double old = patternScale();
    if (!(scale > 0) || !std::isfinite(scale) || !(old > 0)) return Tavo::eOutOfRange;
    if (isSolidFill() || !find(41)) return Tavo::eNotHandled;
    if (scale == old) return checkWrite();
    return transformPattern(0, scale / old);
}

// Behind code 78 each line of the pattern has its angle 53, a point 43 44 on it, the step 45 46 to the next
// parallel and dashes 49.
Tavo::ErrorStatus OdDbHatch::transformPattern(double turn, double factor) {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    RecordStore& store = database()->store();
    RecordEditor record(format(), store.text(objectId().record()));
    const double cosine = std::cos(turn);
    const double sine = std::sin(turn);
    const auto real = [&](std::size_t i) {
        const Value value = record.value(i);
        const auto* number = std::get_if<double>(&value);
        return number ? *number : 0;
    };
    const std::vector<std::size_t> own = ownTags(record);
    bool lines = false;
    bool good = true;
    for (std::size_t k = 0; k < own.size(); ++k) {
        const std::size_t i = own[k];
        const int code = record.code(i);
        if (code == 78) lines = true;
        if (code == 52 && turn != 0) good = good && record.set(i, degrees(patternAngle() + turn));
        if (code == 41 && factor != 1) good = good && record.set(i, real(i) * factor);
        if (!lines) continue;
        if (code == 53 && turn != 0) good = good && record.set(i, real(i) + degrees(turn));
        if (code == 49 && factor != 1) good = good && record.set(i, real(i) * factor);
        if ((code == 43 || code == 45) && k + 1 < own.size() && record.code(own[k + 1]) == code + 1) {
            const double x = real(i);
            const double y = real(own[k + 1]);
            good = good && record.set(i, (x * cosine - y * sine) * factor) &&
                   record.set(own[k + 1], (x * sine + y * cosine) * factor);
        }
    }
    if (!good) return Tavo::eOutOfRange;
    if (record.edited()) store.replace(objectId().record(), record.bytes());
    return Tavo::eOk;
}
