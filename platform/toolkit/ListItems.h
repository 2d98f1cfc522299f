#pragma once

#include "platform/Export.h"
#include "platform/toolkit/DisplayList.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tv::ui {

struct ListItem {
    std::wstring text;
    std::uintptr_t data = 0;
    Picture picture; // before the text
};

// A list several controls can show without a copy of their own.
using SharedItems = std::shared_ptr<const std::vector<ListItem>>;

// The items a combo box or a list box holds: its own, or shared ones until it changes one. Searches follow the list
// controls' habits: they start after the item `start` (-1: from the first), wrap around and ignore case.
class KXPLATFORM_EXPORT ListItems {
  public:
    int count() const { return static_cast<int>(m_items->size()); }
    bool valid(int index) const { return index >= 0 && index < count(); }
    const ListItem& at(int index) const { return (*m_items)[static_cast<std::size_t>(index)]; }
    ListItem& edit(int index) { return own()[static_cast<std::size_t>(index)]; }
    int insert(int index, std::wstring_view text); // index -1 or past the end: appended
    bool erase(int index);
    void clear();
    void assign(SharedItems items);
    int findPrefix(int start, std::wstring_view prefix) const;
    int findExact(int start, std::wstring_view text) const;
    int findData(std::uintptr_t data) const;
    std::vector<std::wstring> texts() const;

  private:
    static const SharedItems& none();
    std::vector<ListItem>& own();

    SharedItems m_items = none();
    std::shared_ptr<std::vector<ListItem>> m_own; // the same list when it is this control's alone
};

} // namespace tv::ui
