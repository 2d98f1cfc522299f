#pragma once

#include "platform/Export.h"
#include "platform/drawing/OdDbObject.h"

#include <memory>
#include <string_view>

// A named record of a table.
class KXPLATFORM_EXPORT OdDbSymbolTableRecord : public OdDbObject {
  public:
    using OdDbObject::OdDbObject;

    virtual OdString getName() const;
    // eDuplicate for a name another record of the table has, eInvalidInput for an empty one. References by name
    // elsewhere in the drawing stay as they are.
    virtual Tavo::ErrorStatus setName(std::wstring_view name);
    // Standard flags, group code 70: 16 and 32 come from external references, 64 in use when last saved.
    int flags() const { return integerAt(70); }
    // Comes from an external reference.
    bool isDependent() const { return (flags() & 16) != 0; }

  protected:
    Tavo::ErrorStatus setFlag(int bit, bool on);
};
using OdDbSymbolTableRecordPtr = std::shared_ptr<OdDbSymbolTableRecord>;

// A table of named records. Names are compared without regard to case.
class KXPLATFORM_EXPORT OdDbSymbolTable : public OdDbObject {
  public:
    using OdDbObject::OdDbObject;

    // Null id when no record has that name.
    virtual OdDbObjectId getAt(std::wstring_view name) const;
    bool has(std::wstring_view name) const { return !getAt(name).isNull(); }
    // The records in file order; null id at the end.
    virtual OdDbObjectId first() const;
    virtual OdDbObjectId next(OdDbObjectId record) const;
    std::size_t size() const;
    // The name of one of the table's records, without opening it.
    virtual OdString nameOf(OdDbObjectId record) const;

    // Adds a record of that name with the version's usual values and gives its id. A null id when the table is
    // not open for writing, the name is empty or exists, or records of this kind can't be made by name alone.
    virtual OdDbObjectId add(std::wstring_view name);

    // Calls `visit(OdDbObjectId)` for each record in file order.
    template <class Visit>
    void forEach(Visit&& visit) const {
        for (OdDbObjectId id = first(); !id.isNull(); id = next(id))
            visit(id);
    }
};
using OdDbSymbolTablePtr = std::shared_ptr<OdDbSymbolTable>;

class KXPLATFORM_EXPORT OdDbRegAppTable : public OdDbSymbolTable {
  public:
    using OdDbSymbolTable::OdDbSymbolTable;
};
class KXPLATFORM_EXPORT OdDbRegAppTableRecord : public OdDbSymbolTableRecord {
  public:
    using OdDbSymbolTableRecord::OdDbSymbolTableRecord;
};
