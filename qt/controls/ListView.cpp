#include "qt/controls/ListView.h"

#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QInputMethodEvent>
#include <QMouseEvent>
#include <QToolTip>

#include <algorithm>

namespace tv::qt {

void ListView::updateGeometries() {
    QTableView::updateGeometries();
    if (m_hand) m_hand->geometryChanged();
}

void ListView::mousePressEvent(QMouseEvent* event) {
    if (m_hand && event->button() == Qt::LeftButton)
        m_hand->press(indexAt(event->pos()), event->pos(), event->modifiers());
}

void ListView::mouseMoveEvent(QMouseEvent* event) {
    if (!m_hand || !(event->buttons() & Qt::LeftButton)) return;
    // Above and below the rows in view the list moves on by one.
    const int rows = model() ? model()->rowCount() : 0, line = rowHeight(0);
    int row = rowAt(std::clamp(event->pos().y(), 0, std::max(0, viewport()->height() - 1)));
    if (row < 0) row = rows - 1;
    if (event->pos().y() < 0) row = std::max(0, row - 1);
    if (line > 0 && event->pos().y() >= viewport()->height()) row = std::min(rows - 1, row + 1);
    if (row >= 0) m_hand->drag(model()->index(row, std::max(0, columnAt(event->pos().x()))), event->pos());
}

void ListView::mouseReleaseEvent(QMouseEvent* event) {
    if (m_hand && event->button() == Qt::LeftButton) m_hand->release(indexAt(event->pos()));
}

void ListView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (m_hand && event->button() == Qt::LeftButton) m_hand->doubleClick(indexAt(event->pos()), event->pos());
}

void ListView::contextMenuEvent(QContextMenuEvent* event) {
    // The key for it arrives as a key.
    if (m_hand && event->reason() != QContextMenuEvent::Keyboard)
        m_hand->contextMenu(indexAt(event->pos()), event->globalPos());
}

void ListView::keyPressEvent(QKeyEvent* event) { event->ignore(); }

void ListView::inputMethodEvent(QInputMethodEvent* event) {
    if (m_hand && !event->commitString().isEmpty()) m_hand->typed(event->commitString());
    event->accept();
}

bool ListView::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::ToolTip && m_hand) {
        const auto& help = static_cast<QHelpEvent&>(*event);
        const QModelIndex index = indexAt(help.pos());
        if (const QString tip = m_hand->toolTipFor(index); !tip.isEmpty()) {
            QToolTip::showText(help.globalPos(), tip, viewport(), visualRect(index));
            return true;
        }
    }
    return QTableView::viewportEvent(event);
}

} // namespace tv::qt
