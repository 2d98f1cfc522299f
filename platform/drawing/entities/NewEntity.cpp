#include "platform/drawing/entities/NewEntity.h"

#include "platform/drawing/OdDbBlockTable.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbEntity.h"
#include "platform/drawing/OdDbSymbolTable.h"
#include "platform/drawing/dxf/NewRecord.h"
#include "platform/drawing/dxf/TagWriter.h"
#include "platform/drawing/entities/EntityAppender.h"
#include "platform/drawing/entities/TagAccess.h"
#include "platform/text/Unicode.h"

#include <cmath>
#include <functional>
#include <numbers>
#include <optional>
#include <string>
#include <vector>

namespace tv::dwg {
namespace {

using enum OdDb::DxfVersion;

// The current properties, as the header has them.
struct Current {
    explicit Current(OdDbDatabase& database) : m_database(database) {
        const auto layers = database.getLayerTableId().open<OdDbSymbolTable>();
        layer = text(L"CLAYER");
        if (layer.isEmpty() || (layers && !layers->has(layer.view()))) layer = OdString(L"0");
        linetype = text(L"CELTYPE");
        const auto linetypes = database.getLinetypeTableId().open<OdDbSymbolTable>();
        const bool block = text::equalNoCase(linetype.view(), L"BYBLOCK");
        if (!block &&
            (!linetypes || text::equalNoCase(linetype.view(), L"BYLAYER") || !linetypes->has(linetype.view())))
            linetype.empty();
        color = integer(L"CECOLOR", 256);
        weight = integer(L"CELWEIGHT", -1);
        plotStyleType = integer(L"CEPSNTYPE", 0);
        const auto scale = database.headerVar(L"CELTSCALE");
        linetypeScale = scale ? scale->asReal().value_or(1) : 1;
        if (const auto style = database.headerVar(L"CEPSNID"))
            if (const auto* handle = std::get_if<OdDbHandle>(&style->value)) plotStyle = *handle;
    }
    OdString text(const wchar_t* variable) const {
        const auto value = m_database.headerVar(variable);
        return value ? value->asText().value_or(OdString()) : OdString();
    }

    OdString layer, linetype; // the linetype empty by layer
    std::int64_t color, weight, plotStyleType;
    double linetypeScale;
    OdDbHandle plotStyle;

  private:
    std::int64_t integer(const wchar_t* variable, std::int64_t otherwise) const {
        const auto value = m_database.headerVar(variable);
        return value ? value->asInteger().value_or(otherwise) : otherwise;
    }
    OdDbDatabase& m_database;
};

// The records of one new entity, begun with what all entities have.
class Writer {
  public:
    using TakeHandle = std::function<OdDbHandle()>;
    Writer(OdDbDatabase& database, const Current& current, const HomePlace& place, TakeHandle take)
        : m_database(database), m_format(database.store().format()), m_current(current), m_place(place),
          m_take(std::move(take)), m_version(database.form()), m_tags(m_format) {}

    OdDb::DxfVersion version() const { return m_version; }
    bool modern() const { return m_version >= kR13; }
    OdDbDatabase& database() { return m_database; }

    // Begins a main entity.
    Writer& begin(std::string_view type) {
        m_owner = m_place.ownerHandle;
        m_main = head(type);
        return *this;
    }
    // Begins a sub-entity of it; vertices and attributes belong to the main one.
    Writer& sub(std::string_view type) {
        m_owner = m_main;
        head(type);
        return *this;
    }
    Writer& mark(std::string_view subclass) {
        if (modern()) m_tags->name(100, subclass);
        return *this;
    }
    template <class T>
    Writer& tag(int code, const T& value) {
        m_tags->tag(code, value);
        return *this;
    }
    Writer& real(int code, double value) {
        m_tags->tag(code, Value(value));
        return *this;
    }
    Writer& degrees(int code, double radians) { return real(code, radians * 180 / std::numbers::pi); }
    Writer& point(int code, const OdGePoint3d& at) {
        m_tags->point(code, at);
        return *this;
    }
    Writer& normal(const OdGeVector3d& n) {
        if (n == OdGeVector3d{0, 0, 1}) return *this;
        return point(210, {n.x, n.y, n.z});
    }
    // Every record as its own bytes.
    std::vector<std::string> take() {
        close();
        return std::move(m_records);
    }
    bool good() const { return m_good && m_tags->good(); }

