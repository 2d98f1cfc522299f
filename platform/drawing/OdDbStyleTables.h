#pragma once

#include "platform/Export.h"
#include "platform/drawing/Geometry.h"
#include "platform/drawing/OdDbSymbolTable.h"
#include "platform/drawing/Value.h"

#include <optional>
#include <span>
#include <vector>

// Linetypes, text styles, dimension styles, views and viewports.

class KXPLATFORM_EXPORT OdDbLinetypeTableRecord : public OdDbSymbolTableRecord {
  public:
    using OdDbSymbolTableRecord::OdDbSymbolTableRecord;
    OdString comments() const { return textAt(3); }
    Tavo::ErrorStatus setComments(std::wstring_view text) { return setAt(3, OdString(text), {70}); }
    // In drawing units; 0 for a continuous line.
    double patternLength() const { return realAt(40); }
    // Dashes positive, gaps negative, dots 0, in drawing units.
    std::vector<double> dashes() const;
};
class KXPLATFORM_EXPORT OdDbLinetypeTable : public OdDbSymbolTable {
  public:
    using OdDbSymbolTable::OdDbSymbolTable;
};

class KXPLATFORM_EXPORT OdDbTextStyleTableRecord : public OdDbSymbolTableRecord {
  public:
    using OdDbSymbolTableRecord::OdDbSymbolTableRecord;
    // A font file's name, and the big font's beside it.
    OdString fileName() const { return textAt(3); }
    Tavo::ErrorStatus setFileName(std::wstring_view name) { return setAt(3, OdString(name), {42}); }
    OdString bigFontFileName() const { return textAt(4); }
    Tavo::ErrorStatus setBigFontFileName(std::wstring_view name) { return setAt(4, OdString(name), {3}); }
    // Drawing units; 0 when the text says its own height.
    double textSize() const { return realAt(40); }
    Tavo::ErrorStatus setTextSize(double size) { return setAt(40, size, {70}); }
    double xScale() const { return realAt(41, 1); }
    Tavo::ErrorStatus setXScale(double scale) { return setAt(41, scale, {40}); }
    // Radians; the file holds degrees.
    double obliquingAngle() const;
    Tavo::ErrorStatus setObliquingAngle(double radians);
    bool isShapeFile() const { return (flags() & 1) != 0; }
    bool isVertical() const { return (flags() & 4) != 0; }
    bool isBackwards() const { return (integerAt(71) & 2) != 0; }
    bool isUpsideDown() const { return (integerAt(71) & 4) != 0; }

    // A TrueType face, kept as extended data; an empty typeface when the style uses a font file.
    struct Font {
        OdString typeface;
        bool bold = false;
        bool italic = false;
    };
    Font font() const;
};
class KXPLATFORM_EXPORT OdDbTextStyleTable : public OdDbSymbolTable {
  public:
    using OdDbSymbolTable::OdDbSymbolTable;
};

class KXPLATFORM_EXPORT OdDbDimStyleTableRecord : public OdDbSymbolTableRecord {
  public:
    using OdDbSymbolTableRecord::OdDbSymbolTableRecord;
    struct Variable {
        const char* name; // "DIMASZ"
        int code;         // its group code in the record
    };
    static std::span<const Variable> variables();
    // The value of a dimension variable; nothing when the style leaves it at its default or the name is none.
    // Arrow blocks, text style and linetypes are handles.
    std::optional<tv::dwg::Value> variable(std::wstring_view name) const;
    // eKeyNotFound for a name that is no dimension variable.
    Tavo::ErrorStatus setVariable(std::wstring_view name, const tv::dwg::Value& value);
};
class KXPLATFORM_EXPORT OdDbDimStyleTable : public OdDbSymbolTable {
  public:
    using OdDbSymbolTable::OdDbSymbolTable;
};

// What a saved view and a viewport of model space have in common. Lengths are drawing units of the view's
// plane.
class KXPLATFORM_EXPORT OdDbAbstractViewTableRecord : public OdDbSymbolTableRecord {
  public:
    using OdDbSymbolTableRecord::OdDbSymbolTableRecord;
    virtual OdGePoint2d centerPoint() const = 0;
    virtual double height() const { return realAt(40); }
    virtual double width() const = 0;
};
class KXPLATFORM_EXPORT OdDbViewTableRecord : public OdDbAbstractViewTableRecord {
  public:
    using OdDbAbstractViewTableRecord::OdDbAbstractViewTableRecord;
    OdGePoint2d centerPoint() const override { return {realAt(10), realAt(20)}; }
    double width() const override { return realAt(41); }
};
class KXPLATFORM_EXPORT OdDbViewTable : public OdDbSymbolTable {
  public:
    using OdDbSymbolTable::OdDbSymbolTable;
};
class KXPLATFORM_EXPORT OdDbViewportTableRecord : public OdDbAbstractViewTableRecord {
  public:
    using OdDbAbstractViewTableRecord::OdDbAbstractViewTableRecord;
    OdGePoint2d centerPoint() const override { return {realAt(12), realAt(22)}; }
    double width() const override { return height() * realAt(41, 1); }
};
class KXPLATFORM_EXPORT OdDbViewportTable : public OdDbSymbolTable {
  public:
    using OdDbSymbolTable::OdDbSymbolTable;
};
