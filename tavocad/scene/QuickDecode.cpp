#include "tavocad/scene/QuickDecode.h"

#include "platform/drawing/dxf/RecordStore.h"
#include "tavocad/scene/EntityHead.h"
#include "tavocad/scene/Flatten.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <condition_variable>
#include <mutex>
#include <numbers>
#include <thread>

namespace tv::scene {
namespace {

using namespace tv::dwg;

constexpr std::size_t partSize = 32768; // entities decoded at a time
constexpr std::size_t partsAhead = 8;   // that may wait to be taken over

constexpr std::uint32_t allByLayer = 0x80000000; // a style: the layer's number in the other bits

// What one thread made of some successive entities. Numbers of items and points count from the part's start,
// styles are `sources`.
struct Part {
    struct Made {
        RecordId record = kNoRecord;
        bool quick = false;
        std::uint32_t items = 0; // none for an entity that shows nothing
        std::uint32_t points = 0;
    };
    std::vector<Made> made;
    std::vector<Item> items;
    std::vector<OdGePoint2d> points;
    std::vector<StyleSource> sources;
    bool ready = false;
    void clear() {
        made.clear();
        items.clear();
        points.clear();
        sources.clear();
        ready = false;
    }
};

enum class Quick : std::uint8_t { none, line, circle, arc, point, polyline };

// Which types of this drawing are decoded here.
class QuickTypes {
  public:
    explicit QuickTypes(const TypeNames& names)
        : m_line(names.find("LINE")), m_circle(names.find("CIRCLE")), m_arc(names.find("ARC")),
          m_point(names.find("POINT")), m_polyline(names.find("LWPOLYLINE")) {}
    Quick of(TypeId type) const {
        if (type == kTypeOther) return Quick::none;
        if (type == m_line) return Quick::line;
        if (type == m_circle) return Quick::circle;
        if (type == m_arc) return Quick::arc;
        if (type == m_point) return Quick::point;
        return type == m_polyline ? Quick::polyline : Quick::none;
    }

  private:
    TypeId m_line, m_circle, m_arc, m_point, m_polyline;
};

// One thread's decoder.
class Decoder {
  public:
    Decoder(const RecordStore& store, const RawNames& names)
        : m_store(store), m_names(names), m_types(store.types()) {}

    void decode(std::span<const RecordId> records, Part& part) {
        m_part = &part;
        part.made.reserve(records.size());
        part.items.reserve(records.size());
        part.points.reserve(records.size() * 2);
        for (const RecordId record : records) {
            const std::size_t items = part.items.size(), points = part.points.size();
            const bool quick = draw(record);
            if (!quick) {
                part.items.resize(items);
                part.points.resize(points);
            }
            part.made.push_back({record, quick, static_cast<std::uint32_t>(part.items.size() - items),
                                 static_cast<std::uint32_t>(part.points.size() - points)});
        }
    }

