#include "platform/toolkit/TreeCtrl.h"

#include "platform/text/ResourceString.h"
#include "platform/text/Unicode.h"
#include "platform/toolkit/Choice.h"
#include "platform/toolkit/Dialog.h"
#include "platform/toolkit/Snapshot.h"

#include <algorithm>
#include <utility>

using tv::ui::Change;
using tv::ui::Key;
using tv::ui::KeyRoute;
using tv::ui::TreeEntry;
using tv::ui::TreeItem;
using tv::ui::UserAction;
using tv::ui::UserResult;

namespace {

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

const TreeItem* findData(const TreeItem& parent, std::uintptr_t data) {
    for (const auto& child : parent.children) {
        if (child->data == data) return child.get();
        if (const TreeItem* found = findData(*child, data)) return found;
    }
    return nullptr;
}

// Takes the items apart; those that are told apart by their data can be found by it.
void collect(TreeItem& parent, std::unordered_map<std::uintptr_t, std::unique_ptr<TreeItem>>& known) {
    for (auto& child : parent.children) {
        collect(*child, known);
        if (child->data) known.try_emplace(child->data, std::move(child));
    }
    parent.children.clear();
}

auto placeOf(const TreeItem& parent, int before) {
    return std::find_if(parent.children.begin(), parent.children.end(),
                        [&](const auto& child) { return child->id == before; });
}

} // namespace

CTreeCtrl::CTreeCtrl(CWnd& parent, const char* name)
    : CWnd(parent, name), m_root(std::make_unique<TreeItem>()) {
    m_root->expanded = true;
}

CTreeCtrl::~CTreeCtrl() = default;

TreeItem* CTreeCtrl::find(int id) const {
    if (id == 0) return m_root.get();
    const auto at = m_byId.find(id);
    return at == m_byId.end() ? nullptr : at->second;
}

const TreeItem* CTreeCtrl::item(int id) const { return id == 0 ? nullptr : find(id); }

// --- items ---------------------------------------------------------------------------------------------------

std::unique_ptr<TreeItem> CTreeCtrl::make(TreeItem& parent) {
    auto item = std::make_unique<TreeItem>();
    item->id = m_nextId++;
    item->parent = &parent;
    m_byId[item->id] = item.get();
    return item;
}

// It and all below it are going to be destroyed.
void CTreeCtrl::forget(const TreeItem& item) {
    for (const auto& child : item.children)
        forget(*child);
    m_byId.erase(item.id);
    if (m_selected == item.id) m_selected = 0;
    if (m_edited == item.id) m_edited = 0;
}

void CTreeCtrl::SetItems(std::vector<TreeEntry> entries) {
    std::unordered_map<std::uintptr_t, std::unique_ptr<TreeItem>> known;
    const int selected = m_selected, edited = m_edited;
    collect(*m_root, known);
    m_byId.clear();
    const auto fill = [&](const auto& self, TreeItem& parent, std::vector<TreeEntry>& from) -> void {
        for (TreeEntry& entry : from) {
            std::unique_ptr<TreeItem> item;
            if (const auto at = entry.data ? known.find(entry.data) : known.end(); at != known.end()) {
                item = std::move(at->second);
                known.erase(at); // the same data again is another item
                item->parent = &parent;
                m_byId[item->id] = item.get();
            } else {
                item = make(parent);
                item->data = entry.data;
                item->expanded = entry.expanded;
            }
            item->text = std::move(entry.text);
            item->picture = std::move(entry.picture);
            item->renamable = entry.renamable;
            item->bold = entry.bold;
            item->hint = std::move(entry.hint);
            parent.children.push_back(std::move(item));
            self(self, *parent.children.back(), entry.children);
        }
    };
    fill(fill, *m_root, entries);
    m_selected = find(selected) ? selected : 0;
    m_edited = find(edited) ? edited : 0;
    tell(Change::items);
}

int CTreeCtrl::InsertItem(std::wstring_view text, int parent, std::uintptr_t data, int before) {
    TreeItem* under = find(parent);
    if (!under) return 0;
    auto item = make(*under);
    item->text = text;
    item->data = data;
    const int id = item->id;
    under->children.insert(placeOf(*under, before), std::move(item));
    tell(Change::items);
    return id;
}

