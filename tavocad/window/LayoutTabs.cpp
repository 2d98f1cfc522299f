#include "tavocad/window/LayoutTabs.h"

#include <QStyleOptionTab>
#include <QStylePainter>

namespace {
QFont boldOf(QFont font) {
    font.setBold(true);
    return font;
}
} // namespace

// Room for bold letters in every tab: choosing another one moves none.
QSize LayoutTabs::tabSizeHint(int index) const {
    const QFontMetrics bold(boldOf(font()));
    const int wider = bold.horizontalAdvance(tabText(index)) - fontMetrics().horizontalAdvance(tabText(index));
    return QTabBar::tabSizeHint(index) + QSize(std::max(wider, 0), 0);
}

void LayoutTabs::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    for (int tab = 0; tab < count(); ++tab) {
        QStyleOptionTab option;
        initStyleOption(&option, tab);
        if (tab != currentIndex()) {
            painter.drawControl(QStyle::CE_TabBarTab, option);
            continue;
        }
        const QColor background = palette().color(QPalette::Active, QPalette::Highlight);
        const QColor letters = palette().color(QPalette::Active, QPalette::HighlightedText);
        painter.fillRect(option.rect, background);
        option.palette.setColor(QPalette::WindowText, letters);
        option.palette.setColor(QPalette::ButtonText, letters);
        painter.setFont(boldOf(font()));
        painter.drawControl(QStyle::CE_TabBarTabLabel, option);
        painter.setFont(font());
    }
}
