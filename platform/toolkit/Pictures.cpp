#include "platform/toolkit/Pictures.h"

#include "platform/text/Unicode.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <numbers>
#include <unordered_map>

namespace tv::ui {
namespace {

using Shape = DrawItem::Shape;

constexpr double side = 16, sampleWidth = 72, middle = side / 2;
constexpr double dotWidth = 1.4; // of a linetype's dot and of its line

// The pictures in use. What nobody shows any more is swept out when the list has doubled.
class PictureCache {
  public:
    Picture get(std::string_view name, const std::function<DisplayList()>& make) {
        auto& kept = m_pictures[std::string(name)];
        if (Picture known = kept.lock()) return known;
        auto made = std::make_shared<const DisplayList>(make());
        kept = made;
        if (m_pictures.size() > m_sweepAt) sweep();
        return made;
    }

  private:
    void sweep() {
        std::erase_if(m_pictures, [](const auto& entry) { return entry.second.expired(); });
        m_sweepAt = std::max<std::size_t>(256, m_pictures.size() * 2);
    }
    std::unordered_map<std::string, std::weak_ptr<const DisplayList>> m_pictures;
    std::size_t m_sweepAt = 256;
};

DisplayList canvas(double width) { return {{0, 0}, {width, side}, {}, {}}; }

DrawItem polygon(std::vector<DrawPoint> points, std::uint32_t fill) {
    DrawItem item;
    item.shape = Shape::polygon;
    item.points = std::move(points);
    item.fill = fill;
    return item;
}

DrawItem box(double left, double low, double right, double high, std::uint32_t fill) {
    return polygon({{left, low}, {right, low}, {right, high}, {left, high}}, fill);
}

DrawItem line(std::vector<DrawPoint> points, std::uint32_t stroke, double width = 1.2) {
    DrawItem item;
    item.points = std::move(points);
    item.stroke = stroke;
    item.width = width;
    return item;
}

DrawItem disc(DrawPoint centre, double radius, std::uint32_t fill) {
    DrawItem item;
    item.shape = Shape::circle;
    item.points = {centre};
    item.radius = radius;
    item.fill = fill;
    return item;
}

DrawItem square(double left, std::uint32_t rgb) {
    DrawItem item = box(left + 1.5, 1.5, left + 14.5, 14.5, rgb & 0xFFFFFF);
    item.stroke = frameColor;
    return item;
}

// The bytes of numbers as part of a name.
void addTo(std::string& name, double number) {
    char bytes[sizeof number];
    std::memcpy(bytes, &number, sizeof number);
    name.append(bytes, sizeof number);
}

DisplayList dashes(const std::vector<double>& lengths) {
    DisplayList out = canvas(sampleWidth);
    const double end = sampleWidth - 1;
    const auto piece = [&](double from, double to) {
        out.items.push_back(
            box(from, middle - dotWidth / 2, std::min(to, end), middle + dotWidth / 2, inkColor));
    };
    double length = 0;
    for (const double dash : lengths)
        length += std::abs(dash);
    // A unit of the drawing is 14 pixels; longer patterns shrink until they show twice, very short ones grow.
    constexpr double pixelsPerUnit = 14, shortest = 6;
    if (!std::isfinite(length) || !std::isfinite(shortest / length)) {
        piece(1, end);
        return out;
    }
    const double scale = std::max(std::min(end / (2 * length), pixelsPerUnit), shortest / length);
    for (double x = 1; x < end;)
        for (const double dash : lengths) {
            // Dots, and dashes too short to be seen as such.
            const double run = std::max(std::abs(dash) * scale, dash >= 0 ? dotWidth : 0.0);
            if (dash >= 0) piece(x, x + run);
            x += run;
            if (x >= end) break;
        }
    return out;
}

constexpr std::uint32_t lit = 0xF2B705, unlit = 0x8A94A6, cold = 0x2E9BE8, brass = 0xD9902F;

void addLamp(DisplayList& out, bool on) {
    out.items.push_back(disc({8, 9.5}, 4.5, on ? lit : unlit));
    out.items.push_back(box(6, 2, 10, 4.5, frameColor));
}

void addSun(DisplayList& out, double left) {
    const double x = left + 8;
    out.items.push_back(disc({x, middle}, 3, lit));
    for (int i = 0; i < 8; ++i) {
        const double c = std::cos(i * std::numbers::pi / 4), s = std::sin(i * std::numbers::pi / 4);
        out.items.push_back(line({{x + 4.5 * c, middle + 4.5 * s}, {x + 6.5 * c, middle + 6.5 * s}}, lit));
    }
}

void addCrystal(DisplayList& out, double left) {
    const double x = left + 8;
    for (int i = 0; i < 3; ++i) {
        const double c = std::cos((i + 0.5) * std::numbers::pi / 3),
                     s = std::sin((i + 0.5) * std::numbers::pi / 3);
        out.items.push_back(line({{x - 6 * c, middle - 6 * s}, {x + 6 * c, middle + 6 * s}}, cold, 1.4));
    }
}

void addLock(DisplayList& out, double left, bool locked) {
    const std::uint32_t color = locked ? brass : unlit;
    const double shift = locked ? 0 : 4; // an open shackle stands beside the body
    out.items.push_back(box(left + 4, 2.5, left + 12, 8.5, color));
    const double l = left + 5.5 + shift, r = left + 10.5 + shift;
    out.items.push_back(
        line({{l, 8.5}, {l, 11.5}, {l + 1, 13}, {r - 1, 13}, {r, 11.5}, {r, locked ? 8.5 : 10}}, color, 1.6));
}

} // namespace

Picture namedPicture(std::string_view name, const std::function<DisplayList()>& make) {
    static PictureCache cache;
    return cache.get(name, make);
}

Picture colorPicture(std::uint32_t rgb) {
    return namedPicture("color:" + std::to_string(rgb & 0xFFFFFF), [rgb] {
        DisplayList out = canvas(side);
        out.items.push_back(square(0, rgb));
        return out;
    });
}

Picture dashPicture(const std::vector<double>& lengths) {
    // No pattern has more; what a damaged file says beyond changes nothing that could be seen.
    constexpr std::size_t most = 64;
    std::vector<double> shown(lengths.begin(),
                              lengths.begin() + static_cast<std::ptrdiff_t>(std::min(lengths.size(), most)));
    std::string name = "dashes:";
    for (const double length : shown)
        addTo(name, length);
    return namedPicture(name, [&] { return dashes(shown); });
}

Picture linePicture(double millimetres) {
    // On screen a millimetre is drawn five pixels wide, so that the weights can be told apart.
    const double width = std::isfinite(millimetres) ? std::clamp(millimetres * 5, 1.0, side - 2) : 1;
    std::string name = "line:";
    addTo(name, width);
    return namedPicture(name, [width] {
        DisplayList out = canvas(sampleWidth);
        out.items.push_back(box(2, middle - width / 2, sampleWidth - 2, middle + width / 2, inkColor));
        return out;
    });
}

Picture layerPicture(const LayerLook& look) {
    const std::uint32_t rgb = look.rgb & 0xFFFFFF;
    const int state = (look.off ? 1 : 0) | (look.frozen ? 2 : 0) | (look.locked ? 4 : 0);
    return namedPicture("layer:" + std::to_string(state) + ":" + std::to_string(rgb), [&] {
        DisplayList out = canvas(4 * side);
        addLamp(out, !look.off);
        if (look.frozen)
            addCrystal(out, side);
        else
            addSun(out, side);
        addLock(out, 2 * side, look.locked);
        out.items.push_back(square(3 * side, rgb));
        return out;
    });
}

Picture fontPicture(const std::wstring& family, bool bold, bool italic) {
    if (family.empty() || family.size() > 256) return nullptr;
    const std::string name =
        std::string("font:") + (bold ? "b" : "") + (italic ? "i" : "") + ":" + text::toUtf8(family);
    return namedPicture(name, [&] {
        DisplayList out = canvas(44);
        DrawItem item;
        item.shape = Shape::text;
        item.points = {{2, 3.5}};
        item.radius = 9;
        item.text = L"AaBb";
        item.family = family;
        item.bold = bold;
        item.italic = italic;
        out.items.push_back(std::move(item));
        return out;
    });
}

DrawPoint pictureSize(const Picture& picture) {
    if (!picture) return {};
    return {picture->high.x - picture->low.x, picture->high.y - picture->low.y};
}

} // namespace tv::ui
