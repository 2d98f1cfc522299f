#pragma once

#include "platform/Export.h"
#include "platform/drawing/Geometry.h"
#include "platform/drawing/OdDbEntity.h"
#include "platform/drawing/OdDbSymbolTable.h"

// A block definition. Its id is the block record's; in drawings before R13, which have none, and of definitions
// that lack theirs the definition's own. What only the record can keep makes the missing record first.
class KXPLATFORM_EXPORT OdDbBlockTableRecord : public OdDbSymbolTableRecord {
  public:
    using OdDbSymbolTableRecord::OdDbSymbolTableRecord;

    // The record that begins the definition (type BLOCK); null when the drawing lacks it.
    OdDbObjectId blockBeginId() const;
    // The definition's entities; those of the spaces are found wherever the file keeps them.
    OdDbEntityRange entities() const;

    OdGePoint3d origin() const;
    Tavo::ErrorStatus setOrigin(const OdGePoint3d& origin);
    // The description users give a block.
    OdString comments() const;
    Tavo::ErrorStatus setComments(std::wstring_view text);

    // Group code 70 of the definition.
    int blockFlags() const;
    bool isAnonymous() const { return (blockFlags() & 1) != 0; }
    bool hasAttributeDefinitions() const { return (blockFlags() & 2) != 0; }
    bool isLayout() const;
    // The layout of a space's block, null for others.
    OdDbObjectId getLayoutId() const { return idAt(340); }

    // --- external references ---
    enum class XrefKind : std::uint8_t { kNone, kAttached, kOverlaid };
    XrefKind xrefKind() const;
    bool isFromExternalReference() const { return xrefKind() != XrefKind::kNone; }
    bool isFromOverlayReference() const { return xrefKind() == XrefKind::kOverlaid; }
    // Of a reference: its drawing was found and loaded when the file was written. One that isn't was missing
    // or unloaded; files don't tell these apart.
    bool isXrefResolved() const { return (blockFlags() & 32) != 0; }
    // The definition itself came with an external reference.
    bool isXrefDependent() const { return (blockFlags() & 16) != 0; }
    Tavo::ErrorStatus setXrefKind(XrefKind kind);
    Tavo::ErrorStatus setIsXrefResolved(bool resolved);
    // The path of the drawing referred to, as the file gives it.
    OdString pathName() const;
    Tavo::ErrorStatus setPathName(std::wstring_view path);

    // --- how inserts of it behave; setting is eNotHandled where the drawing's version has no place for it ---
    // As INSUNITS: 0 none, 1 inches, 4 millimetres ...; R2000 on.
    int blockInsertUnits() const;
    Tavo::ErrorStatus setBlockInsertUnits(int units);
    // R2007 on.
    bool explodable() const;
    Tavo::ErrorStatus setExplodable(bool explodable);
    bool blockScalingUniform() const;
    Tavo::ErrorStatus setBlockScalingUniform(bool uniform);
    bool annotative() const;
    Tavo::ErrorStatus setAnnotative(bool annotative);
    bool paperOrientation() const;
    Tavo::ErrorStatus setPaperOrientation(bool matches);

    // Names of spaces can't change (eNotHandled), nor can a name be taken that marks a space. What came with an
    // external reference ("NAME|Walls") is renamed with it.
    Tavo::ErrorStatus setName(std::wstring_view name) override;
    // Takes the definition with its entities out too. eNotHandled for a space's block. References to it stay;
    // isInUse() tells whether there are any.
    Tavo::ErrorStatus erase() override;

  private:
    // Of an object opened on a definition in a drawing from R13 on: its record, when it has one or `make` gives
    // it one, opened as this object is. Null for others.
    std::shared_ptr<OdDbBlockTableRecord> record(bool make = false) const;
    bool isBareDefinition() const;
    // Hands a setter of what only records keep on to that record.
    template <class Set>
    Tavo::ErrorStatus onRecord(Set&& set);
    Tavo::ErrorStatus setBlockFlags(int clear, int set);
    // A tag of the definition's begin, in its block subclass.
    Tavo::ErrorStatus setAtBegin(int code, const tv::dwg::Value& value, std::initializer_list<int> behind);
    Tavo::ErrorStatus setModern(int code, int value, std::initializer_list<int> behind);
};
using OdDbBlockTableRecordPtr = std::shared_ptr<OdDbBlockTableRecord>;

// The block records in file order and behind them the definitions without a record; in drawings without the
// table the definitions alone.
class KXPLATFORM_EXPORT OdDbBlockTable : public OdDbSymbolTable {
  public:
    using OdDbSymbolTable::OdDbSymbolTable;
    OdDbObjectId getAt(std::wstring_view name) const override;
    OdDbObjectId next(OdDbObjectId record) const override;
    // With an empty definition at the end of the section of blocks. Makes the table first where the version has
    // one and the drawing lacks it.
    OdDbObjectId add(std::wstring_view name) override;
    OdDbObjectId getModelSpaceId() const { return getAt(L"*Model_Space"); }
    OdDbObjectId getPaperSpaceId() const { return getAt(L"*Paper_Space"); }
};
using OdDbBlockTablePtr = std::shared_ptr<OdDbBlockTable>;
