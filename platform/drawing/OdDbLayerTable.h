#pragma once

#include "platform/Export.h"
#include "platform/drawing/OdCmColor.h"
#include "platform/drawing/OdDb.h"
#include "platform/drawing/OdDbSymbolTable.h"

class KXPLATFORM_EXPORT OdDbLayerTableRecord : public OdDbSymbolTableRecord {
  public:
    using OdDbSymbolTableRecord::OdDbSymbolTableRecord;

    OdCmColor color() const;
    // eNotHandled, and no change, for a true colour in a drawing older than R2004; eInvalidInput for by layer
    // and by block. A layer that is off stays off.
    Tavo::ErrorStatus setColor(const OdCmColor& color);

    OdString linetypeName() const { return textAt(6); }
    // Null id when the linetype table lacks the name.
    OdDbObjectId linetypeObjectId() const;
    Tavo::ErrorStatus setLinetypeName(std::wstring_view name);
    // eInvalidInput for an id that is no linetype of this database.
    Tavo::ErrorStatus setLinetypeObjectId(OdDbObjectId linetype);

    // kLnWtByLwDefault when the file says nothing, as drawings before R2000 do; setting answers eNotHandled
    // there.
    OdDb::LineWeight lineWeight() const;
    Tavo::ErrorStatus setLineWeight(OdDb::LineWeight weight);

    bool isOff() const { return integerAt(62, 7) < 0; }
    Tavo::ErrorStatus setIsOff(bool off);
    bool isFrozen() const { return (flags() & 1) != 0; }
    Tavo::ErrorStatus setIsFrozen(bool frozen) { return setFlag(1, frozen); }
    // Frozen in viewports made from now on.
    bool VPDFLT() const { return (flags() & 2) != 0; }
    Tavo::ErrorStatus setVPDFLT(bool frozen) { return setFlag(2, frozen); }
    bool isLocked() const { return (flags() & 4) != 0; }
    Tavo::ErrorStatus setIsLocked(bool locked) { return setFlag(4, locked); }
    // eNotHandled for switching plotting off in a drawing older than R2000.
    bool isPlottable() const { return integerAt(290, 1) != 0; }
    Tavo::ErrorStatus setIsPlottable(bool plot);

    // Kept as extended data; empty when there is none.
    OdString description() const;
    OdDbObjectId plotStyleNameId() const { return idAt(390); }
};
using OdDbLayerTableRecordPtr = std::shared_ptr<OdDbLayerTableRecord>;

class KXPLATFORM_EXPORT OdDbLayerTable : public OdDbSymbolTable {
  public:
    using OdDbSymbolTable::OdDbSymbolTable;
};
using OdDbLayerTablePtr = std::shared_ptr<OdDbLayerTable>;
