#include "qt/controls/TreeBridge.h"

#include "qt/controls/PictureIcon.h"
#include "qt/controls/RowDrag.h"

#include <QAbstractItemDelegate>
#include <QHeaderView>
#include <QPixmap>
#include <QScopedValueRollback>
#include <QSet>

namespace tv::qt {

TreeBridge::TreeBridge(CTreeCtrl& tree, TreeView& widget) : Bridge(tree, widget), m_tree(tree), m_view(widget) {
    m_view.setColumnCount(1);
    m_view.header()->hide();
    m_view.setIconSize(largestPicture);
    m_view.setExpandsOnDoubleClick(false); // the control decides
    m_view.setEditTriggers(QAbstractItemView::SelectedClicked);
    m_view.setAttribute(Qt::WA_InputMethodEnabled);
    m_view.serve(this);
    connect(&m_view, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item) {
        if (item) user([&] { return m_tree.userSelect(TreeView::idOf(item)); });
    });
    const auto expanded = [this](QTreeWidgetItem* item, bool open) {
        user([&] {
            auto result = m_tree.userExpand(TreeView::idOf(item), open);
            changed(ui::Change::items);
            return result;
        });
    };
    connect(&m_view, &QTreeWidget::itemExpanded, this,
            [expanded](QTreeWidgetItem* item) { expanded(item, true); });
    connect(&m_view, &QTreeWidget::itemCollapsed, this,
            [expanded](QTreeWidgetItem* item) { expanded(item, false); });
    connect(&m_view, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem* item) {
        m_editing = false;
        user([&] {
            auto result = m_tree.userRename(TreeView::idOf(item), item->text(0).toStdWString());
            changed(ui::Change::items); // the old text when the new one was refused
            return result;
        });
    });
    connect(m_view.itemDelegate(), &QAbstractItemDelegate::closeEditor, this, [this] {
        if (!m_editing) return;
        m_editing = false;
        m_tree.endEditing();
    });
}

TreeBridge::~TreeBridge() { m_view.serve(nullptr); }

// --- what a person does --------------------------------------------------------------------------------------

bool TreeBridge::key(const ui::KeyEvent& key) {
    if (m_view.editing()) return false;
    bool used = false;
    user([&] {
        used = m_tree.controlKey(key);
        return used;
    });
    return used;
}

void TreeBridge::typed(const QString& text) {
    for (const wchar_t ch : text.toStdWString()) {
        ui::KeyEvent event;
        event.key = ch == L' ' ? ui::Key::space : ui::Key::character;
        event.ch = ch;
        (void)key(event);
    }
}

QPoint TreeBridge::menuPlace() const {
    if (m_menuAt) return *m_menuAt;
    const QTreeWidgetItem* at = m_view.currentItem();
    const QRect rect = at ? m_view.visualItemRect(at) & m_view.viewport()->rect() : QRect();
    return m_view.viewport()->mapToGlobal(rect.isEmpty() ? QPoint(4, 4) : rect.bottomLeft());
}

void TreeBridge::contextMenu(int id, QPoint globalAt) {
    const QScopedValueRollback at(m_menuAt, std::optional(globalAt));
    user([&] { return m_tree.userMenu(id); });
}

void TreeBridge::doubleClick(int id) {
    user([&] { return m_tree.userDoubleClick(id); });
}

void TreeBridge::beginDrag(int id) {
    bool may = false;
    user([&] { return may = bool(m_tree.userBeginDrag(id)); });
    QTreeWidgetItem* const row = m_rows.value(id);
    if (!may || !row) return;
    const QRect rect = m_view.visualItemRect(row) & m_view.viewport()->rect();
    drag::run(*this, m_view, m_view.viewport()->grab(rect), {8, rect.height() / 2});
}

bool TreeBridge::takesDrop(int id) {
    const CWnd* from = drag::source();
    return from && m_tree.takesDrop(id, *from);
}

void TreeBridge::drop(int id, bool copy) { drag::dropped(*this, id, copy); }

void TreeBridge::hoverOpen(int id) {
    const ui::TreeItem* item = m_tree.item(id);
    if (item && !item->expanded && !item->children.empty()) user([&] { return m_tree.userExpand(id, true); });
}

// --- showing it ----------------------------------------------------------------------------------------------

