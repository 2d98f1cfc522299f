#include "kxgui/layers/LayerFilterIcons.h"

#include "platform/toolkit/Pictures.h"

#include <string>

using tv::ui::DisplayList;
using tv::ui::DrawItem;
using tv::ui::DrawPoint;

namespace kx::layers {
namespace {

using Kind = LayerFilterTree::Kind;
using Points = std::vector<DrawPoint>;

void draw(DisplayList& to, DrawItem::Shape shape, Points points, std::optional<std::uint32_t> fill = {}) {
    DrawItem& item = to.items.emplace_back();
    item.shape = shape;
    item.points = std::move(points);
    item.stroke = tv::ui::inkColor;
    item.fill = fill;
    item.width = 1.1;
}

void line(DisplayList& to, Points points) { draw(to, DrawItem::Shape::polyline, std::move(points)); }
void shape(DisplayList& to, Points points, std::uint32_t fill = tv::ui::paperColor) {
    draw(to, DrawItem::Shape::polygon, std::move(points), fill);
}

// A sheet lying flat, its middle at that height.
void sheet(DisplayList& to, double y, std::uint32_t fill = tv::ui::paperColor) {
    shape(to, {{2, y}, {8, y + 3.5}, {14, y}, {8, y - 3.5}}, fill);
}

void sheets(DisplayList& to, std::uint32_t top) {
    sheet(to, 5);
    sheet(to, 8);
    sheet(to, 11, top);
}

void funnel(DisplayList& to, std::uint32_t fill) {
    shape(to, {{2, 14}, {14, 14}, {9.5, 8.5}, {9.5, 2.5}, {6.5, 4}, {6.5, 8.5}}, fill);
}

void folder(DisplayList& to) {
    shape(to, {{2, 3}, {14, 3}, {14, 11.5}, {8, 11.5}, {6.5, 13.5}, {2, 13.5}});
    line(to, {{4.5, 8.5}, {11.5, 8.5}});
    line(to, {{4.5, 5.8}, {11.5, 5.8}});
}

// A drawing sheet with an arrow that leads to another one.
void reference(DisplayList& to, bool several) {
    if (several) shape(to, {{5, 5}, {14, 5}, {14, 15}, {5, 15}});
    const double x = several ? 2 : 3, y = several ? 1.5 : 2;
    shape(to, {{x, y}, {x + 9, y}, {x + 9, y + 10.5}, {x, y + 10.5}});
    line(to, {{x + 2, y + 3}, {x + 6.5, y + 7.5}});
    line(to, {{x + 3, y + 7.5}, {x + 6.5, y + 7.5}, {x + 6.5, y + 4}});
}

DisplayList picture(Kind kind, bool faulty) {
    DisplayList out{{0, 0}, {16, 16}, {}, {}};
    switch (kind) {
    case Kind::all:
        sheets(out, tv::ui::paperColor);
        break;
    case Kind::used:
        sheets(out, tv::ui::inkColor);
        break;
    case Kind::xrefs:
    case Kind::xref:
        reference(out, kind == Kind::xrefs);
        break;
    case Kind::property:
        funnel(out, tv::ui::paperColor);
        break;
    case Kind::old:
        funnel(out, tv::ui::paperColor);
        line(out, {{4, 11.5}, {12, 11.5}});
        break;
    case Kind::group:
        folder(out);
        break;
    }
    if (faulty) {
        shape(out, {{8.5, 1}, {15.5, 1}, {12, 8}}, 0xE8A200);
        line(out, {{12, 5.6}, {12, 3.6}});
        line(out, {{12, 2.6}, {12, 2.1}});
    }
    return out;
}

} // namespace

tv::ui::Picture filterIcon(Kind kind, bool faulty) {
    const std::string name =
        "layerfilter:" + std::to_string(static_cast<int>(kind)) + (faulty ? ":faulty" : "");
    return tv::ui::namedPicture(name, [&] { return picture(kind, faulty); });
}

} // namespace kx::layers
