#pragma once

#include "platform/drawing/OdDbHandle.h"
#include "platform/drawing/dxf/RecordEditor.h"

namespace tv::dwg {

// The groups of group code 102 that tie a record to others. They stand between the handle and the owner.

// Who is told when the object changes ({ACAD_REACTORS). Adding one that is there and removing one that isn't
// change nothing; the last one takes its group along. False when the record has no handle.
bool addReactor(RecordEditor& record, OdDbHandle reactor);
bool removeReactor(RecordEditor& record, OdDbHandle reactor);

// The extension dictionary ({ACAD_XDICTIONARY); a null handle takes the group away. False when the record has
// no handle.
bool setExtensionDictionary(RecordEditor& record, OdDbHandle dictionary);

} // namespace tv::dwg
