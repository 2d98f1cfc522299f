#pragma once

#include "platform/Export.h"
#include "platform/drawing/OdCmColor.h"
#include "platform/drawing/OdCmTransparency.h"
#include "platform/drawing/OdDb.h"
#include "platform/drawing/OdDbSymbolTable.h"

class KXPLATFORM_EXPORT OdDbLayerTableRecord : public OdDbSymbolTableRecord {
  public:
    using OdDbSymbolTableRecord::OdDbSymbolTableRecord;

    OdCmColor color() const;
    // eNotHandled, and no change, for a true colour in a drawing older than R2004; eInvalidInput for by layer
    // and by block. A layer that is off stays off.
    Tavo::ErrorStatus setColor(const OdCmColor& color);
    // "BOOK$COLOUR" of a colour from a colour book, else empty. Setting a colour takes the name away; setting a
    // book colour sets both, and is eInvalidInput for a colour that is no true colour.
    OdString bookColorName() const { return textAt(430); }
    Tavo::ErrorStatus setBookColor(const OdCmColor& color, std::wstring_view bookAndName);

    OdString linetypeName() const { return textAt(6); }
    // Null id when the linetype table lacks the name.
    OdDbObjectId linetypeObjectId() const;
    // eKeyNotFound for a name the linetype table lacks.
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

    // Kept as extended data; solid when there are none. Setting answers eInvalidInput for by layer and by block
    // and eNotHandled before R2004, whose entities have no transparency either.
    OdCmTransparency transparency() const;
    Tavo::ErrorStatus setTransparency(OdCmTransparency transparency);

    // Kept as extended data; empty when there is none.
    OdString description() const;
    OdString desc() const { return description(); }
    Tavo::ErrorStatus setDescription(std::wstring_view text);

    // The placeholder in the dictionary of plot style names; null when the layer names none. Setting answers
    // eNotHandled before R2000.
    OdDbObjectId plotStyleNameId() const { return idAt(390); }
    // The name the dictionary has for it, empty when there is none.
    OdString plotStyleName() const;
    // eInvalidInput for an object that is no plot style name of this drawing.
    Tavo::ErrorStatus setPlotStyleName(OdDbObjectId placeholder);
    // eKeyNotFound for a name the dictionary lacks.
    Tavo::ErrorStatus setPlotStyleName(std::wstring_view name);

    // A layer other programs keep for themselves and show nobody: its name begins with an asterisk.
    bool isHidden() const { return getName().view().starts_with(L'*'); }
};
using OdDbLayerTableRecordPtr = std::shared_ptr<OdDbLayerTableRecord>;

class KXPLATFORM_EXPORT OdDbLayerTable : public OdDbSymbolTable {
  public:
    using OdDbSymbolTable::OdDbSymbolTable;
    // Finds out in one pass which layers are referred to: by entities in any space or block with their
    // sub-entities, by block definitions, by layer names in extended data; layer 0 and the current layer always
    // are. What layer states, filters and viewports say about a layer is no use of it. Ask the records'
    // isInUse() afterwards; edits made since are not seen until the next call.
    void generateUsageData() const;
};
using OdDbLayerTablePtr = std::shared_ptr<OdDbLayerTable>;