  private:
    void close() {
        m_good = m_good && m_tags->good();
        if (m_begun) m_records.push_back(m_tags->take());
        m_tags.emplace(m_format);
    }
    OdDbHandle head(std::string_view type) {
        close();
        m_begun = true;
        m_tags->name(0, type);
        OdDbHandle handle;
        if (m_place.handles) {
            handle = m_take();
            if (!handle.isNull()) m_tags->name(5, handle.ascii());
        }
        if (m_version >= kR2000 && !m_owner.isNull()) m_tags->name(330, m_owner.ascii());
        mark("AcDbEntity");
        if (m_place.paper) m_tags->tag(67, 1);
        m_tags->tag(8, m_current.layer.view());
        if (!m_current.linetype.isEmpty()) m_tags->tag(6, m_current.linetype.view());
        if (m_current.color >= 0 && m_current.color < 256) m_tags->tag(62, Value(m_current.color));
        if (modern() && m_current.linetypeScale > 0 && m_current.linetypeScale != 1)
            m_tags->tag(48, Value(m_current.linetypeScale));
        if (m_version >= kR2000 && m_current.weight != -1) m_tags->tag(370, Value(m_current.weight));
        if (m_version >= kR2000 && m_current.plotStyleType > 0 && m_current.plotStyleType <= 3 &&
            (m_current.plotStyleType != 3 || !m_current.plotStyle.isNull())) {
            m_tags->tag(380, Value(m_current.plotStyleType));
            if (m_current.plotStyleType == 3) m_tags->name(390, m_current.plotStyle.ascii());
        }
        return handle;
    }

    OdDbDatabase& m_database;
    const DxfFormat& m_format;
    const Current& m_current;
    const HomePlace& m_place;
    TakeHandle m_take;
    OdDb::DxfVersion m_version;
    std::optional<TagWriter> m_tags;
    std::vector<std::string> m_records;
    OdDbHandle m_main, m_owner;
    bool m_begun = false;
    bool m_good = true;
};

// --- whether it can be: asked before anything is changed ---

class Check {
  public:
    explicit Check(const EntityHome& home) : m_home(home), m_database(*home.database()) {}

