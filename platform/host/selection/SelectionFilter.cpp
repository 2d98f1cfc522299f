#include "platform/host/selection/SelectionFilter.h"

#include "platform/drawing/OdDbEntity.h"
#include "platform/text/Unicode.h"

#include <algorithm>

namespace tv::host {

bool fitsPattern(std::wstring_view name, std::wstring_view pattern) {
    const std::wstring text = tv::text::foldCase(name), wanted = tv::text::foldCase(pattern);
    // One star is enough to go back to: a later one can do whatever an earlier one could.
    std::size_t at = 0, p = 0, star = std::wstring::npos, resume = 0;
    while (at < text.size()) {
        if (p < wanted.size() && wanted[p] == L'*') {
            star = p++;
            resume = at;
        } else if (p < wanted.size() && (wanted[p] == L'?' || wanted[p] == text[at])) {
            ++p;
            ++at;
        } else if (star != std::wstring::npos) {
            p = star + 1;
            at = ++resume;
        } else {
            return false;
        }
    }
    return wanted.find_first_not_of(L'*', p) == std::wstring::npos;
}

} // namespace tv::host

namespace {

bool anyFits(const std::vector<OdString>& patterns, const OdString& name) {
    return patterns.empty() || std::ranges::any_of(patterns, [&](const OdString& pattern) {
               return tv::host::fitsPattern(name.view(), pattern.view());
           });
}

} // namespace

bool TavoSelectionFilter::matches(const OdDbEntity& entity) const {
    if (!types.empty() && !anyFits(types, entity.isA())) return false;
    if (!layers.empty() && !anyFits(layers, entity.layer())) return false;
    if (!linetypes.empty() && !anyFits(linetypes, entity.linetype())) return false;
    if (!colors.empty() && std::ranges::find(colors, entity.color()) == colors.end()) return false;
    if (!lineWeights.empty() && std::ranges::find(lineWeights, entity.lineWeight()) == lineWeights.end())
        return false;
    return !also || also(entity);
}
