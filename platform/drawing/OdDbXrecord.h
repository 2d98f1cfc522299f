#pragma once

#include "platform/Export.h"
#include "platform/drawing/OdDbObject.h"

#include <memory>
#include <string_view>

// Any program's data as a chain of values by group code.
class KXPLATFORM_EXPORT OdDbXrecord : public OdDbObject {
  public:
    using OdDbObject::OdDbObject;

    // Coordinates ten codes apart are one point, of two or three coordinates; binary data stand in chunks as
    // the file has them. Null when there are none.
    OdResBufPtr rbChain() const;
    // Replaces the data; null empties the record. Types are the group codes 1 to 1071 but 5, 105, 999 and 1001,
    // which mean something else wherever they stand, and kRtEntName, written as 330. A chunk longer than a line
    // holds becomes several. eWrongType for a value that doesn't fit its code.
    Tavo::ErrorStatus setFromRbChain(const OdResBuf* chain);

    // What becomes of the record when drawings are merged (group code 280), 0..5.
    int mergeStyle() const;
};
using OdDbXrecordPtr = std::shared_ptr<OdDbXrecord>;

namespace tv::dwg {
// A new one with those data, named in the dictionary; an entry of that name must not exist. A null id for data
// that don't fit or a drawing that can hold none.
KXPLATFORM_EXPORT OdDbObjectId addXrecord(OdDbObjectId dictionary, std::wstring_view name,
                                          const OdResBuf* chain);
// The record of that name, or a new one; with exactly those data.
KXPLATFORM_EXPORT Tavo::ErrorStatus writeXrecord(OdDbObjectId dictionary, std::wstring_view name,
                                                 const OdResBuf* chain);
} // namespace tv::dwg
