#pragma once

#include "platform/Export.h"
#include "platform/drawing/OdDbSymbolTable.h"

class KXPLATFORM_EXPORT OdDbTextStyleTableRecord : public OdDbSymbolTableRecord {
  public:
    using OdDbSymbolTableRecord::OdDbSymbolTableRecord;

    // A font file's name, and the big font's beside it.
    OdString fileName() const { return textAt(3); }
    Tavo::ErrorStatus setFileName(std::wstring_view name) { return setAt(3, OdString(name), {42}); }
    OdString bigFontFileName() const { return textAt(4); }
    Tavo::ErrorStatus setBigFontFileName(std::wstring_view name) { return setAt(4, OdString(name), {3}); }

    // A TrueType face, kept as extended data; an empty typeface when the style uses a font file.
    struct Font {
        OdString typeface;
        bool bold = false;
        bool italic = false;
        int charset = 0;        // 0..255
        int pitchAndFamily = 0; // 0..255
        friend bool operator==(const Font&, const Font&) = default;
    };
    Font font() const;
    // An empty typeface takes the face away. The file name stays; it is what programs without the face use.
    Tavo::ErrorStatus setFont(const Font& font);

    // Drawing units; 0 when the text says its own height.
    double textSize() const { return realAt(40); }
    Tavo::ErrorStatus setTextSize(double size) { return setAt(40, size, {70}); }
    // The height a text of the style was given last.
    double priorSize() const { return realAt(42); }
    Tavo::ErrorStatus setPriorSize(double size) { return setAt(42, size, {71}); }
    double xScale() const { return realAt(41, 1); }
    Tavo::ErrorStatus setXScale(double scale) { return setAt(41, scale, {40}); }
    // Radians; the file holds degrees.
    double obliquingAngle() const;
    Tavo::ErrorStatus setObliquingAngle(double radians);

    // Not a style for texts but a file of shapes; such records have no name of their own.
    bool isShapeFile() const { return (flags() & 1) != 0; }
    Tavo::ErrorStatus setIsShapeFile(bool shapes) { return setFlag(1, shapes); }
    bool isVertical() const { return (flags() & 4) != 0; }
    Tavo::ErrorStatus setIsVertical(bool vertical) { return setFlag(4, vertical); }
    bool isBackwards() const { return (integerAt(71) & 2) != 0; }
    Tavo::ErrorStatus setIsBackwards(bool backwards) { return setGeneration(2, backwards); }
    bool isUpsideDown() const { return (integerAt(71) & 4) != 0; }
    Tavo::ErrorStatus setIsUpsideDown(bool upsideDown) { return setGeneration(4, upsideDown); }

    bool annotative() const { return annotativeFlag(); }
    Tavo::ErrorStatus setAnnotative(bool annotative) { return setAnnotativeFlag(annotative); }
    // Of an annotative style: its texts turn with the layout.
    bool paperOrientation() const { return paperOrientationFlag(); }
    Tavo::ErrorStatus setPaperOrientation(bool matches) { return setPaperOrientationFlag(matches); }

  private:
    Tavo::ErrorStatus setGeneration(int bit, bool on);
};
using OdDbTextStyleTableRecordPtr = std::shared_ptr<OdDbTextStyleTableRecord>;

class KXPLATFORM_EXPORT OdDbTextStyleTable : public OdDbSymbolTable {
  public:
    using OdDbSymbolTable::OdDbSymbolTable;
};
