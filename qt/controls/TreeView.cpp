#include "qt/controls/TreeView.h"

#include "qt/controls/RowDrag.h"

#include <QContextMenuEvent>
#include <QDragMoveEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QSignalBlocker>

#include <chrono>
#include <utility>

namespace tv::qt {
namespace {
constexpr std::chrono::milliseconds restBeforeOpening(700);
}

TreeView::TreeView(QWidget* parent) : QTreeWidget(parent) {
    setDropIndicatorShown(false); // the item itself shows it
    setDragDropOverwriteMode(true);
    m_openSoon.setSingleShot(true);
    m_openSoon.callOnTimeout(this, [this] {
        if (m_hand && m_restedOn) m_hand->hoverOpen(m_restedOn);
    });
}

void TreeView::cancelEditing() {
    QWidget* editor = indexWidget(currentIndex());
    if (!editor) return;
    editor->removeEventFilter(itemDelegate()); // which takes the text when the focus leaves
    closeEditor(editor, QAbstractItemDelegate::NoHint);
}

QStringList TreeView::mimeTypes() const { return {drag::format()}; }

void TreeView::startDrag(Qt::DropActions) {
    if (m_hand) m_hand->beginDrag(idOf(currentItem()));
}

void TreeView::setTarget(int id) {
    if (std::exchange(m_target, id) != id) viewport()->update();
}

void TreeView::dragEnterEvent(QDragEnterEvent* event) {
    QTreeWidget::dragEnterEvent(event);
    event->setAccepted(m_hand && drag::source() && event->mimeData()->hasFormat(drag::format()));
}

void TreeView::dragMoveEvent(QDragMoveEvent* event) {
    QTreeWidget::dragMoveEvent(event); // scrolls at the edges
    const int id = idOf(itemAt(event->position().toPoint()));
    if (std::exchange(m_restedOn, id) != id) m_openSoon.start(restBeforeOpening);
    const bool taken = m_hand && drag::source() && m_hand->takesDrop(id);
    setTarget(taken ? id : 0);
    if (taken) event->setDropAction(event->modifiers() & Qt::ControlModifier ? Qt::CopyAction : Qt::MoveAction);
    event->setAccepted(taken);
}

void TreeView::dragLeaveEvent(QDragLeaveEvent* event) {
    m_openSoon.stop();
    m_restedOn = 0;
    setTarget(0);
    QTreeWidget::dragLeaveEvent(event);
}

void TreeView::dropEvent(QDropEvent* event) {
    m_openSoon.stop();
    m_restedOn = 0;
    setTarget(0);
    setState(NoState);
    stopAutoScroll();
    const int id = idOf(itemAt(event->position().toPoint()));
    event->setAccepted(m_hand && drag::source() && m_hand->takesDrop(id));
    if (event->isAccepted()) m_hand->drop(id, event->modifiers() & Qt::ControlModifier);
}

void TreeView::contextMenuEvent(QContextMenuEvent* event) {
    // The key for it arrives as a key.
    if (m_hand && event->reason() != QContextMenuEvent::Keyboard)
        m_hand->contextMenu(idOf(itemAt(event->pos())), event->globalPos());
}

// Qt would make the first item the current one.
void TreeView::focusInEvent(QFocusEvent* event) {
    const bool none = !currentItem();
    const QSignalBlocker quiet(this);
    QTreeWidget::focusInEvent(event);
    if (none) setCurrentItem(nullptr);
}

void TreeView::keyPressEvent(QKeyEvent* event) { event->ignore(); }

void TreeView::inputMethodEvent(QInputMethodEvent* event) {
    if (m_hand && !event->commitString().isEmpty()) m_hand->typed(event->commitString());
    event->accept();
}

void TreeView::mouseDoubleClickEvent(QMouseEvent* event) {
    const int id = idOf(itemAt(event->position().toPoint()));
    if (m_hand && id && event->button() == Qt::LeftButton &&
        visualItemRect(itemAt(event->position().toPoint())).contains(event->position().toPoint())) {
        edit(indexAt(event->position().toPoint()), DoubleClicked, event); // not the one a second click begins
        m_hand->doubleClick(id);
    } else
        QTreeWidget::mouseDoubleClickEvent(event);
}

void TreeView::drawRow(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QTreeWidget::drawRow(painter, option, index);
    if (!m_target || index.data(Qt::UserRole).toInt() != m_target) return;
    const QRect frame = visualRect(index).adjusted(0, 0, -1, -1);
    QColor fill = palette().color(QPalette::Highlight);
    painter->save();
    painter->setPen(fill);
    fill.setAlphaF(0.25F);
    painter->setBrush(fill);
    painter->drawRect(frame);
    painter->restore();
}

} // namespace tv::qt
