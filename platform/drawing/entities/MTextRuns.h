#pragma once

#include "platform/Export.h"
#include "platform/drawing/OdCmColor.h"
#include "platform/text/OdString.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

// Multiline text taken apart: what it says, how each piece is formatted, and where in the contents it stands.
// Contents are what OdDbMText::contents() gives; any text is contents, for what is no code is read as text.
namespace tv::dwg {

struct MTextParagraph {
    enum Alignment : std::uint8_t { kDefault, kLeft, kRight, kCentered, kJustified, kDistributed };
    double firstIndent = 0, leftIndent = 0, rightIndent = 0; // drawing units times text height
    Alignment alignment = kDefault;
    OdString tabs; // the stops as the contents list them
    friend bool operator==(const MTextParagraph&, const MTextParagraph&) = default;
};

struct MTextFont {
    OdString name; // a typeface, or a font file's name
    bool isFile = false;
    bool bold = false, italic = false;
    int codePage = 0; // character set number of the typeface
    int pitch = 0;
    friend bool operator==(const MTextFont&, const MTextFont&) = default;
};

// Formatting a piece of text asks for. What is unset is the text's own: its style's or the entity's.
struct MTextFormat {
    std::optional<MTextFont> font;
    std::optional<double> height; // drawing units
    double heightFactor = 1;      // on that height, or on the text's own
    std::optional<double> widthFactor;
    std::optional<double> oblique; // radians
    std::optional<double> tracking;
    std::optional<OdCmColor> color;
    bool underline = false, overline = false, strikeThrough = false;
    int alignment = 0; // to the line: 0 bottom, 1 centre, 2 top
    MTextParagraph paragraph;
    friend bool operator==(const MTextFormat&, const MTextFormat&) = default;
};

struct MTextRun {
    enum Kind : std::uint8_t {
        kText,
        kStack,        // text above lower, parted as `stack` says
        kNewParagraph, // text "\n"
        kNewColumn,    // text "\n"
        kTab,          // text "\t"
    };
    Kind kind = kText;
    OdString text;
    OdString lower;                            // of a stack
    wchar_t stack = 0;                         // '/' a bar between, '#' a slanting one, '^' none (a tolerance)
    std::size_t begin = 0, end = 0;            // the run's source in the contents
    std::shared_ptr<const MTextFormat> format; // never null; runs formatted alike share one
};

// In order. Runs end where the formatting changes.
KXPLATFORM_EXPORT std::vector<MTextRun> mtextRuns(std::wstring_view contents);

// What the text says: lines parted by '\n', stacks as "upper/lower".
KXPLATFORM_EXPORT OdString plainText(const std::vector<MTextRun>& runs);
KXPLATFORM_EXPORT OdString plainText(std::wstring_view contents);

// The contents with the characters [begin, end) of their plain text replaced by `text`, which is taken
// literally. Codes within the range are kept; text replacing several formats takes the first one's. Beyond the
// plain text's end the text is appended. A stack wholly inside the range goes with it; of one partly inside,
// the sign between its halves stays.
KXPLATFORM_EXPORT OdString replaceInContents(std::wstring_view contents, std::size_t begin, std::size_t end,
                                             std::wstring_view text);

// Plain text as contents: what would be read as codes is escaped, line breaks become new paragraphs.
KXPLATFORM_EXPORT OdString contentsOf(std::wstring_view plain);

} // namespace tv::dwg
