#pragma once

#include "platform/Export.h"
#include "platform/drawing/OdDbObject.h"

#include <utility>
#include <vector>

// Names of objects. Names are compared without regard to case.
class KXPLATFORM_EXPORT OdDbDictionary : public OdDbObject {
  public:
    using OdDbObject::OdDbObject;

    struct Entry {
        OdString name;
        OdDbHandle handle;
    };
    // In file order; the objects named need not exist.
    std::vector<Entry> entries() const;
    // Null id when the name is missing or its object is.
    OdDbObjectId getAt(std::wstring_view name) const;
    bool has(std::wstring_view name) const;
    // Of a dictionary with a default entry, null for others.
    OdDbObjectId defaultId() const;
    // eKeyNotFound when there is no such name. The object itself stays.
    Tavo::ErrorStatus remove(std::wstring_view name);
    // Names the object, which must have a handle; an existing name is given the new object.
    Tavo::ErrorStatus setAt(std::wstring_view name, OdDbObjectId object);
};
using OdDbDictionaryPtr = std::shared_ptr<OdDbDictionary>;
