#include "qt/controls/TreeBridge.h"

#include <QHeaderView>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

namespace tv::qt {
namespace {
int idOf(const QTreeWidgetItem* item) { return item ? item->data(0, Qt::UserRole).toInt() : 0; }
} // namespace

TreeBridge::TreeBridge(CTreeCtrl& tree, QTreeWidget& widget)
    : Bridge(tree, widget), m_tree(tree), m_view(widget) {
    m_view.setColumnCount(1);
    m_view.header()->hide();
    m_view.setContextMenuPolicy(Qt::CustomContextMenu);
    m_view.setEditTriggers(QAbstractItemView::EditKeyPressed | QAbstractItemView::SelectedClicked);
    connect(&m_view, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item) {
        if (item) user([&] { return m_tree.userSelect(idOf(item)); });
    });
    const auto expanded = [this](QTreeWidgetItem* item, bool open) {
        user([&] {
            auto result = m_tree.userExpand(idOf(item), open);
            changed(ui::Change::items);
            return result;
        });
    };
    connect(&m_view, &QTreeWidget::itemExpanded, this,
            [expanded](QTreeWidgetItem* item) { expanded(item, true); });
    connect(&m_view, &QTreeWidget::itemCollapsed, this,
            [expanded](QTreeWidgetItem* item) { expanded(item, false); });
    connect(&m_view, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem* item) {
        user([&] {
            auto result = m_tree.userRename(idOf(item), item->text(0).toStdWString());
            changed(ui::Change::items); // the old text when the new one was refused
            return result;
        });
    });
    connect(&m_view, &QTreeWidget::customContextMenuRequested, this, [this](const QPoint& at) {
        if (const QTreeWidgetItem* item = m_view.itemAt(at)) user([&] { return m_tree.userMenu(idOf(item)); });
    });
}

void TreeBridge::show(ui::Change change) {
    if (change == ui::Change::items) showChildren(*m_view.invisibleRootItem(), m_tree.root());
    if (change == ui::Change::items || change == ui::Change::selection) showSelection();
}

// Items that are there already stay, so that a change shows in place.
void TreeBridge::showChildren(QTreeWidgetItem& shown, const ui::TreeItem& item) {
    int at = 0;
    for (const auto& child : item.children) {
        int found = at;
        while (found < shown.childCount() && idOf(shown.child(found)) != child->id)
            ++found;
        if (found == shown.childCount()) {
            auto* added = new QTreeWidgetItem;
            added->setData(0, Qt::UserRole, child->id);
            shown.insertChild(at, added);
        } else {
            for (; found > at; --found)
                delete shown.takeChild(at);
        }
        QTreeWidgetItem& row = *shown.child(at++);
        const QString text = toQt(child->text);
        if (row.text(0) != text) row.setText(0, text);
        row.setFlags(child->renamable ? row.flags() | Qt::ItemIsEditable : row.flags() & ~Qt::ItemIsEditable);
        showChildren(row, *child);
        row.setExpanded(child->expanded);
    }
    while (shown.childCount() > at)
        delete shown.takeChild(at);
}

QTreeWidgetItem* TreeBridge::find(int id) const {
    for (QTreeWidgetItemIterator it(&m_view); *it; ++it)
        if (idOf(*it) == id) return *it;
    return nullptr;
}

void TreeBridge::showSelection() {
    QTreeWidgetItem* selected = m_tree.GetSelectedItem() ? find(m_tree.GetSelectedItem()) : nullptr;
    if (m_view.currentItem() != selected) m_view.setCurrentItem(selected);
    if (!selected) m_view.clearSelection();
}

} // namespace tv::qt
