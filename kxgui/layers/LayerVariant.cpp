#include "kxgui/layers/LayerVariant.h"

#include <compare>
#include <type_traits>

namespace kx::layers {
namespace {

int signOf(std::strong_ordering order) { return order < 0 ? -1 : order > 0 ? 1 : 0; }
int signOf(std::weak_ordering order) { return order < 0 ? -1 : order > 0 ? 1 : 0; }

} // namespace

int CompareItems(const LayerVariant& a, const LayerVariant& b, const tv::text::Collator& collator) {
    if (a.index() != b.index()) return 0;
    return std::visit(
        [&](const auto& one) {
            using Value = std::decay_t<decltype(one)>;
            const auto& other = std::get<Value>(b);
            if constexpr (std::is_same_v<Value, std::monostate>)
                return 0;
            else if constexpr (std::is_same_v<Value, std::wstring>)
                return one.empty() || other.empty() ? int{!one.empty()} - int{!other.empty()}
                                                    : collator.compare(one, other);
            else if constexpr (std::is_same_v<Value, LayerDate>)
                return signOf(std::weak_order(one.days, other.days));
            else if constexpr (std::is_floating_point_v<Value>)
                return signOf(std::weak_order(one, other)); // what is no number has its place, too
            else
                return signOf(one <=> other);
        },
        a);
}

} // namespace kx::layers
