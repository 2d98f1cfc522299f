#include "platform/host/embedded/SysvarStore.h"

#include "platform/drawing/OdDbDatabaseReactor.h"
#include "platform/host/sysvars/DrawingVars.h"

namespace tv::host {

namespace {

constexpr std::wstring_view kSection = L"SystemVariables";
constexpr std::wstring_view kPlotStyle = L"CPLOTSTYLE";
constexpr std::wstring_view kActiveViewport = L"ACTIVEPV";

} // namespace

// One drawing's variables that are not in its file, and the listener to those that are.
class SysvarStore::Watch final : public OdDbDatabaseReactor {
  public:
    Watch(SysvarStore& store, const OdDbDatabasePtr& database) : m_store(store), m_database(database) {
        database->addReactor(this);
    }
    ~Watch() override {
        if (const auto database = m_database.lock()) database->removeReactor(this);
    }

    void headerSysVarChanged(OdDbDatabase&, std::wstring_view name) override {
        const auto database = m_database.lock();
        const SysvarInfo* info = findSysvar(name);
        if (!database || !info) return;
        m_store.told(*info, database);
        if (name == L"CEPSNTYPE" || name == L"CEPSNID" || name == L"PSTYLEMODE")
            m_store.told(*findSysvar(kPlotStyle), database);
        if (name == L"TILEMODE") m_store.told(*findSysvar(kActiveViewport), database);
        // The style that became current brings its own value along.
        if (name == L"DIMSTYLE") m_store.told(*findSysvar(L"DIMTALN"), database);
    }
    // Last, as it deletes this object.
    void goodbye(OdDbDatabase& database) override { m_store.m_watches.erase(&database); }

    Values values;

  private:
    SysvarStore& m_store;
    std::weak_ptr<OdDbDatabase> m_database;
};

SysvarStore::SysvarStore(tv::SettingsStore* settings) : m_settings(settings) {}
SysvarStore::~SysvarStore() = default;

const SysvarStore::Watch* SysvarStore::find(const OdDbDatabase* database) const {
    const auto it = m_watches.find(database);
    return it == m_watches.end() ? nullptr : it->second.get();
}

void SysvarStore::watch(const OdDbDatabasePtr& database) {
    if (database && !find(database.get()))
        m_watches.emplace(database.get(), std::make_unique<Watch>(*this, database));
}

void SysvarStore::told(const SysvarInfo& info, const OdDbDatabasePtr& database) {
    m_changed.notify(OdString(info.name), database);
}

std::optional<SysvarValue> SysvarStore::read(const SysvarInfo& info, const OdDbDatabasePtr& database) const {
    const SysvarHome home = homeIn(info, database.get());
    if (needsDrawing(home) && !database) return std::nullopt;
    const auto valueIn = [&](const Values* values) {
        const auto it = values ? values->find(&info) : Values::const_iterator();
        return values && it != values->end() ? it->second : defaultValue(info);
    };
    switch (home) {
    case SysvarHome::kProfile:
        return readProfile(info);
    case SysvarHome::kSession:
        return valueIn(&m_session);
    case SysvarHome::kDrawing: {
        if (info.name == kActiveViewport) return readActiveViewport(*database);
        const Watch* watch = find(database.get());
        return valueIn(watch ? &watch->values : nullptr);
    }
    case SysvarHome::kCurrentDimStyle:
        return readDimTaln(*database);
    case SysvarHome::kComputed:
        return readPlotStyle(*database);
    default:
        return readHeader(info, *database);
    }
}

SysvarValue SysvarStore::readHeader(const SysvarInfo& info, const OdDbDatabase& database) const {
    if (const auto header = database.headerVar(info.name))
        if (const auto value = fromHeader(info, *header)) return *value;
    return defaultValue(info);
}

SysvarValue SysvarStore::readProfile(const SysvarInfo& info) const {
    if (!m_settings) {
        const auto it = m_session.find(&info);
        return it == m_session.end() ? defaultValue(info) : it->second;
    }
    if (const auto text = m_settings->getString(kSection, info.name))
        if (const auto value = valueOf(info, *text); value && isAllowed(info, *value)) return *value;
    return defaultValue(info);
}

tv::Problem SysvarStore::write(const SysvarInfo& info, const SysvarValue& value,
                               const OdDbDatabasePtr& database) {
    watch(database);
    const SysvarHome home = homeIn(info, database.get());
    switch (home) {
    case SysvarHome::kProfile:
        if (m_settings)
            m_settings->setString(kSection, info.name, textOf(info, value));
        else
            m_session[&info] = value;
        break;
    case SysvarHome::kSession:
        m_session[&info] = value;
        break;
    case SysvarHome::kDrawing:
        if (info.name == kActiveViewport) {
            if (auto problem = writeActiveViewport(info, *database, std::get<std::int64_t>(value))) return problem;
            break;
        }
        m_watches.at(database.get())->values[&info] = value;
        break;
    case SysvarHome::kCurrentDimStyle:
        if (auto problem = writeDimTaln(info, *database, std::get<std::int64_t>(value))) return problem;
        break;
    // The rest is told by the drawing's reactor.
    case SysvarHome::kComputed:
        return writePlotStyle(info, *database, std::get<OdString>(value));
    default:
        return writeHeader(info, value, *database);
    }
    told(info, needsDrawing(home) ? database : nullptr);
    return {};
}

tv::Problem SysvarStore::writeHeader(const SysvarInfo& info, const SysvarValue& value, OdDbDatabase& database) {
    const auto present = database.headerVar(info.name);
    const int group = present ? present->group : dwg::headerVarGroupCode(info.name);
    const auto header = toHeader(info, value, group);
    if (!header) return refusal(info, Tavo::eOutOfRange, textOf(info, value));
    return database.setHeaderVar(info.name, *header);
}

} // namespace tv::host
