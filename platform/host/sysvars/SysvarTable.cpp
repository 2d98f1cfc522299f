#include "platform/host/sysvars/SysvarInfo.h"

#include "platform/text/Unicode.h"

#include <algorithm>
#include <vector>

namespace tv::host {

namespace {

std::wstring_view nameOf(const SysvarInfo* info) { return info->name; }

std::vector<const SysvarInfo*> sortedTable() {
    std::vector<const SysvarInfo*> table;
    for (const auto part :
         {generalSysvars(), dimensionSysvars(), ucsSysvars(), surfaceSysvars(), userSysvars()})
        for (const SysvarInfo& info : part)
            table.push_back(&info);
    std::ranges::sort(table, {}, nameOf);
    return table;
}

} // namespace

std::span<const SysvarInfo* const> sysvarTable() {
    static const std::vector<const SysvarInfo*> table = sortedTable();
    return table;
}

const SysvarInfo* findSysvar(std::wstring_view name) {
    const std::wstring upper = text::toUpper(name);
    const auto table = sysvarTable();
    const auto it = std::ranges::lower_bound(table, std::wstring_view(upper), {}, nameOf);
    return it != table.end() && (*it)->name == upper ? *it : nullptr;
}

} // namespace tv::host
