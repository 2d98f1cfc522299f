#pragma once

#include "platform/toolkit/ListItems.h"
#include "platform/toolkit/Wnd.h"

#include <functional>

// A short list of texts. Long lists with columns are CListCtrl.
class KXPLATFORM_EXPORT CListBox : public CWnd {
  public:
    CListBox(CWnd& parent, const char* name) : CWnd(parent, name) {}
    tv::ui::ControlKind kind() const override { return tv::ui::ControlKind::listBox; }
    bool focusable() const override { return true; }

    int AddString(std::wstring_view text) { return InsertString(-1, text); }
    int InsertString(int index, std::wstring_view text);
    // Replaces the whole list at once and selects nothing: the way to fill a long one. A shared list is copied only when
    // this control changes an item of it.
    void SetItems(std::vector<tv::ui::ListItem> items);
    void SetItems(tv::ui::SharedItems items);
    int DeleteString(int index);
    void ResetContent();
    int GetCount() const { return m_items.count(); }
    std::wstring GetText(int index) const;
    void SetItemData(int index, std::uintptr_t data);
    std::uintptr_t GetItemData(int index) const;
    void SetItemSwatch(int index, tv::ui::Swatch swatch);
    int FindString(int start, std::wstring_view prefix) const { return m_items.findPrefix(start, prefix); }
    int FindStringExact(int start, std::wstring_view text) const { return m_items.findExact(start, text); }
    int FindItemData(std::uintptr_t data) const { return m_items.findData(data); }
    int GetCurSel() const { return m_curSel; }
    int SetCurSel(int index);
    const tv::ui::ListItems& items() const { return m_items; }

    std::function<void()> onSelChange;
    std::function<void()> onDoubleClick;

    tv::ui::UserResult userChoose(int index);
    tv::ui::UserResult userDoubleClick(int index);
    tv::ui::UserResult perform(const tv::ui::UserAction& action) override;
    bool controlKey(const tv::ui::KeyEvent& key) override;
    void describe(tv::ui::ControlSnapshot& out) const override;

  private:
    tv::ui::ListItems m_items;
    int m_curSel = -1;
};
