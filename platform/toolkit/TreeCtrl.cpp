#include "platform/toolkit/TreeCtrl.h"

#include "platform/text/ResourceString.h"
#include "platform/toolkit/Snapshot.h"

#include <algorithm>

using tv::ui::Change;
using tv::ui::Key;
using tv::ui::TreeItem;
using tv::ui::UserAction;
using tv::ui::UserResult;

namespace {

TreeItem* findIn(TreeItem& parent, int id) {
    if (parent.id == id) return &parent;
    for (const auto& child : parent.children)
        if (TreeItem* found = findIn(*child, id)) return found;
    return nullptr;
}

bool isWithin(const TreeItem* item, const TreeItem& ancestor) {
    for (; item; item = item->parent)
        if (item == &ancestor) return true;
    return false;
}

// The items a person sees, top to bottom, with their depth.
void visibleItems(const TreeItem& parent, int depth, std::vector<std::pair<const TreeItem*, int>>& out) {
    for (const auto& child : parent.children) {
        out.emplace_back(child.get(), depth);
        if (child->expanded) visibleItems(*child, depth + 1, out);
    }
}

} // namespace

CTreeCtrl::CTreeCtrl(CWnd& parent, const char* name) : CWnd(parent, name), m_root(std::make_unique<TreeItem>()) {
    m_root->expanded = true;
}

CTreeCtrl::~CTreeCtrl() = default;

TreeItem* CTreeCtrl::find(int id) const { return findIn(*m_root, id); }

const TreeItem* CTreeCtrl::item(int id) const { return id == 0 ? nullptr : find(id); }

int CTreeCtrl::InsertItem(std::wstring_view text, int parent, std::uintptr_t data) {
    TreeItem* under = find(parent);
    if (!under) return 0;
    auto& item = under->children.emplace_back(std::make_unique<TreeItem>());
    item->id = m_nextId++;
    item->text = text;
    item->data = data;
    item->parent = under;
    tell(Change::items);
    return item->id;
}

bool CTreeCtrl::DeleteItem(int id) {
    TreeItem* gone = id == 0 ? nullptr : find(id);
    if (!gone) return false;
    if (isWithin(find(m_selected), *gone)) m_selected = 0;
    std::erase_if(gone->parent->children, [&](const auto& child) { return child.get() == gone; });
    tell(Change::items);
    return true;
}

void CTreeCtrl::DeleteAllItems() {
    m_root->children.clear();
    m_selected = 0;
    tell(Change::items);
}

bool CTreeCtrl::SetItemText(int id, std::wstring_view text) {
    TreeItem* item = id == 0 ? nullptr : find(id);
    if (!item) return false;
    item->text = text;
    tell(Change::items);
    return true;
}

void CTreeCtrl::SetRenamable(int id, bool renamable) {
    if (TreeItem* item = find(id)) item->renamable = renamable;
}

void CTreeCtrl::Expand(int id, bool expand) {
    if (TreeItem* item = id == 0 ? nullptr : find(id)) {
        item->expanded = expand;
        tell(Change::items);
    }
}

void CTreeCtrl::SelectItem(int id) {
    m_selected = item(id) ? id : 0;
    tell(Change::selection);
}

int CTreeCtrl::find(const std::vector<std::wstring>& path) const {
    const TreeItem* at = m_root.get();
    for (const auto& text : path) {
        const auto next = std::find_if(at->children.begin(), at->children.end(),
                                       [&](const auto& child) { return child->text == text; });
        if (next == at->children.end()) return 0;
        at = next->get();
    }
    return at->id;
}

UserResult CTreeCtrl::acceptsItem(int id) const {
    if (auto r = acceptsUser(); !r) return r;
    if (!item(id)) return refuse(VORD_ResourceString("IDS_TAVO_UI_NO_SUCH_ITEM", L"그런 항목이 목록에 없습니다."));
    return UserResult::done();
}

UserResult CTreeCtrl::userSelect(int id) {
    if (auto r = acceptsItem(id); !r) return r;
    takeFocus();
    if (auto r = acceptsItem(id); !r) return r;
    if (id == m_selected) return UserResult::done();
    SelectItem(id);
    if (onSelChange) onSelChange();
    return UserResult::done();
}

UserResult CTreeCtrl::userExpand(int id, bool expand) {
    if (auto r = acceptsItem(id); !r) return r;
    Expand(id, expand);
    if (onExpand) onExpand(id, expand);
    return UserResult::done();
}

UserResult CTreeCtrl::userRename(int id, const std::wstring& text) {
    if (auto r = acceptsItem(id); !r) return r;
    if (!find(id)->renamable)
        return refuse(VORD_ResourceString("IDS_TAVO_UI_CELL_READ_ONLY", L"편집할 수 없는 칸입니다."));
    if (onRename && !onRename(id, text))
        return refuse(VORD_ResourceString("IDS_TAVO_UI_TEXT_REFUSED", L"입력한 값을 받아들일 수 없습니다."));
    SetItemText(id, text);
    return UserResult::done();
}

UserResult CTreeCtrl::userMenu(int id) {
    if (auto r = userSelect(id); !r) return r;
    if (onMenu && acceptsItem(id)) onMenu(id);
    return UserResult::done();
}

UserResult CTreeCtrl::perform(const UserAction& action) {
    switch (action.kind) {
    case UserAction::Kind::treeSelect: return userSelect(find(action.path));
    case UserAction::Kind::treeExpand: return userExpand(find(action.path), action.checked != 0);
    case UserAction::Kind::treeRename: return userRename(find(action.path), action.text);
    case UserAction::Kind::treeMenu: return userMenu(find(action.path));
    default: return CWnd::perform(action);
    }
}

bool CTreeCtrl::controlKey(const tv::ui::KeyEvent& key) {
    std::vector<std::pair<const TreeItem*, int>> rows;
    visibleItems(*m_root, 0, rows);
    if (rows.empty()) return false;
    const auto at = std::find_if(rows.begin(), rows.end(), [&](const auto& row) { return row.first->id == m_selected; });
    switch (key.key) {
    case Key::up:
        if (at != rows.begin()) (void)userSelect(at == rows.end() ? rows.front().first->id : (at - 1)->first->id);
        return true;
    case Key::down:
        if (at == rows.end()) (void)userSelect(rows.front().first->id);
        else if (at + 1 != rows.end()) (void)userSelect((at + 1)->first->id);
        return true;
    case Key::left:
    case Key::right:
        if (at != rows.end()) (void)userExpand(m_selected, key.key == Key::right);
        return true;
    default: return false;
    }
}

void CTreeCtrl::describe(tv::ui::ControlSnapshot& out) const {
    CWnd::describe(out);
    std::vector<std::pair<const TreeItem*, int>> rows;
    visibleItems(*m_root, 0, rows);
    out.items.emplace();
    out.selection.emplace();
    for (const auto& [item, depth] : rows) {
        if (item->id == m_selected) out.selection->push_back(static_cast<int>(out.items->size()));
        out.items->push_back(std::wstring(static_cast<std::size_t>(depth) * 2, L' ') + item->text);
    }
}