    Tavo::ErrorStatus operator()(const LineGeometry&) const { return Tavo::eOk; }
    Tavo::ErrorStatus operator()(const PointGeometry&) const { return Tavo::eOk; }
    Tavo::ErrorStatus operator()(const CircleGeometry& c) const { return above(c.radius); }
    Tavo::ErrorStatus operator()(const ArcGeometry& a) const { return above(a.radius); }
    Tavo::ErrorStatus operator()(const EllipseGeometry& e) const {
        if (const auto status = m_database.require(OdDb::Feature::kObjectKind); status != Tavo::eOk)
            return status;
        return e.ratio <= 1 ? above(std::min(e.majorAxis.length(), e.ratio)) : Tavo::eOutOfRange;
    }
    Tavo::ErrorStatus operator()(const PolylineGeometry& p) const {
        return p.vertices.empty() ? Tavo::eInvalidInput : Tavo::eOk;
    }
    Tavo::ErrorStatus operator()(const SolidGeometry&) const { return Tavo::eOk; }
    Tavo::ErrorStatus operator()(const TextGeometry& t) const {
        if (const auto status = above(std::min(t.height, t.widthFactor)); status != Tavo::eOk) return status;
        return named(m_database.getTextStyleTableId(), t.style);
    }
    Tavo::ErrorStatus operator()(const MTextGeometry& t) const {
        if (const auto status = m_database.require(OdDb::Feature::kMultilineText); status != Tavo::eOk)
            return status;
        if (t.attachment < 1 || t.attachment > 9 || t.width < 0) return Tavo::eOutOfRange;
        if (const auto status = above(t.height); status != Tavo::eOk) return status;
        return named(m_database.getTextStyleTableId(), t.style);
    }
    Tavo::ErrorStatus operator()(const NewInsert& i) const {
        const auto blocks = m_database.getBlockTableId().open<OdDbBlockTable>();
        if (!blocks || !blocks->has(i.insert.block.view())) return Tavo::eKeyNotFound;
        if (holdsHome(m_home, i.insert.block.view())) return Tavo::eInvalidInput;
        constexpr int kMost = 32767;
        if (i.insert.columns < 1 || i.insert.rows < 1 || i.insert.columns > kMost || i.insert.rows > kMost ||
            i.insert.scale.x == 0 || i.insert.scale.y == 0 || i.insert.scale.z == 0)
            return Tavo::eOutOfRange;
        for (const NewAttribute& attribute : i.attributes) {
            if (!isTag(attribute.tag)) return Tavo::eInvalidInput;
            if (const auto status = (*this)(attribute.text); status != Tavo::eOk) return status;
        }
        return Tavo::eOk;
    }
    Tavo::ErrorStatus operator()(const NewAttributeDefinition& a) const {
        return isTag(a.tag) ? (*this)(a.text) : Tavo::eInvalidInput;
    }
    Tavo::ErrorStatus operator()(const NewDimension& d) const {
        return named(m_database.getDimStyleTableId(), d.style);
    }
    Tavo::ErrorStatus operator()(const NewFill& f) const {
        if (const auto status = m_database.require(OdDb::Feature::kObjectKind); status != Tavo::eOk)
            return status;
        if (f.outlines.empty()) return Tavo::eInvalidInput;
        for (const PolylineGeometry& outline : f.outlines)
            if (outline.vertices.size() < 2) return Tavo::eInvalidInput;
        return Tavo::eOk;
    }

  private:
    static Tavo::ErrorStatus above(double number) {
        return number > 0 && std::isfinite(number) ? Tavo::eOk : Tavo::eOutOfRange;
    }
    static bool isTag(const OdString& tag) {
        return !tag.isEmpty() && tag.view().find_first_of(L" \t\r\n") == std::wstring_view::npos;
    }
    static Tavo::ErrorStatus named(OdDbObjectId table, const OdString& name) {
        if (name.isEmpty()) return Tavo::eOk;
        const auto opened = table.open<OdDbSymbolTable>();
        return opened && opened->has(name.view()) ? Tavo::eOk : Tavo::eKeyNotFound;
    }

    const EntityHome& m_home;
    OdDbDatabase& m_database;
};

// --- how it is written ---

class Write {
  public:
    Write(Writer& writer, const Current& current) : w(writer), m_current(current) {}

