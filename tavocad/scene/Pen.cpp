#include "tavocad/scene/Pen.h"

#include <cmath>
#include <numbers>

namespace tv::scene {
namespace {

OdGePoint2d flat(const OdGeVector3d& v) { return {v.x, v.y}; }

} // namespace

void Pen::stroke(std::span<const OdGePoint3d> points, const Transform& plane, std::uint8_t flags) {
    begin(Item::Kind::stroke, flags);
    more(points, plane);
    end();
}

void Pen::area(std::span<const OdGePoint3d> points, const Transform& plane, std::uint8_t flags) {
    begin(Item::Kind::area, flags);
    more(points, plane);
    end();
}

void Pen::begin(Item::Kind kind, std::uint8_t flags) {
    m_open = {static_cast<std::uint32_t>(m_scene.points.size()), 0, m_style, m_entity, kind, flags};
}

void Pen::more(std::span<const OdGePoint3d> points, const Transform& plane) {
    auto& out = m_scene.points;
    if (out.size() > m_open.first) out.push_back(breakPoint);
    const std::size_t before = out.size();
    const Transform whole = m_place * plane;
    for (const OdGePoint3d& point : points) {
        const OdGePoint3d p = whole(point);
        if (isSomewhere({p.x, p.y})) out.push_back({p.x, p.y});
    }
    if (out.size() == before && before > m_open.first) out.pop_back(); // the break
}

void Pen::end() {
    m_open.count = static_cast<std::uint32_t>(m_scene.points.size() - m_open.first);
    if (m_open.count > 0) m_scene.items.push_back(m_open);
}

void Pen::arc(const OdGePoint3d& center, const OdGeVector3d& major, const OdGeVector3d& minor, double from,
              double to, const Transform& plane) {
    const Transform whole = m_place * plane;
    const OdGePoint3d c = whole(center);
    const OdGePoint2d arc[] = {{c.x, c.y}, flat(whole(major)), flat(whole(minor)), {from, to}};
    if (!isSomewhere(arc[0]) || !isSomewhere(arc[1]) || !isSomewhere(arc[2])) return;
    if (!std::isfinite(from) || !std::isfinite(to)) return;
    m_scene.items.push_back(
        {static_cast<std::uint32_t>(m_scene.points.size()), 4, m_style, m_entity, Item::Kind::arc, 0});
    m_scene.points.insert(m_scene.points.end(), std::begin(arc), std::end(arc));
}

void Pen::mark(const OdGePoint3d& at) {
    begin(Item::Kind::mark);
    more({&at, 1});
    end();
}

void Pen::text(Text text, std::wstring_view letters, const OdGePoint3d& at, double height, double rotation,
               const Transform& plane) {
    const Transform whole = m_place * plane;
    const OdGePoint3d p = whole(at);
    const OdGeVector3d along = whole(OdGeVector3d{std::cos(rotation), std::sin(rotation), 0});
    const OdGeVector3d up = whole(OdGeVector3d{-std::sin(rotation), std::cos(rotation), 0});
    const double alongLength = std::hypot(along.x, along.y), upLength = std::hypot(up.x, up.y);
    text.at = {p.x, p.y};
    text.height = height * upLength;
    text.angle = std::atan2(along.y, along.x);
    if (along.x * up.y - along.y * up.x < 0) { // seen from behind: upside down, its letters running backwards
        text.angle += std::numbers::pi;
        text.mirrored = !text.mirrored;
        if (text.horizontal != Text::Horizontal::center)
            text.horizontal =
                text.horizontal == Text::Horizontal::left ? Text::Horizontal::right : Text::Horizontal::left;
    }
    text.widthFactor = upLength > 0 ? text.widthFactor * alongLength / upLength : 0;
    text.width *= alongLength;
    if (letters.empty() || !(text.height > 0) || !(text.widthFactor > 0) || !isSomewhere(text.height) ||
        !isSomewhere(text.height * text.widthFactor) || !isSomewhere(text.width) || !isSomewhere(text.at))
        return;
    text.first = static_cast<std::uint32_t>(m_scene.letters.size());
    text.count = static_cast<std::uint32_t>(letters.size());
    m_scene.letters += letters;
    m_scene.items.push_back(
        {static_cast<std::uint32_t>(m_scene.texts.size()), 1, m_style, m_entity, Item::Kind::text, 0});
    m_scene.texts.push_back(text);
}

} // namespace tv::scene
