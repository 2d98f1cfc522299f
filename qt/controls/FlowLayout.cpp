#include "qt/controls/FlowLayout.h"

#include <QStyle>
#include <QWidget>

#include <algorithm>

namespace tv::qt {

FlowLayout::~FlowLayout() { qDeleteAll(m_items); }

QLayoutItem* FlowLayout::takeAt(int index) {
    return index >= 0 && index < m_items.size() ? m_items.takeAt(index) : nullptr;
}

QSize FlowLayout::sizeHint() const {
    int width = 0, height = 0;
    for (const QLayoutItem* item : m_items) {
        if (item->isEmpty()) continue;
        width += item->sizeHint().width() + (width > 0 ? spacing() : 0);
        height = std::max(height, item->sizeHint().height());
    }
    const QMargins margins = contentsMargins();
    return {width + margins.left() + margins.right(), height + margins.top() + margins.bottom()};
}

// The widest item has to fit; the height follows from the width.
QSize FlowLayout::minimumSize() const {
    QSize least;
    for (const QLayoutItem* item : m_items)
        if (!item->isEmpty()) least = least.expandedTo(item->minimumSize());
    const QMargins margins = contentsMargins();
    return least + QSize(margins.left() + margins.right(), margins.top() + margins.bottom());
}

void FlowLayout::setGeometry(const QRect& rect) {
    QLayout::setGeometry(rect);
    arrange(rect, true);
}

int FlowLayout::arrange(const QRect& rect, bool move) const {
    const QRect inside = rect.marginsRemoved(contentsMargins());
    int x = 0, y = 0, rowHeight = 0;
    for (QLayoutItem* item : m_items) {
        if (item->isEmpty()) continue;
        const QSize wanted = item->sizeHint().boundedTo(
            QSize(std::max(inside.width(), item->minimumSize().width()), item->maximumSize().height()));
        if (x > 0 && x + wanted.width() > inside.width()) {
            x = 0;
            y += rowHeight + spacing();
            rowHeight = 0;
        }
        if (move)
            item->setGeometry(
                QStyle::visualRect(parentWidget() ? parentWidget()->layoutDirection() : Qt::LeftToRight, inside,
                                   QRect(inside.topLeft() + QPoint(x, y), wanted)));
        x += wanted.width() + spacing();
        rowHeight = std::max(rowHeight, wanted.height());
    }
    const QMargins margins = contentsMargins();
    return y + rowHeight + margins.top() + margins.bottom();
}

} // namespace tv::qt
