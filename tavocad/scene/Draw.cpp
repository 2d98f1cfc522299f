#include "tavocad/scene/Draw.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbTextStyleTable.h"
#include "platform/text/Unicode.h"
#include "tavocad/scene/DrawingTables.h"
#include "tavocad/scene/Flatten.h"
#include "tavocad/scene/HatchFill.h"
#include "tavocad/scene/TextLayout.h"
#include "tavocad/scene/WidePolyline.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tv::scene {

using namespace tv::dwg;

void Drawer::draw(const EntityGeometry& geometry, const StyleSource& source) {
    m_source = source;
    std::visit([this](const auto& kind) { draw(kind); }, geometry);
}

void Drawer::draw(const LineGeometry& line) {
    const OdGePoint3d points[] = {line.start, line.end};
    m_pen.stroke(points);
}

void Drawer::draw(const CircleGeometry& g) {
    m_pen.arc(g.center, {g.radius, 0, 0}, {0, g.radius, 0}, 0, 2 * std::numbers::pi, planeToWorld(g.normal));
}

void Drawer::draw(const ArcGeometry& g) {
    m_pen.arc(g.center, {g.radius, 0, 0}, {0, g.radius, 0}, g.startAngle, angleAfter(g.startAngle, g.endAngle),
              planeToWorld(g.normal));
}

void Drawer::draw(const EllipseGeometry& g) {
    const double length = g.normal.length();
    if (length == 0) return;
    const OdGeVector3d n{g.normal.x / length, g.normal.y / length, g.normal.z / length};
    const OdGeVector3d& a = g.majorAxis;
    const OdGeVector3d minor{(n.y * a.z - n.z * a.y) * g.ratio, (n.z * a.x - n.x * a.z) * g.ratio,
                             (n.x * a.y - n.y * a.x) * g.ratio};
    m_pen.arc(g.center, a, minor, g.startParameter, angleAfter(g.startParameter, g.endParameter));
}

void Drawer::draw(const PolylineGeometry& line) {
    if (line.vertices.empty()) return;
    const Transform plane = line.is3d ? Transform{} : planeToWorld(line.normal);
    if (!line.is3d && hasWidth(line)) {
        const PolylineParts parts = partsOf(line);
        for (const auto& area : parts.areas)
            m_pen.area(area, plane);
        for (const auto& thin : parts.lines)
            m_pen.stroke(thin, plane);
        return;
    }
    std::vector<OdGePoint3d> points{line.vertices.front().position};
    const std::size_t count = line.vertices.size();
    for (std::size_t i = 1; i < count + (line.closed && count > 1); ++i) {
        const PolylineVertex& from = line.vertices[i - 1];
        flattenBulge(points, from.position, line.vertices[i % count].position, line.is3d ? 0 : from.bulge);
    }
    m_pen.stroke(points, plane);
}

void Drawer::draw(const SolidGeometry& solid) { m_pen.area(solid.corners, planeToWorld(solid.normal)); }

void Drawer::draw(const SplineGeometry& spline) {
    std::vector<OdGePoint3d> points;
    flattenSpline(points, spline);
    m_pen.stroke(points);
}

void Drawer::draw(const FaceGeometry& face) {
    m_pen.begin(Item::Kind::stroke);
    for (std::size_t i = 0; i < 4; ++i) {
        const OdGePoint3d edge[] = {face.corners[i], face.corners[(i + 1) % 4]};
        if (!face.hidden[i]) m_pen.more(edge);
    }
    m_pen.end();
}

void Drawer::draw(const HatchGeometry& hatch) {
    if (hatch.gradient) usePaint(paintOf(*hatch.gradient));
    drawHatch(m_pen, hatch, m_hatchRoom);
    if (hatch.gradient) m_pen.setStyle(m_pen.scene().styles.intern(m_source));
}

void Drawer::draw(const NoteGeometry& note) {
    m_pen.begin(Item::Kind::stroke, Item::solidLine);
    for (const auto& line : note.lines) {
        if (!note.curved || line.size() < 3) {
            m_pen.more(line);
            continue;
        }
        SplineGeometry curve;
        curve.fit = line;
        std::vector<OdGePoint3d> points;
        flattenSpline(points, curve);
        m_pen.more(points);
    }
    m_pen.end();
    for (const auto& line : note.lines) {
        if (line.size() < 2 || !(note.arrowSize > 0)) continue;
        const OdGeVector3d along = line[1] - line[0];
        const double length = std::hypot(along.x, along.y);
        if (!(length > note.arrowSize)) continue;
        const double x = along.x / length * note.arrowSize, y = along.y / length * note.arrowSize;
        const OdGePoint3d arrow[] = {line[0],
                                     {line[0].x + x - y / 6, line[0].y + y + x / 6, line[0].z},
                                     {line[0].x + x + y / 6, line[0].y + y - x / 6, line[0].z}};
        m_pen.area(arrow);
    }
    if (!note.text) return;
    MTextGeometry text = *note.text;
    if (!(text.height > 0)) text.height = usualTextHeight();
    draw(text);
}