    void operator()(const LineGeometry& l) {
        w.begin("LINE").mark("AcDbLine").point(10, l.start).point(11, l.end);
    }
    void operator()(const PointGeometry& p) { w.begin("POINT").mark("AcDbPoint").point(10, p.position); }
    void operator()(const CircleGeometry& c) {
        w.begin("CIRCLE").mark("AcDbCircle").point(10, c.center).real(40, c.radius).normal(c.normal);
    }
    void operator()(const ArcGeometry& a) {
        w.begin("ARC").mark("AcDbCircle").point(10, a.center).real(40, a.radius).normal(a.normal);
        w.mark("AcDbArc").degrees(50, a.startAngle).degrees(51, a.endAngle);
    }
    void operator()(const EllipseGeometry& e) {
        w.begin("ELLIPSE").mark("AcDbEllipse").point(10, e.center);
        w.point(11, {e.majorAxis.x, e.majorAxis.y, e.majorAxis.z}).normal(e.normal);
        w.real(40, e.ratio).real(41, e.startParameter).real(42, e.endParameter);
    }
    void operator()(const PolylineGeometry& p) {
        const bool light = !p.is3d && w.version() >= kR14;
        if (light)
            lightPolyline(p);
        else
            oldPolyline(p);
    }
    // Files have the last two corners the other way round.
    void operator()(const SolidGeometry& s) {
        w.begin("SOLID").mark("AcDbTrace");
        w.point(10, s.corners[0]).point(11, s.corners[1]).point(12, s.corners[3]).point(13, s.corners[2]);
        w.normal(s.normal);
    }
    void operator()(const TextGeometry& t) {
        w.begin("TEXT");
        text(t);
        w.mark("AcDbText");
        if (t.vertical != 0) w.tag(73, t.vertical);
    }
    void operator()(const MTextGeometry& t) {
        w.begin("MTEXT").mark("AcDbMText").point(10, t.position).real(40, t.height).real(41, t.width);
        w.tag(71, t.attachment).tag(72, 1);
        const std::vector<OdString> pieces = textPieces(w.database().store().format(), t.contents.view());
        for (std::size_t i = 0; i < pieces.size(); ++i)
            w.tag(i + 1 < pieces.size() ? 3 : 1, pieces[i].view());
        w.tag(7, styleOr(t.style, L"TEXTSTYLE").view()).normal(t.normal);
        w.point(11, {std::cos(t.rotation), std::sin(t.rotation), 0});
    }
    void operator()(const NewInsert& i) {
        const InsertGeometry& g = i.insert;
        const bool many = g.columns > 1 || g.rows > 1;
        w.begin("INSERT").mark(many ? "AcDbMInsertBlock" : "AcDbBlockReference");
        if (!i.attributes.empty()) w.tag(66, 1);
        w.tag(2, g.block.view()).point(10, g.position);
        if (g.scale != OdGeVector3d{1, 1, 1}) w.real(41, g.scale.x).real(42, g.scale.y).real(43, g.scale.z);
        if (g.rotation != 0) w.degrees(50, g.rotation);
        if (many) w.tag(70, g.columns).tag(71, g.rows).real(44, g.columnSpacing).real(45, g.rowSpacing);
        w.normal(g.normal);
        for (const NewAttribute& attribute : i.attributes) {
            w.sub("ATTRIB");
            text(attribute.text);
            w.mark("AcDbAttribute");
            attributeTags(attribute.tag, attribute.text, attribute.text.invisible ? 1 : 0, nullptr);
        }
        if (!i.attributes.empty()) w.sub("SEQEND");
    }
    void operator()(const NewAttributeDefinition& a) {
        w.begin("ATTDEF");
        text(a.text);
        w.mark("AcDbAttributeDefinition");
        const int flags =
            (a.text.invisible ? 1 : 0) + (a.constant ? 2 : 0) + (a.verify ? 4 : 0) + (a.preset ? 8 : 0);
        attributeTags(a.tag, a.text, flags, &a.prompt);
    }
    void operator()(const NewDimension& d) {
        const double angle =
            d.aligned ? std::atan2(d.second.y - d.first.y, d.second.x - d.first.x) : d.rotation;
        // The end of the second extension line on the dimension line, and the middle between both.
        const double c = std::cos(angle);
        const double s = std::sin(angle);
        const auto onLine = [&](const OdGePoint3d& p) {
            const double along = (p.x - d.linePoint.x) * c + (p.y - d.linePoint.y) * s;
            return OdGePoint3d{d.linePoint.x + along * c, d.linePoint.y + along * s, p.z};
        };
        const OdGePoint3d a = onLine(d.first);
        const OdGePoint3d b = onLine(d.second);
        w.begin("DIMENSION").mark("AcDbDimension").point(10, b);
        w.point(11, {(a.x + b.x) / 2, (a.y + b.y) / 2, (a.z + b.z) / 2});
        w.tag(70, d.aligned ? 1 : 0);
        if (!d.text.isEmpty()) w.tag(1, d.text.view());
        if (w.version() >= kR2000) w.tag(71, 5).real(42, std::hypot(b.x - a.x, b.y - a.y));
        w.tag(3, styleOr(d.style, L"DIMSTYLE").view());
        w.mark("AcDbAlignedDimension").point(13, d.first).point(14, d.second);
        if (d.aligned) return;
        w.degrees(50, d.rotation).mark("AcDbRotatedDimension");
    }
    void operator()(const NewFill& f) {
        const PolylineGeometry& first = f.outlines.front();
        w.begin("HATCH").mark("AcDbHatch").point(10, {0, 0, first.vertices.front().position.z});
        w.point(210, {first.normal.x, first.normal.y, first.normal.z});
        w.tag(2, std::wstring_view(L"SOLID")).tag(70, 1).tag(71, 0);
        w.tag(91, static_cast<int>(f.outlines.size()));
        for (std::size_t i = 0; i < f.outlines.size(); ++i) {
            // A polyline; the first one is the outermost.
            w.tag(92, i == 0 ? 3 : 2);
            bool bulges = false;
            for (const PolylineVertex& vertex : f.outlines[i].vertices)
                bulges |= vertex.bulge != 0;
            w.tag(72, bulges ? 1 : 0).tag(73, 1).tag(93, static_cast<int>(f.outlines[i].vertices.size()));
            for (const PolylineVertex& vertex : f.outlines[i].vertices) {
                w.real(10, vertex.position.x).real(20, vertex.position.y);
                if (bulges) w.real(42, vertex.bulge);
            }
            w.tag(97, 0);
        }
        w.tag(75, 0).tag(76, 1).tag(98, 0);
    }

