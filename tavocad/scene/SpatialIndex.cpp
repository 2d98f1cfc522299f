#include "tavocad/scene/SpatialIndex.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tv::scene {
namespace {

constexpr float farthest = 1e37F; // differences of two such are still finite

float rounded(double value, float towards) {
    if (!(value > -farthest)) return -farthest;
    if (value > farthest) return farthest;
    const auto near = static_cast<float>(value);
    const bool short_ = towards < 0 ? near > value : near < value;
    return short_ ? std::nextafter(near, towards) : near;
}

// Puts a zero between the bits of the lower half.
std::uint32_t spread(std::uint32_t x) {
    x = (x | x << 8) & 0x00FF00FF;
    x = (x | x << 4) & 0x0F0F0F0F;
    x = (x | x << 2) & 0x33333333;
    return (x | x << 1) & 0x55555555;
}

struct Place {
    std::uint32_t key = 0, number = 0;
};

void sortByKey(std::vector<Place>& places) {
    constexpr unsigned bits = 11;
    constexpr std::size_t buckets = std::size_t{1} << bits;
    std::vector<Place> other(places.size());
    std::vector<std::uint32_t> counts(buckets);
    for (unsigned shift = 0; shift < 32; shift += bits) {
        std::fill(counts.begin(), counts.end(), 0U);
        for (const Place& place : places)
            ++counts[place.key >> shift & (buckets - 1)];
        std::uint32_t sum = 0;
        for (std::uint32_t& count : counts) {
            const std::uint32_t here = count;
            count = sum;
            sum += here;
        }
        for (const Place& place : places)
            other[counts[place.key >> shift & (buckets - 1)]++] = place;
        places.swap(other);
    }
}

} // namespace

SpatialIndex::Small SpatialIndex::smallOf(const Box& box, OdGePoint2d origin) {
    constexpr float low = std::numeric_limits<float>::lowest(), high = std::numeric_limits<float>::max();
    if (box.empty()) return {};
    return {rounded(box.left - origin.x, low), rounded(box.bottom - origin.y, low),
            rounded(box.right - origin.x, high), rounded(box.top - origin.y, high)};
}

void SpatialIndex::build(std::vector<Small> boxes, OdGePoint2d origin) {
    *this = {};
    m_origin = origin;
    Small all{farthest, farthest, -farthest, -farthest};
    for (const Small& box : boxes) {
        if (box.empty()) continue;
        all = {std::min(all.left, box.left), std::min(all.bottom, box.bottom), std::max(all.right, box.right),
               std::max(all.top, box.top)};
    }
    const float stepX = 65535 / std::max(all.right - all.left, 1e-30F);
    const float stepY = 65535 / std::max(all.top - all.bottom, 1e-30F);
    auto cell = [](float middle, float low, float step) {
        return static_cast<std::uint32_t>(std::clamp((middle - low) * step, 0.0F, 65535.0F));
    };
    std::vector<Place> places;
    places.reserve(boxes.size());
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        const Small& box = boxes[i];
        if (box.empty()) continue;
        places.push_back({spread(cell(box.left / 2 + box.right / 2, all.left, stepX)) |
                              spread(cell(box.bottom / 2 + box.top / 2, all.bottom, stepY)) << 1,
                          static_cast<std::uint32_t>(i)});
    }
    if (places.empty()) return;
    sortByKey(places);
    m_numbers.resize(places.size());
    m_boxes.reserve(places.size() + places.size() / (fan - 1) + mostLevels);
    for (std::size_t i = 0; i < places.size(); ++i) {
        m_numbers[i] = places[i].number;
        m_boxes.push_back(boxes[places[i].number]);
    }
    m_levels = 1;
    m_starts[1] = m_boxes.size();
    while (m_starts[m_levels] - m_starts[m_levels - 1] > fan) {
        const std::size_t first = m_starts[m_levels - 1], past = m_starts[m_levels];
        for (std::size_t i = first; i < past; i += fan) {
            Small node = m_boxes[i];
            for (std::size_t k = i + 1; k < std::min(i + fan, past); ++k) {
                const Small& box = m_boxes[k];
                node = {std::min(node.left, box.left), std::min(node.bottom, box.bottom),
                        std::max(node.right, box.right), std::max(node.top, box.top)};
            }
            m_boxes.push_back(node);
        }
        m_starts[++m_levels] = m_boxes.size();
    }
}

} // namespace tv::scene
