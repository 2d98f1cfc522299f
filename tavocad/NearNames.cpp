#include "tavocad/NearNames.h"

#include "platform/text/Unicode.h"

#include <algorithm>
#include <numeric>

namespace {

std::size_t editDistance(std::wstring_view a, std::wstring_view b) {
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < a.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i + 1;
        for (std::size_t j = 0; j < b.size(); ++j) {
            const std::size_t replaced = diagonal + (a[i] != b[j]);
            diagonal = row[j + 1];
            row[j + 1] = std::min({replaced, row[j] + 1, diagonal + 1});
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
        if (distance <= 2 + wanted.size() / 4) near.push_back({distance, &candidate});
    }
    std::stable_sort(near.begin(), near.end(),
                     [](const Near& a, const Near& b) { return a.distance < b.distance; });
    std::vector<std::wstring> names;
    for (std::size_t i = 0; i < std::min(most, near.size()); ++i)
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
