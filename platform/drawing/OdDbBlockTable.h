#pragma once

#include "platform/Export.h"
#include "platform/drawing/Geometry.h"
#include "platform/drawing/OdDbEntity.h"
#include "platform/drawing/OdDbSymbolTable.h"

// A block definition. Its id is the block record's; in drawings before R13, which have none, the definition's
// own.
class KXPLATFORM_EXPORT OdDbBlockTableRecord : public OdDbSymbolTableRecord {
  public:
    using OdDbSymbolTableRecord::OdDbSymbolTableRecord;

    // The record that begins the definition (type BLOCK); null when the drawing lacks it.
    OdDbObjectId blockBeginId() const;
    OdGePoint3d origin() const;
    // The definition's entities; those of the spaces are found wherever the file keeps them.
    OdDbEntityRange entities() const;
    bool isAnonymous() const { return (blockFlags() & 1) != 0; }
    bool isLayout() const;
    bool isFromExternalReference() const { return (blockFlags() & 4) != 0; }
    // The path of the drawing referred to, as the file gives it.
    OdString pathName() const;

  private:
    int blockFlags() const;
};
using OdDbBlockTableRecordPtr = std::shared_ptr<OdDbBlockTableRecord>;

class KXPLATFORM_EXPORT OdDbBlockTable : public OdDbSymbolTable {
  public:
    using OdDbSymbolTable::OdDbSymbolTable;
    OdDbObjectId getAt(std::wstring_view name) const override;
    OdDbObjectId next(OdDbObjectId record) const override;
    OdDbObjectId getModelSpaceId() const { return getAt(L"*Model_Space"); }
    OdDbObjectId getPaperSpaceId() const { return getAt(L"*Paper_Space"); }
};
using OdDbBlockTablePtr = std::shared_ptr<OdDbBlockTable>;
