#include "platform/drawing/OdDbViewTables.h"

#include "platform/drawing/OdDbDatabase.h"

#include <array>
#include <cmath>
#include <numbers>

namespace {

constexpr double kDegree = std::numbers::pi / 180;

} // namespace

OdGePoint3d OdDbAbstractViewTableRecord::pointAt(int code) const {
    return {realAt(code), realAt(code + 10), realAt(code + 20)};
}

OdGeVector3d OdDbAbstractViewTableRecord::vectorAt(int code, const OdGeVector3d& otherwise) const {
    return {realAt(code, otherwise.x), realAt(code + 10, otherwise.y), realAt(code + 20, otherwise.z)};
}

Tavo::ErrorStatus OdDbAbstractViewTableRecord::setVector(int code, const OdGeVector3d& vector,
                                                         std::initializer_list<int> behind) {
    if (!(vector.length() > 0)) return Tavo::eInvalidInput;
    return setPoint(code, {vector.x, vector.y, vector.z}, behind);
}

Tavo::ErrorStatus OdDbAbstractViewTableRecord::setPoint(int code, const OdGePoint3d& point,
                                                        std::initializer_list<int> behind, int coordinates) {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    const std::array<double, 3> values{point.x, point.y, point.z};
    for (const double value : values)
        if (!std::isfinite(value)) return Tavo::eInvalidInput;
    const OdDbUndoScope step(*database(), L"VIEW");
    if (const auto status = setAt(code, values[0], behind); status != Tavo::eOk) return status;
    for (int i = 1; i < coordinates; ++i)
        if (const auto status = setAt(code + 10 * i, values[static_cast<std::size_t>(i)], {code + 10 * i - 10});
            status != Tavo::eOk)
            return status;
    return Tavo::eOk;
}

Tavo::ErrorStatus OdDbAbstractViewTableRecord::setAngle(int code, double radians,
                                                        std::initializer_list<int> behind) {
    if (radians == realAt(code) * kDegree) return checkWrite();
    return setAt(code, radians / kDegree, behind);
}

OdDbAbstractViewTableRecord::Ucs OdDbAbstractViewTableRecord::ucs() const {
    return {pointAt(110), vectorAt(111, {1, 0, 0}), vectorAt(112, {0, 1, 0}), realAt(146)};
}

Tavo::ErrorStatus OdDbAbstractViewTableRecord::setUcs(const Ucs& ucs) {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    if (const auto status = database()->require(OdDb::Feature::kSheetSettings); status != Tavo::eOk)
        return status;
    const OdDbUndoScope step(*database(), L"VIEW");
    setHasUcs(true);
    if (const auto status = setPoint(110, ucs.origin, {65, 72}); status != Tavo::eOk) return status;
    if (const auto status = setVector(111, ucs.xAxis, {130}); status != Tavo::eOk) return status;
    if (const auto status = setVector(112, ucs.yAxis, {131}); status != Tavo::eOk) return status;
    if (!find(79)) setAt(79, std::int64_t{0}, {132});
    removeAt(345);
    return setAt(146, ucs.elevation, {79});
}

Tavo::ErrorStatus OdDbAbstractViewTableRecord::removeUcs() {
    return hasUcs() ? setHasUcs(false) : checkWrite();
}

// --- views ---

double OdDbViewTableRecord::viewTwist() const { return realAt(50) * kDegree; }

Tavo::ErrorStatus OdDbViewTableRecord::setHeight(double height) {
    return height > 0 ? setAt(40, height, {70}) : Tavo::eInvalidInput;
}

Tavo::ErrorStatus OdDbViewTableRecord::setWidth(double width) {
    return width > 0 ? setAt(41, width, {20, 40}) : Tavo::eInvalidInput;
}

// --- viewports ---

double OdDbViewportTableRecord::viewTwist() const { return realAt(51) * kDegree; }
double OdDbViewportTableRecord::snapAngle() const { return realAt(50) * kDegree; }

Tavo::ErrorStatus OdDbViewportTableRecord::setHeight(double height) {
    if (!(height > 0)) return Tavo::eInvalidInput;
    if (const auto status = checkWrite(); status != Tavo::eOk || height == this->height()) return status;
    const double width = this->width();
    const OdDbUndoScope step(*database(), L"VIEW");
    if (const auto status = setAt(40, height, {37, 27}); status != Tavo::eOk) return status;
    return width > 0 ? setAt(41, width / height, {40}) : Tavo::eOk;
}

Tavo::ErrorStatus OdDbViewportTableRecord::setWidth(double width) {
    const double height = this->height();
    if (!(width > 0) || !(height > 0)) return Tavo::eInvalidInput;
    if (width == this->width()) return checkWrite();
    return setAt(41, width / height, {40});
}

// --- coordinate systems ---

Tavo::ErrorStatus OdDbUCSTableRecord::setOrigin(const OdGePoint3d& origin) {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    if (!std::isfinite(origin.x + origin.y + origin.z)) return Tavo::eInvalidInput;
    const OdDbUndoScope step(*database(), L"UCS");
    setAt(10, origin.x, {70});
    setAt(20, origin.y, {10});
    return setAt(30, origin.z, {20});
}

Tavo::ErrorStatus OdDbUCSTableRecord::setAxes(const OdGeVector3d& x, const OdGeVector3d& y) {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    const double a = x.length();
    const double b = y.length();
    if (!std::isfinite(a) || !std::isfinite(b) || a == 0 || b == 0) return Tavo::eInvalidInput;
    if (std::abs(x.x * y.x + x.y * y.y + x.z * y.z) > 1e-9 * a * b) return Tavo::eInvalidInput;
    const OdDbUndoScope step(*database(), L"UCS");
    setAt(11, x.x / a, {30});
    setAt(21, x.y / a, {11});
    setAt(31, x.z / a, {21});
    setAt(12, y.x / b, {31});
    setAt(22, y.y / b, {12});
    return setAt(32, y.z / b, {22});
}
