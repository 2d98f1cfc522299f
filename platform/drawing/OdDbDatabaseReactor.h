#pragma once

#include "platform/Export.h"
#include "platform/drawing/OdDbObjectId.h"
#include "platform/drawing/VersionLimits.h"

#include <string_view>

// Told after each change of a database has happened, whoever made it: an edit, an undo or a redo. Called on the
// thread that made the change. A reactor may read; an edit it makes while an undo or redo is replayed is
// refused.
class KXPLATFORM_EXPORT OdDbDatabaseReactor {
  public:
    virtual ~OdDbDatabaseReactor() = default;

    virtual void objectModified(OdDbDatabase&, OdDbObjectId) {}
    // Also when an undo brings an erased object back.
    virtual void objectAppended(OdDbDatabase&, OdDbObjectId) {}
    // The object can no longer be opened when this is called. Also when an undo takes an added object away.
    virtual void objectErased(OdDbDatabase&, OdDbObjectId) {}
    // `name` has no dollar sign ("LUNITS"). Also when the variable was added or taken away.
    virtual void headerSysVarChanged(OdDbDatabase&, std::wstring_view) {}
    // A setter refused what the drawing's version can't hold; told once per drawing and feature (see
    // tv::dwg::notHeld for the sentence).
    virtual void featureRefused(OdDbDatabase&, OdDb::Feature) {}
    // A whole step was undone or redone; its single changes were told before.
    virtual void undoFinished(OdDbDatabase&) {}
    virtual void redoFinished(OdDbDatabase&) {}
    // The database is going away; it can still be read.
    virtual void goodbye(OdDbDatabase&) {}
};
