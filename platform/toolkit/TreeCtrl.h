#pragma once

#include "platform/toolkit/Wnd.h"

#include <functional>
#include <memory>

namespace tv::ui {

struct TreeItem {
    int id = 0; // unique in its tree, never reused
    std::wstring text;
    std::uintptr_t data = 0;
    TreeItem* parent = nullptr;
    bool expanded = false;
    bool renamable = false;
    std::vector<std::unique_ptr<TreeItem>> children;
};

} // namespace tv::ui

// A tree of texts. Items are named by their id; 0 is the invisible root.
class KXPLATFORM_EXPORT CTreeCtrl : public CWnd {
  public:
    CTreeCtrl(CWnd& parent, const char* name);
    ~CTreeCtrl() override;
    tv::ui::ControlKind kind() const override { return tv::ui::ControlKind::tree; }
    bool focusable() const override { return true; }

    int InsertItem(std::wstring_view text, int parent = 0, std::uintptr_t data = 0); // 0 when the parent is unknown
    bool DeleteItem(int id); // with its children
    void DeleteAllItems();
    bool SetItemText(int id, std::wstring_view text);
    void SetRenamable(int id, bool renamable);
    const tv::ui::TreeItem* item(int id) const;
    const tv::ui::TreeItem& root() const { return *m_root; }
    void Expand(int id, bool expand = true);
    int GetSelectedItem() const { return m_selected; }
    void SelectItem(int id); // 0: nothing

    std::function<void()> onSelChange;
    std::function<void(int id, bool expanded)> onExpand;
    std::function<bool(int id, const std::wstring& text)> onRename; // false refuses
    std::function<void(int id)> onMenu;                             // the context menu is asked for

    // By the texts from the root down; 0 when there is no such item.
    int find(const std::vector<std::wstring>& path) const;
    tv::ui::UserResult userSelect(int id);
    tv::ui::UserResult userExpand(int id, bool expand);
    tv::ui::UserResult userRename(int id, const std::wstring& text);
    tv::ui::UserResult userMenu(int id);
    tv::ui::UserResult perform(const tv::ui::UserAction& action) override;
    bool controlKey(const tv::ui::KeyEvent& key) override;
    void describe(tv::ui::ControlSnapshot& out) const override;

  private:
    tv::ui::TreeItem* find(int id) const;
    tv::ui::UserResult acceptsItem(int id) const;
    std::unique_ptr<tv::ui::TreeItem> m_root;
    int m_nextId = 1;
    int m_selected = 0;
};
