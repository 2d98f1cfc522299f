#include "qt/controls/ContainerBridges.h"

#include <QTabBar>
#include <QTabWidget>

namespace tv::qt {

TabBridge::TabBridge(CTabCtrl& tabs, QTabWidget& widget)
    : Bridge(tabs, widget), m_control(tabs), m_tabs(widget) {
    while (m_tabs.count() > 0)
        delete m_tabs.widget(0); // what Designer shows there
    m_tabs.setUsesScrollButtons(false);
    connect(&m_tabs, &QTabWidget::currentChanged, this,
            [this](int index) { user([&] { return m_control.userChoose(index); }); });
}

void TabBridge::addPage(QWidget& page) {
    const QSignalBlocker quiet(m_tabs);
    m_tabs.addTab(&page, toQt(m_control.title(m_tabs.count())));
}

void TabBridge::show(ui::Change change) {
    if (change != ui::Change::items && change != ui::Change::selection) return;
    const int count = std::min(m_tabs.count(), m_control.GetItemCount());
    for (int i = 0; i < count; ++i)
        if (const QString title = toQt(m_control.title(i)); m_tabs.tabText(i) != title)
            m_tabs.setTabText(i, title);
    if (m_control.GetCurSel() >= 0 && m_tabs.currentIndex() != m_control.GetCurSel())
        m_tabs.setCurrentIndex(m_control.GetCurSel());
}

} // namespace tv::qt
