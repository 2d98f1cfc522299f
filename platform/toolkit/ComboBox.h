#pragma once

#include "platform/toolkit/ListItems.h"
#include "platform/toolkit/Wnd.h"

#include <functional>

// A drop-down list, or with `editable` a drop-down list below an edit field.
class KXPLATFORM_EXPORT CComboBox : public CWnd {
  public:
    CComboBox(CWnd& parent, const char* name, bool editable = false) : CWnd(parent, name), m_editable(editable) {}
    tv::ui::ControlKind kind() const override { return tv::ui::ControlKind::comboBox; }
    bool focusable() const override { return true; }
    bool editable() const { return m_editable; }

    // Indices count from 0; -1 is returned for "no such item" and stands for "nothing selected".
    int AddString(std::wstring_view text) { return InsertString(-1, text); }
    int InsertString(int index, std::wstring_view text);
    // Replaces the whole list at once and selects nothing: the way to fill a long one. A shared list is copied only when
    // this control changes an item of it.
    void SetItems(std::vector<tv::ui::ListItem> items);
    void SetItems(tv::ui::SharedItems items);
    int DeleteString(int index); // the new count, -1 when there is no such item
    void ResetContent();
    int GetCount() const { return m_items.count(); }
    std::wstring GetLBText(int index) const; // empty when there is no such item
    void SetItemData(int index, std::uintptr_t data);
    std::uintptr_t GetItemData(int index) const; // 0 when there is no such item
    void SetItemSwatch(int index, tv::ui::Swatch swatch);
    int FindString(int start, std::wstring_view prefix) const { return m_items.findPrefix(start, prefix); }
    int FindStringExact(int start, std::wstring_view text) const { return m_items.findExact(start, text); }
    int FindItemData(std::uintptr_t data) const { return m_items.findData(data); }
    int GetCurSel() const { return m_curSel; }
    int SetCurSel(int index); // an index out of range clears the selection; returns the new one
    const tv::ui::ListItems& items() const { return m_items; }

    std::function<void()> onSelChange;  // a person chose an item
    std::function<void()> onEditChange; // a person edited the text
    std::function<void()> onDropDown;   // before the list opens
    std::function<void()> onKillFocus;

    tv::ui::UserResult userChoose(int index);
    tv::ui::UserResult userChoose(std::wstring_view text);
    tv::ui::UserResult userEdit(std::wstring_view text);
    tv::ui::UserResult userDropDown();
    tv::ui::UserResult perform(const tv::ui::UserAction& action) override;
    bool controlKey(const tv::ui::KeyEvent& key) override;
    void describe(tv::ui::ControlSnapshot& out) const override;
    void OnKillFocus() override;

  protected:
    // A person's choice arrived; the base calls onSelChange.
    virtual void OnSelChange();

  private:
    void showSelection(); // the text follows the selected item
    bool m_editable;
    tv::ui::ListItems m_items;
    int m_curSel = -1;
};
