#pragma once

#include "platform/drawing/OdDbObjectId.h"

class OdDbDatabase;

namespace tv::dwg {

// From R13 on a drawing keeps a table of block records beside the definitions themselves. Files lack it, or
// some of its records, and still have the definitions.

// A record in the table for each definition that has none, with the owners that R2000 and later note: the
// definition's own, its end's and its entities'. A definition that names an owner which is gone gets that one
// back, so that whatever else names it is right again.
void recordDefinitions(OdDbDatabase& database, RecordId table);

// The record of the definition that a BLOCK record begins; made when missing, and so is the table. kNoRecord in
// drawings before R13, and for a definition without a name or with one that another has.
RecordId needBlockRecord(OdDbDatabase& database, RecordId definition);

} // namespace tv::dwg
