#pragma once

#include "platform/Export.h"
#include "platform/drawing/OdDb.h"
#include "platform/drawing/OdDbObject.h"
#include "platform/drawing/Value.h"

#include <optional>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

class OdDbDimStyleTableRecord;

namespace tv::dwg {

// What the file format says about a dimension variable. A dimension finds its value in its own overrides, else
// in its dimension style, else it is the default.
struct DimVariable {
    enum Type : std::uint8_t { kInteger, kReal, kText, kTextStyle, kBlock, kLinetype };
    const char* name; // "DIMASZ"
    int code;         // its group code in a style's record and its number in overrides
    Type type;        // the last three refer to a record of that table
    double number;    // its default, as in a style that says nothing
    const char* text;
    OdDb::DxfVersion first = OdDb::DxfVersion::kR10; // the versions whose styles hold it as a tag of their own
    OdDb::DxfVersion last = OdDb::DxfVersion::kR2018;
    // Where else it is kept: the application's name and the number before the value. Older versions keep the
    // newer variables so, and some variables have no other place in any version.
    const char* application = nullptr;
    int applicationCode = 0;

    bool isReference() const { return type >= kTextStyle; }
    // A whole number, a real, a text, or the name of the record referred to.
    KXPLATFORM_EXPORT Value defaultValue() const;
};

// Every dimension variable, in the order of the group codes.
KXPLATFORM_EXPORT std::span<const DimVariable> dimVariables();
// Null for a name that is none; with or without dollar sign, ignoring case.
KXPLATFORM_EXPORT const DimVariable* dimVariable(std::wstring_view name);

// A reference as a name: of a handle the name of its record (empty for a null or dangling one), of an arrow
// that programs bring along its name without the leading underscore; by block is empty for a linetype. Other
// values stay as they are.
KXPLATFORM_EXPORT Value dimReferenceName(const OdDbDatabase& database, const DimVariable& variable,
                                         const Value& value);
// The other way round; nothing when the drawing lacks the record. An empty name is a null handle.
KXPLATFORM_EXPORT std::optional<OdDbHandle> dimReference(const OdDbDatabase& database,
                                                         const DimVariable& variable, std::wstring_view name);

// --- all variables at once ---

// The values of all variables in the order of dimVariables(), references by name, angles in radians.
struct DimStyleData {
    std::vector<Value> values;
    // Empty for a name that is no dimension variable.
    KXPLATFORM_EXPORT Value value(std::wstring_view name) const;
};
// Of a style; what it leaves out has its default.
KXPLATFORM_EXPORT DimStyleData dimStyleData(const OdDbDimStyleTableRecord& style);
// What the drawing's header variables say; what it lacks there is taken from its current style.
KXPLATFORM_EXPORT DimStyleData dimStyleDataOfDrawing(const OdDbDatabase& database);
// The variables that differ: names without regard to case, reals by more than their last digits.
KXPLATFORM_EXPORT std::vector<const DimVariable*> dimDifferences(const DimStyleData& a, const DimStyleData& b);
// Gives the style those values in one undo step. What it holds already, as a value or by leaving it out, isn't
// touched. eKeyNotFound for a name the drawing lacks, eNotHandled for a value its version can't hold: then
// everything else is set.
KXPLATFORM_EXPORT Tavo::ErrorStatus setDimStyleData(OdDbDimStyleTableRecord& style, const DimStyleData& data);

// --- the overrides of one dimension, leader or tolerance ---

using DimOverride = std::pair<const DimVariable*, Value>;
// In the order they stand; numbers that are no dimension variable are left out. References are handles, block
// names in drawings before R2000.
KXPLATFORM_EXPORT std::vector<DimOverride> dimOverrides(const OdDbObject& object);
KXPLATFORM_EXPORT std::optional<Value> dimOverride(const OdDbObject& object, std::wstring_view name);
// References are given as names or handles. eKeyNotFound for a name that is no dimension variable or a
// reference the drawing lacks, eWrongType for a value of another type.
KXPLATFORM_EXPORT Tavo::ErrorStatus setDimOverride(OdDbObject& object, std::wstring_view name,
                                                   const Value& value);
// eOk also when there is none.
KXPLATFORM_EXPORT Tavo::ErrorStatus removeDimOverride(OdDbObject& object, std::wstring_view name);
KXPLATFORM_EXPORT Tavo::ErrorStatus removeDimOverrides(OdDbObject& object);
// The style the object names; null when the drawing lacks it.
KXPLATFORM_EXPORT OdDbObjectId dimStyleOf(const OdDbObject& object);
// What counts for the object: its override, else its style's value, else the default. References by name.
KXPLATFORM_EXPORT Value effectiveDimVariable(const OdDbObject& object, std::wstring_view name);

} // namespace tv::dwg
