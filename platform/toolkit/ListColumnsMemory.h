#pragma once

#include "platform/text/SettingsStore.h"
#include "platform/toolkit/ListCtrl.h"

namespace tv::ui {

// Remembers from one run to the next how a person arranged a list's columns: order, widths, which ones are
// hidden, and what the rows are sorted by. A memory of other columns than the list has is not used.
class KXPLATFORM_EXPORT ListColumnsMemory {
  public:
    // `key` names the list in the section "ListColumns"; without a store nothing is remembered.
    ListColumnsMemory(SettingsStore* store, std::wstring key) : m_store(store), m_key(std::move(key)) {}

    // Arranges the list, whose columns and model are set; false when there was nothing to go by.
    bool restore(CListCtrl& list) const;
    // `shows`, when set, says of each column whether it counts as shown.
    void save(const CListCtrl& list, const std::function<bool(int column)>& shows = {});
    void forget();

  private:
    SettingsStore* m_store;
    std::wstring m_key;
};

} // namespace tv::ui
