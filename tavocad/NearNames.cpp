#include "tavocad/NearNames.h"

#include "platform/text/Unicode.h"

#include <algorithm>
#include <numeric>

namespace {

// Letters put in, left out, changed, or swapped with their neighbour.
std::size_t editDistance(std::wstring_view a, std::wstring_view b) {
    std::vector<std::size_t> beforeLast(b.size() + 1), last(b.size() + 1), row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < a.size(); ++i) {
        beforeLast.swap(last);
        last.swap(row);
        row[0] = i + 1;
        for (std::size_t j = 0; j < b.size(); ++j) {
            row[j + 1] = std::min({last[j] + (a[i] != b[j]), last[j + 1] + 1, row[j] + 1});
            if (i > 0 && j > 0 && a[i] == b[j - 1] && a[i - 1] == b[j])
                row[j + 1] = std::min(row[j + 1], beforeLast[j - 1] + 1);
        }
    }
    return row.back();
}

} // namespace

std::vector<std::wstring> nearNames(std::wstring_view name, const std::vector<std::wstring>& candidates,
                                    std::size_t most) {
    constexpr std::size_t longestName = 100;
    struct Near {
        std::size_t distance;
        const std::wstring* name;
    };
    std::vector<Near> near;
    const std::wstring wanted = tv::text::foldCase(name.substr(0, longestName));
    for (const std::wstring& candidate : candidates) {
        const std::size_t distance = editDistance(wanted, tv::text::foldCase(candidate));
        if (distance <= std::max<std::size_t>(1, wanted.size() / 3)) near.push_back({distance, &candidate});
    }
    std::stable_sort(near.begin(), near.end(),
                     [](const Near& a, const Near& b) { return a.distance < b.distance; });
    std::vector<std::wstring> names;
    for (std::size_t i = 0; i < std::min(most, near.size()) && near[i].distance <= near[0].distance + 1; ++i)
        names.push_back(*near[i].name);
    return names;
}

std::wstring joined(const std::vector<std::wstring>& names) {
    std::wstring text;
    for (const std::wstring& name : names) {
        if (!text.empty()) text += L", ";
        text += name;
    }
    return text;
}