  private:
    // The style given, else the current one; where the drawing lacks that, the usual one.
    OdString styleOr(const OdString& style, const wchar_t* variable) const {
        if (!style.isEmpty()) return style;
        OdDbDatabase& database = w.database();
        const bool text = std::wstring_view(variable) == L"TEXTSTYLE";
        const auto table =
            (text ? database.getTextStyleTableId() : database.getDimStyleTableId()).open<OdDbSymbolTable>();
        const OdString current = m_current.text(variable);
        return !current.isEmpty() && table && table->has(current.view()) ? current : OdString(L"Standard");
    }

    void lightPolyline(const PolylineGeometry& p) {
        w.begin("LWPOLYLINE").mark("AcDbPolyline");
        w.tag(90, static_cast<int>(p.vertices.size())).tag(70, p.closed ? 1 : 0);
        if (p.vertices.front().position.z != 0) w.real(38, p.vertices.front().position.z);
        for (const PolylineVertex& vertex : p.vertices) {
            w.real(10, vertex.position.x).real(20, vertex.position.y);
            if (vertex.startWidth != 0 || vertex.endWidth != 0)
                w.real(40, vertex.startWidth).real(41, vertex.endWidth);
            if (vertex.bulge != 0) w.real(42, vertex.bulge);
        }
        w.normal(p.normal);
    }
    void oldPolyline(const PolylineGeometry& p) {
        w.begin("POLYLINE").mark(p.is3d ? "AcDb3dPolyline" : "AcDb2dPolyline");
        w.tag(66, 1).point(10, {0, 0, p.is3d ? 0 : p.vertices.front().position.z});
        w.tag(70, (p.closed ? 1 : 0) + (p.is3d ? 8 : 0));
        if (!p.is3d) w.normal(p.normal);
        for (const PolylineVertex& vertex : p.vertices) {
            w.sub("VERTEX").mark("AcDbVertex").mark(p.is3d ? "AcDb3dPolylineVertex" : "AcDb2dVertex");
            w.point(10, vertex.position);
            if (!p.is3d && (vertex.startWidth != 0 || vertex.endWidth != 0))
                w.real(40, vertex.startWidth).real(41, vertex.endWidth);
            if (!p.is3d && vertex.bulge != 0) w.real(42, vertex.bulge);
            w.tag(70, p.is3d ? 32 : 0);
        }
        w.sub("SEQEND");
    }
    void text(const TextGeometry& t) {
        w.mark("AcDbText").point(10, t.position).real(40, t.height).tag(1, t.text.view());
        if (t.rotation != 0) w.degrees(50, t.rotation);
        if (t.widthFactor != 1) w.real(41, t.widthFactor);
        if (t.oblique != 0) w.degrees(51, t.oblique);
        w.tag(7, styleOr(t.style, L"TEXTSTYLE").view());
        if (t.backwards || t.upsideDown) w.tag(71, (t.backwards ? 2 : 0) + (t.upsideDown ? 4 : 0));
        if (t.horizontal != 0) w.tag(72, t.horizontal);
        if (t.horizontal != 0 || t.vertical != 0) w.point(11, t.alignment.value_or(t.position));
        w.normal(t.normal);
    }
    void attributeTags(const OdString& tag, const TextGeometry& text, int flags, const OdString* prompt) {
        if (w.version() >= kR2007) w.tag(280, 0);
        if (prompt) w.tag(3, prompt->view());
        w.tag(2, tag.view()).tag(70, flags);
        if (text.vertical != 0) w.tag(74, text.vertical);
    }

