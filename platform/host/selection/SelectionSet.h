#pragma once

#include "platform/Export.h"
#include "platform/drawing/OdDbObjectId.h"

#include <vector>

// Objects of one drawing in the order in which they were added, each once. Asking for one of a million costs
// nothing worth counting. A set may hold objects erased since; aliveIds() leaves them out.
class KXPLATFORM_EXPORT TavoSelectionSet {
  public:
    TavoSelectionSet() = default;
    explicit TavoSelectionSet(const std::vector<OdDbObjectId>& ids) { add(ids); }

    // False for an object that is there already, null, erased, or of another drawing than the first one.
    bool add(const OdDbObjectId& id);
    void add(const std::vector<OdDbObjectId>& ids);
    void remove(const std::vector<OdDbObjectId>& ids);
    void clear();
    // Takes out what was erased; whether there was any.
    bool dropErased();

    bool has(const OdDbObjectId& id) const;
    bool empty() const { return m_ids.empty(); }
    std::size_t size() const { return m_ids.size(); }
    const std::vector<OdDbObjectId>& ids() const { return m_ids; }
    std::vector<OdDbObjectId> aliveIds() const;
    // Null when the set is empty.
    OdDbDatabase* database() const { return m_ids.empty() ? nullptr : m_ids.front().database(); }

    friend bool operator==(const TavoSelectionSet& a, const TavoSelectionSet& b) { return a.m_ids == b.m_ids; }

  private:
    std::vector<OdDbObjectId> m_ids;
    std::vector<bool> m_member; // by record number
};
