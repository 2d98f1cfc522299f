#include "platform/host/embedded/DefaultSysvarManager.h"

#include "platform/drawing/OdCmColor.h"
#include "platform/drawing/OdResBuf.h"
#include "platform/host/TavoInterfaces.h"
#include "platform/host/embedded/SysvarStore.h"
#include "platform/host/sysvars/RecordLookup.h"
#include "platform/host/sysvars/SysvarBuffer.h"
#include "platform/host/sysvars/SysvarColor.h"

#include <limits>
#include <utility>

namespace tv::host {

namespace {

OdDbDatabasePtr orWorking(const OdDbDatabasePtr& database) {
    return database ? database : tvedWorkingDatabase();
}

} // namespace

// What the manager's calls have in common: look the variable up, find its drawing, check, write.
class DefaultSysvarManager::Store {
  public:
    explicit Store(tv::SettingsStore* settings) : values(settings) {}

    Tavo::ErrorStatus read(const OdString& name, const OdDbDatabasePtr& database, const SysvarInfo*& info,
                           SysvarValue& value) const {
        info = findSysvar(name.view());
        if (!info) return Tavo::eKeyNotFound;
        const bool everywhere = info->home == SysvarHome::kSession || info->home == SysvarHome::kProfile;
        auto read = values.read(*info, everywhere ? nullptr : orWorking(database));
        if (!read) return Tavo::eNoDatabase;
        value = std::move(*read);
        return Tavo::eOk;
    }

    Tavo::ErrorStatus write(const OdString& name, SysvarValue value, const OdDbDatabasePtr& given) {
        const SysvarInfo* info = findSysvar(name.view());
        const OdDbDatabasePtr database = orWorking(given);
        problem = info ? checkForm(*info, value, database) : unknownVariable(name.view());
        // A drawing may hold what would be refused today; leaving it alone is no fault.
        if (problem || isSame(*info, *values.read(*info, database), value)) return problem.status;
        problem = checkValue(*info, value, database);
        if (!problem) problem = values.write(*info, value, database);
        return problem.status;
    }

    // Whether the variable can be written at all, and with a value of this form, which `value` is brought into.
    tv::Problem checkForm(const SysvarInfo& info, SysvarValue& value, const OdDbDatabasePtr& database) const {
        const std::wstring given = textOf(info, value);
        if (info.readOnly) return refusal(info, Tavo::eReadOnly, given);
        if (!toType(info, value)) return refusal(info, Tavo::eWrongType, given);
        if (!database && needsDrawing(homeIn(info, nullptr)))
            return refusal(info, Tavo::eNoDatabase, given);
        return {};
    }

    tv::Problem checkValue(const SysvarInfo& info, const SysvarValue& value,
                           const OdDbDatabasePtr& database) const {
        if (!isAllowed(info, value)) return refusal(info, Tavo::eOutOfRange, textOf(info, value));
        if (info.type != TavoSysvarType::kObjectId) return {};
        const auto& name = std::get<OdString>(value);
        if (isFreeName(info, name.view()) || !findRecord(*database, info.record, name.view()).isNull())
            return {};
        return refusal(info, Tavo::eKeyNotFound, name.view());
    }

    tv::Problem refuse(const SysvarInfo* info, const OdString& name, Tavo::ErrorStatus status,
                       std::wstring_view value) {
        problem = info ? refusal(*info, status, value) : unknownVariable(name.view());
        return problem;
    }

