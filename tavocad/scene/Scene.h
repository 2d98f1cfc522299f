#pragma once

#include "platform/drawing/Geometry.h"

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

// What the drawing area paints: a drawing's model space, flattened into plain vectors in drawing units, y
// upwards.
namespace tv::scene {

struct Box {
    double left = std::numeric_limits<double>::max(), bottom = left;
    double right = std::numeric_limits<double>::lowest(), top = right;

    bool empty() const { return left > right; }
    void add(OdGePoint2d p) {
        if (p.x < left) left = p.x;
        if (p.x > right) right = p.x;
        if (p.y < bottom) bottom = p.y;
        if (p.y > top) top = p.y;
    }
    void add(const Box& box) {
        if (box.empty()) return;
        add(OdGePoint2d{box.left, box.bottom});
        add(OdGePoint2d{box.right, box.top});
    }
    bool meets(const Box& other) const {
        return left <= other.right && other.left <= right && bottom <= other.top && other.bottom <= top;
    }
};

// A colour to paint with. `foreground` stands for the colour that is white on a dark background and black on a
// light one.
struct Paint {
    std::uint32_t rgb = 0; // 0xRRGGBB
    bool foreground = false;
    friend bool operator==(const Paint&, const Paint&) = default;
};

// A polyline: points[first .. first + count).
struct Path {
    std::size_t first = 0, count = 0;
    Paint paint;
    bool filled = false;
    Box box;
};

struct Text {
    std::wstring text; // lines separated by '\n'
    OdGePoint2d at;    // where `horizontal` and `vertical` say
    double height = 0; // of capital letters
    double angle = 0;  // radians
    double widthFactor = 1;
    enum class Horizontal { left, center, right } horizontal = Horizontal::left;
    enum class Vertical { baseline, bottom, middle, top } vertical = Vertical::baseline;
    Paint paint;
    Box box; // an estimate
};

struct Mark {
    OdGePoint2d at;
    Paint paint;
};

struct Scene {
    std::vector<OdGePoint2d> points;
    std::vector<Path> paths;
    std::vector<Text> texts;
    std::vector<Mark> marks; // POINT entities
    Box box;                 // of everything
    // The boxes of every `chunk` successive paths, so that a view into a large drawing skips most of it.
    static constexpr std::size_t chunk = 256;
    std::vector<Box> chunks;
    std::size_t entities = 0; // drawn ones, those inside of blocks once per insert

    void finish(); // computes chunks and box
};

} // namespace tv::scene
