#include "kxgui/controls/InPlaceEdit.h"

#include "kxgui/controls/VORDBaseListCtrl.h"

#include <algorithm>

using tv::ui::Key;
using tv::ui::KeyRoute;

namespace {

constexpr int roomBehindText = 5;

} // namespace

CInPlaceEdit::CInPlaceEdit(VORDBaseListCtrl& list, std::wstring_view text,
                           std::optional<std::wstring> whenCancelled)
    : CEdit(list, kName), m_list(list), m_whenCancelled(std::move(whenCancelled)) {
    SetWindowText(text);
    SelectAll();
    onChange = [this] { grow(); };
}

std::optional<std::wstring> CInPlaceEdit::result() const {
    std::optional<std::wstring> text = m_cancelled ? m_whenCancelled : GetWindowText();
    if (text && text->empty()) text.reset();
    return text;
}

KeyRoute CInPlaceEdit::routeKey(const tv::ui::KeyEvent& key) {
    switch (key.key) {
    case Key::escape:
        m_cancelled = true;
        m_list.LeaveEditor();
        return KeyRoute::used;
    case Key::enter:
        if (m_list.mayLeaveEditor()) m_list.LeaveEditor();
        return KeyRoute::used;
    case Key::tab:
        if (m_list.mayLeaveEditor()) m_list.editNextCell(key.shift);
        return KeyRoute::used;
    default:
        return KeyRoute::control;
    }
}

void CInPlaceEdit::OnKillFocus() {
    CEdit::OnKillFocus();
    m_list.editorLeft(result(), m_cancelled);
}

void CInPlaceEdit::grow() {
    const CRect rect = GetWindowRect();
    const int needed = m_list.textWidth(GetWindowText()) + roomBehindText;
    if (needed <= rect.Width()) return;
    const int right = std::min(rect.left + needed, m_list.clientSize().cx);
    if (right > rect.right) MoveWindow({rect.left, rect.top, right, rect.bottom});
}
