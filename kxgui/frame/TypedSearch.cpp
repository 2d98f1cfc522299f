#include "kxgui/frame/TypedSearch.h"

#include "platform/text/Unicode.h"
#include "platform/toolkit/Dialog.h"

using tv::ui::Key;

bool TypedSearch::OnKey(const tv::ui::KeyEvent& key) {
    const bool space = key.key == Key::space && !m_typed.empty();
    if ((key.key != Key::character && !space) || key.ctrl || key.alt) return false;
    if (!m_list.dialog() || m_list.dialog()->GetFocus() != &m_list) return false;
    m_typed += tv::text::foldCase(std::wstring(1, space ? L' ' : key.ch));
    m_forget = tv::ui::Toolkit::current()->after(std::chrono::seconds(1), [this] { m_typed.clear(); });

    // A longer beginning may still fit the present row; a single letter leads on to the next.
    const bool oneLetter = m_typed.find_first_not_of(m_typed.front()) == std::wstring::npos;
    int row = find(m_typed, m_typed.size() == 1 ? m_list.GetCurSel() + 1 : std::max(0, m_list.GetCurSel()));
    if (row < 0 && oneLetter) row = find(m_typed.substr(0, 1), m_list.GetCurSel() + 1);
    if (row < 0 || row == m_list.GetCurSel()) return true;
    (void)m_list.userSelect({row});
    m_list.EnsureVisible(row);
    return true;
}

int TypedSearch::find(const std::wstring& prefix, int start) const {
    const int count = m_list.GetItemCount();
    for (int i = 0; i < count; ++i) {
        const int row = (start + i) % count;
        if (tv::text::foldCase(m_list.cell(row, m_column).text).starts_with(prefix)) return row;
    }
    return -1;
}