void Drawer::draw(const DimensionGeometry& dimension) {
    const OdGePoint3d points[] = {dimension.first, dimension.second};
    m_pen.stroke(points);
}

void Drawer::draw(const FrameGeometry& frame) {
    if (frame.corners.empty()) return;
    if (frame.mask) m_pen.area(frame.corners, {}, Item::mask);
    std::vector<OdGePoint3d> outline = frame.corners;
    outline.push_back(outline.front());
    m_pen.stroke(outline);
    if (frame.file.isEmpty()) return;
    double width = 0, height = 0;
    OdGePoint3d middle;
    for (const OdGePoint3d& corner : frame.corners) {
        width = std::max(width, std::abs(corner.x - frame.corners[0].x));
        height = std::max(height, std::abs(corner.y - frame.corners[0].y));
        const auto count = static_cast<double>(frame.corners.size());
        middle = {middle.x + corner.x / count, middle.y + corner.y / count, middle.z + corner.z / count};
    }
    std::wstring_view name = frame.file.view();
    if (const std::size_t slash = name.find_last_of(L"/\\"); slash != std::wstring_view::npos)
        name.remove_prefix(slash + 1);
    Text text;
    text.horizontal = Text::Horizontal::center;
    text.vertical = Text::Vertical::middle;
    m_pen.text(text, name, middle, std::min(height / 8, width / (static_cast<double>(name.size()) + 2)), 0);
}

void Drawer::draw(const RayGeometry& ray) {
    const OdGePoint3d there = m_pen.place()(ray.base + ray.direction), here = m_pen.place()(ray.base);
    const OdGePoint2d direction{there.x - here.x, there.y - here.y};
    const double length = std::hypot(direction.x, direction.y);
    const std::size_t before = m_pen.scene().items.size();
    const OdGePoint3d points[] = {ray.base, ray.base};
    m_pen.stroke(points);
    if (m_pen.scene().items.size() == before || !(length > 0) || !std::isfinite(length)) return;
    m_rays.push_back(
        {static_cast<std::uint32_t>(before), {direction.x / length, direction.y / length}, ray.both});
}

void Drawer::drawRays() {
    if (m_rays.empty()) return;
    Scene& scene = m_pen.scene();
    Box box;
    for (const Item& item : scene.items)
        box.add(scene.boxOf(item));
    constexpr double times = 50; // the size of everything else: far enough to seem endless
    const double reach = times * std::max({std::hypot(box.width(), box.height()), 1.0});
    if (!std::isfinite(reach)) return;
    for (const Ray& ray : m_rays) {
        Item& item = scene.items[ray.item];
        if (item.count != 2) continue;
        item.flags |= Item::endless;
        OdGePoint2d* const ends = scene.points.data() + item.first;
        const OdGePoint2d base = ends[0];
        auto end = [&](double way) {
            const OdGePoint2d point{base.x + ray.direction.x * way, base.y + ray.direction.y * way};
            return std::isfinite(point.x) && std::isfinite(point.y) ? point : base;
        };
        ends[1] = end(reach);
        if (ray.both) ends[0] = end(-reach);
    }
    m_rays.clear();
}

void Drawer::draw(const LinesGeometry& lines) {
    m_pen.begin(Item::Kind::stroke);
    for (const auto& line : lines.lines)
        m_pen.more(line);
    m_pen.end();
}

void Drawer::draw(const TextGeometry& g) {
    if (g.invisible) return;
    Text text;
    // 0 left, 1 center, 2 right; 3 aligned, 4 middle and 5 fit have a rule of their own for the points.
    const bool fitted = g.alignment && (g.horizontal == 3 || g.horizontal == 5);
    const bool centered = g.horizontal == 1 || g.horizontal == 4;
    const bool aligned = g.alignment && !fitted && (centered || g.horizontal == 2 || g.vertical != 0);
    using Horizontal = Text::Horizontal;
    using Vertical = Text::Vertical;
    text.horizontal = centered ? Horizontal::center : g.horizontal == 2 ? Horizontal::right : Horizontal::left;
    if (aligned) {
        text.vertical = g.horizontal == 4 || g.vertical == 2 ? Vertical::middle
                        : g.vertical == 3                    ? Vertical::top
                        : g.vertical == 1                    ? Vertical::bottom
                                                             : Vertical::baseline;
    }
    text.widthFactor = g.widthFactor;
    text.oblique = std::clamp(g.oblique, -1.4, 1.4);
    text.mirrored = g.backwards != g.upsideDown;
    text.font = fontOf(g.style);
    double rotation = g.rotation + (g.upsideDown ? std::numbers::pi : 0);
    if (fitted) {
        const double x = g.alignment->x - g.position.x, y = g.alignment->y - g.position.y;
        text.width = std::hypot(x, y);
        if (text.width > 0) rotation = std::atan2(y, x);
    }
    m_pen.text(text, g.text.view(), aligned ? *g.alignment : g.position, g.height, rotation,
               planeToWorld(g.normal));
}

