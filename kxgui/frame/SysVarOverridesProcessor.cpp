#include "kxgui/frame/SysVarOverridesProcessor.h"

#include "kxgui/frame/SysVarBuffers.h"
#include "platform/host/TavoCommandLine.h"
#include "platform/host/TavoInterfaces.h"
#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"
#include "platform/text/Unicode.h"

#include <algorithm>
#include <optional>
#include <unordered_set>

std::deque<_tSysVar_DlgItem>& getSysVarDlgItems() {
    static std::deque<_tSysVar_DlgItem> items;
    return items;
}

SysVarOverridesProcessor::SysVarOverridesProcessor(OdDbDatabasePtr database)
    : m_manager(getSysvarManagerInterface(getTavoInterfaces())), m_database(std::move(database)) {}

SysVarOverridesProcessor::SysVarOverridesProcessor(const SysVarOverridesProcessor& other)
    : m_manager(other.m_manager), m_database(other.m_database) {}

SysVarOverridesProcessor& SysVarOverridesProcessor::operator=(const SysVarOverridesProcessor& other) {
    if (this == &other) return *this;
    SysVarOverridesProcessor::cleanStorage();
    m_manager = other.m_manager;
    m_database = other.m_database;
    return *this;
}

SysVarOverridesProcessor::~SysVarOverridesProcessor() { SysVarOverridesProcessor::cleanStorage(); }

// --- the staged list ---

bool SysVarOverridesProcessor::putSysVarToOverridesList(_tSysVar_DlgItem& item, const OdResBuf& value) {
    if (item.overridden && item.node) {
        item.node->value = value;
        return true;
    }
    if (m_overrides.size() >= kMaxOverrides) {
        tvedPrint(VORD_ResourceString("IDS_TAVO_SYSVAR_LIST_TOO_LONG", L"list<T> too long").c_str());
        return false;
    }
    m_overrides.push_back({&item, value});
    item.overridden = true;
    item.node = &m_overrides.back();
    if (item.shared) markOverrideSysVar(item);
    return true;
}

void SysVarOverridesProcessor::eraseSysVarFromOverridesList(_tSysVar_DlgItem& item) {
    const auto entry = std::ranges::find_if(
        m_overrides, [&](const SysVarOverride& e) { return tv::text::equalNoCase(e.item->name, item.name); });
    if (entry == m_overrides.end()) return;
    const SysVarOverride* removed = &*entry;
    const auto clear = [](_tSysVar_DlgItem& record) {
        record.overridden = false;
        record.node = nullptr;
    };
    clear(item);
    clear(*entry->item);
    if (item.shared) markOverrideSysVar(item);
    // A record that shows the same value for another owner must not keep pointing at what is gone.
    for (_tSysVar_DlgItem& record : getSysVarDlgItems())
        if (record.node == removed) clear(record);
    m_overrides.erase(entry);
}

void SysVarOverridesProcessor::markOverrideSysVar(const _tSysVar_DlgItem& item) {
    if (!item.shared || item.name.empty() || item.kind == _tSysVar_DlgItem::kNotMarked) return;
    for (_tSysVar_DlgItem& record : getSysVarDlgItems()) {
        if (!record.shared || record.owner != item.owner || !tv::text::equalNoCase(record.name, item.name))
            continue;
        record.overridden = item.overridden;
        record.node = item.node;
    }
}

void SysVarOverridesProcessor::cleanStorage() {
    std::unordered_set<const SysVarOverride*> own;
    for (const SysVarOverride& entry : m_overrides)
        own.insert(&entry);
    for (_tSysVar_DlgItem& record : getSysVarDlgItems()) {
        if (record.node && !own.contains(record.node))
            continue; // staged by another processor, which still needs it
        record.overridden = false;
        record.node = nullptr;
    }
    for (const SysVarOverride& entry : m_overrides) { // records that are not in the table
        entry.item->overridden = false;
        entry.item->node = nullptr;
    }
    m_overrides.clear();
}

const OdResBuf* SysVarOverridesProcessor::staged(const _tSysVar_DlgItem& item) const {
    return item.overridden && item.node ? &item.node->value : nullptr;
}

const OdResBuf* SysVarOverridesProcessor::staged(std::wstring_view name) const {
    const auto entry = std::ranges::find_if(m_overrides, [&](const auto& e) { return e.item->name == name; });
    return entry == m_overrides.end() ? nullptr : &entry->value;
}

// --- staging ---

template <class T>
bool SysVarOverridesProcessor::stage(_tSysVar_DlgItem& item, const T& value) {
    T current{};
    if (m_manager && kx::sysvar::readCurrent(*m_manager, item.name, m_database, current) && current == value) {
        eraseSysVarFromOverridesList(item);
        return false;
    }
    const auto buffer = kx::sysvar::toBuffer(value);
    return buffer && putSysVarToOverridesList(item, *buffer);
}

bool SysVarOverridesProcessor::overrideSysVar(_tSysVar_DlgItem& item, bool value) { return stage(item, value); }
bool SysVarOverridesProcessor::overrideSysVar(_tSysVar_DlgItem& item, int value) { return stage(item, value); }
bool SysVarOverridesProcessor::overrideSysVar(_tSysVar_DlgItem& item, double value) {
    return stage(item, value);
}
bool SysVarOverridesProcessor::overrideSysVar(_tSysVar_DlgItem& item, const TvString& value) {
    return stage(item, value);
}
bool SysVarOverridesProcessor::overrideSysVar(_tSysVar_DlgItem& item, const OdGePoint2d& value) {
    return stage(item, value);
}
bool SysVarOverridesProcessor::overrideSysVar(_tSysVar_DlgItem& item, const OdGePoint3d& value) {
    return stage(item, value);
}
bool SysVarOverridesProcessor::overrideSysVar(_tSysVar_DlgItem& item, const OdCmColor& value) {
    return stage(item, value);
}
bool SysVarOverridesProcessor::overrideSysVar(_tSysVar_DlgItem& item, const OdDbObjectId& value) {
    return stage(item, value);
}

