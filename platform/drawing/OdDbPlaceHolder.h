#pragma once

#include "platform/Export.h"
#include "platform/drawing/OdDbObject.h"

#include <memory>

// An object without any data; a dictionary's entry exists for its name's sake, as plot style names do.
class KXPLATFORM_EXPORT OdDbPlaceHolder : public OdDbObject {
  public:
    using OdDbObject::OdDbObject;
};
using OdDbPlaceHolderPtr = std::shared_ptr<OdDbPlaceHolder>;

namespace tv::dwg {
// A new one named in the dictionary. A null id when the name exists or the drawing can hold none.
KXPLATFORM_EXPORT OdDbObjectId addPlaceHolder(OdDbObjectId dictionary, std::wstring_view name);
} // namespace tv::dwg
