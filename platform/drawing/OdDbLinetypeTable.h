#pragma once

#include "platform/Export.h"
#include "platform/drawing/Geometry.h"
#include "platform/drawing/OdDbSymbolTable.h"

#include <span>
#include <vector>

class KXPLATFORM_EXPORT OdDbLinetypeTableRecord : public OdDbSymbolTableRecord {
  public:
    using OdDbSymbolTableRecord::OdDbSymbolTableRecord;

    // A piece of the pattern: a dash (positive), a gap (negative) or a dot (0), in drawing units, and what is
    // drawn at its end.
    struct Element {
        enum Kind : std::uint8_t { kPlain, kShape, kText };
        double length = 0;
        Kind kind = kPlain;
        int shapeNumber = 0;
        OdString text;
        OdDbHandle style; // the text style, or the one that loads the shape file
        double scale = 1;
        double rotation = 0; // radians, against the line or, when absolute, against the drawing
        bool absoluteRotation = false;
        OdGePoint2d offset;
        friend bool operator==(const Element&, const Element&) = default;
    };

    // The description, often drawn with dashes and dots.
    OdString comments() const { return textAt(3); }
    Tavo::ErrorStatus setComments(std::wstring_view text) { return setAt(3, OdString(text), {70}); }
    // In drawing units; 0 for a continuous line.
    double patternLength() const { return realAt(40); }
    // The alignment by which the last dash is stretched to end where the line does; others end as they come.
    bool isScaledToFit() const { return integerAt(72, 'A') == 'S'; }
    Tavo::ErrorStatus setIsScaledToFit(bool fit) { return setAt(72, std::int64_t{fit ? 'S' : 'A'}, {3}); }

    std::vector<Element> pattern() const;
    // Replaces the whole pattern with its length and count. eNotHandled for shapes and texts in a drawing older
    // than R13, eInvalidInput for more than 12 elements, a length that isn't finite, a text or shape without
    // style.
    Tavo::ErrorStatus setPattern(std::span<const Element> elements);
    // The lengths of the elements alone.
    std::vector<double> dashes() const;
};
using OdDbLinetypeTableRecordPtr = std::shared_ptr<OdDbLinetypeTableRecord>;

class KXPLATFORM_EXPORT OdDbLinetypeTable : public OdDbSymbolTable {
  public:
    using OdDbSymbolTable::OdDbSymbolTable;
};
