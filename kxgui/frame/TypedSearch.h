#pragma once

#include "kxgui/Export.h"
#include "platform/toolkit/ListCtrl.h"
#include "platform/toolkit/Toolkit.h"

#include <string>

// Finds rows of a list by the beginning of their text while a person types. Letters typed within a second
// belong together; the same letter again and again goes round among the rows that begin with it.
class KXGUI_EXPORT TypedSearch {
  public:
    // Searches the texts of `column` in `list`, which must outlive this.
    TypedSearch(CListCtrl& list, int column) : m_list(list), m_column(column) {}

    // True when the key was used: a plain character while the list has the focus.
    bool OnKey(const tv::ui::KeyEvent& key);

  private:
    int find(const std::wstring& prefix, int start) const;
    CListCtrl& m_list;
    int m_column;
    std::wstring m_typed;
    tv::ui::Timer m_forget;
};
