#pragma once

#include "kxgui/Export.h"
#include "platform/drawing/OdCmColor.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/Value.h"

#include <string>
#include <string_view>
#include <vector>

// What the property lists of a toolbar show and change: a property of the selected objects or, when nothing is
// selected, what new objects get.
namespace kx::controls {

// With the values' forms: names are those of the drawing's records ("BYLAYER" and the like where they apply).
enum class Property {
    layer,      // name; CLAYER
    color,      // 0 by block, 1..255, 256 by layer, 0xC2RRGGBB; CECOLOR
    linetype,   // name; CELTYPE
    lineWeight, // OdDb::LineWeight; CELWEIGHT
    plotStyle,  // name; CPLOTSTYLE
    textStyle,  // name; TEXTSTYLE
    dimStyle,   // name; DIMSTYLE
    textHeight  // drawing units; TEXTSIZE
};

// The objects selected in this drawing; none while PICKFIRST is off.
KXGUI_EXPORT std::vector<OdDbObjectId> pickedObjects(const OdDbDatabase& database);

struct CommonValue {
    bool known = false;   // one of the objects at least has the property
    bool varies = false;  // they don't agree ("*varies*")
    tv::dwg::Value value; // of the first of them
};
// Objects without the property don't count. Reads no further than the first difference.
KXGUI_EXPORT CommonValue commonValue(const std::vector<OdDbObjectId>& objects, Property property);
// Whether one of the objects has the property; reads no further than that one.
KXGUI_EXPORT bool anyHasProperty(const std::vector<OdDbObjectId>& objects, Property property);
// What new objects get; unknown without a drawing or a host.
KXGUI_EXPORT CommonValue currentValue(const OdDbDatabasePtr& database, Property property);
// Of the picked objects or, when none of them has the property, the current one.
KXGUI_EXPORT CommonValue shownValue(const OdDbDatabasePtr& database, Property property);

// Changes it for the picked objects or, when none of them has the property, for new ones; one undo step of that
// name. Objects on locked layers, and what the drawing can't hold, stay as they are: then a problem says how
// many.
KXGUI_EXPORT tv::Problem changeProperty(const OdDbDatabasePtr& database, Property property,
                                        const tv::dwg::Value& value, std::wstring_view undoName);
// The same for these objects only.
KXGUI_EXPORT tv::Problem changeObjects(const std::vector<OdDbObjectId>& objects, Property property,
                                       const tv::dwg::Value& value, std::wstring_view undoName);

// Colours as values of Property::color and back; by layer for a value that is none.
KXGUI_EXPORT tv::dwg::Value colorValue(const OdCmColor& color);
KXGUI_EXPORT OdCmColor colorOfValue(const tv::dwg::Value& value);
// A name as a value.
KXGUI_EXPORT tv::dwg::Value nameValue(std::wstring_view name);
// Names compare without regard to letter case.
KXGUI_EXPORT bool sameValue(const tv::dwg::Value& a, const tv::dwg::Value& b);

// "*varies*" in the current language.
KXGUI_EXPORT std::wstring variesText();

} // namespace kx::controls
