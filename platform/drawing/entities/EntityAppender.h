#pragma once

#include "platform/drawing/OdDbHandle.h"
#include "platform/drawing/dxf/RecordStore.h"
#include "platform/drawing/entities/NewEntity.h"

#include <string>

namespace tv::dwg {

// A home looked up in its drawing.
struct HomePlace {
    Tavo::ErrorStatus status = Tavo::eOk;
    RecordId last = kNoRecord;  // new records go behind it
    RecordId owner = kNoRecord; // the BLOCK record
    Section section = Section::kEntities;
    OdDbHandle ownerHandle; // of the block record; null where the version has no owners
    bool paper = false;
    bool handles = true; // whether the drawing's entities carry them
};

// Makes the section of entities when the drawing lacks it; call it inside the undo step.
HomePlace findPlace(const EntityHome& home);
// The same without making anything, for its status.
Tavo::ErrorStatus checkHome(const EntityHome& home);
// Whether the block is, or holds anywhere in its inserts, the block the home is in.
bool holdsHome(const EntityHome& home, std::wstring_view block);
// Makes the block that shows a new dimension and names it there.
void showDimension(OdDbObjectId dimension, const NewDimension& shape);

} // namespace tv::dwg
