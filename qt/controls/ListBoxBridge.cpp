#include "qt/controls/ListBoxBridge.h"

#include "qt/controls/SwatchIcon.h"

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
    m_swatches.resize(static_cast<std::size_t>(items.count()));
    QSize iconSize;
    for (int i = 0; i < items.count(); ++i) {
        const ui::ListItem& item = items.at(i);
        auto& shown = m_swatches[static_cast<std::size_t>(i)];
        if (i >= m_view.count()) {
            m_view.addItem(toQt(item.text));
            shown = {};
        } else if (m_view.item(i)->text() != toQt(item.text)) {
            m_view.item(i)->setText(toQt(item.text));
        }
        if (shown != item.swatch) {
            m_view.item(i)->setIcon(swatchIcon(item.swatch));
            shown = item.swatch;
        }
        iconSize = iconSize.expandedTo(swatchSize(item.swatch));
    }
    if (!iconSize.isEmpty()) m_view.setIconSize(iconSize);
}

} // namespace tv::qt
