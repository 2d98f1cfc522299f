#include "platform/host/embedded/DefaultSelection.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbEntity.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "platform/host/selection/SheetViewports.h"
#include "platform/text/Unicode.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace tv::host {

namespace {

using Method = TavoSelectionQuery::Method;

// What layers let through. Their records are read once for all entities of a query.
class LayerGate {
  public:
    LayerGate(const OdDbDatabase& database, bool forEditing) : m_database(database), m_editing(forEditing) {}

    bool lets(const OdDbEntity& entity) {
        const std::wstring name = entity.layer().wstr();
        if (m_lastOpen && name == m_lastName) return *m_lastOpen;
        const auto [found, fresh] = m_open.try_emplace(tv::text::foldCase(name), true);
        if (fresh) found->second = open(name);
        m_lastName = name;
        m_lastOpen = found->second;
        return *m_lastOpen;
    }

  private:
    bool open(const std::wstring& name) const {
        const OdDbLayerTablePtr table = m_database.layers();
        const auto layer = table ? table->getAt(name).open<OdDbLayerTableRecord>() : nullptr;
        return !layer || (!layer->isOff() && !layer->isFrozen() && !(m_editing && layer->isLocked()));
    }
    const OdDbDatabase& m_database;
    bool m_editing;
    std::map<std::wstring, bool> m_open;
    std::wstring m_lastName; // neighbours in a file are often on the same layer
    std::optional<bool> m_lastOpen;
};

std::size_t pointsNeeded(Method method) {
    switch (method) {
    case Method::kPoint:
        return 1;
    case Method::kWindow:
    case Method::kCrossing:
    case Method::kFence:
        return 2;
    case Method::kWindowPolygon:
    case Method::kCrossingPolygon:
        return 3;
    default:
        return 0;
    }
}

// Without anybody who knows the space in view: the one the drawing says is current.
void spaceOf(const OdDbDatabase& database, std::vector<OdDbObjectId>& ids) {
    const auto mode = database.headerVar(L"TILEMODE");
    const auto* tiled = mode ? std::get_if<std::int64_t>(&mode->value) : nullptr;
    for (const OdDbObjectId id : tiled&&* tiled == 0 ? database.paperSpace() : database.modelSpace())
        ids.push_back(id);
}

} // namespace

void DefaultSelection::set(const std::vector<OdDbObjectId>& ids) {
    TavoSelectionSet fresh(ids);
    if (fresh == m_current) return;
    m_current = std::move(fresh);
    m_changed.notify();
}

void DefaultSelection::add(const std::vector<OdDbObjectId>& ids) {
    const std::size_t before = m_current.size();
    m_current.add(ids);
    if (m_current.size() != before) m_changed.notify();
}

void DefaultSelection::remove(const std::vector<OdDbObjectId>& ids) {
    const std::size_t before = m_current.size();
    m_current.remove(ids);
    if (m_current.size() != before) m_changed.notify();
}

std::vector<OdDbObjectId> DefaultSelection::previous(const OdDbDatabasePtr& database) const {
    const auto found = m_previous.find(database.get());
    return found == m_previous.end() ? std::vector<OdDbObjectId>() : found->second.aliveIds();
}

void DefaultSelection::setPrevious(const std::vector<OdDbObjectId>& ids) {
    TavoSelectionSet set(ids);
    if (const OdDbDatabase* database = set.database()) m_previous[database] = std::move(set);
}

void DefaultSelection::dropErased() {
    if (m_current.dropErased()) m_changed.notify();
}

void DefaultSelection::forget(const OdDbDatabase* database) {
    m_previous.erase(database);
    if (m_current.database() != database) return;
    m_current.clear();
    m_changed.notify();
}

Tavo::ErrorStatus DefaultSelection::select(const TavoSelectionQuery& query, const OdDbDatabasePtr& database,
                                           TavoSelectionSet& found) const {
    if (!database) return Tavo::eNoDatabase;
    const std::size_t needed = pointsNeeded(query.method);
    const bool finite = std::ranges::all_of(query.points, [](const OdGePoint2d& point) {
        return std::isfinite(point.x) && std::isfinite(point.y);
    });
    if (query.points.size() < needed || !finite || !(query.tolerance >= 0)) return Tavo::eInvalidInput;
    if (needed > 0 && !m_locator) return Tavo::eNotHandled;

    std::vector<OdDbObjectId> ids;
    const auto& points = query.points;
    switch (query.method) {
    case Method::kAll:
    case Method::kLast:
        if (m_locator)
            m_locator->everything(database, ids);
        else
            spaceOf(*database, ids);
        if (query.method == Method::kLast) std::ranges::reverse(ids);
        break;
    case Method::kPrevious:
        ids = previous(database);
        break;
    case Method::kImplied:
        if (m_current.database() == database.get()) ids = m_current.aliveIds();
        break;
    case Method::kGiven:
        ids = query.ids;
        break;
    case Method::kPoint:
        m_locator->at(database, points[0], query.tolerance, ids);
        break;
    case Method::kWindow:
    case Method::kCrossing:
        m_locator->inBox(database, points[0], points[1], query.method == Method::kCrossing, ids);
        break;
    case Method::kFence:
        m_locator->alongFence(database, points, ids);
        break;
    case Method::kWindowPolygon:
    case Method::kCrossingPolygon:
        m_locator->inPolygon(database, points, query.method == Method::kCrossingPolygon, ids);
        break;
    }
    const bool onlyOne = query.method == Method::kPoint || query.method == Method::kLast;
    LayerGate layers(*database, query.forEditing);
    SheetViewports sheets(*database);
    for (const OdDbObjectId& id : ids) {
        const auto entity = id.open<OdDbEntity>();
        if (!entity || !entity->isVisible() || !layers.lets(*entity) || sheets.has(*entity) ||
            !query.filter.matches(*entity))
            continue;
        found.add(id);
        if (onlyOne) break;
    }
    return Tavo::eOk;
}

} // namespace tv::host
