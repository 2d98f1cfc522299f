#pragma once

#include "platform/Export.h"
#include "platform/host/DrawingTypes.h"
#include "platform/host/Signal.h"
#include "platform/text/OdString.h"
#include "platform/text/Problem.h"

#include <functional>
#include <optional>
#include <vector>

// What kind of value a system variable holds, and how it travels in a result buffer.
enum class TavoSysvarType {
    kNone,     // no such variable
    kInt16,    // 5003
    kInt32,    // 5010
    kReal,     // 5001
    kAngle,    // 5001, radians
    kText,     // 5005
    kPoint2d,  // 5002
    kPoint3d,  // 5009
    kColor,    // 5010: the drawing colour encoding, method byte on top (0xC0, 0xC1, 0xC2, 0xC3)
    kObjectId, // 5005: the name of the table record it refers to
};

// The smallest and the largest allowed number.
struct TavoSysvarRange {
    double minimum = 0;
    double maximum = 0;
};

// The system variables by name; letter case does not matter. A database argument of null means the database of
// the current document. Variables that live in the user profile or in the session ignore the database.
class TavoSysvarManager {
  public:
    using Listener = std::function<void(const OdString& name, const OdDbDatabasePtr& database)>;

    virtual ~TavoSysvarManager() = default;

    // Reads the current value into `value` (a single buffer, no chain). eKeyNotFound for an unknown name,
    // eNoDatabase for a variable of the drawing when there is no drawing; `value` is untouched then. A drawing
    // that lacks the variable answers the default.
    virtual Tavo::ErrorStatus getVar(const OdString& name, OdResBuf& value,
                                     const OdDbDatabasePtr& database) const = 0;

    // Writes a value: integers are taken for reals and, when whole, reals for integers; colours also as a
    // colour index or as text ("BYLAYER", "BYBLOCK", "1".."255", "R,G,B"). A write that leaves the value as it
    // is changes nothing and is no fault. eKeyNotFound, eWrongType, eOutOfRange, eReadOnly, eNoDatabase:
    // nothing was changed and lastProblem() says why.
    virtual Tavo::ErrorStatus setVar(const OdString& name, const OdResBuf& value,
                                     const OdDbDatabasePtr& database) = 0;

    // Typed access for what a plain result buffer carries only in an encoded form.
    virtual Tavo::ErrorStatus getVar(const OdString& name, OdCmColor& value,
                                     const OdDbDatabasePtr& database) const = 0;
    virtual Tavo::ErrorStatus setVar(const OdString& name, const OdCmColor& value,
                                     const OdDbDatabasePtr& database) = 0;
    virtual Tavo::ErrorStatus getVar(const OdString& name, OdDbObjectId& value,
                                     const OdDbDatabasePtr& database) const = 0;
    virtual Tavo::ErrorStatus setVar(const OdString& name, const OdDbObjectId& value,
                                     const OdDbDatabasePtr& database) = 0;

    // kNone for an unknown name.
    virtual TavoSysvarType type(const OdString& name) const = 0;
    // Nothing when the variable has no range (texts, points, colours, ids, free numbers).
    virtual std::optional<TavoSysvarRange> range(const OdString& name) const = 0;
    virtual bool isReadOnly(const OdString& name) const = 0;
    // Every variable's name in alphabetical order.
    virtual std::vector<OdString> names() const = 0;

    // The value as a person reads and types it on the command line: colours "BYLAYER", points "x,y,z", angles
    // in radians.
    virtual Tavo::ErrorStatus getText(const OdString& name, OdString& text,
                                      const OdDbDatabasePtr& database) const = 0;
    virtual Tavo::ErrorStatus setText(const OdString& name, const OdString& text,
                                      const OdDbDatabasePtr& database) = 0;

    // Why the last setVar or setText of this manager failed: variable, value, what is allowed. Empty after a
    // success.
    virtual const tv::Problem& lastProblem() const = 0;

    // Told after every change of a value, also by undo and redo; the name in upper case, the database null for
    // profile and session variables.
    [[nodiscard]] virtual tv::host::Subscription onSysvarChanged(Listener listener) = 0;
};

// Reads or writes one variable through the manager of the installed host. eNotHandled when there is none,
// eWrongType when the variable's value is no such thing; an out value is touched on success only.
KXPLATFORM_EXPORT Tavo::ErrorStatus tvedGetVar(const TvString& name, int& value,
                                               const OdDbDatabasePtr& database);
KXPLATFORM_EXPORT Tavo::ErrorStatus tvedGetVar(const TvString& name, OdCmColor& value,
                                               const OdDbDatabasePtr& database);
KXPLATFORM_EXPORT Tavo::ErrorStatus tvedGetVar(const TvString& name, OdDbObjectId& value,
                                               const OdDbDatabasePtr& database);
KXPLATFORM_EXPORT Tavo::ErrorStatus tvedSetVar(const TvString& name, int value,
                                               const OdDbDatabasePtr& database);
