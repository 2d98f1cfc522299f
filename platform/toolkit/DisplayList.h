#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tv::ui {

struct DrawPoint {
    double x = 0, y = 0;
};

// Colours a face takes from its own theme, where 0xRRGGBB names one.
constexpr std::uint32_t inkColor = 0xFF000000;   // of texts
constexpr std::uint32_t paperColor = 0xFE000000; // behind texts
constexpr std::uint32_t frameColor = 0xFD000000; // of thin frames

// One drawn thing, in drawing units with y upwards.
struct DrawItem {
    enum class Shape { polyline, polygon, circle, text } shape = Shape::polyline;
    std::vector<DrawPoint> points; // circle: the centre; text: the start of its base line
    double radius = 0;             // circle; text: its height
    std::wstring text;
    std::optional<std::uint32_t> stroke, fill; // stroke unset: the window's text colour for lines
    double width = 1;                          // logical pixels
    std::wstring family;                       // text: of the font; empty: the window's
    bool bold = false, italic = false;
};

// What a preview shows: a face paints it, scaled to fit with the aspect ratio kept.
struct DisplayList {
    DrawPoint low, high; // the part of the drawing that is shown
    std::vector<DrawItem> items;
    std::optional<std::uint32_t> background;
};

// What stands before an item's text: a display list whose units are logical pixels, shown in its own size (high
// - low). Null: none. Pictures are told apart by their address; the makers in Pictures.h give equal pictures
// one.
using Picture = std::shared_ptr<const DisplayList>;

} // namespace tv::ui
