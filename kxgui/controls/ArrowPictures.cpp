#include "kxgui/controls/ArrowPictures.h"

#include "platform/text/Unicode.h"
#include "platform/toolkit/Pictures.h"

#include <cmath>
#include <functional>
#include <numbers>

namespace kx::controls {
namespace {

using tv::ui::DisplayList;
using tv::ui::DrawItem;
using tv::ui::DrawPoint;

constexpr double width = 48, height = 16;
constexpr double left = 6, middle = height / 2, size = 12; // of an arrowhead of size 1, its tip at the left

// Draws in the arrowhead's own units: the tip at 0, the dimension line along the x axis.
class Pen {
  public:
    void line(std::vector<DrawPoint> points, double thickness = 1.2) {
        add(DrawItem::Shape::polyline, points, thickness);
    }
    void shape(std::vector<DrawPoint> points, bool filled) {
        add(DrawItem::Shape::polygon, points, 1.2).fill = filled ? tv::ui::inkColor : tv::ui::paperColor;
    }
    void circle(double x, double radius, bool filled) {
        DrawItem& item = add(DrawItem::Shape::circle, {{x, 0}}, 1.2);
        item.radius = radius * size;
        item.fill = filled ? tv::ui::inkColor : tv::ui::paperColor;
    }
    void box(double low, double high, bool filled) {
        const double half = (high - low) / 2;
        shape({{low, -half}, {high, -half}, {high, half}, {low, half}}, filled);
    }
    // The dimension line.
    void rest(double from) { line({{from, 0}, {(width - 2 - left) / size, 0}}); }
    DisplayList list{{0, 0}, {width, height}, {}, {}};

  private:
    DrawItem& add(DrawItem::Shape kind, const std::vector<DrawPoint>& points, double thickness) {
        DrawItem& item = list.items.emplace_back();
        item.shape = kind;
        for (const DrawPoint& p : points)
            item.points.push_back({left + p.x * size, middle + p.y * size});
        item.stroke = tv::ui::inkColor;
        item.width = thickness;
        return item;
    }
};

std::vector<DrawPoint> head(double slope) { return {{1, slope}, {0, 0}, {1, -slope}}; }

// An S lying at the dimension line's end.
std::vector<DrawPoint> integral() {
    std::vector<DrawPoint> points;
    for (int i = 0; i <= 16; ++i) {
        const double t = -1 + i / 8.0;
        points.push_back({0.45 + 0.28 * std::sin(t * std::numbers::pi / 2), 0.5 * t});
    }
    return points;
}

struct Head {
    const wchar_t* block;
    void (*draw)(Pen&);
};

constexpr double narrow = 1.0 / 6, tick = 0.4, round = 0.4, dot = 0.14;

constexpr Head heads[] = {
    {L"_ClosedFilled", [](Pen& p) { p.shape(head(narrow), true), p.rest(1); }},
    {L"_ClosedBlank", [](Pen& p) { p.shape(head(narrow), false), p.rest(1); }},
    {L"_Closed", [](Pen& p) { p.shape(head(narrow), false), p.rest(0); }},
    {L"_Dot", [](Pen& p) { p.circle(round, round, true), p.rest(2 * round); }},
    {L"_ArchTick",
     [](Pen& p) {
         p.line({{0, -tick}, {2 * tick, tick}}, 3), p.rest(tick);
     }},
    {L"_Oblique",
     [](Pen& p) {
         p.line({{0, -tick}, {2 * tick, tick}}), p.rest(tick);
     }},
    {L"_Open", [](Pen& p) { p.line(head(narrow)), p.rest(0); }},
    {L"_Origin", [](Pen& p) { p.circle(round, round, false), p.rest(round); }},
    {L"_Origin2",
     [](Pen& p) { p.circle(round, round, false), p.circle(round, round / 2, false), p.rest(2 * round); }},
    {L"_Open90",
     [](Pen& p) {
         p.line({{0.5, 0.5}, {0, 0}, {0.5, -0.5}}), p.rest(0);
     }},
    {L"_Open30", [](Pen& p) { p.line(head(0.268)), p.rest(0); }},
    {L"_DotSmall", [](Pen& p) { p.circle(dot, dot, true), p.rest(dot); }},
    {L"_DotBlank", [](Pen& p) { p.circle(round, round, false), p.rest(2 * round); }},
    {L"_Small", [](Pen& p) { p.circle(dot, dot, false), p.rest(2 * dot); }},
    {L"_BoxBlank", [](Pen& p) { p.box(0, 2 * round, false), p.rest(2 * round); }},
    {L"_BoxFilled", [](Pen& p) { p.box(0, 2 * round, true), p.rest(2 * round); }},
    {L"_DatumBlank",
     [](Pen& p) {
         p.shape({{0, 0.5}, {0, -0.5}, {0.87, 0}}, false), p.rest(0.87);
     }},
    {L"_DatumFilled",
     [](Pen& p) {
         p.shape({{0, 0.5}, {0, -0.5}, {0.87, 0}}, true), p.rest(0.87);
     }},
    {L"_Integral", [](Pen& p) { p.line(integral()), p.rest(0.45); }},
    {L"_None", [](Pen& p) { p.rest(0); }},
};

} // namespace

tv::ui::Picture arrowPicture(std::wstring_view block) {
    for (const Head& head : heads)
        if (tv::text::equalNoCase(head.block, block))
            return tv::ui::namedPicture("arrow:" + tv::text::toUtf8(head.block), [&] {
                Pen pen;
                head.draw(pen);
                return std::move(pen.list);
            });
    return nullptr;
}

} // namespace kx::controls
