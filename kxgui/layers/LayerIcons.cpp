#include "kxgui/layers/LayerIcons.h"

#include "platform/toolkit/Pictures.h"

#include <cmath>
#include <numbers>

using tv::ui::DisplayList;
using tv::ui::DrawItem;
using tv::ui::DrawPoint;
using tv::ui::inkColor;
using tv::ui::Picture;

namespace kx::layers {
namespace {

using Shape = DrawItem::Shape;

constexpr double side = 16;
constexpr std::uint32_t lit = 0xF2B705, shade = 0x8A94A6, unlit = inkColor, cold = 0x2E9BE8, brass = 0xD9902F,
                        right = 0x2E9E4F, wrong = 0xD9483B;

Picture picture(const char* name, bool state, void (*draw)(DisplayList&, bool)) {
    return tv::ui::namedPicture(std::string("layerGrid:") + name + (state ? "1" : "0"), [&] {
        DisplayList out{{0, 0}, {side, side}, {}, {}};
        draw(out, state);
        return out;
    });
}

void line(DisplayList& out, std::vector<DrawPoint> points, std::uint32_t stroke, double width = 1.2) {
    DrawItem item;
    item.points = std::move(points);
    item.stroke = stroke;
    item.width = width;
    out.items.push_back(std::move(item));
}

void polygon(DisplayList& out, std::vector<DrawPoint> points, std::optional<std::uint32_t> fill,
             std::optional<std::uint32_t> stroke = std::nullopt) {
    DrawItem item;
    item.shape = Shape::polygon;
    item.points = std::move(points);
    item.fill = fill;
    item.stroke = stroke;
    out.items.push_back(std::move(item));
}

void box(DisplayList& out, double left, double low, double right, double high,
         std::optional<std::uint32_t> fill, std::optional<std::uint32_t> stroke = std::nullopt) {
    polygon(out, {{left, low}, {right, low}, {right, high}, {left, high}}, fill, stroke);
}

void disc(DisplayList& out, DrawPoint centre, double radius, std::optional<std::uint32_t> fill,
          std::optional<std::uint32_t> stroke = std::nullopt) {
    DrawItem item;
    item.shape = Shape::circle;
    item.points = {centre};
    item.radius = radius;
    item.fill = fill;
    item.stroke = stroke;
    out.items.push_back(std::move(item));
}

DrawPoint from(DrawPoint centre, double distance, double angle) {
    return {centre.x + distance * std::cos(angle), centre.y + distance * std::sin(angle)};
}

// One line to and fro, as every line of a picture costs when thousands are painted. What lies over its centre
// hides where the rays meet.
void rays(DisplayList& out, DrawPoint centre, double length, int count, double turned, std::uint32_t color,
          double width) {
    std::vector<DrawPoint> way{centre};
    for (int i = 0; i < count; ++i) {
        way.push_back(from(centre, length, (i + turned) * 2 * std::numbers::pi / count));
        way.push_back(centre);
    }
    line(out, std::move(way), color, width);
}

void slash(DisplayList& out) { line(out, {{2.5, 2.5}, {13.5, 13.5}}, wrong, 1.6); }

void drawStatus(DisplayList& out, LayerStatus status) {
    switch (status) {
    case LayerStatus::current:
        line(out, {{2.5, 8}, {6.5, 3.5}, {13.5, 12.5}}, right, 2.4);
        break;
    case LayerStatus::xref: // two links of a chain
        line(out, {{9, 8}, {6, 8}, {4.5, 6.5}, {4.5, 5}, {6, 3.5}, {9, 3.5}, {10.5, 5}, {10.5, 6.5}, {9, 8}},
             inkColor, 1.4);
        line(out,
             {{7, 8}, {10, 8}, {11.5, 9.5}, {11.5, 11}, {10, 12.5}, {7, 12.5}, {5.5, 11}, {5.5, 9.5}, {7, 8}},
             inkColor, 1.4);
        break;
    case LayerStatus::plain: // a sheet
        polygon(out, {{2, 5}, {10, 5}, {14, 10.5}, {6, 10.5}}, std::nullopt, shade);
        break;
    }
}

void drawLamp(DisplayList& out, bool on) {
    disc(out, {8, 9.5}, 4.5, on ? std::optional(lit) : std::nullopt, on ? brass : unlit);
    box(out, 6, 1.5, 10, 4.5, on ? inkColor : unlit);
    if (!on) slash(out);
}

void drawSun(DisplayList& out, DrawPoint centre, double size) {
    rays(out, centre, size, 8, 0, lit, 1.2);
    disc(out, centre, size * 0.5, lit);
}

void drawCrystal(DisplayList& out, DrawPoint centre, double size) {
    std::vector<DrawPoint> way{centre};
    for (int i = 0; i < 6; ++i) {
        const double angle = i * std::numbers::pi / 3;
        const DrawPoint fork = from(centre, size * 0.55, angle);
        way.insert(way.end(), {fork, from(fork, size * 0.35, angle + 0.8), fork,
                               from(fork, size * 0.35, angle - 0.8), fork, from(centre, size, angle), centre});
    }
    line(out, std::move(way), cold, 1.2);
}

void drawFrozen(DisplayList& out, bool frozen) {
    if (frozen)
        drawCrystal(out, {8, 8}, 6.4);
    else
        drawSun(out, {8, 8}, 6.4);
}

void drawLock(DisplayList& out, bool locked) {
    const std::uint32_t color = locked ? brass : unlit;
    const double shift = locked ? 0 : 4; // an open shackle stands beside the body
    if (locked)
        box(out, 3.5, 2, 12.5, 8.5, color);
    else
        box(out, 2, 2, 10, 8.5, std::nullopt, color);
    const double l = (locked ? 5.3 : 3.8) + shift, r = (locked ? 10.7 : 9.2) + shift;
    line(out, {{l, 8.5}, {l, 11.5}, {l + 1.2, 13.5}, {r - 1.2, 13.5}, {r, 11.5}, {r, locked ? 8.5 : 10}}, color,
         locked ? 1.6 : 1.2);
}

void drawPlot(DisplayList& out, bool plot) {
    box(out, 4.5, 9.5, 11.5, 14, std::nullopt, inkColor);                          // the sheet going in
    box(out, 2, 5, 14, 9.5, plot ? std::optional(shade) : std::nullopt, inkColor); // the printer
    box(out, 4.5, 2, 11.5, 6, tv::ui::paperColor, inkColor);                       // the sheet coming out
    if (plot)
        line(out, {{6, 4}, {10, 4}}, inkColor, 1);
    else
        slash(out);
}

// Too small for branches.
void drawFramed(DisplayList& out, bool frozen, DrawPoint centre) {
    if (!frozen) return drawSun(out, centre, 4.4);
    rays(out, centre, 4.6, 6, 0.5, cold, 1.4);
}

void drawViewport(DisplayList& out, bool frozen) {
    box(out, 1.5, 2, 14.5, 14, std::nullopt, inkColor);
    drawFramed(out, frozen, {8, 8});
}

// The frame is open at the corner where a plus stands.
void drawNewViewport(DisplayList& out, bool frozen) {
    line(out, {{9, 14}, {1.5, 14}, {1.5, 2}, {14.5, 2}, {14.5, 8.5}}, inkColor, 1);
    line(out, {{10.5, 12.3}, {15.5, 12.3}}, right, 1.6);
    line(out, {{13, 9.8}, {13, 14.8}}, right, 1.6);
    drawFramed(out, frozen, {6.5, 7.3});
}

} // namespace

Picture statusIcon(LayerStatus status) {
    return tv::ui::namedPicture("layerGrid:status" + std::to_string(static_cast<int>(status)), [&] {
        DisplayList out{{0, 0}, {side, side}, {}, {}};
        drawStatus(out, status);
        return out;
    });
}

Picture lampIcon(bool on) { return picture("lamp", on, drawLamp); }
Picture frozenIcon(bool frozen) { return picture("frozen", frozen, drawFrozen); }
Picture lockIcon(bool locked) { return picture("lock", locked, drawLock); }
Picture plotIcon(bool plot) { return picture("plot", plot, drawPlot); }
Picture newViewportIcon(bool frozen) { return picture("newViewport", frozen, drawNewViewport); }
Picture viewportIcon(bool frozen) { return picture("viewport", frozen, drawViewport); }

} // namespace kx::layers
