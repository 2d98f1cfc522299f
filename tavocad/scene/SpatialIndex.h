#pragma once

#include "tavocad/scene/Box.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace tv::scene {

// Which of many boxes lie where. The boxes are sorted along a curve that keeps neighbours together and packed
// into a tree of flat arrays: every node stands for sixteen of the level below. 21 bytes a box.
class SpatialIndex {
  public:
    // A box in single precision around a point of reference, never smaller than the true one.
    struct Small {
        float left = 0, bottom = 0, right = -1, top = -1;
        bool empty() const { return left > right; }
        bool meets(const Small& other) const {
            return left <= other.right && other.left <= right && bottom <= other.top && other.bottom <= top;
        }
        bool contains(const Small& other) const {
            return left <= other.left && other.right <= right && bottom <= other.bottom && other.top <= top;
        }
    };

    static Small smallOf(const Box& box, OdGePoint2d origin);

    // The box of number i is boxes[i]; empty ones are left out.
    void build(std::vector<Small> boxes, OdGePoint2d origin);
    std::size_t size() const { return m_numbers.size(); }

    // Calls onBox(number) for every box that meets `view`, in no order. A box, or a group of boxes, that is
    // smaller than `smallest` in both directions is handed to onSmall(center, numbers, count) instead.
    template <class OnBox, class OnSmall>
    void visit(const Box& view, double smallest, OnBox&& onBox, OnSmall&& onSmall) const {
        if (m_numbers.empty() || view.empty()) return;
        const Small window = smallOf(view, m_origin);
        const auto size = static_cast<float>(smallest);
        const std::size_t top = m_levels - 1;
        for (std::size_t i = m_starts[top]; i < m_starts[top + 1]; ++i)
            visitNode(top, i - m_starts[top], window, size, false, onBox, onSmall);
    }
    template <class OnBox>
    void visit(const Box& view, OnBox&& onBox) const {
        visit(view, -1, onBox, [](OdGePoint2d, const std::uint32_t*, std::size_t) {});
    }

  private:
    static constexpr std::size_t fan = 16, mostLevels = 10;

    template <class OnBox, class OnSmall>
    void visitNode(std::size_t level, std::size_t node, const Small& window, float smallest, bool inside,
                   OnBox& onBox, OnSmall& onSmall) const {
        const Small& box = m_boxes[m_starts[level] + node];
        if (!inside) {
            if (!box.meets(window)) return;
            inside = window.contains(box);
        }
        if (box.right - box.left < smallest && box.top - box.bottom < smallest) {
            std::size_t first = node, past = node + 1;
            for (std::size_t i = 0; i < level; ++i) {
                first *= fan;
                past *= fan;
            }
            if (past > m_numbers.size()) past = m_numbers.size();
            onSmall(OdGePoint2d{m_origin.x + (double{box.left} + box.right) / 2,
                                m_origin.y + (double{box.bottom} + box.top) / 2},
                    m_numbers.data() + first, past - first);
            return;
        }
        if (level == 0) {
            onBox(m_numbers[node]);
            return;
        }
        const std::size_t count = m_starts[level] - m_starts[level - 1];
        const std::size_t past = (node + 1) * fan < count ? (node + 1) * fan : count;
        for (std::size_t i = node * fan; i < past; ++i)
            visitNode(level - 1, i, window, smallest, inside, onBox, onSmall);
    }

    OdGePoint2d m_origin;
    std::vector<std::uint32_t> m_numbers; // in the order of the lowest level's boxes
    std::vector<Small> m_boxes;           // the lowest level first
    std::array<std::size_t, mostLevels + 1> m_starts{};
    std::size_t m_levels = 0;
};

} // namespace tv::scene
