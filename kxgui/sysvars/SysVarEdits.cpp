#include "kxgui/sysvars/SysVarEdits.h"

#include "kxgui/frame/SysVarBuffers.h"
#include "platform/host/TavoInterfaces.h"
#include "platform/host/sysvars/RecordLookup.h"
#include "platform/host/sysvars/SysvarBuffer.h"
#include "platform/host/sysvars/SysvarColor.h"
#include "platform/host/sysvars/SysvarDescriptions.h"
#include "platform/host/sysvars/SysvarRules.h"
#include "platform/text/Format.h"
#include "platform/text/Numbers.h"
#include "platform/text/ResourceString.h"
#include "platform/text/Unicode.h"

#include <algorithm>
#include <limits>
#include <map>

using namespace tv::host;

namespace kx::sysvar {
namespace {

// The records of all variables, made once and found again by the next dialog.
std::map<std::wstring, _tSysVar_DlgItem*> ownItems() {
    std::map<std::wstring, _tSysVar_DlgItem*> items;
    for (_tSysVar_DlgItem& item : getSysVarDlgItems())
        if (item.owner == SysVarEdits::kOwner) items.emplace(item.name, &item);
    return items;
}

// A variable only the host knows has no rules but its type's.
SysvarInfo infoOf(const TavoSysvarManager& manager, const std::wstring& name) {
    if (const SysvarInfo* known = findSysvar(name)) return *known;
    SysvarInfo info{name.c_str(), manager.type(name), {}};
    const auto range = manager.range(name);
    return range ? info.in(range->minimum, range->maximum) : info;
}

bool isNumber(TavoSysvarType type) {
    using enum TavoSysvarType;
    return type == kInt16 || type == kInt32 || type == kReal || type == kAngle;
}

std::wstring_view trimmed(std::wstring_view text) {
    const auto first = text.find_first_not_of(L" \t");
    if (first == std::wstring_view::npos) return {};
    return text.substr(first, text.find_last_not_of(L" \t") - first + 1);
}

} // namespace

SysVarEdits::SysVarEdits(OdDbDatabasePtr database) : SysVarOverridesProcessor(std::move(database)) {
    const TavoSysvarManager* manager = getSysvarManagerInterface(getTavoInterfaces());
    if (!manager) return;
    auto items = ownItems();
    for (const OdString& name : manager->names()) {
        _tSysVar_DlgItem*& item = items[name.wstr()];
        if (!item)
            item = &getSysVarDlgItems().emplace_back(
                _tSysVar_DlgItem{.name = name.wstr(), .owner = kOwner, .shared = true});
        OdString value;
        const bool available = manager->getText(name, value, GetDataBase()) == Tavo::eOk;
        m_entries.push_back({item, infoOf(*manager, item->name), manager->isReadOnly(name), available});
    }
}

int SysVarEdits::indexOf(std::wstring_view name) const {
    const auto found = std::ranges::find_if(
        m_entries, [&](const SysVarEntry& entry) { return tv::text::equalNoCase(entry.name(), name); });
    return found == m_entries.end() ? -1 : static_cast<int>(found - m_entries.begin());
}

std::wstring SysVarEdits::text(int index) const {
    const SysVarEntry& entry = m_entries[static_cast<std::size_t>(index)];
    if (entry.item->overridden && entry.item->node) {
        SysvarValue value = entry.item->node->value.value();
        return toType(entry.info, value) ? textOf(entry.info, value) : std::wstring();
    }
    const TavoSysvarManager* manager = getSysvarManagerInterface(getTavoInterfaces());
    OdString text;
    if (!manager || manager->getText(entry.name(), text, GetDataBase()) != Tavo::eOk) return {};
    return text.wstr();
}

bool SysVarEdits::changed(int index) const {
    return m_entries[static_cast<std::size_t>(index)].item->overridden;
}

int SysVarEdits::changedCount() const {
    return static_cast<int>(
        std::ranges::count_if(m_entries, [](const SysVarEntry& e) { return e.item->overridden; }));
}

Entered SysVarEdits::enter(int index, std::wstring_view text) {
    SysVarEntry& entry = m_entries[static_cast<std::size_t>(index)];
    const SysvarInfo& info = entry.info;
    const auto refused = [&](Tavo::ErrorStatus status) {
        return Entered{refusal(info, status, text).sentence, {}};
    };
    if (entry.readOnly) return refused(Tavo::eReadOnly);
    if (!entry.available) return refused(Tavo::eNoDatabase);
    if (isNumber(info.type)) return enterNumber(entry, text);
    if (info.type == TavoSysvarType::kObjectId) return enterRecord(entry, text);
    if (info.type == TavoSysvarType::kText) {
        // A value is one line of the file.
        if (std::ranges::any_of(text, [](wchar_t c) { return c < L' ' && c != L'\t'; }))
            return refused(Tavo::eInvalidInput);
        overrideSysVar(*entry.item, TvString(text));
        return {};
    }
    auto value = valueOf(info, trimmed(text));
    if (!value || !toType(info, *value)) return refused(Tavo::eWrongType);
    if (const auto* color = std::get_if<std::int64_t>(&*value)) {
        const bool indexOnly = homeIn(info, GetDataBase().get()) == SysvarHome::kHeader;
        const auto meant = colorOfCode(*color);
        if (!meant || (indexOnly && !indexOfColor(*color))) return refused(Tavo::eOutOfRange);
        overrideSysVar(*entry.item, *meant);
    } else if (const auto* flat = std::get_if<OdGePoint2d>(&*value)) {
        overrideSysVar(*entry.item, *flat);
    } else if (const auto* point = std::get_if<OdGePoint3d>(&*value)) {
        overrideSysVar(*entry.item, *point);
    } else {
        return refused(Tavo::eWrongType);
    }
    return {};
}

Entered SysVarEdits::enterNumber(SysVarEntry& entry, std::wstring_view text) {
    const SysvarInfo& info = entry.info;
    const auto refused = [&](Tavo::ErrorStatus status) {
        return Entered{refusal(info, status, text).sentence, {}};
    };
    const bool whole = info.type == TavoSysvarType::kInt16 || info.type == TavoSysvarType::kInt32;
    SysvarValue taken;
    bool inRange = true;
    if (whole) {
        const auto entered = tv::text::parseInt(text);
        if (!entered) return refused(Tavo::eWrongType);
        using Limits = std::numeric_limits<int>;
        const auto held = std::clamp<std::int64_t>(*entered, Limits::min(), Limits::max());
        int value = static_cast<int>(held);
        inRange = validateSysvarValue(entry.name(), value) && held == *entered;
        taken = std::int64_t{value};
    } else {
        const auto entered = tv::text::parseReal(text);
        if (!entered) return refused(Tavo::eWrongType);
        double value = *entered;
        inRange = validateSysvarValue(entry.name(), value);
        taken = value;
    }
    // Not every limit is a range a number could be brought into.
    if (!isAllowed(info, taken)) return refused(Tavo::eOutOfRange);
    if (!whole)
        overrideSysVar(*entry.item, std::get<double>(taken));
    else if (info.type == TavoSysvarType::kInt16)
        overrideSysVar(*entry.item, static_cast<int>(std::get<std::int64_t>(taken)));
    else
        stageLong(*entry.item, static_cast<int>(std::get<std::int64_t>(taken)));
    if (inRange) return {};
    return {
        {},
        tv::text::format(VORD_ResourceString("IDS_TAVO_SYSVARS_CLAMPED",
                                             L"%s의 값 %s은(는) 허용 범위(%s)를 벗어나 %s(으)로 바꾸었습니다."),
                         entry.name(), trimmed(text), sysvarRangeText(info).wstr(), textOf(info, taken))};
}

Entered SysVarEdits::enterRecord(SysVarEntry& entry, std::wstring_view text) {
    const std::wstring_view name = trimmed(text);
    const OdDbDatabase* database = GetDataBase().get();
    const OdDbObjectId record = database ? findRecord(*database, entry.info.record, name) : OdDbObjectId();
    if (!record.isNull()) {
        overrideSysVar(*entry.item, record);
        return {};
    }
    if (!isFreeName(entry.info, name)) return {refusal(entry.info, Tavo::eKeyNotFound, text).sentence, {}};
    overrideSysVar(*entry.item, TvString(name));
    return {};
}

// The processor's own integers are those of 16 bits.
void SysVarEdits::stageLong(_tSysVar_DlgItem& item, int value) {
    const TavoSysvarManager* manager = getSysvarManagerInterface(getTavoInterfaces());
    int current = 0;
    if (manager && readCurrent(*manager, item.name, GetDataBase(), current) && current == value)
        eraseSysVarFromOverridesList(item);
    else
        putSysVarToOverridesList(item, OdResBuf(OdResBuf::kRtInt32, std::int64_t{value}));
}

void SysVarEdits::reset(int index) {
    eraseSysVarFromOverridesList(*m_entries[static_cast<std::size_t>(index)].item);
}

Entered SysVarEdits::enterDefault(int index) {
    const SysvarInfo& info = m_entries[static_cast<std::size_t>(index)].info;
    return enter(index, textOf(info, defaultValue(info)));
}

std::vector<std::wstring> SysVarEdits::commit() {
    const std::vector<OdString> refused = saveVariablesToDataBase();
    std::vector<std::wstring> names;
    for (const SysVarEntry& entry : m_entries) {
        if (!entry.item->overridden) continue;
        if (std::ranges::find(refused, OdString(entry.name())) == refused.end())
            eraseSysVarFromOverridesList(*entry.item);
        else
            names.push_back(entry.name());
    }
    return names;
}

} // namespace kx::sysvar
