#include "platform/host/selection/SelectionSet.h"

#include <algorithm>

bool TavoSelectionSet::add(const OdDbObjectId& id) {
    if (id.isErased() || has(id) || (!empty() && id.database() != database())) return false;
    if (id.record() >= m_member.size()) m_member.resize(std::size_t{id.record()} + 1);
    m_member[id.record()] = true;
    m_ids.push_back(id);
    return true;
}

void TavoSelectionSet::add(const std::vector<OdDbObjectId>& ids) {
    for (const OdDbObjectId& id : ids)
        add(id);
}

void TavoSelectionSet::remove(const std::vector<OdDbObjectId>& ids) {
    bool any = false;
    for (const OdDbObjectId& id : ids) {
        if (!has(id)) continue;
        m_member[id.record()] = false;
        any = true;
    }
    if (any) std::erase_if(m_ids, [this](const OdDbObjectId& id) { return !m_member[id.record()]; });
}

void TavoSelectionSet::clear() {
    m_ids.clear();
    m_member.clear();
}

bool TavoSelectionSet::dropErased() {
    return std::erase_if(m_ids, [this](const OdDbObjectId& id) {
               if (!id.isErased()) return false;
               m_member[id.record()] = false;
               return true;
           }) > 0;
}

bool TavoSelectionSet::has(const OdDbObjectId& id) const {
    return !id.isNull() && id.database() == database() && id.record() < m_member.size() &&
           m_member[id.record()];
}

std::vector<OdDbObjectId> TavoSelectionSet::aliveIds() const {
    std::vector<OdDbObjectId> alive;
    alive.reserve(m_ids.size());
    std::ranges::copy_if(m_ids, std::back_inserter(alive),
                         [](const OdDbObjectId& id) { return !id.isErased(); });
    return alive;
}
