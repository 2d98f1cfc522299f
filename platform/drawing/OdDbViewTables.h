#pragma once

#include "platform/Export.h"
#include "platform/drawing/Geometry.h"
#include "platform/drawing/OdDbSymbolTable.h"

// Views, viewports of model space and coordinate systems.

// What a saved view and a viewport of model space have in common. Lengths are drawing units of the view's
// plane, angles radians.
class KXPLATFORM_EXPORT OdDbAbstractViewTableRecord : public OdDbSymbolTableRecord {
  public:
    using OdDbSymbolTableRecord::OdDbSymbolTableRecord;

    virtual OdGePoint2d centerPoint() const = 0;
    virtual Tavo::ErrorStatus setCenterPoint(OdGePoint2d center) = 0;
    virtual double height() const { return realAt(40); }
    // Keeps the width.
    virtual Tavo::ErrorStatus setHeight(double height) = 0;
    virtual double width() const = 0;
    virtual Tavo::ErrorStatus setWidth(double width) = 0;

    // The point looked at, and from there to the eye.
    virtual OdGePoint3d target() const = 0;
    virtual Tavo::ErrorStatus setTarget(const OdGePoint3d& target) = 0;
    virtual OdGeVector3d viewDirection() const = 0;
    virtual Tavo::ErrorStatus setViewDirection(const OdGeVector3d& direction) = 0;
    virtual double viewTwist() const = 0;
    virtual Tavo::ErrorStatus setViewTwist(double radians) = 0;

    // Millimetres of a camera's lens; counts in perspective.
    double lensLength() const { return realAt(42, 50); }
    Tavo::ErrorStatus setLensLength(double length) { return setAt(42, length, {41, 40}); }
    // Distances of the clipping planes from the target.
    double frontClipDistance() const { return realAt(43); }
    Tavo::ErrorStatus setFrontClipDistance(double distance) { return setAt(43, distance, {42}); }
    double backClipDistance() const { return realAt(44); }
    Tavo::ErrorStatus setBackClipDistance(double distance) { return setAt(44, distance, {43, 42}); }

    enum Mode { kPerspective = 1, kFrontClip = 2, kBackClip = 4, kFollowUcs = 8, kFrontClipNotAtEye = 16 };
    // A sum of Mode values.
    int viewMode() const { return integerAt(71); }
    Tavo::ErrorStatus setViewMode(int mode) { return setAt(71, std::int64_t{mode}, {50, 51, 44}); }
    bool isPerspective() const { return (viewMode() & kPerspective) != 0; }
    // 0 wireframe in the plane, up to 6; 0 before R2000.
    int renderMode() const { return integerAt(281); }
    Tavo::ErrorStatus setRenderMode(int mode) { return setAt(281, std::int64_t{mode}, {71, 78}); }

    // The coordinate system kept with the view: hasUcs() tells whether it counts when the view is shown.
    struct Ucs {
        OdGePoint3d origin;
        OdGeVector3d xAxis{1, 0, 0};
        OdGeVector3d yAxis{0, 1, 0};
        double elevation = 0;
        friend bool operator==(const Ucs&, const Ucs&) = default;
    };
    virtual bool hasUcs() const = 0;
    Ucs ucs() const;
    // The named one it came from; null for one without a name.
    OdDbObjectId ucsId() const { return idAt(345); }
    // eNotHandled before R2000.
    Tavo::ErrorStatus setUcs(const Ucs& ucs);
    Tavo::ErrorStatus removeUcs();

  protected:
    virtual Tavo::ErrorStatus setHasUcs(bool has) = 0;
    OdGePoint3d pointAt(int code) const;
    OdGeVector3d vectorAt(int code, const OdGeVector3d& otherwise) const;
    // Two or three tags, ten apart.
    Tavo::ErrorStatus setPoint(int code, const OdGePoint3d& point, std::initializer_list<int> behind,
                               int coordinates = 3);
    // eInvalidInput for one without length.
    Tavo::ErrorStatus setVector(int code, const OdGeVector3d& vector, std::initializer_list<int> behind);
    Tavo::ErrorStatus setAngle(int code, double radians, std::initializer_list<int> behind);
};

class KXPLATFORM_EXPORT OdDbViewTableRecord : public OdDbAbstractViewTableRecord {
  public:
    using OdDbAbstractViewTableRecord::OdDbAbstractViewTableRecord;

    OdGePoint2d centerPoint() const override { return {realAt(10), realAt(20)}; }
    Tavo::ErrorStatus setCenterPoint(OdGePoint2d c) override {
        return setPoint(10, {c.x, c.y, 0}, {40, 70}, 2);
    }
    Tavo::ErrorStatus setHeight(double height) override;
    double width() const override { return realAt(41); }
    Tavo::ErrorStatus setWidth(double width) override;
    OdGePoint3d target() const override { return pointAt(12); }
    Tavo::ErrorStatus setTarget(const OdGePoint3d& target) override { return setPoint(12, target, {31, 41}); }
    OdGeVector3d viewDirection() const override { return vectorAt(11, {0, 0, 1}); }
    Tavo::ErrorStatus setViewDirection(const OdGeVector3d& d) override { return setVector(11, d, {41}); }
    double viewTwist() const override;
    Tavo::ErrorStatus setViewTwist(double radians) override { return setAngle(50, radians, {44}); }

    // A view of paper space.
    bool isPaperspaceView() const { return (flags() & 1) != 0; }
    Tavo::ErrorStatus setIsPaperspaceView(bool paper) { return setFlag(1, paper); }
    bool hasUcs() const override { return integerAt(72) != 0; }