    SysvarStore values;
    tv::Problem problem;
};

DefaultSysvarManager::DefaultSysvarManager(tv::SettingsStore* settings)
    : m_store(std::make_unique<Store>(settings)) {}
DefaultSysvarManager::~DefaultSysvarManager() = default;

Tavo::ErrorStatus DefaultSysvarManager::getVar(const OdString& name, OdResBuf& buffer,
                                               const OdDbDatabasePtr& database) const {
    const SysvarInfo* info = nullptr;
    SysvarValue value;
    const auto status = m_store->read(name, database, info, value);
    if (status == Tavo::eOk) toBuffer(*info, value, buffer);
    return status;
}

Tavo::ErrorStatus DefaultSysvarManager::setVar(const OdString& name, const OdResBuf& buffer,
                                               const OdDbDatabasePtr& database) {
    return m_store->write(name, fromBuffer(buffer), database);
}

Tavo::ErrorStatus DefaultSysvarManager::getVar(const OdString& name, OdCmColor& color,
                                               const OdDbDatabasePtr& database) const {
    const SysvarInfo* info = nullptr;
    SysvarValue value;
    const auto status = m_store->read(name, database, info, value);
    if (status != Tavo::eOk) return status;
    if (info->type != TavoSysvarType::kColor) return Tavo::eWrongType;
    color = colorOfCode(std::get<std::int64_t>(value)).value_or(OdCmColor());
    return Tavo::eOk;
}

Tavo::ErrorStatus DefaultSysvarManager::setVar(const OdString& name, const OdCmColor& color,
                                               const OdDbDatabasePtr& database) {
    const SysvarInfo* info = findSysvar(name.view());
    if (!info || info->type != TavoSysvarType::kColor)
        return m_store->refuse(info, name, Tavo::eWrongType, textOfColor(codeOfColor(color))).status;
    return m_store->write(name, codeOfColor(color), database);
}

Tavo::ErrorStatus DefaultSysvarManager::getVar(const OdString& name, OdDbObjectId& id,
                                               const OdDbDatabasePtr& given) const {
    const OdDbDatabasePtr database = orWorking(given);
    const SysvarInfo* info = nullptr;
    SysvarValue value;
    const auto status = m_store->read(name, database, info, value);
    if (status != Tavo::eOk) return status;
    if (info->type != TavoSysvarType::kObjectId) return Tavo::eWrongType;
    id = findRecord(*database, info->record, std::get<OdString>(value).view());
    return Tavo::eOk;
}

Tavo::ErrorStatus DefaultSysvarManager::setVar(const OdString& name, const OdDbObjectId& id,
                                               const OdDbDatabasePtr& given) {
    const OdDbDatabasePtr database = orWorking(given);
    const SysvarInfo* info = findSysvar(name.view());
    if (!info || info->type != TavoSysvarType::kObjectId)
        return m_store->refuse(info, name, Tavo::eWrongType, id.handle().text()).status;
    if (id.isNull()) return m_store->write(name, OdString(), database);
    const auto record = id.database() == database.get() ? nameOfRecord(info->record, id) : std::nullopt;
    if (!record) return m_store->refuse(info, name, Tavo::eKeyNotFound, id.handle().text()).status;
    return m_store->write(name, *record, database);
}

TavoSysvarType DefaultSysvarManager::type(const OdString& name) const {
    const SysvarInfo* info = findSysvar(name.view());
    return info ? info->type : TavoSysvarType::kNone;
}

std::optional<TavoSysvarRange> DefaultSysvarManager::range(const OdString& name) const {
    const SysvarInfo* info = findSysvar(name.view());
    if (!info) return std::nullopt;
    switch (info->limit) {
    case SysvarLimit::kRange:
        return TavoSysvarRange{info->minimum, info->maximum};
    case SysvarLimit::kNotNegative:
        return TavoSysvarRange{0, std::numeric_limits<double>::max()};
    default:
        return std::nullopt;
    }
}

bool DefaultSysvarManager::isReadOnly(const OdString& name) const {
    const SysvarInfo* info = findSysvar(name.view());
    return info && info->readOnly;
}

std::vector<OdString> DefaultSysvarManager::names() const {
    std::vector<OdString> names;
    for (const SysvarInfo* info : sysvarTable())
        names.emplace_back(info->name);
    return names;
}

Tavo::ErrorStatus DefaultSysvarManager::getText(const OdString& name, OdString& text,
                                                const OdDbDatabasePtr& database) const {
    const SysvarInfo* info = nullptr;
    SysvarValue value;
    const auto status = m_store->read(name, database, info, value);
    if (status == Tavo::eOk) text = textOf(*info, value);
    return status;
}

Tavo::ErrorStatus DefaultSysvarManager::setText(const OdString& name, const OdString& text,
                                                const OdDbDatabasePtr& database) {
    const SysvarInfo* info = findSysvar(name.view());
    const auto value = info ? valueOf(*info, text.view()) : std::nullopt;
    if (!value) {
        const auto status = info && info->readOnly ? Tavo::eReadOnly : Tavo::eWrongType;
        return m_store->refuse(info, name, status, text.view()).status;
    }
    return m_store->write(name, *value, database);
}

const tv::Problem& DefaultSysvarManager::lastProblem() const { return m_store->problem; }

Subscription DefaultSysvarManager::onSysvarChanged(Listener listener) {
    return m_store->values.changed().connect(std::move(listener));
}

void DefaultSysvarManager::watch(const OdDbDatabasePtr& database) { m_store->values.watch(database); }

void DefaultSysvarManager::setSession(const OdString& name, int value) {
    const SysvarInfo* info = findSysvar(name.view());
    if (!info || info->home != SysvarHome::kSession) return;
    const SysvarValue number = static_cast<std::int64_t>(value);
    if (*m_store->values.read(*info, nullptr) != number) m_store->values.write(*info, number, nullptr);
}

} // namespace tv::host
