#pragma once

#include "platform/Export.h"
#include "platform/drawing/AciPalette.h"

#include <cstdint>
#include <optional>

// A colour as entities, layers and variables have it: by layer, by block, one of the 255 indexed colours or
// 24-bit true colour. Two colours are equal when they are of the same kind and value.
class KXPLATFORM_EXPORT OdCmColor {
  public:
    enum ColorMethod : std::uint8_t { kByLayer = 0xC0, kByBlock = 0xC1, kByColor = 0xC2, kByACI = 0xC3 };
    static constexpr int kACIbyBlock = 0;
    static constexpr int kACIbyLayer = 256;

    OdCmColor() = default; // by layer
    static OdCmColor byIndex(int index);
    static OdCmColor byRgb(std::uint8_t red, std::uint8_t green, std::uint8_t blue);

    ColorMethod colorMethod() const { return m_method; }
    bool isByLayer() const { return m_method == kByLayer; }
    bool isByBlock() const { return m_method == kByBlock; }
    bool isByColor() const { return m_method == kByColor; }
    bool isByACI() const { return m_method == kByACI; }

    // 0 by block, 256 by layer, 1..255; of a true colour the nearest indexed one.
    int colorIndex() const;
    // What setRGB set, or what the palette has for the index; black for by layer and by block.
    std::uint8_t red() const { return rgb().red; }
    std::uint8_t green() const { return rgb().green; }
    std::uint8_t blue() const { return rgb().blue; }
    tv::dwg::Rgb rgb() const;

    // 0 and 256 make it by block and by layer; other values outside 1..255 are taken as 7.
    void setColorIndex(int index);
    void setRGB(std::uint8_t red, std::uint8_t green, std::uint8_t blue);

    // From the values of the group codes 62 (a negative one, of a layer switched off, counts without its sign)
    // and 420 (red in bits 16-23). The true colour wins where both are given.
    static OdCmColor fromDxf(std::optional<int> code62, std::optional<int> code420);
    int dxf62() const { return colorIndex(); }
    std::optional<int> dxf420() const;

    friend bool operator==(const OdCmColor&, const OdCmColor&) = default;

  private:
    ColorMethod m_method = kByLayer;
    std::uint8_t m_index = 0;
    tv::dwg::Rgb m_rgb;
};