  protected:
    Tavo::ErrorStatus setHasUcs(bool has) override { return setAt(72, std::int64_t{has}, {281, 71}); }
};
class KXPLATFORM_EXPORT OdDbViewTable : public OdDbSymbolTable {
  public:
    using OdDbSymbolTable::OdDbSymbolTable;
};

// Several records may share a name: together they are one arrangement of viewports, "*Active" the one shown.
class KXPLATFORM_EXPORT OdDbViewportTableRecord : public OdDbAbstractViewTableRecord {
  public:
    using OdDbAbstractViewTableRecord::OdDbAbstractViewTableRecord;

    OdGePoint2d centerPoint() const override { return {realAt(12), realAt(22)}; }
    Tavo::ErrorStatus setCenterPoint(OdGePoint2d c) override {
        return setPoint(12, {c.x, c.y, 0}, {21, 70}, 2);
    }
    Tavo::ErrorStatus setHeight(double height) override;
    // Kept as its ratio to the height.
    double width() const override { return height() * realAt(41, 1); }
    Tavo::ErrorStatus setWidth(double width) override;
    OdGePoint3d target() const override { return pointAt(17); }
    Tavo::ErrorStatus setTarget(const OdGePoint3d& target) override { return setPoint(17, target, {36}); }
    OdGeVector3d viewDirection() const override { return vectorAt(16, {0, 0, 1}); }
    Tavo::ErrorStatus setViewDirection(const OdGeVector3d& d) override { return setVector(16, d, {25}); }
    double viewTwist() const override;
    Tavo::ErrorStatus setViewTwist(double radians) override { return setAngle(51, radians, {50}); }

    // Where it stands in the window, as parts of its width and height: 0,0 to 1,1.
    OdGePoint2d lowerLeftCorner() const { return {realAt(10), realAt(20)}; }
    Tavo::ErrorStatus setLowerLeftCorner(OdGePoint2d p) { return setPoint(10, {p.x, p.y, 0}, {70}, 2); }
    OdGePoint2d upperRightCorner() const { return {realAt(11, 1), realAt(21, 1)}; }
    Tavo::ErrorStatus setUpperRightCorner(OdGePoint2d p) { return setPoint(11, {p.x, p.y, 0}, {20}, 2); }

    bool snapEnabled() const { return integerAt(75) != 0; }
    Tavo::ErrorStatus setSnapEnabled(bool on) { return setAt(75, std::int64_t{on}, {74}); }
    bool isometricSnapEnabled() const { return integerAt(77) != 0; }
    Tavo::ErrorStatus setIsometricSnapEnabled(bool on) { return setAt(77, std::int64_t{on}, {76}); }
    double snapAngle() const;
    Tavo::ErrorStatus setSnapAngle(double radians) { return setAngle(50, radians, {44}); }
    OdGePoint2d snapBase() const { return {realAt(13), realAt(23)}; }
    Tavo::ErrorStatus setSnapBase(OdGePoint2d p) { return setPoint(13, {p.x, p.y, 0}, {22}, 2); }
    OdGePoint2d snapIncrements() const { return {realAt(14), realAt(24)}; }
    Tavo::ErrorStatus setSnapIncrements(OdGePoint2d p) { return setPoint(14, {p.x, p.y, 0}, {23}, 2); }
    bool gridEnabled() const { return integerAt(76) != 0; }
    Tavo::ErrorStatus setGridEnabled(bool on) { return setAt(76, std::int64_t{on}, {75}); }
    OdGePoint2d gridIncrements() const { return {realAt(15), realAt(25)}; }
    Tavo::ErrorStatus setGridIncrements(OdGePoint2d p) { return setPoint(15, {p.x, p.y, 0}, {24}, 2); }
    // Straight pieces a full circle is drawn with.
    int circleSides() const { return integerAt(72, 100); }
    Tavo::ErrorStatus setCircleSides(int sides) { return setAt(72, std::int64_t{sides}, {71}); }
    // 1 shown, 2 at the origin; sums.
    int ucsIcon() const { return integerAt(74); }
    Tavo::ErrorStatus setUcsIcon(int icon) { return setAt(74, std::int64_t{icon}, {73}); }
    bool hasUcs() const override { return integerAt(65) != 0; }

  protected:
    Tavo::ErrorStatus setHasUcs(bool has) override { return setAt(65, std::int64_t{has}, {281, 78}); }
};
class KXPLATFORM_EXPORT OdDbViewportTable : public OdDbSymbolTable {
  public:
    using OdDbSymbolTable::OdDbSymbolTable;
};

class KXPLATFORM_EXPORT OdDbUCSTableRecord : public OdDbSymbolTableRecord {
  public:
    using OdDbSymbolTableRecord::OdDbSymbolTableRecord;
    OdGePoint3d origin() const { return {realAt(10), realAt(20), realAt(30)}; }
    OdGeVector3d xAxis() const { return {realAt(11, 1), realAt(21), realAt(31)}; }
    OdGeVector3d yAxis() const { return {realAt(12), realAt(22, 1), realAt(32)}; }
    Tavo::ErrorStatus setOrigin(const OdGePoint3d& origin);
    // eInvalidInput for axes that are no right angle apart or have no length; stored with length 1.
    Tavo::ErrorStatus setAxes(const OdGeVector3d& x, const OdGeVector3d& y);
};
class KXPLATFORM_EXPORT OdDbUCSTable : public OdDbSymbolTable {
  public:
    using OdDbSymbolTable::OdDbSymbolTable;
};