  private:
    // False for what is not decoded here.
    bool draw(RecordId record) {
        const Quick kind = m_types.of(m_store.record(record).type);
        if (kind == Quick::none) return false;
        const DxfFormat& format = m_store.format();
        HeadReader reader(format, m_store.text(record));
        auto& points = m_part->points;
        const std::size_t first = points.size();
        OdGePoint2d a, b;
        double radius = 0, from = 0, to = 0, bulge = 0;
        int flags = 0;
        m_bulges.clear();
        for (Tag tag; reader.next(tag);) {
            switch (tag.code) {
            case 10:
                a.x = numberOf(format, tag);
                if (kind == Quick::polyline) points.push_back({a.x, 0});
                break;
            case 20:
                a.y = numberOf(format, tag);
                if (kind == Quick::polyline && points.size() > first) points.back().y = a.y;
                break;
            case 11:
                b.x = numberOf(format, tag);
                break;
            case 21:
                b.y = numberOf(format, tag);
                break;
            case 40:
            case 41:
            case 43:
                radius = numberOf(format, tag);
                if (kind == Quick::polyline && radius != 0) return false; // it has a width
                break;
            case 42:
                bulge = numberOf(format, tag);
                if (kind == Quick::polyline && bulge != 0 && points.size() > first)
                    m_bulges.push_back({points.size() - first - 1, bulge});
                break;
            case 50:
                from = numberOf(format, tag) * std::numbers::pi / 180;
                break;
            case 51:
                to = numberOf(format, tag) * std::numbers::pi / 180;
                break;
            case 70:
                flags = static_cast<int>(integerOf(format, tag).value_or(0) & 1);
                break;
            case 210:
            case 220:
                if (numberOf(format, tag) != 0) return false;
                break;
            case 230:
                if (!(numberOf(format, tag) > 0)) return false;
                break;
            default:
                break;
            }
        }
        if (reader.head.invisible) {
            points.resize(first);
            return true;
        }
        const std::uint32_t style = styleOf(reader.head);
        if (style == none) return false;
        Item item{static_cast<std::uint32_t>(first), 0, style, 0, Item::Kind::stroke, 0};
        switch (kind) {
        case Quick::line:
            points.push_back(a);
            points.push_back(b);
            break;
        case Quick::point:
            item.kind = Item::Kind::mark;
            points.push_back(a);
            break;
        case Quick::circle:
        case Quick::arc:
            item.kind = Item::Kind::arc;
            points.push_back(a);
            points.push_back({radius, 0});
            points.push_back({0, radius});
            points.push_back(kind == Quick::circle ? OdGePoint2d{0, 2 * std::numbers::pi}
                                                   : OdGePoint2d{from, angleAfter(from, to)});
            break;
        default:
            if (points.size() == first) return true;
            bendSegments(first, flags != 0);
        }
        const auto own = points.begin() + static_cast<std::ptrdiff_t>(first);
        if (item.kind == Item::Kind::arc) {
            if (!isSomewhere(a) || !isSomewhere(radius)) points.resize(first);
        } else {
            points.erase(std::remove_if(own, points.end(), [](OdGePoint2d p) { return !isSomewhere(p); }),
                         points.end());
        }
        item.count = static_cast<std::uint32_t>(points.size() - first);
        if (item.count == 0) return true;
        m_part->items.push_back(item);
        return true;
    }

    // Puts the arcs of a polyline's bulges between its points.
    void bendSegments(std::size_t first, bool closed) {
        auto& points = m_part->points;
        if (closed && points.size() > first + 1) points.push_back(points[first]);
        if (m_bulges.empty()) return;
        m_straight.assign(points.begin() + static_cast<std::ptrdiff_t>(first), points.end());
        points.resize(first);
        points.push_back(m_straight[0]);
        auto bulge = m_bulges.begin();
        for (std::size_t i = 1; i < m_straight.size(); ++i) {
            while (bulge != m_bulges.end() && bulge->first < i - 1)
                ++bulge;
            if (bulge == m_bulges.end() || bulge->first != i - 1) {
                points.push_back(m_straight[i]);
                continue;
            }
            m_bent.clear();
            flattenBulge(m_bent, {m_straight[i - 1].x, m_straight[i - 1].y, 0},
                         {m_straight[i].x, m_straight[i].y, 0}, bulge->second);
            for (const OdGePoint3d& p : m_bent)
                points.push_back({p.x, p.y});
        }
    }

    std::uint32_t styleOf(const EntityHead& head) {
        const std::uint32_t layer = m_names.layer(head.layer);
        if (layer == none) return none;
        auto& sources = m_part->sources;
        const auto next = static_cast<std::uint32_t>(sources.size());
        if (!head.plain()) {
            const std::uint32_t linetype =
                linetypeBy(head) == ByWhom::itself ? m_names.linetype(head.linetype) : 0;
            if (linetype == none) return none;
            const StyleSource source = sourceOf(head, layer, linetype, {});
            if (next > 0 && sources.back() == source) return next - 1;
            sources.push_back(source);
            return next;
        }
        return layer | allByLayer;
    }

