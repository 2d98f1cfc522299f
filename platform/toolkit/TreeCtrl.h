#pragma once

#include "platform/toolkit/ListItems.h"
#include "platform/toolkit/Wnd.h"

#include <functional>
#include <memory>
#include <unordered_map>

namespace tv::ui {

struct TreeItem {
    int id = 0; // unique in its tree, never reused
    std::wstring text;
    std::uintptr_t data = 0;
    TreeItem* parent = nullptr;
    bool expanded = false;
    bool renamable = false;
    bool bold = false;
    Picture picture;
    std::wstring hint; // shown while the pointer rests on it; empty: the text, when it is cut off
    std::vector<std::unique_ptr<TreeItem>> children;
};

// What CTreeCtrl::SetItems makes items of.
struct TreeEntry {
    std::wstring text;
    std::uintptr_t data = 0; // tells entries apart from one SetItems to the next; 0: a new item each time
    Picture picture = {};
    bool renamable = false;
    bool expanded = false; // of a new item; one that is there already stays as it is
    bool bold = false;
    std::wstring hint = {};
    std::vector<TreeEntry> children = {};
};

} // namespace tv::ui

// A tree of texts with pictures before them. Items are named by their id; 0 is the invisible root.
class KXPLATFORM_EXPORT CTreeCtrl : public CWnd {
  public:
    CTreeCtrl(CWnd& parent, const char* name);
    ~CTreeCtrl() override;
    tv::ui::ControlKind kind() const override { return tv::ui::ControlKind::tree; }
    bool focusable() const override { return true; }

    // The whole tree at once. An item whose data is found again is the same one: it keeps its id, stays
    // selected and expanded and goes on being edited.
    void SetItems(std::vector<tv::ui::TreeEntry> entries);
    // Before the child `before` of the parent, else behind its last one. 0 when the parent is unknown.
    int InsertItem(std::wstring_view text, int parent = 0, std::uintptr_t data = 0, int before = 0);
    // With all below it. False when that would put it into itself.
    bool MoveItem(int id, int parent, int before = 0);
    bool DeleteItem(int id); // with its children
    void DeleteAllItems();
    bool SetItemText(int id, std::wstring_view text);
    void SetItemPicture(int id, tv::ui::Picture picture);
    void SetItemHint(int id, std::wstring_view hint);
    void SetItemBold(int id, bool bold);
    void SetItemData(int id, std::uintptr_t data);
    std::uintptr_t GetItemData(int id) const;    // 0 when there is no such item
    int FindItemData(std::uintptr_t data) const; // the first one from the top; 0 when there is none
    void SetRenamable(int id, bool renamable);
    const tv::ui::TreeItem* item(int id) const;
    const tv::ui::TreeItem& root() const { return *m_root; }
    // Expanding all items around it as well.
    void EnsureVisible(int id);
    void Expand(int id, bool expand = true);
    int GetSelectedItem() const { return m_selected; }
    void SelectItem(int id); // 0: nothing
    // Selects the item and lets the person enter another name for it; false when it can't be renamed.
    bool EditLabel(int id);
    // The item whose name is being entered; 0: none.
    int editedItem() const { return m_edited; }

    std::function<void()> onSelChange;
    std::function<void(int id, bool expanded)> onExpand;
    std::function<bool(int id, const std::wstring& text)> onRename; // false refuses: the old text stays
    // The context menu is asked for, of an item that is selected by now; 0: where there is none.
    std::function<void(int id)> onMenu;
    std::function<void(int id)> onDelete;      // the key Delete
    std::function<void(int id)> onDoubleClick; // unset: it opens and closes the item

    // --- dropping on it ---

    // Whether what is dragged from `from` (a list's selected rows, or an item of a tree, which may be this one)
    // may be dropped on the item; 0 stands for beside all items. Without it nothing may.
    std::function<bool(int id, const CWnd& from)> acceptsDrop;
    // It was dropped; `copy` when the person held Ctrl.
    std::function<void(int id, CWnd& from, bool copy)> onDrop;
    // Whether the item, which is selected then, may be dragged from here. Without it none may.
    std::function<bool(int id)> onBeginDrag;

    // By the texts from the root down; 0 when there is no such item.
    int find(const std::vector<std::wstring>& path) const;
    tv::ui::UserResult userSelect(int id);
    tv::ui::UserResult userExpand(int id, bool expand);
    // The item's name is going to be edited; refused when it can't be.
    tv::ui::UserResult userEditLabel(int id);
    tv::ui::UserResult userRename(int id, const std::wstring& text);
    void endEditing(); // nothing is renamed
    tv::ui::UserResult userMenu(int id);
    tv::ui::UserResult userDoubleClick(int id);
    tv::ui::UserResult userDelete(int id);
    tv::ui::UserResult userBeginDrag(int id);
    bool takesDrop(int id, const CWnd& from) const;
    tv::ui::UserResult userDropOn(int id, CWnd& from, bool copy);
    // Drops on the tree that the action names, in the same window.
    static tv::ui::UserResult dropByAction(CWnd& from, const tv::ui::UserAction& action);
    tv::ui::UserResult carryOut(const tv::ui::UserAction& action) override;
    tv::ui::KeyRoute routeKey(const tv::ui::KeyEvent& key) override;
    bool controlKey(const tv::ui::KeyEvent& key) override;
    void describe(tv::ui::ControlSnapshot& out) const override;

  protected:
    void OnWindowGone() override { m_edited = 0; }

  private:
    tv::ui::TreeItem* find(int id) const;
    tv::ui::UserResult acceptsItem(int id) const;
    std::unique_ptr<tv::ui::TreeItem> make(tv::ui::TreeItem& parent);
    void forget(const tv::ui::TreeItem& item);
    template <class Change>
    void change(int id, const Change& how);
    bool walk(const tv::ui::KeyEvent& key);
    bool typed(wchar_t ch);
    void expandAll(int id);
    std::unique_ptr<tv::ui::TreeItem> m_root;
    std::unordered_map<int, tv::ui::TreeItem*> m_byId;
    int m_nextId = 1;
    int m_selected = 0, m_edited = 0;
    std::wstring m_typed;
    tv::ui::Timer m_forget;
};