void TreeBridge::show(ui::Change change) {
    switch (change) {
    case ui::Change::items:
        showItems();
        showSelection();
        break;
    case ui::Change::selection:
        showSelection();
        break;
    case ui::Change::scroll:
        if (QTreeWidgetItem* row = m_rows.value(m_tree.GetSelectedItem())) m_view.scrollToItem(row);
        break;
    case ui::Change::editor:
        showEditor();
        break;
    default:
        break;
    }
}

void TreeBridge::showItems() {
    m_view.setAcceptDrops(static_cast<bool>(m_tree.onDrop));
    m_view.viewport()->setAcceptDrops(m_view.acceptDrops());
    m_view.setDragEnabled(static_cast<bool>(m_tree.onBeginDrag));
    showChildren(*m_view.invisibleRootItem(), m_tree.root());
}

// The row and all below it are going to be destroyed.
void TreeBridge::forget(const QTreeWidgetItem& row) {
    if (&row == m_view.currentItem() && m_view.editing()) m_view.cancelEditing();
    for (int at = 0; at < row.childCount(); ++at)
        forget(*row.child(at));
    const int id = TreeView::idOf(&row);
    if (m_rows.value(id) == &row) m_rows.remove(id); // else it is elsewhere by now
}

// Items that are there already stay, so that a change shows in place and an open editor goes on.
void TreeBridge::showChildren(QTreeWidgetItem& shown, const ui::TreeItem& item) {
    QSet<int> wanted;
    for (const auto& child : item.children)
        wanted.insert(child->id);
    for (int at = shown.childCount() - 1; at >= 0; --at)
        if (!wanted.contains(TreeView::idOf(shown.child(at)))) {
            forget(*shown.child(at));
            delete shown.takeChild(at);
        }
    int at = 0;
    for (const auto& child : item.children) {
        if (at >= shown.childCount() || TreeView::idOf(shown.child(at)) != child->id) {
            QTreeWidgetItem* row = m_rows.value(child->id);
            if (row && row->parent() == (&shown == m_view.invisibleRootItem() ? nullptr : &shown)) {
                shown.takeChild(shown.indexOfChild(row));
            } else {
                row = new QTreeWidgetItem;
                row->setData(0, Qt::UserRole, child->id);
                m_rows.insert(child->id, row);
            }
            shown.insertChild(at, row);
        }
        QTreeWidgetItem& row = *shown.child(at++);
        showItem(row, *child);
        showChildren(row, *child);
        if (row.isExpanded() != child->expanded) row.setExpanded(child->expanded);
    }
}

// Nothing is set that is so already: an open editor would begin anew.
void TreeBridge::showItem(QTreeWidgetItem& row, const ui::TreeItem& item) {
    const QString text = toQt(item.text);
    if (row.text(0) != text) row.setText(0, text);
    Qt::ItemFlags flags = row.flags() | Qt::ItemIsDragEnabled | Qt::ItemIsDropEnabled;
    flags.setFlag(Qt::ItemIsEditable, item.renamable);
    if (row.flags() != flags) row.setFlags(flags);
    if (row.font(0).bold() != item.bold) {
        QFont font = m_view.font();
        font.setBold(item.bold);
        row.setFont(0, font);
    }
    const QIcon icon = pictureIcon(item.picture);
    if (row.icon(0).cacheKey() != icon.cacheKey()) row.setIcon(0, icon);
    const QString hint =
        item.hint.empty() ? QString() : QLatin1String("<span>%1</span>").arg(toQt(item.hint).toHtmlEscaped());
    if (row.toolTip(0) != hint) row.setToolTip(0, hint);
}

void TreeBridge::showSelection() {
    QTreeWidgetItem* selected = m_rows.value(m_tree.GetSelectedItem());
    if (m_view.currentItem() != selected) m_view.setCurrentItem(selected);
    if (!selected) m_view.clearSelection();
}

void TreeBridge::showEditor() {
    QTreeWidgetItem* edited = m_rows.value(m_tree.editedItem());
    if (edited && !m_view.editing()) {
        m_view.setCurrentItem(edited);
        m_view.editItem(edited);
        m_editing = true;
    } else if (!m_tree.editedItem() && m_editing) {
        m_editing = false;
        m_view.cancelEditing();
    }
}

} // namespace tv::qt
