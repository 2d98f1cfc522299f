#include "platform/drawing/geometry/Reader.h"

// Outlines and pattern of hatches.
namespace tv::dwg::geometry {
namespace {

// One tag of an edge; which codes mean what depends on its kind.
void takeEdgeTag(const Reader& in, HatchEdge& edge) {
    if (edge.kind == HatchEdge::kSpline) {
        SplineGeometry& spline = edge.spline;
        switch (in.code()) {
        case 10:
            spline.control.push_back({in.real(), 0, 0});
            break;
        case 20:
            if (!spline.control.empty()) spline.control.back().y = in.real();
            break;
        case 11:
            spline.fit.push_back({in.real(), 0, 0});
            break;
        case 21:
            if (!spline.fit.empty()) spline.fit.back().y = in.real();
            break;
        case 40:
            spline.knots.push_back(in.real());
            break;
        case 42:
            spline.weights.push_back(in.real());
            break;
        case 94:
            spline.degree = in.integer();
            break;
        default:
            break;
        }
        return;
    }
    switch (in.code()) {
    case 10:
        edge.start.x = in.real();
        break;
    case 20:
        edge.start.y = in.real();
        break;
    case 11:
        edge.end.x = in.real();
        break;
    case 21:
        edge.end.y = in.real();
        break;
    case 40:
        edge.radius = in.real();
        break;
    case 50:
        edge.from = radians(in.real());
        break;
    case 51:
        edge.to = radians(in.real());
        break;
    case 73:
        edge.counterClockwise = in.integer() != 0;
        break;
    default:
        break;
    }
}

constexpr std::size_t kMostColors = 16; // two in any file a program wrote

OdCmColor meanOf(const std::vector<OdCmColor>& colors) {
    std::size_t red = 0, green = 0, blue = 0;
    for (const OdCmColor& color : colors) {
        red += color.red();
        green += color.green();
        blue += color.blue();
    }
    const auto mean = [&](std::size_t sum) { return static_cast<std::uint8_t>(sum / colors.size()); };
    return OdCmColor::byRgb(mean(red), mean(green), mean(blue));
}

} // namespace

HatchGeometry hatch(Reader in) {
    HatchGeometry out;
    bool gradient = false;
    std::vector<OdCmColor> colors; // of the gradient; each begins with its place from 0 to 1
    enum : std::uint8_t { kHead, kPolyline, kEdges, kPattern } state = kHead;
    bool sources = false; // the objects a loop was made from follow
    while (in.next()) {
        const int code = in.code();
        if (in.vector(210, out.normal)) continue;
        if (code == 70 && state == kHead) out.solid = in.integer() != 0;
        if (code == 30 && state == kHead) out.elevation = in.real();
        if (code == 92 && state != kPattern) {
            out.loops.emplace_back();
            state = (in.integer() & 2) ? kPolyline : kEdges;
            sources = false;
            continue;
        }
        if (code == 75 && state != kHead) state = kPattern;
        if (code == 450) gradient = in.integer() == 1;
        if (code == 463 && colors.size() < kMostColors) colors.emplace_back(OdCmColor::byIndex(7));
        if (!colors.empty() && code == 63) colors.back() = OdCmColor::byIndex(in.integer());
        if (!colors.empty() && code == 421) colors.back() = OdCmColor::fromDxf({}, in.integer());
        if (state == kPolyline) {
            auto& vertices = out.loops.back().vertices;
            if (code == 10) vertices.push_back({{in.real(), 0, 0}, 0, 0, 0});
            if (vertices.empty()) continue;
            if (code == 20) vertices.back().position.y = in.real();
            if (code == 42) vertices.back().bulge = in.real();
        } else if (state == kEdges) {
            auto& edges = out.loops.back().edges;
            if (code == 72 && !sources) {
                edges.emplace_back();
                const int kind = in.integer();
                edges.back().kind =
                    kind >= 1 && kind <= 4 ? static_cast<HatchEdge::Kind>(kind - 1) : HatchEdge::kLine;
            } else if (!edges.empty()) {
                takeEdgeTag(in, edges.back());
            }
            if (code == 330) sources = true;
        } else if (state == kPattern) {
            if (code == 53) out.lines.push_back({radians(in.real()), {}, {}, {}});
            if (out.lines.empty()) continue;
            HatchLine& line = out.lines.back();
            if (code == 43) line.base.x = in.real();
            if (code == 44) line.base.y = in.real();
            if (code == 45) line.offset.x = in.real();
            if (code == 46) line.offset.y = in.real();
            if (code == 49) line.dashes.push_back(in.real());
        }
    }
    for (HatchLoop& loop : out.loops)
        for (HatchEdge& edge : loop.edges)
            if (edge.spline.weights.size() != edge.spline.control.size()) edge.spline.weights.clear();
    if (gradient && !colors.empty()) {
        out.solid = true;
        out.gradient = meanOf(colors);
    }
    return out;
}

} // namespace tv::dwg::geometry
