#pragma once

#include "platform/Export.h"
#include "platform/drawing/Geometry.h"
#include "platform/host/DrawingTypes.h"
#include "platform/host/Signal.h"
#include "platform/host/selection/SelectionFilter.h"
#include "platform/host/selection/SelectionSet.h"
#include "platform/text/Problem.h"

#include <functional>
#include <vector>

// How objects are chosen. Only what is shown can be: nothing on a layer that is off or frozen, nothing of
// another space than the one in view, and never the viewport that stands for a sheet itself.
struct TavoSelectionQuery {
    enum class Method {
        kAll,             // everything in the space
        kLast,            // the object made last
        kPrevious,        // what the last command worked on
        kImplied,         // what is selected already
        kGiven,           // those of `ids`
        kPoint,           // points[0], within `tolerance`: the nearest, the topmost of those as near
        kWindow,          // inside of the box of points[0] and points[1]
        kCrossing,        // inside of that box or touching it
        kFence,           // touching the open polyline of the points
        kWindowPolygon,   // inside of the closed polygon of the points
        kCrossingPolygon, // inside of it or touching it
    };
    Method method = Method::kAll;
    std::vector<OdGePoint2d> points; // world coordinates of the space, drawing units
    std::vector<OdDbObjectId> ids;
    double tolerance = 0;
    TavoSelectionFilter filter;
    // Leaves out what is on a locked layer: it can be looked at but not edited.
    bool forEditing = false;
};

// Where the entities of a drawing are. Whoever shows drawings answers; all ids are of main entities of the
// space in view that are shown, each once, in drawing order except for at().
class TavoEntityLocator {
  public:
    virtual ~TavoEntityLocator() = default;

    // Main entities of the space in view in drawing order, shown or not.
    virtual void everything(const OdDbDatabasePtr& database, std::vector<OdDbObjectId>& ids) = 0;
    // Entities within `tolerance` of the point, the nearest first, of those as near the topmost.
    virtual void at(const OdDbDatabasePtr& database, OdGePoint2d point, double tolerance,
                    std::vector<OdDbObjectId>& ids) = 0;
    // Those inside of the box of two opposite corners, with `crossing` also those that touch it.
    virtual void inBox(const OdDbDatabasePtr& database, OdGePoint2d a, OdGePoint2d b, bool crossing,
                       std::vector<OdDbObjectId>& ids) = 0;
    // The same for a closed polygon.
    virtual void inPolygon(const OdDbDatabasePtr& database, const std::vector<OdGePoint2d>& corners,
                           bool crossing, std::vector<OdDbObjectId>& ids) = 0;
    // Those that an open polyline touches.
    virtual void alongFence(const OdDbDatabasePtr& database, const std::vector<OdGePoint2d>& points,
                            std::vector<OdDbObjectId>& ids) = 0;
};

// The objects selected in the current drawing, in the order of their selection, and how more are chosen.
class TavoSelection {
  public:
    using Listener = std::function<void()>;

    virtual ~TavoSelection() = default;

    // Without those erased since.
    virtual std::vector<OdDbObjectId> ids() const = 0;
    // The same without a copy; may hold objects erased since.
    virtual const TavoSelectionSet& current() const = 0;
    // Null and erased ids and repetitions are left out. Nobody is told when nothing changes.
    virtual void set(const std::vector<OdDbObjectId>& ids) = 0;
    virtual void add(const std::vector<OdDbObjectId>& ids) = 0;
    virtual void remove(const std::vector<OdDbObjectId>& ids) = 0;
    virtual void clear() = 0;
    // Objects were erased: those selected fall out.
    virtual void dropErased() = 0;

    // What the last command worked on, remembered for each open drawing, without those erased since.
    virtual std::vector<OdDbObjectId> previous(const OdDbDatabasePtr& database) const = 0;
    virtual void setPrevious(const std::vector<OdDbObjectId>& ids) = 0;

    // Adds what the query finds in the database to `found`. Finding nothing is no fault. eNotHandled when
    // geometry is asked for and nobody knows any, eInvalidInput for points that are too few or not finite,
    // eNoDatabase without a drawing.
    virtual Tavo::ErrorStatus select(const TavoSelectionQuery& query, const OdDbDatabasePtr& database,
                                     TavoSelectionSet& found) const = 0;

    [[nodiscard]] virtual tv::host::Subscription onSelectionChanged(Listener listener) = 0;
};

// TavoSelection::select of the installed host in the working database; eNotHandled without a host.
KXPLATFORM_EXPORT Tavo::ErrorStatus tvedSSGet(const TavoSelectionQuery& query, TavoSelectionSet& found);