bool CTreeCtrl::MoveItem(int id, int parent, int before) {
    TreeItem *moved = id == 0 ? nullptr : find(id), *under = find(parent);
    if (!moved || !under || isWithin(under, *moved) || before == id) return false;
    auto& siblings = moved->parent->children;
    const auto at = siblings.begin() + (placeOf(*moved->parent, id) - siblings.cbegin());
    auto item = std::move(*at);
    siblings.erase(at);
    item->parent = under;
    under->children.insert(placeOf(*under, before), std::move(item));
    tell(Change::items);
    return true;
}

bool CTreeCtrl::DeleteItem(int id) {
    TreeItem* gone = id == 0 ? nullptr : find(id);
    if (!gone) return false;
    forget(*gone);
    std::erase_if(gone->parent->children, [&](const auto& child) { return child.get() == gone; });
    tell(Change::items);
    return true;
}

void CTreeCtrl::DeleteAllItems() {
    m_root->children.clear();
    m_byId.clear();
    m_selected = m_edited = 0;
    tell(Change::items);
}

template <class Change>
void CTreeCtrl::change(int id, const Change& how) {
    TreeItem* item = id == 0 ? nullptr : find(id);
    if (item && how(*item)) tell(tv::ui::Change::items);
}

bool CTreeCtrl::SetItemText(int id, std::wstring_view text) {
    if (!item(id)) return false;
    change(id, [&](TreeItem& item) { return item.text = text, true; });
    return true;
}

void CTreeCtrl::SetItemPicture(int id, tv::ui::Picture picture) {
    change(id, [&](TreeItem& item) { return std::exchange(item.picture, picture) != picture; });
}

void CTreeCtrl::SetItemHint(int id, std::wstring_view hint) {
    change(id, [&](TreeItem& item) { return std::exchange(item.hint, hint) != hint; });
}

void CTreeCtrl::SetItemBold(int id, bool bold) {
    change(id, [&](TreeItem& item) { return std::exchange(item.bold, bold) != bold; });
}

void CTreeCtrl::SetItemData(int id, std::uintptr_t data) {
    if (TreeItem* item = id == 0 ? nullptr : find(id)) item->data = data;
}

std::uintptr_t CTreeCtrl::GetItemData(int id) const {
    const TreeItem* found = item(id);
    return found ? found->data : 0;
}

int CTreeCtrl::FindItemData(std::uintptr_t data) const {
    const TreeItem* found = findData(*m_root, data);
    return found ? found->id : 0;
}

void CTreeCtrl::SetRenamable(int id, bool renamable) {
    change(id, [&](TreeItem& item) { return std::exchange(item.renamable, renamable) != renamable; });
}

void CTreeCtrl::Expand(int id, bool expand) {
    change(id, [&](TreeItem& item) { return item.expanded = expand, true; });
}

void CTreeCtrl::EnsureVisible(int id) {
    const TreeItem* shown = item(id);
    if (!shown) return;
    for (TreeItem* around = shown->parent; around; around = around->parent)
        around->expanded = true;
    tell(Change::items);
    tell(Change::scroll);
}

void CTreeCtrl::SelectItem(int id) {
    m_selected = item(id) ? id : 0;
    tell(Change::selection);
}

