#include "platform/host/sysvars/SysvarDescriptions.h"

#include "platform/host/sysvars/SysvarRules.h"
#include "platform/text/Numbers.h"
#include "platform/text/Unicode.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace tv::host {

namespace {

std::string_view nameOf(const text::TableText* row) {
    return std::string_view(row->key).substr(kSysvarTextKey.size());
}

std::vector<const text::TableText*> sortedDescriptions() {
    std::vector<const text::TableText*> table;
    for (const auto part : {generalDescriptions(), dimensionDescriptions(), ucsDescriptions(),
                            surfaceDescriptions(), userDescriptions()})
        for (const text::TableText& row : part)
            table.push_back(&row);
    std::ranges::sort(table, {}, nameOf);
    return table;
}

// Angles are typed in radians: four decimals, rounded towards the inside of the range.
std::wstring bound(const SysvarInfo& info, double value, bool low) {
    if (info.type != TavoSysvarType::kAngle) return text::printReal(value);
    const double scaled = value * 10000;
    return text::printReal((low ? std::ceil(scaled) : std::floor(scaled)) / 10000);
}

std::wstring listOf(std::span<const std::int16_t> values) {
    std::wstring list;
    for (const std::int16_t value : values)
        list += (list.empty() ? L"" : L", ") + text::printInt(value);
    return list;
}

} // namespace

std::span<const text::TableText* const> sysvarDescriptions() {
    static const std::vector<const text::TableText*> table = sortedDescriptions();
    return table;
}

OdString sysvarDescription(std::wstring_view name) {
    const auto table = sysvarDescriptions();
    const std::string upper = text::toUtf8(text::toUpper(name));
    const auto it = std::ranges::lower_bound(table, std::string_view(upper), {}, nameOf);
    return it != table.end() && nameOf(*it) == upper ? OdString((*it)->text()) : OdString();
}

OdString sysvarHomeText(SysvarHome home) {
    switch (home) {
    case SysvarHome::kHeader:
        return OdString(VORD_ResourceString("IDS_TAVO_SYSVAR_HOME_HEADER", L"도면"));
    case SysvarHome::kHeaderOrProfile:
        return OdString(
            VORD_ResourceString("IDS_TAVO_SYSVAR_HOME_HEADER_OR_PROFILE", L"도면 또는 사용자 프로파일"));
    case SysvarHome::kHeaderOrDrawing:
        return OdString(
            VORD_ResourceString("IDS_TAVO_SYSVAR_HOME_HEADER_OR_DRAWING", L"도면 또는 도면을 닫을 때까지"));
    case SysvarHome::kCurrentDimStyle:
        return OdString(VORD_ResourceString("IDS_TAVO_SYSVAR_HOME_DIMSTYLE", L"현재 치수 스타일"));
    case SysvarHome::kComputed:
        return OdString(VORD_ResourceString("IDS_TAVO_SYSVAR_HOME_COMPUTED", L"도면의 다른 변수"));
    case SysvarHome::kProfile:
        return OdString(VORD_ResourceString("IDS_TAVO_SYSVAR_HOME_PROFILE", L"사용자 프로파일"));
    case SysvarHome::kDrawing:
        return OdString(VORD_ResourceString("IDS_TAVO_SYSVAR_HOME_DRAWING", L"도면을 닫을 때까지"));
    case SysvarHome::kSession:
        return OdString(VORD_ResourceString("IDS_TAVO_SYSVAR_HOME_SESSION", L"프로그램을 끝낼 때까지"));
    }
    return {};
}

OdString sysvarRangeText(const SysvarInfo& info) {
    switch (info.limit) {
    case SysvarLimit::kRange:
        return OdString(bound(info, info.minimum, true) + L" \u2013 " + bound(info, info.maximum, false));
    case SysvarLimit::kOneOf:
        return OdString(listOf(info.allowed));
    case SysvarLimit::kPositive:
        return OdString(L"> 0");
    case SysvarLimit::kNotNegative:
        return OdString(L"\u2265 0");
    case SysvarLimit::kNone:
        break;
    }
    const bool inHeader = info.type == TavoSysvarType::kColor && info.home == SysvarHome::kHeader;
    return OdString(inHeader ? indexColorText() : formText(info));
}

} // namespace tv::host
