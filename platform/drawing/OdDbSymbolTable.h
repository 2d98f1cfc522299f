#pragma once

#include "platform/Export.h"
#include "platform/drawing/OdDbObject.h"

#include <functional>
#include <memory>
#include <string_view>

namespace tv::dwg {
class RecordEditor;
} // namespace tv::dwg

// A named record of a table.
class KXPLATFORM_EXPORT OdDbSymbolTableRecord : public OdDbObject {
  public:
    using OdDbObject::OdDbObject;

    virtual OdString getName() const;
    // Renames the record and, in the same undo step, every reference to it by name (see NameReferences.h).
    // eDuplicate for a name another record of the table has, eInvalidInput for an empty one or one with control
    // characters, eNotHandled for one longer than the drawing's version holds. A name that reads back
    // differently from how it is given ("\U+0041") counts as what it reads back as. Layer 0 and the linetypes
    // ByLayer, ByBlock and Continuous keep their names and can't be erased (eInvalidInput).
    virtual Tavo::ErrorStatus setName(std::wstring_view name);
    Tavo::ErrorStatus erase() override;
    // Standard flags, group code 70: 16 and 32 come from external references, 64 in use when last saved.
    int flags() const { return integerAt(70); }
    // Comes from an external reference. Such a record can be renamed and erased like any other; whether it
    // should be is for the caller to ask.
    bool isDependent() const { return (flags() & 16) != 0; }
    // Of one that is: the referenced drawing was found when the file was written.
    bool isResolved() const { return (flags() & 48) == 48; }
    // Something referred to the record when the usage data of its kind were generated last (UsageData.h); false
    // when they never were, and for records made since.
    bool isInUse() const;

  protected:
    // Whether setName can give it that name.
    Tavo::ErrorStatus checkName(std::wstring_view name) const;
    bool keepsName() const;
    Tavo::ErrorStatus setFlag(int bit, bool on);
    // Hands the record's tags to `change` and stores them when that answers true; eWrongType when it doesn't.
    Tavo::ErrorStatus edit(const std::function<bool(tv::dwg::RecordEditor&)>& change);
    // The same for the extended data of an application, which is registered when these are its first.
    Tavo::ErrorStatus editXData(std::wstring_view app,
                                const std::function<bool(tv::dwg::RecordEditor&)>& change);
    // Whether the record is annotative, as text styles, dimension styles and blocks say it.
    bool annotativeFlag() const;
    Tavo::ErrorStatus setAnnotativeFlag(bool annotative);
    // "Match orientation to layout" of annotative text styles and blocks.
    bool paperOrientationFlag() const;
    Tavo::ErrorStatus setPaperOrientationFlag(bool matches);
};
using OdDbSymbolTableRecordPtr = std::shared_ptr<OdDbSymbolTableRecord>;

// A table of named records. Names are compared without regard to case, and as what they read back as. Where a
// file has several tables of one name, the first one opened shows the records of all, and new ones go into it.
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
    // not open for writing, the name is none the table can take (see setName) or exists, or records of this
    // kind can't be made by name alone. The table's own count of records (group code 70) stays: programs take
    // it as a hint at most, and files in use carry any number there.
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

namespace tv::dwg {
// Whether a record of a table of the drawing can have that name, other records left aside; see setName.
KXPLATFORM_EXPORT Tavo::ErrorStatus checkTableName(const DxfFormat& format, std::wstring_view name);
} // namespace tv::dwg