// --- reading ---

template <class T>
bool SysVarOverridesProcessor::read(std::wstring_view name, const OdResBuf* staged, T& value) const {
    if (staged) {
        kx::sysvar::fromBuffer(*staged, value);
        return true;
    }
    if (m_manager) kx::sysvar::readCurrent(*m_manager, name, m_database, value);
    return false;
}

bool SysVarOverridesProcessor::getSysVarWithOverrides(const _tSysVar_DlgItem& item, bool& value) const {
    return read(item.name, staged(item), value);
}
bool SysVarOverridesProcessor::getSysVarWithOverrides(const _tSysVar_DlgItem& item, int& value) const {
    return read(item.name, staged(item), value);
}
bool SysVarOverridesProcessor::getSysVarWithOverrides(const _tSysVar_DlgItem& item, double& value) const {
    return read(item.name, staged(item), value);
}
bool SysVarOverridesProcessor::getSysVarWithOverrides(const _tSysVar_DlgItem& item, TvString& value) const {
    return read(item.name, staged(item), value);
}
bool SysVarOverridesProcessor::getSysVarWithOverrides(const _tSysVar_DlgItem& item, OdGePoint2d& value) const {
    return read(item.name, staged(item), value);
}
bool SysVarOverridesProcessor::getSysVarWithOverrides(const _tSysVar_DlgItem& item, OdGePoint3d& value) const {
    return read(item.name, staged(item), value);
}
bool SysVarOverridesProcessor::getSysVarWithOverrides(const _tSysVar_DlgItem& item, OdCmColor& value) const {
    return read(item.name, staged(item), value);
}
bool SysVarOverridesProcessor::getSysVarWithOverrides(const _tSysVar_DlgItem& item, OdDbObjectId& value) const {
    return read(item.name, staged(item), value);
}

bool SysVarOverridesProcessor::getSysVarWithOverrides(std::wstring_view name, bool& value) const {
    return read(name, staged(name), value);
}
bool SysVarOverridesProcessor::getSysVarWithOverrides(std::wstring_view name, int& value) const {
    return read(name, staged(name), value);
}
bool SysVarOverridesProcessor::getSysVarWithOverrides(std::wstring_view name, double& value) const {
    return read(name, staged(name), value);
}
bool SysVarOverridesProcessor::getSysVarWithOverrides(std::wstring_view name, TvString& value) const {
    return read(name, staged(name), value);
}
bool SysVarOverridesProcessor::getSysVarWithOverrides(std::wstring_view name, OdGePoint2d& value) const {
    return read(name, staged(name), value);
}
bool SysVarOverridesProcessor::getSysVarWithOverrides(std::wstring_view name, OdGePoint3d& value) const {
    return read(name, staged(name), value);
}
bool SysVarOverridesProcessor::getSysVarWithOverrides(std::wstring_view name, OdCmColor& value) const {
    return read(name, staged(name), value);
}
bool SysVarOverridesProcessor::getSysVarWithOverrides(std::wstring_view name, OdDbObjectId& value) const {
    return read(name, staged(name), value);
}

TavoSysvarType SysVarOverridesProcessor::getVarType(std::wstring_view name) const {
    return m_manager ? m_manager->type(OdString(name)) : TavoSysvarType::kNone;
}

// --- ranges ---

bool SysVarOverridesProcessor::validateSysvarValue(std::wstring_view name, double& value) const {
    const auto range = m_manager ? m_manager->range(OdString(name)) : std::nullopt;
    if (!range || !(range->maximum > range->minimum)) return true;
    if (value < range->minimum)
        value = range->minimum;
    else if (value > range->maximum)
        value = range->maximum;
    else
        return true;
    return false;
}

bool SysVarOverridesProcessor::validateSysvarValue(std::wstring_view name, int& value) const {
    double real = value;
    const bool valid = validateSysvarValue(name, real);
    value = static_cast<int>(real);
    return valid;
}

// --- commit ---

std::vector<OdString> SysVarOverridesProcessor::saveVariablesToDataBase() {
    std::vector<OdString> refused;
    if (!m_manager) {
        for (const SysVarOverride& entry : m_overrides)
            refused.emplace_back(entry.item->name);
        return refused;
    }
    std::optional<OdDbUndoScope> undo;
    if (m_database) undo.emplace(*m_database, L"_SETVAR");
    for (const SysVarOverride& entry : m_overrides)
        if (write(entry) != Tavo::eOk) refused.emplace_back(entry.item->name);
    return refused;
}

Tavo::ErrorStatus SysVarOverridesProcessor::write(const SysVarOverride& entry) {
    const OdString name(entry.item->name);
    if (kx::sysvar::isNotWritten(entry.value.restype())) return Tavo::eOk;
    const auto value = kx::sysvar::toWrite(*entry.item, entry.value, getVarType(name.view()));
    if (!value) {
        tvedPrint(tv::text::format(VORD_ResourceString("IDS_TAVO_SYSVAR_NOT_WRITABLE",
                                                       L"시스템 변수 %s에 형식 %d의 값을 쓸 수 없습니다."),
                                   name, entry.value.restype()));
        return Tavo::eWrongType;
    }
    const auto status = m_manager->setVar(name, *value, m_database);
    if (status != Tavo::eOk) tvedPrint(m_manager->lastProblem().sentence);
    return status;
}
