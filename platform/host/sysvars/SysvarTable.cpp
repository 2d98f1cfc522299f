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
    // Asked for all the time, mostly in the form the table has.
    constexpr auto isPlain = [](wchar_t ch) { return (ch >= L'A' && ch <= L'Z') || (ch >= L'0' && ch <= L'9'); };
    std::wstring folded;
    if (!std::ranges::all_of(name, isPlain)) name = folded = text::toUpper(name);
    const auto table = sysvarTable();
    const auto it = std::ranges::lower_bound(table, name, {}, nameOf);
    return it != table.end() && (*it)->name == name ? *it : nullptr;
}

} // namespace tv::host
