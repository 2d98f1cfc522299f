#pragma once

#include "platform/text/OdString.h"

#include <vector>

// The fonts that texts of a drawing can have here.
class TavoFonts {
  public:
    struct Style {
        OdString name; // as the font calls it: "Bold Italic"
        bool bold = false, italic = false;
    };

    virtual ~TavoFonts() = default;

    // Families of TrueType and OpenType fonts by the name a drawing stores, each once, in no order. Fonts that
    // can't be used are left out.
    virtual std::vector<OdString> families() const = 0;
    // The styles a family really has, upright before slanted and light before heavy; none for an unknown one.
    virtual std::vector<Style> styles(const OdString& family) const = 0;
    // The names of the files of stroked fonts on the search path ("romans.shx"), each once, in no order.
    virtual std::vector<OdString> shapeFonts() const = 0;
};