    const RecordStore& m_store;
    const RawNames& m_names;
    QuickTypes m_types;
    std::vector<std::pair<std::size_t, double>> m_bulges;
    std::vector<OdGePoint2d> m_straight;
    std::vector<OdGePoint3d> m_bent;
    Part* m_part = nullptr;
};

// Appends a part to the scene, with the entities that are drawn elsewhere where they belong.
// `layerStyles`: the scene's numbers of the styles that are all by layer, as far as they are known.
void takeOver(const Part& part, Scene& scene, std::vector<std::uint32_t>& layerStyles,
              const std::function<void(RecordId)>& other) {
    std::vector<std::uint32_t> styles(part.sources.size());
    for (std::size_t i = 0; i < styles.size(); ++i)
        styles[i] = scene.styles.intern(part.sources[i]);
    auto styleOf = [&](std::uint32_t number) {
        if (!(number & allByLayer)) return styles[number];
        const std::uint32_t layer = number & ~allByLayer;
        if (layer >= layerStyles.size()) layerStyles.resize(scene.styles.layers().size(), none);
        std::uint32_t& style = layerStyles[layer];
        if (style == none) style = scene.styles.intern(sourceOf({}, layer, 0, {}));
        return style;
    };
    std::size_t item = 0, point = 0;
    for (std::size_t i = 0; i < part.made.size();) {
        if (!part.made[i].quick) {
            other(part.made[i++].record);
            continue;
        }
        const std::size_t firstPoint = point;
        const auto shift =
            static_cast<std::uint32_t>(scene.points.size() - point); // may wrap: added back below
        for (; i < part.made.size() && part.made[i].quick; ++i) {
            const Part::Made& made = part.made[i];
            point += made.points;
            if (made.items == 0) continue;
            const auto entity = static_cast<std::uint32_t>(scene.entities.size());
            scene.entities.push_back({made.record, static_cast<std::uint32_t>(scene.items.size()), made.items});
            ++scene.drawn;
            for (std::uint32_t k = 0; k < made.items; ++k) {
                Item own = part.items[item++];
                own.first += shift;
                own.style = styleOf(own.style);
                own.entity = entity;
                scene.items.push_back(own);
            }
        }
        scene.points.insert(scene.points.end(), part.points.begin() + static_cast<std::ptrdiff_t>(firstPoint),
                            part.points.begin() + static_cast<std::ptrdiff_t>(point));
    }
}

} // namespace

void drawAll(const RecordStore& store, std::span<const RecordId> records, const RawNames& names, Scene& scene,
             const std::function<void(RecordId)>& other) {
    const std::size_t count = (records.size() + partSize - 1) / partSize;
    auto recordsOf = [&](std::size_t i) {
        return records.subspan(i * partSize, std::min(partSize, records.size() - i * partSize));
    };
    // With some room for edits: moving all of it for the first one would take longer than drawing that.
    const std::size_t room = records.size() + records.size() / 64 + 64;
    scene.items.reserve(scene.items.size() + room);
    scene.entities.reserve(scene.entities.size() + room);
    scene.points.reserve(scene.points.size() + room * 2);
    std::vector<std::uint32_t> layerStyles;
    std::vector<Part> parts(count), spare; // memory goes from one part to the next
    std::mutex mutex;
    std::condition_variable changed;
    std::size_t next = 0, taken = 0;
    // `most`: how far ahead of what was taken over the thread may run.
    auto work = [&](Decoder& decoder, std::unique_lock<std::mutex>& lock) {
        const std::size_t own = next++;
        if (!spare.empty()) {
            parts[own] = std::move(spare.back());
            spare.pop_back();
        }
        lock.unlock();
        decoder.decode(recordsOf(own), parts[own]);
        lock.lock();
        parts[own].ready = true;
        changed.notify_all();
    };
    auto decodeBeside = [&] {
        Decoder decoder(store, names);
        std::unique_lock lock(mutex);
        for (;;) {
            changed.wait(lock, [&] { return next >= count || next < taken + partsAhead; });
            if (next >= count) return;
            work(decoder, lock);
        }
    };
    std::vector<std::thread> threads;
    const std::size_t helpers = std::min<std::size_t>({std::thread::hardware_concurrency(), 4, count});
    for (std::size_t i = 1; i < helpers; ++i)
        threads.emplace_back(decodeBeside);
    Decoder decoder(store, names);
    std::unique_lock lock(mutex);
    while (taken < count) {
        if (parts[taken].ready) {
            lock.unlock();
            takeOver(parts[taken], scene, layerStyles, other);
            parts[taken].clear();
            lock.lock();
            spare.push_back(std::move(parts[taken]));
            ++taken;
            changed.notify_all();
        } else if (next < count) {
            work(decoder, lock);
        } else {
            changed.wait(lock, [&] { return parts[taken].ready; });
        }
    }
    lock.unlock();
    for (std::thread& thread : threads)
        thread.join();
}

} // namespace tv::scene
