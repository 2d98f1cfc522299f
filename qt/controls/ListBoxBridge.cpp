#include "qt/controls/ListBoxBridge.h"

#include "qt/controls/PictureIcon.h"

#include <QListWidget>

namespace tv::qt {

ListBoxBridge::ListBoxBridge(CListBox& list, QListWidget& widget)
    : Bridge(list, widget), m_list(list), m_view(widget) {
    m_view.setEditTriggers(QAbstractItemView::NoEditTriggers);
    connect(&widget, &QListWidget::currentRowChanged, this,
            [this](int row) { user([&] { return m_list.userChoose(row); }); });
    connect(&widget, &QListWidget::itemDoubleClicked, this,
            [this](QListWidgetItem* item) { user([&] { return m_list.userDoubleClick(m_view.row(item)); }); });
}

void ListBoxBridge::show(ui::Change change) {
    if (change == ui::Change::items) showItems();
    if (change != ui::Change::items && change != ui::Change::selection) return;
    m_view.setCurrentRow(m_list.GetCurSel());
    if (QListWidgetItem* item = m_view.currentItem())
        m_view.scrollToItem(item);
    else
        m_view.clearSelection();
}

void ListBoxBridge::showItems() {
    const ui::ListItems& items = m_list.items();
    while (m_view.count() > items.count())
        delete m_view.takeItem(m_view.count() - 1);
    m_pictures.resize(static_cast<std::size_t>(items.count()));
    QSize size;
    for (int i = 0; i < items.count(); ++i) {
        const ui::ListItem& item = items.at(i);
        auto& shown = m_pictures[static_cast<std::size_t>(i)];
        if (i >= m_view.count()) {
            m_view.addItem(toQt(item.text));
            shown = {};
        } else if (m_view.item(i)->text() != toQt(item.text)) {
            m_view.item(i)->setText(toQt(item.text));
        }
        if (shown != item.picture) {
            m_view.item(i)->setIcon(pictureIcon(item.picture));
            shown = item.picture;
        }
        size = size.expandedTo(iconSize(item.picture));
    }
    if (!size.isEmpty()) m_view.setIconSize(size);
}

} // namespace tv::qt
