#pragma once

#include "platform/toolkit/ListItems.h"
#include "platform/toolkit/Wnd.h"

#include <chrono>
#include <functional>
#include <optional>

// What drop-down lists and list boxes have in common: items, of which one at most is selected. Indices count
// from 0; -1 is returned for "no such item" and stands for "nothing selected".
class KXPLATFORM_EXPORT CItemsWnd : public CWnd {
  public:
    CItemsWnd(CWnd& parent, const char* name) : CWnd(parent, name) {}
    bool focusable() const override { return true; }

    int AddString(std::wstring_view text) { return InsertString(-1, text); }
    int InsertString(int index, std::wstring_view text);
    // Replaces the whole list at once and selects nothing: the way to fill a long one. A shared list is copied
    // only when this control changes an item of it.
    void SetItems(std::vector<tv::ui::ListItem> items);
    void SetItems(tv::ui::SharedItems items);
    int DeleteString(int index); // the new count, -1 when there is no such item
    void ResetContent() { SetItems(tv::ui::SharedItems()); }
    int GetCount() const { return m_items.count(); }
    void SetItemData(int index, std::uintptr_t data);
    std::uintptr_t GetItemData(int index) const; // 0 when there is no such item
    void SetItemPicture(int index, tv::ui::Picture picture);
    int FindString(int start, std::wstring_view prefix) const { return m_items.findPrefix(start, prefix); }
    int FindStringExact(int start, std::wstring_view text) const { return m_items.findExact(start, text); }
    int FindItemData(std::uintptr_t data) const { return m_items.findData(data); }
    int GetCurSel() const { return m_curSel; }
    int SetCurSel(int index); // an index out of range clears the selection; returns the new one
    const tv::ui::ListItems& items() const { return m_items; }

    std::function<void()> onSelChange; // a person chose another item

    tv::ui::UserResult userChoose(int index);
    tv::ui::UserResult userChoose(std::wstring_view text); // by its whole text
    void describe(tv::ui::ControlSnapshot& out) const override;

  protected:
    // A person's choice arrived; calls onSelChange.
    virtual void OnSelChange();
    // Another item, or another text of it, is selected now.
    virtual void selectionShown() {}
    std::wstring itemText(int index) const; // empty when there is no such item
    void clearSelection() { m_curSel = -1; }
    // The list's items are others than before.
    virtual void itemsShown() {}
    // The keys that move the selection: arrows, pages, Home, End, and what begins the text of an item.
    bool choiceKey(const tv::ui::KeyEvent& key);
    // The item a key leads to from `current`; nothing when it is no key of a list. Letters typed within a second belong
    // together, the same one again and again goes round among the items that begin with it.
    std::optional<int> keyTarget(const tv::ui::KeyEvent& key, int current);

  private:
    int typedTarget(wchar_t ch, int current);
    void tellItems();

    tv::ui::ListItems m_items;
    int m_curSel = -1;
    std::wstring m_typed; // to find an item
    std::chrono::milliseconds m_typedAt{};
};