// Its point and direction are the world's, its lines run across both the direction and the normal.
void Drawer::draw(const MTextGeometry& g) {
    const std::vector<MTextRun> runs = mtextRuns(g.contents.view());
    const std::vector<TextPiece> pieces = layOut(g, runs);
    const OdGeVector3d& n = g.normal;
    const OdGeVector3d x{std::cos(g.rotation), std::sin(g.rotation), 0};
    OdGeVector3d y{-n.z * x.y, n.z * x.x, n.x * x.y - n.y * x.x};
    const double length = y.length();
    y = length > 0 ? OdGeVector3d{y.x / length, y.y / length, y.z / length} : OdGeVector3d{-x.y, x.x, 0};
    const Transform plane{x, y, {0, 0, 1}, g.position};
    const std::uint32_t usual = fontOf(g.style);
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        const TextPiece& piece = pieces[i];
        const MTextFormat& format = *piece.format;
        Text text;
        text.font = format.font ? fontOf(*format.font) : usual;
        text.widthFactor = format.widthFactor.value_or(1);
        text.oblique = std::clamp(format.oblique.value_or(0), -1.4, 1.4);
        // One that has a line for itself may come out as wide as it likes.
        const bool alone = (i == 0 || pieces[i - 1].line != piece.line) &&
                           (i + 1 == pieces.size() || pieces[i + 1].line != piece.line);
        double start = piece.x;
        if (!alone) {
            text.width = piece.width;
        } else if (start != 0) {
            text.horizontal = Text::Horizontal::center;
            start += piece.width / 2;
        }
        text.underlined = format.underline;
        text.overlined = format.overline;
        text.struck = format.strikeThrough;
        const bool painted = format.color && !format.color->isByLayer() && !format.color->isByBlock();
        if (painted) usePaint(paintOf(*format.color));
        const OdGePoint3d bar[] = {{piece.x, piece.y, 0}, {piece.x + piece.bar.x, piece.y + piece.bar.y, 0}};
        if (piece.letters.empty())
            m_pen.stroke(bar, plane, Item::solidLine);
        else
            m_pen.text(text, piece.letters, {start, piece.y, 0}, piece.height, 0, plane);
        if (painted) m_pen.setStyle(m_pen.scene().styles.intern(m_source));
    }
}

void Drawer::usePaint(const Paint& paint) {
    StyleSource source = m_source;
    source.paint = paint;
    source.paintLayer = none;
    m_pen.setStyle(m_pen.scene().styles.intern(source));
}

std::uint32_t Drawer::fontOf(const OdString& style) {
    const auto [found, isNew] = m_fonts.try_emplace(tv::text::foldCase(style.view()), 0);
    if (!isNew) return found->second;
    Font font;
    if (const auto table = m_database.getTextStyleTableId().open<OdDbTextStyleTable>())
        if (const auto record =
                table->getAt(style.isEmpty() ? L"STANDARD" : style.view()).open<OdDbTextStyleTableRecord>()) {
            const auto face = record->font();
            font = {face.typeface.wstr(), record->fileName().wstr(), face.bold, face.italic};
        }
    auto& fonts = m_pen.scene().fonts;
    const auto known = std::find(fonts.begin(), fonts.end(), font);
    found->second = static_cast<std::uint32_t>(known - fonts.begin());
    if (known == fonts.end()) fonts.push_back(std::move(font));
    return found->second;
}

std::uint32_t Drawer::fontOf(const MTextFont& wanted) {
    const Font font = wanted.isFile ? Font{{}, wanted.name.wstr(), wanted.bold, wanted.italic}
                                    : Font{wanted.name.wstr(), {}, wanted.bold, wanted.italic};
    auto& fonts = m_pen.scene().fonts;
    constexpr std::size_t mostFonts = 1000;
    const auto known = std::find(fonts.begin(), fonts.end(), font);
    if (known != fonts.end()) return static_cast<std::uint32_t>(known - fonts.begin());
    if (fonts.size() >= mostFonts) return 0;
    fonts.push_back(font);
    return static_cast<std::uint32_t>(fonts.size() - 1);
}

double Drawer::usualTextHeight() const {
    const auto height = m_database.headerVar(L"DIMTXT");
    const double value = height ? height->asReal().value_or(0) : 0;
    return value > 0 ? value : 2.5;
}

} // namespace tv::scene
