#pragma once

#include "platform/drawing/Geometry.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tv::scene {

// Pixels somebody else owns, 0xffRRGGBB each, rows from the top.
struct Canvas {
    std::uint32_t* pixels = nullptr;
    int width = 0, height = 0;
    std::size_t stride = 0; // pixels from row to row
};

// Lines one pixel wide, not smoothed, painted from the topmost down: a pixel keeps what reached it first. Where
// a region is covered already, further lines pass over it in steps of 8 and 64 pixels, so that what a million
// lines cost depends on the size of the picture more than on their length.
class LineRaster {
  public:
    explicit LineRaster(const Canvas& canvas);

    // What follows lies above everything before.
    void nextLayer();
    void line(OdGePoint2d a, OdGePoint2d b, std::uint32_t color);
    void dot(OdGePoint2d at, std::uint32_t color);
    // Whether nothing within can be seen any more.
    bool covered(double left, double top, double right, double bottom) const;

  private:
    template <bool steep>
    void run(int from, int to, std::int32_t minor, std::int32_t slope, std::uint32_t color);
    void set(int x, int y, std::uint32_t color);
    bool tileFull(int x, int y) const { return m_tiles[tileOf(x, y)] == ~std::uint64_t{0}; }
    bool blockFull(int x, int y) const { return m_blocks[blockOf(x, y)] == 64; }
    std::size_t tileOf(int x, int y) const {
        return static_cast<std::size_t>(y >> 3) * m_tilesAcross + static_cast<std::size_t>(x >> 3);
    }
    std::size_t blockOf(int x, int y) const {
        return static_cast<std::size_t>(y >> 6) * (m_tilesAcross >> 3) + static_cast<std::size_t>(x >> 6);
    }

    Canvas m_canvas;
    std::size_t m_tilesAcross = 0;        // a multiple of 8
    std::vector<std::uint64_t> m_tiles;   // a bit for every pixel of 8 x 8: covered, or outside of the canvas
    std::vector<std::uint8_t> m_blocks;   // how many of 8 x 8 tiles are all covered
    std::vector<std::uint64_t> m_noTiles; // as they are before anything is painted
    std::vector<std::uint8_t> m_noBlocks;
    bool m_fresh = true;
};

} // namespace tv::scene
