#pragma once

#include "platform/Export.h"
#include "platform/drawing/Geometry.h"
#include "platform/drawing/OdDbEntity.h"

#include <string_view>
#include <vector>

// An insert of a block, once or in rows and columns.
class KXPLATFORM_EXPORT OdDbBlockReference : public OdDbEntity {
  public:
    using OdDbEntity::OdDbEntity;

    // The name the insert gives; of a dynamic block in some state an anonymous one.
    OdString blockName() const { return textAt(2); }
    // Null when the drawing lacks the block.
    OdDbObjectId blockTableRecordId() const;
    // The block a user would name: the dynamic block an anonymous one was made of, else the same.
    OdDbObjectId effectiveBlockId() const;
    OdString effectiveName() const;
    bool isExternalReference() const;
    // eKeyNotFound for a block the drawing lacks, eInvalidInput for one this insert stands in.
    Tavo::ErrorStatus setBlock(std::wstring_view name);

    OdGePoint3d position() const { return {realAt(10), realAt(20), realAt(30)}; }
    OdGeVector3d scaleFactors() const { return {realAt(41, 1), realAt(42, 1), realAt(43, 1)}; }
    // Radians.
    double rotation() const;
    int columns() const { return integerAt(70, 1); }
    int rows() const { return integerAt(71, 1); }
    double columnSpacing() const { return realAt(44); }
    double rowSpacing() const { return realAt(45); }

    // In file order.
    std::vector<OdDbObjectId> attributes() const;
    // Null when there is none with that tag.
    OdDbObjectId attribute(std::wstring_view tag) const;
};
using OdDbBlockReferencePtr = std::shared_ptr<OdDbBlockReference>;