bool CTreeCtrl::EditLabel(int id) {
    const TreeItem* edited = item(id);
    if (!edited || !edited->renamable) return false;
    SelectItem(id);
    m_edited = id;
    SetFocus();
    tell(Change::editor);
    return true;
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

// --- the user path -------------------------------------------------------------------------------------------

UserResult CTreeCtrl::acceptsItem(int id) const {
    if (auto r = acceptsUser(); !r) return r;
    if (!item(id))
        return refuse(VORD_ResourceString("IDS_TAVO_UI_NO_SUCH_ITEM", L"그런 항목이 목록에 없습니다."));
    return UserResult::done();
}

UserResult CTreeCtrl::userSelect(int id) {
    if (auto r = acceptsItem(id); !r) return r;
    takeFocus();
    if (auto r = acceptsItem(id); !r) return r;
    if (id == m_selected) return UserResult::done();
    endEditing();
    SelectItem(id);
    if (onSelChange) onSelChange();
    return UserResult::done();
}

UserResult CTreeCtrl::userExpand(int id, bool expand) {
    if (auto r = acceptsItem(id); !r) return r;
    // What is selected does not go out of sight.
    const TreeItem* selected = item(m_selected);
    if (!expand && selected && selected->id != id && isWithin(selected, *item(id)))
        if (auto r = userSelect(id); !r || !acceptsItem(id)) return r;
    Expand(id, expand);
    if (onExpand) onExpand(id, expand);
    return UserResult::done();
}

UserResult CTreeCtrl::userEditLabel(int id) {
    if (auto r = acceptsItem(id); !r) return r;
    if (!find(id)->renamable)
        return refuse(VORD_ResourceString("IDS_TAVO_UI_NO_RENAME", L"이름을 바꿀 수 없는 항목입니다."));
    if (auto r = userSelect(id); !r || !acceptsItem(id)) return r;
    EditLabel(id);
    return UserResult::done();
}

UserResult CTreeCtrl::userRename(int id, const std::wstring& text) {
    if (auto r = acceptsItem(id); !r) return r;
    if (!find(id)->renamable)
        return refuse(VORD_ResourceString("IDS_TAVO_UI_NO_RENAME", L"이름을 바꿀 수 없는 항목입니다."));
    endEditing();
    if (text == find(id)->text) return UserResult::done();
    if (onRename && !onRename(id, text))
        return refuse(VORD_ResourceString("IDS_TAVO_UI_TEXT_REFUSED", L"입력한 값을 받아들일 수 없습니다."));
    SetItemText(id, text);
    return UserResult::done();
}

UserResult CTreeCtrl::userMenu(int id) {
    if (id != 0) {
        if (auto r = userSelect(id); !r) return r;
        if (!acceptsItem(id)) return UserResult::done();
    } else if (auto r = acceptsUser(); !r) {
        return r;
    }
    if (onMenu) onMenu(id);
    return UserResult::done();
}

UserResult CTreeCtrl::userDoubleClick(int id) {
    if (auto r = userSelect(id); !r) return r;
    if (!acceptsItem(id)) return UserResult::done();
    if (onDoubleClick)
        onDoubleClick(id);
    else if (!item(id)->children.empty())
        return userExpand(id, !item(id)->expanded);
    return UserResult::done();
}

UserResult CTreeCtrl::userDelete(int id) {
    if (auto r = acceptsItem(id); !r) return r;
    if (onDelete) onDelete(id);
    return UserResult::done();
}

UserResult CTreeCtrl::userBeginDrag(int id) {
    if (auto r = userSelect(id); !r) return r;
    if (!acceptsItem(id) || !onBeginDrag || !onBeginDrag(id))
        return refuse(VORD_ResourceString("IDS_TAVO_UI_NO_DRAG", L"끌어 옮길 수 없습니다."));
    return UserResult::done();
}

bool CTreeCtrl::takesDrop(int id, const CWnd& from) const {
    return onDrop && acceptsDrop && (id == 0 || item(id)) && acceptsUser() && acceptsDrop(id, from);
}

UserResult CTreeCtrl::userDropOn(int id, CWnd& from, bool copy) {
    if (auto r = id == 0 ? acceptsUser() : acceptsItem(id); !r) return r;
    if (!takesDrop(id, from))
        return refuse(VORD_ResourceString("IDS_TAVO_UI_NO_DROP", L"여기에 놓을 수 없습니다."));
    onDrop(id, from, copy);
    return UserResult::done();
}

UserResult CTreeCtrl::dropByAction(CWnd& from, const UserAction& action) {
    CWnd* to = from.dialog()->GetDlgItem(tv::text::toUtf8(action.text));
    if (!to || to->kind() != tv::ui::ControlKind::tree)
        return from.refuse(VORD_ResourceString("IDS_TAVO_UI_NO_DROP", L"여기에 놓을 수 없습니다."));
    auto& tree = static_cast<CTreeCtrl&>(*to);
    if (!action.path.empty())
        if (auto r = tree.acceptsItem(tree.find(action.path)); !r) return r;
    return tree.userDropOn(tree.find(action.path), from, action.checked != 0);
}

UserResult CTreeCtrl::carryOut(const UserAction& action) {
    switch (action.kind) {
    case UserAction::Kind::treeSelect:
        return userSelect(find(action.path));
    case UserAction::Kind::treeExpand:
        return userExpand(find(action.path), action.checked != 0);
    case UserAction::Kind::treeRename:
        return userRename(find(action.path), action.text);
    case UserAction::Kind::treeDoubleClick:
        return userDoubleClick(find(action.path));
    case UserAction::Kind::treeMenu:
        if (!action.path.empty())
            if (auto r = acceptsItem(find(action.path)); !r) return r;
        return userMenu(find(action.path));
    case UserAction::Kind::type:
        return m_edited ? userRename(m_edited, action.text) : CWnd::carryOut(action);
    case UserAction::Kind::drag:
        if (auto r = userBeginDrag(m_selected); !r) return r;
        return dropByAction(*this, action);
    default:
        return CWnd::carryOut(action);
    }
}

// --- keys ----------------------------------------------------------------------------------------------------

// A name that is being entered takes these before the dialog does.
KeyRoute CTreeCtrl::routeKey(const tv::ui::KeyEvent& key) {
    if (!m_edited || (key.key != Key::escape && key.key != Key::enter)) return KeyRoute::dialog;
    endEditing();
    return KeyRoute::used;
}

void CTreeCtrl::endEditing() {
    if (std::exchange(m_edited, 0)) tell(Change::editor);
}

bool CTreeCtrl::controlKey(const tv::ui::KeyEvent& key) {
    if (key.alt || m_edited) return false;
    switch (key.key) {
    case Key::menu:
    case Key::f10:
        if (key.key == Key::f10 && !key.shift) return false;
        (void)userMenu(m_selected);
        return true;
    case Key::f2:
        if (!item(m_selected)) return false;
        (void)userEditLabel(m_selected);
        return true;
    case Key::del:
        if (!item(m_selected)) return false;
        (void)userDelete(m_selected);
        return true;
    default:
        return walk(key);
    }
}

bool CTreeCtrl::walk(const tv::ui::KeyEvent& key) {
    std::vector<std::pair<const TreeItem*, int>> rows;
    visibleItems(*m_root, 0, rows);
    const TreeItem* at = item(m_selected);
    const auto here = std::find_if(rows.begin(), rows.end(), [&](const auto& row) { return row.first == at; });
    const int index = here == rows.end() ? -1 : static_cast<int>(here - rows.begin());
    const int count = static_cast<int>(rows.size());
    if (const auto target = tv::ui::listKeyTarget(key.key, index, count)) {
        if (*target >= 0 && *target < count)
            (void)userSelect(rows[static_cast<std::size_t>(*target)].first->id);
        return true;
    }
    switch (key.key) {
    case Key::right:
        if (!at || at->children.empty()) return true;
        (void)(at->expanded ? userSelect(at->children.front()->id) : userExpand(at->id, true));
        return true;
    case Key::left:
        if (!at) return true;
        if (at->expanded && !at->children.empty())
            (void)userExpand(at->id, false);
        else if (at->parent != m_root.get())
            (void)userSelect(at->parent->id);
        return true;
    case Key::space:
        return !m_typed.empty() && typed(L' ');
    case Key::character:
        if (key.ctrl) return false;
        if (at && key.ch == L'*')
            expandAll(at->id);
        else if (at && (key.ch == L'+' || key.ch == L'-'))
            (void)userExpand(at->id, key.ch == L'+');
        else
            return typed(key.ch);
        return true;
    default:
        return false;
    }
}

void CTreeCtrl::expandAll(int id) {
    if (!acceptsItem(id)) return;
    std::vector<int> below;
    for (const auto& child : item(id)->children)
        below.push_back(child->id);
    (void)userExpand(id, true);
    for (const int child : below)
        if (item(child) && !item(child)->children.empty()) expandAll(child);
}

// Letters typed within a second belong together; the same letter again and again goes round among the items in
// sight that begin with it.
bool CTreeCtrl::typed(wchar_t ch) {
    m_typed += tv::text::foldCase(std::wstring(1, ch));
    if (tv::ui::Toolkit* toolkit = tv::ui::Toolkit::current())
        m_forget = toolkit->after(std::chrono::seconds(1), [this] { m_typed.clear(); });
    std::vector<std::pair<const TreeItem*, int>> rows;
    visibleItems(*m_root, 0, rows);
    const bool oneLetter = m_typed.find_first_not_of(m_typed.front()) == std::wstring::npos;
    const std::wstring prefix = oneLetter ? m_typed.substr(0, 1) : m_typed;
    std::size_t from = 0;
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (rows[i].first->id == m_selected) from = i + (oneLetter ? 1 : 0);
    for (std::size_t step = 0; step < rows.size(); ++step) {
        const TreeItem& one = *rows[(from + step) % rows.size()].first;
        if (!tv::text::foldCase(one.text).starts_with(prefix)) continue;
        (void)userSelect(one.id);
        break;
    }
    return true;
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
