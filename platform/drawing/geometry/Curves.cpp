#include "platform/drawing/geometry/Reader.h"

// Splines, faces, rays, multilines and meshes.
namespace tv::dwg::geometry {

SplineGeometry spline(Reader in) {
    SplineGeometry out;
    while (in.next()) {
        switch (in.code()) {
        case 10:
            out.control.push_back({in.real(), 0, 0});
            break;
        case 20:
            if (!out.control.empty()) out.control.back().y = in.real();
            break;
        case 30:
            if (!out.control.empty()) out.control.back().z = in.real();
            break;
        case 11:
            out.fit.push_back({in.real(), 0, 0});
            break;
        case 21:
            if (!out.fit.empty()) out.fit.back().y = in.real();
            break;
        case 31:
            if (!out.fit.empty()) out.fit.back().z = in.real();
            break;
        case 40:
            out.knots.push_back(in.real());
            break;
        case 41:
            out.weights.push_back(in.real());
            break;
        case 70:
            out.closed = (in.integer() & 1) != 0;
            break;
        case 71:
            out.degree = in.integer();
            break;
        default:
            break;
        }
    }
    if (out.weights.size() != out.control.size()) out.weights.clear();
    return out;
}

FaceGeometry face(Reader in) {
    FaceGeometry out;
    bool hasLast = false;
    while (in.next()) {
        if (in.point(10, out.corners[0]) || in.point(11, out.corners[1]) || in.point(12, out.corners[2]))
            continue;
        if (in.point(13, out.corners[3]))
            hasLast = true;
        else if (in.code() == 70)
            for (int i = 0; i < 4; ++i)
                out.hidden[i] = (in.integer() & 1 << i) != 0;
    }
    if (!hasLast) out.corners[3] = out.corners[2];
    return out;
}

RayGeometry ray(Reader in, bool both) {
    RayGeometry out;
    out.both = both;
    while (in.next())
        if (!in.point(10, out.base)) in.vector(11, out.direction);
    return out;
}

// Every vertex lists its elements, the first number of each being how far along the mitre it lies.
LinesGeometry multiline(Reader in) {
    LinesGeometry out;
    bool closed = false, first = false;
    OdGePoint3d vertex;
    OdGeVector3d mitre;
    std::size_t element = 0;
    while (in.next()) {
        if (in.vector(13, mitre)) continue;
        switch (in.code()) {
        case 11:
            vertex = {in.real(), 0, 0};
            mitre = {};
            element = 0;
            break;
        case 21:
            vertex.y = in.real();
            break;
        case 31:
            vertex.z = in.real();
            break;
        case 71:
            closed = (in.integer() & 2) != 0;
            break;
        case 74:
            first = true;
            break;
        case 41:
            if (!first) break;
            first = false;
            if (element == out.lines.size()) out.lines.emplace_back();
            out.lines[element++].push_back(
                vertex + OdGeVector3d{mitre.x * in.real(), mitre.y * in.real(), mitre.z * in.real()});
            break;
        default:
            break;
        }
    }
    for (auto& line : out.lines)
        if (closed && line.size() > 2) line.push_back(line.front());
    return out;
}

// The MESH entity: vertices, then faces as counted lists of vertex numbers.
LinesGeometry mesh(Reader in) {
    LinesGeometry out;
    std::vector<OdGePoint3d> vertices;
    std::int64_t faceNumbers = 0; // still to come
    int corners = 0;              // of the face that is being read
    bool inFaces = false;
    while (in.next()) {
        switch (in.code()) {
        case 10:
            vertices.push_back({in.real(), 0, 0});
            break;
        case 20:
            if (!vertices.empty()) vertices.back().y = in.real();
            break;
        case 30:
            if (!vertices.empty()) vertices.back().z = in.real();
            break;
        case 93:
            faceNumbers = in.integer();
            inFaces = true;
            break;
        case 94:
            inFaces = false;
            break;
        case 90:
            if (!inFaces || faceNumbers-- <= 0) break;
            if (corners == 0) {
                corners = in.integer();
                if (corners > 0) out.lines.emplace_back();
                break;
            }
            if (const auto number = static_cast<std::size_t>(in.integer()); number < vertices.size())
                out.lines.back().push_back(vertices[number]);
            if (--corners == 0 && !out.lines.back().empty())
                out.lines.back().push_back(out.lines.back().front());
            break;
        default:
            break;
        }
    }
    return out;
}

LinesGeometry polylineMesh(OdDbObjectId id, int flags) {
    LinesGeometry out;
    int rows = 0, columns = 0;
    for (Reader in(id); in.next();) {
        if (in.code() == 71) rows = in.integer();
        if (in.code() == 72) columns = in.integer();
    }
    std::vector<OdGePoint3d> vertices;
    std::vector<std::array<int, 4>> faces;
    for (const OdDbObjectId sub : subEntities(id)) {
        OdGePoint3d position;
        std::array<int, 4> face{};
        int kind = 0;
        for (Reader in(sub); in.next();) {
            if (in.point(10, position)) continue;
            if (in.code() == 70) kind = in.integer();
            if (in.code() >= 71 && in.code() <= 74)
                face[static_cast<std::size_t>(in.code() - 71)] = in.integer();
        }
        if (id.database()->store().record(sub.record()).type != kTypeVertex) continue;
        if ((kind & 128) && !(kind & 64))
            faces.push_back(face);
        else if (!(kind & 16))
            vertices.push_back(position);
    }
    if (flags & 64) { // faces by vertex numbers from 1 on; a negative one begins a hidden edge
        for (const auto& face : faces) {
            std::size_t count = 0;
            while (count < 4 && face[count] != 0)
                ++count;
            for (std::size_t i = 0; i < count; ++i) {
                const auto from = static_cast<std::size_t>(std::abs(std::int64_t{face[i]}));
                const auto to = static_cast<std::size_t>(std::abs(std::int64_t{face[(i + 1) % count]}));
                if (face[i] > 0 && from <= vertices.size() && to <= vertices.size())
                    out.lines.push_back({vertices[from - 1], vertices[to - 1]});
            }
        }
        return out;
    }
    if (rows < 1 || columns < 1 ||
        static_cast<std::int64_t>(rows) * columns > static_cast<std::int64_t>(vertices.size()))
        return out;
    const auto m = static_cast<std::size_t>(rows), n = static_cast<std::size_t>(columns);
    for (std::size_t i = 0; i < m; ++i) {
        auto& line = out.lines.emplace_back();
        for (std::size_t k = 0; k < n + ((flags & 32) ? 1 : 0); ++k)
            line.push_back(vertices[i * n + k % n]);
    }
    for (std::size_t k = 0; k < n; ++k) {
        auto& line = out.lines.emplace_back();
        for (std::size_t i = 0; i < m + ((flags & 1) ? 1 : 0); ++i)
            line.push_back(vertices[i % m * n + k]);
    }
    return out;
}

} // namespace tv::dwg::geometry