    Writer& w;
    const Current& m_current;
};

const wchar_t* stepName(const NewEntity& shape) {
    static constexpr const wchar_t* kNames[] = {L"LINE",   L"POINT",     L"CIRCLE", L"ARC",   L"ELLIPSE",
                                                L"PLINE",  L"SOLID",     L"TEXT",   L"MTEXT", L"INSERT",
                                                L"ATTDEF", L"DIMLINEAR", L"HATCH"};
    static_assert(std::size(kNames) == std::variant_size_v<NewEntity>);
    return kNames[shape.index()];
}

} // namespace

AppendResult appendEntity(const EntityHome& home, const NewEntity& shape) {
    if (const auto status = checkHome(home); status != Tavo::eOk) return {status, {}};
    OdDbDatabase& database = *home.database();
    const Current current(database);
    if (const auto status = std::visit(Check(home), shape); status != Tavo::eOk) return {status, {}};
    // Written once for trial: a number that can't be written must leave nothing behind.
    const HomePlace trial;
    Writer probe(database, current, trial, [] { return OdDbHandle(1); });
    std::visit(Write(probe, current), shape);
    probe.take();
    if (!probe.good()) return {Tavo::eOutOfRange, {}};

    const OdDbUndoScope step(database, stepName(shape));
    const HomePlace place = findPlace(home);
    if (place.status != Tavo::eOk) return {place.status, {}};
    Writer writer(database, current, place, [&] { return takeHandle(database); });
    std::visit(Write(writer, current), shape);
    RecordId last = place.last;
    OdDbObjectId made;
    for (std::string& bytes : writer.take()) {
        last = database.store().insertAfter(last, std::move(bytes), place.section, place.owner);
        if (last == kNoRecord) return {Tavo::eReadOnly, {}};
        if (made.isNull()) made = {&database, last};
    }
    if (const auto* dimension = std::get_if<NewDimension>(&shape)) showDimension(made, *dimension);
    // A definition says that it has attributes.
    if (std::holds_alternative<NewAttributeDefinition>(shape) && place.owner != kNoRecord) {
        const OdDbObjectPtr begin = OdDbObjectId(&database, place.owner).openObject(OdDb::kForWrite);
        writeTag(*begin, {{}, 70}, std::int64_t{begin->integerAt(70) | 2}, std::initializer_list<int>{8, 2});
    }
    return {Tavo::eOk, made};
}

} // namespace tv::dwg
