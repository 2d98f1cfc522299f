#pragma once

#include "platform/Export.h"
#include "platform/drawing/DimVariables.h"
#include "platform/drawing/OdDbSymbolTable.h"
#include "platform/drawing/Value.h"

#include <optional>
#include <span>

class KXPLATFORM_EXPORT OdDbDimStyleTableRecord : public OdDbSymbolTableRecord {
  public:
    using OdDbSymbolTableRecord::OdDbSymbolTableRecord;
    using Variable = tv::dwg::DimVariable;

    static std::span<const Variable> variables() { return tv::dwg::dimVariables(); }
    // The value of a dimension variable; nothing when the style leaves it at its default or the name is none.
    // Text style, arrow blocks and linetypes are handles, arrow blocks before R2000 names; angles are radians.
    std::optional<tv::dwg::Value> variable(std::wstring_view name) const;
    std::optional<tv::dwg::Value> variable(const Variable& variable) const;
    // eKeyNotFound for a name that is no dimension variable, or for a reference given by a name the drawing
    // lacks; eNotHandled for a variable the drawing's version has no place for.
    Tavo::ErrorStatus setVariable(std::wstring_view name, const tv::dwg::Value& value);
    Tavo::ErrorStatus setVariable(const Variable& variable, const tv::dwg::Value& value);
    // Leaves the variable at its default.
    Tavo::ErrorStatus removeVariable(std::wstring_view name);

    // Everything but the name from another style, of this drawing or another one; references are found by name.
    // Answers as setDimStyleData does.
    Tavo::ErrorStatus copyFrom(const OdDbDimStyleTableRecord& other);

    bool annotative() const { return annotativeFlag(); }
    Tavo::ErrorStatus setAnnotative(bool annotative) { return setAnnotativeFlag(annotative); }

    // Styles for single kinds of dimensions are named after their parent ("ISO-25$0" for linear ones) and are
    // renamed with it.
    Tavo::ErrorStatus setName(std::wstring_view name) override;

    // Whether the drawing's version names arrow blocks instead of giving their handles.
    static bool namesBlocks(const OdDbDatabase& database);
};
using OdDbDimStyleTableRecordPtr = std::shared_ptr<OdDbDimStyleTableRecord>;

class KXPLATFORM_EXPORT OdDbDimStyleTable : public OdDbSymbolTable {
  public:
    using OdDbSymbolTable::OdDbSymbolTable;
};
